#include "documents/CharacterFile.h"
#include "documents/SavingCharacters.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class CharacterFileTest : public SheetTest {
protected:
    CharacterFileTest() { data.zephalondata = "ZSB WC"; }

    std::string Write(const std::string& name, const std::string& text) { return folder.Write(name, text); }
    // Loads the file into a new sheet, which takes the place of the old one.
    void Reopen(const std::string& path) {
        sheet = std::make_unique<CharacterSheet>(data, platform, SheetOperations());
        LoadXMLCharSheet(*sheet, path);
    }
    static std::string Character(const std::string& children, const std::string& books = "ZSB WC") {
        return "<character name='Ann' books='" + books + "'>" + children + "</character>";
    }

    TempFolder folder{"file"};
};

TEST_F(CharacterFileTest, ElementsStandInTheOrderOfTheFormat) {
    sheet->PlayerField.SetText("p");
    sheet->ConceptBox.SetText("c");
    sheet->AssociationField.SetText("a");
    sheet->ExtraStatsField.SetText("e");
    sheet->QualityListBox.AddRow("q");
    sheet->SkillListBox.AddRow("s");
    sheet->MetaListBox.AddRow("m");
    sheet->martialmaneuvers = {"k,1,1"};
    sheet->visualizations = {"v,1,1"};
    for (TextItem* field : {&sheet->NotesField, &sheet->HistoryField, &sheet->ContactsField,
                            &sheet->AltFormField, &sheet->EquipmentField, &sheet->JournalField})
        field->SetText("x");
    sheet->portraitPath = "p.png";
    const auto document = RuleData::LoadText(CharacterFileText(*sheet));
    std::string order;
    const XmlNodeList children = document->Query("/character/*");
    for (int n = 0; n < children.Count(); ++n) order += children.Item(n).Name() + " ";
    EXPECT_EQ(order,
              "player concept charactertype association strength dexterity constitution "
              "intelligence perception willpower lifepoints extrastats endurance speed essence "
              "mentalbonus physicalbonus optionalpointsystem characterinplay experience "
              "charpoints quality skill meta martialmaneuver visualization description notes "
              "history contacts altforms equipment journal portrait ");
    EXPECT_NE(CharacterFileText(*sheet).find("\n<character name=\"\" ZephalonVersion=\"Zephalon Version: 1.1.5\" LastChange=\"20"), std::string::npos);
    sheet->DPField.SetVisible(true);
    EXPECT_NE(CharacterFileText(*sheet).find("<extrastats>e</extrastats>\n    <dramapoints points=\"\"/>\n    <mentalbonus"),
              std::string::npos);
}

TEST_F(CharacterFileTest, ReadingKeepsItsAsymmetries) {
    sheet = std::make_unique<CharacterSheet>(data, platform, SheetOperations());
    for (const char* row : {"Scholar", "drifter", "Sage"}) sheet->ConceptBox.AddRow(row);
    LoadXMLCharSheet(*sheet, Write("a.xml", Character(
        "<dramapoints points='7'/><essence bonus='1' total='0'/><concept concept='Drifter'/>"
        "<strength base='1' bonus='2' total='3'/><portrait path='/pictures/ann.png'/>"
        "<quality col0='Q' col1='1' col3='3' col4='ignored' col11='3' col28='beyond'/><skill col0='S'>  </skill>"
        "<meta col0='M' col1='2' col12='1.5'/>"
        "<notes><p>plain</p><sr>styled</sr></notes><history><p/><sr b='t'/></history>"
        "<contacts><p>kept</p><sr/></contacts><journal><p>never read</p></journal>"
        "<altforms><p>Wolf</p></altforms><equipment><p>Rope</p><p>Lamp</p></equipment>")));
    EXPECT_EQ(sheet->DPField.Text(), "");
    EXPECT_FALSE(sheet->EndText.Visible() || sheet->EnduranceTotal.Visible() ||
                 sheet->SpeedText.Visible() || sheet->EssenceTotal.Visible());
    EXPECT_EQ(JoinFields(sheet->ConceptBox.Rows(), "|") + " at " + Str(sheet->ConceptBox.ListIndex()),
              "Scholar|drifter|Sage at 1");  // found in any case, not added
    EXPECT_EQ(Cells(sheet->QualityListBox, 0, 0, 4), "Q|1||3|");
    // The stored bonus and the quality's again, until the next recomputation.
    EXPECT_EQ(sheet->StrengthBonus.Text() + " " + sheet->portraitPath, "5 /pictures/ann.png");
    EXPECT_EQ(sheet->m_all_bonuses[1], 3) << "the metaphysics' sums too";
    EXPECT_EQ(sheet->SkillListBox.Cell(0, 4), "  ");
    EXPECT_EQ(sheet->NotesField.Text(), "styled");
    EXPECT_EQ(sheet->HistoryField.Text(), "");   // neither text nor runs
    EXPECT_EQ(sheet->ContactsField.Text(), "kept");  // runs without text keep the plain text
    EXPECT_EQ(sheet->JournalField.Text(), "");
    // Plain paragraphs alone are read into every styled field but the journal.
    EXPECT_EQ(sheet->AltFormField.Text() + "|" + sheet->EquipmentField.Text(), "Wolf|Rope\nLamp");
}

