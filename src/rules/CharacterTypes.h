// Character types: the lists of the background block, the reaction to a new type or choice,
// and the qualities that a choice brings with it.
#pragma once

#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void LoadCharacterTypes(CharacterSheet& sheet);
void LoadConceptBox(CharacterSheet& sheet);
void LoadAssociationCombo(CharacterSheet& sheet);
void CharacterTypePopup_Change(CharacterSheet& sheet);
void ChooseCharPopup_Change(CharacterSheet& sheet);
void ChooseCharPopup_LostFocus(CharacterSheet& sheet);
void AssociationCombo_Change(CharacterSheet& sheet);
// Replaces the required qualities of the last application with those of type and choice.
void AddQualityFromCharType(CharacterSheet& sheet, const std::string& type,
                            const std::string& choice);

void AddCharacterTypeOperations(OperationTable& table);

}  // namespace zeph
