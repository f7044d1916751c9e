// The files shipped with the program: the sample rule data, the export stylesheets and the user
// guide. They are found from the folder of the program's own binary, never from the current
// folder, so the program finds them both installed and run from the build tree.
#pragma once

#include <string>

namespace zeph {

enum class ShippedFiles { Rules, Stylesheets, Documentation };

// The folder holding `files` for the binary in the absolute `executableFolder`: installed in
// <prefix>/bin, <prefix>/share/zephalon/<rules|stylesheets|Documentation> when that exists;
// else where the build tree keeps them, whether or not that exists.
std::string ShippedFolder(const std::string& executableFolder, ShippedFiles files);

}  // namespace zeph
