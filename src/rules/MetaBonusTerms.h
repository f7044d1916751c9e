// How the metaphysics' bonus sums enter the figures that they raise, told by the metaphysics
// that gave them. Beneath both the metaphysics, which make the sums, and the recomputation and
// the quality bonuses, which read them.
#pragma once

#include "sheet/FigureTerms.h"

namespace zeph {

class CharacterSheet;

// Adds entry `entry` of m_all_bonuses to a figure, told by the metaphysics that gave it; told
// as one number when the entry was set otherwise than by MetaGetBonus, as they would not add up.
Figure& PlusMetaBonus(Figure& figure, const CharacterSheet& sheet, int entry);

}  // namespace zeph
