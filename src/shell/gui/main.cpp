// The desktop app: find and load the rule data, open one empty character, run until quit.
#include <QApplication>
#include <memory>
#include <optional>

#include "platform/qt/QtPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/SheetOperations.h"
#include "sheet/CharacterSheet.h"
#include "shell/App.h"
#include "shell/gui/CharWindow.h"
#include "shell/gui/CoreCall.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Zephalon");

    zeph::QtPlatform platform;
    zeph::DataModule data;
    zeph::App app(data, platform);

    // Before the event loop runs, so a quit here ends the process directly with its code.
    std::optional<int> quitCode;
    zeph::gui::CallCore([&] {
        try {
            app.LoadData();
        } catch (const zeph::QuitRequest& quit) {
            quitCode = quit.code();
        }
    });
    if (quitCode) return *quitCode;
    if (zeph::gui::UnhandledFailureHappened()) return 1;

    std::unique_ptr<zeph::gui::CharWindow> window;
    zeph::gui::CallCore([&] {
        window = std::make_unique<zeph::gui::CharWindow>(
            std::make_unique<zeph::CharacterSheet>(data, platform, zeph::SheetOperations()));
    });
    // Without a character window there is nothing on screen to work in.
    if (!window) return 1;
    window->show();

    const int code = QApplication::exec();
    if (!zeph::gui::UnhandledFailureHappened()) data.SaveDataFilePreferences(platform);
    return code;
}
