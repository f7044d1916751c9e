#include "shell/CharWindow.h"

#include <QAction>
#include <QApplication>
#include <QTextEdit>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QHeaderView>
#include <QDropEvent>
#include <QKeyEvent>
#include <QTabWidget>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <tuple>

#include "documents/CharacterFile.h"
#include "documents/Recovery.h"
#include "documents/SavingCharacters.h"
#include "sheet/CharacterSheet.h"
#include "rules/Equipment.h"
#include "rules/MartialMoves.h"
#include "rules/NotesArea.h"
#include "shell/ExportView.h"
#include "shell/JournalView.h"
#include "shell/PortraitView.h"
#include "shell/PrintSheet.h"
#include "shell/StyleBar.h"
#include "app/SheetOperations.h"
#include "app/SheetSteps.h"
#include "shell/CoreCall.h"
#include "shell/ItemBinding.h"

namespace zeph::gui {
namespace {

constexpr int kStatusInterval = 1000;  // ms between refreshes of the status line

QLabel* caption(const QString& text) { return new QLabel(text); }

// A caption and its field side by side in a two-column form grid; `column` is 0 or 1.
void addField(QGridLayout* grid, int row, int column, const QString& text, QWidget* field) {
    grid->addWidget(caption(text), row, column * 2);
    grid->addWidget(field, row, column * 2 + 1);
}

void addField(QGridLayout* grid, int row, int column, QWidget* label, QWidget* field) {
    grid->addWidget(label, row, column * 2);
    grid->addWidget(field, row, column * 2 + 1);
}

QGridLayout* formGrid() {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->setHorizontalSpacing(10);
    return grid;
}

// A level field with its arrows beside it.
QWidget* withArrows(QWidget* field, QWidget* arrowPair) {
    auto* pair = new QWidget;
    auto* layout = new QHBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(arrowPair);
    return pair;
}

// A tab's page never shrinks below what its widgets need: in a small window it scrolls.
QWidget* scrolled(QWidget* page) {
    auto* scroll = new QScrollArea;
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    return scroll;
}

QGroupBox* group(const QString& title, QLayout* layout) {
    auto* box = new QGroupBox(title);
    box->setLayout(layout);
    return box;
}

// The Tab menu's commands in the order of the tabs.
const char* const kTabCommands[] = {"TabAttributes", "TabQualities",  "TabSkills",
                                    "TabMetaphysics", "TabDescription", "TabEquipment"};

}  // namespace

CharWindow::CharWindow(std::unique_ptr<CharacterSheet> sheet, QWidget* parent)
    : QMainWindow(parent), sheet_(std::move(sheet)) {
    addCommands();  // first: a button of the Description tab runs one
    binder_ = std::make_unique<SheetBinder>(
        *sheet_, [this](const std::function<void()>& work) { call(work); }, this);

    tabs_ = new QTabWidget;
    tabs_->setObjectName("TabPanel1");
    tabs_->setAccessibleName("Character sheet");
    tabs_->addTab(scrolled(attributesTab()), "Attributes");
    tabs_->addTab(scrolled(qualitiesTab()), "Qualities");
    tabs_->addTab(scrolled(skillsTab()), "Skills");
    tabs_->addTab(scrolled(metaphysicsTab()), "Metaphysics");
    tabs_->addTab(scrolled(descriptionTab()), "Description");
    tabs_->addTab(scrolled(equipmentTab()), "Equipment");

    auto* info = binder_->Label("InfoText");
    info->setWordWrap(true);
    info->setMinimumHeight(info->fontMetrics().lineSpacing() * 2);

    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(tabs_, 1);
    layout->addWidget(info);
    setCentralWidget(central);

    runOperation("EquipLabel_Open");
    binder_->ShowAll();
    showTitle();
    setMinimumSize(640, 500);
    resize(960, 720);

    // Connected only now: filling the tab panel above is no change of tab.
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { runOperation("TabPanel1_Change"); });

    timer_ = new QTimer(this);
    timer_->setObjectName("Timer1");
    timer_->setInterval(kStatusInterval);
    connect(timer_, &QTimer::timeout, this, [this] { runOperation("ShowBonus"); });
    timer_->start();
}

