#include "documents/Recovery.h"

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <regex>

#include "documents/CharacterFile.h"
#include "documents/SavingCharacters.h"
#include "platform/Platform.h"
#include "sheet/CharacterSheet.h"

namespace zeph {
namespace {

// Beside each copy of a bound character: the path of its file.
std::string boundPathFile(const std::string& copyPath) { return copyPath + ".bound"; }

void removeCopy(const std::string& copyPath) {
    std::error_code ignored;
    std::filesystem::remove(copyPath, ignored);
    std::filesystem::remove(boundPathFile(copyPath), ignored);
}

// The number of the process that wrote the copy of this file name; none for any other file.
std::optional<pid_t> writerOf(const std::string& fileName) {
    static const std::regex copyName(R"(recovery-(\d{1,9})-\d+\.xml)");
    std::smatch match;
    if (!std::regex_match(fileName, match, copyName)) return std::nullopt;
    return static_cast<pid_t>(std::stol(match[1]));
}

// Every process, whoever runs it, has its folder under /proc.
bool isRunning(pid_t process) {
    return process != getpid() && std::filesystem::exists("/proc/" + std::to_string(process));
}

}  // namespace

void AssignRecoveryCopy(CharacterSheet& sheet) {
    static int copies = 0;
    const std::string name =
        "recovery-" + std::to_string(getpid()) + "-" + std::to_string(++copies) + ".xml";
    sheet.recoveryCopyPath = JoinPath(sheet.Host().StateFolder(), name);
}

void UpdateRecoveryCopy(CharacterSheet& sheet) {
    // A character that closed itself (a failed open) goes without its window's closing.
    if (sheet.recoveryCopyPath.empty() || sheet.characterClosed) return;
    if (sheet.savedChar) return RemoveRecoveryCopy(sheet);
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(sheet.recoveryCopyPath).parent_path(),
                                        ignored);
    if (!sheet.fileSaveString.empty())
        WriteFileAtomically(boundPathFile(sheet.recoveryCopyPath), sheet.fileSaveString);
    WriteFileAtomically(sheet.recoveryCopyPath, CharacterFileText(sheet));
}

void RemoveRecoveryCopy(CharacterSheet& sheet) {
    if (!sheet.recoveryCopyPath.empty()) removeCopy(sheet.recoveryCopyPath);
}

std::vector<LeftBehindCopy> FindLeftBehindCopies(const std::string& folder) {
    std::vector<LeftBehindCopy> copies;
    for (const std::string& path : FolderItems(folder)) {
        const auto writer = writerOf(std::filesystem::path(path).filename().string());
        if (writer && !isRunning(*writer))
            copies.push_back({path, ReadWholeFile(boundPathFile(path)).value_or("")});
    }
    return copies;
}

void ReopenLeftBehindCopy(CharacterSheet& sheet, const LeftBehindCopy& copy) {
    LoadXMLCharSheet(sheet, copy.copyPath);
    if (sheet.characterClosed) return;
    sheet.fileSaveString = copy.boundPath;
    sheet.savedChar = false;
    UpdateRecoveryCopy(sheet);
}

void OfferLeftBehindWork(Platform& platform,
                         const std::function<void(const LeftBehindCopy&)>& reopen) {
    const std::vector<LeftBehindCopy> copies = FindLeftBehindCopies(platform.StateFolder());
    if (copies.empty()) return;
    const std::string count = std::to_string(copies.size());
    const std::string characters = copies.size() == 1 ? " character?" : " characters?";
    if (platform.AskChoice(
            "Zephalon closed unexpectedly. Reopen the unsaved work of " + count + characters,
            "Reopen", "Discard"))
        for (const LeftBehindCopy& copy : copies) reopen(copy);
    for (const LeftBehindCopy& copy : copies) removeCopy(copy.copyPath);
}

}  // namespace zeph
