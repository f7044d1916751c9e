#include "rules/Qualities.h"

#include <span>

#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kTypeQuery = "//qualities/type";

EntryList qualityEntry(CharacterSheet& s) {
    EntryList entry{s.QualityListBox,   s.q_row,
                    s.QualityNameField, s.QualityLevelField,
                    s.QualityCostField, s.QualityXPCostField,
                    s.QualityNoteField, s.QualityReferenceField};
    entry.ownCells = {{&s.QualityPrerequisiteField, QualityColumn::Prerequisites, true},
                      {&s.QualityMaxLevelField, QualityColumn::MaxLevel},
                      {&s.QualityCostPerLevelField, QualityColumn::CostPerLevel},
                      {&s.QualityXPCostPerLevelField, QualityColumn::XPCostPerLevel}};
    return entry;
}

std::span<std::int64_t> attributeBonuses(CharacterSheet& sheet) {
    return std::span(sheet.q_attributes).first(kAttributeCount);
}

void showAltFormChoice(CharacterSheet& sheet, bool shown) {
    sheet.QualityAlternateFormCombo.SetVisible(shown);
    sheet.QualityAltFormText.SetVisible(shown);
}

// A highest level below 5 never reaches the high price.
void fillCosts(CharacterSheet& sheet, const XmlNode& costs) {
    sheet.QualityMaxLevelField.SetText(costs.Attribute("maxlevel"));
    FillCosts(costs, !(Val(sheet.QualityMaxLevelField.Text()) < 5), sheet.QualityCostPerLevelField,
              sheet.QualityXPCostPerLevelField,
              {&sheet.QualityLevelField, &sheet.QualityCostField, &sheet.QualityXPCostField});
}

// The running cost that the arrows move: experience in play, creation points otherwise.
void addLevelPrice(CharacterSheet& sheet, double level, double highFrom, double sign) {
    const bool inPlay = sheet.CharacterInPlayBox.Value();
    const TextItem& perLevel =
        inPlay ? sheet.QualityXPCostPerLevelField : sheet.QualityCostPerLevelField;
    AddToNumber(inPlay ? sheet.QualityXPCostField : sheet.QualityCostField,
                sign * LevelPrice(perLevel.Text(), level, highFrom));
}

// Counts the rows that meet a requirement, not the requirements met: two rows meeting one
// requirement stand in for another that no row meets.
bool prerequisitesMet(CharacterSheet& sheet) {
    const std::string& text = sheet.QualityPrerequisiteField.Text();
    if (text.empty()) return true;
    const ListItem& list = sheet.QualityListBox;
    const int requirements = CountFields(text, "&&");
    int matches = 0;
    for (int r = 1; r <= requirements; ++r) {
        const std::string requirement = NthField(text, "&&", r);
        for (int row = 0; row < list.ListCount(); ++row)
            if (EqualsNoCase(list.Cell(row, EntryColumn::Name), NthField(requirement, ",", 1)) &&
                Val(list.Cell(row, EntryColumn::Level)) >= Val(NthField(requirement, ",", 2)))
                ++matches;
    }
    return matches == requirements;
}

void writePoolMarker(ListItem& list, int row) {
    const std::string name = list.Cell(row, EntryColumn::Name);
    const int marker = QualityColumn::PoolMarker;
    if (InStr(name, "Channeling") > 0 || InStr(name, "Sadicas") > 0)
        list.SetCell(row, marker, name);
    if (EqualsNoCase(name, "Taint") || EqualsNoCase(name, "Taint Channeling"))
        list.SetCell(row, marker, "Taint Channeling");
    if (EqualsNoCase(name, "Adept")) list.SetCell(row, marker, "Adept");
}

void writeTaintPool(ListItem& list, int row) {
    const std::string& name = list.Cell(row, EntryColumn::Name);
    if (InStr(name, "Taint Pool") > 0 || EqualsNoCase(name, "Taint"))
        list.SetCell(row, QualityColumn::TaintPool, "5");
}

