// The application object's work that needs no window: finding the rule data file through the
// preferences or by asking the user, and loading it into the shared document.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zeph {

class CharacterSheet;
class DataModule;
class Platform;

class App {
public:
    App(DataModule& data, Platform& platform) : data_(data), platform_(platform) {}

    // Reads the preferences into the shared state and returns the data file's path. On the
    // first run asks for a data file, and quits (code 0) when the user cancels.
    std::string GetDataFile();
    // Brings the rule data in, asking again when the stored file has vanished.
    void LoadData();
    // Replaces the rule document with the file at `path` and reads its books and tables (the
    // reference submenu, rebuilt).
    // Shows the failure report and returns false when the file is not XML.
    bool LoadDataFile(const std::string& path);

    // What loading the file at `path` would change on each sheet, one block a character, the
    // sheets left as they are; nullopt when the file cannot be read, its failure shown.
    std::optional<std::string> DataSwitchReport(const std::vector<CharacterSheet*>& sheets,
                                                const std::string& path);
    // Shows Documentation/index.html beside the application in the browser; asks where the
    // folder is when it is not there.
    void HelpHelp_Action();

    // The folder a file dialog for rule data opens in: where the bundled sample lives.
    std::string BundledRulesFolder() const;

    bool doneloading = false;

private:
    std::string askForDataFile(const std::string& message);

    DataModule& data_;
    Platform& platform_;
};

}  // namespace zeph
