// What the character has spent in each budget, the optional skill and age rules, and the status
// line that shows them. Beneath both the attribute operations and the recomputation, which
// each read these sums.
#pragma once

#include <cstdint>
#include <string>

namespace zeph {

class CharacterSheet;

std::string SumQualityPoints(CharacterSheet& sheet);
std::string SumDrawbackPts(CharacterSheet& sheet);
std::string SumMetaPts(CharacterSheet& sheet);
std::string SumSkillPts(CharacterSheet& sheet);
std::string SumAttrPts(CharacterSheet& sheet);
std::int64_t CalcSkillPts(CharacterSheet& sheet);
std::int64_t CalcAgeAttrbPenalty(CharacterSheet& sheet);
void ShowBonus(CharacterSheet& sheet);

}  // namespace zeph
