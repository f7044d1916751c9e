// The words of a name written in camel case, for what the program tells people about its
// items: "QualityXPCostField" is Quality, XP, Cost, Field.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zeph {

// A word starts at a capital after a small letter or a digit, at the last capital of a run
// followed by a small letter ("XPCost"), at a digit after a letter, and after "_", which goes.
std::vector<std::string> NameWords(std::string_view name);

}  // namespace zeph
