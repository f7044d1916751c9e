// Files as the program uses them: read whole, written whole to a temporary file in the same
// folder and renamed over the target, so a crash or a full disk never leaves half a file.
#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zeph {

// A file being written whole. The text goes to a new file beside the target, which takes the
// target's place only on Commit; a file never committed is removed and the target stays as it
// was. Where the folder takes no new file but the target itself is writable, the target is
// rewritten in place at Commit.
class OutputFile {
public:
    // Null when neither way can write the file.
    static std::unique_ptr<OutputFile> Create(const std::string& path);
    virtual ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    virtual bool Write(std::string_view text);
    // False when anything written did not reach the disk; the target is then as it was.
    virtual bool Commit();

protected:
    OutputFile() = default;

private:
    std::string target_;
    std::string temporary_;  // empty when rewriting in place
    std::string pending_;    // what an in-place rewrite writes at Commit
    std::ofstream out_;
    bool failed_ = false;
    bool committed_ = false;
};

// Returns false (and leaves the target as it was) when the file could not be written.
bool WriteFileAtomically(const std::string& path, const std::string& content);
std::optional<std::string> ReadWholeFile(const std::string& path);
bool IsExistingFile(const std::string& path);
bool IsExistingFolder(const std::string& path);
std::string JoinPath(const std::string& folder, const std::string& name);
std::string AbsolutePath(const std::string& path);
// The paths of the files and folders in a folder, by name; none when it cannot be read.
std::vector<std::string> FolderItems(const std::string& folder);

}  // namespace zeph
