#include "documents/Recovery.h"

#include <regex>

#include "documents/SavingCharacters.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class RecoveryTest : public SheetTest {
  protected:
    RecoveryTest() {
        UseSample();
        platform.SetStateFolder(folder.At("state"));  // made at the first write
        AssignRecoveryCopy(*sheet);
        copy = sheet->recoveryCopyPath;
        SetTexts("NameField=Ann|PlayerField=Bo|StrengthField=4");
        AddQualityRow("Hard to Kill", {{1, "3"}, {4, "noted"}});
    }
    // A character document without the moment it was written.
    static std::string Timeless(const std::string& document) {
        return std::regex_replace(document, std::regex("LastChange=\"[^\"]*\""), "");
    }

    TempFolder folder{"recovery"};
    const std::string state = folder.At("state/");
    std::string copy;
};

TEST_F(RecoveryTest, WrittenWhileUnsavedAndGoneOnSaveAndOnClose) {
    EXPECT_EQ(copy.rfind(state + "recovery-" + std::to_string(getpid()) + "-", 0), 0u) << copy;
    sheet->fileSaveString = folder.At("ann.xml");
    UpdateRecoveryCopy(*sheet);
    EXPECT_EQ(ReadWholeFile(copy + ".bound"), sheet->fileSaveString);
    EXPECT_EQ(Timeless(ReadWholeFile(copy).value()), Timeless(CharacterFileText(*sheet)));
    SaveFile(*sheet);
    EXPECT_FALSE(IsExistingFile(copy) || IsExistingFile(copy + ".bound"));
    UpdateRecoveryCopy(*sheet);  // saved: nothing to write
    EXPECT_FALSE(IsExistingFile(copy));
    sheet->savedChar = false;
    UpdateRecoveryCopy(*sheet);
    platform.QueueAnswer("Cancel");
    EXPECT_TRUE(Event_CancelClose(*sheet) && IsExistingFile(copy));  // still open and unsaved
    platform.QueueAnswer("Don't Save");
    EXPECT_FALSE(Event_CancelClose(*sheet) || IsExistingFile(copy));
    // A character that closed itself, unsaved as it may be, leaves nothing behind.
    sheet->characterClosed = true;
    UpdateRecoveryCopy(*sheet);
    EXPECT_FALSE(IsExistingFile(copy));
}

TEST_F(RecoveryTest, OfferedOnlyWhenItsWriterIsGoneAndReopenedUnsavedAndBound) {
    UpdateRecoveryCopy(*sheet);
    const std::string gone = state + "recovery-999999999-4.xml";  // above any process number
    const std::string running = state + "recovery-" + std::to_string(getppid()) + "-1.xml";
    std::filesystem::copy_file(copy, running);
    std::filesystem::copy_file(copy, state + ".recovery-999999999-5.xml.tmp7");  // half written
    std::filesystem::rename(copy, gone);
    folder.Write("state/recovery-999999999-4.xml.bound", folder.At("ann.xml"));
    std::unique_ptr<CharacterSheet> reopened;
    const auto reopen = [&](const LeftBehindCopy& left) {
        reopened = std::make_unique<CharacterSheet>(data, platform, SheetOperations());
        AssignRecoveryCopy(*reopened);
        ReopenLeftBehindCopy(*reopened, left);
    };
    platform.QueueAnswer("Reopen");
    OfferLeftBehindWork(platform, reopen);
    EXPECT_EQ(platform.Transcript().front(),
              "dialog: Zephalon closed unexpectedly. Reopen the unsaved work of 1 character? "
              "Reopen/Discard -> Reopen");
    ASSERT_TRUE(reopened);
    EXPECT_EQ(Timeless(CharacterFileText(*reopened)), Timeless(CharacterFileText(*sheet)));
    EXPECT_EQ(reopened->fileSaveString + " " + Str(reopened->savedChar),
              folder.At("ann.xml") + " 0");
    EXPECT_TRUE(IsExistingFile(reopened->recoveryCopyPath) && IsExistingFile(running) &&
                reopened->recoveryCopyPath != copy);
    EXPECT_FALSE(IsExistingFile(gone) || IsExistingFile(gone + ".bound"));
    std::filesystem::rename(reopened->recoveryCopyPath, gone);
    reopened.reset();
    OfferLeftBehindWork(platform, reopen);  // no answer: Discard
    EXPECT_FALSE(reopened || IsExistingFile(gone));
    const std::size_t asked = platform.Transcript().size();
    OfferLeftBehindWork(platform, reopen);
    EXPECT_EQ(platform.Transcript().size(), asked);  // nothing left: no question
}

}  // namespace
}  // namespace zeph::testing
