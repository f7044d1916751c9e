// The splash: the name, "Loading Data...", a credit line and the version, for three seconds
// before the rule data is loaded.
#pragma once

namespace zeph::gui {

// Shows the splash modally and returns when its timer has closed it.
void ShowLoadingWindow();

}  // namespace zeph::gui
