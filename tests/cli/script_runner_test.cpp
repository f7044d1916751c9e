#include <gtest/gtest.h>

#include <sstream>

#include "cli/ScriptRunner.h"

using namespace zeph;

namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const std::string& script) {
    std::ostringstream out, err;
    ScriptRunner runner(out, err, "/nonexistent-prefs", "/nonexistent-app");
    std::istringstream in(script);
    int status = runner.Run(in);
    return {status, out.str(), err.str()};
}

}  // namespace

TEST(ScriptRunner, ResultsOfOperationsAndFailedExpectationsArePrintedAndTheRunGoesOn) {
    Outcome o = run(
        "set StrengthField 6\ndo SumAttrPts\ndo CalcSkillPts\ndo SumMetaPts\ndo SumDrawbackPts\n"
        "expect AgeField 30\nexpect GenderField Male or Female\nexpect AgeField 31\n");
    EXPECT_EQ(o.status, 1);
    EXPECT_EQ(o.out,
              "SumAttrPts = 8\nCalcSkillPts = 1\nSumMetaPts = 0\nSumDrawbackPts = 0\n"
              "line 6: expected AgeField = 30\nline 6: got      AgeField = 21\n"
              "line 8: expected AgeField = 31\nline 8: got      AgeField = 21\n");
}

TEST(ScriptRunner, ScriptErrorsStopWithStatusTwoAndTheirLine) {
    for (const char* script :
         {"bogus\n", "set NoSuchItem 3\n", "\ndo NoSuchOperation\n", "select QualityListBox 0\n",
          "select QualityListBox -2\n", "flag AgeField on\n", "choose QualityPopup Nothing\n",
          "print QualityListBox[0]\n"}) {
        Outcome o = run(script);
        EXPECT_EQ(o.status, 2) << script;
        EXPECT_EQ(o.err.rfind("line ", 0), 0u) << script << o.err;
    }
    EXPECT_NE(run("\ndo NoSuchOperation\n").err.find("line 2: unknown operation NoSuchOperation"),
              std::string::npos);
}

TEST(ScriptRunner, AQuitFailsTheExpectationsLeftAndTheSheetIsComparedAfreshWhenItIsTargetedAgain) {
    Outcome quit = run("answer cancel\ndo App.GetDataFile\nexpect AgeField 21\n");
    EXPECT_EQ(quit.status, 1);
    EXPECT_NE(quit.out.find("line 3: not reached: the program quit at line 2"), std::string::npos);
    EXPECT_EQ(run("tool dice\nsheet\nexpect changed\n").status, 0);
}
