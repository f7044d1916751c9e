// Taking back a record must be instant whatever the sheet's length: it trades back only what
// the record touched, and a long list's rows are shared, not copied. Each iteration times one
// undo of a quality record; the redo that prepares the next one is not timed.
#include <benchmark/benchmark.h>

#include <chrono>
#include <stdexcept>

#include "app/SheetSteps.h"
#include "bench_sheet.h"

namespace zeph::bench {
namespace {

using Clock = std::chrono::steady_clock;

// A sheet on the sample data with `rows` quality rows and one quality recorded as a step.
struct RecordedSheet : BenchSheet {
    explicit RecordedSheet(int rows) : BenchSheet(SampleRuleDataPath()) {
        PrepareSheet(sheet, *data.xdata, rows);
        sheet.history.Clear();
        sheet.QualityNameField.SetText("Hard to Kill");
        sheet.QualityLevelField.SetText("2");
        sheet.QualityCostField.SetText("2");
        RunUserOperation(sheet, "QualityRecordButton_Action");
        if (sheet.history.UndoName() != "Record Quality") throw std::logic_error("no record");
    }
    // The time of one undo; the record is done again afterwards.
    Clock::duration UndoOnce() {
        const auto start = Clock::now();
        sheet.history.Undo();
        const auto taken = Clock::now() - start;
        sheet.history.Redo();
        return taken;
    }
};

void Undo(benchmark::State& state, int rows) {
    RecordedSheet recorded(rows);
    for (auto _ : state)
        state.SetIterationTime(std::chrono::duration<double>(recorded.UndoOnce()).count());
    recorded.Failed(state);
}

// 300 rows over 30, undone in turns in one run.
void UndoLongOverShort(benchmark::State& state) {
    RecordedSheet shortSheet(30), longSheet(300);
    Clock::duration shortTime{}, longTime{};
    for (auto _ : state) {
        shortTime += shortSheet.UndoOnce();
        longTime += longSheet.UndoOnce();
    }
    using Micro = std::chrono::duration<double, std::micro>;
    const double iterations = static_cast<double>(state.iterations());
    state.counters["base_us"] = Micro(shortTime).count() / iterations;
    state.counters["measured_us"] = Micro(longTime).count() / iterations;
    state.counters["300_over_30"] = Micro(longTime).count() / Micro(shortTime).count();
    if (!shortSheet.Failed(state)) longSheet.Failed(state);
}

BENCHMARK_CAPTURE(Undo, 30, 30)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Undo, 300, 300)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(UndoLongOverShort)->Name("Ratio/undo_300_over_30")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
