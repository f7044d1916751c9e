// The model of one open character: its named items (which are the record), a few properties
// of working state, and dirty tracking. It knows no rule: the operations named after item and
// event are functions over the sheet, declared by each rule area in its own header.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sheet/AttachedWindow.h"
#include "sheet/FigureTerms.h"
#include "sheet/Item.h"
#include "sheet/Operations.h"
#include "sheet/Properties.h"
#include "sheet/UndoHistory.h"

namespace zeph {

class DataModule;
class Platform;
class RuleData;
class XmlError;

// The six primary attributes, always treated alike and in this order.
enum Attribute { Strength, Dexterity, Constitution, Intelligence, Perception, Willpower };
inline constexpr int kAttributeCount = 6;
inline constexpr std::array<const char*, kAttributeCount> kAttributeNames = {
    "Strength", "Dexterity", "Constitution", "Intelligence", "Perception", "Willpower"};
// Their names as attributes of the rule data's records.
inline constexpr std::array<const char*, kAttributeCount> kAttributeKeys = {
    "strength", "dexterity", "constitution", "intelligence", "perception", "willpower"};

// The properties that the sheet's steps change beside its items, taken back with them. Arrays
// have their upper bound plus one elements.
struct SheetWorkingState {
    std::int64_t mentalBonus = 0;
    std::int64_t physicalBonus = 0;
    std::array<std::int64_t, 7> attrBonus{};
    std::array<std::int64_t, 7> q_attributes{};
    std::array<std::string, 11> q_bonuspts{};
    std::int64_t q_row = 0;
    std::string q_chartype;
    std::int64_t s_row = 0;
    std::vector<std::string> martialmaneuvers;
    std::vector<std::string> visualizations;
    std::array<std::int64_t, 9> m_attributes{};
    std::array<std::string, 7> m_bonuspts{};
    std::int64_t m_row = 0;
    std::string m_altform;
    std::array<std::int64_t, 15> m_all_bonuses{};
    std::string title = "Zephalon Character Creator";
    std::string currentNotesButton;  // the notes field in place; empty counts as "Notes"

    bool operator==(const SheetWorkingState&) const = default;
};

class CharacterSheet : public SheetWorkingState {
public:
    // Each item's change runs its change operation from the table, when the table has one.
    CharacterSheet(DataModule& data, Platform& platform, const OperationTable& operations);
    CharacterSheet(const CharacterSheet&) = delete;
    CharacterSheet& operator=(const CharacterSheet&) = delete;

    const ItemRegistry& Items() const { return items_; }
    const PropertyRegistry& Properties() const { return properties_; }
    const OperationTable& Operations() const { return operations_; }
    DataModule& Data() { return data_; }
    Platform& Host() { return platform_; }
    // The rule data in force now; the data file may be replaced between any two operations.
    const RuleData& Rules() const;

private:
    ItemRegistry items_;  // first, so that every item below can register itself

public:
    // Attributes tab.
    TextItem NameField{items_, "NameField"};
    TextItem PlayerField{items_, "PlayerField"};
    ComboItem CharacterTypePopup{items_, "CharacterTypePopup", ItemKind::Combo};
    ComboItem ChooseCharPopup{items_, "ChooseCharPopup", ItemKind::Combo};
    ComboItem ConceptBox{items_, "ConceptBox", ItemKind::Combo};
    ComboItem AssociationCombo{items_, "AssociationCombo", ItemKind::Combo};
    TextItem AssociationField{items_, "AssociationField"};
    TextItem StrengthField{items_, "StrengthField", ItemKind::Number};
    TextItem DexterityField{items_, "DexterityField", ItemKind::Number};
    TextItem ConstitutionField{items_, "ConstitutionField", ItemKind::Number};
    TextItem IntelligenceField{items_, "IntelligenceField", ItemKind::Number};
    TextItem PerceptionField{items_, "PerceptionField", ItemKind::Number};
    TextItem WillpowerField{items_, "WillpowerField", ItemKind::Number};
    TextItem StrengthBonus{items_, "StrengthBonus", ItemKind::Number, "0"};
    TextItem DexterityBonus{items_, "DexterityBonus", ItemKind::Number, "0"};
    TextItem ConstitutionBonus{items_, "ConstitutionBonus", ItemKind::Number, "0"};
    TextItem IntelligenceBonus{items_, "IntelligenceBonus", ItemKind::Number, "0"};
    TextItem PerceptionBonus{items_, "PerceptionBonus", ItemKind::Number, "0"};
    TextItem WillpowerBonus{items_, "WillpowerBonus", ItemKind::Number, "0"};
    TextItem StrengthTotal{items_, "StrengthTotal", ItemKind::Number, "0"};
    TextItem DexterityTotal{items_, "DexterityTotal", ItemKind::Number, "0"};
    TextItem ConstitutionTotal{items_, "ConstitutionTotal", ItemKind::Number, "0"};
    TextItem IntelligenceTotal{items_, "IntelligenceTotal", ItemKind::Number, "0"};
    TextItem PerceptionTotal{items_, "PerceptionTotal", ItemKind::Number, "0"};
    TextItem WillpowerTotal{items_, "WillpowerTotal", ItemKind::Number, "0"};
    TextItem LPText{items_, "LPText", ItemKind::Label, "Life Points:"};
    TextItem EndText{items_, "EndText", ItemKind::Label, "Endurance:"};
    TextItem SpeedText{items_, "SpeedText", ItemKind::Label, "Speed:"};
    TextItem EssenceLabel{items_, "EssenceLabel", ItemKind::Label, "Essence:"};
    TextItem LifePointsBonus{items_, "LifePointsBonus", ItemKind::Number, "0"};
    TextItem EnduranceBonus{items_, "EnduranceBonus", ItemKind::Number, "0"};
    TextItem SpeedBonus{items_, "SpeedBonus", ItemKind::Number, "0"};
    TextItem EssenceBonus{items_, "EssenceBonus", ItemKind::Number, "0"};
    TextItem LifePointsTotal{items_, "LifePointsTotal", ItemKind::Number, "0"};
    TextItem EnduranceTotal{items_, "EnduranceTotal", ItemKind::Number, "0"};
    TextItem SpeedTotal{items_, "SpeedTotal", ItemKind::Number, "0"};
    TextItem EssenceTotal{items_, "EssenceTotal", ItemKind::Number, "0"};
    TextItem ExtraStatsField{items_, "ExtraStatsField"};
    FlagItem OptionalSkillPointBox{items_, "OptionalSkillPointBox", false};
    TextItem DPField{items_, "DPField", ItemKind::Number, "", false};
    TextItem DPText{items_, "DPText", ItemKind::Label, "Drama Pts: ", false};
    FlagItem CharacterInPlayBox{items_, "CharacterInPlayBox", false};
    TextItem SavedExperienceField{items_, "SavedExperienceField", ItemKind::Number};
    TextItem SpentExperienceField{items_, "SpentExperienceField", ItemKind::Number};
    TextItem AttributeField{items_, "AttributeField"};
    TextItem QualityField{items_, "QualityField"};
    TextItem DrawbackField{items_, "DrawbackField"};
    TextItem SkillField{items_, "SkillField"};
    TextItem MetaField{items_, "MetaField"};
    TextItem InfoText{items_, "InfoText", ItemKind::Label,
                      "Bonus points are availble. Click the green number next to an attribute "
                      "you wish to increase."};

