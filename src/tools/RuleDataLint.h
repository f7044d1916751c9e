// The linter of rule data files: reads a file on its own terms and names each mistake that the
// program would otherwise pass over in silence, with the line of the element at fault.
#pragma once

#include <string>
#include <vector>

namespace zeph {

enum class Severity { Note, Warning, Error };

struct LintFinding {
    std::string file;
    int line = 0;
    Severity severity = Severity::Warning;
    std::string code;  // what kind of mistake, e.g. "unknown-element"
    std::string message;
};

// The findings of the rule data in `text`, sorted by line; `file` names it in each finding.
std::vector<LintFinding> LintRuleDataText(const std::string& text, const std::string& file);
// The same for the file at `path`; a file that cannot be read is one error.
std::vector<LintFinding> LintRuleDataFile(const std::string& path);

const char* SeverityName(Severity severity);
// One finding a line, "FILE:LINE: severity: message [code]", the form editors and logs parse.
std::string FindingsAsText(const std::vector<LintFinding>& findings);
// An array of {file, line, severity, code, message}.
std::string FindingsAsJson(const std::vector<LintFinding>& findings);
// 0 when there is nothing worse than a note, 1 with warnings only, 2 with errors.
int LintExitStatus(const std::vector<LintFinding>& findings);

}  // namespace zeph
