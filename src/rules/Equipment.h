// Equipment: the equipment page is one free styled text. The rule data's catalogue offers items
// by type; choosing one writes a ready-made paragraph (its name in bold, then its labelled
// details) at the end of EquipmentField, and the encumbrance button writes the lifting capacity
// and encumbrance bands for the character's Strength. Nothing here feeds the point accounting.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void EquipLabel_Open(CharacterSheet& sheet);
// Refills EquipmentTypePopup with the catalogue's types; its text stays.
void LoadEquipmentType(CharacterSheet& sheet);
bool EquipmentTypePopup_MouseDown(CharacterSheet& sheet);
void EquipmentTypePopup_GotFocus(CharacterSheet& sheet);
// The items of the chosen type, as the field's context menu offers them; none for no type.
std::vector<std::string> EquipmentField_ConstructContextualMenu(CharacterSheet& sheet);
// Appends the item's paragraph to EquipmentField, whatever the selection.
void EquipmentField_ContextualMenuAction(CharacterSheet& sheet, const std::string& item);
// Tab puts four blanks in place of the selection and is consumed (true); other keys pass.
bool EquipmentField_KeyDown(CharacterSheet& sheet, const std::string& key);
// Lifting capacity in pounds for a Strength: the bands leap from 3750 at 15 to 6000 at 16.
std::int64_t LiftingCapacity(std::int64_t strength);
// Appends the capacity and encumbrance block for StrengthTotal to EquipmentField.
void EncumButton_Action(CharacterSheet& sheet);

void AddEquipmentOperations(OperationTable& table);

}  // namespace zeph
