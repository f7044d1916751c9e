#include "rules/Metaphysics.h"

#include <algorithm>

#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// The attribute bonuses of m_attributes (columns 11 to 18) and the point bonuses of
// m_bonuspts (columns 19 to 24), as the rule data names them.
const char* const kAttributeBonusKeys[] = {"strength",        "dexterity",        "constitution",
                                           "intelligence",    "perception",       "willpower",
                                           "mentalattrbonus", "physicalattrbonus"};
const char* const kPointBonusKeys[] = {"bonuslifepts", "bonusendurance", "bonusessence",
                                       "bonusspeed",   "bonustaintpool", "bonusmadnesspool"};
constexpr int kAttributeBonusCount = 8;
constexpr int kPointBonusCount = 6;
// A press steps through a lowest level one level at a time, but through no more levels than
// this: a lowest level from absurd rule data (1e12) would keep the press busy for ever.
constexpr std::int64_t kMostLevelsInOnePress = 1000;

// The name stands between double quotes, since a metaphysic's name may hold an apostrophe.
std::string metaPath(CharacterSheet& sheet, const std::string& name) {
    return "//metaphysics/type[@value='" + sheet.MetaTypePopup.Text() + "']/name[@value=\"" + name +
           "\"]";
}

void fillCosts(CharacterSheet& sheet, const XmlNode& costs) {
    sheet.MetaMaxLevelField.SetText(costs.Attribute("minlevel") + "/" +
                                    costs.Attribute("maxlevel"));
    // No highest level (0) means no limit, so the high price applies.
    const std::int64_t high = Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 2));
    if (high < 5 && high != 0) {
        sheet.MetaCostPerLevelField.SetText(costs.Attribute("creationcost") + "/-");
        sheet.MetaXPCostPerLevelField.SetText(costs.Attribute("experiencecost") + "/-");
    } else {
        sheet.MetaCostPerLevelField.SetText(costs.Attribute("creationcost") + "/" +
                                            costs.Attribute("creationcost_highvalue"));
        sheet.MetaXPCostPerLevelField.SetText(costs.Attribute("experiencecost") + "/" +
                                              costs.Attribute("experiencecost_highvalue"));
    }
    sheet.MetaXPCostNewField.SetText(costs.Attribute("experiencecost_new"));
    if (Whole(sheet.MetaXPCostNewField.Text()) == 0)
        sheet.MetaXPCostNewField.SetText(sheet.MetaXPCostPerLevelField.Text());
    sheet.MetaLevelField.SetText("0");
    sheet.MetaCostField.SetText("0");
    sheet.MetaXPCostField.SetText("0");
}

std::int64_t lowestLevel(CharacterSheet& sheet) {
    return Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 1));
}

void stepUp(CharacterSheet& sheet) {
    const std::int64_t high = Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 2));
    const double level = Val(sheet.MetaLevelField.Text()) + 1;
    sheet.MetaLevelField.SetText(Str(level));
    if (high != 0 && level > static_cast<double>(high)) {
        sheet.MetaLevelField.SetText(Str(static_cast<double>(high)));
        return;
    }
    if (!sheet.CharacterInPlayBox.Value()) {
        AddToNumber(sheet.MetaCostField, LevelPrice(sheet.MetaCostPerLevelField.Text(), level, 6));
    } else if (level < 6 && Whole(level) == 1) {
        // The first level has a price of its own, which replaces whatever stood there.
        sheet.MetaXPCostField.SetText(sheet.MetaXPCostNewField.Text());
    } else {
        AddToNumber(sheet.MetaXPCostField,
                    LevelPrice(sheet.MetaXPCostPerLevelField.Text(), level, 6));
    }
}

