// The portrait window of one character: shows the picture of its file, takes a new one by drag
// and drop, and sizes itself to the picture. A dropped picture waits on the sheet until the next
// save writes it beside the character file.
#pragma once

#include <QMainWindow>

#include "sheet/AttachedWindow.h"
#include "shell/Menus.h"

class QLabel;

namespace zeph {
class CharacterSheet;
}

namespace zeph::gui {

class PortraitView : public QMainWindow, public CommandTarget, public AttachedWindow {
  public:
    // Opens the character's portrait; does nothing when it is open already.
    static void Open(CharacterSheet& sheet, QWidget* parent, const MenuSources& menus);
    ~PortraitView() override;

    // What a drop of a picture does: shown, kept on the sheet, the character unsaved.
    void TakePicture(const QImage& picture);

    void Close() override { close(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    PortraitView(CharacterSheet& sheet, QWidget* parent);
    void showPicture(const QImage& picture);

    CharacterSheet& sheet_;
    QLabel* well_ = nullptr;
};

}  // namespace zeph::gui
