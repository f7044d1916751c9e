#include <gtest/gtest.h>

#include "sheet/StyledText.h"

namespace zeph {
namespace {

TEST(StyledText, AppendJoinsARunOnlyToOneOfTheSameStyle) {
    const StyleRun plain{"a"};
    StyleRun italic{"b"}, underline{"b"}, font{"b"}, size{"b"}, color{"b"};
    italic.italic = true;
    underline.underline = true;
    font.font = "Serif";
    size.size = 14;
    color.color = 0x0000FF;
    for (const StyleRun& other : {StyleRun{"b", true}, italic, underline, font, size, color}) {
        StyledText text;
        text.Append(plain);
        text.Append(StyleRun{""});
        text.Append(other);
        EXPECT_EQ(text.runs.size(), 2u) << other.font << other.size;
        text.Append(other);
        EXPECT_EQ(text.runs.back().text, "bb");
    }
}

TEST(StyledText, SliceAndReplaceKeepTheStylesAroundThem) {
    StyledText text{{StyleRun{"one", true}, StyleRun{"two"}, StyleRun{"six", true}}};
    EXPECT_EQ(text.Slice(2, 7).Text(), "etwos");
    EXPECT_EQ(text.Slice(2, 7).runs.size(), 3u);
    text.Replace(3, 3, "");
    EXPECT_EQ(text.runs.size(), 1u) << "the bold runs meet and join";
    EXPECT_EQ(text.Text(), "onesix");
}

}  // namespace
}  // namespace zeph
