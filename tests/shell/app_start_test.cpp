// The character window over a sheet with the sample rule data, started as the app starts it:
// its widgets show the items they are named after and follow them, the user's events reach
// the sheet's named operations, and the menu commands open the character's other windows.
#include <cstdio>
#include <fstream>

#include "shell/JournalView.h"
#include "shell/char_window_fixture.h"

namespace zeph::gui {
namespace {

using AppStart = CharWindowTest;

// A player picks a type, types an attribute, leaves it for another window and comes back,
// places a free point, turns a tab and names the character: each event reaches the sheet, and each
// answer shows in the widgets.
TEST_F(AppStart, ThePlayersEventsReachTheSheet) {
    auto* types = widget<QComboBox>("CharacterTypePopup");
    chooseType("Human", "Hero");
    EXPECT_EQ(sheet().ChooseCharPopup.Text(), "Hero");
    ASSERT_EQ(sheet().physicalBonus, 3);

    auto* strength = widget<QLineEdit>("StrengthField");
    focus(strength, QEvent::FocusIn);
    type(strength, "4");
    EXPECT_EQ(sheet().StrengthTotal.Text(), "0") << "the total waits for the field to be left";
    focus(strength, QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "0") << "another window came to the front";
    // The user clicks straight onto the type list of the inactive window: it is activated
    // onto that list, and the field that held the focus has been left.
    sheet().CharacterTypePopup.DeleteAllRows();
    focus(types, QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(sheet().CharacterTypePopup.ListCount(), 4) << "filled as at any other focus";
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "4");

    press(widget<QLabel>("StrengthBonus"));
    EXPECT_EQ(sheet().physicalBonus, 2);
    EXPECT_EQ(widget<QLabel>("StrengthBonus")->text(), "1");
    sheet().StrengthField.SetText("3");
    widget<QTabWidget>("TabPanel1")->setCurrentIndex(2);
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "3") << "a partly placed point goes back";

    auto* name = widget<QLineEdit>("NameField");
    focus(name, QEvent::FocusIn);
    type(name, "Ann");
    focus(name, QEvent::FocusOut);
    EXPECT_EQ(window_->windowTitle(), "Zephalon CC: Ann");
}

// Edit > Undo, away from a text field, takes back whole steps: a record with its row and
// budget, a free point, typing with the recomputation at leaving the field, a type with the
// choice list it filled; Redo does them again, and the saved mark follows.
TEST_F(AppStart, UndoAndRedoTakeWholeStepsOfTheSheet) {
    window_->show();
    QApplication::setActiveWindow(window_.get());
    QMenu* edit = window_->menuBar()->findChild<QMenu*>("EditMenu");
    const auto undoCaption = [&] {
        emit edit->aboutToShow();
        return action("EditUndo")->text().toStdString();
    };
    const auto rows = [&] {
        QApplication::processEvents();  // the list shows its rows once back in the event loop
        return widget<QTreeWidget>("QualityListBox")->topLevelItemCount();
    };
    chooseType("Human", "Hero");
    auto* strength = widget<QLineEdit>("StrengthField");
    focus(strength, QEvent::FocusIn);
    type(strength, "4");
    focus(strength, QEvent::FocusOut);
    press(widget<QLabel>("StrengthBonus"));
    auto* types = widget<QComboBox>("QualityTypePopup");
    press(types);
    types->setCurrentIndex(0);
    auto* qualities = widget<QComboBox>("QualityPopup");
    press(qualities);
    qualities->setCurrentIndex(0);
    widget<QToolButton>("QualityUpDownArrows_Up")->click();
    widget<QPushButton>("QualityRecordButton")->click();
    ASSERT_EQ(rows(), 1);
    const std::string spent = widget<QLineEdit>("QualityField")->text().toStdString();
    const QString life = widget<QLineEdit>("LifePointsTotal")->text();

    widget<QPushButton>("QualityRecordButton")->setFocus();
    EXPECT_EQ(undoCaption(), "Undo Record Quality");
    action("EditUndo")->trigger();
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(widget<QLineEdit>("QualityField")->text().toStdString(), "0/20");
    for (int step = 0; step < 3; ++step) action("EditUndo")->trigger();  // arrow, quality, type
    EXPECT_EQ(undoCaption(), "Undo Place Free Point on Strength");
    action("EditUndo")->trigger();
    EXPECT_EQ(widget<QLabel>("StrengthBonus")->text(), "0");
    EXPECT_EQ(sheet().physicalBonus, 3);
    EXPECT_EQ(undoCaption(), "Undo Typing in Strength");
    action("EditUndo")->trigger();
    EXPECT_EQ(strength->text(), "");
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "0");
    for (int step = 0; step < 2; ++step) action("EditUndo")->trigger();  // the choice, the type
    EXPECT_EQ(widget<QComboBox>("ChooseCharPopup")->count(), 0);
    EXPECT_TRUE(sheet().savedChar);
    EXPECT_EQ(undoCaption(), "&Undo");

