#include <gtest/gtest.h>

#include "sheet/StyledText.h"

namespace zeph {
namespace {

TEST(StyledText, RunsJoinOnlyWithRunsOfTheSameStyle) {
    std::vector<StyleRun> others(6, StyleRun{"b"});
    others[0].bold = others[1].italic = others[2].underline = true;
    others[3].font = "Serif";
    others[4].size = 14;
    others[5].color = 0x0000FF;
    for (const StyleRun& other : others) {
        StyledText text;
        // An empty run adds nothing, not even a run of its own style.
        for (const StyleRun& run : {StyleRun{"a"}, StyleRun{"", true}, other, other})
            text.Append(run);
        EXPECT_EQ(text.runs.size(), 2u) << other.font << other.size;
        EXPECT_EQ(text.runs.back().text, "bb");
    }
    // A slice and a replacement keep the styles around them.
    StyledText text{{StyleRun{"one", true}, StyleRun{"two"}, StyleRun{"six", true}}};
    EXPECT_EQ(text.Slice(2, 7).Text(), "etwos");
    EXPECT_EQ(text.Slice(2, 7).runs.size(), 3u);
    text.Replace(3, 3, "");
    EXPECT_EQ(text.runs.size(), 1u) << "the bold runs meet and join";
    EXPECT_EQ(text.Text(), "onesix");
}

}  // namespace
}  // namespace zeph
