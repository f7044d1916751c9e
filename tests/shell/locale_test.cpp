// The app takes the user's locale from the environment when its QApplication starts; the
// numbers of the sheet keep "." for their fraction even when that locale writes ",".
#include <gtest/gtest.h>
#include <clocale>

#include "shell/gui_test_app.h"
#include "support/CommaLocale.h"
#include "text/TextHelpers.h"

namespace zeph::gui {
namespace {

TEST(AppLocale, CommaDecimalLocaleKeepsTheFractionOfNumbers) {
    testing::CommaLocale locale;
    test::GuiTestApp();
    // What QApplication does at its start; repeated in case this binary's app already existed.
    const bool comma = testing::CommaLocale::TakeFromEnvironment();
    if (comma) {
        EXPECT_EQ(Val("2.5"), 2.5);
        EXPECT_EQ(CDbl("2.5"), 2.5);
        EXPECT_EQ(Str(2.5), "2.5");
    }
    std::setlocale(LC_ALL, "C");
    if (!comma) GTEST_SKIP() << "no comma-decimal locale here (localedef or de_DE missing)";
}

}  // namespace
}  // namespace zeph::gui
