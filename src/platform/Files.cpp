#include "platform/Files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace zeph {
namespace fs = std::filesystem;

namespace {

fs::path temporaryBeside(const fs::path& target) {
    static std::random_device random;
    fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    return folder / ("." + target.filename().string() + ".tmp" + std::to_string(random()));
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Create(const std::string& path) {
    std::error_code error;
    if (path.empty() || fs::is_directory(path, error)) return nullptr;
    std::unique_ptr<OutputFile> file(new OutputFile());
    file->target_ = path;
    const fs::path temporary = temporaryBeside(path);
    file->out_.open(temporary, std::ios::binary | std::ios::trunc);
    if (file->out_) {
        file->temporary_ = temporary.string();
        return file;
    }
    // A folder that takes no new file may still hold a file we may rewrite.
    if (fs::is_regular_file(path, error) && access(path.c_str(), W_OK) == 0) return file;
    return nullptr;
}

OutputFile::~OutputFile() {
    if (committed_ || temporary_.empty()) return;
    out_.close();
    std::error_code error;
    fs::remove(temporary_, error);
}

bool OutputFile::Write(std::string_view text) {
    if (temporary_.empty()) {
        pending_.append(text);
        return true;
    }
    out_.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!out_) failed_ = true;
    return !failed_;
}

bool OutputFile::Commit() {
    if (committed_) return true;
    if (temporary_.empty()) {
        std::ofstream inPlace(target_, std::ios::binary | std::ios::trunc);
        inPlace.write(pending_.data(), static_cast<std::streamsize>(pending_.size()));
        inPlace.close();
        committed_ = static_cast<bool>(inPlace);
        return committed_;
    }
    out_.flush();
    out_.close();
    if (failed_ || out_.fail()) return false;
    std::error_code error;
    fs::rename(temporary_, target_, error);
    committed_ = !error;
    return committed_;
}

bool WriteFileAtomically(const std::string& path, const std::string& content) {
    std::unique_ptr<OutputFile> file = OutputFile::Create(path);
    return file && file->Write(content) && file->Commit();
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

bool IsExistingFile(const std::string& path) {
    std::error_code error;
    return !path.empty() && fs::is_regular_file(path, error);
}

bool IsExistingFolder(const std::string& path) {
    std::error_code error;
    return !path.empty() && fs::is_directory(path, error);
}

std::string JoinPath(const std::string& folder, const std::string& name) {
    return (fs::path(folder) / name).string();
}

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

std::vector<std::string> FolderItems(const std::string& folder) {
    std::vector<std::string> items;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        items.push_back(it->path().string());
    std::sort(items.begin(), items.end());
    return items;
}

}  // namespace zeph
