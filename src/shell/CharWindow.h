// The window of one character: six tabs of widgets bound by name to the items of its sheet,
// the status line below them, and the timer that keeps the status line fresh. Every event
// that is a rule goes to the sheet's operation of that name.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>

#include "shell/Menus.h"

class QCloseEvent;
class QGridLayout;
class QTreeWidget;
class QTabWidget;
class QTimer;

namespace zeph {
class CharacterSheet;
struct LeftBehindCopy;
}

namespace zeph::gui {

class SheetBinder;

class CharWindow : public QMainWindow, public CommandTarget {
  public:
    explicit CharWindow(std::unique_ptr<CharacterSheet> sheet, QWidget* parent = nullptr);
    ~CharWindow() override;

    CharacterSheet& Sheet() { return *sheet_; }
    void InstallMenus(const MenuSources& sources);
    // Fills the new sheet from a character file (by the open dialog when `path` is empty).
    void Load(const std::string& path);
    // Fills the new sheet from what a crash left behind, marked unsaved.
    void Reopen(const LeftBehindCopy& copy);

  protected:
    // The closing question: Cancel keeps the window.
    void closeEvent(QCloseEvent* event) override;

  private:
    // Core work from a slot: guarded, then the window's own title is brought up to date.
    void call(const std::function<void()>& work);
    void runOperation(const std::string& name);
    // Core work that is one step the user can take back, named for the Edit menu.
    void step(const std::string& name, const std::function<void()>& work);
    // The Edit menu's Undo and Redo say which steps they take.
    void nameSteps();
    void showTitle();
    void showTab(int tab);
    // Fills the command table: the tabs, the File commands of a character and the Format menu.
    void addCommands();

    QWidget* bound(const std::string& itemName, const std::string& caption = "");
    QWidget* shown(const std::string& itemName);
    QWidget* bonusNumber(const std::string& itemName);
    // A push button that runs the operation of its name's "_Action".
    QWidget* actionButton(const std::string& name, const QString& caption);
    // The level arrows: "_Up" and "_Down" of `name`.
    QWidget* arrows(const std::string& name);
    // A styled field with its Tab key.
    QWidget* styledField(const std::string& name);
    // One of the three big lists: the delete keys go to its "_KeyDown".
    QWidget* entryList(const std::string& name);
    // A list or field whose right click offers the items its operation builds.
    void offerMenu(QWidget* widget, const std::function<std::vector<std::string>()>& items,
                   const std::function<void(const std::string&)>& chosen);
    bool eventFilter(QObject* watched, QEvent* event) override;
    // A figure's tooltip: where its number comes from, read from the sheet at hover time.
    QWidget* explained(QWidget* figure);
    bool showFigureTerms(QWidget& figure, const QPoint& at);
    // A row of a big list dropped at `at`: moved there in the sheet.
    bool dropRow(QTreeWidget& tree, const QPoint& at);

    QWidget* attributesTab();
    QWidget* qualitiesTab();
    QWidget* skillsTab();
    QWidget* metaphysicsTab();
    QWidget* descriptionTab();
    QWidget* equipmentTab();

    MenuSources menus_{nullptr, {}, {}};
    std::unique_ptr<CharacterSheet> sheet_;
    // After the sheet, so the bindings detach before the sheet goes.
    std::unique_ptr<SheetBinder> binder_;
    QTabWidget* tabs_ = nullptr;
    QTimer* timer_ = nullptr;
};

}  // namespace zeph::gui
