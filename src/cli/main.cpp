// zephalon-cli: the console. `zephalon-cli script [--prefs DIR] FILE` runs a script against
// one character sheet (FILE "-" reads standard input); `zephalon-cli export ...` writes an
// export of a character file; `zephalon-cli lint RULES` checks a rule data file;
// `zephalon-cli diff-data OLD NEW CHARACTER` tells what a new rule data file would change;
// `zephalon-cli help` lists these and the script commands.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "cli/DiffDataCommand.h"
#include "cli/ExportCommand.h"
#include "cli/LintCommand.h"
#include "cli/ScriptRunner.h"

namespace {

// The usage lines, then the script commands from the runner's own table.
void printUsage(std::ostream& out) {
    out << "usage: zephalon-cli script [--prefs DIR] FILE\n"
           "  Runs FILE (\"-\" for standard input) against one character sheet.\n"
        << zeph::kExportUsage
        << "  Writes the export of CHARACTER to OUT or standard output; a PDF goes on the\n"
           "  locale's paper unless --page names one.\n"
           "usage: zephalon-cli lint RULES [--format text|json]\n"
           "  Names each mistake of a rule data file with its line; exit status 0 clean,\n"
           "  1 with warnings, 2 with errors.\n"
           "usage: zephalon-cli diff-data OLD.xml NEW.xml CHARACTER.xml\n"
           "  Tells what loading NEW in place of OLD would change on CHARACTER, old and new\n"
           "  side by side; exit status 0 nothing, 1 something, 2 a file that cannot be used.\n"
           "usage: zephalon-cli help\n"
           "  Shows this text.\n";
    zeph::ScriptRunner::PrintCommands(out);
}

int usage() {
    printUsage(std::cerr);
    return 2;
}

std::string defaultPreferencesFolder() {
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config)
        return std::string(config) + "/zephalon";
    if (const char* home = std::getenv("HOME"); home && *home)
        return std::string(home) + "/.config/zephalon";
    return ".";
}

std::string executableFolder(const char* argv0) {
    std::error_code error;
    auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) self = std::filesystem::absolute(argv0, error);
    return self.parent_path().string();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 2 && std::string(argv[1]) == "export")
        return zeph::RunExportCommand(std::vector<std::string>(argv + 2, argv + argc),
                                      executableFolder(argv[0]), std::cout, std::cerr);
    if (argc >= 2 && std::string(argv[1]) == "lint")
        return zeph::RunLintCommand(std::vector<std::string>(argv + 2, argv + argc), std::cout,
                                    std::cerr);
    if (argc >= 2 && std::string(argv[1]) == "diff-data")
        return zeph::RunDiffDataCommand(std::vector<std::string>(argv + 2, argv + argc),
                                        std::cout, std::cerr);
    if (argc == 2 && std::string(argv[1]) == "help") {
        printUsage(std::cout);
        return 0;
    }
    if (argc < 3 || std::string(argv[1]) != "script") return usage();
    std::string prefs = defaultPreferencesFolder();
    int next = 2;
    if (std::string(argv[next]) == "--prefs") {
        if (argc < 5) return usage();
        prefs = argv[next + 1];
        next += 2;
    }
    if (next != argc - 1) return usage();

    const std::string file = argv[next];
    zeph::ScriptRunner runner(std::cout, std::cerr, prefs, executableFolder(argv[0]));
    if (file == "-") return runner.Run(std::cin);
    std::ifstream in(file);
    if (!in) {
        std::cerr << "cannot read " << file << "\n";
        return 2;
    }
    return runner.Run(in);
}
