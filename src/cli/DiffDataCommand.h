// `zephalon-cli diff-data`: what switching a character's rule data file would change on it.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zeph {

// Arguments after "diff-data": OLD.xml NEW.xml CHARACTER.xml. Writes the report to `out` and
// returns 0 when nothing reads differently, 1 when something does, and 2 for a usage error or
// a file that is missing, not well-formed, or (the character) not one of OLD's. Reads the
// files only.
int RunDiffDataCommand(const std::vector<std::string>& arguments, std::ostream& out,
                       std::ostream& err);

}  // namespace zeph
