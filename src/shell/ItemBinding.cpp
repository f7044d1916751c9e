#include "shell/ItemBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "app/SheetOperations.h"
#include "app/SheetSteps.h"
#include "sheet/CharacterSheet.h"
#include "text/NameWords.h"

namespace zeph::gui {
namespace {

QString q(const std::string& text) { return QString::fromStdString(text); }

// The sheet's operations by name, run on that sheet.
EventLookup sheetEvents(CharacterSheet& sheet) {
    return [&sheet](const std::string& name) -> std::function<void()> {
        const OperationTable& operations = SheetOperations();
        auto found = operations.find(name);
        if (found == operations.end()) return {};
        return [&sheet, name] { RunUserOperation(sheet, name); };
    };
}

// Focus lost because a popup opened or another window came to the front is expected back;
// whether it left the widget shows only where it comes back to.
bool focusOnlyStepsAway(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
}

class LineEditBinding : public ItemBinding {
  public:
    LineEditBinding(const EventLookup& events, TextItem& item, QLineEdit& edit, CoreCall call)
        : ItemBinding(events, item, edit, std::move(call)), item_(item), edit_(edit) {
        connect(&edit, &QLineEdit::textEdited, this,
                [this](const QString& text) { write([&] { item_.SetText(text.toStdString()); }); });
    }

  protected:
    void show(ItemChange) override {
        const QString text = q(item_.Text());
        if (edit_.text() == text) return;
        QSignalBlocker quiet(&edit_);
        edit_.setText(text);
        // A text longer than the field reads from its start unless the user is typing in it.
        if (!edit_.hasFocus()) edit_.setCursorPosition(0);
    }

  private:
    TextItem& item_;
    QLineEdit& edit_;
};

class LabelBinding : public ItemBinding {
  public:
    LabelBinding(const EventLookup& events, TextItem& item, QLabel& label, CoreCall call)
        : ItemBinding(events, item, label, std::move(call)), item_(item), label_(label) {}

  protected:
    // A label's new text lays out its parents again, even when it is the same text.
    void show(ItemChange) override {
        const QString text = q(item_.Text());
        if (label_.text() != text) label_.setText(text);
    }

  private:
    TextItem& item_;
    QLabel& label_;
};

// A run's style as a character format: a font, size or colour only where the run names one,
// so that the rest follows the field's own look.
QTextCharFormat formatOf(const StyleRun& run) {
    QTextCharFormat format;
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(run.italic);
    format.setFontUnderline(run.underline);
    if (!run.font.empty()) format.setFontFamilies({q(run.font)});
    if (run.size > 0) format.setFontPointSize(run.size);
    if (run.color != 0) format.setForeground(QColor::fromRgb(run.color));
    return format;
}

void styleFrom(const QTextCharFormat& format, StyleRun& run) {
    run.bold = format.fontWeight() >= QFont::Bold;
    run.italic = format.fontItalic();
    run.underline = format.fontUnderline();
    if (format.hasProperty(QTextFormat::FontFamilies) &&
        !format.fontFamilies().toStringList().isEmpty())
        run.font = format.fontFamilies().toStringList().first().toStdString();
    if (format.hasProperty(QTextFormat::FontPointSize))
        run.size = static_cast<int>(format.fontPointSize() + 0.5);
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        run.color = format.foreground().color().rgb() & 0xFFFFFF;
}

// The runs that a styled edit shows: one per fragment of one style, a line end between
// paragraphs.
StyledText runsShown(const QTextDocument& document) {
    StyledText styled;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin()) styled.Append(StyleRun{"\n"});
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            StyleRun run{piece.fragment().text().toStdString()};
            styleFrom(piece.fragment().charFormat(), run);
            styled.Append(run);
        }
    }
    return styled;
}

bool sameRuns(const StyledText& a, const StyledText& b) {
    return std::equal(
        a.runs.begin(), a.runs.end(), b.runs.begin(), b.runs.end(),
        [](const StyleRun& x, const StyleRun& y) { return x.text == y.text && x.SameStyle(y); });
}

