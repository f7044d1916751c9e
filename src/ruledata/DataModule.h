// The state that all open characters share: the rule data document, the books it covers, the
// data file in use, the known data files and the recent characters. One per process.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ruledata/RuleData.h"

namespace zeph {

class Platform;

// Separates name, file name and path in an entry of knowndatafiles.
inline constexpr char kKnownDataFileSeparator = '\r';

class DataModule {
public:
    // Never null: an empty document answers every query with nothing.
    std::unique_ptr<RuleData> xdata = std::make_unique<RuleData>();
    std::string zephalondata;
    std::string datafilepath;
    std::vector<std::string> knowndatafiles;
    std::vector<std::string> recentItemsName;
    std::vector<std::string> recentItemsPaths;
    std::string recentItemPath;
    // The captions of the File menu's recent submenu, top first.
    std::vector<std::string> recentMenuItems;
    // The names of the reference tables, in order: the Help reference menu.
    std::vector<std::string> referenceTables;

    // Writes zephalonprefs.xml from the state above; reports nothing when it cannot.
    void SaveDataFilePreferences(Platform& platform) const;
};

inline constexpr const char* kPreferencesFileName = "zephalonprefs.xml";
// Asked when no data file is known, before the file dialog opens.
inline constexpr const char* kChooseDataFileMessage =
    "Please select a data file to use. Zephalon will not operate without an xml data file.";

}  // namespace zeph