// Column 27: the name field (already emptied), the forms offered, the form chosen.
void writeAltForms(CharacterSheet& sheet, int row) {
    ComboItem& combo = sheet.QualityAlternateFormCombo;
    if (!combo.Visible()) return;
    std::string offered = sheet.QualityNameField.Text() + "&&";
    for (const std::string& form : combo.Rows()) offered += form + ",";
    offered = Left(offered, Len(offered) - 1);
    sheet.QualityListBox.SetCell(row, QualityColumn::AltForms, offered + "&&" + combo.Text());
    combo.DeleteAllRows();
    showAltFormChoice(sheet, false);
    sheet.QualityNameField.SetText("");
}

void readAltForms(CharacterSheet& sheet, const std::string& column) {
    ComboItem& combo = sheet.QualityAlternateFormCombo;
    if (column.empty()) {
        showAltFormChoice(sheet, false);
        return;
    }
    const std::string offered = NthField(column, "&&", 2);
    const std::string chosen = NthField(column, "&&", 3);
    combo.DeleteAllRows();
    int position = -1;
    for (int f = 1; f <= CountFields(offered, ","); ++f) {
        const std::string form = NthField(offered, ",", f);
        if (EqualsNoCase(form, chosen)) position = f - 1;
        combo.AddRow(form);
    }
    showAltFormChoice(sheet, true);
    combo.SetListIndex(position);
}

}  // namespace

void LoadQualityTypes(CharacterSheet& sheet) {
    LoadChoices(sheet, sheet.QualityTypePopup, kTypeQuery);
}

void QualityTypePopup_Change(CharacterSheet& sheet) {
    // No handler of its own: a failure goes to the application's.
    ReplaceNameChoices(sheet, kTypeQuery, sheet.QualityTypePopup, sheet.QualityPopup);
}

void PopulateQualityInfo(CharacterSheet& sheet) {
    const std::string path = ChosenNamePath(kTypeQuery, sheet.QualityTypePopup, sheet.QualityPopup);
    PopulateEntry(sheet, qualityEntry(sheet), sheet.QualityPopup, [&](const RuleData& rules) {
        if (auto costs = rules.Record(path + "/costs")) fillCosts(sheet, *costs);
        TakeLeaf(rules, path + "/pagereference", sheet.QualityReferenceField);
        TakeLeaf(rules, path + "/prerequisites", sheet.QualityPrerequisiteField);
        TakeLeaf(rules, path + "/notes", sheet.QualityNoteField);

        if (auto formType = rules.Leaf(path + "/alternateform")) {
            showAltFormChoice(sheet, true);
            sheet.QualityAlternateFormCombo.DeleteAllRows();
            AddValueChoices(sheet.QualityAlternateFormCombo,
                            rules.Query("//altforms/type[@value='" + *formType + "']/name"));
        } else {
            showAltFormChoice(sheet, false);
        }

        ReadBonuses(rules, path + "/bonusattr", kAttributeKeys, attributeBonuses(sheet));
        // Without a node all ten point bonuses go; with one the tenth keeps what it held.
        if (!ReadBonuses(rules, path + "/bonuspts", kQualityBonusPointKeys, sheet.q_bonuspts))
            sheet.q_bonuspts.fill("");
    });
}

void QualityUpDownArrows_Up(CharacterSheet& sheet) {
    const double level = StepLevel(sheet.QualityLevelField, +1);
    if (Val(sheet.QualityMaxLevelField.Text()) < level) {
        sheet.QualityLevelField.SetText(sheet.QualityMaxLevelField.Text());
        return;
    }
    addLevelPrice(sheet, level, 6, +1);
}

void QualityUpDownArrows_Down(CharacterSheet& sheet) {
    const double level = StepLevel(sheet.QualityLevelField, -1);
    if (level < 0) {
        sheet.QualityLevelField.SetText("0");
        return;
    }
    addLevelPrice(sheet, level, 5, -1);
}

