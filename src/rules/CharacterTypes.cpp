#include "rules/CharacterTypes.h"

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "rules/Qualities.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

std::string choiceQuery(const std::string& type, const std::string& choice) {
    return "//charactertype/type[@value='" + type + "']/name[@value='" + choice + "']";
}

// The one algorithm of the three loaders: rebuild the rows, then put the index back.
void reloadRows(CharacterSheet& sheet, ComboItem& item, const std::string& query) {
    try {
        int remembered = item.ListIndex();
        item.DeleteAllRows();
        XmlNodeList nodes = sheet.Rules().Query(query);
        for (int i = 0; i < nodes.Count(); ++i) item.AddRow(nodes.Item(i).Attribute("value"));
        if (remembered < item.ListCount()) item.SetListIndex(remembered);
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

}  // namespace

void LoadCharacterTypes(CharacterSheet& sheet) {
    reloadRows(sheet, sheet.CharacterTypePopup, "//charactertype/type");
}

void LoadConceptBox(CharacterSheet& sheet) {
    reloadRows(sheet, sheet.ConceptBox, "//concepts/name");
}

void LoadAssociationCombo(CharacterSheet& sheet) {
    reloadRows(sheet, sheet.AssociationCombo, "//associations/name");
}

void CharacterTypePopup_Change(CharacterSheet& sheet) {
    if (sheet.loadingCharFile) return;
    try {
        sheet.ChooseCharPopup.DeleteAllRows();
        XmlNodeList choices = sheet.Rules().Query("//charactertype/type[@value='" +
                                                  sheet.CharacterTypePopup.Text() + "']/name");
        for (int i = 0; i < choices.Count(); ++i)
            sheet.ChooseCharPopup.AddRow(choices.Item(i).Attribute("value"));
        sheet.savedChar = false;
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

void ChooseCharPopup_Change(CharacterSheet& sheet) {
    if (sheet.loadingCharFile) return;
    AddQualityFromCharType(sheet, sheet.CharacterTypePopup.Text(), sheet.ChooseCharPopup.Text());
    FigureSecondaryAttributes(sheet);
    sheet.savedChar = false;
}

void ChooseCharPopup_LostFocus(CharacterSheet& sheet) {
    AddQualityFromCharType(sheet, sheet.CharacterTypePopup.Text(), sheet.ChooseCharPopup.Text());
    FigureSecondaryAttributes(sheet);
}

void AssociationCombo_Change(CharacterSheet& sheet) {
    if (sheet.loadingCharFile) return;
    try {
        XmlNodeList notes = sheet.Rules().Query("//associations/name[@value='" +
                                                sheet.AssociationCombo.Text() + "']/notes");
        if (notes.Empty()) return;
        if (auto text = notes.Item(0).FirstChildValue()) sheet.AssociationField.SetText(*text);
        sheet.savedChar = false;
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

void AddQualityFromCharType(CharacterSheet& sheet, const std::string& type,
                            const std::string& choice) {
    const RuleData& rules = sheet.Rules();
    ListItem& list = sheet.QualityListBox;
    std::string& applied = sheet.q_chartype;
    try {
        // Take away the rows of the last application. The walk does not look again at the
        // index it removed from, so of two adjacent rows of one name the second stays.
        for (int f = 1; !applied.empty() && f <= CountFields(applied, "&&"); ++f) {
            const std::string name = NthField(applied, "&&", f);
            for (int row = 0; row < list.ListCount(); ++row)
                if (EqualsNoCase(list.Cell(row, EntryColumn::Name), name)) list.RemoveRow(row);
        }

        const std::string choicePath = choiceQuery(type, choice);
        if (rules.Query(choicePath).Empty()) return;
        auto required = rules.Leaf(choicePath + "/qualityrequired");
        if (!required) return;
        applied = *required;

        std::string altFormKey;
        for (int f = 1; f <= CountFields(applied, "&&"); ++f) {
            const std::string name = NthField(applied, "&&", f);
            const std::string quality = "//qualities/*/name[@value='" + name + "']";
            if (rules.Query(quality).Empty()) continue;

            list.AddRow(name);
            const int row = list.LastIndex();
            list.SetCell(row, EntryColumn::Level, "1");
            if (auto costs = rules.Record(quality + "/costs")) {
                list.SetCell(row, EntryColumn::Cost, costs->Attribute("creationcost"));
                list.SetCell(row, QualityColumn::MaxLevel, costs->Attribute("maxlevel"));
                list.SetCell(row, QualityColumn::CostPerLevel,
                             costs->Attribute("creationcost") + "/" +
                                 costs->Attribute("creationcost_highvalue"));
                list.SetCell(row, QualityColumn::XPCostPerLevel,
                             costs->Attribute("experiencecost") + "/" +
                                 costs->Attribute("experiencecost_highvalue"));
            }
            const std::pair<int, const char*> leaves[] = {
                {EntryColumn::Notes, "notes"},
                {EntryColumn::Reference, "pagereference"},
                {QualityColumn::Prerequisites, "prerequisites"}};
            for (const auto& [column, leaf] : leaves)
                if (auto text = rules.Leaf(quality + "/" + leaf)) list.SetCell(row, column, *text);
            if (InStr(name, "Channeling") > 0 || InStr(name, "Sadicas") > 0 ||
                EqualsNoCase(name, "Taint"))
                list.SetCell(row, QualityColumn::PoolMarker, name);
            if (auto bonus = rules.Record(quality + "/bonusattr"))
                for (int a = 0; a < kAttributeCount; ++a)
                    list.SetCell(row, QualityColumn::AttributeBonuses + a,
                                 bonus->Attribute(kAttributeKeys[a]));
            if (auto points = rules.Record(quality + "/bonuspts"))
                for (int i = 0; i < kQualityBonusPointCount; ++i)
                    list.SetCell(row, QualityColumn::PointBonuses + i,
                                 points->Attribute(kQualityBonusPointKeys[i]));
            if (InStr(name, "Taint Pool") > 0 || EqualsNoCase(name, "Taint"))
                list.SetCell(row, QualityColumn::TaintPool, "5");

            if (auto key = rules.Leaf(choicePath + "/alternateform")) altFormKey = *key;
            XmlNodeList forms = rules.Query("//altforms/type[@value='" + altFormKey + "']/name");
            if (!forms.Empty()) {
                std::vector<std::string> names;
                for (int i = 0; i < forms.Count(); ++i)
                    names.push_back(forms.Item(i).Attribute("value"));
                list.SetCell(row, QualityColumn::AltForms,
                             altFormKey + "&&" + JoinFields(names, ",") + "&&");
            }
        }
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

void AddCharacterTypeOperations(OperationTable& table) {
    AddOperation(table, "LoadCharacterTypes", LoadCharacterTypes);
    AddOperation(table, "LoadConceptBox", LoadConceptBox);
    AddOperation(table, "LoadAssociationCombo", LoadAssociationCombo);
    AddOperation(table, "CharacterTypePopup_GotFocus", LoadCharacterTypes);
    AddOperation(table, "ConceptBox_GotFocus", LoadConceptBox);
    AddOperation(table, "AssociationCombo_GotFocus", LoadAssociationCombo);
    AddOperation(table, "CharacterTypePopup_Change", CharacterTypePopup_Change);
    AddOperation(table, "ChooseCharPopup_Change", ChooseCharPopup_Change);
    AddOperation(table, "ChooseCharPopup_LostFocus", ChooseCharPopup_LostFocus);
    AddOperation(table, "AssociationCombo_Change", AssociationCombo_Change);
    AddOperationWithArgument(
        table, "AddQualityFromCharType", [](CharacterSheet& s, const std::string& argument) {
            // "TYPE|CHOICE", as the console passes two texts in one.
            AddQualityFromCharType(s, NthField(argument, "|", 1), NthField(argument, "|", 2));
        });
}

}  // namespace zeph
