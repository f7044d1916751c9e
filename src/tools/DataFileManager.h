// The data file manager ("Load Data"): the list of known rule data files, kept in the
// preferences, where the user adds files one by one or from a folder tree, removes them, and
// loads one in place of the rule data in use.
#pragma once

#include <functional>
#include <string>

#include "tools/ToolModel.h"

namespace zeph {

class DataModule;
class Platform;

class LoadDataWindow : public ToolModel {
  public:
    // Loads a rule data file into the shared state (the application's LoadDataFile); false
    // when it failed, its report shown.
    using LoadDataFile = std::function<bool(const std::string& path)>;

    // Opens with the list filled from the preferences file.
    LoadDataWindow(DataModule& data, Platform& platform, LoadDataFile load);

    void ListBox1_Open();
    void ListBox1_KeyDown(const std::string& key);
    void UpdatePath();
    void RemoveRow();
    void AddFileButton_Action();
    void AddfromFolderButton_Action();
    void FindFiles(const std::string& folder);
    void LoadButton_Action();

    // Name (the file's fullref), file name, and the path, which PathText shows.
    ListItem ListBox1{items_, "ListBox1", 3, {"Name", "File", "Path"}};
    TextItem PathText{items_, "PathText", ItemKind::Label, "", false};

  protected:
    // Every way out stores the list as the known data files.
    void Event_Close() override;

  private:
    int lastSelectedRow() const;
    // Appends the row of a rule data file; false when the file has no zephalondata root.
    bool addDataFile(const std::string& path);

    DataModule& data_;
    Platform& platform_;
    LoadDataFile load_;
};

}  // namespace zeph