void QualityRecordButton_Action(CharacterSheet& sheet) {
    auto row = RecordEntry(sheet, qualityEntry(sheet), prerequisitesMet(sheet));
    if (!row) return;
    ListItem& list = sheet.QualityListBox;
    writePoolMarker(list, *row);
    RecordBonuses(list, *row, QualityColumn::AttributeBonuses, attributeBonuses(sheet));
    RecordBonuses(list, *row, QualityColumn::PointBonuses,
                  std::span(sheet.q_bonuspts).first(kQualityBonusPointCount));
    writeTaintPool(list, *row);
    writeAltForms(sheet, *row);
    sheet.q_row = -1;
    FigureSecondaryAttributes(sheet);
    if (sheet.QualitiesSeparateQDBox.Value()) SeparateQD(sheet);
}

void QualityListBox_DoubleClick(CharacterSheet& sheet) {
    const int row = PullBackEntry(qualityEntry(sheet));
    const ListItem& list = sheet.QualityListBox;
    PullBackBonuses(list, row, QualityColumn::AttributeBonuses, attributeBonuses(sheet));
    // The tenth point bonus takes the Taint pool's column, which nothing reads from it.
    PullBackBonuses(list, row, QualityColumn::PointBonuses,
                    std::span(sheet.q_bonuspts).first(kQualityBonusPointCount + 1));
    readAltForms(sheet, list.Cell(row, QualityColumn::AltForms));
}

void QualitiesSeparateQDBox_Action(CharacterSheet& sheet) {
    if (sheet.QualitiesSeparateQDBox.Value()) SeparateQD(sheet);
}

void QualityListBox_DragReorderRows(CharacterSheet& sheet) {
    sheet.QualitiesSeparateQDBox.SetValue(false);
}

void QualityListBox_HeaderPressed(CharacterSheet& sheet) {
    sheet.QualitiesSeparateQDBox.SetValue(false);
}

void SeparateQD(CharacterSheet& sheet) {
    ListItem& list = sheet.QualityListBox;
    int limit = list.ListCount();
    int index = 0;
    while (index < limit) {
        if (Val(list.Cell(index, EntryColumn::Cost)) + Val(list.Cell(index, EntryColumn::XPCost)) <
            0) {
            list.AddRow(list.Cell(index, EntryColumn::Name));
            const int copy = list.LastIndex();
            for (int column = 1; column < list.ColumnCount(); ++column)
                list.SetCell(copy, column, list.Cell(index, column));
            list.RemoveRow(index);
            --limit;
        } else {
            ++index;
        }
    }
}

void AddQualityOperations(OperationTable& table) {
    AddOperation(table, "LoadQualityTypes", LoadQualityTypes);
    AddOperation(table, "QualityTypePopup_MouseDown", LoadQualityTypes);
    AddOperation(table, "QualityTypePopup_Change", QualityTypePopup_Change);
    AddOperation(table, "QualityPopup_MouseDown", PopulateQualityInfo);
    AddOperation(table, "QualityPopup_Change", PopulateQualityInfo);
    AddOperation(table, "PopulateQualityInfo", PopulateQualityInfo);
    AddOperation(table, "QualityUpDownArrows_Up", QualityUpDownArrows_Up);
    AddOperation(table, "QualityUpDownArrows_Down", QualityUpDownArrows_Down);
    AddOperation(table, "QualityRecordButton_Action", QualityRecordButton_Action);
    AddOperation(table, "QualityListBox_DoubleClick", QualityListBox_DoubleClick);
    AddRemovalOperations(table,
                         {"QualityListBoxDeleteRow", "QualityRemoveButton_Action",
                          "QualityListBox_KeyDown", "QualitySeparator_Action"},
                         &CharacterSheet::QualityListBox);
    AddOperation(table, "QualitySeparateButton_Action", SeparateQD);
    AddOperation(table, "QualitiesSeparateQDBox_Action", QualitiesSeparateQDBox_Action);
    AddOperation(table, "QualityListBox_DragReorderRows", QualityListBox_DragReorderRows);
    AddOperation(table, "QualityListBox_HeaderPressed", QualityListBox_HeaderPressed);
    AddOperation(table, "SeparateQD", SeparateQD);
}

}  // namespace zeph
