// The character window over a sheet with the sample rule data, its menus in place, as the app
// starts it; a failure that reaches no dialog fails the test.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <memory>

#include "app/App.h"
#include "app/SheetOperations.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "shell/CharWindow.h"
#include "shell/CoreCall.h"
#include "shell/gui_test_app.h"

namespace zeph::gui {

class CharWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        test::GuiTestApp();
        ResetUnhandledFailure();
        previousHandler_ = SetUnhandledFailureHandler(
            [this](const std::string& message) { failures_.push_back(message); });
        ASSERT_TRUE(app_.LoadDataFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml"));
        auto blank = std::make_unique<CharacterSheet>(data_, platform_, SheetOperations());
        blank->WeightField.SetEnabled(false);  // one item starts disabled
        window_ = std::make_unique<CharWindow>(std::move(blank));
        window_->InstallMenus(menus_);
    }
    void TearDown() override {
        window_.reset();
        EXPECT_TRUE(failures_.empty()) << failures_.front();
        SetUnhandledFailureHandler(previousHandler_);
        ResetUnhandledFailure();
    }

    CharacterSheet& sheet() { return window_->Sheet(); }
    QAction* action(const char* name) { return window_->findChild<QAction*>(name); }
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
    static void press(QWidget* target, QPointF at = {2, 2}, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QMouseEvent event(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton, keys);
        QApplication::sendEvent(target, &event);
    }
    static void type(QWidget* target, const QString& text) {
        for (QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(target, &press);
        }
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

    // The application's folder holds the export stylesheets.
    ScriptedPlatform platform_{"/nonexistent-prefs", ZEPHALON_SOURCE_DIR "/data/stylesheets", "/tmp"};
    DataModule data_;
    App app_{data_, platform_};
    const MenuSources menus_{nullptr, [] { return std::vector<std::string>{}; }, {}};
    std::unique_ptr<CharWindow> window_;
    std::vector<std::string> failures_;
    FailureHandler previousHandler_;
};

}  // namespace zeph::gui
