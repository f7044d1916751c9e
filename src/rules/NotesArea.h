// The notes area of the Description tab: four toggle buttons choose which of the four notes
// fields stands in the one place they share. Bringing in the alternate-form field writes it
// anew from the sheet.
#pragma once

#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// Raises all four buttons.
void UnselectButtons(CharacterSheet& sheet);
// Shows the field of `name` ("Notes", "Contacts", "History", "AltForm"; anything else counts
// as "Notes") alone, and makes it the current one.
void SwapFields(CharacterSheet& sheet, const std::string& name);

// A click on a button: it toggles, and a button that ends up down brings in its field.
void NotesButton_Action(CharacterSheet& sheet);
void ContactsButton_Action(CharacterSheet& sheet);
void HistoryButton_Action(CharacterSheet& sheet);
void AltFormButton_Action(CharacterSheet& sheet);

// What the Description tab's style bar acts on. Styles and a chosen size: the field of the first
// pressed button in button order, or none. Fonts: the same for the first three buttons, and
// otherwise the alternate forms as long as their button is visible, pressed or not.
class TextItem;
TextItem* DescripStylesTarget(CharacterSheet& sheet);
TextItem* DescripFontsTarget(CharacterSheet& sheet);

void AddNotesAreaOperations(OperationTable& table);

}  // namespace zeph
