#include "rules/EntryLists.h"

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "ruledata/XmlNode.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// In play, pays for the entry: the whole experience cost of a new row, or the change of cost
// of the edited row. Answers whether the experience sufficed (and was taken); nullopt out of
// play, where nothing is paid.
std::optional<bool> payExperienceInPlay(CharacterSheet& sheet, const EntryList& entry) {
    if (!sheet.CharacterInPlayBox.Value()) return std::nullopt;
    const double delta =
        entry.editedRow > -1
            ? static_cast<double>(
                  Whole(entry.xpCost.Text()) -
                  Whole(entry.list.Cell(static_cast<int>(entry.editedRow), EntryColumn::XPCost)))
            : Val(entry.xpCost.Text());
    if (Val(sheet.SavedExperienceField.Text()) - delta < 0) return false;
    AddToNumber(sheet.SavedExperienceField, -delta);
    AddToNumber(sheet.SpentExperienceField, delta);
    return true;
}

// The items after the name with their cells: the shared ones, then the list's own.
std::vector<EntryCell> cellsOf(const EntryList& entry) {
    std::vector<EntryCell> cells = {{&entry.level, EntryColumn::Level},
                                    {&entry.cost, EntryColumn::Cost},
                                    {&entry.xpCost, EntryColumn::XPCost},
                                    {&entry.notes, EntryColumn::Notes, entry.notesOnOneLine},
                                    {&entry.reference, EntryColumn::Reference}};
    for (const EntryCell& cell : entry.ownCells) cells.push_back(cell);
    return cells;
}

}  // namespace

std::int64_t SelectedRowOr(const ListItem& list, std::int64_t current) {
    for (int row = 0; row < list.ListCount(); ++row)
        if (list.Selected(row)) current = row;
    return current;
}

bool IsDeleteKey(const std::string& key) { return key == "\x10" || key == "\x08"; }

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

void ReplaceNameChoices(CharacterSheet& sheet, const std::string& typeQuery, const ComboItem& type,
                        ComboItem& names) {
    ReplaceChoices(names, sheet.Rules().Query(typeQuery + "[@value='" + type.Text() + "']/name"));
}

std::string ChosenNamePath(const std::string& typeQuery, const ComboItem& type,
                           const ComboItem& name) {
    return typeQuery + "[@value='" + type.Text() + "']/name[@value='" + name.Text() + "']";
}

void TakeLeaf(const RuleData& rules, const std::string& path, TextItem& item) {
    item.SetText(rules.Leaf(path).value_or(""));
}

void ReadBonuses(const RuleData& rules, const std::string& path, std::span<const char* const> keys,
                 std::span<std::int64_t> values) {
    auto node = rules.Record(path);
    for (std::size_t i = 0; i < keys.size(); ++i)
        values[i] = node ? Whole(node->Attribute(keys[i])) : 0;
}

bool ReadBonuses(const RuleData& rules, const std::string& path, std::span<const char* const> keys,
                 std::span<std::string> values) {
    auto node = rules.Record(path);
    for (std::size_t i = 0; i < keys.size(); ++i) values[i] = node ? node->Attribute(keys[i]) : "";
    return node.has_value();
}

void FillCosts(const XmlNode& costs, bool reachesHighPrice, TextItem& costPerLevel,
               TextItem& xpCostPerLevel, std::initializer_list<TextItem*> runningCosts) {
    const auto perLevel = [&](const std::string& key) {
        return costs.Attribute(key) + "/" +
               (reachesHighPrice ? costs.Attribute(key + "_highvalue") : "-");
    };
    costPerLevel.SetText(perLevel("creationcost"));
    xpCostPerLevel.SetText(perLevel("experiencecost"));
    for (TextItem* item : runningCosts) item->SetText("0");
}

