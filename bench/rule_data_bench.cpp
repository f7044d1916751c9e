// Rule data timings: a query of the program's own shapes for a key not asked before, on the
// sample and on a large file, and loading the large file against a bare libxml2 parse.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <cstddef>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "in_turns.h"
#include "large_rule_data.h"
#include "ruledata/RuleData.h"
#include "tools/RuleDataLint.h"

namespace zeph::bench {
namespace {

constexpr int kParseOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

std::vector<std::string> Values(const RuleData& data, const std::string& query, const char* attr) {
    std::vector<std::string> values;
    XmlNodeList nodes = data.Query(query);
    for (int i = 0; i < nodes.Count(); ++i) values.push_back(nodes.Item(i).Attribute(attr));
    return values;
}

// Every (template, key) the file offers, grouped by template family. Keys with a quote that
// their template cannot hold are skipped: those queries fail in libxml2 by design.
std::vector<std::vector<std::string>> QueryFamilies(const RuleData& data) {
    std::vector<std::vector<std::string>> families;
    auto family = [&families]() -> std::vector<std::string>& { return families.emplace_back(); };
    auto quotable = [](const std::string& key, char quote) {
        return key.find(quote) == std::string::npos;
    };
    auto leaves = [](std::vector<std::string>& out, const std::string& base,
                     std::initializer_list<const char*> names) {
        for (const char* leaf : names) out.push_back(base + "/" + leaf);
    };

    family() = {"//zephalondata",        "zephalondata/tabledata/table",
                "//charactertype/type",  "//concepts/name",
                "//associations/name",   "//qualities/type",
                "//skills/category",     "//martialarts/name",
                "//visualizations/name", "//metaphysics/type",
                "//equipment/type"};

    auto& tables = family();
    for (const std::string& table : Values(data, "zephalondata/tabledata/table", "name")) {
        if (!quotable(table, '"')) continue;
        std::string base = "zephalondata/tabledata/table[@name=\"" + table + "\"]";
        leaves(tables, base, {"columnheading", "row"});
        int rows = data.Query(base + "/row").Count();
        for (int n = 1; n <= rows; ++n)
            tables.push_back(base + "/row[" + std::to_string(n) + "]/column");
    }

    auto& characters = family();
    for (const std::string& type : Values(data, "//charactertype/type", "value")) {
        if (!quotable(type, '\'')) continue;
        std::string t = "//charactertype/type[@value='" + type + "']";
        characters.push_back(t + "/name");
        for (const std::string& choice : Values(data, t + "/name", "value")) {
            if (!quotable(choice, '\'')) continue;
            std::string c = t + "/name[@value='" + choice + "']";
            characters.push_back(c);
            leaves(characters, c,
                   {"qualityrequired", "alternateform", "bonuspts", "calculations", "creationpts",
                    "dramapts"});
        }
    }

    auto& associations = family();
    for (const std::string& a : Values(data, "//associations/name", "value"))
        if (quotable(a, '\''))
            associations.push_back("//associations/name[@value='" + a + "']/notes");

    auto& qualities = family();
    for (const std::string& type : Values(data, "//qualities/type", "value")) {
        if (!quotable(type, '\'')) continue;
        std::string t = "//qualities/type[@value='" + type + "']";
        qualities.push_back(t + "/name");
        for (const std::string& name : Values(data, t + "/name", "value"))
            if (quotable(name, '\''))
                leaves(qualities, t + "/name[@value='" + name + "']",
                       {"costs", "pagereference", "prerequisites", "notes", "alternateform",
                        "bonusattr", "bonuspts"});
    }
    auto& anyQuality = family();
    for (const std::string& name : Values(data, "//qualities/type/name", "value")) {
        if (!quotable(name, '\'')) continue;
        std::string n = "//qualities/*/name[@value='" + name + "']";
        anyQuality.push_back(n);
        leaves(anyQuality, n,
               {"costs", "notes", "pagereference", "prerequisites", "bonusattr", "bonuspts"});
    }

    auto& skills = family();
    for (const std::string& category : Values(data, "//skills/category", "value")) {
        if (!quotable(category, '\'')) continue;
        std::string c = "//skills/category[@value='" + category + "']";
        skills.push_back(c + "/name");
        for (const std::string& skill : Values(data, c + "/name", "value"))
            if (quotable(skill, '\''))
                leaves(skills, c + "/name[@value='" + skill + "']",
                       {"pagereference", "type", "notes", "typelist"});
    }

    auto& styles = family();
    for (const std::string& style : Values(data, "//martialstyles/name", "value")) {
        if (!quotable(style, '"')) continue;
        std::string s = "//martialstyles/name[@value=\"" + style + "\"]";
        styles.push_back(s);
        leaves(styles, s, {"basicmoves", "specialmoves"});
    }

    auto& metaphysics = family();
    for (const std::string& type : Values(data, "//metaphysics/type", "value")) {
        if (!quotable(type, '\'')) continue;
        std::string t = "//metaphysics/type[@value='" + type + "']";
        metaphysics.push_back(t + "/name");
        for (const std::string& name : Values(data, t + "/name", "value"))
            if (quotable(name, '"'))
                leaves(metaphysics, t + "/name[@value=\"" + name + "\"]",
                       {"costs", "pagereference", "metaprerequisite", "qualityprerequisite",
                        "notes", "bonusattr", "bonuspts", "altform"});
    }

    auto& equipment = family();
    for (const std::string& type : Values(data, "//equipment/type", "value")) {
        if (!quotable(type, '"')) continue;
        std::string t = "//equipment/type[@value=\"" + type + "\"]";
        equipment.push_back(t + "/name");
        for (const std::string& item : Values(data, t + "/name", "value"))
            if (quotable(item, '"')) equipment.push_back(t + "/name[@value=\"" + item + "\"]/*");
    }

    auto& altforms = family();
    for (const std::string& type : Values(data, "//altforms/type", "value")) {
        if (!quotable(type, '\'')) continue;
        std::string t = "//altforms/type[@value='" + type + "']";
        altforms.push_back(t + "/name");
        for (const std::string& form : Values(data, t + "/name", "value"))
            if (quotable(form, '\''))
                leaves(altforms, t + "/name[@value='" + form + "']",
                       {"attributes", "calculations", "naturalattacks", "other", "pagereference"});
    }
    auto& anyAltform = family();
    for (const std::string& form : Values(data, "//altforms/type/name", "value"))
        if (quotable(form, '\''))
            leaves(anyAltform, "//altforms/*/name[@value='" + form + "']",
                   {"costs", "attributes", "calculations", "naturalattacks", "other",
                    "pagereference"});
    return families;
}

// The families taken in turn, one query of each, so that consecutive iterations change both
// the template and the key.
std::vector<std::string> Interleave(const std::vector<std::vector<std::string>>& families) {
    std::vector<std::string> queries;
    for (std::size_t round = 0;; ++round) {
        bool any = false;
        for (const auto& family : families) {
            if (round < family.size()) {
                queries.push_back(family[round]);
                any = true;
            }
        }
        if (!any) return queries;
    }
}

// One loaded file and its queries, kept for the whole run; the cursor goes on across the
// benchmark's repeated runs, so keys come back only when the list is used up.
struct QueryRun {
    std::unique_ptr<RuleData> data;
    std::vector<std::string> queries;
    std::size_t next = 0;