class StyledBinding : public ItemBinding {
  public:
    StyledBinding(const EventLookup& events, TextItem& item, QTextEdit& edit, CoreCall call)
        : ItemBinding(events, item, edit, std::move(call)), item_(item), edit_(edit) {
        edit.setAcceptRichText(false);
        // A styled text is a page: its colours are stored with it and exported on white, and
        // "Normal" makes text black, so the field stays white under a dark theme too.
        QPalette page = edit.palette();
        page.setColor(QPalette::Base, Qt::white);
        page.setColor(QPalette::Text, Qt::black);
        edit.setPalette(page);
        connect(&edit, &QTextEdit::textChanged, this,
                [this] { write([&] { item_.SetStyled(runsShown(*edit_.document())); }); });
    }

  protected:
    void show(ItemChange) override {
        if (sameRuns(runsShown(*edit_.document()), item_.Styled())) return;
        QSignalBlocker quiet(&edit_);
        edit_.clear();
        QTextCursor cursor(edit_.document());
        for (const StyleRun& run : item_.Styled().runs)
            cursor.insertText(q(run.text), formatOf(run));
    }

  private:
    TextItem& item_;
    QTextEdit& edit_;
};

class FlagBinding : public ItemBinding {
  public:
    FlagBinding(const EventLookup& events, FlagItem& item, QCheckBox& box, CoreCall call)
        : ItemBinding(events, item, box, std::move(call)), item_(item), box_(box) {
        connect(&box, &QCheckBox::toggled, this,
                [this](bool checked) { write([&] { item_.SetValue(checked); }); });
    }

  protected:
    void show(ItemChange) override {
        QSignalBlocker quiet(&box_);
        box_.setChecked(item_.Value());
    }

  private:
    FlagItem& item_;
    QCheckBox& box_;
};

// A toggle's click is its operation, which leaves the toggle pressed or raised; the button
// then shows what the operation left.
class ToggleBinding : public ItemBinding {
  public:
    ToggleBinding(const EventLookup& events, FlagItem& item, QPushButton& button, CoreCall call)
        : ItemBinding(events, item, button, std::move(call)), item_(item), button_(button) {
        button.setCheckable(true);
        connect(&button, &QPushButton::clicked, this,
                [this, action = events(item.Name() + "_Action")] {
                    runEvent(action);
                    show(ItemChange::Text);
                });
    }

  protected:
    void show(ItemChange) override {
        QSignalBlocker quiet(&button_);
        button_.setChecked(item_.Value());
    }

  private:
    FlagItem& item_;
    QPushButton& button_;
};

// Combos and choices alike; only a combo's box takes typed text.
class ComboBinding : public ItemBinding {
  public:
    ComboBinding(const EventLookup& events, ComboItem& item, QComboBox& box, CoreCall call)
        : ItemBinding(events, item, box, std::move(call)), item_(item), box_(box) {
        connect(&box, &QComboBox::currentIndexChanged, this, [this](int index) {
            if (index >= item_.ListCount()) return;
            write([&] { item_.SetListIndex(index); });
        });
        if (QLineEdit* edit = box.lineEdit()) {
            connect(edit, &QLineEdit::textEdited, this, [this](const QString& text) {
                write([&] { item_.SetText(text.toStdString()); });
            });
        }
    }

  protected:
    void show(ItemChange) override {
        QSignalBlocker quiet(&box_);
        if (!sameRows()) {
            box_.clear();
            for (const std::string& row : item_.Rows()) box_.addItem(q(row));
        }
        if (box_.currentIndex() != item_.ListIndex()) box_.setCurrentIndex(item_.ListIndex());
        const QString text = q(item_.Text());
        if (box_.isEditable() && box_.currentText() != text) box_.setEditText(text);
    }

  private:
    bool sameRows() const {
        if (box_.count() != item_.ListCount()) return false;
        for (int row = 0; row < box_.count(); ++row)
            if (box_.itemText(row) != q(item_.List(row))) return false;
        return true;
    }

    ComboItem& item_;
    QComboBox& box_;
};

