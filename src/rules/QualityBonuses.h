// Quality bonuses: the attribute bonuses of the rows of QualityListBox and the pool summary.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void QualityGetBonus(CharacterSheet& sheet);

void AddQualityBonusOperations(OperationTable& table);

}  // namespace zeph
