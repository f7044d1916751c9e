// Other programs the core runs (the PDF renderer, the print spooler): found on the PATH and run
// to the end with what they print kept, never through a shell.
#pragma once

#include <string>
#include <vector>

namespace zeph {

// The path of `name` as the shell would find it on the PATH; `name` itself when it holds a "/"
// and is executable; "" when there is none.
std::string FindProgram(const std::string& name);

struct ProgramRun {
    bool started = false;
    int status = -1;     // the exit status; -1 when it did not end by itself
    std::string output;  // standard output and error together
};

// Runs `arguments` (the program's path first) in a process group of its own, with standard
// input empty, and waits at most `timeoutSeconds`; the whole group is killed after that. What it
// prints passes through a file in the temporary folder ($TMPDIR), gone at once.
ProgramRun RunProgram(const std::vector<std::string>& arguments, int timeoutSeconds);

}  // namespace zeph
