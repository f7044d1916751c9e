#include "platform/ShippedFiles.h"

#include <filesystem>

#include "platform/Files.h"

namespace zeph {
namespace {

// Both relative to the binary's folder.
struct Layout {
    const char* installed;
    const char* inBuildTree;
};

// The build copies the stylesheets and the guide beside the binaries (build/bin); the sample
// rules stay in the source tree, two levels up.
Layout layoutOf(ShippedFiles files) {
    switch (files) {
        case ShippedFiles::Rules:
            return {"../share/zephalon/rules", "../../data/rules"};
        case ShippedFiles::Stylesheets:
            return {"../share/zephalon/stylesheets", "."};
        case ShippedFiles::Documentation:
            return {"../share/zephalon/Documentation", "Documentation"};
    }
    return {"", ""};
}

std::string below(const std::string& folder, const char* relative) {
    return (std::filesystem::path(folder) / relative).lexically_normal().string();
}

}  // namespace

std::string ShippedFolder(const std::string& executableFolder, ShippedFiles files) {
    const Layout layout = layoutOf(files);
    const std::string installed = below(executableFolder, layout.installed);
    if (IsExistingFolder(installed)) return installed;
    return below(executableFolder, layout.inBuildTree);
}

}  // namespace zeph
