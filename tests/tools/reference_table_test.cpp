// What the console's tool script cannot show of a reference table: centred columns, and the
// failure of a table name that breaks the query. Sizes and cells: tests/scripts/tools.zs.
#include <gtest/gtest.h>

#include "platform/ScriptedPlatform.h"
#include "ruledata/RuleData.h"
#include "tools/ReferenceTable.h"

namespace zeph {
namespace {

TEST(ReferenceWindow, CentresColumnsAndReportsABrokenName) {
    auto rules = RuleData::LoadText(
        "<zephalondata><tabledata><table name=\"T\"><columnheading>A</columnheading><columnheading "
        "align=\"center\">B</columnheading><columnheading align=\"left\">C</columnheading></table>"
        "</tabledata></zephalondata>");
    ScriptedPlatform platform("", "", "");
    auto view = ReferenceTableMenuItem_Action(*rules, platform, "T");
    ASSERT_TRUE(view);
    EXPECT_FALSE(view->ListBox1.ColumnCentred(0) || view->ListBox1.ColumnCentred(2));
    EXPECT_TRUE(view->ListBox1.ColumnCentred(1));

    EXPECT_FALSE(ReferenceTableMenuItem_Action(*rules, platform, "T\"x"));
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].find(
                  "\n At node: zephalondata/tabledata/table[@name=\"T\"x\"]/columnheading on: "),
              std::string::npos)
        << platform.Messages()[0];
}

}  // namespace
}  // namespace zeph
