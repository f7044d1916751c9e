#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "cli/ScriptRunner.h"

using namespace zeph;

namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome run(const std::string& script) {
    std::ostringstream out, err;
    ScriptRunner runner(out, err, "/nonexistent-prefs", "/nonexistent-app");
    std::istringstream in(script);
    int status = runner.Run(in);
    return {status, out.str(), err.str()};
}

const std::string kSample = "data " + std::string(ZEPHALON_SOURCE_DIR) + "/data/rules/sample.xml\n";

}  // namespace

TEST(ScriptRunner, PrintsItemsPropertiesAndListsInOneLineEach) {
    Outcome o = run(kSample +
                    "# a comment\n\n"
                    "set NotesField first\\nsecond\n"
                    "print NotesField\n"
                    "print savedChar\n"
                    "print DPField.visible\n"
                    "print SkillTypeCombo.rows\n"
                    "print OptionalSkillPointBox\n"
                    "set NameField  two  blanks \n"
                    "print NameField\n"
                    "do QualityGetBonus\n"
                    "choose CharacterTypePopup Spirit Touched\n"
                    "choose ChooseCharPopup Moonbound\n"
                    "print QualityListBox\n"
                    "print QualityListBox[1].bold\n"
                    "print QualityListBox.heading\n"
                    "print m_all_bonuses\n");
    EXPECT_EQ(o.status, 0) << o.err;
    EXPECT_NE(o.out.find("NotesField = first\\nsecond\n"), std::string::npos) << o.out;
    EXPECT_NE(o.out.find("savedChar = false\n"), std::string::npos);
    EXPECT_NE(o.out.find("DPField.visible = false\n"), std::string::npos);
    EXPECT_NE(o.out.find("SkillTypeCombo.rows = Regular|Special|Cinematic\n"), std::string::npos);
    EXPECT_NE(o.out.find("OptionalSkillPointBox = false\n"), std::string::npos);
    EXPECT_NE(o.out.find("NameField =  two  blanks \n"), std::string::npos);
    EXPECT_NE(o.out.find("QualityListBox[0] = Accursed Bloodline|1|"), std::string::npos);
    EXPECT_NE(o.out.find("QualityListBox[1] = Hard to Kill|"), std::string::npos);
    EXPECT_NE(o.out.find("QualityListBox[1].bold = false\n"), std::string::npos);
    EXPECT_NE(o.out.find("QualityListBox.heading = Quality\n"), std::string::npos);
    EXPECT_NE(o.out.find("m_all_bonuses = 0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\n"), std::string::npos);
}

TEST(ScriptRunner, AFailedExpectationIsReportedAndTheRunGoesOn) {
    Outcome o = run("expect AgeField 30\nexpect GenderField Male or Female\nexpect AgeField 31\n");
    EXPECT_EQ(o.status, 1);
    EXPECT_NE(o.out.find("line 1: expected AgeField = 30\nline 1: got      AgeField = 21\n"),
              std::string::npos)
        << o.out;
    EXPECT_NE(o.out.find("line 3: expected AgeField = 31"), std::string::npos);
    EXPECT_EQ(o.out.find("line 2"), std::string::npos);
}

TEST(ScriptRunner, ScriptErrorsStopWithStatusTwoAndTheirLine) {
    for (const char* script : {"bogus\n", "set NoSuchItem 3\n", "\ndo NoSuchOperation\n",
                               "select QualityListBox 0\n", "flag AgeField on\n",
                               "choose QualityPopup Nothing\n", "print QualityListBox[0]\n"}) {
        Outcome o = run(script);
        EXPECT_EQ(o.status, 2) << script;
        EXPECT_EQ(o.err.rfind("line ", 0), 0u) << script << o.err;
    }
    EXPECT_NE(run("\ndo NoSuchOperation\n").err.find("line 2: unknown operation NoSuchOperation"),
              std::string::npos);
}

TEST(ScriptRunner, MessagesAndDialogsArePrintedAndAnswered) {
    Outcome o = run(kSample + "set CharacterTypePopup Devil's\nanswer Cancel\ndo App.LoadData\n");
    EXPECT_EQ(o.status, 0) << o.err;
    EXPECT_NE(o.out.find("\\n At node: //charactertype/type[@value='Devil's']/name on: "),
              std::string::npos)
        << o.out;
    EXPECT_NE(o.out.find("message: Please select a data file to use."), std::string::npos);
    EXPECT_NE(o.out.find("dialog: open text/xml -> Cancel\nquit: 0\n"), std::string::npos);
}

TEST(ScriptRunner, ExpectationsAfterAQuitFail) {
    Outcome o = run("answer cancel\ndo App.LoadData\nprint AgeField\nexpect AgeField 21\n");
    EXPECT_EQ(o.status, 1);
    EXPECT_EQ(o.out.find("AgeField = "), std::string::npos);  // nothing runs after the quit
    EXPECT_NE(o.out.find("line 4: not reached: the program quit at line 2\n"), std::string::npos)
        << o.out;
}

TEST(ScriptRunner, GetDataFilePrintsItsMessagesBeforeItsValue) {
    Outcome o = run("answer /x/rules.xml\ndo App.GetDataFile\n");
    EXPECT_NE(o.out.find("dialog: open text/xml -> /x/rules.xml\nApp.GetDataFile = /x/rules.xml\n"),
              std::string::npos)
        << o.out;
}

TEST(ScriptRunner, CrlfLineEndsAndUnselectingAListRow) {
    Outcome o = run(kSample +
                    "choose CharacterTypePopup Spirit Touched\r\n"
                    "choose ChooseCharPopup Moonbound\r\n"
                    "select QualityListBox 1\r\n"
                    "expect QualityListBox.ListIndex 1\r\n"
                    "select QualityListBox -1\r\n"
                    "expect QualityListBox.ListIndex -1\r\n");
    EXPECT_EQ(o.status, 0) << o.out << o.err;
    EXPECT_EQ(run("select QualityListBox -2\n").status, 2);
}

TEST(ScriptRunner, OperationsWithAResultPrintIt) {
    Outcome o = run("set StrengthField 6\ndo SumAttrPts\ndo CalcSkillPts\ndo SumMetaPts\n");
    EXPECT_EQ(o.status, 0);
    EXPECT_NE(o.out.find("SumAttrPts = 8\nCalcSkillPts = 1\nSumMetaPts = 0\n"), std::string::npos)
        << o.out;
}
