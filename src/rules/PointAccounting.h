// Attributes and point accounting: the placing of free bonus points, the optional skill point
// rule's box, and the operations that reach the budget sums by name.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// The six *Bonus_MouseDown operations: place one free point on the attribute (0 to 5).
void AttributeBonus_MouseDown(CharacterSheet& sheet, int attribute);
void OptionalSkillPointBox_Action(CharacterSheet& sheet);

void AddPointAccountingOperations(OperationTable& table);

}  // namespace zeph
