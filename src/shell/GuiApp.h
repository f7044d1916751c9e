// The application's commands in the desktop app: new and opened characters, each in its own
// window with the shared menus, the recent submenu's choices, the tools, and quitting through
// every window's closing question.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>

#include "shell/Menus.h"
#include "tools/RandomSource.h"
#include "tools/UpdateCheck.h"

namespace zeph {
class App;
class DataModule;
class Platform;
}  // namespace zeph

namespace zeph::gui {

class CharWindow;
class ToolView;

class GuiApp : public QObject, public CommandTarget {
  public:
    GuiApp(DataModule& data, Platform& platform, App& app);

    // A new, empty character window, shown. Null when making it failed.
    CharWindow* NewWindow();
    // Opens a character into a new window: by the open dialog when `path` is empty.
    void OpenCharacter(const std::string& path);
    // Offers back the unsaved work that a crash left behind, when there is any.
    void OfferRecovery();
    // Closes every character window in turn, then the tools; a character window that is kept
    // open stops the quit.
    bool CloseAll();

    MenuSources Sources();

    // Where the update check asks; the project's web host unless a test serves it.
    void SetWebHost(const std::string& host) { webHost_ = host; }

  private:
    CharWindow* makeWindow();
    // A window whose sheet was just filled: shown, or gone when the filling closed it.
    void showFilled(CharWindow& window);
    // Every open character with unsaved changes writes its recovery copy.
    void updateRecoveryCopies();
    // Brings up the one window of a kind, made anew by `make` when there is none.
    void showSingle(QPointer<ToolView>& single, const std::function<ToolView*()>& make);

    DataModule& data_;
    Platform& platform_;
    App& app_;
    SystemRandom random_;
    std::string webHost_ = kProjectWebHost;
    QPointer<ToolView> loadData_, about_, checkUpdates_;
};

}  // namespace zeph::gui