// A list shows its first columns (up to five, unless it tells how many); the others are storage
// of the sheet. A list with widths of its own takes them and its centred columns from the item;
// the sheet's lists centre level, cost and experience.
class ListBinding : public ItemBinding {
  public:
    ListBinding(const EventLookup& events, ListItem& item, QTreeWidget& tree, CoreCall call)
        : ItemBinding(events, item, tree, std::move(call)), item_(item), tree_(tree) {
        tree.setColumnCount(shownColumns());
        connect(&rebuildSoon_, &QTimer::timeout, this, [this] { rebuild(); });
        tree.setRootIsDecorated(false);
        tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
        tree.header()->setDefaultSectionSize(80);
        tree.header()->resizeSection(0, 240);  // names are the longest cells
        // Even rows tinted, the selected row deep blue with white text.
        QPalette colours = tree.palette();
        colours.setColor(QPalette::Base, QColor::fromString("#e8ebff"));
        colours.setColor(QPalette::AlternateBase, Qt::white);
        colours.setColor(QPalette::Text, Qt::black);
        colours.setColor(QPalette::Highlight, QColor::fromString("#4252ff"));
        colours.setColor(QPalette::HighlightedText, Qt::white);
        tree.setPalette(colours);
        tree.setAlternatingRowColors(true);
        connect(&tree, &QTreeWidget::itemSelectionChanged, this, [this] { writeSelection(); });
        connect(&tree, &QTreeWidget::itemDoubleClicked, this, [this] { runEvent(DoubleClick()); });
    }

  protected:
    // A rule writes a list cell by cell, a whole row of storage columns at a time; rebuilding
    // the tree at each write would make a character's load crawl. Row changes are gathered and
    // shown once, when control is back in the event loop.
    void show(ItemChange change) override {
        QSignalBlocker quiet(&tree_);
        if (change == ItemChange::Heading) {
            showHeadings();
        } else if (change == ItemChange::Layout) {
            showLayout();
            showAlignment();
        } else if (change == ItemChange::Selection) {
            if (!rebuildSoon_.isActive()) showSelection();
        } else if (!rebuildSoon_.isActive()) {
            rebuildSoon_.start(0);
        }
    }

    void showWhole() override { rebuild(); }

    // Widths in percent follow the list's width; the filter watches the list alone.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) showLayout();
        return ItemBinding::eventFilter(watched, event);
    }

  private:
    int shownColumns() const {
        return std::min(item_.ColumnCount(), item_.ShownColumns().value_or(5));
    }

    bool centred(int column) const {
        if (item_.ColumnWidths().empty()) return column >= 1 && column <= 3;
        return item_.ColumnCentred(column);
    }

    void showHeadings() {
        QStringList headings;
        for (int column = 0; column < shownColumns(); ++column)
            headings << q(item_.Heading(column));
        tree_.setColumnCount(shownColumns());
        tree_.setHeaderLabels(headings);
    }

    // "90,120" in pixels, "60%,40%" in parts of the list's width; columns beyond keep theirs, and
    // widths beyond the columns shown go to none.
    void showLayout() {
        const QStringList widths = q(item_.ColumnWidths()).split(',', Qt::SkipEmptyParts);
        for (int column = 0; const QString& given : widths) {
            QString width = given.trimmed();
            const bool percent = width.endsWith('%');
            if (percent) width.chop(1);
            const int size = width.toInt();
            // The viewport follows the list's own resize later; the list's inside is there now.
            const int whole = tree_.contentsRect().width();
            tree_.header()->resizeSection(column++, percent ? whole * size / 100 : size);
        }
    }

    void rebuild() {
        rebuildSoon_.stop();  // the timer repeats until stopped; one rebuild shows every change so far
        QSignalBlocker quiet(&tree_);
        showHeadings();
        showLayout();
        showRows();
        showAlignment();
        showSelection();
    }

    void showRows() {
        tree_.clear();
        for (int row = 0; row < item_.ListCount(); ++row) {
            auto* line = new QTreeWidgetItem(&tree_);
            for (int column = 0; column < shownColumns(); ++column) {
                line->setText(column, q(item_.Cell(row, column)));
                if (item_.CellBold(row, column)) {
                    QFont font = line->font(column);
                    font.setBold(true);
                    line->setFont(column, font);
                }
            }
        }
    }

    void showAlignment() {
        for (int column = 0; column < shownColumns(); ++column) {
            const Qt::Alignment alignment =
                centred(column) ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
            tree_.headerItem()->setTextAlignment(column, alignment);
            for (int row = 0; row < tree_.topLevelItemCount(); ++row)
                tree_.topLevelItem(row)->setTextAlignment(column, alignment);
        }
    }

    void showSelection() {
        const int rows = std::min(tree_.topLevelItemCount(), item_.ListCount());
        for (int row = 0; row < rows; ++row)
            tree_.topLevelItem(row)->setSelected(item_.Selected(row));
    }

    void writeSelection() {
        // The tree is about to be rebuilt from the item, whose selection it will then show.
        if (rebuildSoon_.isActive()) return;
        std::vector<bool> selected;
        const int rows = std::min(tree_.topLevelItemCount(), item_.ListCount());
        for (int row = 0; row < rows; ++row)
            selected.push_back(tree_.topLevelItem(row)->isSelected());
        write([&] {
            for (int row = 0; row < rows; ++row)
                if (item_.Selected(row) != selected[static_cast<std::size_t>(row)])
                    item_.SetSelected(row, selected[static_cast<std::size_t>(row)]);
        });
    }

    ListItem& item_;
    QTreeWidget& tree_;
    QTimer rebuildSoon_;
};

}  // namespace