CharWindow::~CharWindow() {
    timer_->stop();
    // The journal and export windows hang from this character's sheet: they go first.
    qDeleteAll(findChildren<QMainWindow*>(QString(), Qt::FindDirectChildrenOnly));
    binder_.reset();
}

void CharWindow::call(const std::function<void()>& work) {
    CallCore(work);
    showTitle();
}

void CharWindow::runOperation(const std::string& name) {
    call([&] { RunUserOperation(*sheet_, name); });
}

void CharWindow::step(const std::string& name, const std::function<void()>& work) {
    call([&] { RunStep(*sheet_, name, work); });
}

void CharWindow::InstallMenus(const MenuSources& sources) {
    menus_ = sources;
    BuildMenuBar(*this, sources);
    if (auto* edit = menuBar()->findChild<QMenu*>("EditMenu"))
        connect(edit, &QMenu::aboutToShow, this, [this] { nameSteps(); });
}

void CharWindow::nameSteps() {
    const bool typing = TakesText(QApplication::focusWidget());
    for (const auto& [command, caption, next] :
         {std::tuple{"EditUndo", "&Undo", sheet_->history.UndoName()},
          std::tuple{"EditRedo", "Redo", sheet_->history.RedoName()}})
        if (auto* action = menuBar()->findChild<QAction*>(command))
            action->setText(typing || next.empty() ? caption
                                                   : QString(caption).remove('&') + " " + QString::fromStdString(next));
}

void CharWindow::Load(const std::string& path) {
    call([&] { LoadXMLCharSheet(*sheet_, path); });
}

void CharWindow::Reopen(const LeftBehindCopy& copy) {
    call([&] { ReopenLeftBehindCopy(*sheet_, copy); });
}

void CharWindow::addCommands() {
    for (int tab = 0; tab < 6; ++tab) commands_[kTabCommands[tab]] = [this, tab] { showTab(tab); };
    commands_["FileClose"] = [this] { close(); };
    // Outside a text field, Undo and Redo take whole steps of the sheet.
    commands_["EditUndo"] = [this] { call([this] { sheet_->history.Undo(); }); };
    commands_["EditRedo"] = [this] { call([this] { sheet_->history.Redo(); }); };
    commands_["FileSave"] = [this] { call([this] { FileSave_Action(*sheet_); }); };
    commands_["FileSaveAsCharacterFile"] = [this] {
        call([this] { FileSaveAsCharacterFile_Action(*sheet_); });
    };
    commands_["FileExport"] = [this] { ShowInFront(*new ExportView(*sheet_, menus_, this)); };
    commands_["FilePrint"] = [this] { PrintSheet(*sheet_, this); };
    commands_["FileCharacterJournal"] = [this] {
        JournalView::OpenTheJournal(*sheet_, this, menus_);
    };
    commands_["FileCharacterPortrait"] = [this] { PortraitView::Open(*sheet_, this, menus_); };
    // Whichever styled field has the focus; elsewhere the Format menu does nothing.
    for (const std::string& format : FormatCommands())
        commands_[format] = [format] {
            if (auto* edit = qobject_cast<QTextEdit*>(QApplication::focusWidget()))
                FormatSelection(*edit, format);
        };
}

// Only the Tab menu's commands move its check marks; a click on a tab leaves them.
void CharWindow::showTab(int tab) {
    tabs_->setCurrentIndex(tab);
    for (int other = 0; other < 6; ++other)
        if (auto* item = findChild<QAction*>(kTabCommands[other])) item->setChecked(other == tab);
}

void CharWindow::closeEvent(QCloseEvent* event) {
    bool keepOpen = false;
    call([&] { keepOpen = Event_CancelClose(*sheet_); });
    if (keepOpen) event->ignore();
    else event->accept();
}

void CharWindow::showTitle() { setWindowTitle(QString::fromStdString(sheet_->title)); }

QWidget* CharWindow::bound(const std::string& itemName, const std::string& text) {
    return binder_->Widget(itemName, text);
}