void stepDown(CharacterSheet& sheet) {
    const double level = Val(sheet.MetaLevelField.Text()) - 1;
    sheet.MetaLevelField.SetText(Str(level));
    if (level < 0) {
        sheet.MetaLevelField.SetText("0");
        return;
    }
    if (!sheet.CharacterInPlayBox.Value()) {
        AddToNumber(sheet.MetaCostField, -LevelPrice(sheet.MetaCostPerLevelField.Text(), level, 5));
    } else if (level < 5 && Whole(level) == 0) {
        AddToNumber(sheet.MetaXPCostField, -Val(sheet.MetaXPCostNewField.Text()));
    } else {
        AddToNumber(sheet.MetaXPCostField,
                    -LevelPrice(sheet.MetaXPCostPerLevelField.Text(), level, 5));
    }
}

bool meetsRequirement(const ListItem& list, int row, const std::string& requirement,
                      double (*readLevel)(std::string_view)) {
    return EqualsNoCase(list.Cell(row, 0), NthField(requirement, ",", 1)) &&
           readLevel(list.Cell(row, 1)) >= Val(NthField(requirement, ",", 2));
}

// Each group of the text at "||" splits the whole text again, not the group, and the counter
// runs on across groups; a mixed text is judged that way on purpose.
bool prerequisitesMet(CharacterSheet& sheet) {
    const std::string& text = sheet.MetaPrerequisiteField.Text();
    if (text.empty()) return true;
    const ListItem& list = sheet.MetaListBox;
    bool met = false;
    int matches = 0;
    for (int g = 1; g <= CountFields(text, "||"); ++g) {
        if (InStr(NthField(text, "||", g), "&&") > 0) {
            const int requirements = CountFields(text, "&&");
            for (int r = 1; r <= requirements; ++r)
                for (int row = 0; row < list.ListCount(); ++row)
                    if (meetsRequirement(list, row, NthField(text, "&&", r), Val)) ++matches;
            if (matches == requirements) met = true;
        } else {
            for (int r = 1; r <= CountFields(text, "||"); ++r)
                for (int row = 0; row < list.ListCount(); ++row)
                    if (meetsRequirement(list, row, NthField(text, "||", r), CDbl)) met = true;
        }
    }
    return met;
}

}  // namespace

void LoadMetaTypes(CharacterSheet& sheet) {
    LoadChoices(sheet, sheet.MetaTypePopup, "//metaphysics/type");
}

void MetaTypePopup_Change(CharacterSheet& sheet) {
    // No handler of its own: a failure goes to the application's.
    const RuleData& rules = sheet.Rules();
    XmlNodeList names =
        rules.Query("//metaphysics/type[@value='" + sheet.MetaTypePopup.Text() + "']/name");
    sheet.MetaPopup.DeleteAllRows();
    for (int i = 0; i < names.Count(); ++i) {
        const std::string name = names.Item(i).Attribute("value");
        // Only a metaphysic with a quality prerequisite that the character meets is offered.
        auto required = rules.Leaf(metaPath(sheet, name) + "/qualityprerequisite");
        if (required && MetaCheckQualityPrereq(sheet, *required)) sheet.MetaPopup.AddRow(name);
    }
}

bool MetaCheckQualityPrereq(CharacterSheet& sheet, const std::string& text) {
    if (text.empty()) return true;
    const ListItem& qualities = sheet.QualityListBox;
    bool met = false;
    for (int f = 1; f <= CountFields(text, "||"); ++f)
        for (int row = 0; row < qualities.ListCount(); ++row)
            if (InStr(qualities.Cell(row, 0), NthField(text, "||", f)) > 0) met = true;
    return met;
}

