// The rule areas call one another downwards only: no area includes, through any chain, an area
// that includes it back, so each can be read and changed from the bottom up.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "platform/Files.h"

namespace zeph {
namespace {

TEST(RuleAreas, NoAreaIncludesItselfThroughAnother) {
    std::map<std::string, std::set<std::string>> includes;
    const std::regex include(R"(#include "rules/(\w+)\.h")");
    for (const auto& entry :
         std::filesystem::directory_iterator(ZEPHALON_SOURCE_DIR "/src/rules")) {
        const std::string unit = entry.path().stem().string();
        const std::string text = ReadWholeFile(entry.path()).value_or("");
        for (std::sregex_iterator m(text.begin(), text.end(), include), end; m != end; ++m)
            if ((*m)[1] != unit) includes[unit].insert((*m)[1]);
    }
    // What each area reaches, grown until it holds still; an area that reaches itself closes a loop.
    for (bool grew = true; grew;) {
        grew = false;
        for (auto& [unit, reached] : includes)
            for (const std::string& next : std::set(reached))
                for (const std::string& further : includes[next]) grew |= reached.insert(further).second;
    }
    for (const auto& [unit, reached] : includes) EXPECT_EQ(reached.count(unit), 0u) << unit;
    EXPECT_GT(includes["Qualities"].size(), 1u);  // the folder was read
}

}  // namespace
}  // namespace zeph
