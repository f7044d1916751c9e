#include "documents/RecentFiles.h"
#include "documents/SavingCharacters.h"
#include "platform/Files.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class SavingTest : public SheetTest {
protected:
    SavingTest() {
        sheet->NameField.SetText("Ann");
        sheet->savedChar = false;
    }
    std::string At(const std::string& name) const { return folder.At(name); }
    std::string Read(const std::string& name) const { return ReadWholeFile(At(name)).value_or("<none>"); }

    TempFolder folder{"save"};
};

TEST(SanitiseForXml, DropsWhatXmlMayNotHoldAndKeepsTheRest) {
    EXPECT_EQ(SanitiseForXml("a\tb\nc\rd\x01\x08\x0B\x0C\x1F e"), "a\tb\nc\rd e");
    // é € 🎲 U+FFFD, the least of each length (U+0080, U+0800, U+10000), the greatest, and the
    // neighbours of the surrogates (U+D7FF, U+E000) stay.
    const std::string kept = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB2\xEF\xBF\xBD\xC2\x80\xE0\xA0\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"
                             "\xED\x9F\xBF\xEE\x80\x80";
    EXPECT_EQ(SanitiseForXml(kept), kept);
    EXPECT_EQ(SanitiseForXml("x\xEF\xBF\xBE\xEF\xBF\xBFy"), "xy");  // U+FFFE, U+FFFF go
    // Bytes that are not UTF-8 (a lone lead, a cut sequence, an overlong form, a surrogate)
    // become U+FFFD each.
    EXPECT_EQ(SanitiseForXml("\xFF|\xE2\x82|\xC0\xAF|\xED\xA0\x80|\xED\xBF\xBF"),
              "\xEF\xBF\xBD|\xEF\xBF\xBD\xEF\xBF\xBD|\xEF\xBF\xBD\xEF\xBF\xBD|"
              "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD|\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(SavingTest, SaveAsMakesTheNameEndInXmlAndBindsTheCharacter) {
    struct Case { const char* chosen; const char* written; };
    for (const Case& c : {Case{"bob", "bob.xml"}, Case{"bob.txt", "bob.xml"},
                          Case{"a.b.txt", "a.xml"}, Case{"Ann.XML", "Ann.XML"}}) {
        platform.QueueAnswer(At(c.chosen));
        SaveAsFile(*sheet);
        EXPECT_EQ(sheet->fileSaveString, At(c.written)) << c.chosen;
        EXPECT_EQ(sheet->title, c.written);
        EXPECT_NE(Read(c.written).find("<character name=\"Ann\""), std::string::npos);
    }
    EXPECT_EQ(Str(sheet->savedChar) + " " + platform.Messages().back() + " " + data.recentItemsName.front(),
              "1 Ann Saved. Ann.XML");
    EXPECT_EQ(data.recentMenuItems.size() + platform.OpenNotices().size(), 3u + 2u);

    sheet->savedChar = false;
    platform.QueueAnswer("cancel");
    FileSaveAsCharacterFile_Action(*sheet);
    EXPECT_FALSE(sheet->savedChar);
}

TEST_F(SavingTest, SaveWritesTheBoundFileAndThePortraitBesideIt) {
    SaveFile(*sheet);  // unbound: nothing at all
    EXPECT_TRUE(platform.Transcript().empty());
    sheet->fileSaveString = At("ann.xml");
    sheet->portraitImage = std::string("\x89PNG picture", 12);
    sheet->title = "kept";
    FileSave_Action(*sheet);
    EXPECT_EQ(Read("ann.xml.pict"), std::string("\x89PNG picture", 12));
    EXPECT_EQ(sheet->portraitPath, At("ann.xml.pict"));
    EXPECT_NE(Read("ann.xml").find("<portrait path=\"" + At("ann.xml.pict") + "\"/></character>\n"),
              std::string::npos);
    EXPECT_EQ(sheet->title + " " + Str(sheet->savedChar) + " " + platform.Messages().back(), "kept 1 Ann Saved.");
    EXPECT_EQ(data.recentItemsPaths, std::vector<std::string>{At("ann.xml")});
    platform.QueueAnswer(At("copy"));  // Save As writes a further copy of the picture
    SaveAsFile(*sheet);
    EXPECT_EQ(sheet->portraitPath, At("copy.xml.pict"));
}

TEST_F(SavingTest, AFailedSaveLeavesTheOldFileWhole) {
    sheet->fileSaveString = At("ann.xml");
    std::ofstream(At("ann.xml")) << "old";
    platform.SetFileFault(ScriptedPlatform::FileFault::CannotCreate);
    SaveFile(*sheet);  // silent
    EXPECT_TRUE(platform.Transcript().empty());

    platform.SetFileFault(ScriptedPlatform::FileFault::DiskFull);
    SaveFile(*sheet);
    EXPECT_EQ(platform.Messages(),
              std::vector<std::string>{"The character could not be saved to " + At("ann.xml") +
                                       ". The disk may be full. The file was left as it was before."});
    EXPECT_EQ(Read("ann.xml"), "old");
    EXPECT_FALSE(sheet->savedChar);
    EXPECT_EQ(platform.OpenNotices(), std::vector<std::string>{"Saving character. Please wait..."});
    EXPECT_TRUE(data.recentItemsName.empty());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), std::filesystem::directory_iterator()), 1);
}