void PopulateMetaInfo(CharacterSheet& sheet) {
    const RuleData& rules = sheet.Rules();
    try {
        sheet.MetaNameField.SetText(sheet.MetaPopup.Text());
        const std::string path = metaPath(sheet, sheet.MetaPopup.Text());
        if (auto costs = rules.Record(path + "/costs")) fillCosts(sheet, *costs);
        sheet.MetaReferenceField.SetText(rules.Leaf(path + "/pagereference").value_or(""));
        sheet.MetaPrerequisiteField.SetText(rules.Leaf(path + "/metaprerequisite").value_or(""));
        sheet.MetaNoteField.SetText(rules.Leaf(path + "/notes").value_or(""));

        auto attributes = rules.Record(path + "/bonusattr");
        for (int i = 0; i < kAttributeBonusCount; ++i)
            sheet.m_attributes[i] =
                attributes ? Whole(attributes->Attribute(kAttributeBonusKeys[i])) : 0;
        auto points = rules.Record(path + "/bonuspts");
        for (int i = 0; i < kPointBonusCount; ++i)
            sheet.m_bonuspts[i] = points ? points->Attribute(kPointBonusKeys[i]) : "";
        sheet.m_altform = rules.Leaf(path + "/altform").value_or("");
        sheet.m_row = -1;
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

void MetaUpDownArrows_Up(CharacterSheet& sheet) {
    const std::int64_t low = lowestLevel(sheet);
    // A lowest level is bought at once: from 0 to 3 in one press.
    const bool oneStep = low == 0 || Whole(sheet.MetaLevelField.Text()) >= low;
    const std::int64_t steps = oneStep ? 1 : std::min(low, kMostLevelsInOnePress);
    for (std::int64_t step = 0; step < steps; ++step) stepUp(sheet);
}

void MetaUpDownArrows_Down(CharacterSheet& sheet) {
    const std::int64_t low = lowestLevel(sheet);
    const bool oneStep = low == 0 || low < Whole(sheet.MetaLevelField.Text());
    const std::int64_t steps = oneStep ? 1 : std::min(low, kMostLevelsInOnePress);
    for (std::int64_t step = 0; step < steps; ++step) stepDown(sheet);
}

void MetaRecordButton_Action(CharacterSheet& sheet) {
    ListItem& list = sheet.MetaListBox;
    auto target = StartRecord(sheet, list, prerequisitesMet(sheet), sheet.m_row,
                              sheet.MetaXPCostField, sheet.MetaNameField);
    if (!target) return;
    const int row = *target;
    MoveIntoCell(sheet.MetaLevelField, list, row, 1);
    MoveIntoCell(sheet.MetaCostField, list, row, 2);
    MoveIntoCell(sheet.MetaXPCostField, list, row, 3);
    MoveIntoCell(sheet.MetaNoteField, list, row, 4);
    MoveIntoCell(sheet.MetaReferenceField, list, row, 5);
    list.SetCell(row, 6, LineEndsToBlanks(sheet.MetaPrerequisiteField.Text()));
    sheet.MetaPrerequisiteField.SetText("");
    MoveIntoCell(sheet.MetaMaxLevelField, list, row, 7);
    MoveIntoCell(sheet.MetaCostPerLevelField, list, row, 8);
    MoveIntoCell(sheet.MetaXPCostPerLevelField, list, row, 9);
    MoveIntoCell(sheet.MetaXPCostNewField, list, row, 10);

    for (int i = 0; i < kAttributeBonusCount; ++i) {
        list.SetCell(row, 11 + i, Str(static_cast<double>(sheet.m_attributes[i])));
        sheet.m_attributes[i] = 0;
    }
    for (int i = 0; i < kPointBonusCount; ++i) {
        list.SetCell(row, 19 + i, sheet.m_bonuspts[i]);
        sheet.m_bonuspts[i].clear();
    }
    list.SetCell(row, 25, sheet.m_altform);
    sheet.m_altform.clear();
    sheet.m_row = -1;
    MetaGetBonus(sheet);
    FigureSecondaryAttributes(sheet);
}

void MetaListBox_DoubleClick(CharacterSheet& sheet) {
    ListItem& list = sheet.MetaListBox;
    sheet.m_row = SelectedRowOr(list, sheet.m_row);
    const int row = static_cast<int>(sheet.m_row);
    const std::pair<TextItem*, int> fields[] = {
        {&sheet.MetaNameField, 0},         {&sheet.MetaMaxLevelField, 7},
        {&sheet.MetaCostPerLevelField, 8}, {&sheet.MetaXPCostPerLevelField, 9},
        {&sheet.MetaXPCostNewField, 10},   {&sheet.MetaLevelField, 1},
        {&sheet.MetaCostField, 2},         {&sheet.MetaXPCostField, 3},
        {&sheet.MetaReferenceField, 5},    {&sheet.MetaPrerequisiteField, 6},
        {&sheet.MetaNoteField, 4}};
    for (const auto& [field, column] : fields) field->SetText(list.Cell(row, column));
    for (int i = 0; i < kAttributeBonusCount; ++i)
        sheet.m_attributes[i] = Whole(list.Cell(row, 11 + i));
    for (int i = 0; i < kPointBonusCount; ++i) sheet.m_bonuspts[i] = list.Cell(row, 19 + i);
    sheet.m_altform = list.Cell(row, 25);
}

void MetaListBoxDeleteRow(CharacterSheet& sheet) {
    DeleteSelectedRowsWithRefund(sheet, sheet.MetaListBox);
    MetaGetBonus(sheet);
}

void MetaRemoveButton_Action(CharacterSheet& sheet) {
    MetaListBoxDeleteRow(sheet);
    FigureSecondaryAttributes(sheet);
}

void MetaListBox_KeyDown(CharacterSheet& sheet, const std::string& key) {
    // The sums are renewed, the sheet's totals wait for the next recomputation.
    if (IsDeleteKey(key)) MetaListBoxDeleteRow(sheet);
}

void MetaSeparator_Action(CharacterSheet& sheet) { AddSeparatorRow(sheet.MetaListBox); }

void MetaGetBonus(CharacterSheet& sheet) {
    const ListItem& list = sheet.MetaListBox;
    for (int entry = 0; entry < 14; ++entry) {
        std::int64_t sum = 0;
        for (int row = 0; row < list.ListCount(); ++row)
            sum = Whole(static_cast<double>(sum) +
                        Val(list.Cell(row, 11 + entry)) * Val(list.Cell(row, 1)));
        sheet.m_all_bonuses[entry] = sum;
    }
}

void AddMetaphysicsOperations(OperationTable& table) {
    AddOperation(table, "LoadMetaTypes", LoadMetaTypes);
    AddOperation(table, "MetaTypePopup_MouseDown", LoadMetaTypes);
    AddOperation(table, "MetaTypePopup_Change", MetaTypePopup_Change);
    AddOperation(table, "MetaPopup_MouseDown", PopulateMetaInfo);
    AddOperation(table, "MetaPopup_Change", PopulateMetaInfo);
    AddOperation(table, "PopulateMetaInfo", PopulateMetaInfo);
    table["MetaCheckQualityPrereq"] = {
        [](CharacterSheet& sheet, const std::string& text) -> std::optional<std::string> {
            return MetaCheckQualityPrereq(sheet, text) ? "true" : "false";
        }};
    AddOperation(table, "MetaUpDownArrows_Up", MetaUpDownArrows_Up);
    AddOperation(table, "MetaUpDownArrows_Down", MetaUpDownArrows_Down);
    AddOperation(table, "MetaRecordButton_Action", MetaRecordButton_Action);
    AddOperation(table, "MetaListBox_DoubleClick", MetaListBox_DoubleClick);
    AddOperation(table, "MetaListBoxDeleteRow", MetaListBoxDeleteRow);
    AddOperation(table, "MetaRemoveButton_Action", MetaRemoveButton_Action);
    AddOperationWithArgument(table, "MetaListBox_KeyDown", MetaListBox_KeyDown);
    AddOperation(table, "MetaSeparator_Action", MetaSeparator_Action);
    AddOperation(table, "MetaGetBonus", MetaGetBonus);
}

}  // namespace zeph
