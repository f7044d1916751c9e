// A sheet over rule data, with a scripted platform that records every message.
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "cli/StateSnapshot.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "app/SheetOperations.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph::testing {

// Sets an environment variable for one scope and puts back what it was, or its absence.
struct ScopedEnv {
    ScopedEnv(const char* variable, const std::string& value) : name(variable) {
        if (const char* had = std::getenv(name)) old = had;
        ::setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() { old ? (void)::setenv(name, old->c_str(), 1) : (void)::unsetenv(name); }
    const char* name;
    std::optional<std::string> old;
};

// A folder of the test's own in the temporary folder, gone with the test.
struct TempFolder {
    explicit TempFolder(const std::string& tag)
        : path(std::filesystem::temp_directory_path() / ("zeph-" + tag + "-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path);
    }
    ~TempFolder() { std::filesystem::remove_all(path); }
    std::string At(const std::string& name) const { return (path / name).string(); }
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(At(name)) << text;
        return At(name);
    }
    std::filesystem::path path;
};

class SheetTest : public ::testing::Test {
protected:
    // Starts over empty rule data; UseSmallRules() remakes it over tests/data/small_rules.xml.
    SheetTest() : platform("/nonexistent-prefs", "/nonexistent-app", "/tmp") {
        MakeSheet(RuleData::LoadText("<zephalondata/>"));
    }
    // A rule data file of the rules tests, in tests/data.
    void UseTestRules(const std::string& file) {
        MakeSheet(RuleData::LoadFile(ZEPHALON_SOURCE_DIR "/tests/data/" + file));
    }
    void UseSmallRules() { UseTestRules("small_rules.xml"); }
    void UseSample() { MakeSheet(RuleData::LoadFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml")); }
    void UseRules(const std::string& xml) { MakeSheet(RuleData::LoadText(xml)); }
    void MakeSheet(std::unique_ptr<RuleData> rules) {
        data.xdata = std::move(rules);
        sheet = std::make_unique<CharacterSheet>(data, platform, SheetOperations());
    }
    using CellList = std::initializer_list<std::pair<int, std::string>>;
    // Appends a row with the given cells (column, text).
    static void AddRow(ListItem& list, const std::string& name, CellList cells) {
        list.AddRow(name);
        for (const auto& [column, text] : cells) list.SetCell(list.LastIndex(), column, text);
    }
    void AddQualityRow(const std::string& name, CellList cells) { AddRow(sheet->QualityListBox, name, cells); }
    void AddMetaRow(const std::string& name, CellList cells) { AddRow(sheet->MetaListBox, name, cells); }
    // The first cells of the rows of QualityListBox, each followed by ";".
    std::string Names() {
        std::string out;
        for (int r = 0; r < sheet->QualityListBox.ListCount(); ++r)
            out += sheet->QualityListBox.Cell(r, 0) + ";";
        return out;
    }
    // Expects items and properties to read as the console prints them: "Name=text|Name=text".
    void ExpectTexts(const std::string& expected) {
        for (const std::string& entry : SplitFields(expected, '|')) {
            const std::string name = entry.substr(0, entry.find('='));
            const auto* property = sheet->Properties().Find(name);
            const Item* item = sheet->Items().Find(name);
            ASSERT_TRUE(property || item) << name;
            EXPECT_EQ(property ? property->get() : ItemText(*item), entry.substr(name.size() + 1)) << name;
        }
    }
    // Sets text and combo items in order, as the console's `set` does: "Name=text|Name=text".
    void SetTexts(const std::string& entries) {
        for (const std::string& entry : SplitFields(entries, '|')) {
            const std::string name = entry.substr(0, entry.find('='));
            Item* item = sheet->Items().Find(name);
            EXPECT_TRUE(item && SetItemText(*item, entry.substr(name.size() + 1))) << name;
        }
    }
    // Cells `from` to `to` of a row, joined by "|".
    static std::string Cells(const ListItem& list, int row, int from, int to) {
        std::string out = list.Cell(row, from);
        for (int column = from + 1; column <= to; ++column) out += "|" + list.Cell(row, column);
        return out;
    }
    // Runs an operation by the name the window and the console call it by.
    void Do(const std::string& name, const std::string& argument = "") {
        sheet->Operations().at(name).run(*sheet, argument);
    }
    void Repeat(void (*operation)(CharacterSheet&), int times) {
        for (int i = 0; i < times; ++i) operation(*sheet);
    }
    void SetFields(std::initializer_list<const char*> values) {
        int a = 0;
        for (const char* value : values) sheet->AttributeOf(a++).field.SetText(value);
    }

    ScriptedPlatform platform;
    DataModule data;
    std::unique_ptr<CharacterSheet> sheet;
};

}  // namespace zeph::testing

