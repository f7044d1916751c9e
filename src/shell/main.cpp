// The desktop app: find and load the rule data, open one empty character and the character files
// named on the command line, run until quit.
#include <QApplication>
#include <QTimer>
#include <optional>

#include "platform/Files.h"
#include "platform/qt/QtPlatform.h"
#include "ruledata/DataModule.h"
#include "app/App.h"
#include "shell/CoreCall.h"
#include "shell/GuiApp.h"
#include "shell/LoadingWindow.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Zephalon");
    // The desktop entry's id, by which a Wayland compositor gives the windows their icon.
    QApplication::setDesktopFileName("org.example.Zephalon");

    zeph::QtPlatform platform;
    zeph::DataModule data;
    zeph::App app(data, platform);

    zeph::gui::ShowLoadingWindow();
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

    zeph::gui::GuiApp gui(data, platform, app);
    // Without a character window there is nothing on screen to work in.
    if (!gui.NewWindow()) return 1;
    // The character files named on the command line, as a file manager passes them; QApplication
    // has taken its own options out of argv.
    for (int i = 1; i < argc; ++i) gui.OpenCharacter(zeph::AbsolutePath(argv[i]));
    // Once the loop runs and the windows stand: what a crash left behind, if anything.
    QTimer::singleShot(0, &gui, [&gui] { gui.OfferRecovery(); });

    const int code = QApplication::exec();
    if (!zeph::gui::UnhandledFailureHappened()) data.SaveDataFilePreferences(platform);
    return code;
}