// A figure the rules keep: shown in a field that cannot be typed into.
QWidget* CharWindow::shown(const std::string& itemName) {
    auto* edit = static_cast<QLineEdit*>(binder_->Widget(itemName));
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::NoFocus);
    edit->setStyleSheet("QLineEdit { background: palette(window); }");
    return explained(edit);
}

// The free points the user places by clicking: green, with a hand cursor.
QWidget* CharWindow::bonusNumber(const std::string& itemName) {
    QLabel* label = binder_->Label(itemName);
    QPalette green = label->palette();
    // The rules call these numbers green: a deep one on a light window, a bright one on a dark.
    const bool dark = green.color(QPalette::Window).lightness() < 128;
    green.setColor(QPalette::WindowText, dark ? QColor(0x5c, 0xd6, 0x6b) : QColor(0x1a, 0x8f, 0x2a));
    label->setPalette(green);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    // Of a fixed size: a recomputation rewrites these numbers, and a label that may change
    // size makes the tab widget lay out and repaint the whole page at every new number.
    label->setFixedSize(label->fontMetrics().horizontalAdvance("-8888"),
                        label->fontMetrics().height() + 4);
    label->setCursor(Qt::PointingHandCursor);
    label->setFocusPolicy(Qt::StrongFocus);
    label->setAccessibleName(SpokenName(itemName) + " free point");
    label->setAlignment(Qt::AlignCenter);
    label->setToolTip("Click to place a free point here");
    return explained(label);
}

QWidget* CharWindow::explained(QWidget* figure) {
    figure->installEventFilter(this);
    return figure;
}

bool CharWindow::showFigureTerms(QWidget& figure, const QPoint& at) {
    const std::string name = figure.objectName().toStdString();
    const auto* item = dynamic_cast<const TextItem*>(sheet_->Items().Find(name));
    if (item == nullptr || sheet_->figureTerms.Shown(name) == nullptr) return false;
    QString text =
        QString::fromStdString(ExplainFigure(sheet_->figureTerms, name, item->Text())).trimmed();
    // A tooltip of the widget's own (the bonus numbers' click hint) stays on top.
    if (!figure.toolTip().isEmpty()) text = figure.toolTip() + "\n\n" + text;
    QToolTip::showText(at, text, &figure);
    return true;
}

QWidget* CharWindow::actionButton(const std::string& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromStdString(name));
    button->setAccessibleName(SpokenName(name));
    connect(button, &QPushButton::clicked, this, [this, name] { runOperation(name + "_Action"); });
    return button;
}

QWidget* CharWindow::arrows(const std::string& name) {
    auto* pair = new QWidget;
    pair->setObjectName(QString::fromStdString(name));
    auto* layout = new QVBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const auto& [arrow, event] : {std::pair{Qt::UpArrow, "_Up"}, {Qt::DownArrow, "_Down"}}) {
        auto* button = new QToolButton;
        button->setArrowType(arrow);
        button->setObjectName(QString::fromStdString(name + event));
        button->setAccessibleName(SpokenName(name + event));
        button->setFixedHeight(14);
        connect(button, &QToolButton::clicked, this,
                [this, operation = name + event] { runOperation(operation); });
        layout->addWidget(button);
    }
    return pair;
}

QWidget* CharWindow::styledField(const std::string& name) {
    auto* edit = static_cast<QTextEdit*>(bound(name));
    // Tab types four blanks in the notes and the equipment; elsewhere it moves on.
    if (name == "NotesField" || name == "EquipmentField") edit->installEventFilter(this);
    else edit->setTabChangesFocus(true);
    return edit;
}

QWidget* CharWindow::entryList(const std::string& name) {
    auto* list = static_cast<QTreeWidget*>(bound(name));
    list->setMinimumHeight(list->fontMetrics().lineSpacing() * 8);
    list->installEventFilter(this);
    // Rows are moved by dragging; the drop is the sheet's to carry out.
    list->setDragDropMode(QAbstractItemView::InternalMove);
    list->viewport()->installEventFilter(this);
    return list;
}

