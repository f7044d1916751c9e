// Fuzzes the rule data file. Whatever its bytes, loading it as the app does and working a sheet
// over it may show messages or end an operation with a std::exception (which the app shows);
// a crash, a sanitizer report, a hang or a leak is a fault.
//
// The sheet takes the first and the last row of each list it is offered, so that a few runs
// reach every list of a small file and no run grows with the size of a large one.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/SheetOperations.h"
#include "sheet/CharacterSheet.h"
#include "shell/App.h"

namespace {

using zeph::CharacterSheet;
using zeph::ComboItem;

const std::string& DataFilePath() {
    static const std::string path =
        (std::filesystem::temp_directory_path() /
         ("zephalon-fuzz-rule-data-" + std::to_string(getpid()) + ".xml"))
            .string();
    return path;
}

bool WriteFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(data, 1, size, file) == size;
    return std::fclose(file) == 0 && written;
}

// An operation of the table, as the window calls it; a failure it throws is the app's to show.
// A name the table lacks is a fault of this target, which would otherwise test less unseen.
std::optional<std::string> Run(CharacterSheet& sheet, const char* name,
                               const std::string& argument = "") {
    const auto found = sheet.Operations().find(name);
    if (found == sheet.Operations().end()) {
        std::fprintf(stderr, "fuzz_rule_data: no operation %s\n", name);
        std::abort();
    }
    try {
        return found->second.run(sheet, argument);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// The rows a player picks in a test run: the first and, when there are more, the last.
std::vector<int> Picks(const ComboItem& combo) {
    const int count = combo.ListCount();
    if (count == 0) return {};
    if (count == 1) return {0};
    return {0, count - 1};
}

// Selecting a row runs the item's change operation from the table, as a click does.
void Choose(ComboItem& combo, int row) {
    try {
        if (row < combo.ListCount()) combo.SetListIndex(row);
    } catch (const std::exception&) {
    }
}

void CharacterTypes(CharacterSheet& sheet) {
    Run(sheet, "LoadCharacterTypes");
    for (int type : Picks(sheet.CharacterTypePopup)) {
        Choose(sheet.CharacterTypePopup, type);
        for (int choice : Picks(sheet.ChooseCharPopup)) Choose(sheet.ChooseCharPopup, choice);
    }
    Run(sheet, "StrengthBonus_MouseDown");
    Run(sheet, "IntelligenceBonus_MouseDown");
    Run(sheet, "LoadConceptBox");
    Run(sheet, "LoadAssociationCombo");
    for (int row : Picks(sheet.AssociationCombo)) Choose(sheet.AssociationCombo, row);
}

void Qualities(CharacterSheet& sheet) {
    Run(sheet, "LoadQualityTypes");
    for (int type : Picks(sheet.QualityTypePopup)) {
        Choose(sheet.QualityTypePopup, type);
        for (int quality : Picks(sheet.QualityPopup)) {
            Choose(sheet.QualityPopup, quality);
            for (int form : Picks(sheet.QualityAlternateFormCombo))
                Choose(sheet.QualityAlternateFormCombo, form);
            Run(sheet, "QualityUpDownArrows_Up");
            Run(sheet, "QualityUpDownArrows_Up");
            Run(sheet, "QualityUpDownArrows_Down");
            Run(sheet, "QualityRecordButton_Action");
        }
    }
    Run(sheet, "QualityGetBonus");
}

void Metaphysics(CharacterSheet& sheet) {
    Run(sheet, "LoadMetaTypes");
    for (int type : Picks(sheet.MetaTypePopup)) {
        Choose(sheet.MetaTypePopup, type);
        for (int meta : Picks(sheet.MetaPopup)) {
            Choose(sheet.MetaPopup, meta);
            Run(sheet, "MetaUpDownArrows_Up");
            Run(sheet, "MetaUpDownArrows_Up");
            Run(sheet, "MetaUpDownArrows_Down");
            Run(sheet, "MetaRecordButton_Action");
        }
    }
    Run(sheet, "MetaGetBonus");
}

void Skills(CharacterSheet& sheet) {
    Run(sheet, "LoadSkillCategories");
    for (int category : Picks(sheet.SkillCategoryPopup)) {
        Choose(sheet.SkillCategoryPopup, category);
        for (int skill : Picks(sheet.SkillPopup)) {
            Choose(sheet.SkillPopup, skill);
            for (int subType : Picks(sheet.SkillSelectPopup))
                Choose(sheet.SkillSelectPopup, subType);
            Run(sheet, "SkillUpDownArrows1_Up");
            Run(sheet, "SkillUpDownArrows1_Up");
            Run(sheet, "SkillMartialVisualListBox_ConstructContextualMenu");
            Run(sheet, "SkillMartialVisualListBox_ContextualMenuAction", "Increase +");
            Run(sheet, "SkillRecordButton_Action");
        }
    }
}

void Equipment(CharacterSheet& sheet) {
    Run(sheet, "LoadEquipmentType");
    for (int type : Picks(sheet.EquipmentTypePopup)) {
        Choose(sheet.EquipmentTypePopup, type);
        // The menu's items joined by "|": the first is added.
        const auto menu = Run(sheet, "EquipmentField_ConstructContextualMenu");
        if (menu && !menu->empty())
            Run(sheet, "EquipmentField_ContextualMenuAction", menu->substr(0, menu->find('|')));
    }
    Run(sheet, "EncumButton_Action");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = DataFilePath();
    if (!WriteFile(path, data, size)) return 0;

    zeph::ScriptedPlatform platform("/nonexistent-prefs", "/nonexistent-app",
                                    std::filesystem::temp_directory_path().string());
    zeph::DataModule module;
    zeph::App app(module, platform);
    const bool loaded = app.LoadDataFile(path);
    std::remove(path.c_str());
    if (!loaded) return 0;

    CharacterSheet sheet(module, platform, zeph::SheetOperations());
    for (auto* field : {&sheet.StrengthField, &sheet.DexterityField, &sheet.ConstitutionField,
                        &sheet.IntelligenceField, &sheet.PerceptionField, &sheet.WillpowerField})
        field->SetText("3");
    CharacterTypes(sheet);
    Qualities(sheet);
    Metaphysics(sheet);
    Skills(sheet);
    Run(sheet, "FigureSecondaryAttributes");
    Run(sheet, "GenerateAltForms");
    Equipment(sheet);

    // The optional skill points change the budgets; in play the same purchases are priced in
    // experience.
    try {
        sheet.OptionalSkillPointBox.SetValue(true);
    } catch (const std::exception&) {
    }
    sheet.CharacterInPlayBox.SetValue(true);
    sheet.SavedExperienceField.SetText("50");
    Qualities(sheet);
    Metaphysics(sheet);
    Run(sheet, "FigureSecondaryAttributes");
    return 0;
}
