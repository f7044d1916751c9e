// Picking a quality or a metaphysic fills the entry items with a handful of keyed queries, and
// choosing a metaphysic type asks, for every name of the type, whether the character's
// qualities allow it. All run at the user's click and must stay instant on large rule data.
// Each pick takes the next name of the file, so no two runs in a row look up the same name.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "bench_sheet.h"
#include "rules/Metaphysics.h"

namespace zeph::bench {
namespace {

// Every (type, name) of a section that its paths can name, in document order: types in single
// quotes, and names too where `nameQuote` is a single quote (an apostrophe there fails by rule).
std::vector<std::pair<std::string, std::string>> Entries(const RuleData& rules,
                                                         const std::string& section,
                                                         char nameQuote) {
    std::vector<std::pair<std::string, std::string>> entries;
    XmlNodeList types = rules.Query("//" + section + "/type");
    for (int t = 0; t < types.Count(); ++t) {
        const std::string type = types.Item(t).Attribute("value");
        if (type.find('\'') != std::string::npos) continue;
        XmlNodeList names = rules.Query("//" + section + "/type[@value='" + type + "']/name");
        for (int n = 0; n < names.Count(); ++n) {
            const std::string name = names.Item(n).Attribute("value");
            if (name.find(nameQuote) == std::string::npos) entries.emplace_back(type, name);
        }
    }
    return entries;
}

// The sheet's operations without the type lists' own changes: a pick sets the type's text
// and only the name's change is timed.
const OperationTable& WithoutTypeChanges() {
    static const OperationTable table = [] {
        OperationTable t = SheetOperations();
        t.erase("QualityTypePopup_Change");
        t.erase("MetaTypePopup_Change");
        return t;
    }();
    return table;
}

struct Purchases : BenchSheet {
    explicit Purchases(const std::string& path) : BenchSheet(path, WithoutTypeChanges()) {
        qualities = Entries(*data.xdata, "qualities", '\'');
        metaphysics = Entries(*data.xdata, "metaphysics", '"');
        // Twenty quality rows, the first of each type that offers metaphysics among them.
        for (std::size_t i = 0; i < 20 && i < qualities.size(); ++i)
            sheet.QualityListBox.AddRow(qualities[i * qualities.size() / 20].second);
        // The type with the most names is the one whose list is timed.
        std::size_t most = 0;
        for (std::size_t i = 0, run = 0; i < metaphysics.size(); ++i) {
            run = i > 0 && metaphysics[i].first == metaphysics[i - 1].first ? run + 1 : 1;
            if (run > most) {
                most = run;
                longestType = metaphysics[i].first;
            }
        }
    }
    // The user's two choices; the name's change fills the entry items.
    void PickNext(ComboItem& typeList, ComboItem& names,
                  const std::vector<std::pair<std::string, std::string>>& entries) {
        const auto& [type, name] = entries[next++ % entries.size()];
        typeList.SetText(type);
        names.AddRow(name);
        names.SetText(name);
        names.DeleteAllRows();
    }
    void PickQuality() { PickNext(sheet.QualityTypePopup, sheet.QualityPopup, qualities); }
    void PickMeta() { PickNext(sheet.MetaTypePopup, sheet.MetaPopup, metaphysics); }
    void ListLongestMetaType() {
        sheet.MetaTypePopup.SetText(longestType);
        MetaTypePopup_Change(sheet);
    }
    std::vector<std::pair<std::string, std::string>> qualities, metaphysics;
    std::string longestType;
    std::size_t next = 0;
};

void PickQuality(benchmark::State& state, std::string (*path)()) {
    Purchases p(path());
    for (auto _ : state) p.PickQuality();
    p.Failed(state);
}
void PickMeta(benchmark::State& state, std::string (*path)()) {
    Purchases p(path());
    for (auto _ : state) p.PickMeta();
    p.Failed(state);
}
void MetaTypeList(benchmark::State& state, std::string (*path)()) {
    Purchases p(path());
    for (auto _ : state) p.ListLongestMetaType();
    // The two files' longest types differ in length; the time per name offered compares them.
    const double names = static_cast<double>(p.sheet.MetaPopup.ListCount());
    state.counters["names"] = names;
    state.counters["per_name_us"] = benchmark::Counter(
        1e-6 * names, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    p.Failed(state);
}

template <void (Purchases::*Work)()>
void PurchaseLargeOverSample(benchmark::State& state) {
    LargeOverSample<Purchases>(state, [](Purchases& p) { (p.*Work)(); });
}

BENCHMARK_CAPTURE(PickQuality, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickQuality, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(PurchaseLargeOverSample<&Purchases::PickQuality>)
    ->Name("Ratio/pick_quality")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickMeta, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickMeta, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(PurchaseLargeOverSample<&Purchases::PickMeta>)
    ->Name("Ratio/pick_meta")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MetaTypeList, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MetaTypeList, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(PurchaseLargeOverSample<&Purchases::ListLongestMetaType>)
    ->Name("Ratio/meta_type_list")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
