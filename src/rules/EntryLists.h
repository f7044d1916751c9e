// What the three big lists (qualities, skills, metaphysics) share: rows bought through entry
// items, paid for in experience while in play, pulled back for editing, and removed with a
// refund of their experience.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zeph {

class CharacterSheet;
class ComboItem;
class ListItem;
class TextItem;
class XmlNodeList;

// The keys that remove a row: Chr(16) and Chr(8) (Backspace).
bool IsDeleteKey(const std::string& key);
// A row of "--" and nothing else, at the end.
void AddSeparatorRow(ListItem& list);
// Adds the attribute `value` of each node as a choice, in order.
void AddValueChoices(ComboItem& combo, const XmlNodeList& nodes);
// Empties the list, then adds the nodes' values.
void ReplaceChoices(ComboItem& combo, const XmlNodeList& nodes);
// The loader of a type list: empties it, then fills it from the query; a failure shows its
// report and leaves the list empty.
void LoadChoices(CharacterSheet& sheet, ComboItem& combo, const std::string& query);

// The row a double-click pulls back: the last selected one, or `current` when none is.
std::int64_t SelectedRowOr(const ListItem& list, std::int64_t current);
// Removes the selected rows, giving their experience (column 3) back whether in play or not,
// then selects the row where the last one stood, or the last row.
void DeleteSelectedRowsWithRefund(CharacterSheet& sheet, ListItem& list);

// In play, pays for the entry: the whole experience cost of a new row, or the change of cost
// of the edited row `editedRow`. Answers whether the experience sufficed (and was taken);
// nullopt out of play, where nothing is paid.
std::optional<bool> PayExperienceInPlay(CharacterSheet& sheet, const ListItem& list,
                                        std::int64_t editedRow, const TextItem& xpCost);

// The common start of recording an entry: the prerequisites message when they are not met;
// in play, experience decides instead (and is taken even when the empty name then refuses).
// Answers the row to write, the edited one or a new one at the end, with the name moved into
// column 0; nullopt when the record is refused.
std::optional<int> StartRecord(CharacterSheet& sheet, ListItem& list, bool prerequisitesMet,
                               std::int64_t editedRow, const TextItem& xpCost, TextItem& name);

// Adds `amount` to the number in the item, written back as a number.
void AddToNumber(TextItem& item, double amount);
// The price of one level from a "low/high" text: the low one for levels below `highFrom`.
double LevelPrice(const std::string& perLevel, double level, double highFrom);
// Copies the entry item into the cell and empties the item, as recording does.
void MoveIntoCell(TextItem& item, ListItem& list, int row, int column);
// A text with each line end (CR LF, CR or LF) made one blank.
std::string LineEndsToBlanks(const std::string& text);

}  // namespace zeph
