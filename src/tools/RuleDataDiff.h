// What a new rule data file would change on a character, before it is loaded: each recorded row
// of the three big lists whose prices, cost or bonuses the new file gives otherwise, the names it
// no longer holds, and the budgets and secondary figures a recomputation would give. Both sides
// are worked out the same way, on copies of the character over each file: a row as choosing
// its name afresh and stepping it to its recorded level gives it, the figures as the
// recomputation gives them. The character itself, and its file, stay as they are.
#pragma once

#include <string>
#include <vector>

#include "sheet/Operations.h"

namespace zeph {

class DataModule;
class RuleData;

// One reading, as the file in use and the new one give it.
struct ReadingChange {
    std::string name, before, after;
};

struct RowChange {
    std::string list;  // "Quality", "Skill" or "Metaphysic"
    std::string name;
    std::string level;
    bool gone = false;  // the new file does not hold the name
    std::vector<ReadingChange> readings;
};

struct CharacterChanges {
    std::string character;
    // The character type and choice, when the new file does not hold them.
    std::string lostType;
    std::vector<RowChange> rows;
    std::vector<ReadingChange> figures;
    bool Empty() const { return lostType.empty() && rows.empty() && figures.empty(); }
};

// `character` is a character document; `operations` the sheet's table, for the copies.
CharacterChanges DiffRuleData(const RuleData& character, DataModule& before, DataModule& after,
                              const OperationTable& operations);

// Why the character is not one of `rules`: its books (as opening it would warn) or its type
// are not in the file; "" when it is.
std::string ForeignCharacterReason(const RuleData& character, const DataModule& rules);

// The report as text: one block a character, old and new side by side.
std::string ChangesAsText(const CharacterChanges& changes);

}  // namespace zeph
