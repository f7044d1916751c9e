// The numbers of the sheet under the locale the app takes from the environment when its
// QApplication starts.
#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "shell/gui_test_app.h"
#include "support/SheetFixture.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

using testing::ScopedEnv;

// A locale that writes "2,5" must change no number of the sheet. It is de_DE when installed,
// else one made by localedef under a LOCPATH of our own.
TEST(AppLocale, CommaDecimalLocaleChangesNoNumber) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("zeph-locale-" + std::to_string(getpid()));
    const bool built = !std::setlocale(LC_ALL, "de_DE.UTF-8");
    const std::string command =
        "localedef -i de_DE -f UTF-8 '" + (dir / "de_DE.UTF-8").string() + "' >/dev/null 2>&1";
    if (built && fs::create_directories(dir) && std::system(command.c_str()) != -1)
        setenv("LOCPATH", dir.c_str(), 1);
    test::GuiTestApp();
    // What QApplication does at its start; repeated in case this binary's app already existed.
    ScopedEnv all("LC_ALL", "de_DE.UTF-8");
    const bool comma =
        std::setlocale(LC_ALL, "") && std::localeconv()->decimal_point == std::string(",");
    if (comma) {
        EXPECT_EQ(Val("2.5"), 2.5);
        EXPECT_EQ(Val("-1.5e1x"), -15);
        EXPECT_EQ(CDbl("1,250.5"), 1250.5);
        EXPECT_EQ(CDbl("2,5"), 25);
        EXPECT_EQ(Str(2.5), "2.5");
        EXPECT_EQ(Str(0.1 + 0.2), "0.3");
    }
    std::setlocale(LC_ALL, "C");
    if (built) unsetenv("LOCPATH"), fs::remove_all(dir);
    if (!comma) GTEST_SKIP() << "no comma-decimal locale here (localedef or de_DE missing)";
}

}  // namespace
}  // namespace zeph
