// The one QApplication of the GUI tests, on the offscreen platform unless told otherwise. It
// goes away when the tests end rather than among the exit handlers, where Qt's own globals
// may already be gone.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace zeph::test {

class GuiTestEnvironment : public ::testing::Environment {
  public:
    static QApplication& App() {
        if (!app_) {
            if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            app_ = std::make_unique<QApplication>(argc_, argv_);
        }
        return *app_;
    }
    void TearDown() override { app_.reset(); }

  private:
    static inline int argc_ = 1;
    static inline char name_[] = "zephalon-gui-tests";
    static inline char* argv_[] = {name_, nullptr};
    static inline std::unique_ptr<QApplication> app_;
};

inline ::testing::Environment* const kGuiTestEnvironment =
    ::testing::AddGlobalTestEnvironment(new GuiTestEnvironment);

inline QApplication& GuiTestApp() { return GuiTestEnvironment::App(); }

}  // namespace zeph::test
