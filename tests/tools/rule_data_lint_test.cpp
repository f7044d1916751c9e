// The linter against a corpus of broken rule files: each file of tests/data/lint holds the
// mistakes of one kind (several.xml some of each), and its .expected file lists the findings
// exactly, in the console's form. The shipped sample lints clean.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli/LintCommand.h"
#include "platform/Files.h"
#include "tools/RuleDataLint.h"

namespace zeph {
namespace {

const std::filesystem::path kCorpus = ZEPHALON_SOURCE_DIR "/tests/data/lint";

std::string readCorpus(const std::string& name) {
    return ReadWholeFile(kCorpus / name).value_or("");
}

TEST(RuleDataLint, EachMistakeIsNamedWithItsLine) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kCorpus)) {
        if (entry.path().extension() != ".xml") continue;
        ++files;
        const std::string name = entry.path().filename().string();
        const auto findings = LintRuleDataText(readCorpus(name), name);
        EXPECT_EQ(FindingsAsText(findings), readCorpus(entry.path().stem().string() + ".expected"))
            << name;
    }
    EXPECT_EQ(files, 10);
    EXPECT_EQ(FindingsAsJson(LintRuleDataText(readCorpus("several.xml"), "several.xml")),
              readCorpus("several.json"));
    EXPECT_EQ(FindingsAsJson({{"a\"b", 3, Severity::Note, "c", "line\nend\\"}}),
              "[\n  {\"file\": \"a\\\"b\", \"line\": 3, \"severity\": \"note\", \"code\": \"c\", "
              "\"message\": \"line\\u000aend\\\\\"}\n]\n");
    EXPECT_EQ(FindingsAsJson({}), "[]\n");
}

TEST(RuleDataLint, TheSampleIsCleanAndTheStatusTellsTheWorstFinding) {
    EXPECT_EQ(FindingsAsText(LintRuleDataFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml")), "");
    const auto finding = [](Severity severity) { return LintFinding{"f", 1, severity, "c", "m"}; };
    EXPECT_EQ(LintExitStatus({finding(Severity::Note)}), 0);
    EXPECT_EQ(LintExitStatus({finding(Severity::Warning), finding(Severity::Note)}), 1);
    EXPECT_EQ(LintExitStatus({finding(Severity::Warning), finding(Severity::Error)}), 2);
    EXPECT_EQ(FindingsAsText(LintRuleDataFile("/nonexistent/rules.xml")),
              "/nonexistent/rules.xml:0: error: the file cannot be read [unreadable]\n");

    std::ostringstream out, err;
    EXPECT_EQ(RunLintCommand({(kCorpus / "several.xml").string(), "--format", "json"}, out, err),
              2);
    EXPECT_NE(out.str().find("\"code\": \"unknown-element\""), std::string::npos);
    EXPECT_EQ(RunLintCommand({(kCorpus / "separators.xml").string()}, out, err), 1);
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(RunLintCommand({"rules.xml", "--format", "yaml"}, out, err), 2);
    EXPECT_EQ(RunLintCommand({"a.xml", "b.xml"}, out, err), 2);
    EXPECT_EQ(err.str(),
              "usage: zephalon-cli lint RULES.xml [--format text|json]\n"
              "usage: zephalon-cli lint RULES.xml [--format text|json]\n");
}

}  // namespace
}  // namespace zeph
