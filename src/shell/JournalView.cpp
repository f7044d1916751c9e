#include "shell/JournalView.h"

#include <QCloseEvent>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/Journal.h"
#include "sheet/CharacterSheet.h"
#include "shell/CoreCall.h"
#include "shell/ItemBinding.h"
#include "shell/StyleBar.h"

namespace zeph::gui {

void JournalView::OpenTheJournal(CharacterSheet& sheet, QWidget* parent, const MenuSources& menus) {
    if (sheet.journalWindowIsOpen) return;  // no window made only to be thrown away
    auto* view = new JournalView(sheet, parent);
    CallCore([&] { view->journal_ = Journal::OpenTheJournal(sheet, [view] { view->close(); }); });
    if (!view->journal_) {
        delete view;
        return;
    }
    view->setWindowTitle(QString::fromStdString(view->journal_->Title()));
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    auto* field = static_cast<QTextEdit*>(view->binder_->StyledField(view->journal_->Field()));
    view->field_ = field;
    const auto journal = [field] { return field; };
    layout->addWidget(MakeStyleBar({"StylesBevelButton", "FontsBevelButton", "SizeButton", "12",
                                    journal, journal, journal, journal, "Journal"}));
    layout->addWidget(field);
    view->setCentralWidget(central);
    view->binder_->ShowAll();
    if (menus.recentItems) BuildMenuBar(*view, menus);
    view->resize(560, 480);
    ShowInFront(*view);
}

JournalView::JournalView(CharacterSheet& sheet, QWidget* parent) : QMainWindow(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    // Closing, and the Format menu on the journal's field.
    commands_["FileClose"] = [this] { close(); };
    for (const std::string& format : FormatCommands())
        commands_[format] = [this, format] { FormatSelection(*field_, format); };
    binder_ = std::make_unique<SheetBinder>(
        sheet, [](const std::function<void()>& work) { CallCore(work); }, this);
}

JournalView::~JournalView() { binder_.reset(); }

void JournalView::closeEvent(QCloseEvent* event) {
    if (journal_) CallCore([&] { journal_->Event_Close(); });
    event->accept();
}

}  // namespace zeph::gui
