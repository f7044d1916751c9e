// Metaphysics: the powers offered by the character's qualities, chosen into the entry items,
// stepped between a lowest and a highest level, recorded as rows of MetaListBox (prerequisites
// with alternatives, experience in play), pulled back, removed (the removal operations every
// big list has, EntryLists.h); and the sum of their bonuses.
#pragma once

#include <array>
#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// The attribute bonuses of m_attributes (columns 11 to 18) and the point bonuses of m_bonuspts
// (columns 19 to 24), as the rule data names them.
inline constexpr std::array<const char*, 8> kMetaAttributeBonusKeys = {
    "strength",   "dexterity", "constitution",    "intelligence",
    "perception", "willpower", "mentalattrbonus", "physicalattrbonus"};
inline constexpr std::array<const char*, 6> kMetaPointBonusKeys = {
    "bonuslifepts", "bonusendurance", "bonusessence", "bonusspeed", "bonustaintpool",
    "bonusmadnesspool"};

void LoadMetaTypes(CharacterSheet& sheet);
void MetaTypePopup_Change(CharacterSheet& sheet);
// True when a quality row's name contains one of the alternatives ("||") of the text.
bool MetaCheckQualityPrereq(CharacterSheet& sheet, const std::string& text);
void PopulateMetaInfo(CharacterSheet& sheet);
void MetaUpDownArrows_Up(CharacterSheet& sheet);
void MetaUpDownArrows_Down(CharacterSheet& sheet);
void MetaRecordButton_Action(CharacterSheet& sheet);
void MetaListBox_DoubleClick(CharacterSheet& sheet);
// Renews m_all_bonuses: per column 11 to 24, the sum over the rows of the bonus times the level.
void MetaGetBonus(CharacterSheet& sheet);

void AddMetaphysicsOperations(OperationTable& table);

}  // namespace zeph
