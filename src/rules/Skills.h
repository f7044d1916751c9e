// Skills: the two-step chooser, the edit buffer with its sub-types and specialties, the level
// arrows priced in creation points or in experience by cost class, recording into
// SkillListBox (and storing the moves list of a Martial Arts or Lucid Dream skill), pulling a
// row back, and removing rows (the removal operations every big list has, EntryLists.h).
#pragma once

#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void LoadSkillCategories(CharacterSheet& sheet);
void SkillCategoryPopup_Change(CharacterSheet& sheet);
void PopulateSkillInfo(CharacterSheet& sheet);
// Puts the chosen sub-type into the name and seeds a martial style's basic moves.
void SkillSelectPopup_Change(CharacterSheet& sheet);
void SkillSpecialtyButton_Action(CharacterSheet& sheet);
void SkillUpDownArrows1_Up(CharacterSheet& sheet);
void SkillUpDownArrows1_Down(CharacterSheet& sheet);
void SkillRecordButton_Action(CharacterSheet& sheet);
void SkillListBox_DoubleClick(CharacterSheet& sheet);

void AddSkillOperations(OperationTable& table);

}  // namespace zeph
