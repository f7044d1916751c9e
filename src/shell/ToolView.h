// The window of a tool (dice roller, reference table, Load Data, About, update check) over its
// core model: the items bound by name, title and size from the model, Close Window handled,
// and the model told of every way out.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "shell/Menus.h"

class QDialog;
class QLayout;
class QPushButton;

namespace zeph {
class App;
class DataModule;
class Platform;
class RandomSource;
class ReferenceWindow;
class ToolModel;
}  // namespace zeph

namespace zeph::gui {

class SheetBinder;

class ToolView : public QMainWindow, public CommandTarget {
  public:
    ToolView(std::unique_ptr<ToolModel> model, const MenuSources& menus);
    ~ToolView() override;

    ToolModel& Model() { return *model_; }
    // The widget of a model's item, bound to it.
    QWidget* Bind(const std::string& itemName, const std::string& caption = "");
    // A button that runs the model's operation; the default one answers the Return key too.
    QPushButton* Button(const std::string& caption, const std::string& operation,
                        bool isDefault = false);
    // Runs the model's operation through the core's guard.
    void Run(const std::string& operation, const std::string& argument = "");
    // Puts the layout in the window, shows the items as they stand, sizes the window and
    // brings it to the front.
    void Finish(QLayout* layout);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    std::unique_ptr<ToolModel> model_;
    // After the model, so the bindings let go of its items first.
    std::unique_ptr<SheetBinder> binder_;
    bool closing_ = false;
};

// The tool windows, made and shown; each deletes itself when closed.
ToolView* ShowDiceView(RandomSource& random, const MenuSources& menus);
ToolView* ShowReferenceView(std::unique_ptr<ReferenceWindow> table, const MenuSources& menus);
ToolView* ShowLoadDataView(DataModule& data, Platform& platform, App& app,
                           const MenuSources& menus);
// The report of what a new rule data file would change on the open characters, asked before
// Load Data switches: accepted loads the file, rejected keeps the one in use.
QDialog* MakeDataSwitchDialog(const std::string& report, QWidget* parent);
ToolView* ShowAboutView(const DataModule& data, const MenuSources& menus);
ToolView* ShowCheckUpdatesView(Platform& platform, const std::string& webHost,
                               const MenuSources& menus);

}  // namespace zeph::gui
