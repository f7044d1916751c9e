// Attributes and point accounting: what the character has spent in each budget, the optional
// skill and age rules, the placing of free bonus points, and the status line.
#pragma once

#include <cstdint>
#include <string>

#include "sheet/Operations.h"

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
// The six *Bonus_MouseDown operations: place one free point on the attribute (0 to 5).
void AttributeBonus_MouseDown(CharacterSheet& sheet, int attribute);
void OptionalSkillPointBox_Action(CharacterSheet& sheet);

void AddPointAccountingOperations(OperationTable& table);

}  // namespace zeph
