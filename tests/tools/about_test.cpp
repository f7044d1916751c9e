// The About view's books text, from the full reference or from the codes.
#include "tools/About.h"

#include <gtest/gtest.h>

#include "ruledata/RuleData.h"

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

}  // namespace
}  // namespace zeph
