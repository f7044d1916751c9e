// `zephalon-cli export`: a character file through one of the export forms, for scripts and
// batch use, with the same stylesheets and results as the export window.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zeph {

inline constexpr const char* kExportUsage =
    "usage: zephalon-cli export --data RULES --format html|pdf|text|summary|wiki|custom|xml\n"
    "         [--page a4|letter] CHARACTER [-o OUT]\n";

// Arguments after "export": --data RULES --format html|pdf|text|summary|wiki|custom|xml
// [--page a4|letter] CHARACTER [-o OUT]; a PDF's page is the locale's paper unless told. Returns the exit status: 0 written, 2 for a usage error or a missing file.
int RunExportCommand(const std::vector<std::string>& arguments, const std::string& applicationFolder,
                     std::ostream& out, std::ostream& err);

}  // namespace zeph
