// The encumbrance button on an equipment page that already holds item paragraphs, over the
// sample and over the large file: the press reads no rule data, so the file's size must not
// show in its time.
#include <benchmark/benchmark.h>

#include <string>

#include "bench_sheet.h"
#include "rules/Equipment.h"

namespace zeph::bench {
namespace {

constexpr int kItems = 3;

// A page as a player leaves it: the first items of the file's first type, Strength 12.
struct EquipmentPage : BenchSheet {
    explicit EquipmentPage(const std::string& path) : BenchSheet(path) {
        LoadEquipmentType(sheet);
        sheet.EquipmentTypePopup.SetListIndex(0);
        const std::vector<std::string> items = EquipmentField_ConstructContextualMenu(sheet);
        for (int i = 0; i < kItems; ++i) EquipmentField_ContextualMenuAction(sheet, items.at(i));
        page = sheet.EquipmentField.Styled();
        sheet.StrengthTotal.SetText("12");
    }
    // Each press starts from the same page, so that the field does not grow across runs.
    void Press() {
        sheet.EquipmentField.SetStyled(page);
        EncumButton_Action(sheet);
    }
    StyledText page;
};

void Encumbrance(benchmark::State& state, std::string (*path)()) {
    EquipmentPage page(path());
    for (auto _ : state) page.Press();
    page.Failed(state);
}

void EncumbranceLargeOverSample(benchmark::State& state) {
    LargeOverSample<EquipmentPage>(state, [](EquipmentPage& page) { page.Press(); });
}

BENCHMARK_CAPTURE(Encumbrance, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encumbrance, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(EncumbranceLargeOverSample)->Name("Ratio/encumbrance")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
