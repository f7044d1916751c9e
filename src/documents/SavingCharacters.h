// Saving a character to its file and asking about unsaved changes at closing. The file is
// written beside its target and renamed over it, so a failed save leaves the old file whole.
#pragma once

#include <string>
#include <string_view>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

// Removes what XML 1.0 may not hold, so that the file reads back: control characters other
// than tab, line feed and carriage return, U+FFFE and U+FFFF; a byte that is not UTF-8
// becomes U+FFFD. Everything else, all of Unicode beyond the first 256 included, stays.
std::string SanitiseForXml(std::string_view text);
// The sheet's document as the file holds it: sanitised, with a line end behind it.
std::string CharacterFileText(CharacterSheet& sheet);

// Writes to the bound file; does nothing while the character has none.
void SaveFile(CharacterSheet& sheet);
// Asks for a file (the name is made to end in ".xml") and binds the character to it.
void SaveAsFile(CharacterSheet& sheet);
void FileSave_Action(CharacterSheet& sheet);
void FileSaveAsCharacterFile_Action(CharacterSheet& sheet);
// True keeps the character open. Closes its journal and portrait first, then asks about
// unsaved changes.
bool Event_CancelClose(CharacterSheet& sheet);

// The saving and opening operations by name (Event_CancelClose gives "true" or "false").
void AddSavingOperations(OperationTable& table);

}  // namespace zeph
