#include "app/Journal.h"

#include "documents/StyledTextCodec.h"
#include "sheet/CharacterSheet.h"

namespace zeph {

std::unique_ptr<Journal> Journal::OpenTheJournal(CharacterSheet& sheet,
                                                 std::function<void()> closeView) {
    if (sheet.journalWindowIsOpen) return nullptr;
    std::unique_ptr<Journal> journal(new Journal(sheet, std::move(closeView)));
    sheet.journalWindowIsOpen = true;
    sheet.journalWindowHandle = journal.get();
    // Filling the window is an edit like any other: it marks the character unsaved.
    if (!sheet.JournalField.Text().empty()) StyledTextQuick(journal->JournalField, sheet.JournalField.Styled());
    return journal;
}

Journal::Journal(CharacterSheet& sheet, std::function<void()> closeView)
    : sheet_(sheet), closeView_(std::move(closeView)), title_("Journal for " + sheet.NameField.Text()) {
    JournalField.Observe([this](ItemChange change) {
        if (change == ItemChange::Text && !sheet_.loadingCharFile) sheet_.savedChar = false;
    });
}

Journal::~Journal() {
    if (sheet_.journalWindowHandle == this) sheet_.journalWindowHandle = nullptr;
}

void Journal::Event_Close() {
    StyledTextQuick(sheet_.JournalField, JournalField.Styled());
    sheet_.JournalField.SetVisible(false);
    sheet_.journalWindowIsOpen = false;
}

}  // namespace zeph
