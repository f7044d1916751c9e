// Everything the core asks of the outside world: dialogs, messages, folders, the browser,
// quitting. The Qt app answers with real windows; tests and the console with a script.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "platform/Files.h"

namespace zeph {

// A file type of the open dialogs: a name and the extensions it accepts (".xml;.xsl").
struct FileType {
    std::string name;
    std::string extensions;
};

namespace FileTypes {
inline const FileType Text{"text", ".xml;.xsl"};
inline const FileType TextXml{"text/xml", ".xml"};
}  // namespace FileTypes

enum class SaveChangesAnswer { Save, DontSave, Cancel };

// A moment of the local clock.
struct LocalDateTime {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

class Platform {
public:
    virtual ~Platform() = default;

    // A modal message box.
    virtual void MsgBox(const std::string& text) = 0;
    // Pick one existing file of the type, starting in `folder` ("" for the usual place).
    virtual std::optional<std::string> OpenFileDialog(const FileType& type,
                                                      const std::string& folder) = 0;
    // Pick a path to write, suggesting `suggestedName`.
    virtual std::optional<std::string> SaveFileDialog(const FileType& type,
                                                      const std::string& suggestedName) = 0;
    virtual std::optional<std::string> SelectFolderDialog(const std::string& prompt) = 0;
    // The caution box with "Save", "Don't Save" and Cancel.
    virtual SaveChangesAnswer AskSaveChanges(const std::string& message,
                                             const std::string& explanation) = 0;
    // A question with two buttons: true for `yes`, false for `no` or a box closed unanswered.
    virtual bool AskChoice(const std::string& message, const std::string& yes,
                           const std::string& no) = 0;
    // A small window with one text and no controls ("Saving character. Please wait..."),
    // painted before the work starts; the number closes it again.
    virtual int ShowNotice(const std::string& text) = 0;
    virtual void CloseNotice(int notice) = 0;

    // A file to write whole (see OutputFile); null when it cannot be created.
    virtual std::unique_ptr<OutputFile> CreateOutputFile(const std::string& path) {
        return OutputFile::Create(path);
    }
    virtual LocalDateTime Now();

    virtual std::string PreferencesFolder() = 0;
    virtual std::string ApplicationFolder() = 0;
    virtual std::string TemporaryFolder() = 0;
    // Where what outlives a run but is no preference is kept: the recovery copies.
    virtual std::string StateFolder() = 0;

    virtual void ShowURL(const std::string& url) = 0;

    // A plain HTTP GET of `url` into the file at `path`, in the background. Later, from the
    // event loop, exactly one of the two is called: `done` when an answer came, whatever its
    // status, with the file (nothing when it could not be written), or `failed` with a code
    // when the transfer itself failed.
    using FetchDone = std::function<void(const std::optional<std::string>& file)>;
    using FetchFailed = std::function<void(int code)>;
    virtual void FetchToFile(const std::string& url, const std::string& path, FetchDone done,
                             FetchFailed failed) = 0;
    // Ends the process with the code once control is back in the event loop.
    virtual void Quit(int code) = 0;
};

// Thrown by the core after it asked the platform to quit, so the operation stops at once.
class QuitRequest : public std::exception {
public:
    explicit QuitRequest(int code) : code_(code) {}
    int code() const { return code_; }
    const char* what() const noexcept override { return "quit"; }

private:
    int code_;
};

// Asks the platform to quit and abandons the running operation.
[[noreturn]] inline void QuitProgram(Platform& platform, int code) {
    platform.Quit(code);
    throw QuitRequest(code);
}

}  // namespace zeph
