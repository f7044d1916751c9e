// The menu bar every window shows, built from one table: File, Edit, Format, Tab, Window and
// Help. A command goes to the window that claims it first, then to the application; the recent
// files and the windows are read afresh each time their menu opens, so every window's bar
// shows the same state.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QMainWindow;
class QMenu;
class QWidget;

namespace zeph::gui {

// Whoever answers commands by their menu item name ("FileSave", "TabSkills").
class CommandTarget {
  public:
    virtual ~CommandTarget() = default;
    virtual bool HandlesCommand(const std::string& name) const = 0;
    virtual void RunCommand(const std::string& name) = 0;
};

struct MenuSources {
    CommandTarget* application;
    // The captions of the recent submenu, and what choosing one does.
    std::function<std::vector<std::string>()> recentItems;
    std::function<void(const std::string& caption)> chooseRecent;
    // The names of the Help menu's reference tables, and what choosing one does.
    std::function<std::vector<std::string>()> referenceTables = {};
    std::function<void(const std::string& name)> chooseReference = {};
};

// Gives `window` its menu bar; `window` answers first when it is a CommandTarget.
void BuildMenuBar(QMainWindow& window, const MenuSources& sources);

// Shows a window and gives it the focus: without a window manager a new window gets none, and
// its menu shortcuts stay dead until it is clicked.
void ShowInFront(QWidget& window);

// Refills the Window menu: the visible document windows sorted by title, the front one checked;
// "None", disabled, when fewer than two are open.
void BuildWindowsMenu(QMenu& menu);

}  // namespace zeph::gui
