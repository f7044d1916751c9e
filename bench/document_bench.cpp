// Saving a big character and opening it into a new sheet, and its HTML export, over the large
// rule data: 100 qualities, 200 skills, 50 metaphysics and long styled notes. Both happen at a
// click and must feel instant.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "app/SheetOperations.h"
#include "documents/CharacterFile.h"
#include "documents/ExportWindow.h"
#include "documents/Recovery.h"
#include "documents/SavingCharacters.h"
#include "large_rule_data.h"
#include "platform/Files.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "tools/RuleDataDiff.h"

namespace zeph::bench {
namespace {

// Names of one kind in the rule data, in document order.
std::vector<std::string> Names(const RuleData& rules, const std::string& section) {
    std::vector<std::string> names;
    const XmlNodeList nodes = rules.Query("//" + section + "/*/name");
    for (int n = 0; n < nodes.Count(); ++n) names.push_back(nodes.Item(n).Attribute("value"));
    return names;
}

void FillRows(ListItem& list, const std::vector<std::string>& names, int rows) {
    for (int row = 0; row < rows; ++row) {
        list.AddRow(names.at(static_cast<std::size_t>(row) % names.size()));
        list.SetCell(row, 1, std::to_string(1 + row % 5));
        list.SetCell(row, 2, std::to_string(2 * (1 + row % 5)));
        list.SetCell(row, 4, "Noted in play, session " + std::to_string(row));
        for (int column = 5; column < list.ColumnCount(); ++column)
            list.SetCell(row, column, column % 3 ? "0" : "Book p. " + std::to_string(row));
    }
}

// Notes of a few pages: a paragraph per line, every third run bold, some coloured.
StyledText LongNotes() {
    StyledText notes;
    for (int n = 0; n < 300; ++n) {
        StyleRun run("Entry " + std::to_string(n) + ": met a contact at the docks and owed a favour. ");
        run.bold = n % 3 == 0;
        run.color = n % 5 == 0 ? 0x802020 : 0;
        if (n % 4 == 3) run.text += "\n";
        notes.runs.push_back(run);
    }
    return notes;
}

struct BigCharacter {
    BigCharacter()
        : platform("/nonexistent-prefs", ZEPHALON_SOURCE_DIR "/data/stylesheets",
                   std::filesystem::temp_directory_path().string()),
          sheet(data, platform, SheetOperations()),
          path((std::filesystem::temp_directory_path() /
                ("zephalon-bench-" + std::to_string(getpid()) + ".xml"))
                   .string()) {
        data.xdata = RuleData::LoadFile(LargeRuleDataPath());
        sheet.NameField.SetText("Benchmark Bea");
        FillRows(sheet.QualityListBox, Names(*data.xdata, "qualities"), 100);
        FillRows(sheet.SkillListBox, Names(*data.xdata, "skills"), 200);
        FillRows(sheet.MetaListBox, Names(*data.xdata, "metaphysics"), 50);
        sheet.NotesField.SetStyled(LongNotes());
        sheet.HistoryField.SetStyled(LongNotes());
    }
    ~BigCharacter() { std::filesystem::remove(path); }

    DataModule data;
    ScriptedPlatform platform;
    CharacterSheet sheet;
    std::string path;
};

void SaveOpen(benchmark::State& state) {
    BigCharacter character;
    std::size_t rows = 0;
    for (auto _ : state) {
        WriteFileAtomically(character.path, CharacterFileText(character.sheet));
        CharacterSheet opened(character.data, character.platform, SheetOperations());
        LoadXMLCharSheet(opened, character.path);
        rows = static_cast<std::size_t>(opened.SkillListBox.ListCount());
    }
    if (rows != 200) state.SkipWithError("the character did not come back whole");
    state.counters["file_kb"] =
        static_cast<double>(std::filesystem::file_size(character.path)) / 1024.0;
}

void ExportHtml(benchmark::State& state) {
    BigCharacter character;
    ExportWindow exporter(character.sheet);
    exporter.PopupMenu1.SetText("HTML");
    for (auto _ : state) exporter.PopupMenu1_Change();
    if (exporter.EditField1.Text().find("Benchmark Bea") == std::string::npos)
        state.SkipWithError("the HTML export did not run");
}

// The recovery copy that the app writes every 30 seconds while a character has unsaved changes,
// bound to its file; it runs on the event loop, so the user must never feel it.
void Autosave(benchmark::State& state) {
    BigCharacter character;
    const std::filesystem::path folder = character.path + ".state";
    character.platform.SetStateFolder(folder.string());
    AssignRecoveryCopy(character.sheet);
    character.sheet.fileSaveString = character.path;
    character.sheet.savedChar = false;
    for (auto _ : state) UpdateRecoveryCopy(character.sheet);
    if (!IsExistingFile(character.sheet.recoveryCopyPath))
        state.SkipWithError("no recovery copy was written");
    std::filesystem::remove_all(folder);
}

// What every start does when nothing was left behind: one look into the state folder.
void StartWithNothingToRecover(benchmark::State& state) {
    BigCharacter character;
    const std::filesystem::path folder = character.path + ".state";
    std::filesystem::create_directories(folder);
    character.platform.SetStateFolder(folder.string());
    for (auto _ : state)
        OfferLeftBehindWork(character.platform, [&](const LeftBehindCopy&) {
            state.SkipWithError("a copy was offered");
        });
    if (!character.platform.Transcript().empty()) state.SkipWithError("a question was asked");
    std::filesystem::remove_all(folder);
}

// The large file with every tenth creation cost one dearer.
std::string LargeRuleDataWithDearerCosts() {
    const std::string path = LargeRuleDataPath() + ".dearer.xml";
    if (IsExistingFile(path)) return path;
    std::string text = ReadWholeFile(LargeRuleDataPath()).value_or("");
    const std::string key = " creationcost=\"";
    int seen = 0;
    for (auto at = text.find(key); at != std::string::npos; at = text.find(key, at + 1))
        if (seen++ % 10 == 0) text.insert(at + key.size(), "1");
    WriteFileAtomically(path, text);
    return path;
}

// The report of what the dearer file would change on the big character, as Load Data shows it
// before switching.
void DiffData(benchmark::State& state) {
    BigCharacter character;
    DataModule dearer;
    dearer.xdata = RuleData::LoadFile(LargeRuleDataWithDearerCosts());
    const auto document = RuleData::LoadText(CharacterFileText(character.sheet));
    std::size_t rows = 0;
    for (auto _ : state)
        rows = DiffRuleData(*document, character.data, dearer, SheetOperations()).rows.size();
    if (rows == 0) state.SkipWithError("no row reads differently");
    state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK(SaveOpen)->Name("SaveOpen/large")->Unit(benchmark::kMillisecond);
BENCHMARK(DiffData)->Name("DiffData/large")->Unit(benchmark::kMillisecond);
BENCHMARK(ExportHtml)->Name("ExportHtml/large")->Unit(benchmark::kMillisecond);
BENCHMARK(Autosave)->Name("Autosave/large")->Unit(benchmark::kMillisecond);
BENCHMARK(StartWithNothingToRecover)
    ->Name("Autosave/start_with_nothing")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
