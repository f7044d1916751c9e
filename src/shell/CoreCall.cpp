#include "shell/CoreCall.h"

#include <QApplication>
#include <QMessageBox>
#include <exception>

#include "platform/Platform.h"

namespace zeph::gui {
namespace {

void showAndEnd(const std::string& message) {
    QMessageBox::critical(QApplication::activeWindow(), QApplication::applicationName(),
                          QString::fromStdString(message));
    QCoreApplication::exit(1);
}

FailureHandler& handler() {
    static FailureHandler current = showAndEnd;
    return current;
}

bool failed = false;

}  // namespace

bool CallCore(const std::function<void()>& work) {
    if (failed) return false;
    try {
        work();
        return true;
    } catch (const QuitRequest&) {
        return false;
    } catch (const std::exception& failure) {
        failed = true;
        handler()(failure.what());
        return false;
    }
}

FailureHandler SetUnhandledFailureHandler(FailureHandler replacement) {
    FailureHandler previous = std::move(handler());
    handler() = std::move(replacement);
    return previous;
}

bool UnhandledFailureHappened() { return failed; }

void ResetUnhandledFailure() { failed = false; }

}  // namespace zeph::gui
