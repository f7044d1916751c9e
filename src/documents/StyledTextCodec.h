// The styled text of the sheet's long fields in a character file, and the one way a styled
// text reaches a styled item. Each field is written twice: plain paragraphs (`p`) for the
// stylesheets and style runs (`sr`) for the way back.
#pragma once

#include <string>

#include "ruledata/XmlNode.h"
#include "sheet/StyledText.h"

typedef struct _xmlNode xmlNode;

namespace zeph {

class TextItem;

// Appends the field element `elementName`, with its p and sr children, to `parent`. Callers
// leave out an empty field.
void ConvertStyledTextToXML(const StyledText& styledText, xmlNode* parent,
                            const std::string& elementName);
// A styled text from the `sr` nodes of a field. The colour's blue is taken from its green.
StyledText ConvertXMLToStyledText(const XmlNodeList& nodes);
// Puts the styled text into the item, which ends visible with an empty selection at the
// start; callers that want the item hidden hide it again.
void StyledTextQuick(TextItem& item, const StyledText& styledText);

// All line ends of a text as line feeds: CR LF first, then lone CR.
std::string NormaliseLineEnds(const std::string& text);

}  // namespace zeph
