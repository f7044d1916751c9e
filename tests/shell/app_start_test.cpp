// The character window over a sheet with the sample rule data, started as the app starts it:
// its widgets show the items they are named after and follow them, and the user's events
// reach the sheet's named operations.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <memory>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "rules/SheetOperations.h"
#include "sheet/CharacterSheet.h"
#include "shell/App.h"
#include "shell/gui/CharWindow.h"
#include "shell/gui/CoreCall.h"
#include "shell/gui_test_app.h"

namespace zeph::gui {
namespace {

class AppStart : public ::testing::Test {
  protected:
    void SetUp() override {
        test::GuiTestApp();
        ResetUnhandledFailure();
        previousHandler_ = SetUnhandledFailureHandler(
            [this](const std::string& message) { failures_.push_back(message); });
        ASSERT_TRUE(app_.LoadDataFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml"));
        window_ = std::make_unique<CharWindow>(std::make_unique<CharacterSheet>(data_, platform_, SheetOperations()));
    }

    void TearDown() override {
        window_.reset();
        EXPECT_TRUE(failures_.empty()) << failures_.front();
        SetUnhandledFailureHandler(previousHandler_);
        ResetUnhandledFailure();
    }

    CharacterSheet& sheet() { return window_->Sheet(); }

    template <typename W>
    W* widget(const char* itemName) {
        auto* found = window_->findChild<W*>(itemName);
        EXPECT_NE(found, nullptr) << "no widget named " << itemName;
        return found;
    }

    static void focus(QWidget* target, QEvent::Type type,
                      Qt::FocusReason reason = Qt::MouseFocusReason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(target, &event);
    }

    static void type(QWidget* target, const QString& text) {
        for (QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(target, &press);
        }
    }

    static void click(QWidget* target) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &press);
    }

    static QStringList rows(QComboBox* box) {
        QStringList all;
        for (int i = 0; i < box->count(); ++i) all << box->itemText(i);
        return all;
    }

    // What the user does to pick a character type and a choice within it.
    void chooseType(const QString& type, const QString& choice) {
        auto* types = widget<QComboBox>("CharacterTypePopup");
        focus(types, QEvent::FocusIn);
        types->setCurrentIndex(types->findText(type));
        auto* choices = widget<QComboBox>("ChooseCharPopup");
        ASSERT_GE(choices->findText(choice), 0) << choice.toStdString();
        choices->setCurrentIndex(choices->findText(choice));
    }

    ScriptedPlatform platform_{std::filesystem::temp_directory_path().string(), ".",
                               std::filesystem::temp_directory_path().string()};
    DataModule data_;
    App app_{data_, platform_};
    std::unique_ptr<CharWindow> window_;
    std::vector<std::string> failures_;
    FailureHandler previousHandler_;
};

TEST_F(AppStart, WidgetsShowTheItemsTheyAreNamedAfter) {
    EXPECT_EQ(window_->windowTitle().toStdString(), sheet().title);
    EXPECT_EQ(widget<QLineEdit>("GenderField")->text(), "Male or Female");
    EXPECT_EQ(widget<QLabel>("LPText")->text(), "Life Points:");
    EXPECT_TRUE(widget<QCheckBox>("QualitiesSeparateQDBox")->isChecked());
    EXPECT_EQ(rows(widget<QComboBox>("SkillTypeCombo")),
              QStringList({"Regular", "Special", "Cinematic"}));

    auto* tabs = widget<QTabWidget>("TabPanel1");
    ASSERT_EQ(tabs->count(), 6);
    EXPECT_EQ(tabs->tabText(0), "Attributes");
    EXPECT_EQ(tabs->tabText(5), "Equipment");

    auto* qualities = widget<QTreeWidget>("QualityListBox");
    ASSERT_EQ(qualities->columnCount(), 5);
    EXPECT_EQ(qualities->headerItem()->text(0), "Quality");
    EXPECT_EQ(qualities->headerItem()->text(4), "Notes");
}

TEST_F(AppStart, EveryItemHasItsWidget) {
    for (const Item* item : sheet().Items().All())
        EXPECT_NE(window_->findChild<QWidget*>(QString::fromStdString(item->Name())), nullptr)
            << item->Name();
}

TEST_F(AppStart, FocusOnTheTypeComboFillsItWithTheTypes) {
    auto* types = widget<QComboBox>("CharacterTypePopup");
    EXPECT_EQ(types->count(), 0);
    focus(types, QEvent::FocusIn);
    EXPECT_EQ(rows(types), QStringList({"Human", "Gifted", "Mundane", "Spirit Touched"}));
    EXPECT_EQ(sheet().CharacterTypePopup.ListCount(), 4);
}

TEST_F(AppStart, ChoosingTypeAndChoiceInTheCombosWritesTheItems) {
    chooseType("Human", "Survivor");
    EXPECT_EQ(sheet().CharacterTypePopup.Text(), "Human");
    EXPECT_EQ(sheet().ChooseCharPopup.Text(), "Survivor");
    EXPECT_EQ(rows(widget<QComboBox>("ChooseCharPopup")), QStringList({"Survivor", "Hero"}));
    EXPECT_FALSE(sheet().savedChar);
}

TEST_F(AppStart, TypingAnAttributeAndLeavingItShowsTheNewTotal) {
    chooseType("Human", "Survivor");
    auto* strength = widget<QLineEdit>("StrengthField");
    focus(strength, QEvent::FocusIn);
    type(strength, "4");
    EXPECT_EQ(sheet().StrengthField.Text(), "4");
    EXPECT_EQ(sheet().StrengthTotal.Text(), "0") << "the total waits for the field to be left";
    focus(strength, QEvent::FocusOut);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "4");
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "4");
}