bool CharWindow::dropRow(QTreeWidget& tree, const QPoint& at) {
    auto& list = dynamic_cast<ListItem&>(*sheet_->Items().Find(tree.objectName().toStdString()));
    const int from = list.ListIndex();
    if (from < 0) return false;
    const QModelIndex target = tree.indexAt(at);
    const int to = target.isValid() ? target.row() : list.ListCount() - 1;
    step("Move Row", [&] {
        const auto handler = sheet_->Operations().find(list.Name() + "_DragReorderRows");
        if (handler != sheet_->Operations().end()) handler->second.run(*sheet_, "");
        list.MoveRow(from, to);
        list.SetListIndex(to);
    });
    return true;
}

bool CharWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched->isWidgetType() &&
        showFigureTerms(*static_cast<QWidget*>(watched),
                        static_cast<QHelpEvent*>(event)->globalPos()))
        return true;
    if (event->type() == QEvent::Drop) {
        auto* tree = qobject_cast<QTreeWidget*>(watched->parent());
        if (tree && dropRow(*tree, static_cast<QDropEvent*>(event)->position().toPoint())) {
            event->accept();
            return true;
        }
    }
    if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
    if (auto* edit = qobject_cast<QTextEdit*>(watched)) {
        if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Tab) return false;
        edit->textCursor().insertText("    ");
        return true;
    }
    // The delete keys as the lists' key operation knows them.
    const int key = static_cast<QKeyEvent*>(event)->key();
    const char* code = key == Qt::Key_Backspace ? "\x08" : key == Qt::Key_Delete ? "\x10" : nullptr;
    if (code == nullptr) return QMainWindow::eventFilter(watched, event);
    const std::string operation = watched->objectName().toStdString() + "_KeyDown";
    call([&] { RunUserOperation(*sheet_, operation, code); });
    return true;
}

void CharWindow::offerMenu(QWidget* widget, const std::function<std::vector<std::string>()>& items,
                           const std::function<void(const std::string&)>& chosen) {
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(widget, &QWidget::customContextMenuRequested, this,
            [this, widget, items, chosen](const QPoint& at) {
                QMenu menu;
                call([&] {
                    for (const std::string& item : items()) menu.addAction(QString::fromStdString(item));
                });
                if (QAction* picked = menu.exec(widget->mapToGlobal(at))) {
                    const std::string item = picked->text().toStdString();
                    step("Choose " + item, [&] { chosen(item); });
                }
            });
}

