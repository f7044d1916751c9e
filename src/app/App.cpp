#include "app/App.h"

#include <filesystem>
#include <utility>

#include "app/SheetOperations.h"
#include "documents/CharacterFile.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/ShippedFiles.h"
#include "ruledata/DataModule.h"
#include "ruledata/RuleData.h"
#include "sheet/CharacterSheet.h"
#include "tools/RuleDataDiff.h"

namespace zeph {
namespace {

const char* const kMissingFileMessage =
    "Please locate a data file in XML format for Zephalon to use.";
const char* const kInvalidPreferencesMessage = "The preferences file is invalid.";
const char* const kMissingDocumentationMessage =
    "The Documentation folder isn't in the same directory as the Zephalon application.Please "
    "indicate where the Documentation folder is.";

}  // namespace

std::string App::BundledRulesFolder() const {
    const std::string folder = ShippedFolder(platform_.ApplicationFolder(), ShippedFiles::Rules);
    return IsExistingFolder(folder) ? folder : "";
}

void App::HelpHelp_Action() {
    std::string folder = ShippedFolder(platform_.ApplicationFolder(), ShippedFiles::Documentation);
    if (!IsExistingFolder(folder)) {
        platform_.MsgBox(kMissingDocumentationMessage);
        const auto chosen = platform_.SelectFolderDialog("Where is the Documentation folder?");
        if (!chosen) return;
        folder = *chosen;
    }
    platform_.ShowURL("file://" + JoinPath(folder, "index.html"));
}

std::string App::askForDataFile(const std::string& message) {
    platform_.MsgBox(message);
    auto chosen = platform_.OpenFileDialog(FileTypes::TextXml, BundledRulesFolder());
    if (!chosen) QuitProgram(platform_, 0);
    data_.datafilepath = AbsolutePath(*chosen);
    return data_.datafilepath;
}

std::string App::GetDataFile() {
    const std::string prefsPath = JoinPath(platform_.PreferencesFolder(), kPreferencesFileName);
    if (!IsExistingFile(prefsPath)) return askForDataFile(kChooseDataFileMessage);

    try {
        auto prefs = RuleData::LoadFile(prefsPath);
        if (auto path = prefs->Leaf("//pathtodatafile")) data_.datafilepath = *path;
        const std::string separator(1, kKnownDataFileSeparator);
        XmlNodeList files = prefs->Query("//datafiles");
        for (int i = 0; i < files.Count(); ++i) {
            XmlNode file = files.Item(i);
            data_.knowndatafiles.push_back(file.Attribute("name") + separator +
                                           file.Attribute("filename") + separator +
                                           file.Attribute("path"));
        }
        XmlNodeList recent = prefs->Query("//recentitem");
        for (int i = 0; i < recent.Count(); ++i) {
            data_.recentItemsName.push_back(recent.Item(i).Attribute("filename"));
            data_.recentItemsPaths.push_back(recent.Item(i).Attribute("path"));
        }
    } catch (const XmlError& failure) {
        platform_.MsgBox(FormatXmlFailure(failure));
        return "";
    }
    return data_.datafilepath;
}

void App::LoadData() {
    std::string path = GetDataFile();
    // A stored path that is not absolute cannot name a file of ours: the preferences were
    // edited by hand. An empty one is taken as a missing file, so the user is asked for one.
    if (!path.empty() && !std::filesystem::path(path).is_absolute()) {
        platform_.MsgBox(kInvalidPreferencesMessage);
        return;
    }
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error))
        path = askForDataFile(kMissingFileMessage);
    if (LoadDataFile(path)) doneloading = true;
}

bool App::LoadDataFile(const std::string& path) {
    data_.xdata = std::make_unique<RuleData>();
    try {
        data_.xdata = RuleData::LoadFile(path);
        XmlNodeList root = data_.xdata->Query("//zephalondata");
        if (!root.Empty()) data_.zephalondata = root.Item(0).Attribute("books");
        // The reference submenu anew: a file that fails to load leaves it as it was.
        XmlNodeList tables = data_.xdata->Query("zephalondata/tabledata/table");
        data_.referenceTables.clear();
        for (int i = 0; i < tables.Count(); ++i)
            data_.referenceTables.push_back(tables.Item(i).Attribute("name"));
    } catch (const XmlError& failure) {
        platform_.MsgBox(FormatXmlFailure(failure));
        return false;
    }
    return true;
}

}  // namespace zeph

namespace zeph {

std::optional<std::string> App::DataSwitchReport(const std::vector<CharacterSheet*>& sheets,
                                                 const std::string& path) {
    DataModule after;
    if (!App(after, platform_).LoadDataFile(path)) return std::nullopt;
    std::string report;
    for (CharacterSheet* sheet : sheets) {
        // The sheet as it stands: a save's copying of an open journal window is left out, so
        // that the report changes nothing.
        const bool journalOpen = std::exchange(sheet->journalWindowIsOpen, false);
        const std::string text = SaveXMLChar(*sheet).Serialise();
        sheet->journalWindowIsOpen = journalOpen;
        const auto character = RuleData::LoadText(text);
        report += ChangesAsText(DiffRuleData(*character, data_, after, SheetOperations()));
    }
    return report;
}

}  // namespace zeph
