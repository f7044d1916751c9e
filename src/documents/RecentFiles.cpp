#include "documents/RecentFiles.h"

#include "platform/Platform.h"
#include "ruledata/DataModule.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kSeparatorItem = "-";
const char* const kClearItem = "Clear";

}  // namespace

void PushRecentFile(DataModule& data, const std::string& name, const std::string& path) {
    auto& names = data.recentItemsName;
    auto& paths = data.recentItemsPaths;
    std::size_t found = 0;
    while (found < paths.size() && !EqualsNoCase(paths[found], path)) ++found;
    if (found < paths.size()) {
        names.erase(names.begin() + static_cast<std::ptrdiff_t>(found));
        paths.erase(paths.begin() + static_cast<std::ptrdiff_t>(found));
    } else if (names.size() >= kMostRecentFiles) {
        names.pop_back();
        paths.pop_back();
    }
    names.insert(names.begin(), name);
    paths.insert(paths.begin(), path);

    for (auto entry = names.rbegin(); entry != names.rend(); ++entry)
        data.recentMenuItems.insert(data.recentMenuItems.begin(), *entry);
    data.recentMenuItems.push_back(kSeparatorItem);
    data.recentMenuItems.push_back(kClearItem);
}

void RemoveRecentOpenItems(DataModule& data) { data.recentMenuItems.clear(); }

void RebuildRecentOpenItems(DataModule& data) {
    for (const std::string& name : data.recentItemsName) data.recentMenuItems.push_back(name);
    data.recentMenuItems.push_back(kSeparatorItem);
    data.recentMenuItems.push_back(kClearItem);
}

int OpenRecentMenuItem_Action(DataModule& data, Platform& platform, const std::string& caption) {
    data.recentItemPath = caption;
    return platform.ShowNotice("Loading character. Please wait...");
}

void LoadingRecentCharacterTimer(DataModule& data, Platform& platform, int notice,
                                 const std::function<void(const std::string& path)>& openCharacter) {
    std::string path;
    if (EqualsNoCase(data.recentItemPath, kClearItem)) {
        // The separator and "Clear" stay.
        while (data.recentMenuItems.size() > 2) data.recentMenuItems.erase(data.recentMenuItems.begin());
        data.recentItemsName.clear();
        data.recentItemsPaths.clear();
    } else if (!EqualsNoCase(data.recentItemPath, kSeparatorItem)) {
        for (std::size_t entry = 0; entry < data.recentItemsName.size(); ++entry) {
            if (!EqualsNoCase(data.recentItemsName[entry], data.recentItemPath)) continue;
            path = data.recentItemsPaths[entry];
            break;
        }
    }
    if (!path.empty()) openCharacter(path);
    platform.CloseNotice(notice);
}

}  // namespace zeph
