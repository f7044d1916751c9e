#include "tools/DataFileManager.h"

#include <filesystem>
#include <fstream>

#include "platform/Files.h"
#include "platform/Platform.h"
#include "ruledata/DataModule.h"
#include "ruledata/RuleData.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kVanishedFileMessage =
    "This file can no longer be located. It has been removed from the list. Please choose "
    "another.";

std::string fileName(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

bool isReadable(const std::string& path) { return std::ifstream(path).good(); }

}  // namespace

LoadDataWindow::LoadDataWindow(DataModule& data, Platform& platform, LoadDataFile load)
    : ToolModel("Load Data", 520, 320), data_(data), platform_(platform), load_(std::move(load)) {
    ListBox1.SetShownColumns(2);
    ListBox1.SetColumnWidths("60%,40%");
    // ListBox1_Change: a new selection, or a selected row gone, shows in the path.
    ListBox1.Observe([this](ItemChange change) {
        if (change == ItemChange::Selection || change == ItemChange::Rows) UpdatePath();
    });
    AddOperation("ListBox1_KeyDown", [this](const std::string& key) { ListBox1_KeyDown(key); });
    AddOperation("Remove_Action", [this](const std::string&) { RemoveRow(); });
    AddOperation("AddFileButton_Action", [this](const std::string&) { AddFileButton_Action(); });
    AddOperation("AddfromFolderButton_Action",
                 [this](const std::string&) { AddfromFolderButton_Action(); });
    AddOperation("LoadButton_Action", [this](const std::string&) { LoadButton_Action(); });
    AddOperation("CheckButton_Action", [this](const std::string&) { CheckButton_Action(); });
    AddOperation("ClosePushButton_Action", [this](const std::string&) { Close(); });
    AddOperation("_FileClose_Action", [this](const std::string&) { Close(); });
    ListBox1_Open();
}

void LoadDataWindow::ListBox1_Open() {
    const std::string folder = platform_.PreferencesFolder();
    if (folder.empty()) {
        // No preferences folder to be had: a data file is asked for, the list stays as it is.
        platform_.MsgBox(kChooseDataFileMessage);
        const auto chosen = platform_.OpenFileDialog(FileTypes::Text, "");
        if (!chosen) QuitProgram(platform_, 0);
        data_.datafilepath = AbsolutePath(*chosen);
        return;
    }
    // The file on disk counts here, not the known files in memory.
    const std::string prefsPath = JoinPath(folder, kPreferencesFileName);
    if (!IsExistingFile(prefsPath)) return;
    try {
        auto prefs = RuleData::LoadFile(prefsPath);
        XmlNodeList files = prefs->Query("//datafiles");
        for (int i = 0; i < files.Count(); ++i) {
            XmlNode file = files.Item(i);
            ListBox1.AddRow(file.Attribute("name"));
            ListBox1.SetCell(ListBox1.LastIndex(), 1, file.Attribute("filename"));
            ListBox1.SetCell(ListBox1.LastIndex(), 2, file.Attribute("path"));
        }
    } catch (const XmlError& failure) {
        platform_.MsgBox(FormatXmlFailure(failure));
    }
    for (int row = 0; row < ListBox1.ListCount(); ++row) {
        if (ListBox1.Cell(row, 2) != data_.datafilepath) continue;
        for (int column = 0; column < 3; ++column) ListBox1.SetCellBold(row, column, true);
        ListBox1.SetListIndex(row);
    }
}

void LoadDataWindow::ListBox1_KeyDown(const std::string& key) {
    if (key == "16" || key == "8") RemoveRow();
}

int LoadDataWindow::lastSelectedRow() const {
    int last = -1;
    for (int row = 0; row < ListBox1.ListCount(); ++row)
        if (ListBox1.Selected(row)) last = row;
    return last;
}

void LoadDataWindow::UpdatePath() {
    const int last = lastSelectedRow();
    if (last == -1) {
        PathText.SetVisible(false);
        return;
    }
    PathText.SetText("Path to folder-- " + ListBox1.Cell(last, 2));
    PathText.SetVisible(true);
}