QWidget* CharWindow::attributesTab() {
    auto* identity = new QFormLayout;
    identity->addRow("Name:", bound("NameField"));
    identity->addRow("Player:", bound("PlayerField"));

    auto* type = new QFormLayout;
    type->addRow("Character Type:", bound("CharacterTypePopup"));
    type->addRow("Choose:", bound("ChooseCharPopup"));

    auto* background = new QFormLayout;
    background->addRow("Concept:", bound("ConceptBox"));
    background->addRow("Association:", bound("AssociationCombo"));
    background->addRow("", bound("AssociationField"));

    auto* primary = new QGridLayout;
    primary->addWidget(caption("Bought"), 0, 1, Qt::AlignCenter);
    primary->addWidget(caption("Bonus"), 0, 2, Qt::AlignCenter);
    primary->addWidget(caption("Total"), 0, 3, Qt::AlignCenter);
    for (int a = 0; a < kAttributeCount; ++a) {
        const std::string name = kAttributeNames[static_cast<std::size_t>(a)];
        QWidget* field = bound(name + "Field");
        QWidget* total = shown(name + "Total");
        field->setMaximumWidth(70);
        total->setMaximumWidth(70);
        primary->addWidget(caption(QString::fromStdString(name) + ":"), a + 1, 0);
        primary->addWidget(field, a + 1, 1);
        primary->addWidget(bonusNumber(name + "Bonus"), a + 1, 2);
        primary->addWidget(total, a + 1, 3);
    }
    primary->setColumnStretch(4, 1);

    auto* secondary = new QGridLayout;
    secondary->addWidget(caption("Bonus"), 0, 1, Qt::AlignCenter);
    secondary->addWidget(caption("Total"), 0, 2, Qt::AlignCenter);
    const char* const secondaries[][3] = {{"LPText", "LifePointsBonus", "LifePointsTotal"},
                                          {"EndText", "EnduranceBonus", "EnduranceTotal"},
                                          {"SpeedText", "SpeedBonus", "SpeedTotal"},
                                          {"EssenceLabel", "EssenceBonus", "EssenceTotal"}};
    int row = 1;
    for (const auto& items : secondaries) {
        secondary->addWidget(bound(items[0]), row, 0);
        for (int column = 1; column <= 2; ++column) {
            QWidget* number = shown(items[column]);
            number->setMaximumWidth(70);
            secondary->addWidget(number, row, column);
        }
        ++row;
    }
    secondary->addWidget(shown("ExtraStatsField"), row, 0, 1, 4);
    secondary->setColumnStretch(3, 1);

    auto* experience = new QFormLayout;
    experience->addRow(bound("CharacterInPlayBox", "Character is in play"));
    experience->addRow(bound("DPText"), explained(bound("DPField")));
    experience->addRow("Saved XPs:", bound("SavedExperienceField"));
    experience->addRow("Spent XPs:", bound("SpentExperienceField"));
    experience->addRow("Attributes:", shown("AttributeField"));
    experience->addRow("Qualities:", shown("QualityField"));
    experience->addRow("Drawbacks:", shown("DrawbackField"));
    experience->addRow("Skills:", shown("SkillField"));
    experience->addRow("Meta:", shown("MetaField"));

    auto* left = new QVBoxLayout;
    left->addLayout(identity);
    left->addWidget(group("Select Character Type", type));
    left->addWidget(group("Background", background));
    left->addWidget(group("Primary Attributes", primary));
    left->addStretch(1);

    auto* right = new QVBoxLayout;
    right->addWidget(group("Secondary Attributes", secondary));
    right->addWidget(group("Experience Points", experience));
    right->addWidget(bound("OptionalSkillPointBox", "Use Optional Skill Point System"));
    right->addStretch(1);

    auto* page = new QWidget;
    auto* columns = new QHBoxLayout(page);
    columns->addLayout(left, 1);
    columns->addSpacing(12);
    columns->addLayout(right, 1);
    return page;
}

QWidget* CharWindow::qualitiesTab() {
    auto* select = new QFormLayout;
    select->addRow("Type:", bound("QualityTypePopup"));
    select->addRow("Quality:", bound("QualityPopup"));

    auto* entry = formGrid();
    addField(entry, 0, 0, "Name:", bound("QualityNameField"));
    addField(entry, 1, 0, "Page Ref:", bound("QualityReferenceField"));
    addField(entry, 2, 0, "Prereqs:", bound("QualityPrerequisiteField"));
    addField(entry, 3, 0, "Notes:", bound("QualityNoteField"));
    addField(entry, 4, 0, bound("QualityAltFormText"), bound("QualityAlternateFormCombo"));
    addField(entry, 0, 1, "Level:", withArrows(bound("QualityLevelField"), arrows("QualityUpDownArrows")));
    addField(entry, 1, 1, "Cost:", bound("QualityCostField"));
    addField(entry, 2, 1, "Max Level:", bound("QualityMaxLevelField"));
    addField(entry, 3, 1, "XP Cost:", bound("QualityXPCostField"));
    addField(entry, 4, 1,
             "Cost per Level at Creation/After Level 5:", bound("QualityCostPerLevelField"));
    addField(entry, 5, 1, "XP Cost/After Level 5:", bound("QualityXPCostPerLevelField"));

    auto* listButtons = new QHBoxLayout;
    QWidget* keepSeparate = bound("QualitiesSeparateQDBox", "Keep Drawbacks and Qualities Separate");
    keepSeparate->setToolTip("Will not separate if a header is clicked. Click Separate button to "
                             "trigger Separation again.");
    listButtons->addWidget(actionButton("QualitySeparator", "--"));
    listButtons->addWidget(actionButton("QualitySeparateButton", "Separate"));
    listButtons->addWidget(keepSeparate);
    listButtons->addStretch(1);
    listButtons->addWidget(actionButton("QualityRemoveButton", "Remove"));

    auto* list = static_cast<QTreeWidget*>(entryList("QualityListBox"));
    // A press on a heading sorts the rows and so ends keeping drawbacks apart.
    list->header()->setSectionsClickable(true);
    connect(list->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        step("Sort Qualities", [&] {
            sheet_->Operations().at("QualityListBox_HeaderPressed").run(*sheet_, "");
            sheet_->QualityListBox.SortRows(column);
        });
    });

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(list, 1);
    layout->addLayout(listButtons);
    layout->addWidget(group("Select Quality", select));
    layout->addLayout(entry);
    layout->addWidget(actionButton("QualityRecordButton", "Record"), 0, Qt::AlignRight);
    return page;
}

