// The data report over tests/data/diffdata: old.xml, and new.xml with a dearer quality, a
// quality gone, a skill of another cost class (one row at a runaway level, stepped no further
// than the bound), the bonus of a metaphysic whose name holds an apostrophe, and the character
// type renamed. The console's text itself is pinned by the diff_data.report test.
#include <gtest/gtest.h>

#include <sstream>

#include "app/App.h"
#include "app/Journal.h"
#include "cli/DiffDataCommand.h"
#include "documents/CharacterFile.h"
#include "platform/Files.h"
#include "rules/SecondaryAttributes.h"
#include "support/SheetFixture.h"
#include "tools/RuleDataDiff.h"

namespace zeph {
namespace {

const std::string kFolder = ZEPHALON_SOURCE_DIR "/tests/data/diffdata/";
const std::string kOld = kFolder + "old.xml", kNew = kFolder + "new.xml",
                  kCharacter = kFolder + "character.xml";

struct Outcome {
    int status;
    std::string out, err;
};

std::string text(const std::string& path) { return ReadWholeFile(path).value_or("<missing>"); }

Outcome diffData(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    const int status = RunDiffDataCommand(arguments, out, err);
    return {status, out.str(), err.str()};
}

TEST(DiffData, ReportsEachKindOfChangeAndLeavesTheFileAlone) {
    const auto mtime = std::filesystem::last_write_time(kCharacter);
    const std::string bytes = text(kCharacter);
    const Outcome run = diffData({kOld, kNew, kCharacter});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, text(kFolder + "expected.txt"));
    EXPECT_EQ(text(kCharacter), bytes);
    EXPECT_EQ(std::filesystem::last_write_time(kCharacter), mtime);

    const Outcome same = diffData({kOld, kOld, kCharacter});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out, "Character: Oda Venn\n  Nothing reads differently under the new file.\n");
    // Against a file without its type, the character is another file's.
    const Outcome back = diffData({kNew, kOld, kCharacter});
    EXPECT_EQ(back.status, 2);
    EXPECT_NE(back.err.find("its character type Wanderer: Pilgrim is not in the file"),
              std::string::npos);
}

TEST(DiffData, BadInputIsAMessageAndStatusTwo) {
    testing::TempFolder folder("diffdata-bad");
    const std::string broken = folder.Write("broken.xml", "<zephalondata><qualities>");
    const std::string otherBooks = ZEPHALON_SOURCE_DIR "/tests/data/sample_character.xml";
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{kOld, kNew}, "usage: zephalon-cli diff-data OLD.xml NEW.xml CHARACTER.xml\n"},
        {{"/no/old.xml", kNew, kCharacter}, "cannot read the rule data file /no/old.xml\n"},
        {{kOld, "/no/new.xml", kCharacter}, "cannot read the rule data file /no/new.xml\n"},
        {{kOld, kNew, "/no/c.xml"}, "cannot read the character file /no/c.xml\n"},
        {{kOld, broken, kCharacter}, broken + ": "},
        {{kOld, kNew, broken}, broken + ": "},
        {{kOld, kNew, otherBooks}, otherBooks + " is not a character of " + kOld +
                                       ": The data file you have loaded does not support"},
        {{kOld, kNew, kOld}, kOld + " is not a character of " + kOld + ": it is not a character"},
    };
    for (const auto& [arguments, message] : cases) {
        const Outcome run = diffData(arguments);
        EXPECT_EQ(run.status, 2) << message;
        EXPECT_EQ(run.err.substr(0, message.size()), message);
        EXPECT_EQ(run.out, "");
    }
    // A character with no type chosen yet is no stranger to any file.
    std::string untyped = ReadWholeFile(kCharacter).value();
    untyped.replace(untyped.find("type=\"Wanderer\""), 15, "type=\"\"");
    EXPECT_NE(diffData({kOld, kNew, folder.Write("untyped.xml", untyped)}).status, 2);
}

class DataSwitchReport : public testing::SheetTest {};

TEST_F(DataSwitchReport, TellsWhatTheOpenCharacterWouldReadAndChangesNothing) {
    UseTestRules("diffdata/old.xml");
    LoadXMLCharSheet(*sheet, kCharacter);
    FigureSecondaryAttributes(*sheet);
    const auto journal = Journal::OpenTheJournal(*sheet, [] {});  // what its window shows stays there
    journal->Field().SetText("Written in the window");
    sheet->savedChar = true;
    const StateSnapshot before = TakeSnapshot(sheet->Items(), &sheet->Properties());
    App app(data, platform);
    const auto report = app.DataSwitchReport({sheet.get()}, kNew);
    ASSERT_TRUE(report);
    // The rows read as from the file; the budgets the sheet holds stand under the new file,
    // which has no budgets of its type to give.
    const std::string file = text(kFolder + "expected.txt");
    const auto rows = [](const std::string& all) { return all.substr(0, all.find("  Recomputed")); };
    EXPECT_EQ(rows(*report), rows(file));
    EXPECT_NE(report->find("    Life Points        40   6\n"), std::string::npos);
    EXPECT_EQ(ChangedEntries(before, TakeSnapshot(sheet->Items(), &sheet->Properties())),
              (std::map<std::string, std::string>{}));
    EXPECT_TRUE(data.xdata->Record("//charactertype/type[@value='Wanderer']"));

    EXPECT_FALSE(app.DataSwitchReport({sheet.get()}, kFolder + "missing.xml"));
    EXPECT_EQ(app.DataSwitchReport({}, kNew), "");
}

}  // namespace
}  // namespace zeph