TEST_F(CharacterFileTest, BookWarningCountsTheLoadedBooksFoundAsSubstrings) {
    const std::string prefix =
        "The data file you have loaded does not support the character you chose to open. The "
        "character will be opened, but you should load a data file with the following listed books";
    EXPECT_EQ(BookWarning("WC ZSB", "ZSB WC"), "");
    EXPECT_EQ(BookWarning("", "ZSB WC"), prefix + ".");
    EXPECT_EQ(BookWarning("AFMBE WC", "AFMBE WC Arm"), prefix + ": All Flesh Must Be Eaten, Witchcraft.");
    EXPECT_EQ(BookWarning("Xyz hod", "ZSB"), prefix + ": Xyz, Book of Hod.");
    EXPECT_EQ(BookWarning("C", "AC"), "");  // found inside "AC"
    EXPECT_EQ(BookWarning("ZSB Xyz", "ZSB WC"), prefix + ": ZSB, Xyz.");  // one of two found
    Reopen(Write("b.xml", Character("", "ZSB")));
    EXPECT_EQ(platform.Messages(), std::vector<std::string>{prefix + ": ZSB."});
}

TEST_F(CharacterFileTest, UnreadableFilesCloseTheCharacterWithTheirMessage) {
    Reopen(Write("bad.xml", "<character>\n<player>"));
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].substr(platform.Messages()[0].find('\n')),
              "\n At node: player on 2");
    EXPECT_TRUE(sheet->characterClosed);
    EXPECT_EQ(platform.OpenNotices(), std::vector<std::string>{"Loading character. Please wait..."});

    // A file without a character opens blank, bound to that file.
    Reopen(Write("other.xml", "<somethingelse/>"));
    EXPECT_FALSE(sheet->characterClosed);
    EXPECT_EQ(sheet->fileSaveString, folder.At("other.xml"));
    EXPECT_FALSE(sheet->SpeedText.Visible());
    EXPECT_TRUE(sheet->EssenceLabel.Visible());
    EXPECT_EQ(platform.Messages().size(), 1u);

    // A folder chosen in the dialog is told as such.
    platform.QueueAnswer(folder.path.string());
    Reopen("");
    EXPECT_EQ(platform.Messages().back(), "This is a folder, not a file. Please choose a character file.");
    EXPECT_TRUE(sheet->characterClosed);

    // A vanished file asks; cancelling closes the character as saved.
    sheet->savedChar = false;
    LoadXMLCharSheet(*sheet, folder.At("gone.xml"));
    EXPECT_TRUE(sheet->characterClosed && sheet->savedChar);
    EXPECT_EQ(platform.Transcript().back(), "dialog: open text -> cancel (no answer queued)");
}

}  // namespace
}  // namespace zeph::testing
