// The menu bar every window shows, built from one table: File, Edit, Format, Tab, Window and
// Help. A command goes to the window that claims it first, then to the application; the recent
// files and the windows are read afresh each time their menu opens, so every window's bar
// shows the same state.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>
#include <vector>

class QMainWindow;
class QMenu;
class QWidget;

namespace zeph::gui {

// What each menu item name ("FileSave", "TabSkills") that one target answers does.
using CommandTable = std::map<std::string, std::function<void()>>;

// Whoever answers commands by their menu item name: it fills its table as it is made, so the
// table alone says both whether it handles a command and what running it does.
class CommandTarget {
  public:
    virtual ~CommandTarget() = default;
    const CommandTable& Commands() const { return commands_; }

  protected:
    CommandTable commands_;
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

// Whether the widget is a field the user types into: there the Edit menu's text commands
// act on the field, whatever the window makes of them elsewhere.
bool TakesText(const QWidget* widget);

// Gives `window` its menu bar; `window` answers first when it is a CommandTarget.
void BuildMenuBar(QMainWindow& window, const MenuSources& sources);

// The names of the Format menu's items, for the windows whose styled fields they act on.
std::vector<std::string> FormatCommands();

// Shows a window and gives it the focus: without a window manager a new window gets none, and
// its menu shortcuts stay dead until it is clicked.
void ShowInFront(QWidget& window);

// Refills the Window menu: the visible document windows sorted by title, the front one checked;
// "None", disabled, when fewer than two are open.
void BuildWindowsMenu(QMenu& menu);

}  // namespace zeph::gui
