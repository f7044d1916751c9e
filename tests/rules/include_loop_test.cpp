// The rule areas call one another downwards only: no area includes, through any chain, an area
// that includes it back, so each can be read and changed from the bottom up.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
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
    // Depth first: an area met again while it is still on the path closes a loop.
    std::map<std::string, int> state;  // 1 on the path, 2 done
    std::string loop;
    std::function<void(const std::string&, const std::string&)> visit =
        [&](const std::string& unit, const std::string& path) {
            state[unit] = 1;
            for (const std::string& next : includes[unit]) {
                if (state[next] == 1 && loop.empty()) loop = path + unit + " > " + next;
                if (state[next] == 0) visit(next, path + unit + " > ");
            }
            state[unit] = 2;
        };
    for (const auto& [unit, included] : includes)
        if (state[unit] == 0) visit(unit, "");
    EXPECT_EQ(loop, "");
    EXPECT_GT(includes["Qualities"].size(), 1u);  // the folder was read
}

}  // namespace
}  // namespace zeph