TEST_F(AppStart, FocusThatGoesToAnotherWindowCountsOnlyWhereItComesBack) {
    chooseType("Human", "Survivor");
    auto* strength = widget<QLineEdit>("StrengthField");
    focus(strength, QEvent::FocusIn);
    type(strength, "4");
    focus(strength, QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "0") << "another window came to the front";
    focus(strength, QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "0") << "back on the same field";

    // The user clicks straight onto the type list of the inactive window: it is activated
    // onto that list, and the field that held the focus has been left.
    focus(strength, QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    sheet().CharacterTypePopup.DeleteAllRows();
    focus(widget<QComboBox>("CharacterTypePopup"), QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "4");
    EXPECT_EQ(sheet().CharacterTypePopup.ListCount(), 4) << "filled as at any other focus";
}

TEST_F(AppStart, ChangesMadeInTheCoreShowInTheWidgets) {
    sheet().StrengthTotal.SetText("7");
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "7");

    sheet().NotesField.SetText("Scar over\nthe left eye");
    EXPECT_EQ(widget<QTextEdit>("NotesField")->toPlainText(), "Scar over\nthe left eye");

    sheet().CharacterInPlayBox.SetValue(true);
    EXPECT_TRUE(widget<QCheckBox>("CharacterInPlayBox")->isChecked());

    sheet().ConceptBox.SetText("Drifter");
    EXPECT_EQ(widget<QComboBox>("ConceptBox")->currentText(), "Drifter");

    sheet().SkillMartialVisualListBox.SetHeading(0, "Visualization");
    EXPECT_EQ(widget<QTreeWidget>("SkillMartialVisualListBox")->headerItem()->text(0),
              "Visualization");
}

TEST_F(AppStart, ListRowsShowTheirVisibleColumnsOnly) {
    ListItem& list = sheet().QualityListBox;
    list.AddRow("Hard to Kill");
    list.SetCell(0, 1, "3");
    list.SetCell(0, 4, "from the type");
    list.SetCell(0, 27, "kept out of sight");
    list.SetCellBold(0, 0, true);
    list.AddRow("--");
    list.SetListIndex(1);

    auto* tree = widget<QTreeWidget>("QualityListBox");
    EXPECT_EQ(tree->topLevelItemCount(), 0) << "a burst of writes is shown once, afterwards";
    QCoreApplication::processEvents();
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "Hard to Kill");
    EXPECT_EQ(tree->topLevelItem(0)->text(1), "3");
    EXPECT_EQ(tree->topLevelItem(0)->text(4), "from the type");
    EXPECT_EQ(tree->topLevelItem(0)->columnCount(), 5) << "storage columns stay out of sight";
    EXPECT_TRUE(tree->topLevelItem(0)->font(0).bold());
    EXPECT_FALSE(tree->topLevelItem(0)->font(1).bold());
    EXPECT_TRUE(tree->topLevelItem(1)->isSelected());
    list.SetCell(0, 1, "4");
    QCoreApplication::processEvents();
    EXPECT_EQ(tree->topLevelItem(0)->text(1), "4");

    tree->topLevelItem(0)->setSelected(true);
    EXPECT_TRUE(list.Selected(0));
    list.RemoveRow(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree->topLevelItemCount(), 1);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "--");
}

