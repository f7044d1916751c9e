// The journal of a character as its window holds it: a styled text of its own, apart from the
// sheet's hidden JournalField, and copied across at fixed moments: from the sheet when the
// window opens, back to the sheet when it closes or the character is saved.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "sheet/AttachedWindow.h"
#include "sheet/Item.h"

namespace zeph {

class CharacterSheet;

class Journal : public JournalWindowHandle {
public:
    // Opens the journal of the character, or gives null when it is open already. `closeView`
    // closes the window that shows it; that window's closing then calls Event_Close.
    static std::unique_ptr<Journal> OpenTheJournal(CharacterSheet& sheet,
                                                   std::function<void()> closeView);
    ~Journal() override;

    const std::string& Title() const { return title_; }
    TextItem& Field() { return JournalField; }
    StyledText JournalText() const override { return JournalField.Styled(); }
    void Close() override { closeView_(); }
    // The window closes: its text goes back to the sheet.
    void Event_Close();

private:
    Journal(CharacterSheet& sheet, std::function<void()> closeView);

    ItemRegistry items_;
    TextItem JournalField{items_, "JournalField", ItemKind::Styled};
    CharacterSheet& sheet_;
    std::function<void()> closeView_;
    std::string title_;
};

}  // namespace zeph
