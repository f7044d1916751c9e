// The application's commands in the desktop app: new and opened characters, each in its own
// window with the shared menus, the recent submenu's choices, and quitting through every
// window's closing question.
#pragma once

#include <QObject>
#include <string>

#include "shell/gui/Menus.h"

namespace zeph {
class App;
class DataModule;
class Platform;
}  // namespace zeph

namespace zeph::gui {

class CharWindow;

class GuiApp : public QObject, public CommandTarget {
  public:
    GuiApp(DataModule& data, Platform& platform, App& app);

    // A new, empty character window, shown. Null when making it failed.
    CharWindow* NewWindow();
    // Opens a character into a new window: by the open dialog when `path` is empty.
    void OpenCharacter(const std::string& path);
    // Closes every character window in turn; one that is kept open stops the quit.
    bool CloseAll();

    bool HandlesCommand(const std::string& name) const override;
    void RunCommand(const std::string& name) override;
    MenuSources Sources();

  private:
    CharWindow* makeWindow();

    DataModule& data_;
    Platform& platform_;
    App& app_;
};

}  // namespace zeph::gui
