// The windows that show what the rule data holds. About: the books text, from the full reference
// or from the codes. A reference table: what the console's tool script cannot show, centred
// columns and the failure of a table name that breaks the query (sizes and cells:
// tests/scripts/tools.zs).
#include <gtest/gtest.h>

#include "platform/ScriptedPlatform.h"
#include "ruledata/RuleData.h"
#include "tools/About.h"
#include "tools/ReferenceTable.h"

namespace zeph {
namespace {

TEST(AboutWindow, NamesTheBooksInUse) {
    const struct { const char *root, *codes, *books; } cases[] = {
        {"<zephalondata fullref=\"Book One and Two\"/>", "AFMBE", "Book One and Two"},
        {"<zephalondata fullref=\"\"/>", "AFMBE WC", "All Flesh Must Be Eaten, Witchcraft."},
        {"<zephalondata/>", "arm ac Hod mc",
         "Armageddeon, Abomination Codex, Book of Hod, Mystery Codex."},
        {"<zephalondata/>", "ZSB WC Mine", "ZSB, Witchcraft, Mine."},
        {"<other/>", "", "."},
    };
    for (const auto& c : cases) {
        AboutWindow about(*RuleData::LoadText(c.root), c.codes);
        EXPECT_EQ(about.BooksinUseText.Text(), std::string("Books Currently in Use: ") + c.books)
            << c.codes;
        EXPECT_EQ(about.VersionText.Text(), "Zephalon Version: 1.1.5");
    }
}

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
