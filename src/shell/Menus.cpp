#include "shell/Menus.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QAbstractSpinBox>
#include <QTextEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <algorithm>
#include <vector>

namespace zeph::gui {
namespace {

struct MenuItem {
    const char* name;
    const char* caption;  // "-" is a separator
    const char* shortcut;
};

struct Menu {
    const char* name;
    const char* caption;
    std::vector<MenuItem> items;
};

// Ctrl takes the place of Cmd on this platform.
const std::vector<Menu>& MenuTable() {
    static const std::vector<Menu> table = {
        {"FileMenu", "&File",
         {{"FileNew", "New", "Ctrl+N"},
          {"FileLoadCharacterFile", "Open Character File", "Ctrl+O"},
          {"FileOpenRecent", "Open Recent", ""},
          {"FileClose", "Close Window", "Ctrl+W"},
          {"UntitledMenu3", "-", ""},
          {"FileSave", "Save Character File", "Ctrl+S"},
          {"FileSaveAsCharacterFile", "Save As Character File...", "Ctrl+Shift+S"},
          {"FileExport", "Export...", "Ctrl+E"},
          {"FilePrint", "Print...", "Ctrl+P"},
          {"UntitledMenu2", "-", ""},
          {"FileLoadDataFile", "Load Data File...", "Ctrl+L"},
          {"UntitledItem", "-", ""},
          {"FileCharacterPortrait", "Character Portrait", "Ctrl+Shift+P"},
          {"FileCharacterJournal", "Character Journal...", "Ctrl+J"},
          {"UntitledItem", "-", ""},
          {"FileQuit", "Quit", "Ctrl+Q"}}},
        {"EditMenu", "&Edit",
         {{"EditUndo", "&Undo", "Ctrl+Z"},
          {"EditRedo", "Redo", "Ctrl+Shift+Z"},
          {"UntitledMenu1", "-", ""},
          {"EditCut", "Cu&t", "Ctrl+X"},
          {"EditCopy", "&Copy", "Ctrl+C"},
          {"EditPaste", "&Paste", "Ctrl+V"},
          {"EditClear", "Clear", ""},
          {"EditSelectAll", "Select All", "Ctrl+A"}}},
        {"FormatMenu", "Format",
         {{"FormatBold", "Bold", "Ctrl+B"},
          {"FormatItalic", "Italic", "Ctrl+I"},
          {"FormatUnderline", "Underline", "Ctrl+U"},
          {"FormatBigger", "Bigger", "Ctrl+>"},
          {"FormatSmaller", "Smaller", "Ctrl+<"}}},
        {"TabMenu", "Tab",
         {{"TabAttributes", "Attributes", "Ctrl+1"},
          {"TabQualities", "Qualities", "Ctrl+2"},
          {"TabSkills", "Skills", "Ctrl+3"},
          {"TabMetaphysics", "Metaphysics", "Ctrl+4"},
          {"TabDescription", "Description", "Ctrl+5"},
          {"TabEquipment", "Equipment", "Ctrl+6"}}},
        {"WindowMenu", "Window", {}},
        {"HelpMenu", "Help",
         {{"HelpAbout", "About Zephalon...", ""},
          {"HelpCheckForUpdates", "Check For Updates...", ""},
          {"HelpDiceRoller", "Dice Roller...", "Ctrl+D"},
          {"UntitledItem", "-", ""},
          {"HelpReference", "Reference", ""},
          {"UntitledMenu0", "-", ""},
          {"HelpHelp", "Help...", "Ctrl+0"}}},
    };
    return table;
}

// The text commands of the Edit menu act on the focused field, as its own shortcuts do.
const char* textSlot(const std::string& name) {
    if (name == "EditUndo") return "undo";
    if (name == "EditRedo") return "redo";
    if (name == "EditCut") return "cut";
    if (name == "EditCopy") return "copy";
    if (name == "EditPaste") return "paste";
    if (name == "EditClear") return "clear";
    if (name == "EditSelectAll") return "selectAll";
    return nullptr;
}

// A submenu whose items are read each time it opens, so every window's bar shows the same
// ones ("-" is a separator); choosing one passes its caption on.
void addReadAfreshSubmenu(QMenu& drop, const MenuItem& item,
                          const std::function<std::vector<std::string>()>& captions,
                          const std::function<void(const std::string&)>& choose) {
    QMenu* submenu = drop.addMenu(item.caption);
    submenu->setObjectName(item.name);
    QObject::connect(submenu, &QMenu::aboutToShow, submenu, [submenu, captions, choose] {
        submenu->clear();
        if (!captions) return;
        for (const std::string& caption : captions()) {
            if (caption == "-") {
                submenu->addSeparator();
                continue;
            }
            QObject::connect(submenu->addAction(QString::fromStdString(caption)),
                             &QAction::triggered, submenu, [choose, caption] { choose(caption); });
        }
    });
}

}  // namespace

void ShowInFront(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

void BuildWindowsMenu(QMenu& menu) {
    menu.clear();
    std::vector<std::pair<QString, QWidget*>> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window))
            windows.emplace_back(window->windowTitle(), window);
    if (windows.size() < 2) {
        menu.addAction("None")->setEnabled(false);
        return;
    }
    std::stable_sort(windows.begin(), windows.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    QWidget* front = QApplication::activeWindow();
    for (const auto& [title, window] : windows) {
        QAction* item = menu.addAction(title);
        item->setCheckable(true);
        item->setChecked(window == front);
        QObject::connect(item, &QAction::triggered, window, [target = window] { ShowInFront(*target); });
    }
}

std::vector<std::string> FormatCommands() {
    std::vector<std::string> names;
    for (const Menu& menu : MenuTable())
        if (std::string(menu.name) == "FormatMenu")
            for (const MenuItem& item : menu.items) names.emplace_back(item.name);
    return names;
}

bool TakesText(const QWidget* widget) {
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) return !line->isReadOnly();
    if (const auto* text = qobject_cast<const QTextEdit*>(widget)) return !text->isReadOnly();
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(widget)) return !plain->isReadOnly();
    return qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

