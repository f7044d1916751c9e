// What the three big lists (qualities, skills, metaphysics) share: a type list and a name list
// filled from the rule data, entry items recorded into a row (paid for in experience while in
// play), a row pulled back into them for editing, and rows removed with a refund of their
// experience. Each area describes its list as an EntryList and keeps only what is its own.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;
class ComboItem;
class ListItem;
class RuleData;
class TextItem;
class XmlNode;
class XmlNodeList;

// An entry item and the cell of the row that recording fills from it and a double-click pulls
// back into it.
struct EntryCell {
    TextItem* item;
    int column;
    // Recording writes each line end of the item as one blank.
    bool lineEndsToBlanks = false;
};

// One of the three big lists, as the steps they share see it.
struct EntryList {
    ListItem& list;
    std::int64_t& editedRow;  // q_row, s_row or m_row: -1 while the items describe a new row
    // The entry items every list records first, into the columns they share.
    TextItem& name;
    TextItem& level;
    TextItem& cost;
    TextItem& xpCost;  // also what recording pays in play
    TextItem& notes;
    TextItem& reference;
    // The list's own items after them, in the order recording empties them. A double-click
    // fills the same ones; none of them has a change operation, so the order matters to no one
    // there.
    std::vector<EntryCell> ownCells = {};
    // Recording writes each line end of the notes as one blank.
    bool notesOnOneLine = false;
};

// The names an area gives its removal operations, in the order of the members.
struct RemovalOperationNames {
    const char* deleteRow;     // removes the selected rows with their refund
    const char* removeButton;  // the same, then the sheet is recomputed
    const char* keyDown;       // the delete keys: the same as deleteRow, the totals left waiting
    const char* separator;     // adds a "--" row
};

// The keys that remove a row: Chr(16) and Chr(8) (Backspace).
bool IsDeleteKey(const std::string& key);
// Adds the attribute `value` of each node as a choice, in order.
void AddValueChoices(ComboItem& combo, const XmlNodeList& nodes);
// Empties the list, then adds the nodes' values.
void ReplaceChoices(ComboItem& combo, const XmlNodeList& nodes);
// The loader of a type list: empties it, then fills it from the query; a failure shows its
// report and leaves the list empty.
void LoadChoices(CharacterSheet& sheet, ComboItem& combo, const std::string& query);

// Under a type list's query ("//qualities/type"): the names of the chosen type, and the path of
// the chosen name, both put between single quotes.
void ReplaceNameChoices(CharacterSheet& sheet, const std::string& typeQuery, const ComboItem& type,
                        ComboItem& names);
std::string ChosenNamePath(const std::string& typeQuery, const ComboItem& type,
                           const ComboItem& name);
// The item takes the value of the first child of the first node at `path`, or "" without one.
void TakeLeaf(const RuleData& rules, const std::string& path, TextItem& item);
// The whole numbers or the texts of the attributes `keys` of the first node at `path`: 0 or ""
// each without one. The second answers whether there was a node.
void ReadBonuses(const RuleData& rules, const std::string& path, std::span<const char* const> keys,
                 std::span<std::int64_t> values);
bool ReadBonuses(const RuleData& rules, const std::string& path, std::span<const char* const> keys,
                 std::span<std::string> values);

// The running costs and the per-level prices from a rule data `costs` node: the per-level
// texts are "creation/high" and "experience/high", with "-" for the high price when the
// highest level cannot reach it; level and running costs become "0".
void FillCosts(const XmlNode& costs, bool reachesHighPrice, TextItem& costPerLevel,
               TextItem& xpCostPerLevel, std::initializer_list<TextItem*> runningCosts);

// Fills the entry items from the rule data of the name chosen in `chosen`, which stands at
// `path`: the name item takes the choice, `fill` reads the rest, and the items then describe a
// new row. An XML failure shows its report and ends the filling, what was filled kept.
void PopulateEntry(CharacterSheet& sheet, const EntryList& entry, const ComboItem& chosen,
                   const std::function<void(const RuleData& rules)>& fill);

// The common start of recording an entry: the prerequisites message when they are not met;
// in play, experience decides instead (and is taken even when the empty name then refuses).
// Then the name goes to column 0 of the edited row or of a new one at the end, and each entry
// cell is written and its item emptied. Answers the row written; nullopt when refused.
std::optional<int> RecordEntry(CharacterSheet& sheet, const EntryList& entry,
                               bool prerequisitesMet);
// The last selected row, or `current` when none is.
std::int64_t SelectedRowOr(const ListItem& list, std::int64_t current);
// The start of a double-click: the last selected row becomes the edited row (with none
// selected it stays), and the name and each entry item take its cells. Answers that row.
int PullBackEntry(const EntryList& entry);

// A run of bonuses recorded into the cells from `first` on (each value then 0 or emptied),
// and pulled back from them.
void RecordBonuses(ListItem& list, int row, int first, std::span<std::int64_t> values);
void RecordBonuses(ListItem& list, int row, int first, std::span<std::string> values);
void PullBackBonuses(const ListItem& list, int row, int first, std::span<std::int64_t> values);
void PullBackBonuses(const ListItem& list, int row, int first, std::span<std::string> values);

// Removes the selected rows, giving their experience (column 3) back whether in play or not,
// then selects the row where the last one stood, or the last row.
void DeleteSelectedRowsWithRefund(CharacterSheet& sheet, ListItem& list);
// Adds the removal operations of `list` under the area's names; `afterDelete`, when given,
// runs after each deletion of rows.
void AddRemovalOperations(OperationTable& table, const RemovalOperationNames& names,
                          ListItem CharacterSheet::*list,
                          void (*afterDelete)(CharacterSheet&) = nullptr);

// Adds `amount` to the number in the item, written back as a number.
void AddToNumber(TextItem& item, double amount);
// Adds one to the number in the level item (or takes one off), writes it back and answers it.
double StepLevel(TextItem& level, double step);
// The price of one level from a "low/high" text: the low one for levels below `highFrom`.
double LevelPrice(const std::string& perLevel, double level, double highFrom);
// A text with each line end (CR LF, CR or LF) made one blank.
std::string LineEndsToBlanks(const std::string& text);

}  // namespace zeph