QWidget* CharWindow::skillsTab() {
    auto* lists = new QHBoxLayout;
    lists->addWidget(entryList("SkillListBox"), 3);
    QWidget* moves = bound("SkillMartialVisualListBox");
    offerMenu(
        moves, [this] { return SkillMartialVisualListBox_ConstructContextualMenu(*sheet_); },
        [this](const std::string& item) { SkillMartialVisualListBox_ContextualMenuAction(*sheet_, item); });
    lists->addWidget(moves, 2);

    auto* select = new QFormLayout;
    select->addRow("Category:", bound("SkillCategoryPopup"));
    select->addRow("Skill:", bound("SkillPopup"));

    auto* entry = formGrid();
    addField(entry, 0, 0, "Name:", bound("SkillNameField"));
    addField(entry, 1, 0, "Reference:", bound("SkillReferenceField"));
    addField(entry, 2, 0, "Type List:", bound("SkillSelectPopup"));
    addField(entry, 3, 0, "Notes:", bound("SkillNotesField"));
    addField(entry, 0, 1, "Type:", bound("SkillTypeCombo"));
    addField(entry, 1, 1, "Level:", withArrows(bound("SkillLevelField"), arrows("SkillUpDownArrows1")));
    addField(entry, 2, 1, "Cost:", bound("SkillCostField"));
    addField(entry, 3, 1, "XP Cost:", bound("SkillXPCostField"));

    auto* listButtons = new QHBoxLayout;
    listButtons->addWidget(actionButton("SkillSeparator", "--"));
    listButtons->addStretch(1);
    listButtons->addWidget(actionButton("SkillRemoveButton", "Remove"));

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(lists, 1);
    layout->addLayout(listButtons);
    layout->addWidget(group("Select Skill", select));
    layout->addLayout(entry);
    auto* record = new QHBoxLayout;
    record->addWidget(actionButton("SkillSpecialtyButton", "Add a Specialty"));
    record->addStretch(1);
    record->addWidget(actionButton("SkillRecordButton", "Record"));
    layout->addLayout(record);
    return page;
}

QWidget* CharWindow::metaphysicsTab() {
    auto* select = new QFormLayout;
    select->addRow("Type:", bound("MetaTypePopup"));
    select->addRow("Metaphysic:", bound("MetaPopup"));

    auto* entry = formGrid();
    addField(entry, 0, 0, "Name:", bound("MetaNameField"));
    addField(entry, 1, 0, "Reference:", bound("MetaReferenceField"));
    addField(entry, 2, 0, "Prereqs:", bound("MetaPrerequisiteField"));
    addField(entry, 3, 0, "Notes:", bound("MetaNoteField"));
    addField(entry, 4, 0, "XP Cost for First Level:", bound("MetaXPCostNewField"));
    addField(entry, 0, 1, "Level:", withArrows(bound("MetaLevelField"), arrows("MetaUpDownArrows")));
    addField(entry, 1, 1, "Cost:", bound("MetaCostField"));
    addField(entry, 2, 1, "Min/Max Lvl:", bound("MetaMaxLevelField"));
    addField(entry, 3, 1, "XP Cost:", bound("MetaXPCostField"));
    addField(entry, 4, 1,
             "Cost per Level at Creation/After Level 5:", bound("MetaCostPerLevelField"));
    addField(entry, 5, 1, "XP Cost/After Level 5:", bound("MetaXPCostPerLevelField"));

    auto* listButtons = new QHBoxLayout;
    listButtons->addWidget(actionButton("MetaSeparator", "--"));
    listButtons->addStretch(1);
    listButtons->addWidget(actionButton("MetaRemoveButton", "Remove"));

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(entryList("MetaListBox"), 1);
    layout->addLayout(listButtons);
    layout->addWidget(group("Select Metaphysic", select));
    layout->addLayout(entry);
    layout->addWidget(actionButton("MetaRecordButton", "Record"), 0, Qt::AlignRight);
    return page;
}

