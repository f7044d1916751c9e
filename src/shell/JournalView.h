// The journal window of one character: a styled text of its own, edited here and handed back
// to the character when the window closes.
#pragma once

#include <QMainWindow>
#include <memory>

#include "shell/Menus.h"

class QTextEdit;

namespace zeph {
class CharacterSheet;
class Journal;
}  // namespace zeph

namespace zeph::gui {

class SheetBinder;

class JournalView : public QMainWindow, public CommandTarget {
  public:
    // Opens the character's journal; does nothing when it is open already.
    static void OpenTheJournal(CharacterSheet& sheet, QWidget* parent, const MenuSources& menus);
    ~JournalView() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    JournalView(CharacterSheet& sheet, QWidget* parent);

    std::unique_ptr<Journal> journal_;
    // After the journal, so the binding lets go of its field first.
    std::unique_ptr<SheetBinder> binder_;
    QTextEdit* field_ = nullptr;
};

}  // namespace zeph::gui
