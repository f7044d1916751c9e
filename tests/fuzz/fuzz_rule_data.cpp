// Fuzzes the rule data file. Whatever its bytes, loading it as the app does and walking a sheet
// over it with a player's random steps may show messages or end a step with a failure (which
// the app shows); a crash, a sanitizer report, a hang or a leak is a fault. The steps are drawn
// from a seed made of the bytes, so that an input walks the same way at every run.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "cli/ScriptRunner.h"
#include "support/RandomSteps.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path =
        (std::filesystem::temp_directory_path() /
         ("zephalon-fuzz-rule-data-" + std::to_string(getpid()) + ".xml"))
            .string();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) return 0;

    std::ostringstream out, err;
    zeph::ScriptRunner runner(out, err, "/nonexistent-prefs", "/nonexistent-app");
    const auto run = [&](const std::string& line) {
        out.str("");
        std::istringstream in(line);
        runner.Run(in);
        return out.str();
    };
    run("data " + path);
    std::remove(path.c_str());
    zeph::testing::RandomSteps steps(run, static_cast<unsigned>(std::hash<std::string_view>{}(bytes)));
    for (int step = 0; step < 60; ++step) steps.Step();
    return 0;
}
