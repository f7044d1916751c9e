// Quality bonuses: the attribute bonuses of the rows of QualityListBox and the pool summary.
// The per-row bonus pass that feeds the budgets runs inside the recomputation.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void QualityGetBonus(CharacterSheet& sheet);

void AddQualityBonusOperations(OperationTable& table);

}  // namespace zeph
