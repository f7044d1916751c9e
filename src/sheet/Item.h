// The named items of a character sheet. An item holds text, a flag, offered rows or a list of
// rows of text columns, and a visibility flag; every change is told to its observers, which is
// how change operations and views follow the sheet.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "sheet/StyledText.h"

namespace zeph {

// A toggle is a flag pressed by a click whose own operation decides the state it ends in.
enum class ItemKind { Text, Number, Flag, Toggle, Combo, Choice, List, Styled, Label };

enum class ItemChange { Text, Visibility, Rows, Selection, Bold, Heading, Enabled, Layout };

class Item;

// Finds the items of one sheet by name, in the order they were made.
class ItemRegistry {
public:
    void Add(Item* item);
    Item* Find(const std::string& name) const;
    const std::vector<Item*>& All() const { return inOrder_; }

    // Told before any item changes, with the item as it still is: how a step's record learns
    // what to bring back. One watcher at a time.
    void WatchChanges(std::function<void(Item&)> watcher) { watcher_ = std::move(watcher); }
    void WillChange(Item& item) {
        if (watcher_) watcher_(item);
    }
    // Set while a step is taken back or done again: what the items tell is no edit, so their
    // change operations stay still.
    bool replaying = false;

private:
    std::map<std::string, Item*> byName_;
    std::vector<Item*> inOrder_;
    std::function<void(Item&)> watcher_;
};

class Item {
public:
    using Observer = std::function<void(ItemChange)>;

    Item(ItemRegistry& registry, std::string name, ItemKind kind, bool visible);
    virtual ~Item() = default;
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;

    const std::string& Name() const { return name_; }
    ItemKind Kind() const { return kind_; }
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    // Whether the user can work the item; a disabled item still shows.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    // The observer lives as long as the item; the token lets a view detach itself.
    int Observe(Observer observer);
    void StopObserving(int token);

    // What an item holds, set aside so that a step can be taken back.
    struct Kept {
        virtual ~Kept() = default;
    };
    virtual std::unique_ptr<Kept> Keep() const = 0;
    // Trades what the item holds for what was kept, so that the same record serves undo and
    // redo, and tells the observers.
    virtual void Trade(Kept& kept) = 0;

protected:
    void Notify(ItemChange change);
    // Called by every change before it changes anything.
    void willChange() { registry_.WillChange(*this); }
    // What every item holds; each kind adds its own to it.
    auto heldByEvery() { return std::tie(visible_, enabled_); }
    // Tells the observers of a trade: whether shown and enabled, and the changes of its kind.
    void tellTraded(std::initializer_list<ItemChange> changes);

private:
    ItemRegistry& registry_;
    std::string name_;
    ItemKind kind_;
    bool visible_;
    bool enabled_ = true;
    std::map<int, Observer> observers_;
    int nextToken_ = 0;
};

// Text, number, styled and label items: one text, also held as style runs. Only a styled item
// is given styles, and a selection for its editing; positions and lengths count characters.
class TextItem : public Item {
public:
    TextItem(ItemRegistry& registry, std::string name, ItemKind kind = ItemKind::Text,
             std::string text = "", bool visible = true);
    const std::string& Text() const { return text_; }
    // Notifies only when the text really changes; the new text is one plain run.
    void SetText(const std::string& text);

    const StyledText& Styled() const { return styled_; }
    // Replaces text and styles, with an empty selection at the start.
    void SetStyled(const StyledText& styled);
    // Adds at the end, whatever the selection, which stays as it was.
    void AppendStyled(const StyledText& more);
    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    // Clamped to the text.
    void SetSelection(int start, int length);
    // Puts the text in place of the selection as typing does: in the style of the character
    // before it, with the insertion point after it.
    void ReplaceSelection(const std::string& text);

    std::unique_ptr<Kept> Keep() const override;
    void Trade(Kept& kept) override;

private:
    auto held() { return std::tuple_cat(heldByEvery(), std::tie(text_, styled_, selStart_, selLength_)); }
    // Takes the new runs; tells a new text as such, and otherwise a change of styles.
    void change(StyledText styled);
    void clampSelection();

    std::string text_;
    StyledText styled_;
    int selStart_ = 0;
    int selLength_ = 0;
};

// Flags and toggles.
class FlagItem : public Item {
public:
    FlagItem(ItemRegistry& registry, std::string name, bool value,
             ItemKind kind = ItemKind::Flag);
    bool Value() const { return value_; }
    void SetValue(bool value);

