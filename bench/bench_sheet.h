// A sheet over one rule data file, kept apart from every other sheet, for the benchmarks that
// time its operations; and the timing of one piece of work on the sample and the large file in
// turns, which states each speed target as large over sample.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "in_turns.h"
#include "large_rule_data.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "app/SheetOperations.h"
#include "sheet/CharacterSheet.h"

namespace zeph::bench {

struct BenchSheet {
    // `operations` must outlive the sheet.
    explicit BenchSheet(const std::string& path,
                        const OperationTable& operations = SheetOperations())
        : platform("/nonexistent-prefs", "/nonexistent-app", "/tmp"),
          sheet(data, platform, operations) {
        data.xdata = RuleData::LoadFile(path);
    }
    // A message would mean the runs timed an abandoned operation.
    bool Failed(benchmark::State& state) const {
        if (platform.Messages().empty()) return false;
        state.SkipWithError(platform.Messages().front().c_str());
        return true;
    }
    DataModule data;
    ScriptedPlatform platform;
    CharacterSheet sheet;
};

// Fills the sheet as a player would have: the file's last type and its first choice, six
// attributes, and `qualityRows` quality rows carrying every kind of bonus column.
void PrepareSheet(CharacterSheet& sheet, const RuleData& rules, int qualityRows);

// Runs `work` on a `Fixture` over each file, in turns, and reports large over sample.
template <class Fixture, class Work>
void LargeOverSample(benchmark::State& state, Work work) {
    Fixture sample(SampleRuleDataPath());
    Fixture large(LargeRuleDataPath());
    TimeInTurns(
        state, "large_over_sample", [&] { work(sample); }, [&] { work(large); });
    if (!sample.Failed(state)) large.Failed(state);
}

}  // namespace zeph::bench
