// The moves of a Martial Arts skill and the visualizations of a Lucid Dream skill, in
// SkillMartialVisualListBox while the skill is in the edit buffer: bought from a free pool
// that the skill's level sets, then with experience, through a contextual menu.
#pragma once

#include <string>
#include <vector>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// The items of the list's contextual menu, in order; "-" is a separator.
std::vector<std::string> SkillMartialVisualListBox_ConstructContextualMenu(CharacterSheet& sheet);
void SkillMartialVisualListBox_ContextualMenuAction(CharacterSheet& sheet, const std::string& item);

void AddMartialMoveOperations(OperationTable& table);

}  // namespace zeph
