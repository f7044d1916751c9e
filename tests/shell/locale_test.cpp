// The app takes the user's locale from the environment when its QApplication starts; the
// numbers of the sheet keep "." for their fraction even when that locale writes ",".
#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "shell/gui_test_app.h"
#include "text/TextHelpers.h"

namespace zeph::gui {
namespace {

TEST(AppLocale, CommaDecimalLocaleKeepsTheFractionOfNumbers) {
    const char* name = "de_DE.UTF-8";
    const auto dir =
        std::filesystem::temp_directory_path() / ("zephalon-locale-" + std::to_string(getpid()));
    const bool built = !std::setlocale(LC_ALL, name);  // not installed: made under our own LOCPATH
    const std::string localedef =
        "localedef -i de_DE -f UTF-8 '" + (dir / name).string() + "' >/dev/null 2>&1";
    if (built && std::filesystem::create_directories(dir) && std::system(localedef.c_str()) != -1)
        setenv("LOCPATH", dir.c_str(), 1);
    setenv("LC_ALL", name, 1);
    test::GuiTestApp();
    // What QApplication does at its start; repeated in case this binary's app already existed.
    const bool comma =
        std::setlocale(LC_ALL, "") && std::localeconv()->decimal_point == std::string(",");
    if (comma) {
        EXPECT_EQ(Val("2.5"), 2.5);
        EXPECT_EQ(CDbl("2.5"), 2.5);
        EXPECT_EQ(Str(2.5), "2.5");
    }
    std::setlocale(LC_ALL, "C");
    unsetenv("LC_ALL");
    if (built) unsetenv("LOCPATH"), std::filesystem::remove_all(dir);
    if (!comma) GTEST_SKIP() << "no comma-decimal locale here (localedef or de_DE missing)";
}

}  // namespace
}  // namespace zeph::gui
