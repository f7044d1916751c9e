// Keeps widgets and the named items of a sheet or a tool in step. One binding per item kind:
// the widget shows what the item holds and follows its changes; a user edit writes the item,
// whose own change operations then run in the core; focus, clicks and double clicks become the
// item's named operations (<Item>_GotFocus, _LostFocus, _MouseDown, _DoubleClick) when its
// owner has them.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "sheet/Item.h"

class QLabel;
class QWidget;

namespace zeph {
class CharacterSheet;
}  // namespace zeph

namespace zeph::gui {

// Runs core work for a widget; the window passes it through its guard.
using CoreCall = std::function<void(const std::function<void()>&)>;
// Runs a user's edit of the item as what it is to the items' owner: a sheet's step.
using EditCall = std::function<void(Item&, const std::function<void()>&)>;
// The named operation of the items' owner, ready to run; an empty function when it has none.
using EventLookup = std::function<std::function<void()>(const std::string& operationName)>;

class ItemBinding;

// The binding of one window whose item holds the sheet's focus. The sheet hears of moves of
// focus within its window; leaving for another window or a popup and coming back to the same
// widget is no move, while coming back to another widget is one.
struct SheetFocus {
    ItemBinding* holder = nullptr;
};

class ItemBinding : public QObject {
  public:
    ItemBinding(const EventLookup& events, Item& item, QWidget& widget, CoreCall call);
    ~ItemBinding() override;
    ItemBinding(const ItemBinding&) = delete;
    ItemBinding& operator=(const ItemBinding&) = delete;

    // Shows the whole item: content, visibility and whether it can be worked.
    void ShowAll();
    // Joins the focus of the other bindings of its window.
    void ShareFocus(SheetFocus& focus) { focus_ = &focus; }
    // The owner's way with edits; without one an edit is plain core work.
    void TakeEdits(EditCall edits) { edits_ = std::move(edits); }

  protected:
    // Brings the widget up to the item after a change of that sort; never echoes back.
    virtual void show(ItemChange change) = 0;
    // Brings the whole widget up to the item at once.
    virtual void showWhole() { show(ItemChange::Rows); }
    // A user edit: written into the item through the guard.
    void write(const std::function<void()>& edit);
    void runEvent(const std::function<void()>& event);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Item& item() { return item_; }
    const std::function<void()>& DoubleClick() const { return doubleClick_; }

  private:
    Item& item_;
    QWidget& widget_;
    CoreCall call_;
    EditCall edits_;
    int token_;
    std::function<void()> gotFocus_;
    std::function<void()> lostFocus_;
    std::function<void()> mouseDown_;
    std::function<void()> doubleClick_;
    SheetFocus ownFocus_;
    SheetFocus* focus_ = &ownFocus_;
};

// Makes the widgets of one sheet's or tool's items, by item name, and owns their bindings.
// Destroy it before the items' owner: the bindings detach from the items then.
class SheetBinder {
  public:
    SheetBinder(CharacterSheet& sheet, CoreCall call, QWidget* owner);
    // Items of another owner, whose operations `events` finds.
    SheetBinder(const ItemRegistry& items, EventLookup events, CoreCall call, QWidget* owner);
    ~SheetBinder();

    // The usual widget of the item's kind: a line edit for text and numbers, a check box for
    // a flag (with `caption`), a checkable push button for a toggle (with `caption`; a click
    // runs its _Action), an editable combo box for a combo, a fixed one for a choice, a
    // tree for a list, a text edit for styled text, a label for a label. Named after the item.
    QWidget* Widget(const std::string& itemName, const std::string& caption = "");
    // A styled text edit over a styled item that is not the sheet's own (a journal window's).
    QWidget* StyledField(TextItem& item);
    // Any text item shown as a label (numbers the user clicks rather than types).
    QLabel* Label(const std::string& itemName);
    // Shows every bound item as it stands; call once the widgets sit in their layouts.
    void ShowAll();

  private:
    Item& find(const std::string& itemName) const;
    void adopt(std::unique_ptr<ItemBinding> binding);

    const ItemRegistry& items_;
    EventLookup events_;
    CoreCall call_;
    EditCall edits_;
    QWidget* owner_;
    SheetFocus focus_;
    std::vector<std::unique_ptr<ItemBinding>> bindings_;
};

// The name a screen reader speaks for the widget of an item or operation, made from its name:
// the words of "QualityXPCostPerLevelField" less the widget's kind, "Quality XP cost per level";
// the level arrows "SkillUpDownArrows1_Up" are "Skill level up". Names are unique, so are these.
QString SpokenName(const std::string& name);

}  // namespace zeph::gui
