// The character window's menu commands: the Tab menu and its check marks, the export window
// over the character, and closing through the unsaved-changes question.
#include <gtest/gtest.h>

#include <QtWidgets>
#include <memory>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/SheetOperations.h"
#include "shell/gui/CharWindow.h"
#include "shell/gui/ExportView.h"
#include "shell/gui/JournalView.h"
#include "shell/gui/PortraitView.h"
#include "shell/gui_test_app.h"
#include "sheet/CharacterSheet.h"

namespace zeph::gui {
namespace {

class CharWindowMenus : public ::testing::Test {
  protected:
    void SetUp() override {
        test::GuiTestApp();
        window = std::make_unique<CharWindow>(std::make_unique<CharacterSheet>(data, platform, SheetOperations()));
        window->InstallMenus({nullptr, [] { return std::vector<std::string>{}; }, {}});
        window->Sheet().NameField.SetText("Ann");
    }
    QAction* action(const char* name) { return window->findChild<QAction*>(name); }

    ScriptedPlatform platform{"/nonexistent-prefs", ZEPHALON_SOURCE_DIR "/data/stylesheets", "/tmp"};
    DataModule data;
    std::unique_ptr<CharWindow> window;
};

TEST_F(CharWindowMenus, OnlyTheTabMenuMovesItsChecks) {
    ASSERT_NE(action("TabSkills"), nullptr);
    EXPECT_FALSE(action("FileNew")->isEnabled());  // the application's, absent here
    EXPECT_EQ(action("FileSaveAsCharacterFile")->shortcut(), QKeySequence("Ctrl+Shift+S"));
    action("TabSkills")->trigger();
    auto* tabs = window->findChild<QTabWidget*>("TabPanel1");
    EXPECT_EQ(tabs->currentIndex(), 2);
    EXPECT_TRUE(action("TabSkills")->isChecked());
    action("TabEquipment")->trigger();
    EXPECT_FALSE(action("TabSkills")->isChecked());
    tabs->setCurrentIndex(0);
    EXPECT_TRUE(action("TabEquipment")->isChecked());
}

TEST_F(CharWindowMenus, ExportShowsTheCharacterInTheChosenForm) {
    action("FileExport")->trigger();
    auto* view = window->findChild<ExportView*>();
    ASSERT_NE(view, nullptr);
    auto* forms = view->findChild<QComboBox*>("PopupMenu1");
    forms->setCurrentIndex(forms->findText("Summary"));
    emit forms->activated(forms->currentIndex());
    EXPECT_TRUE(view->findChild<QPlainTextEdit*>("EditField1")->toPlainText().startsWith("Ann"));
    EXPECT_EQ(view->windowTitle(), "Ann");
}

TEST_F(CharWindowMenus, ClosingAsksAndCancelKeepsTheWindow) {
    window->show();
    window->Sheet().savedChar = false;
    platform.QueueAnswer("Cancel");
    EXPECT_FALSE(window->close());
    platform.QueueAnswer("Don't Save");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(platform.Transcript().size(), 2u);
}

TEST_F(CharWindowMenus, StyledFieldsCarryFontSizeAndColourBothWays) {
    StyleRun run("Dagger");
    run.color = 0x802020;
    run.size = 14;
    run.font = "Serif";
    window->Sheet().EquipmentField.SetStyled({{run}});
    auto* edit = window->findChild<QTextEdit*>("EquipmentField");
    QTextCursor cursor(edit->document());
    cursor.setPosition(1);
    EXPECT_EQ(cursor.charFormat().foreground().color(), QColor(0x80, 0x20, 0x20));
    EXPECT_EQ(cursor.charFormat().fontPointSize(), 14);
    cursor.insertText("x");  // typed in the run's style
    const StyleRun back = window->Sheet().EquipmentField.Styled().runs.at(0);
    EXPECT_EQ(back.text, "Dxagger");
    EXPECT_TRUE(back.SameStyle(run));
}

TEST_F(CharWindowMenus, TheJournalCrossesToItsWindowAndBackAtClosing) {
    CharacterSheet& sheet = window->Sheet();
    sheet.JournalField.SetText("Day one");
    sheet.savedChar = true;
    action("FileCharacterJournal")->trigger();
    window->findChild<QPushButton*>("JournalButton")->click();  // open already: no second one
    ASSERT_EQ(window->findChildren<JournalView*>().size(), 1);
    JournalView* journal = window->findChild<JournalView*>();
    EXPECT_EQ(journal->windowTitle(), "Journal for Ann");
    EXPECT_FALSE(sheet.savedChar);  // filling the window is an edit
    auto* edit = journal->findChild<QTextEdit*>("JournalField");
    EXPECT_EQ(edit->toPlainText(), "Day one");
    edit->setPlainText("Day two");
    EXPECT_EQ(sheet.JournalField.Text(), "Day one");  // the sheet's copy waits for the close
    journal->close();
    EXPECT_EQ(sheet.JournalField.Text(), "Day two");
    EXPECT_FALSE(sheet.JournalField.Visible() || sheet.journalWindowIsOpen);
}

TEST_F(CharWindowMenus, ListButtonsArrowsAndDeleteKeyRunTheirOperations) {
    CharacterSheet& sheet = window->Sheet();
    window->findChild<QPushButton*>("QualitySeparator")->click();
    window->findChild<QPushButton*>("MetaSeparator")->click();
    EXPECT_EQ(sheet.QualityListBox.Cell(0, 0) + sheet.MetaListBox.Cell(0, 0), "----");
    sheet.QualityListBox.SetListIndex(0);
    auto* list = window->findChild<QTreeWidget*>("QualityListBox");
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QApplication::sendEvent(list, &press);
    EXPECT_EQ(sheet.QualityListBox.ListCount(), 0);
    sheet.QualityListBox.AddRow("Zeal");
    sheet.QualityListBox.AddRow("agile");
    emit list->header()->sectionClicked(0);  // sorts, and ends keeping drawbacks apart
    EXPECT_EQ(sheet.QualityListBox.Cell(0, 0), "agile");
    EXPECT_FALSE(sheet.QualitiesSeparateQDBox.Value());
    window->findChild<QToolButton*>("SkillUpDownArrows1_Up")->click();
    EXPECT_EQ(sheet.SkillLevelField.Text(), "1");
}

TEST_F(CharWindowMenus, FormatCommandsAndTabInTheStyledFields) {
    auto* notes = window->findChild<QTextEdit*>("NotesField");
    notes->setPlainText("abc");
    notes->selectAll();
    window->Sheet().savedChar = true;
    FormatSelection(*notes, "FormatBold");
    FormatSelection(*notes, "FormatBigger");  // from the default size: 2
    FormatSelection(*notes, "FormatBigger");
    FormatSelection(*notes, "FormatSmaller");
    StyleRun run = window->Sheet().NotesField.Styled().runs.at(0);
    EXPECT_TRUE(run.bold);
    EXPECT_EQ(run.size, 2);
    FormatSelection(*notes, "FormatSmaller");
    FormatSelection(*notes, "FormatSmaller");  // never below the default
    EXPECT_EQ(window->Sheet().NotesField.Styled().runs.at(0).size, 0);
    EXPECT_TRUE(window->Sheet().savedChar);  // a change of format is no edit

    notes->moveCursor(QTextCursor::End);
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(notes, &tab);
    EXPECT_EQ(window->Sheet().NotesField.Text(), "abc    ");
    EXPECT_TRUE(window->findChild<QTextEdit*>("ContactsField")->tabChangesFocus());

    // The style bar's Styles menu acts on the field of the pressed button.
    notes->selectAll();
    auto* styles = window->findChild<QToolButton*>("DescripStylesBevelButton");
    styles->menu()->actions().at(2)->trigger();  // "Italic"
    EXPECT_TRUE(window->Sheet().NotesField.Styled().runs.at(0).italic);
}

TEST_F(CharWindowMenus, APortraitDroppedSizesTheWindowAndWaitsForTheSave) {
    CharacterSheet& sheet = window->Sheet();
    sheet.portraitPath = "/nonexistent/ann.png";
    action("FileCharacterPortrait")->trigger();
    action("FileCharacterPortrait")->trigger();  // open already: nothing
    ASSERT_EQ(window->findChildren<PortraitView*>().size(), 1);
    EXPECT_EQ(platform.Messages(),
              std::vector<std::string>{"The associated Portrait is no longer in the specified location."});
    PortraitView* portrait = window->findChild<PortraitView*>();
    EXPECT_EQ(portrait->windowTitle(), "Portrait for Ann");
    EXPECT_EQ(portrait->size(), QSize(250, 300));
    sheet.savedChar = true;
    QImage picture(100, 200, QImage::Format_RGB32);
    picture.fill(Qt::darkRed);
    portrait->TakePicture(picture);
    EXPECT_EQ(portrait->size(), QSize(144, 238));
    EXPECT_FALSE(sheet.savedChar);
    ASSERT_TRUE(sheet.portraitImage.has_value());
    EXPECT_EQ(sheet.portraitImage->substr(1, 3), "PNG");
    EXPECT_EQ(sheet.portraitPath, "/nonexistent/ann.png");  // changed by the next save only
    portrait->close();
    EXPECT_FALSE(sheet.portraitWindowIsOpen);
}

}  // namespace
}  // namespace zeph::gui
