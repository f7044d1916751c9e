// The character file: the one place where a sheet becomes a document and a document a sheet.
// The document is also the input of every export stylesheet, so its element and attribute
// order and its whitespace nodes are a published format. Writing and reading are deliberately
// not mirror images (drama points are written and never read, the journal is read from its
// style runs only, the loaded lists hold only the saved value).
#pragma once

#include <string>

#include "documents/XmlDocument.h"

namespace zeph {

class CharacterSheet;
class RuleData;

// The sheet as a character document. Changes nothing on the sheet, except that an open
// journal window's text is first copied into the sheet's journal.
XmlDocument SaveXMLChar(CharacterSheet& sheet);
// Fills a new, empty sheet from the file at `path`; an empty path, or one that is gone, asks
// through the open dialog. A cancelled choice or a file that cannot be read closes the
// character (`characterClosed`).
void LoadXMLCharSheet(CharacterSheet& sheet, const std::string& path);

// Fills a new, empty sheet from a character document already read (a file, or a sheet's own
// document); false when the document is damaged, the character then closed.
bool FillCharSheet(CharacterSheet& sheet, const RuleData& document);
// The warning of a character whose books the loaded rule data does not all cover, or "" when
// the counts agree.
std::string BookWarning(const std::string& characterBooks, const std::string& loadedBooks);

}  // namespace zeph
