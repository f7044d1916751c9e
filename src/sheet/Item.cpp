#include "sheet/Item.h"

#include <algorithm>
#include <stdexcept>

#include "text/TextHelpers.h"

namespace zeph {
namespace {

// An item's own members, as a copy set aside.
template <class... T>
struct KeptMembers : Item::Kept {
    explicit KeptMembers(const std::tuple<T&...>& members) : values(members) {}
    std::tuple<T...> values;
};

template <class... T>
std::unique_ptr<Item::Kept> keepMembers(const std::tuple<T&...>& members) {
    return std::make_unique<KeptMembers<T...>>(members);
}

template <class... T>
void tradeMembers(const std::tuple<T&...>& members, Item::Kept& kept) {
    auto& values = static_cast<KeptMembers<T...>&>(kept).values;
    std::apply([&](auto&... held) { std::apply([&](auto&... now) { (std::swap(now, held), ...); },
                                               members); },
               values);
}

}  // namespace

void ItemRegistry::Add(Item* item) {
    if (!byName_.emplace(item->Name(), item).second)
        throw std::logic_error("two items named " + item->Name());
    inOrder_.push_back(item);
}

Item* ItemRegistry::Find(const std::string& name) const {
    auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
}

Item::Item(ItemRegistry& registry, std::string name, ItemKind kind, bool visible)
    : registry_(registry), name_(std::move(name)), kind_(kind), visible_(visible) {
    registry.Add(this);
}

void Item::SetVisible(bool visible) {
    if (visible_ == visible) return;
    willChange();
    visible_ = visible;
    Notify(ItemChange::Visibility);
}

void Item::SetEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    willChange();
    enabled_ = enabled;
    Notify(ItemChange::Enabled);
}

int Item::Observe(Observer observer) {
    observers_.emplace(nextToken_, std::move(observer));
    return nextToken_++;
}

void Item::StopObserving(int token) { observers_.erase(token); }

void Item::tellTraded(std::initializer_list<ItemChange> changes) {
    const bool wasReplaying = std::exchange(registry_.replaying, true);
    Notify(ItemChange::Visibility);
    Notify(ItemChange::Enabled);
    for (ItemChange change : changes) Notify(change);
    registry_.replaying = wasReplaying;
}

void Item::Notify(ItemChange change) {
    // An observer may detach others (a view closing): walk a copy of the tokens.
    std::vector<int> tokens;
    for (const auto& [token, observer] : observers_) tokens.push_back(token);
    for (int token : tokens) {
        auto found = observers_.find(token);
        if (found != observers_.end()) found->second(change);
    }
}

TextItem::TextItem(ItemRegistry& registry, std::string name, ItemKind kind, std::string text,
                   bool visible)
    : Item(registry, std::move(name), kind, visible), text_(std::move(text)) {
    styled_.Append(StyleRun{text_});
}

void TextItem::SetText(const std::string& text) {
    if (text_ == text) return;
    StyledText plain;
    plain.Append(StyleRun{text});
    change(std::move(plain));
}

void TextItem::SetStyled(const StyledText& styled) {
    selStart_ = 0;
    selLength_ = 0;
    change(styled);
}

void TextItem::AppendStyled(const StyledText& more) {
    // In place: adding to a long text costs what is added, not the whole text again.
    const std::string added = more.Text();
    if (added.empty()) return;
    willChange();
    styled_.Append(more);
    text_ += added;
    Notify(ItemChange::Text);
}

void TextItem::SetSelection(int start, int length) {
    const int textLength = Len(text_);
    const int newStart = std::min(std::max(start, 0), textLength);
    const int newLength = std::min(std::max(length, 0), textLength - newStart);
    if (newStart == selStart_ && newLength == selLength_) return;
    willChange();
    selStart_ = newStart;
    selLength_ = newLength;
    Notify(ItemChange::Selection);
}

void TextItem::ReplaceSelection(const std::string& text) {
    const std::size_t start = Left(text_, selStart_).size();
    const std::size_t length = Left(std::string_view(text_).substr(start), selLength_).size();
    StyledText styled = styled_;
    styled.Replace(start, length, text);
    willChange();
    selStart_ += Len(text);
    selLength_ = 0;
    change(std::move(styled));
}

void TextItem::change(StyledText styled) {
    willChange();
    std::string text = styled.Text();
    styled_ = std::move(styled);
    if (text == text_) {
        Notify(ItemChange::Bold);
        return;
    }
    text_ = std::move(text);
    // A shorter text takes the selection with it; most items never have one.
    if (selStart_ + selLength_ > 0) clampSelection();
    Notify(ItemChange::Text);
}

void TextItem::clampSelection() {
    const int textLength = Len(text_);
    selStart_ = std::min(selStart_, textLength);
    selLength_ = std::min(selLength_, textLength - selStart_);
}

std::unique_ptr<Item::Kept> TextItem::Keep() const {
    return keepMembers(const_cast<TextItem*>(this)->held());
}

void TextItem::Trade(Kept& kept) {
    tradeMembers(held(), kept);
    tellTraded({ItemChange::Text, ItemChange::Bold, ItemChange::Selection});
}

