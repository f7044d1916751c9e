// The export of one character: the raw character document, or what a stylesheet beside the
// application makes of it. The window's state as items, so the view only shows them.
#pragma once

#include <string>

#include "documents/PdfSheet.h"
#include "documents/XmlDocument.h"
#include "sheet/Item.h"

namespace zeph {

class CharacterSheet;

// Made of the character's document by each form of the export.
struct ExportForm {
    const char* name;
    const char* stylesheet;  // "" for the document itself
    bool withoutDeclaration;
    bool preview;
    const char* extension;  // of the saved file
};
// The forms with a stylesheet, in the menu's order; `nullptr` when `name` is none of them.
const ExportForm* FindExportForm(const std::string& name);
// Where the export looks for the stylesheet `fileName` of the program in `applicationFolder`.
std::string StylesheetPath(const std::string& applicationFolder, const std::string& fileName);
inline constexpr const char* kXmlDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

class ExportWindow {
public:
    explicit ExportWindow(CharacterSheet& callingWindow);
    ExportWindow(const ExportWindow&) = delete;
    ExportWindow& operator=(const ExportWindow&) = delete;

    const ItemRegistry& Items() const { return items_; }

    // Takes the character's document as it is now and names the window after the character.
    void GetXML();
    // The text the stylesheet beside the application makes of the document; asks where it is
    // when it is missing, and gives "" when it is not found or fails.
    std::string RunTransform(const std::string& fileName);
    void PopupMenu1_Change();
    void PreviewButton_Action();
    void SaveButton_Action();

    const std::string& Title() const { return title_; }
    // The paper a saved PDF is laid out on.
    PageSize pdfPage = LocalePageSize();

private:
    ItemRegistry items_;

public:
    TextItem EditField1{items_, "EditField1"};
    ComboItem PopupMenu1{items_, "PopupMenu1", ItemKind::Choice,
                         {"XML", "-", "HTML", "PDF", "Text", "Summary", "Wiki Code", "-", "Custom"}};
    TextItem PreviewButton{items_, "PreviewButton", ItemKind::Label, "Preview in Browser"};
    // Whether the Save Export button can be pressed.
    FlagItem SaveButton{items_, "SaveButton", false};

private:
    CharacterSheet& callingWindow_;
    XmlDocument xchar_;
    std::string title_;
};

}  // namespace zeph
