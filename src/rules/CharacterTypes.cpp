// Character types: the lists of the background block, the reaction to a new type or choice,
// and the qualities that a choice brings with it.
#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "sheet/CharacterSheet.h"
#include "sheet/Operations.h"
#include "sheet/TextHelpers.h"

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

void CharacterSheet::LoadCharacterTypes() {
    reloadRows(*this, CharacterTypePopup, "//charactertype/type");
}

void CharacterSheet::LoadConceptBox() { reloadRows(*this, ConceptBox, "//concepts/name"); }

void CharacterSheet::LoadAssociationCombo() {
    reloadRows(*this, AssociationCombo, "//associations/name");
}

void CharacterSheet::CharacterTypePopup_Change() {
    if (loadingCharFile) return;
    try {
        ChooseCharPopup.DeleteAllRows();
        XmlNodeList choices = Rules().Query("//charactertype/type[@value='" +
                                            CharacterTypePopup.Text() + "']/name");
        for (int i = 0; i < choices.Count(); ++i)
            ChooseCharPopup.AddRow(choices.Item(i).Attribute("value"));
        savedChar = false;
    } catch (const XmlError& failure) {
        ShowXmlFailure(failure);
    }
}

void CharacterSheet::ChooseCharPopup_Change() {
    if (loadingCharFile) return;
    AddQualityFromCharType(CharacterTypePopup.Text(), ChooseCharPopup.Text());
    FigureSecondaryAttributes();
    savedChar = false;
}

void CharacterSheet::ChooseCharPopup_LostFocus() {
    AddQualityFromCharType(CharacterTypePopup.Text(), ChooseCharPopup.Text());
    FigureSecondaryAttributes();
}

void CharacterSheet::AssociationCombo_Change() {
    if (loadingCharFile) return;
    try {
        XmlNodeList notes = Rules().Query("//associations/name[@value='" +
                                          AssociationCombo.Text() + "']/notes");
        if (notes.Empty()) return;
        if (auto text = notes.Item(0).FirstChildValue()) AssociationField.SetText(*text);
        savedChar = false;
    } catch (const XmlError& failure) {
        ShowXmlFailure(failure);
    }
}

void CharacterSheet::AddQualityFromCharType(const std::string& type, const std::string& choice) {
    try {
        // Take away the rows of the last application. The walk does not look again at the
        // index it removed from, so of two adjacent rows of one name the second stays.
        for (int f = 1; !q_chartype.empty() && f <= CountFields(q_chartype, "&&"); ++f) {
            const std::string name = NthField(q_chartype, "&&", f);
            for (int row = 0; row < QualityListBox.ListCount(); ++row)
                if (EqualsNoCase(QualityListBox.Cell(row, 0), name)) QualityListBox.RemoveRow(row);
        }

        const std::string choicePath = choiceQuery(type, choice);
        if (Rules().Query(choicePath).Empty()) return;
        auto required = Rules().Leaf(choicePath + "/qualityrequired");
        if (!required) return;
        q_chartype = *required;

        std::string altFormKey;
        for (int f = 1; f <= CountFields(q_chartype, "&&"); ++f) {
            const std::string name = NthField(q_chartype, "&&", f);
            const std::string quality = "//qualities/*/name[@value='" + name + "']";
            if (Rules().Query(quality).Empty()) continue;

            ListItem& list = QualityListBox;
            list.AddRow(name);
            const int row = list.LastIndex();
            list.SetCell(row, 1, "1");
            if (auto costs = Rules().Record(quality + "/costs")) {
                list.SetCell(row, 2, costs->Attribute("creationcost"));
                list.SetCell(row, 7, costs->Attribute("maxlevel"));
                list.SetCell(row, 8, costs->Attribute("creationcost") + "/" +
                                         costs->Attribute("creationcost_highvalue"));
                list.SetCell(row, 9, costs->Attribute("experiencecost") + "/" +
                                         costs->Attribute("experiencecost_highvalue"));
            }
            const std::pair<int, const char*> leaves[] = {
                {4, "notes"}, {5, "pagereference"}, {6, "prerequisites"}};
            for (const auto& [column, leaf] : leaves)
                if (auto text = Rules().Leaf(quality + "/" + leaf)) list.SetCell(row, column, *text);
            if (InStr(name, "Channeling") > 0 || InStr(name, "Sadicas") > 0 ||
                EqualsNoCase(name, "Taint"))
                list.SetCell(row, 10, name);
            if (auto bonus = Rules().Record(quality + "/bonusattr"))
                for (int a = 0; a < kAttributeCount; ++a)
                    list.SetCell(row, 11 + a, bonus->Attribute(Lowercase(kAttributeNames[a])));
            if (auto points = Rules().Record(quality + "/bonuspts")) {
                const char* const kBonusPoints[] = {
                    "bonusskill",   "optskillbonus", "bonusmeta",   "bonusattr",
                    "bonusessence_attrbased", "bonusessence", "bonuslifepts", "bonusspeed",
                    "bonusendurance"};
                for (int i = 0; i < 9; ++i)
                    list.SetCell(row, 17 + i, points->Attribute(kBonusPoints[i]));
            }
            if (InStr(name, "Taint Pool") > 0 || EqualsNoCase(name, "Taint"))
                list.SetCell(row, 26, "5");

            if (auto key = Rules().Leaf(choicePath + "/alternateform")) altFormKey = *key;
            XmlNodeList forms =
                Rules().Query("//altforms/type[@value='" + altFormKey + "']/name");
            if (!forms.Empty()) {
                std::vector<std::string> names;
                for (int i = 0; i < forms.Count(); ++i)
                    names.push_back(forms.Item(i).Attribute("value"));
                list.SetCell(row, 27, altFormKey + "&&" + JoinFields(names, ",") + "&&");
            }
        }
    } catch (const XmlError& failure) {
        ShowXmlFailure(failure);
    }
}

void AddCharacterTypeOperations(OperationTable& table) {
    AddOperation(table, "LoadCharacterTypes", [](CharacterSheet& s) { s.LoadCharacterTypes(); });
    AddOperation(table, "LoadConceptBox", [](CharacterSheet& s) { s.LoadConceptBox(); });
    AddOperation(table, "LoadAssociationCombo", [](CharacterSheet& s) { s.LoadAssociationCombo(); });
    AddOperation(table, "CharacterTypePopup_GotFocus",
                 [](CharacterSheet& s) { s.LoadCharacterTypes(); });
    AddOperation(table, "ConceptBox_GotFocus", [](CharacterSheet& s) { s.LoadConceptBox(); });
    AddOperation(table, "AssociationCombo_GotFocus",
                 [](CharacterSheet& s) { s.LoadAssociationCombo(); });
    AddOperation(table, "CharacterTypePopup_Change",
                 [](CharacterSheet& s) { s.CharacterTypePopup_Change(); });
    AddOperation(table, "ChooseCharPopup_Change", [](CharacterSheet& s) { s.ChooseCharPopup_Change(); });
    AddOperation(table, "ChooseCharPopup_LostFocus",
                 [](CharacterSheet& s) { s.ChooseCharPopup_LostFocus(); });
    AddOperation(table, "AssociationCombo_Change",
                 [](CharacterSheet& s) { s.AssociationCombo_Change(); });
    AddOperationWithArgument(table, "AddQualityFromCharType",
                             [](CharacterSheet& s, const std::string& argument) {
                                 // "TYPE|CHOICE", as the console passes two texts in one.
                                 s.AddQualityFromCharType(NthField(argument, "|", 1),
                                                          NthField(argument, "|", 2));
                             });
}

}  // namespace zeph
