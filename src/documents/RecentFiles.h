// The characters saved last: the File menu's recent submenu, shared by every window and kept in
// the preferences. Keyed by path when a save records an entry, looked up by name when one is
// chosen, so two files of one name in two folders both open the one nearer the top.
#pragma once

#include <functional>
#include <string>

namespace zeph {

class DataModule;
class Platform;

inline constexpr std::size_t kMostRecentFiles = 16;

// Records a saved file at the top and refills the submenu; callers empty the submenu first.
void PushRecentFile(DataModule& data, const std::string& name, const std::string& path);
void RemoveRecentOpenItems(DataModule& data);
// One item per entry, then "-" and "Clear".
void RebuildRecentOpenItems(DataModule& data);

// Choosing an item of the submenu: the caption is kept and the loading notice goes up; the
// work is done by the timer a moment later, once the menu has closed.
int OpenRecentMenuItem_Action(DataModule& data, Platform& platform, const std::string& caption);
// The timer's work: "Clear" empties the list, "-" does nothing, a name opens the path of the
// first entry of that name through `openCharacter`. Then the notice closes.
void LoadingRecentCharacterTimer(DataModule& data, Platform& platform, int notice,
                                 const std::function<void(const std::string& path)>& openCharacter);

}  // namespace zeph