void PopulateEntry(CharacterSheet& sheet, const EntryList& entry, const ComboItem& chosen,
                   const std::function<void(const RuleData& rules)>& fill) {
    try {
        entry.name.SetText(chosen.Text());
        fill(sheet.Rules());
        entry.editedRow = -1;
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

std::optional<int> RecordEntry(CharacterSheet& sheet, const EntryList& entry,
                               bool prerequisitesMet) {
    bool record = prerequisitesMet;
    if (!record) sheet.Host().MsgBox("Prerequisites are not met. This cannot be purchased.");
    if (auto paid = payExperienceInPlay(sheet, entry)) record = *paid;
    if (entry.name.Text().empty()) record = false;
    if (!record) return std::nullopt;

    ListItem& list = entry.list;
    int row = static_cast<int>(entry.editedRow);
    if (entry.editedRow > -1) {
        list.SetCell(row, EntryColumn::Name, entry.name.Text());
    } else {
        list.AddRow(entry.name.Text());
        row = list.LastIndex();
    }
    entry.name.SetText("");
    for (const EntryCell& cell : cellsOf(entry)) {
        const std::string& text = cell.item->Text();
        list.SetCell(row, cell.column, cell.lineEndsToBlanks ? LineEndsToBlanks(text) : text);
        cell.item->SetText("");
    }
    return row;
}

int PullBackEntry(const EntryList& entry) {
    entry.editedRow = SelectedRowOr(entry.list, entry.editedRow);
    const int row = static_cast<int>(entry.editedRow);
    entry.name.SetText(entry.list.Cell(row, EntryColumn::Name));
    for (const EntryCell& cell : cellsOf(entry))
        cell.item->SetText(entry.list.Cell(row, cell.column));
    return row;
}

void RecordBonuses(ListItem& list, int row, int first, std::span<std::int64_t> values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        list.SetCell(row, first + static_cast<int>(i), Str(static_cast<double>(values[i])));
        values[i] = 0;
    }
}

void RecordBonuses(ListItem& list, int row, int first, std::span<std::string> values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        list.SetCell(row, first + static_cast<int>(i), values[i]);
        values[i].clear();
    }
}

void PullBackBonuses(const ListItem& list, int row, int first, std::span<std::int64_t> values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = Whole(list.Cell(row, first + static_cast<int>(i)));
}

void PullBackBonuses(const ListItem& list, int row, int first, std::span<std::string> values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = list.Cell(row, first + static_cast<int>(i));
}

void DeleteSelectedRowsWithRefund(CharacterSheet& sheet, ListItem& list) {
    int last = 0;
    // The count is read afresh at each step and the walk goes on past a removed row, so the
    // row that slides into its place is not looked at.
    for (int row = 0; row < list.ListCount(); ++row) {
        if (!list.Selected(row)) continue;
        const double refund = Val(list.Cell(row, EntryColumn::XPCost));
        AddToNumber(sheet.SavedExperienceField, refund);
        AddToNumber(sheet.SpentExperienceField, -refund);
        last = row;
        list.RemoveRow(row);
    }
    if (list.ListCount() == 0) return;
    list.SetListIndex(last >= list.ListCount() ? list.ListCount() - 1 : last);
}

void AddRemovalOperations(OperationTable& table, const RemovalOperationNames& names,
                          ListItem CharacterSheet::*list, void (*afterDelete)(CharacterSheet&)) {
    const auto deleteRows = [list, afterDelete](CharacterSheet& sheet) {
        DeleteSelectedRowsWithRefund(sheet, sheet.*list);
        if (afterDelete) afterDelete(sheet);
    };
    AddOperation(table, names.deleteRow, deleteRows);
    AddOperation(table, names.removeButton, [deleteRows](CharacterSheet& sheet) {
        deleteRows(sheet);
        FigureSecondaryAttributes(sheet);
    });
    // Lighter than the button on purpose: the totals wait for the next recomputation.
    AddOperationWithArgument(table, names.keyDown,
                             [deleteRows](CharacterSheet& sheet, const std::string& key) {
                                 if (IsDeleteKey(key)) deleteRows(sheet);
                             });
    AddOperation(table, names.separator,
                 [list](CharacterSheet& sheet) { (sheet.*list).AddRow("--"); });
}

void AddToNumber(TextItem& item, double amount) { item.SetText(Str(Val(item.Text()) + amount)); }

double StepLevel(TextItem& level, double step) {
    const double stepped = Val(level.Text()) + step;
    level.SetText(Str(stepped));
    return stepped;
}

double LevelPrice(const std::string& perLevel, double level, double highFrom) {
    return Val(NthField(perLevel, "/", level < highFrom ? 1 : 2));
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
