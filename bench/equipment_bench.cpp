// The encumbrance button on an equipment page that already holds item paragraphs, over the
// sample and over the large file: the press reads no rule data, so the file's size must not
// show in its time.
#include <benchmark/benchmark.h>

#include <string>

#include "in_turns.h"
#include "large_rule_data.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "rules/Equipment.h"
#include "rules/SheetOperations.h"
#include "sheet/CharacterSheet.h"

namespace zeph::bench {
namespace {

constexpr int kItems = 3;

// A page as a player leaves it: the first items of the file's first type, Strength 12.
struct EquipmentPage {
    explicit EquipmentPage(const std::string& path)
        : platform("/nonexistent-prefs", "/nonexistent-app", "/tmp"),
          sheet(data, platform, SheetOperations()) {
        data.xdata = RuleData::LoadFile(path);
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
    DataModule data;
    ScriptedPlatform platform;
    CharacterSheet sheet;
    StyledText page;
};

void Encumbrance(benchmark::State& state, std::string (*path)()) {
    EquipmentPage page(path());
    for (auto _ : state) page.Press();
}

void EncumbranceLargeOverSample(benchmark::State& state) {
    EquipmentPage sample(SampleRuleDataPath());
    EquipmentPage large(LargeRuleDataPath());
    TimeInTurns(
        state, "large_over_sample", [&] { sample.Press(); }, [&] { large.Press(); });
}

BENCHMARK_CAPTURE(Encumbrance, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Encumbrance, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(EncumbranceLargeOverSample)->Name("Ratio/encumbrance")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