    // Qualities tab.
    ListItem QualityListBox{items_, "QualityListBox", 28,
                            {"Quality", "Level", "Cost", "XP Cost", "Notes"}};
    FlagItem QualitiesSeparateQDBox{items_, "QualitiesSeparateQDBox", true};
    ComboItem QualityTypePopup{items_, "QualityTypePopup", ItemKind::Combo};
    ComboItem QualityPopup{items_, "QualityPopup", ItemKind::Choice};
    TextItem QualityNameField{items_, "QualityNameField"};
    TextItem QualityNoteField{items_, "QualityNoteField"};
    TextItem QualityReferenceField{items_, "QualityReferenceField"};
    TextItem QualityPrerequisiteField{items_, "QualityPrerequisiteField"};
    TextItem QualityLevelField{items_, "QualityLevelField", ItemKind::Number};
    TextItem QualityCostField{items_, "QualityCostField", ItemKind::Number};
    TextItem QualityXPCostField{items_, "QualityXPCostField", ItemKind::Number};
    TextItem QualityMaxLevelField{items_, "QualityMaxLevelField", ItemKind::Number};
    TextItem QualityCostPerLevelField{items_, "QualityCostPerLevelField"};
    TextItem QualityXPCostPerLevelField{items_, "QualityXPCostPerLevelField"};
    ComboItem QualityAlternateFormCombo{items_, "QualityAlternateFormCombo", ItemKind::Choice, {},
                                        false};
    TextItem QualityAltFormText{items_, "QualityAltFormText", ItemKind::Label, "Alternate Form:",
                                false};

    // Skills tab.
    ListItem SkillListBox{items_, "SkillListBox", 8, {"Skill", "Level", "Cost", "XP Cost", "Notes"}};
    ListItem SkillMartialVisualListBox{
        items_, "SkillMartialVisualListBox", 3, {"Martial Maneuver", "Level", "XPs"}, false};
    ComboItem SkillCategoryPopup{items_, "SkillCategoryPopup", ItemKind::Combo};
    ComboItem SkillPopup{items_, "SkillPopup", ItemKind::Choice};
    TextItem SkillNameField{items_, "SkillNameField"};
    TextItem SkillReferenceField{items_, "SkillReferenceField"};
    TextItem SkillNotesField{items_, "SkillNotesField"};
    ComboItem SkillSelectPopup{items_, "SkillSelectPopup", ItemKind::Choice};
    ComboItem SkillTypeCombo{items_, "SkillTypeCombo", ItemKind::Combo,
                             {"Regular", "Special", "Cinematic"}};
    TextItem SkillLevelField{items_, "SkillLevelField", ItemKind::Number};
    TextItem SkillCostField{items_, "SkillCostField", ItemKind::Number};
    TextItem SkillXPCostField{items_, "SkillXPCostField", ItemKind::Number};

