#include "platform/ScriptedPlatform.h"

#include "text/TextHelpers.h"

namespace zeph {

std::string EscapeLineEnds(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        if (c == '\n') escaped += "\\n";
        else if (c == '\r') escaped += "\\r";
        else escaped += c;
    }
    return escaped;
}

std::string UnescapeLineEnds(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // "\\b" is the backspace key, as a list's delete key sends it.
        static const std::string escaped = "nrb", meant = "\n\r\b";
        const std::size_t kind = i + 1 < text.size() ? escaped.find(text[i + 1]) : std::string::npos;
        if (text[i] == '\\' && kind != std::string::npos) {
            plain += meant[kind];
            ++i;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

ScriptedPlatform::ScriptedPlatform(std::string preferencesFolder, std::string applicationFolder,
                                   std::string temporaryFolder)
    : preferencesFolder_(std::move(preferencesFolder)),
      applicationFolder_(std::move(applicationFolder)),
      temporaryFolder_(std::move(temporaryFolder)) {}

void ScriptedPlatform::line(const std::string& text) {
    transcript_.push_back(text);
    if (sink_) sink_(text);
}

void ScriptedPlatform::MsgBox(const std::string& text) {
    messages_.push_back(text);
    line("message: " + EscapeLineEnds(text));
}

std::optional<std::string> ScriptedPlatform::nextPath(const std::string& dialog) {
    if (answers_.empty()) {
        line("dialog: " + dialog + " -> cancel (no answer queued)");
        return std::nullopt;
    }
    std::string answer = answers_.front();
    answers_.pop_front();
    line("dialog: " + dialog + " -> " + answer);
    if (EqualsNoCase(answer, "cancel")) return std::nullopt;
    return answer;
}

std::optional<std::string> ScriptedPlatform::OpenFileDialog(const FileType& type,
                                                            const std::string& folder) {
    lastDialogFolder_ = folder;
    return nextPath("open " + type.name);
}

std::optional<std::string> ScriptedPlatform::SaveFileDialog(const FileType& type,
                                                            const std::string& suggestedName) {
    return nextPath("save " + type.name + " " + suggestedName);
}

std::optional<std::string> ScriptedPlatform::SelectFolderDialog(const std::string& prompt) {
    return nextPath("folder " + prompt);
}

SaveChangesAnswer ScriptedPlatform::AskSaveChanges(const std::string& message,
                                                   const std::string& explanation) {
    std::optional<std::string> answer = nextPath(message + " " + explanation);
    if (answer && EqualsNoCase(*answer, "Save")) return SaveChangesAnswer::Save;
    if (answer && EqualsNoCase(*answer, "Don't Save")) return SaveChangesAnswer::DontSave;
    return SaveChangesAnswer::Cancel;
}

bool ScriptedPlatform::AskChoice(const std::string& message, const std::string& yes,
                                 const std::string& no) {
    std::optional<std::string> answer = nextPath(message + " " + yes + "/" + no);
    return answer && EqualsNoCase(*answer, yes);
}

int ScriptedPlatform::ShowNotice(const std::string& text) {
    notices_[++nextNotice_] = text;
    line("notice: " + text);
    return nextNotice_;
}

void ScriptedPlatform::CloseNotice(int notice) {
    auto found = notices_.find(notice);
    if (found == notices_.end()) return;
    line("notice closed: " + found->second);
    notices_.erase(found);
}

std::vector<std::string> ScriptedPlatform::OpenNotices() const {
    std::vector<std::string> open;
    for (const auto& notice : notices_) open.push_back(notice.second);
    return open;
}

namespace {

// A disk that is full: nothing written arrives, and nothing takes the target's place.
class FullDiskFile : public OutputFile {
public:
    bool Write(std::string_view) override { return false; }
    bool Commit() override { return false; }
};

}  // namespace

std::unique_ptr<OutputFile> ScriptedPlatform::CreateOutputFile(const std::string& path) {
    if (fileFault_ == FileFault::CannotCreate) return nullptr;
    if (fileFault_ == FileFault::DiskFull) return std::make_unique<FullDiskFile>();
    return Platform::CreateOutputFile(path);
}

void ScriptedPlatform::ShowURL(const std::string& url) { line("url: " + url); }

void ScriptedPlatform::FetchToFile(const std::string& url, const std::string& path,
                                   FetchDone done, FetchFailed failed) {
    if (answers_.empty()) {
        line("fetch: " + url + " (no answer queued)");
        return;
    }
    const std::optional<std::string> answer = nextPath("fetch " + url);
    if (answer && answer->rfind("error ", 0) == 0) return failed(static_cast<int>(Whole(answer->substr(6))));
    const std::optional<std::string> served = answer ? ReadWholeFile(*answer) : std::nullopt;
    if (served && WriteFileAtomically(path, *served)) return done(path);
    done(std::nullopt);
}

void ScriptedPlatform::Quit(int code) {
    quitCalled_ = true;
    quitCode_ = code;
    line("quit: " + Str(code));
}

}  // namespace zeph
