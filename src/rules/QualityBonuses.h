// Quality bonuses: the attribute bonuses of the rows of QualityListBox and the pool summary.
// The per-row bonus pass that feeds the budgets runs inside the recomputation.
#pragma once

#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void QualityGetBonus(CharacterSheet& sheet);
// The same within the recomputation, which tells what the bonus items held before it.
void QualityGetBonus(CharacterSheet& sheet, const std::string& heldLabel);

void AddQualityBonusOperations(OperationTable& table);

}  // namespace zeph
