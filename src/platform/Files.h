// Files as the program uses them: read whole, written whole to a temporary file in the same
// folder and renamed over the target, so a crash or a full disk never leaves half a file.
#pragma once

#include <optional>
#include <string>

namespace zeph {

// Returns false (and leaves the target as it was) when the file could not be written.
bool WriteFileAtomically(const std::string& path, const std::string& content);
std::optional<std::string> ReadWholeFile(const std::string& path);
bool IsExistingFile(const std::string& path);
bool IsExistingFolder(const std::string& path);
std::string JoinPath(const std::string& folder, const std::string& name);
std::string AbsolutePath(const std::string& path);

}  // namespace zeph
