// The recomputation on a sheet of 30 quality rows, over the sample and over the large file:
// it runs on every tab change and every edit of an attribute, so it must not lag.
#include <benchmark/benchmark.h>

#include <string>

#include "bench_sheet.h"
#include "rules/SecondaryAttributes.h"

namespace zeph::bench {

void PrepareSheet(CharacterSheet& sheet, const RuleData& rules, int qualityRows) {
    XmlNodeList types = rules.Query("//charactertype/type");
    const std::string type = types.Item(types.Count() - 1).Attribute("value");
    const std::string choice =
        rules.Query("//charactertype/type[@value='" + type + "']/name").Item(0).Attribute("value");
    sheet.CharacterTypePopup.SetText(type);
    sheet.ChooseCharPopup.SetText(choice);
    for (int a = 0; a < kAttributeCount; ++a)
        sheet.AttributeOf(a).field.SetText(std::to_string(2 + a % 3));

    XmlNodeList names = rules.Query("//qualities/type/name");
    ListItem& list = sheet.QualityListBox;
    for (int i = 0; i < qualityRows; ++i) {
        list.AddRow(names.Item(i % names.Count()).Attribute("value"));
        const int row = list.LastIndex();
        list.SetCell(row, 1, std::to_string(1 + i % 3));
        list.SetCell(row, 2, std::to_string(i % 2 ? 2 : -1));
        if (i % 7 == 0) list.SetCell(row, 10, "Essence Channeling");
        list.SetCell(row, 11 + i % 6, "1");
        list.SetCell(row, 17, "Intelligence&&1");
        list.SetCell(row, 19, "Mental&&1");
        list.SetCell(row, 20, "Attr&&1");
        list.SetCell(row, 21, "Physical&&1");
        list.SetCell(row, 22, "0.5");
        list.SetCell(row, 23, "2");
        list.SetCell(row, 26, i % 5 == 0 ? "5" : "");
    }
}

namespace {

// A sheet prepared on one rule data file.
struct PreparedSheet : BenchSheet {
    explicit PreparedSheet(const std::string& path) : BenchSheet(path) {
        PrepareSheet(sheet, *data.xdata, 30);
    }
};

void Recompute(benchmark::State& state, std::string (*path)()) {
    PreparedSheet prepared(path());
    for (auto _ : state) FigureSecondaryAttributes(prepared.sheet);
    prepared.Failed(state);
}

// The target is stated as large over sample: both sheets recompute in turns.
void RecomputeLargeOverSample(benchmark::State& state) {
    LargeOverSample<PreparedSheet>(state,
                                   [](PreparedSheet& p) { FigureSecondaryAttributes(p.sheet); });
}

BENCHMARK_CAPTURE(Recompute, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Recompute, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(RecomputeLargeOverSample)->Name("Ratio/recompute")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
