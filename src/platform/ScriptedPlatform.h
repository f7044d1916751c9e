// A platform that answers every question from a queue and writes every message, dialog and
// quit as a line, for the console and the tests: whole flows, failures included, run headless.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace zeph {

class ScriptedPlatform : public Platform {
public:
    using LineSink = std::function<void(const std::string&)>;

    ScriptedPlatform(std::string preferencesFolder, std::string applicationFolder,
                     std::string temporaryFolder);

    // Answers are taken in order: a path or "cancel" for a file dialog, a button caption
    // ("Save", "Don't Save", "Cancel") for the save-changes question.
    void QueueAnswer(const std::string& answer) { answers_.push_back(answer); }
    // Where the lines go; by default they are only kept in Transcript().
    void SetLineSink(LineSink sink) { sink_ = std::move(sink); }
    const std::vector<std::string>& Transcript() const { return transcript_; }
    const std::vector<std::string>& Messages() const { return messages_; }
    bool QuitCalled() const { return quitCalled_; }
    int QuitCode() const { return quitCode_; }

    void MsgBox(const std::string& text) override;
    std::optional<std::string> OpenFileDialog(const FileType& type,
                                              const std::string& folder) override;
    std::optional<std::string> SaveFileDialog(const FileType& type,
                                              const std::string& suggestedName) override;
    std::optional<std::string> SelectFolderDialog(const std::string& prompt) override;
    SaveChangesAnswer AskSaveChanges(const std::string& message,
                                     const std::string& explanation) override;
    // Answered by the next answer, a button's caption.
    bool AskChoice(const std::string& message, const std::string& yes,
                   const std::string& no) override;
    int ShowNotice(const std::string& text) override;
    void CloseNotice(int notice) override;
    // Files are real unless a fault is set: none can be made, or the disk fills while writing.
    enum class FileFault { None, CannotCreate, DiskFull };
    void SetFileFault(FileFault fault) { fileFault_ = fault; }
    std::unique_ptr<OutputFile> CreateOutputFile(const std::string& path) override;
    // The notices shown and not closed, in the order shown.
    std::vector<std::string> OpenNotices() const;
    std::string PreferencesFolder() override { return preferencesFolder_; }
    std::string ApplicationFolder() override { return applicationFolder_; }
    std::string TemporaryFolder() override { return temporaryFolder_; }
    // The temporary folder unless set.
    std::string StateFolder() override {
        return stateFolder_.empty() ? temporaryFolder_ : stateFolder_;
    }
    void SetStateFolder(std::string folder) { stateFolder_ = std::move(folder); }
    void ShowURL(const std::string& url) override;
    // Answered at once by the next answer: "error N" fails with N, a file's path is served as
    // the download, "cancel" gives no file; with no answer queued the fetch never ends.
    void FetchToFile(const std::string& url, const std::string& path, FetchDone done,
                     FetchFailed failed) override;
    void Quit(int code) override;
    // The real clock's moment unless one is set, so that what is written can be foretold.
    LocalDateTime Now() override { return now_ ? *now_ : Platform::Now(); }
    void SetNow(const LocalDateTime& moment) { now_ = moment; }

    // The folder the last open dialog started in.
    const std::string& LastDialogFolder() const { return lastDialogFolder_; }

private:
    std::optional<std::string> nextPath(const std::string& dialog);
    void line(const std::string& text);

    std::string preferencesFolder_, applicationFolder_, temporaryFolder_, stateFolder_;
    std::deque<std::string> answers_;
    std::vector<std::string> transcript_;
    std::vector<std::string> messages_;
    LineSink sink_;
    bool quitCalled_ = false;
    int quitCode_ = 0;
    std::string lastDialogFolder_;
    std::map<int, std::string> notices_;
    int nextNotice_ = 0;
    FileFault fileFault_ = FileFault::None;
    std::optional<LocalDateTime> now_;
};

// Writes line ends as \n and carriage returns as \r, so that any value stays on one line.
std::string EscapeLineEnds(const std::string& text);
std::string UnescapeLineEnds(const std::string& text);  // also "\\b", the backspace key

}  // namespace zeph
