// The operations of a sheet by name, so that the window, the console and the tests all call
// the same operation for an event. Each rule area adds its own.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zeph {

class CharacterSheet;

struct Operation {
    // The result is set for the operations that compute a figure (the sums of the budgets).
    std::function<std::optional<std::string>(CharacterSheet&, const std::string& argument)> run;
};

using OperationTable = std::map<std::string, Operation>;

// Every operation of the sheet, built once.
const OperationTable& SheetOperations();

// Helpers for the rule areas to fill the table.
void AddOperation(OperationTable& table, const std::string& name,
                  std::function<void(CharacterSheet&)> run);
void AddResultOperation(OperationTable& table, const std::string& name,
                        std::function<std::string(CharacterSheet&)> run);
void AddOperationWithArgument(OperationTable& table, const std::string& name,
                              std::function<void(CharacterSheet&, const std::string&)> run);

// The rule areas' contributions.
void AddSheetOperations(OperationTable& table);
void AddCharacterTypeOperations(OperationTable& table);
void AddPointAccountingOperations(OperationTable& table);
void AddSecondaryAttributeOperations(OperationTable& table);
void AddQualityBonusOperations(OperationTable& table);

// Which operation an item's change fires: the text of a text, combo or choice; the state of a
// flag.
struct ChangeHook {
    std::string item;
    std::string operation;
};
const std::vector<ChangeHook>& SheetChangeHooks();

}  // namespace zeph
