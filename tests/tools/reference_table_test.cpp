// A reference table's view from inline rule data: columns, widths, height and cells.
#include <gtest/gtest.h>

#include "platform/ScriptedPlatform.h"
#include "ruledata/RuleData.h"
#include "tools/ReferenceTable.h"

namespace zeph {
namespace {

// Ten rows, of which one has no cells; an empty heading between two with widths.
std::string tableData() {
    std::string rows = "<row><column/><column>b</column><column/></row><row/>";
    for (int n = 3; n <= 10; ++n)
        rows += "<row><column>" + std::to_string(n) +
                "</column><column>x</column><column>y</column></row>";
    return "<zephalondata><tabledata><table name=\"Odds\"><columnheading>Roll</columnheading>"
           "<columnheading width=\"70\"/><columnheading align=\"center\" "
           "width=\"50\">Odds</columnheading>" +
           rows +
           "</table><table "
           "name=\"Bare\"><row><column>1</column></row></table></tabledata></zephalondata>";
}

TEST(ReferenceWindow, TakesItsShapeFromTheTable) {
    auto rules = RuleData::LoadText(tableData());
    ScriptedPlatform platform("", "", "");
    auto view = ReferenceTableMenuItem_Action(*rules, platform, "Odds");
    ASSERT_TRUE(view);
    EXPECT_EQ(view->Title(), "Odds");
    EXPECT_EQ(view->ListBox1.ColumnCount(), 3);
    EXPECT_EQ(view->ListBox1.Heading(1), "");
    // The empty heading takes no width: 70 is lost and 50 moves to the second column.
    EXPECT_EQ(view->ListBox1.ColumnWidths(), "90,50");
    EXPECT_EQ(view->Width(), 160);
    EXPECT_EQ(view->Height(), 220);
    EXPECT_FALSE(view->ListBox1.ColumnCentred(0));
    EXPECT_TRUE(view->ListBox1.ColumnCentred(2));
    ASSERT_EQ(view->ListBox1.ListCount(), 9);
    EXPECT_EQ(view->ListBox1.Cell(0, 0), " ");
    EXPECT_EQ(view->ListBox1.Cell(0, 2), "");
    EXPECT_EQ(view->ListBox1.Cell(1, 0), "3");

    auto bare = ReferenceTableMenuItem_Action(*rules, platform, "Bare");
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->ListBox1.ColumnCount(), 0);
    EXPECT_EQ(bare->Width(), 20);
}

TEST(ReferenceWindow, AQuoteInTheNameShowsTheFailureAndNoView) {
    auto rules = RuleData::LoadText(tableData());
    ScriptedPlatform platform("", "", "");
    EXPECT_FALSE(ReferenceTableMenuItem_Action(*rules, platform, "Od\"ds"));
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(
        platform.Messages()[0].find("\n At node: zephalondata/tabledata/table[@name=\"Od\"ds\"]/"
                                    "columnheading on: "),
        std::string::npos)
        << platform.Messages()[0];
}

}  // namespace
}  // namespace zeph
