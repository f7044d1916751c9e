// A locale that writes "2,5": de_DE when installed, else made by localedef under a LOCPATH of
// our own, which goes away with this object. For the tests that numbers ignore the locale.
#pragma once

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace zeph::testing {

class CommaLocale {
public:
    static constexpr const char* kName = "de_DE.UTF-8";
    CommaLocale() : built_(!std::setlocale(LC_ALL, kName)) {
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + (dir_ / kName).string() + "' >/dev/null 2>&1";
        if (built_ && std::filesystem::create_directories(dir_) && std::system(command.c_str()) != -1)
            setenv("LOCPATH", dir_.c_str(), 1);
        std::setlocale(LC_ALL, "C");
    }
    ~CommaLocale() {
        std::setlocale(LC_ALL, "C");
        if (built_) unsetenv("LOCPATH"), std::filesystem::remove_all(dir_);
    }
    // Sets the process locale from the environment, as QApplication does; false when the
    // machine has no comma-decimal locale.
    static bool TakeFromEnvironment() {
        setenv("LC_ALL", kName, 1);
        const bool comma =
            std::setlocale(LC_ALL, "") && std::localeconv()->decimal_point == std::string(",");
        unsetenv("LC_ALL");
        return comma;
    }

private:
    const std::filesystem::path dir_ =
        std::filesystem::temp_directory_path() / ("zephalon-locale-" + std::to_string(getpid()));
    bool built_;
};

}  // namespace zeph::testing
