// Qualities and drawbacks: choosing one from the rule data into the entry items, stepping its
// level, recording it as a row of QualityListBox (prerequisites, experience in play, the pool
// markers), pulling a row back, removing rows, and keeping drawbacks behind the qualities. The
// removal operations are those every big list has (EntryLists.h), under the qualities' names.
#pragma once

#include <array>
#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// A quality's point bonuses in the rule data, in the order of q_bonuspts and columns 17 to 25.
inline constexpr int kQualityBonusPointCount = 9;
inline constexpr std::array<const char*, kQualityBonusPointCount> kQualityBonusPointKeys = {
    "bonusskill",   "optskillbonus", "bonusmeta",  "bonusattr",     "bonusessence_attrbased",
    "bonusessence", "bonuslifepts",  "bonusspeed", "bonusendurance"};

void LoadQualityTypes(CharacterSheet& sheet);
void QualityTypePopup_Change(CharacterSheet& sheet);
void PopulateQualityInfo(CharacterSheet& sheet);
void QualityUpDownArrows_Up(CharacterSheet& sheet);
void QualityUpDownArrows_Down(CharacterSheet& sheet);
void QualityRecordButton_Action(CharacterSheet& sheet);
void QualityListBox_DoubleClick(CharacterSheet& sheet);
void QualitiesSeparateQDBox_Action(CharacterSheet& sheet);
// A hand ordering of the list (a drag or a header press) switches automatic separation off.
void QualityListBox_DragReorderRows(CharacterSheet& sheet);
void QualityListBox_HeaderPressed(CharacterSheet& sheet);
// Moves the drawbacks (rows whose costs sum below 0) behind the qualities, keeping each
// group's order.
void SeparateQD(CharacterSheet& sheet);

void AddQualityOperations(OperationTable& table);

}  // namespace zeph