    const std::string& NextQuery() {
        const std::string& query = queries[next];
        if (++next == queries.size()) next = 0;
        return query;
    }
};

// Each use gets a document of its own, so that no benchmark finds the lazily built parts of
// the index that another one paid for.
QueryRun& RunFor(const std::string& path, const std::string& use) {
    static std::map<std::string, QueryRun> runs;
    QueryRun& run = runs[use + ":" + path];
    if (!run.data) {
        run.data = RuleData::LoadFile(path);
        run.queries = Interleave(QueryFamilies(*run.data));
    }
    return run;
}

void ColdQuery(benchmark::State& state, const std::string& path) {
    QueryRun& run = RunFor(path, "cold");
    for (auto _ : state) benchmark::DoNotOptimize(run.data->Query(run.NextQuery()).Count());
    state.counters["distinct_queries"] = static_cast<double>(run.queries.size());
}

// For contrast: the same queries answered by libxml2's XPath alone, which keeps no index.
void LibxmlQuery(benchmark::State& state, const std::string& path) {
    QueryRun& run = RunFor(path, "libxml");
    for (auto _ : state)
        benchmark::DoNotOptimize(run.data->QueryWithLibxml(run.NextQuery()).Count());
}

void BM_ColdQuerySample(benchmark::State& state) { ColdQuery(state, SampleRuleDataPath()); }
void BM_ColdQueryLarge(benchmark::State& state) { ColdQuery(state, LargeRuleDataPath()); }
void BM_LibxmlQuerySample(benchmark::State& state) { LibxmlQuery(state, SampleRuleDataPath()); }
void BM_LibxmlQueryLarge(benchmark::State& state) { LibxmlQuery(state, LargeRuleDataPath()); }

// The target is stated as large over sample: one query on each file in turns.
void BM_ColdQueryLargeOverSample(benchmark::State& state) {
    QueryRun& sample = RunFor(SampleRuleDataPath(), "ratio");
    QueryRun& large = RunFor(LargeRuleDataPath(), "ratio");
    TimeInTurns(
        state, "large_over_sample",
        [&] { benchmark::DoNotOptimize(sample.data->Query(sample.NextQuery()).Count()); },
        [&] { benchmark::DoNotOptimize(large.data->Query(large.NextQuery()).Count()); });
}

std::unique_ptr<RuleData> LoadLarge() {
    auto data = RuleData::LoadFile(LargeRuleDataPath());
    // The first query builds what the index builds eagerly; it is part of loading.
    benchmark::DoNotOptimize(data->Query("//zephalondata").Count());
    return data;
}

void ParseLarge() {
    xmlDoc* doc = xmlReadFile(LargeRuleDataPath().c_str(), nullptr, kParseOptions);
    benchmark::DoNotOptimize(doc);
    xmlFreeDoc(doc);
}

void BM_LoadLarge(benchmark::State& state) {
    for (auto _ : state) LoadLarge();
}

void BM_ParseOnlyLarge(benchmark::State& state) {
    for (auto _ : state) ParseLarge();
}

// Loading against a bare parse of the same file, in turns. Both free their document inside
// the timing.
void BM_LoadOverParse(benchmark::State& state) {
    TimeInTurns(state, "load_over_parse", ParseLarge, [] { LoadLarge(); });
}

void LintLarge() { benchmark::DoNotOptimize(LintRuleDataFile(LargeRuleDataPath()).size()); }

void BM_LintLarge(benchmark::State& state) {
    for (auto _ : state) LintLarge();
}

// The linter reads the file itself, so it is held against loading it, in turns.
void BM_LintOverLoad(benchmark::State& state) {
    TimeInTurns(state, "lint_over_load", [] { LoadLarge(); }, LintLarge);
}

}  // namespace

BENCHMARK(BM_ColdQuerySample)->Name("ColdQuery/sample");
// Fewer iterations than the large file has distinct queries: no query is asked twice, and
// the index's lazily built parts are paid for inside the timing.
BENCHMARK(BM_ColdQueryLarge)->Name("ColdQuery/large")->Iterations(200000);
BENCHMARK(BM_LibxmlQuerySample)->Name("LibxmlQuery/sample");
BENCHMARK(BM_LibxmlQueryLarge)->Name("LibxmlQuery/large")->Iterations(200);
BENCHMARK(BM_LoadLarge)->Name("Load/large")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseOnlyLarge)->Name("ParseOnly/large")->Unit(benchmark::kMillisecond);
// As many turns as keep every large query cold: the large file has some 240 000.
BENCHMARK(BM_ColdQueryLargeOverSample)->Name("Ratio/coldquery")->Iterations(200000);
BENCHMARK(BM_LoadOverParse)->Name("Ratio/load")->Iterations(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LintLarge)->Name("Lint/large")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LintOverLoad)->Name("Ratio/lint_over_load")->Iterations(6)->Unit(benchmark::kMillisecond);

}  // namespace zeph::bench
