// The data file manager ("Load Data"): the list of known rule data files, kept in the
// preferences, where the user adds files one by one or from a folder tree, removes them, and
// loads one in place of the rule data in use.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/RuleDataLint.h"
#include "tools/ToolModel.h"

namespace zeph {

class DataModule;
class Platform;

class LoadDataWindow : public ToolModel {
  public:
    // Loads a rule data file into the shared state (the application's LoadDataFile); false
    // when it failed, its report shown.
    using LoadDataFile = std::function<bool(const std::string& path)>;

    // Asked before a file replaces the one in use, with its path: false keeps the file in use
    // and the window open.
    using ConfirmSwitch = std::function<bool(const std::string& path)>;

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
    void SetConfirmSwitch(ConfirmSwitch confirm) { confirm_ = std::move(confirm); }
    // Lints the selected row's file: its findings go to CheckedFindings and CheckReport.
    void CheckButton_Action();

    // The mark of a row's file by the worst of its findings: "errors", "warnings" or "" (notes
    // aside). A file is linted once, when its mark is first asked for.
    std::string LintMark(int row);
    const std::vector<LintFinding>& CheckedFindings() const { return checked_; }

    // Name (the file's fullref), file name, and the path, which PathText shows.
    ListItem ListBox1{items_, "ListBox1", 3, {"Name", "File", "Path"}};
    TextItem PathText{items_, "PathText", ItemKind::Label, "", false};
    // The last check's findings, one a line as the console's lint prints them.
    TextItem CheckReport{items_, "CheckReport", ItemKind::Label, "", false};

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
    ConfirmSwitch confirm_;
    std::vector<LintFinding> checked_;
    std::map<std::string, int> lintStatus_;  // by path: 0 clean, 1 warnings, 2 errors
};

}  // namespace zeph