ItemBinding::ItemBinding(const EventLookup& events, Item& item, QWidget& widget, CoreCall call)
    : item_(item),
      widget_(widget),
      call_(std::move(call)),
      gotFocus_(events(item.Name() + "_GotFocus")),
      lostFocus_(events(item.Name() + "_LostFocus")),
      mouseDown_(events(item.Name() + "_MouseDown")),
      doubleClick_(events(item.Name() + "_DoubleClick")) {
    widget.setObjectName(q(item.Name()));
    widget.installEventFilter(this);
    token_ = item.Observe([this](ItemChange change) {
        if (change == ItemChange::Visibility)
            widget_.setVisible(item_.Visible());
        else if (change == ItemChange::Enabled)
            widget_.setEnabled(item_.Enabled());
        else
            show(change);
    });
}

ItemBinding::~ItemBinding() { item_.StopObserving(token_); }

void ItemBinding::ShowAll() {
    showWhole();
    widget_.setVisible(item_.Visible());
    widget_.setEnabled(item_.Enabled());
}

void ItemBinding::write(const std::function<void()>& edit) {
    if (edits_) call_([&] { edits_(item_, edit); });
    else call_(edit);
}

void ItemBinding::runEvent(const std::function<void()>& event) {
    if (event) call_(event);
}

bool ItemBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &widget_) {
        switch (event->type()) {
            case QEvent::FocusIn:
                if (focus_->holder != this) {
                    // Back from another window onto another widget: the one that held the
                    // focus has lost it after all.
                    if (ItemBinding* previous = std::exchange(focus_->holder, nullptr))
                        previous->runEvent(previous->lostFocus_);
                    focus_->holder = this;
                    runEvent(gotFocus_);
                }
                break;
            case QEvent::FocusOut:
                if (focus_->holder == this &&
                    !focusOnlyStepsAway(static_cast<QFocusEvent&>(*event))) {
                    focus_->holder = nullptr;
                    runEvent(lostFocus_);
                }
                break;
            case QEvent::KeyPress:
                // A label that takes clicks takes Space and Return from the keyboard as well.
                if (mouseDown_ && qobject_cast<QLabel*>(&widget_) &&
                    QList<int>{Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}.contains(
                        static_cast<QKeyEvent*>(event)->key())) {
                    runEvent(mouseDown_);
                    return true;
                }
                break;
            case QEvent::MouseButtonPress:
                if (mouseDown_) {
                    runEvent(mouseDown_);
                    // A list fills itself at the press and then opens as usual.
                    return qobject_cast<QComboBox*>(&widget_) == nullptr;
                }
                break;
            default:
                break;
        }
    }
    return QObject::eventFilter(watched, event);
}

SheetBinder::SheetBinder(CharacterSheet& sheet, CoreCall call, QWidget* owner)
    : SheetBinder(sheet.Items(), sheetEvents(sheet), std::move(call), owner) {
    edits_ = [&sheet](Item& item, const std::function<void()>& edit) {
        RunEditStep(sheet, item, edit);
    };
}

SheetBinder::SheetBinder(const ItemRegistry& items, EventLookup events, CoreCall call,
                         QWidget* owner)
    : items_(items), events_(std::move(events)), call_(std::move(call)), owner_(owner) {}

SheetBinder::~SheetBinder() = default;

Item& SheetBinder::find(const std::string& itemName) const {
    Item* item = items_.Find(itemName);
    if (item == nullptr) throw std::logic_error("no item " + itemName + " to bind");
    return *item;
}