QWidget* CharWindow::descriptionTab() {
    auto* personal = formGrid();
    addField(personal, 0, 0, "Gender:", bound("GenderField"));
    addField(personal, 1, 0, "Age:", bound("AgeField"));
    addField(personal, 2, 0, "Hair:", bound("HairField"));
    addField(personal, 3, 0, "Eyes:", bound("EyesField"));
    addField(personal, 0, 1, "Race:", bound("RaceField"));
    addField(personal, 1, 1, "Height:", bound("HeightField"));
    addField(personal, 2, 1, "Weight:", bound("WeightField"));

    auto* buttons = new QHBoxLayout;
    for (const auto& [name, text] : {std::pair{"NotesButton", "Notes"},
                                     {"ContactsButton", "Contacts"},
                                     {"HistoryButton", "History"},
                                     {"AltFormButton", "Alt Form"}})
        buttons->addWidget(bound(name, text));
    buttons->addStretch(1);
    auto* journal = new QPushButton("Open Journal");
    journal->setObjectName("JournalButton");
    connect(journal, &QPushButton::clicked, this, commands_.at("FileCharacterJournal"));
    buttons->addWidget(journal);

    // The long texts share one place; their items say which of them stands in it.
    auto* texts = new QVBoxLayout;
    for (const char* name :
         {"NotesField", "ContactsField", "HistoryField", "AltFormField", "JournalField"})
        texts->addWidget(styledField(name), 1);

    const auto widgetOf = [this](TextItem* item) {
        return item ? findChild<QTextEdit*>(QString::fromStdString(item->Name())) : nullptr;
    };
    const auto styles = [this, widgetOf] { return widgetOf(DescripStylesTarget(*sheet_)); };
    QWidget* bar = MakeStyleBar({"DescripStylesBevelButton", "DescripFontsBevelButton",
                                 "DescripFontSizeBox", "10", styles,
                                 [this, widgetOf] { return widgetOf(DescripFontsTarget(*sheet_)); },
                                 styles, [widgetOf, this] { return widgetOf(&sheet_->NotesField); },
                                 "Description"});

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(group("Personal Information", personal));
    layout->addWidget(bar);
    layout->addLayout(buttons);
    layout->addLayout(texts, 1);
    return page;
}

QWidget* CharWindow::equipmentTab() {
    auto* type = new QFormLayout;
    type->addRow("Equipment Type:", bound("EquipmentTypePopup"));
    auto* encumbrance = new QPushButton("Calculate Lifting Cap/Encumbrance");
    encumbrance->setObjectName("EncumButton");
    connect(encumbrance, &QPushButton::clicked, this,
            [this] { runOperation("EncumButton_Action"); });

    // The field's context menu offers the items of the chosen type.
    QWidget* field = styledField("EquipmentField");
    offerMenu(
        field, [this] { return EquipmentField_ConstructContextualMenu(*sheet_); },
        [this](const std::string& item) { EquipmentField_ContextualMenuAction(*sheet_, item); });

    const auto equipment = [field] { return static_cast<QTextEdit*>(field); };
    QWidget* bar = MakeStyleBar({"EquipStylesBevelButton", "EquipFontsBevelButton", "EquipSizeButton",
                                 "12", equipment, equipment, equipment, equipment, "Equipment"});

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(bound("EquipLabel"));
    layout->addLayout(type);
    layout->addWidget(bar);
    layout->addWidget(encumbrance, 0, Qt::AlignLeft);
    layout->addWidget(field, 1);
    return page;
}

}  // namespace zeph::gui
