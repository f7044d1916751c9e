// File > Print...: the HTML character sheet on paper, by way of the same PDF the export makes.
#pragma once

class QWidget;

namespace zeph {
class CharacterSheet;
}

namespace zeph::gui {

// Qt's print dialog, then the PDF on the paper chosen there: handed to the chosen printer
// through CUPS, or written to the file that "Print to File" names.
void PrintSheet(CharacterSheet& sheet, QWidget* parent);

}  // namespace zeph::gui