QWidget* SheetBinder::StyledField(TextItem& item) {
    auto* edit = new QTextEdit(owner_);
    edit->setAccessibleName(SpokenName(item.Name()));
    adopt(std::make_unique<StyledBinding>(events_, item, *edit, call_));
    return edit;
}

QString SpokenName(const std::string& name) {
    QStringList words;
    for (const std::string& word : NameWords(name)) words << q(word);
    // The widget's kind says nothing a screen reader does not say itself, but a list to choose
    // from stands beside a field of the same words ("QualityPopup", "QualityField").
    if (words.size() > 1 && (words.back() == "Popup" || words.back() == "Combo"))
        words.back() = "choice";
    while (words.size() > 1 && QStringList{"Field", "Button", "Box"}.contains(words.back()))
        words.removeLast();
    const int arrows = words.indexOf("Arrows");
    if (arrows >= 2 && words[arrows - 1] == "Down" && words[arrows - 2] == "Up") {
        words.remove(arrows - 2, 3);
        if (arrows - 2 < words.size() && words[arrows - 2].front().isDigit())
            words.remove(arrows - 2);
        words.insert(arrows - 2, "level");
    }
    for (int i = 1; i < words.size(); ++i)
        if (words[i] != words[i].toUpper()) words[i] = words[i].toLower();
    return words.join(' ');
}

QWidget* SheetBinder::Widget(const std::string& itemName, const std::string& caption) {
    Item& item = find(itemName);
    std::unique_ptr<ItemBinding> binding;
    QWidget* widget = nullptr;
    switch (item.Kind()) {
        case ItemKind::Text:
        case ItemKind::Number: {
            auto* edit = new QLineEdit(owner_);
            binding = std::make_unique<LineEditBinding>(events_, dynamic_cast<TextItem&>(item),
                                                        *edit, call_);
            widget = edit;
            break;
        }
        case ItemKind::Label:
            return Label(itemName);
        case ItemKind::Styled:
            return StyledField(dynamic_cast<TextItem&>(item));
        case ItemKind::Flag: {
            auto* box = new QCheckBox(q(caption), owner_);
            binding =
                std::make_unique<FlagBinding>(events_, dynamic_cast<FlagItem&>(item), *box, call_);
            widget = box;
            break;
        }
        case ItemKind::Toggle: {
            auto* button = new QPushButton(q(caption), owner_);
            binding = std::make_unique<ToggleBinding>(events_, dynamic_cast<FlagItem&>(item),
                                                      *button, call_);
            widget = button;
            break;
        }
        case ItemKind::Combo:
        case ItemKind::Choice: {
            auto* box = new QComboBox(owner_);
            box->setEditable(item.Kind() == ItemKind::Combo);
            box->setInsertPolicy(QComboBox::NoInsert);
            box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            binding = std::make_unique<ComboBinding>(events_, dynamic_cast<ComboItem&>(item), *box,
                                                     call_);
            widget = box;
            break;
        }
        case ItemKind::List: {
            auto* tree = new QTreeWidget(owner_);
            binding =
                std::make_unique<ListBinding>(events_, dynamic_cast<ListItem&>(item), *tree, call_);
            widget = tree;
            break;
        }
    }
    adopt(std::move(binding));
    // A check box says its caption; a toggle, which shows one of several fields, says which;
    // the other widgets say their item's name, which no other widget of the window shares.
    if (item.Kind() == ItemKind::Toggle)
        widget->setAccessibleName("Show " + q(caption).toLower());
    else if (item.Kind() != ItemKind::Flag)
        widget->setAccessibleName(SpokenName(itemName));
    return widget;
}

QLabel* SheetBinder::Label(const std::string& itemName) {
    auto* text = dynamic_cast<TextItem*>(&find(itemName));
    if (text == nullptr) throw std::logic_error(itemName + " holds no text to show in a label");
    auto* label = new QLabel(owner_);
    label->setAccessibleName(SpokenName(itemName));
    adopt(std::make_unique<LabelBinding>(events_, *text, *label, call_));
    return label;
}

void SheetBinder::adopt(std::unique_ptr<ItemBinding> binding) {
    binding->ShareFocus(focus_);
    binding->TakeEdits(edits_);
    bindings_.push_back(std::move(binding));
}

void SheetBinder::ShowAll() {
    for (auto& binding : bindings_) binding->ShowAll();
}

}  // namespace zeph::gui
