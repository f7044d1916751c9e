#include "sheet/Operations.h"

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
    table[name] = {
        [run](CharacterSheet& sheet, const std::string& argument) -> std::optional<std::string> {
            run(sheet, argument);
            return std::nullopt;
        }};
}

std::string ChangeOperationName(const Item& item) {
    switch (item.Kind()) {
        case ItemKind::Combo:
        case ItemKind::Choice:
            return item.Name() + "_Change";
        case ItemKind::Flag:
            return item.Name() + "_Action";
        case ItemKind::List:
        case ItemKind::Toggle:  // its _Action is the click, which sets the toggle itself
            return "";
        default:
            return item.Name() + "_TextChange";
    }
}

namespace {

// The change operations that do nothing but mark the sheet dirty.
const char* const kDirtyingOperations[] = {"NameField_TextChange",
                                           "PlayerField_TextChange",
                                           "ConceptBox_Change",
                                           "StrengthField_TextChange",
                                           "DexterityField_TextChange",
                                           "ConstitutionField_TextChange",
                                           "IntelligenceField_TextChange",
                                           "PerceptionField_TextChange",
                                           "WillpowerField_TextChange",
                                           "DPField_TextChange",
                                           "SavedExperienceField_TextChange",
                                           "SpentExperienceField_TextChange",
                                           "QualityField_TextChange",
                                           "DrawbackField_TextChange",
                                           "SkillField_TextChange",
                                           "MetaField_TextChange",
                                           "GenderField_TextChange",
                                           "AgeField_TextChange",
                                           "HairField_TextChange",
                                           "RaceField_TextChange",
                                           "HeightField_TextChange",
                                           "WeightField_TextChange",
                                           "EyesField_TextChange",
                                           "NotesField_TextChange",
                                           "EquipmentField_TextChange"};

}  // namespace

void AddSheetOperations(OperationTable& table) {
    for (const char* name : kDirtyingOperations)
        AddOperation(table, name, [](CharacterSheet& s) { s.MarkDirty(); });
    AddOperation(table, "NameField_LostFocus", [](CharacterSheet& s) { s.NameField_LostFocus(); });
}

}  // namespace zeph
