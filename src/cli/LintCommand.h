// `zephalon-cli lint`: the findings of the rule data linter, for authors, editors and CI logs.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zeph {

// Arguments after "lint": RULES [--format text|json]. Writes the findings to `out` and returns
// 0 when clean (notes aside), 1 with warnings only, 2 with errors or a usage error.
int RunLintCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace zeph
