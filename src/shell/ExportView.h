// The export window of one character: the form menu, the result (which the user may edit), and
// the preview, save and close buttons, over the core's export state.
#pragma once

#include <QMainWindow>
#include <memory>

#include "shell/Menus.h"

class QComboBox;
class QPlainTextEdit;
class QPushButton;

namespace zeph {
class CharacterSheet;
class ExportWindow;
}  // namespace zeph

namespace zeph::gui {

class ExportView : public QMainWindow, public CommandTarget {
  public:
    // With the shared menu bar when `menus` has one, so that its Close Window closes this window.
    ExportView(CharacterSheet& character, const MenuSources& menus, QWidget* parent = nullptr);
    ~ExportView() override;

  private:
    void showModel();

    std::unique_ptr<ExportWindow> model_;
    QComboBox* forms_ = nullptr;
    QPlainTextEdit* result_ = nullptr;
    QPushButton* preview_ = nullptr;
    QPushButton* save_ = nullptr;
};

}  // namespace zeph::gui
