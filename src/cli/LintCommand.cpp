#include "cli/LintCommand.h"

#include "tools/RuleDataLint.h"

namespace zeph {

int RunLintCommand(const std::vector<std::string>& arguments, std::ostream& out,
                   std::ostream& err) {
    std::string file, format = "text";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--format" && i + 1 < arguments.size())
            format = arguments[++i];
        else if (file.empty() && arguments[i].rfind("--", 0) != 0)
            file = arguments[i];
        else
            file = "", i = arguments.size();
    }
    if (file.empty() || (format != "text" && format != "json")) {
        err << "usage: zephalon-cli lint RULES.xml [--format text|json]\n";
        return 2;
    }
    const std::vector<LintFinding> findings = LintRuleDataFile(file);
    out << (format == "json" ? FindingsAsJson(findings) : FindingsAsText(findings));
    return LintExitStatus(findings);
}

}  // namespace zeph