void BuildMenuBar(QMainWindow& window, const MenuSources& sources) {
    // The window's own command first, then the application's; null when neither has it.
    const auto handler = [own = dynamic_cast<CommandTarget*>(&window), app = sources.application](
                             const std::string& name) -> std::function<void()> {
        for (const CommandTarget* target : {own, app}) {
            if (target == nullptr) continue;
            if (auto found = target->Commands().find(name); found != target->Commands().end())
                return found->second;
        }
        return {};
    };
    QMenuBar* bar = window.menuBar();
    for (const Menu& menu : MenuTable()) {
        QMenu* drop = bar->addMenu(menu.caption);
        drop->setObjectName(menu.name);
        if (std::string(menu.name) == "WindowMenu")
            QObject::connect(drop, &QMenu::aboutToShow, drop, [drop] { BuildWindowsMenu(*drop); });
        for (const MenuItem& item : menu.items) {
            const std::string name = item.name;
            if (std::string(item.caption) == "-") {
                drop->addSeparator();
                continue;
            }
            if (name == "FileOpenRecent") {
                addReadAfreshSubmenu(*drop, item, sources.recentItems, sources.chooseRecent);
                continue;
            }
            if (name == "HelpReference") {
                addReadAfreshSubmenu(*drop, item, sources.referenceTables, sources.chooseReference);
                continue;
            }
            QAction* action = drop->addAction(item.caption);
            action->setObjectName(item.name);
            action->setShortcut(QKeySequence(item.shortcut));
            if (name.rfind("Tab", 0) == 0) action->setCheckable(true);
            if (name == "FileQuit") action->setMenuRole(QAction::QuitRole);
            if (const char* slot = textSlot(name)) {
                QObject::connect(action, &QAction::triggered, &window, [slot, own = handler(name)] {
                    QWidget* focus = QApplication::focusWidget();
                    if (own && !TakesText(focus)) own();
                    else if (focus) QMetaObject::invokeMethod(focus, slot);
                });
                continue;
            }
            // What no one claims yet stays in the bar, disabled.
            const std::function<void()> run = handler(name);
            action->setEnabled(bool(run));
            if (run) QObject::connect(action, &QAction::triggered, &window, run);
        }
    }
}

}  // namespace zeph::gui