    // Metaphysics tab.
    ListItem MetaListBox{items_, "MetaListBox", 26,
                         {"Metaphysic", "Level", "Cost", "XP Cost", "Notes"}};
    ComboItem MetaTypePopup{items_, "MetaTypePopup", ItemKind::Combo};
    ComboItem MetaPopup{items_, "MetaPopup", ItemKind::Choice};
    TextItem MetaNameField{items_, "MetaNameField"};
    TextItem MetaReferenceField{items_, "MetaReferenceField"};
    TextItem MetaPrerequisiteField{items_, "MetaPrerequisiteField"};
    TextItem MetaNoteField{items_, "MetaNoteField"};
    TextItem MetaLevelField{items_, "MetaLevelField", ItemKind::Number};
    TextItem MetaCostField{items_, "MetaCostField", ItemKind::Number};
    TextItem MetaXPCostField{items_, "MetaXPCostField", ItemKind::Number};
    TextItem MetaMaxLevelField{items_, "MetaMaxLevelField"};
    TextItem MetaXPCostNewField{items_, "MetaXPCostNewField", ItemKind::Number};
    TextItem MetaCostPerLevelField{items_, "MetaCostPerLevelField"};
    TextItem MetaXPCostPerLevelField{items_, "MetaXPCostPerLevelField"};

    // Description tab.
    TextItem GenderField{items_, "GenderField", ItemKind::Text, "Male or Female"};
    TextItem AgeField{items_, "AgeField", ItemKind::Number, "21"};
    TextItem HairField{items_, "HairField"};
    TextItem RaceField{items_, "RaceField"};
    TextItem HeightField{items_, "HeightField"};
    TextItem WeightField{items_, "WeightField"};
    TextItem EyesField{items_, "EyesField"};
    FlagItem NotesButton{items_, "NotesButton", true, ItemKind::Toggle};
    FlagItem ContactsButton{items_, "ContactsButton", false, ItemKind::Toggle};
    FlagItem HistoryButton{items_, "HistoryButton", false, ItemKind::Toggle};
    FlagItem AltFormButton{items_, "AltFormButton", false, ItemKind::Toggle};
    TextItem NotesField{items_, "NotesField", ItemKind::Styled};
    TextItem ContactsField{items_, "ContactsField", ItemKind::Styled, "", false};
    TextItem AltFormField{items_, "AltFormField", ItemKind::Styled, "", false};
    TextItem JournalField{items_, "JournalField", ItemKind::Styled, "", false};
    TextItem HistoryField{items_, "HistoryField", ItemKind::Styled, "", false};

    // Equipment tab.
    TextItem EquipmentField{items_, "EquipmentField", ItemKind::Styled};
    ComboItem EquipmentTypePopup{items_, "EquipmentTypePopup", ItemKind::Combo};
    TextItem EquipLabel{items_, "EquipLabel", ItemKind::Label};

    // Properties beside the items: those a step changes are in SheetWorkingState above.
    // Who gave each entry of m_all_bonuses, by name, as the last MetaGetBonus found them.
    FigureTerms metaBonusTerms;
    std::vector<Figure> metaBonusParts;
    std::string fileSaveString;
    // This character's recovery copy in the state folder; empty when it keeps none.
    std::string recoveryCopyPath;
    bool loadingCharFile = false;
    bool savedChar = true;
    std::string portraitPath;
    // A picture dropped since the character was opened, as the bytes of a PNG file.
    std::optional<std::string> portraitImage;
    bool journalWindowIsOpen = false;
    JournalWindowHandle* journalWindowHandle = nullptr;
    bool portraitWindowIsOpen = false;
    AttachedWindow* portraitWindowHandle = nullptr;
    // Where each total, bonus and budget of the last recomputation comes from.
    FigureTerms figureTerms;
    // Set when the character closes itself (a cancelled or failed open): its window goes.
    bool characterClosed = false;
    // The steps the user can take back and do again; after the items, which it watches.
    UndoHistory history{items_, *this, savedChar};

    // The field, bonus and total items of one primary attribute.
    struct AttributeItems {
        TextItem& field;
        TextItem& bonus;
        TextItem& total;
    };
    AttributeItems AttributeOf(int attribute);

    // Shows the report of an XML failure, as every operation that queries does.
    void ShowXmlFailure(const XmlError& failure);
    // The change operation shared by the items whose edit only marks the sheet dirty.
    void MarkDirty();
    void NameField_LostFocus();

private:
    void hookChangeOperations();
    void registerProperties();

    DataModule& data_;
    Platform& platform_;
    const OperationTable& operations_;
    PropertyRegistry properties_;
};

}  // namespace zeph