    widget<QPushButton>("QualityRecordButton")->setFocus();
    for (int step = 0; step < 8; ++step) action("EditRedo")->trigger();
    EXPECT_FALSE(sheet().savedChar);
    EXPECT_EQ(widget<QComboBox>("ChooseCharPopup")->currentText(), "Hero");
    EXPECT_EQ(widget<QLineEdit>("LifePointsTotal")->text(), life);
    EXPECT_EQ(strength->text(), "4");
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(widget<QLineEdit>("QualityField")->text().toStdString(), spent);
    // In a text field the commands are the field's own.
    strength->setFocus();
    type(strength, "1");
    EXPECT_EQ(undoCaption(), "&Undo");
    action("EditUndo")->trigger();
    EXPECT_EQ(strength->text(), "4");
    EXPECT_EQ(sheet().StrengthField.Text(), "4");
    EXPECT_EQ(rows(), 1);
    press(qualities);
    EXPECT_TRUE(qualities->view()->isVisible()) << "a list fills at the press, then opens";
    qualities->hidePopup();
}

TEST_F(AppStart, EveryItemHasAWidgetAndBothFollowEachOther) {
    for (const Item* item : sheet().Items().All()) widget<QWidget>(item->Name().c_str());

    EXPECT_TRUE(widget<QWidget>("DPField")->isHidden() && !widget<QWidget>("WeightField")->isEnabled());  // from the start
    type(widget<QLineEdit>("HairField"), "red");
    EXPECT_EQ(sheet().HairField.Text(), "red");
    auto* conceptBox = widget<QComboBox>("ConceptBox");  // a combo takes typed text, and Return adds no row
    ASSERT_TRUE(conceptBox->lineEdit() && !widget<QComboBox>("QualityPopup")->isEditable());
    const int rows = conceptBox->count();
    type(conceptBox->lineEdit(), "Drifter");
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(conceptBox->lineEdit(), &enter);
    EXPECT_EQ(sheet().ConceptBox.Text() + "/" + std::to_string(conceptBox->count() - rows), "Drifter/0");
    conceptBox->addItem("Only on screen");  // a row the sheet lacks is not chosen
    conceptBox->setCurrentIndex(rows);
    EXPECT_EQ(sheet().ConceptBox.ListIndex(), -1);
    sheet().EyesField.SetText("grey with a fleck of green");  // read from its start
    EXPECT_EQ(widget<QLineEdit>("EyesField")->cursorPosition(), 0);
    StyleRun lamp("Lamp");  // each style kept through the field, and the line ends
    lamp.bold = lamp.italic = lamp.underline = true;
    std::tie(lamp.font, lamp.size, lamp.color) = std::tuple("DejaVu Serif", 14, 0x336699u);
    sheet().EquipmentField.SetStyled(StyledText{{StyleRun{"Rope", true}}});
    sheet().EquipmentField.SetStyled(StyledText{{lamp, StyleRun{" oil\n"}}});  // in place of the rope
    auto* equipment = widget<QTextEdit>("EquipmentField");
    equipment->moveCursor(QTextCursor::End);
    equipment->insertPlainText("15 ");
    auto* pasted = new QMimeData;  // a page's look stays out of the sheet: only its text comes
    pasted->setHtml("<b style='color:red'>m</b>"), pasted->setText("m");
    QApplication::clipboard()->setMimeData(pasted);
    equipment->paste();
    const std::vector<StyleRun>& runs = sheet().EquipmentField.Styled().runs;
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_TRUE(runs[0].text == "Lamp" && runs[0].SameStyle(lamp));
    EXPECT_TRUE(runs[1].text == " oil\n15 m" && runs[1].SameStyle(StyleRun()));
    widget<QPushButton>("ContactsButton")->click();  // a toggle shows what its operation left
    EXPECT_TRUE(widget<QPushButton>("ContactsButton")->isChecked());
    EXPECT_FALSE(widget<QPushButton>("NotesButton")->isChecked());
    sheet().NotesButton.SetValue(true);  // and the sheet's own setting
    EXPECT_TRUE(widget<QPushButton>("NotesButton")->isChecked());
    EXPECT_TRUE(widget<QTextEdit>("NotesField")->isHidden());
    widget<QCheckBox>("OptionalSkillPointBox")->click();
    EXPECT_TRUE(sheet().OptionalSkillPointBox.Value());
    sheet().OptionalSkillPointBox.SetValue(false);
    EXPECT_FALSE(widget<QCheckBox>("OptionalSkillPointBox")->isChecked());

    sheet().NotesField.SetText("Scar over\nthe left eye");
    EXPECT_EQ(widget<QTextEdit>("NotesField")->toPlainText(), "Scar over\nthe left eye");

    ListItem& list = sheet().QualityListBox;  // its rows show their visible columns only
    list.AddRow("Hard to Kill");
    list.SetCell(0, 1, "3");
    list.SetCell(0, 27, "kept out of sight");
    list.SetCellBold(0, 0, true);
    list.AddRow("--");
    list.SetListIndex(1);

    auto* tree = widget<QTreeWidget>("QualityListBox");
    EXPECT_EQ(tree->topLevelItemCount(), 0) << "a burst of writes is shown once, afterwards";
    QCoreApplication::processEvents();
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    QTreeWidgetItem* first = tree->topLevelItem(0);
    EXPECT_EQ(tree->headerItem()->text(1) + first->text(0) + first->text(1), "LevelHard to Kill3");
    EXPECT_EQ(first->columnCount(), 5) << "storage columns stay out of sight";
    EXPECT_TRUE(first->font(0).bold());
    EXPECT_TRUE(first->textAlignment(1) == Qt::AlignCenter && first->textAlignment(4) != Qt::AlignCenter);
    EXPECT_TRUE(tree->topLevelItem(1)->isSelected());
    tree->resize(700, 200);  // the name column widest, the last one filling the list
    QCoreApplication::processEvents();
    EXPECT_EQ(tree->header()->length(), tree->viewport()->width());
    EXPECT_GT(tree->header()->sectionSize(0), 2 * tree->header()->sectionSize(1));
    QPalette dark = QApplication::palette();  // lists and styled texts keep their colours under a dark theme
    for (QPalette::ColorRole role : {QPalette::Base, QPalette::Highlight}) dark.setColor(role, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    for (QWidget* page : {static_cast<QWidget*>(tree), static_cast<QWidget*>(widget<QTextEdit>("NotesField"))})
        EXPECT_TRUE(page->palette().color(QPalette::Base) != Qt::black && page->palette().color(QPalette::Text) == Qt::black);
    EXPECT_TRUE(tree->alternatingRowColors() && tree->palette().color(QPalette::AlternateBase) == Qt::white &&
                tree->palette().color(QPalette::Highlight) != Qt::black);
    QApplication::setPalette(QApplication::style()->standardPalette());

    press(tree->viewport(), tree->visualItemRect(tree->topLevelItem(0)).center(), Qt::ControlModifier);  // Ctrl adds a row
    EXPECT_TRUE(list.Selected(0) && list.Selected(1));
    list.SetListIndex(1);  // a choice alone shows at once
    EXPECT_TRUE(tree->topLevelItem(1)->isSelected() && !tree->topLevelItem(0)->isSelected());
    list.SetHeading(0, "Merit");  // headings follow, and fewer columns show fewer
    list.SetColumnCount(3);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree->headerItem()->text(0) + QString::number(tree->columnCount()), "Merit3");
    tree->resize(400, 100);  // widths in parts of the list's inside or in pixels
    list.SetColumnWidths("50%,60,70,80");
    EXPECT_EQ(tree->header()->sectionSize(0) * 1000 + tree->header()->sectionSize(1),
              tree->contentsRect().width() / 2 * 1000 + 60);
    list.InsertRow(0, "Wiry");  // a click before the list shows its new rows is not taken for them
    tree->topLevelItem(0)->setSelected(true);
    EXPECT_FALSE(list.Selected(0));
    list.SetColumnCentred(0, true);  // a list with widths of its own centres what it says
    EXPECT_TRUE(tree->headerItem()->textAlignment(0) == Qt::AlignCenter &&
                tree->topLevelItem(0)->textAlignment(0) == Qt::AlignCenter && tree->topLevelItem(0)->textAlignment(1) != Qt::AlignCenter);

    ComboItem& popup = sheet().QualityPopup;  // rows traded back, as many as before, in one go
    for (const char* row : {"Sharp", "Keen"}) popup.AddRow(row);
    const auto kept = popup.Keep();
    popup.DeleteAllRows();
    for (const char* row : {"Dull", "Keen"}) popup.AddRow(row);
    QCoreApplication::processEvents();
    popup.Trade(*kept);
    QCoreApplication::processEvents();
    EXPECT_EQ(widget<QComboBox>("QualityPopup")->itemText(0), "Sharp");
    int refills = 0;  // rows as they were are not filled in again: an open popup stays as it is
    QObject::connect(widget<QComboBox>("QualityPopup")->model(), &QAbstractItemModel::rowsInserted, [&] { ++refills; });
    popup.SetListIndex(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(refills, 0);
}

TEST_F(AppStart, ClosingAsksCancelKeepsTheWindowSaveAndDontSaveCloseIt) {
    window_->show();
    sheet().savedChar = false;
    platform_.QueueAnswer("Cancel");
    EXPECT_FALSE(window_->close());
    const std::string path = ::testing::TempDir() + "closing_asks.xml";
    std::remove(path.c_str());
    platform_.QueueAnswer("Save");
    platform_.QueueAnswer(path);
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(std::ifstream(path).good()) << "saved on the way out";
}

TEST_F(AppStart, TheJournalCrossesToItsWindowAndBackAtClosing) {
    CharacterSheet& sheet = this->sheet();
    sheet.NameField.SetText("Ann");
    sheet.JournalField.SetText("Day one");
    sheet.savedChar = true;
    action("FileCharacterJournal")->trigger();
    JournalView* journal = window_->findChild<JournalView*>();
    auto* edit = journal->findChild<QTextEdit*>("JournalField");
    edit->moveCursor(QTextCursor::End);
    edit->insertPlainText(", rain");
    EXPECT_EQ(sheet.JournalField.Text(), "Day one");  // the sheet's copy waits for the close
    journal->close();
    EXPECT_EQ(sheet.JournalField.Text(), "Day one, rain");
    EXPECT_FALSE(sheet.JournalField.Visible() || sheet.journalWindowIsOpen);
}

}  // namespace
}  // namespace zeph::gui