TEST_F(AppStart, UserEditsOfEachKindWriteTheirItems) {
    type(widget<QLineEdit>("HairField"), "red");
    EXPECT_EQ(sheet().HairField.Text(), "red");

    sheet().EquipmentField.SetStyled(StyledText{{StyleRun{"Rope", true}, StyleRun{"\n"}}});
    auto* equipment = widget<QTextEdit>("EquipmentField");
    equipment->moveCursor(QTextCursor::End);
    equipment->insertPlainText("15 m");
    EXPECT_EQ(sheet().EquipmentField.Text(), "Rope\n15 m");
    ASSERT_EQ(sheet().EquipmentField.Styled().runs.size(), 2u);
    EXPECT_TRUE(sheet().EquipmentField.Styled().runs[0].bold) << "the name stays bold";
    EXPECT_FALSE(sheet().EquipmentField.Styled().runs[1].bold);
    widget<QPushButton>("EncumButton")->click();
    EXPECT_TRUE(equipment->toPlainText().contains("15 mLifting Capacity = 0lbs /0kg."));

    widget<QCheckBox>("OptionalSkillPointBox")->click();
    EXPECT_TRUE(sheet().OptionalSkillPointBox.Value());

    type(widget<QComboBox>("ConceptBox")->lineEdit(), "Seer");
    EXPECT_EQ(sheet().ConceptBox.Text(), "Seer");
}

TEST_F(AppStart, VisibilityFollowsTheItem) {
    auto* drama = widget<QLineEdit>("DPField");
    EXPECT_TRUE(drama->isHidden());
    sheet().DPField.SetVisible(true);
    EXPECT_FALSE(drama->isHidden());
    sheet().DPField.SetVisible(false);
    EXPECT_TRUE(drama->isHidden());
    EXPECT_FALSE(widget<QLineEdit>("StrengthField")->isHidden());
}

TEST_F(AppStart, ClickingABonusNumberPlacesAFreePoint) {
    chooseType("Human", "Hero");
    ASSERT_EQ(sheet().physicalBonus, 3);
    const double before = std::stod(sheet().StrengthBonus.Text());
    click(widget<QLabel>("StrengthBonus"));
    EXPECT_EQ(sheet().physicalBonus, 2);
    EXPECT_EQ(std::stod(sheet().StrengthBonus.Text()), before + 1);
    EXPECT_EQ(widget<QLabel>("StrengthBonus")->text().toStdString(), sheet().StrengthBonus.Text());
}

TEST_F(AppStart, ChangingTabRecomputesTheSheet) {
    chooseType("Human", "Survivor");
    sheet().StrengthField.SetText("3");
    ASSERT_EQ(sheet().StrengthTotal.Text(), "0");
    widget<QTabWidget>("TabPanel1")->setCurrentIndex(2);
    EXPECT_EQ(sheet().StrengthTotal.Text(), "3");
    EXPECT_EQ(widget<QLineEdit>("StrengthTotal")->text(), "3");
}

TEST_F(AppStart, LeavingTheNameRetitlesTheWindow) {
    auto* name = widget<QLineEdit>("NameField");
    const QString newTitle = window_->windowTitle();
    focus(name, QEvent::FocusIn);
    type(name, "Ann");
    EXPECT_EQ(window_->windowTitle(), newTitle) << "typing alone does not retitle";
    focus(name, QEvent::FocusOut);
    EXPECT_EQ(window_->windowTitle(), "Zephalon CC: Ann");
}

TEST_F(AppStart, TheTimerRefreshesTheStatusLine) {
    auto* timer = widget<QTimer>("Timer1");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    sheet().InfoText.SetText("stale");
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    const QString shown = widget<QLabel>("InfoText")->text();
    EXPECT_NE(shown, "stale");
    EXPECT_EQ(shown.toStdString(), sheet().InfoText.Text());
}

TEST_F(AppStart, ANotesButtonClickRunsItsOperationAndShowsWhatItLeft) {
    widget<QPushButton>("ContactsButton")->click();
    EXPECT_TRUE(widget<QPushButton>("ContactsButton")->isChecked());
    EXPECT_FALSE(widget<QPushButton>("NotesButton")->isChecked());
    EXPECT_TRUE(widget<QTextEdit>("NotesField")->isHidden());
}

}  // namespace
}  // namespace zeph::gui
