#include "platform/Programs.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

#include "platform/Files.h"

extern char** environ;

namespace zeph {
namespace {

bool isExecutableFile(const std::string& path) {
    return IsExistingFile(path) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string FindProgram(const std::string& name) {
    if (name.empty()) return "";
    if (name.find('/') != std::string::npos) return isExecutableFile(name) ? name : "";
    // An empty entry would be the current folder, which is never searched: a folder the user
    // happens to be in must not supply the renderer.
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (!folder.empty() && isExecutableFile(JoinPath(folder, name))) return JoinPath(folder, name);
    return "";
}

ProgramRun RunProgram(const std::vector<std::string>& arguments, int timeoutSeconds) {
    ProgramRun run;
    if (arguments.empty()) return run;
    // What it prints goes to a file, not a pipe, so a chatty program never blocks on it.
    std::string outputPath = (std::filesystem::temp_directory_path() / "zephalon-program-XXXXXX").string();
    const int outputFile = ::mkstemp(outputPath.data());
    if (outputFile < 0) return run;
    ::unlink(outputPath.c_str());

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, outputFile, 1);
    posix_spawn_file_actions_adddup2(&files, outputFile, 2);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    std::vector<char*> argv;
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t child;
    run.started = ::posix_spawn(&child, argv[0], &files, &attributes, argv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);

    if (run.started) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(timeoutSeconds);
        int waitStatus = 0;
        while (::waitpid(child, &waitStatus, WNOHANG) == 0) {
            if (std::chrono::steady_clock::now() > deadline) {
                ::kill(-child, SIGKILL);
                ::waitpid(child, &waitStatus, 0);
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        if (WIFEXITED(waitStatus)) run.status = WEXITSTATUS(waitStatus);
        // Helpers it left behind (a browser's renderers) go with it.
        ::kill(-child, SIGKILL);
    }
    ::lseek(outputFile, 0, SEEK_SET);
    char buffer[4096];
    for (ssize_t got; (got = ::read(outputFile, buffer, sizeof buffer)) > 0;) run.output.append(buffer, got);
    ::close(outputFile);
    return run;
}

}  // namespace zeph