FlagItem::FlagItem(ItemRegistry& registry, std::string name, bool value, ItemKind kind)
    : Item(registry, std::move(name), kind, true), value_(value) {}

void FlagItem::SetValue(bool value) {
    if (value_ == value) return;
    willChange();
    value_ = value;
    Notify(ItemChange::Text);
}

std::unique_ptr<Item::Kept> FlagItem::Keep() const {
    return keepMembers(const_cast<FlagItem*>(this)->held());
}

void FlagItem::Trade(Kept& kept) {
    tradeMembers(held(), kept);
    tellTraded({ItemChange::Text});
}

ComboItem::ComboItem(ItemRegistry& registry, std::string name, ItemKind kind,
                     std::vector<std::string> rows, bool visible)
    : Item(registry, std::move(name), kind, visible), rows_(std::move(rows)) {}

int ComboItem::rowOf(const std::string& text) const {
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (rows_[i] == text) return static_cast<int>(i);
    return -1;
}

void ComboItem::setTextAndIndex(const std::string& text, int index) {
    bool textChanged = text_ != text;
    bool indexChanged = listIndex_ != index;
    if (!textChanged && !indexChanged) return;
    willChange();
    text_ = text;
    listIndex_ = index;
    if (textChanged) Notify(ItemChange::Text);
    else if (indexChanged) Notify(ItemChange::Selection);
}

void ComboItem::SetText(const std::string& text) {
    int index = rowOf(text);
    if (Kind() == ItemKind::Choice && index < 0) {
        setTextAndIndex("", -1);
        return;
    }
    setTextAndIndex(text, index);
}

void ComboItem::AddRow(const std::string& text) {
    willChange();
    rows_.push_back(text);
    Notify(ItemChange::Rows);
}

void ComboItem::DeleteAllRows() {
    // Emptying the rows is no choice of the user's: the change operation does not run, so an
    // entry buffer stays as it was when its type or category changes.
    willChange();
    rows_.clear();
    listIndex_ = -1;
    if (Kind() == ItemKind::Choice) text_.clear();
    Notify(ItemChange::Rows);
}

const std::string& ComboItem::List(int index) const {
    return rows_.at(static_cast<std::size_t>(index));
}

void ComboItem::SetListIndex(int index) {
    if (index < -1 || index >= ListCount())
        throw std::out_of_range(Name() + ": no row " + std::to_string(index));
    if (index == -1) {
        setTextAndIndex(Kind() == ItemKind::Choice ? "" : text_, -1);
        return;
    }
    setTextAndIndex(rows_[static_cast<std::size_t>(index)], index);
}

std::unique_ptr<Item::Kept> ComboItem::Keep() const {
    return keepMembers(const_cast<ComboItem*>(this)->held());
}

void ComboItem::Trade(Kept& kept) {
    tradeMembers(held(), kept);
    tellTraded({ItemChange::Rows, ItemChange::Text, ItemChange::Selection});
}

ListItem::ListItem(ItemRegistry& registry, std::string name, int columnCount,
                   std::vector<std::string> headings, bool visible)
    : Item(registry, std::move(name), ItemKind::List, visible),
      columnCount_(columnCount),
      headings_(std::move(headings)) {
    headings_.resize(static_cast<std::size_t>(columnCount));
    centred_.resize(static_cast<std::size_t>(columnCount));
}

void ListItem::SetColumnCount(int columnCount) {
    willChange();
    columnCount_ = columnCount;
    const auto count = static_cast<std::size_t>(columnCount);
    headings_.resize(count);
    centred_.resize(count);
    for (int index = 0; index < ListCount(); ++index) {
        Row& r = changeRow(index);
        r.cells.resize(count);
        r.bold.resize(count);
    }
    Notify(ItemChange::Heading);
}

void ListItem::checkRow(int index) const {
    if (index < 0 || index >= ListCount())
        throw std::out_of_range(Name() + ": no row " + std::to_string(index));
}

const ListItem::Row& ListItem::row(int index) const {
    checkRow(index);
    return *rows_[static_cast<std::size_t>(index)];
}

ListItem::Row& ListItem::changeRow(int index) {
    checkRow(index);
    SharedRow& shared = rows_[static_cast<std::size_t>(index)];
    if (shared.use_count() > 1) shared = std::make_shared<Row>(*shared);
    return *shared;
}

void ListItem::checkColumn(int column) const {
    if (column < 0 || column >= columnCount_)
        throw std::out_of_range(Name() + ": no column " + std::to_string(column));
}

ListItem::SharedRow ListItem::makeRow(const std::string& text) const {
    auto r = std::make_shared<Row>();
    r->cells.assign(static_cast<std::size_t>(columnCount_), "");
    r->bold.assign(static_cast<std::size_t>(columnCount_), false);
    if (columnCount_ > 0) r->cells[0] = text;
    return r;
}

const std::string& ListItem::Cell(int rowIndex, int column) const {
    checkColumn(column);
    return row(rowIndex).cells[static_cast<std::size_t>(column)];
}

