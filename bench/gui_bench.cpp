// An edit in the character window as the player makes it: a new value typed into an
// attribute, the field left, and events processed until every widget shows the new totals
// (recomputation, notifications to the bound widgets, repaint). The edit changes no quality
// row, so its time must not grow with the length of the quality list.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <memory>

#include "bench_sheet.h"
#include "shell/CharWindow.h"

namespace zeph::bench {
namespace {

// The one QApplication, on the offscreen platform unless another is asked for. Never
// destroyed: among the exit handlers Qt's own globals may already be gone.
void StartGuiApplication() {
    static int argc = 1;
    static char name[] = "zephalon-bench";
    static char* argv[] = {name, nullptr};
    static QApplication* application = [] {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QApplication(argc, argv);
    }();
    (void)application;
}

void sendFocus(QWidget* widget, QEvent::Type type) {
    QFocusEvent event(type, Qt::MouseFocusReason);
    QApplication::sendEvent(widget, &event);
}

void GuiEdit(benchmark::State& state) {
    StartGuiApplication();
    DataModule data;
    ScriptedPlatform platform("/nonexistent-prefs", "/nonexistent-app", "/tmp");
    data.xdata = RuleData::LoadFile(SampleRuleDataPath());
    gui::CharWindow window(std::make_unique<CharacterSheet>(data, platform, SheetOperations()));
    CharacterSheet& sheet = window.Sheet();
    PrepareSheet(sheet, *data.xdata, static_cast<int>(state.range(0)));
    window.show();
    QApplication::processEvents();

    auto* field = window.findChild<QLineEdit*>("StrengthField");
    // The figures the edit changes, each with the item it shows.
    const std::pair<const char*, const TextItem*> figures[] = {
        {"StrengthTotal", &sheet.StrengthTotal},
        {"LifePointsTotal", &sheet.LifePointsTotal},
        {"EnduranceTotal", &sheet.EnduranceTotal},
        {"AttributeField", &sheet.AttributeField}};
    const auto allShown = [&] {
        for (const auto& [widget, item] : figures)
            if (window.findChild<QLineEdit*>(widget)->text().toStdString() != item->Text())
                return false;
        return true;
    };
    std::string lastTotal;
    bool totalsFollow = true;
    char value = '3';
    for (auto _ : state) {
        value = value == '3' ? '4' : '3';
        sendFocus(field, QEvent::FocusIn);
        field->selectAll();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_0 + (value - '0'), Qt::NoModifier, QString(value));
        QApplication::sendEvent(field, &key);
        sendFocus(field, QEvent::FocusOut);
        do QApplication::processEvents();
        while (!allShown());
        totalsFollow = totalsFollow && sheet.StrengthTotal.Text() != lastTotal;
        lastTotal = sheet.StrengthTotal.Text();
    }
    if (!totalsFollow) state.SkipWithError("the totals did not follow the typed strength");
    if (!platform.Messages().empty()) state.SkipWithError(platform.Messages().front().c_str());
}

BENCHMARK(GuiEdit)->Arg(30)->Arg(300)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zeph::bench
