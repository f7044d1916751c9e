// zephalon-screenshots OUTDIR: pictures of every tab of a character window with the sample data
// and character, and of the tool windows, under the light and a Fusion dark palette, for a
// person to look at. QT_SCALE_FACTOR sets the scale; scripts/screenshots runs it at 1 and 2.
#include <QtWidgets>
#include <iostream>

#include "app/App.h"
#include "app/SheetOperations.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "shell/CharWindow.h"
#include "shell/ExportView.h"
#include "shell/JournalView.h"
#include "shell/ToolView.h"
#include "tools/RandomSource.h"

using namespace zeph;
using namespace zeph::gui;

namespace {

QPalette darkPalette() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 48));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::Button, QColor(53, 53, 56));
    dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    dark.setColor(QPalette::ToolTipBase, QColor(30, 30, 32));
    dark.setColor(QPalette::ToolTipText, QColor(230, 230, 230));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(100, 170, 255));
    dark.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
    return dark;
}

void save(QWidget& window, const QString& path) {
    QApplication::processEvents();
    if (!window.grab().save(path)) std::cerr << "could not write " << path.toStdString() << "\n";
}

}  // namespace

int main(int argc, char** argv) {
    QApplication qt(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: zephalon-screenshots OUTDIR\n";
        return 2;
    }
    const QString out = argv[1];
    QDir().mkpath(out);
    QApplication::setStyle("Fusion");
    const QPalette light = QApplication::style()->standardPalette();
    ScriptedPlatform platform{"/nonexistent-prefs", "", "/tmp"};
    DataModule data;
    App app{data, platform};
    if (!app.LoadDataFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml")) return 1;
    for (const auto& [theme, palette] : {std::pair{"light", light}, {"dark", darkPalette()}}) {
        QApplication::setPalette(palette);
        const MenuSources menus{nullptr, [] { return std::vector<std::string>{}; }, {}};
        auto* window =
            new CharWindow(std::make_unique<CharacterSheet>(data, platform, SheetOperations()));
        window->InstallMenus(menus);
        window->Load(ZEPHALON_SOURCE_DIR "/tests/data/sample_character.xml");
        window->show();
        auto* tabs = window->findChild<QTabWidget*>();
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            save(*window, QString("%1/%2-tab%3.png").arg(out, theme).arg(tab + 1));
        }
        SystemRandom random;
        const std::vector<std::pair<QString, QWidget*>> tools = {
            {"export", new ExportView(window->Sheet(), menus, window)},
            {"dice", ShowDiceView(random, menus)},
            {"loaddata", ShowLoadDataView(data, platform, app, menus)},
            {"about", ShowAboutView(data, menus)},
            {"updates", ShowCheckUpdatesView(platform, "localhost", menus)}};
        for (const auto& [name, tool] : tools) {
            tool->show();
            save(*tool, QString("%1/%2-%3.png").arg(out, theme, name));
            tool->close();
        }
        window->close();
    }
    std::cout << "pictures in " << out.toStdString() << "\n";
    return 0;
}
