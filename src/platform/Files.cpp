#include "platform/Files.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace zeph {
namespace fs = std::filesystem;

bool WriteFileAtomically(const std::string& path, const std::string& content) {
    std::error_code error;
    fs::path target(path);
    fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    if (!fs::is_directory(folder, error)) return false;

    std::random_device random;
    fs::path temporary =
        folder / ("." + target.filename().string() + ".tmp" + std::to_string(random()));
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
        out.flush();
        if (!out) {
            out.close();
            fs::remove(temporary, error);
            return false;
        }
    }
    fs::rename(temporary, target, error);
    if (error) {
        fs::remove(temporary, error);
        return false;
    }
    return true;
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

}  // namespace zeph
