// Operations of a sheet by name, so that the window, the console and the tests all call the same
// operation for an event. The sheet adds its own few; each rule area adds its own.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace zeph {

class CharacterSheet;
class Item;

struct Operation {
    // The result is set for the operations that compute a figure (the sums of the budgets).
    std::function<std::optional<std::string>(CharacterSheet&, const std::string& argument)> run;
};

using OperationTable = std::map<std::string, Operation>;

void AddOperation(OperationTable& table, const std::string& name,
                  std::function<void(CharacterSheet&)> run);
void AddResultOperation(OperationTable& table, const std::string& name,
                        std::function<std::string(CharacterSheet&)> run);
void AddOperationWithArgument(OperationTable& table, const std::string& name,
                              std::function<void(CharacterSheet&, const std::string&)> run);

// The operation an item's change fires, by the item's kind: "_TextChange" for text items,
// "_Change" for combos and choices, "_Action" for flags, "" for lists and toggles. The sheet
// runs it, when the table has it, each time the item's text or flag changes, the rules' own
// writes included.
std::string ChangeOperationName(const Item& item);

// The sheet's own operations: the change operations that only mark it dirty, and the title.
void AddSheetOperations(OperationTable& table);

}  // namespace zeph