void LoadDataWindow::RemoveRow() {
    // The count is read anew at each step, and the walk goes on with the next index: of two
    // selected rows one after the other, the second stays.
    for (int row = 0; row < ListBox1.ListCount(); ++row)
        if (ListBox1.Selected(row)) ListBox1.RemoveRow(row);
}

bool LoadDataWindow::addDataFile(const std::string& path) {
    auto rules = RuleData::LoadFile(path);
    XmlNodeList root = rules->Query("//zephalondata");
    if (root.Empty()) return false;
    ListBox1.AddRow(root.Item(0).Attribute("fullref"));
    ListBox1.SetCell(ListBox1.LastIndex(), 1, fileName(path));
    ListBox1.SetCell(ListBox1.LastIndex(), 2, AbsolutePath(path));
    return true;
}

void LoadDataWindow::AddFileButton_Action() {
    const auto chosen = platform_.OpenFileDialog(FileTypes::Text, "");
    if (!chosen) return;
    // A file that is no XML has no handler here: its failure reaches the application's.
    if (addDataFile(*chosen)) ListBox1.SetListIndex(ListBox1.LastIndex());
}

void LoadDataWindow::AddfromFolderButton_Action() {
    const auto folder = platform_.SelectFolderDialog("Choose a folder to search for data files");
    if (folder) FindFiles(*folder);
}

void LoadDataWindow::FindFiles(const std::string& folder) {
    std::string current;
    try {
        for (const std::string& item : FolderItems(folder)) {
            if (IsExistingFolder(item)) FindFiles(item);
            current = item;
            if (!IsExistingFile(item) || !isReadable(item) || !EqualsNoCase(Right(item, 4), ".xml"))
                continue;
            addDataFile(item);
        }
    } catch (const XmlError& failure) {
        // The rest of this folder is not searched; the folder above goes on.
        platform_.MsgBox(failure.message() + "\nIn file: " + fileName(current) +
                         "\nFile note added.");
    }
}

void LoadDataWindow::LoadButton_Action() {
    const int row = lastSelectedRow();
    if (row == -1) return;
    const std::string path = ListBox1.Cell(row, 2);
    if (!IsExistingFile(path)) {
        platform_.MsgBox(kVanishedFileMessage);
        ListBox1.RemoveRow(row);
        return;
    }
    if (confirm_ && !confirm_(AbsolutePath(path))) return;
    data_.datafilepath = AbsolutePath(path);
    // A file that fails leaves the window open, the rule data replaced by then.
    if (load_(data_.datafilepath)) Close();
}

void LoadDataWindow::CheckButton_Action() {
    const int row = lastSelectedRow();
    CheckReport.SetVisible(row != -1);
    if (row == -1) return;
    const std::string path = ListBox1.Cell(row, 2);
    checked_ = LintRuleDataFile(path);
    lintStatus_[path] = LintExitStatus(checked_);
    CheckReport.SetText(checked_.empty() ? "No mistakes found in " + path + "."
                                         : FindingsAsText(checked_));
    CheckReport.SetVisible(true);
}

std::string LoadDataWindow::LintMark(int row) {
    const std::string path = ListBox1.Cell(row, 2);
    auto [status, isNew] = lintStatus_.try_emplace(path, 0);
    if (isNew) status->second = LintExitStatus(LintRuleDataFile(path));
    return status->second == 2 ? "errors" : status->second == 1 ? "warnings" : "";
}

void LoadDataWindow::Event_Close() {
    data_.knowndatafiles.clear();
    const std::string separator(1, kKnownDataFileSeparator);
    for (int row = 0; row < ListBox1.ListCount(); ++row)
        data_.knowndatafiles.push_back(ListBox1.Cell(row, 0) + separator + ListBox1.Cell(row, 1) +
                                       separator + ListBox1.Cell(row, 2));
    data_.SaveDataFilePreferences(platform_);
}

}  // namespace zeph