    std::unique_ptr<Kept> Keep() const override;
    void Trade(Kept& kept) override;

private:
    auto held() { return std::tuple_cat(heldByEvery(), std::tie(value_)); }
    bool value_;
};

// Combo (free text with offered rows) and choice (one of its rows, or none).
class ComboItem : public Item {
public:
    ComboItem(ItemRegistry& registry, std::string name, ItemKind kind,
              std::vector<std::string> rows = {}, bool visible = true);
    const std::string& Text() const { return text_; }
    // A combo takes any text; a choice selects the row of that text, or none.
    void SetText(const std::string& text);
    void AddRow(const std::string& text);
    void DeleteAllRows();
    const std::string& List(int index) const;
    int ListCount() const { return static_cast<int>(rows_.size()); }
    int ListIndex() const { return listIndex_; }
    // Selecting a row puts its text in the item; -1 leaves a combo's text and empties a choice.
    void SetListIndex(int index);
    const std::vector<std::string>& Rows() const { return rows_; }

    std::unique_ptr<Kept> Keep() const override;
    void Trade(Kept& kept) override;

private:
    auto held() { return std::tuple_cat(heldByEvery(), std::tie(text_, rows_, listIndex_)); }
    int rowOf(const std::string& text) const;
    void setTextAndIndex(const std::string& text, int index);

    std::string text_;
    std::vector<std::string> rows_;
    int listIndex_ = -1;
};

// A list of rows with a fixed number of text columns; a cell never written reads "".
class ListItem : public Item {
public:
    ListItem(ItemRegistry& registry, std::string name, int columnCount,
             std::vector<std::string> headings, bool visible = true);
    int ColumnCount() const { return columnCount_; }
    // Rows keep their cells up to the new count; headings beyond it go.
    void SetColumnCount(int columnCount);
    int ListCount() const { return static_cast<int>(rows_.size()); }
    // Row and column out of range are faults of the caller: std::out_of_range.
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, const std::string& value);
    // Appends a row with column 0 set; LastIndex() yields it.
    void AddRow(const std::string& text);
    void InsertRow(int row, const std::string& text);
    void RemoveRow(int row);
    // A row dragged to another place: it ends at index `to` of the new order.
    void MoveRow(int from, int to);
    // Orders the rows by the text of one column, without regard to case; equal texts keep
    // their order.
    void SortRows(int column);
    void DeleteAllRows();
    int LastIndex() const { return lastIndex_; }

    int ListIndex() const;  // first selected row, -1 when none
    void SetListIndex(int row);  // that row alone becomes selected; -1 selects none
    bool Selected(int row) const;
    void SetSelected(int row, bool selected);

    bool CellBold(int row, int column) const;
    void SetCellBold(int row, int column, bool bold);
    const std::string& Heading(int column) const;
    void SetHeading(int column, const std::string& heading);

    // The layout a list may carry for its view: widths as set, pixels or percentages of the
    // list's width joined by "," ("90,120", "60%,40%"; "" leaves them to the view), centred
    // columns, and how many columns from the first are shown (none leaves it to the view).
    const std::string& ColumnWidths() const { return columnWidths_; }
    void SetColumnWidths(const std::string& widths);
    bool ColumnCentred(int column) const;
    void SetColumnCentred(int column, bool centred);
    std::optional<int> ShownColumns() const { return shownColumns_; }
    void SetShownColumns(int count);

    std::unique_ptr<Kept> Keep() const override;
    void Trade(Kept& kept) override;

private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<bool> bold;
    };
    // Rows are shared with the records of steps until one of them is changed, so that keeping
    // a long list aside costs a pointer a row.
    using SharedRow = std::shared_ptr<Row>;
    auto held() {
        return std::tuple_cat(heldByEvery(),
                              std::tie(columnCount_, headings_, centred_, columnWidths_,
                                       shownColumns_, rows_, selected_, lastIndex_));
    }
    const Row& row(int index) const;
    // The row to change: a copy of its own when a record shares it.
    Row& changeRow(int index);
    void checkRow(int index) const;
    void checkColumn(int column) const;
    SharedRow makeRow(const std::string& text) const;

    int columnCount_;
    std::vector<std::string> headings_;
    std::vector<bool> centred_;
    std::string columnWidths_;
    std::optional<int> shownColumns_;
    std::vector<SharedRow> rows_;
    std::vector<bool> selected_;  // beside the rows: choosing a row copies none
    int lastIndex_ = -1;
};

}  // namespace zeph