struct FakeWindow : JournalWindowHandle {
    FakeWindow(std::vector<std::string>& closed, std::string window) : log(closed), name(std::move(window)) {}
    void Close() override { log.push_back(name + " closed"); }
    StyledText JournalText() const override { return {{StyleRun{"from the window"}}}; }
    std::vector<std::string>& log;
    std::string name;
};

TEST_F(SavingTest, ClosingClosesTheWindowsThenAsksWithThreeAnswers) {
    std::vector<std::string> closed;
    FakeWindow journal(closed, "journal"), portrait(closed, "portrait");
    sheet->journalWindowHandle = &journal;
    sheet->portraitWindowHandle = &portrait;
    sheet->journalWindowIsOpen = sheet->portraitWindowIsOpen = true;
    platform.QueueAnswer("Cancel");
    EXPECT_TRUE(Event_CancelClose(*sheet));
    EXPECT_EQ(closed, (std::vector<std::string>{"journal closed", "portrait closed"}));
    EXPECT_EQ(platform.Transcript().back(),
              "dialog: Do you want to save changes to Ann before closing? If you don't save, your "
              "changes will be lost. -> Cancel");

    platform.QueueAnswer("Don't Save");
    EXPECT_FALSE(Event_CancelClose(*sheet));
    // "Save" on an unbound character asks for a file; the journal window's text is what is saved.
    platform.QueueAnswer("Save");
    platform.QueueAnswer(At("ann"));
    EXPECT_FALSE(Event_CancelClose(*sheet));
    EXPECT_NE(Read("ann.xml").find(">from the window</sr></journal>"), std::string::npos);
    const std::size_t asked = platform.Transcript().size();
    sheet->journalWindowIsOpen = sheet->portraitWindowIsOpen = false;
    EXPECT_FALSE(Event_CancelClose(*sheet));  // saved: no question, no window to close
    EXPECT_EQ(platform.Transcript().size(), asked);
    EXPECT_EQ(closed.size(), 6u);
    sheet->JournalField.SetText("own");
    CharacterFileText(*sheet);  // the journal's handle stays, but it is closed: nothing copied
    EXPECT_EQ(sheet->JournalField.Text(), "own");
}

TEST(RecentFiles, KeepSixteenByPathAndOpenByName) {
    DataModule data;
    for (int n = 1; n <= 17; ++n) {
        RemoveRecentOpenItems(data);
        PushRecentFile(data, "c" + Str(n), "/p/c" + Str(n));
    }
    ASSERT_EQ(data.recentItemsName.size(), 16u);
    EXPECT_EQ(data.recentItemsName.front() + " " + data.recentItemsName.back(), "c17 c2");
    RemoveRecentOpenItems(data);
    PushRecentFile(data, "renamed", "/P/C5");  // the same path by the sheet's text compare
    EXPECT_EQ(data.recentItemsName.size(), 16u);
    EXPECT_EQ(data.recentItemsName[0] + " " + data.recentItemsPaths[0] + " " + data.recentItemsName[1],
              "renamed /P/C5 c17");
    EXPECT_EQ(JoinFields(data.recentMenuItems, "|").substr(0, 12), "renamed|c17|");
    EXPECT_EQ(JoinFields(data.recentMenuItems, "|").substr(JoinFields(data.recentMenuItems, "|").size() - 11),
              "|c2|-|Clear");

    ScriptedPlatform platform("", "", "");
    std::vector<std::string> opened;
    const auto choose = [&](const std::string& caption) {
        LoadingRecentCharacterTimer(data, platform, OpenRecentMenuItem_Action(data, platform, caption),
                                    [&](const std::string& path) { opened.push_back(path); });
    };
    PushRecentFile(data, "c9", "/elsewhere/c9");  // two entries named c9: the upper one opens
    choose("C9");
    choose("-");
    choose("nothing of that name");
    EXPECT_EQ(opened, std::vector<std::string>{"/elsewhere/c9"});
    EXPECT_EQ(data.recentItemPath, "nothing of that name");
    choose("Clear");
    EXPECT_TRUE(data.recentItemsName.empty() && data.recentItemsPaths.empty());
    EXPECT_EQ(data.recentMenuItems, (std::vector<std::string>{"-", "Clear"}));
    EXPECT_TRUE(platform.OpenNotices().empty());
}

}  // namespace
}  // namespace zeph::testing