void ListItem::SetCell(int rowIndex, int column, const std::string& value) {
    checkColumn(column);
    if (row(rowIndex).cells[static_cast<std::size_t>(column)] == value) return;
    willChange();
    changeRow(rowIndex).cells[static_cast<std::size_t>(column)] = value;
    Notify(ItemChange::Rows);
}

void ListItem::AddRow(const std::string& text) {
    InsertRow(ListCount(), text);
}

void ListItem::InsertRow(int rowIndex, const std::string& text) {
    if (rowIndex < 0 || rowIndex > ListCount())
        throw std::out_of_range(Name() + ": cannot insert at row " + std::to_string(rowIndex));
    willChange();
    rows_.insert(rows_.begin() + rowIndex, makeRow(text));
    selected_.insert(selected_.begin() + rowIndex, false);
    lastIndex_ = rowIndex;
    Notify(ItemChange::Rows);
}

void ListItem::RemoveRow(int rowIndex) {
    checkRow(rowIndex);
    willChange();
    rows_.erase(rows_.begin() + rowIndex);
    selected_.erase(selected_.begin() + rowIndex);
    Notify(ItemChange::Rows);
}

void ListItem::MoveRow(int from, int to) {
    checkRow(from);
    willChange();
    SharedRow moved = rows_[static_cast<std::size_t>(from)];
    const bool wasSelected = selected_[static_cast<std::size_t>(from)];
    rows_.erase(rows_.begin() + from);
    selected_.erase(selected_.begin() + from);
    to = std::clamp(to, 0, ListCount());
    rows_.insert(rows_.begin() + to, std::move(moved));
    selected_.insert(selected_.begin() + to, wasSelected);
    Notify(ItemChange::Rows);
}

void ListItem::SortRows(int column) {
    checkColumn(column);
    willChange();
    const auto index = static_cast<std::size_t>(column);
    std::vector<std::size_t> order(rows_.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return LessNoCase(rows_[a]->cells[index], rows_[b]->cells[index]);
    });
    std::vector<SharedRow> rows;
    std::vector<bool> selected;
    for (std::size_t from : order) {
        rows.push_back(rows_[from]);
        selected.push_back(selected_[from]);
    }
    rows_ = std::move(rows);
    selected_ = std::move(selected);
    Notify(ItemChange::Rows);
}

void ListItem::DeleteAllRows() {
    willChange();
    rows_.clear();
    selected_.clear();
    Notify(ItemChange::Rows);
}

int ListItem::ListIndex() const {
    const auto first = std::find(selected_.begin(), selected_.end(), true);
    return first == selected_.end() ? -1 : static_cast<int>(first - selected_.begin());
}

void ListItem::SetListIndex(int rowIndex) {
    if (rowIndex != -1) checkRow(rowIndex);
    willChange();
    for (int i = 0; i < ListCount(); ++i) selected_[static_cast<std::size_t>(i)] = i == rowIndex;
    Notify(ItemChange::Selection);
}

bool ListItem::Selected(int rowIndex) const {
    checkRow(rowIndex);
    return selected_[static_cast<std::size_t>(rowIndex)];
}

void ListItem::SetSelected(int rowIndex, bool selected) {
    checkRow(rowIndex);
    willChange();
    selected_[static_cast<std::size_t>(rowIndex)] = selected;
    Notify(ItemChange::Selection);
}

bool ListItem::CellBold(int rowIndex, int column) const {
    checkColumn(column);
    return row(rowIndex).bold[static_cast<std::size_t>(column)];
}

void ListItem::SetCellBold(int rowIndex, int column, bool bold) {
    checkColumn(column);
    willChange();
    changeRow(rowIndex).bold[static_cast<std::size_t>(column)] = bold;
    Notify(ItemChange::Bold);
}

const std::string& ListItem::Heading(int column) const {
    checkColumn(column);
    return headings_[static_cast<std::size_t>(column)];
}

void ListItem::SetHeading(int column, const std::string& heading) {
    checkColumn(column);
    willChange();
    headings_[static_cast<std::size_t>(column)] = heading;
    Notify(ItemChange::Heading);
}

void ListItem::SetColumnWidths(const std::string& widths) {
    willChange();
    columnWidths_ = widths;
    Notify(ItemChange::Layout);
}

bool ListItem::ColumnCentred(int column) const {
    checkColumn(column);
    return centred_[static_cast<std::size_t>(column)];
}

void ListItem::SetColumnCentred(int column, bool centred) {
    checkColumn(column);
    willChange();
    centred_[static_cast<std::size_t>(column)] = centred;
    Notify(ItemChange::Layout);
}

void ListItem::SetShownColumns(int count) {
    willChange();
    shownColumns_ = count;
    Notify(ItemChange::Layout);
}

std::unique_ptr<Item::Kept> ListItem::Keep() const {
    return keepMembers(const_cast<ListItem*>(this)->held());
}

void ListItem::Trade(Kept& kept) {
    tradeMembers(held(), kept);
    tellTraded({ItemChange::Heading, ItemChange::Layout, ItemChange::Rows, ItemChange::Selection,
                ItemChange::Bold});
}

}  // namespace zeph
