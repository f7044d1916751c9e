// Everything the core asks of the outside world: dialogs, messages, folders, the browser,
// quitting. The Qt app answers with real windows; tests and the console with a script.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

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
    // "Save changes to <name> before closing?"
    virtual SaveChangesAnswer AskSaveChanges(const std::string& documentName) = 0;

    virtual std::string PreferencesFolder() = 0;
    virtual std::string ApplicationFolder() = 0;
    virtual std::string TemporaryFolder() = 0;

    virtual void ShowURL(const std::string& url) = 0;
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
