#include "rules/Qualities.h"

#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

std::string qualityPath(CharacterSheet& sheet) {
    return "//qualities/type[@value='" + sheet.QualityTypePopup.Text() + "']/name[@value='" +
           sheet.QualityPopup.Text() + "']";
}

void showAltFormChoice(CharacterSheet& sheet, bool shown) {
    sheet.QualityAlternateFormCombo.SetVisible(shown);
    sheet.QualityAltFormText.SetVisible(shown);
}

void fillCosts(CharacterSheet& sheet, const XmlNode& costs) {
    sheet.QualityMaxLevelField.SetText(costs.Attribute("maxlevel"));
    if (Val(sheet.QualityMaxLevelField.Text()) < 5) {
        sheet.QualityCostPerLevelField.SetText(costs.Attribute("creationcost") + "/-");
        sheet.QualityXPCostPerLevelField.SetText(costs.Attribute("experiencecost") + "/-");
    } else {
        sheet.QualityCostPerLevelField.SetText(costs.Attribute("creationcost") + "/" +
                                               costs.Attribute("creationcost_highvalue"));
        sheet.QualityXPCostPerLevelField.SetText(costs.Attribute("experiencecost") + "/" +
                                                 costs.Attribute("experiencecost_highvalue"));
    }
    sheet.QualityLevelField.SetText("0");
    sheet.QualityCostField.SetText("0");
    sheet.QualityXPCostField.SetText("0");
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
            if (EqualsNoCase(list.Cell(row, 0), NthField(requirement, ",", 1)) &&
                Val(list.Cell(row, 1)) >= Val(NthField(requirement, ",", 2)))
                ++matches;
    }
    return matches == requirements;
}

void writePoolMarkers(ListItem& list, int row) {
    const std::string name = list.Cell(row, 0);
    if (InStr(name, "Channeling") > 0 || InStr(name, "Sadicas") > 0) list.SetCell(row, 10, name);
    if (EqualsNoCase(name, "Taint") || EqualsNoCase(name, "Taint Channeling"))
        list.SetCell(row, 10, "Taint Channeling");
    if (EqualsNoCase(name, "Adept")) list.SetCell(row, 10, "Adept");
    if (InStr(name, "Taint Pool") > 0 || EqualsNoCase(name, "Taint")) list.SetCell(row, 26, "5");
}

// Column 27: the name field (already emptied), the forms offered, the form chosen.
void writeAltForms(CharacterSheet& sheet, int row) {
    ComboItem& combo = sheet.QualityAlternateFormCombo;
    if (!combo.Visible()) return;
    std::string offered = sheet.QualityNameField.Text() + "&&";
    for (const std::string& form : combo.Rows()) offered += form + ",";
    offered = Left(offered, Len(offered) - 1);
    sheet.QualityListBox.SetCell(row, 27, offered + "&&" + combo.Text());
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
    LoadChoices(sheet, sheet.QualityTypePopup, "//qualities/type");
}

void QualityTypePopup_Change(CharacterSheet& sheet) {
    // No handler of its own: a failure goes to the application's.
    XmlNodeList names = sheet.Rules().Query("//qualities/type[@value='" +
                                            sheet.QualityTypePopup.Text() + "']/name");
    ReplaceChoices(sheet.QualityPopup, names);
}

