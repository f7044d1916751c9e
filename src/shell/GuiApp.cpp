#include "shell/GuiApp.h"

#include <QApplication>
#include <QTimer>

#include "app/App.h"
#include "app/SheetOperations.h"
#include "documents/CharacterFile.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "shell/CharWindow.h"
#include "shell/CoreCall.h"
#include "shell/ToolView.h"
#include "tools/ReferenceTable.h"

namespace zeph::gui {
namespace {

constexpr int kRecentChoiceDelay = 500;  // ms: the menu closes and the notice paints first
constexpr int kRecoveryInterval = 30000;  // ms: the most work a crash can take

}  // namespace

GuiApp::GuiApp(DataModule& data, Platform& platform, App& app)
    : data_(data), platform_(platform), app_(app) {
    commands_ = {
        {"FileNew", [this] { NewWindow(); }},
        {"FileLoadCharacterFile", [this] { OpenCharacter(""); }},
        {"FileQuit",
         [this] {
             if (CloseAll()) QApplication::quit();
         }},
        {"HelpHelp", [this] { CallCore([this] { app_.HelpHelp_Action(); }); }},
        {"HelpDiceRoller", [this] { CallCore([this] { ShowDiceView(random_, Sources()); }); }},
        {"FileLoadDataFile",
         [this] {
             showSingle(loadData_,
                        [this] { return ShowLoadDataView(data_, platform_, app_, Sources()); });
         }},
        {"HelpAbout",
         [this] { showSingle(about_, [this] { return ShowAboutView(data_, Sources()); }); }},
        {"HelpCheckForUpdates",
         [this] {
             showSingle(checkUpdates_,
                        [this] { return ShowCheckUpdatesView(platform_, webHost_, Sources()); });
         }},
    };
    auto* recovery = new QTimer(this);
    recovery->setInterval(kRecoveryInterval);
    connect(recovery, &QTimer::timeout, this, [this] { updateRecoveryCopies(); });
    recovery->start();
}

MenuSources GuiApp::Sources() {
    return {this, [this] { return data_.recentMenuItems; },
            [this](const std::string& caption) {
                int notice = 0;
                CallCore([&] { notice = OpenRecentMenuItem_Action(data_, platform_, caption); });
                QTimer::singleShot(kRecentChoiceDelay, this, [this, notice] {
                    CallCore([&] {
                        LoadingRecentCharacterTimer(data_, platform_, notice,
                                                    [this](const std::string& path) { OpenCharacter(path); });
                    });
                });
            },
            [this] { return data_.referenceTables; },
            [this](const std::string& name) {
                std::unique_ptr<ReferenceWindow> table;
                CallCore([&] { table = ReferenceTableMenuItem_Action(*data_.xdata, platform_, name); });
                if (table) ShowReferenceView(std::move(table), Sources());
            }};
}

CharWindow* GuiApp::makeWindow() {
    CharWindow* window = nullptr;
    CallCore([&] {
        window = new CharWindow(std::make_unique<CharacterSheet>(data_, platform_, SheetOperations()));
        AssignRecoveryCopy(window->Sheet());
        // A new window refills the recent submenu; its sheet starts with nothing unsaved.
        RemoveRecentOpenItems(data_);
        RebuildRecentOpenItems(data_);
    });
    if (!window) return nullptr;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->InstallMenus(Sources());
    return window;
}

CharWindow* GuiApp::NewWindow() {
    CharWindow* window = makeWindow();
    if (window) ShowInFront(*window);
    return window;
}

void GuiApp::OpenCharacter(const std::string& path) {
    CharWindow* window = makeWindow();
    if (!window) return;
    // By the dialog the window stands behind it; from the recent list it shows once filled.
    if (path.empty()) window->show();
    window->Load(path);
    showFilled(*window);
}

void GuiApp::OfferRecovery() {
    // The question comes as the first window opens, before it is active, so nothing would get
    // the focus back after it: the window in front does, the last one reopened or the first.
    QPointer<CharWindow> front;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<CharWindow*>(widget); window && window->isVisible())
            front = window;
    CallCore([&] {
        OfferLeftBehindWork(platform_, [&](const LeftBehindCopy& copy) {
            if (CharWindow* window = makeWindow()) {
                window->Reopen(copy);
                showFilled(*window);
                if (!window->Sheet().characterClosed) front = window;
            }
        });
    });
    if (front) ShowInFront(*front);
}

void GuiApp::showFilled(CharWindow& window) {
    if (window.Sheet().characterClosed)
        window.deleteLater();
    else
        ShowInFront(window);
}

void GuiApp::updateRecoveryCopies() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<CharWindow*>(widget))
            CallCore([window] { UpdateRecoveryCopy(window->Sheet()); });
}

bool GuiApp::CloseAll() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<CharWindow*>(widget); window && window->isVisible())
            if (!window->close()) return false;
    // The tools go without asking; Load Data stores its list as it closes.
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* tool = dynamic_cast<ToolView*>(widget); tool && tool->isVisible()) tool->close();
    return true;
}

void GuiApp::showSingle(QPointer<ToolView>& single, const std::function<ToolView*()>& make) {
    if (!single) CallCore([&] { single = make(); });
    if (single) ShowInFront(*single);
}

}  // namespace zeph::gui
