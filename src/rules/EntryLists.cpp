#include "rules/EntryLists.h"

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "ruledata/XmlNode.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {

bool IsDeleteKey(const std::string& key) { return key == "\x10" || key == "\x08"; }

void AddSeparatorRow(ListItem& list) { list.AddRow("--"); }

void AddValueChoices(ComboItem& combo, const XmlNodeList& nodes) {
    for (int i = 0; i < nodes.Count(); ++i) combo.AddRow(nodes.Item(i).Attribute("value"));
}

void ReplaceChoices(ComboItem& combo, const XmlNodeList& nodes) {
    combo.DeleteAllRows();
    AddValueChoices(combo, nodes);
}

void LoadChoices(CharacterSheet& sheet, ComboItem& combo, const std::string& query) {
    try {
        combo.DeleteAllRows();
        AddValueChoices(combo, sheet.Rules().Query(query));
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

std::int64_t SelectedRowOr(const ListItem& list, std::int64_t current) {
    for (int row = 0; row < list.ListCount(); ++row)
        if (list.Selected(row)) current = row;
    return current;
}

void DeleteSelectedRowsWithRefund(CharacterSheet& sheet, ListItem& list) {
    int last = 0;
    // The count is read afresh at each step and the walk goes on past a removed row, so the
    // row that slides into its place is not looked at.
    for (int row = 0; row < list.ListCount(); ++row) {
        if (!list.Selected(row)) continue;
        const double refund = Val(list.Cell(row, 3));
        AddToNumber(sheet.SavedExperienceField, refund);
        AddToNumber(sheet.SpentExperienceField, -refund);
        last = row;
        list.RemoveRow(row);
    }
    if (list.ListCount() == 0) return;
    list.SetListIndex(last >= list.ListCount() ? list.ListCount() - 1 : last);
}

std::optional<bool> PayExperienceInPlay(CharacterSheet& sheet, const ListItem& list,
                                        std::int64_t editedRow, const TextItem& xpCost) {
    if (!sheet.CharacterInPlayBox.Value()) return std::nullopt;
    const double delta = editedRow > -1
                             ? static_cast<double>(Whole(xpCost.Text()) -
                                                   Whole(list.Cell(static_cast<int>(editedRow), 3)))
                             : Val(xpCost.Text());
    if (Val(sheet.SavedExperienceField.Text()) - delta < 0) return false;
    AddToNumber(sheet.SavedExperienceField, -delta);
    AddToNumber(sheet.SpentExperienceField, delta);
    return true;
}

std::optional<int> StartRecord(CharacterSheet& sheet, ListItem& list, bool prerequisitesMet,
                               std::int64_t editedRow, const TextItem& xpCost, TextItem& name) {
    bool record = prerequisitesMet;
    if (!record) sheet.Host().MsgBox("Prerequisites are not met. This cannot be purchased.");
    if (auto paid = PayExperienceInPlay(sheet, list, editedRow, xpCost)) record = *paid;
    if (name.Text().empty()) record = false;
    if (!record) return std::nullopt;

    int row = static_cast<int>(editedRow);
    if (editedRow > -1) {
        list.SetCell(row, 0, name.Text());
    } else {
        list.AddRow(name.Text());
        row = list.LastIndex();
    }
    name.SetText("");
    return row;
}

void AddToNumber(TextItem& item, double amount) { item.SetText(Str(Val(item.Text()) + amount)); }

double LevelPrice(const std::string& perLevel, double level, double highFrom) {
    return Val(NthField(perLevel, "/", level < highFrom ? 1 : 2));
}

void MoveIntoCell(TextItem& item, ListItem& list, int row, int column) {
    list.SetCell(row, column, item.Text());
    item.SetText("");
}

std::string LineEndsToBlanks(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += (text[i] == '\r' || text[i] == '\n') ? ' ' : text[i];
    }
    return out;
}

}  // namespace zeph
