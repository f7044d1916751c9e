// Choosing a skill fills the edit buffer from the rule data (six queries keyed by category and
// name); it runs at every pick and every press on the chooser. Each run picks the next skill
// of the file, so no two runs in a row look up the same name.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "bench_sheet.h"
#include "rules/Skills.h"

namespace zeph::bench {
namespace {

struct SkillPicker : BenchSheet {
    explicit SkillPicker(const std::string& path) : BenchSheet(path) {
        XmlNodeList categories = data.xdata->Query("//skills/category");
        for (int c = 0; c < categories.Count(); ++c) {
            const std::string category = categories.Item(c).Attribute("value");
            XmlNodeList names =
                data.xdata->Query("//skills/category[@value='" + category + "']/name");
            for (int n = 0; n < names.Count(); ++n)
                skills.emplace_back(category, names.Item(n).Attribute("value"));
        }
    }
    // The next skill, as the user sets the two lists; the pick runs SkillPopup_Change.
    void PickNext() {
        const auto& [category, name] = skills[next++ % skills.size()];
        sheet.SkillCategoryPopup.SetText(category);
        sheet.SkillPopup.SetText(name);
    }
    std::vector<std::pair<std::string, std::string>> skills;
    std::size_t next = 0;
};

void PickSkill(benchmark::State& state, std::string (*path)()) {
    SkillPicker picker(path());
    for (auto _ : state) picker.PickNext();
    picker.Failed(state);
}

void PickSkillLargeOverSample(benchmark::State& state) {
    LargeOverSample<SkillPicker>(state, [](SkillPicker& picker) { picker.PickNext(); });
}

BENCHMARK_CAPTURE(PickSkill, sample, &SampleRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickSkill, large, &LargeRuleDataPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(PickSkillLargeOverSample)->Name("Ratio/pick_skill")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