void PopulateQualityInfo(CharacterSheet& sheet) {
    const RuleData& rules = sheet.Rules();
    try {
        sheet.QualityNameField.SetText(sheet.QualityPopup.Text());
        const std::string path = qualityPath(sheet);
        if (auto costs = rules.Record(path + "/costs")) fillCosts(sheet, *costs);
        sheet.QualityReferenceField.SetText(rules.Leaf(path + "/pagereference").value_or(""));
        sheet.QualityPrerequisiteField.SetText(rules.Leaf(path + "/prerequisites").value_or(""));
        sheet.QualityNoteField.SetText(rules.Leaf(path + "/notes").value_or(""));

        if (auto formType = rules.Leaf(path + "/alternateform")) {
            showAltFormChoice(sheet, true);
            sheet.QualityAlternateFormCombo.DeleteAllRows();
            AddValueChoices(sheet.QualityAlternateFormCombo,
                            rules.Query("//altforms/type[@value='" + *formType + "']/name"));
        } else {
            showAltFormChoice(sheet, false);
        }

        auto attributes = rules.Record(path + "/bonusattr");
        for (int a = 0; a < kAttributeCount; ++a)
            sheet.q_attributes[a] =
                attributes ? Whole(attributes->Attribute(kAttributeKeys[a])) : 0;
        if (auto points = rules.Record(path + "/bonuspts")) {
            for (int i = 0; i < kQualityBonusPointCount; ++i)
                sheet.q_bonuspts[i] = points->Attribute(kQualityBonusPointKeys[i]);
        } else {
            sheet.q_bonuspts.fill("");
        }
        sheet.q_row = -1;
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

void QualityUpDownArrows_Up(CharacterSheet& sheet) {
    const double level = Val(sheet.QualityLevelField.Text()) + 1;
    sheet.QualityLevelField.SetText(Str(level));
    if (Val(sheet.QualityMaxLevelField.Text()) < level) {
        sheet.QualityLevelField.SetText(sheet.QualityMaxLevelField.Text());
        return;
    }
    addLevelPrice(sheet, level, 6, +1);
}

void QualityUpDownArrows_Down(CharacterSheet& sheet) {
    const double level = Val(sheet.QualityLevelField.Text()) - 1;
    sheet.QualityLevelField.SetText(Str(level));
    if (level < 0) {
        sheet.QualityLevelField.SetText("0");
        return;
    }
    addLevelPrice(sheet, level, 5, -1);
}

void QualityRecordButton_Action(CharacterSheet& sheet) {
    ListItem& list = sheet.QualityListBox;
    auto target = StartRecord(sheet, list, prerequisitesMet(sheet), sheet.q_row,
                              sheet.QualityXPCostField, sheet.QualityNameField);
    if (!target) return;
    const int row = *target;
    MoveIntoCell(sheet.QualityLevelField, list, row, 1);
    MoveIntoCell(sheet.QualityCostField, list, row, 2);
    MoveIntoCell(sheet.QualityXPCostField, list, row, 3);
    MoveIntoCell(sheet.QualityNoteField, list, row, 4);
    MoveIntoCell(sheet.QualityReferenceField, list, row, 5);
    list.SetCell(row, 6, LineEndsToBlanks(sheet.QualityPrerequisiteField.Text()));
    sheet.QualityPrerequisiteField.SetText("");
    MoveIntoCell(sheet.QualityMaxLevelField, list, row, 7);
    MoveIntoCell(sheet.QualityCostPerLevelField, list, row, 8);
    MoveIntoCell(sheet.QualityXPCostPerLevelField, list, row, 9);

    writePoolMarkers(list, row);
    for (int a = 0; a < kAttributeCount; ++a) {
        list.SetCell(row, 11 + a, Str(static_cast<double>(sheet.q_attributes[a])));
        sheet.q_attributes[a] = 0;
    }
    for (int i = 0; i < kQualityBonusPointCount; ++i) {
        list.SetCell(row, 17 + i, sheet.q_bonuspts[i]);
        sheet.q_bonuspts[i].clear();
    }
    writeAltForms(sheet, row);
    sheet.q_row = -1;
    FigureSecondaryAttributes(sheet);
    if (sheet.QualitiesSeparateQDBox.Value()) SeparateQD(sheet);
}

void QualityListBox_DoubleClick(CharacterSheet& sheet) {
    ListItem& list = sheet.QualityListBox;
    sheet.q_row = SelectedRowOr(list, sheet.q_row);
    const int row = static_cast<int>(sheet.q_row);
    const std::pair<TextItem*, int> fields[] = {
        {&sheet.QualityNameField, 0},           {&sheet.QualityLevelField, 1},
        {&sheet.QualityCostField, 2},           {&sheet.QualityXPCostField, 3},
        {&sheet.QualityMaxLevelField, 7},       {&sheet.QualityCostPerLevelField, 8},
        {&sheet.QualityXPCostPerLevelField, 9}, {&sheet.QualityReferenceField, 5},
        {&sheet.QualityPrerequisiteField, 6},   {&sheet.QualityNoteField, 4}};
    for (const auto& [field, column] : fields) field->SetText(list.Cell(row, column));
    for (int a = 0; a < kAttributeCount; ++a) sheet.q_attributes[a] = Whole(list.Cell(row, 11 + a));
    for (int i = 0; i < 10; ++i) sheet.q_bonuspts[i] = list.Cell(row, 17 + i);
    readAltForms(sheet, list.Cell(row, 27));
}

void QualityListBoxDeleteRow(CharacterSheet& sheet) {
    DeleteSelectedRowsWithRefund(sheet, sheet.QualityListBox);
}

void QualityRemoveButton_Action(CharacterSheet& sheet) {
    QualityListBoxDeleteRow(sheet);
    FigureSecondaryAttributes(sheet);
}

void QualityListBox_KeyDown(CharacterSheet& sheet, const std::string& key) {
    // Lighter than the button on purpose: the totals wait for the next recomputation.
    if (IsDeleteKey(key)) QualityListBoxDeleteRow(sheet);
}

void QualitySeparator_Action(CharacterSheet& sheet) { AddSeparatorRow(sheet.QualityListBox); }

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
        if (Val(list.Cell(index, 2)) + Val(list.Cell(index, 3)) < 0) {
            list.AddRow(list.Cell(index, 0));
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
    AddOperation(table, "QualityListBoxDeleteRow", QualityListBoxDeleteRow);
    AddOperation(table, "QualityRemoveButton_Action", QualityRemoveButton_Action);
    AddOperationWithArgument(table, "QualityListBox_KeyDown", QualityListBox_KeyDown);
    AddOperation(table, "QualitySeparator_Action", QualitySeparator_Action);
    AddOperation(table, "QualitySeparateButton_Action", SeparateQD);
    AddOperation(table, "QualitiesSeparateQDBox_Action", QualitiesSeparateQDBox_Action);
    AddOperation(table, "QualityListBox_DragReorderRows", QualityListBox_DragReorderRows);
    AddOperation(table, "QualityListBox_HeaderPressed", QualityListBox_HeaderPressed);
    AddOperation(table, "SeparateQD", SeparateQD);
}

}  // namespace zeph
