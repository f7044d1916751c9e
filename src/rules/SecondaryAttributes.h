// The one recomputation of the sheet.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void FigureSecondaryAttributes(CharacterSheet& sheet);

void AddSecondaryAttributeOperations(OperationTable& table);

}  // namespace zeph
