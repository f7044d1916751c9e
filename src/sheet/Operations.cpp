#include "sheet/Operations.h"

#include <vector>

#include "sheet/CharacterSheet.h"

namespace zeph {

void AddOperation(OperationTable& table, const std::string& name,
                  std::function<void(CharacterSheet&)> run) {
    table[name] = {[run](CharacterSheet& sheet, const std::string&) -> std::optional<std::string> {
                       run(sheet);
                       return std::nullopt;
                   }};
}

void AddResultOperation(OperationTable& table, const std::string& name,
                        std::function<std::string(CharacterSheet&)> run) {
    table[name] = {[run](CharacterSheet& sheet, const std::string&) -> std::optional<std::string> {
                       return run(sheet);
                   }};
}

void AddOperationWithArgument(OperationTable& table, const std::string& name,
                              std::function<void(CharacterSheet&, const std::string&)> run) {
    table[name] = {[run](CharacterSheet& sheet,
                          const std::string& argument) -> std::optional<std::string> {
                       run(sheet, argument);
                       return std::nullopt;
                   }};
}

namespace {

// The items whose change does nothing but mark the sheet dirty.
const char* const kDirtyingItems[] = {
    "NameField",          "PlayerField",         "ConceptBox",           "StrengthField",
    "DexterityField",     "ConstitutionField",   "IntelligenceField",    "PerceptionField",
    "WillpowerField",     "DPField",             "SavedExperienceField", "SpentExperienceField",
    "QualityField",       "DrawbackField",       "SkillField",           "MetaField",
    "GenderField",        "AgeField",            "HairField",            "RaceField",
    "HeightField",        "WeightField",         "EyesField",            "NotesField",
    "EquipmentField"};

std::string changeOperationOf(const std::string& item) {
    // Combos and choices have a _Change operation; text items a _TextChange one.
    return item + (item == "ConceptBox" ? "_Change" : "_TextChange");
}

}  // namespace

void AddSheetOperations(OperationTable& table) {
    for (const char* item : kDirtyingItems)
        AddOperation(table, changeOperationOf(item), [](CharacterSheet& s) { s.MarkDirty(); });
    AddOperation(table, "NameField_LostFocus", [](CharacterSheet& s) { s.NameField_LostFocus(); });
}

const std::vector<ChangeHook>& SheetChangeHooks() {
    static const std::vector<ChangeHook> hooks = [] {
        std::vector<ChangeHook> list;
        for (const char* item : kDirtyingItems) list.push_back({item, changeOperationOf(item)});
        list.push_back({"CharacterTypePopup", "CharacterTypePopup_Change"});
        list.push_back({"ChooseCharPopup", "ChooseCharPopup_Change"});
        list.push_back({"AssociationCombo", "AssociationCombo_Change"});
        list.push_back({"OptionalSkillPointBox", "OptionalSkillPointBox_Action"});
        return list;
    }();
    return hooks;
}

const OperationTable& SheetOperations() {
    static const OperationTable table = [] {
        OperationTable t;
        AddSheetOperations(t);
        AddCharacterTypeOperations(t);
        AddPointAccountingOperations(t);
        AddSecondaryAttributeOperations(t);
        AddQualityBonusOperations(t);
        return t;
    }();
    return table;
}

}  // namespace zeph
