// What a screen reader finds in each window: every control a user can reach has a name of its
// own, no two controls of one window share one, and the mouse-only bonus numbers take the
// keyboard too.
#include <map>

#include "shell/ExportView.h"
#include "shell/ItemBinding.h"
#include "shell/JournalView.h"
#include "shell/PortraitView.h"
#include "shell/ToolView.h"
#include "shell/char_window_fixture.h"
#include "tools/RandomSource.h"
#include "tools/ReferenceTable.h"

namespace zeph::gui {
namespace {

// What a user reaches and works: the usual controls, and whatever takes the focus.
bool isControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
           qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QTabWidget*>(widget) ||
           qobject_cast<const QAbstractItemView*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) ||
           (qobject_cast<const QLabel*>(widget) && widget->focusPolicy() != Qt::NoFocus);
}

// The controls without a name, and those sharing one, as "objectName (role)" lines.
std::string unnamedControls(QWidget& window) {
    std::map<QString, QStringList> byName;
    QStringList unnamed;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        // The parts of a combo box or a list speak through it; its popup is a window of its own.
        const QWidget* owner = widget->parentWidget();
        if (!isControl(widget) || widget->window() != &window ||
            qobject_cast<const QComboBox*>(owner) ||
            qobject_cast<const QAbstractItemView*>(owner) || qobject_cast<const QMenuBar*>(owner))
            continue;
        // On Linux Qt gives a combo box with a text that text as its name, and its own name
        // only when it is empty; the name it was given is what a screen reader has besides.
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        const QString name = (qobject_cast<const QComboBox*>(widget) ? widget->accessibleName()
                              : face                                 ? face->text(QAccessible::Name)
                                                                     : QString())
                                 .trimmed();
        const QString what = widget->objectName() + " (" + widget->metaObject()->className() + ")";
        if (name.isEmpty())
            unnamed << what;
        else
            byName[name] << what;
    }
    std::string report;
    for (const QString& what : unnamed) report += "unnamed: " + what.toStdString() + "\n";
    for (const auto& [name, whats] : byName)
        if (whats.size() > 1)
            report +=
                "\"" + name.toStdString() + "\" names " + whats.join(", ").toStdString() + "\n";
    return report;
}

// A control is read by the words of its name (a capital, a run of capitals, a number or an
// underscore starts one), less those of its kind: a screen reader tells the kind.
TEST(SpokenName, DropsTheKindNamesAChoiceAndSaysLevelForArrows) {
    const std::pair<const char*, const char*> cases[] = {
        {"QualityPopup", "Quality choice"}, {"QualityField", "Quality"}, {"Popup", "Popup"},
        {"QualityRecordButton", "Quality record"}, {"XPCostField", "XP cost"},
        {"SkillUpDownArrows1", "Skill level"}, {"MetaUpDownArrows", "Meta level"},
        {"UpDownArrows", "level"}, {"DownArrows", "Down arrows"}, {"NameFieldBox", "Name"}, {"Box", "Box"},
        {"PlanB", "Plan B"}, {"XP2", "XP 2"}, {"Page10X", "Page 10 X"}, {"_a__b", "a b"}, {"", ""}};
    for (const auto& [name, spoken] : cases) EXPECT_EQ(SpokenName(name).toStdString(), spoken) << name;
}

using Accessibility = CharWindowTest;

TEST_F(Accessibility, EveryControlOfEveryWindowHasANameOfItsOwn) {
    CharWindow& window = *window_;
    EXPECT_EQ(unnamedControls(window), "");
    // A free point is placed from the keyboard as by a click.
    window.Sheet().physicalBonus = 1;
    auto* bonus = window.findChild<QLabel*>("StrengthBonus");
    ASSERT_TRUE(bonus && bonus->focusPolicy() == Qt::StrongFocus);
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
    QApplication::sendEvent(bonus, &space);
    EXPECT_EQ(
        window.Sheet().StrengthBonus.Text() + "/" + std::to_string(window.Sheet().physicalBonus),
        "1/0");

    SystemRandom random;
    ExportView exporting(window.Sheet(), menus_, &window);
    JournalView::OpenTheJournal(window.Sheet(), &window, menus_);
    PortraitView::Open(window.Sheet(), &window, menus_);
    std::vector<QWidget*> windows = {
        &exporting,
        ShowDiceView(random, menus_),
        ShowLoadDataView(data_, platform_, app_, menus_),
        ShowAboutView(data_, menus_),
        ShowCheckUpdatesView(platform_, "localhost", menus_),
        MakeDataSwitchDialog("Character: Ann", &window),
        ShowReferenceView(ReferenceTableMenuItem_Action(*data_.xdata, platform_, "Success Levels"),
                          menus_)};
    for (QWidget* other : QApplication::topLevelWidgets())
        if (dynamic_cast<JournalView*>(other) || dynamic_cast<PortraitView*>(other))
            windows.push_back(other);
    ASSERT_EQ(windows.size(), 9u);
    for (QWidget* other : windows) {
        EXPECT_EQ(unnamedControls(*other), "") << other->windowTitle().toStdString();
        if (other != &exporting) other->close();
    }
}

// The Tab key walks each tab as it reads: down a column, along a row, then up into the next
// column to the right, never back up or to the left.
TEST_F(Accessibility, TheTabKeyFollowsTheReadingOrderOfEveryTab) {
    CharWindow& window = *window_;
    window.show();
    auto* tabs = window.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        QApplication::processEvents();
        int reached = 0;
        QWidget* previous = nullptr;
        for (QWidget* widget = tabs->nextInFocusChain(); widget != tabs;
             widget = widget->nextInFocusChain()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus) ||
                widget->objectName().isEmpty() || !tabs->currentWidget()->isAncestorOf(widget))
                continue;
            ++reached;
            if (previous) {
                const QPoint from = previous->mapTo(&window, QPoint());
                const QPoint to = widget->mapTo(&window, QPoint());
                const bool sameRow = std::abs(to.y() - from.y()) <= 8;
                EXPECT_TRUE(sameRow ? to.x() > from.x() : to.y() > from.y() || to.x() > from.x() + 8)
                    << previous->objectName().toStdString() << " then "
                    << widget->objectName().toStdString();
            }
            previous = widget;
        }
        EXPECT_GE(reached, 6) << tabs->tabText(tab).toStdString();
    }
}

}  // namespace
}  // namespace zeph::gui
