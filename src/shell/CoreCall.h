// The one way a widget's slot enters the core. Qt does not carry exceptions through its event
// loop, so this is where a failure that no operation caught ends up.
#pragma once

#include <functional>
#include <string>

namespace zeph::gui {

// Runs the work. A quit request is let go (the exit is already on its way); any other
// exception goes to the unhandled-failure handler. Returns true when the work ran through.
// After an unhandled failure nothing more runs: the process is on its way out.
bool CallCore(const std::function<void()>& work);

using FailureHandler = std::function<void(const std::string& message)>;

// By default an unhandled failure shows its message and ends the event loop with code 1.
// Tests put a recorder in its place; the previous handler is returned.
FailureHandler SetUnhandledFailureHandler(FailureHandler handler);
bool UnhandledFailureHappened();
// Forgets an earlier failure; for tests only.
void ResetUnhandledFailure();

}  // namespace zeph::gui
