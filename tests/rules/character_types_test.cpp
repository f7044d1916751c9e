#include "rules/CharacterTypes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

using Strings = std::vector<std::string>;

class CharacterTypes : public SheetTest {
protected:
    void SetUp() override { UseSmallRules(); }
    // All cells of a row of QualityListBox, each followed by "|".
    std::string row(int r) { return Cells(sheet->QualityListBox, r, 0, 27) + "|"; }
    void Choose(const std::string& type, const std::string& choice) {
        sheet->CharacterTypePopup.SetText(type);
        sheet->ChooseCharPopup.SetText(choice);
    }
};

TEST_F(CharacterTypes, LoadersFillTheListsInDocumentOrderAndPutTheOldIndexBack) {
    Do("CharacterTypePopup_GotFocus");
    Do("ConceptBox_GotFocus");
    Do("AssociationCombo_GotFocus");
    EXPECT_EQ(sheet->CharacterTypePopup.Rows(), (Strings{"Human", "Gifted", "Spirit"}));
    EXPECT_EQ(sheet->ConceptBox.Rows(), (Strings{"Drifter", "Scholar"}));
    EXPECT_EQ(sheet->AssociationCombo.Rows(), (Strings{"Order", "Guild"}));
    EXPECT_TRUE(sheet->savedChar);

    // As after opening a character: its type is the only row.
    sheet->loadingCharFile = true;
    sheet->CharacterTypePopup.DeleteAllRows();
    sheet->CharacterTypePopup.AddRow("Spirit");
    sheet->CharacterTypePopup.SetListIndex(0);
    sheet->loadingCharFile = false;
    sheet->savedChar = true;
    LoadCharacterTypes(*sheet);
    EXPECT_EQ(sheet->CharacterTypePopup.Text(), "Human");
    EXPECT_EQ(sheet->ChooseCharPopup.Rows(), (Strings{"Survivor", "Fast", "Slow", "Slower"}));
    EXPECT_FALSE(sheet->savedChar);
}

TEST_F(CharacterTypes, AChoiceAddsItsRequiredQualitiesAsIfRecordedAtLevelOne) {
    Choose("Spirit", "Bound");
    EXPECT_EQ(Names(), "Taint;Ghost Sight;Sadicas Touch;");
    EXPECT_EQ(sheet->q_chartype, "Taint&&Ghost Sight&&Nowhere Quality&&Sadicas Touch");
    EXPECT_EQ(row(0),
              "Taint|1|3||A stain on the soul.|ZSB p. 7|Ghost Sight,1|5|3/3|6/6|Taint|1|"
              "|||||"           // 12-16
              "||||||"          // 17-22
              "5|||5|"          // 23 life points, 26 taint pool
              "Beasts&&Wolf,Bear&&|");
    // Looked up in all types, the first in document order wins; no "/-" form here.
    EXPECT_EQ(row(1), "Ghost Sight|1|2||Sees the dead.|||3|2/|/||||||||Perception&&1|||||"
                      "|||||Beasts&&Wolf,Bear&&|");
    EXPECT_EQ(row(2), "Sadicas Touch|1|4||||||4/|/|Sadicas Touch||||||||||||||||"
                      "|Beasts&&Wolf,Bear&&|");
    // The recomputation ran: the Taint row's strength bonus and life points are in.
    ExpectTexts("StrengthBonus=1|LifePointsBonus=5|"
                "ExtraStatsField=Taint Channeling: 1, Taint Channeling: 1, Taint Pool: 5");
    // A choice without requirements removes the earlier ones and keeps their names.
    sheet->ChooseCharPopup.SetText("Empty");
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(sheet->q_chartype, "Taint&&Ghost Sight&&Nowhere Quality&&Sadicas Touch");
    sheet->ChooseCharPopup.SetText("");
    EXPECT_EQ(Names(), "");
}

TEST_F(CharacterTypes, TheRemovalWalkSkipsTheRowThatMovedUp) {
    sheet->q_chartype = "Taint";
    AddQualityRow("Taint", {});
    AddQualityRow("taint", {});
    AddQualityRow("Brawny", {});
    AddQualityRow("TAINT", {});
    AddQualityFromCharType(*sheet, "Human", "Survivor");
    EXPECT_EQ(Names(), "taint;Brawny;");
    EXPECT_EQ(sheet->q_chartype, "Taint");  // the choice requires nothing
}


TEST_F(CharacterTypes, ChangesDoNothingWhileACharacterLoadsThenAnAssociationCopiesItsNotes) {
    sheet->loadingCharFile = true;
    Choose("Spirit", "Bound");
    sheet->AssociationCombo.SetText("Order");
    EXPECT_EQ(sheet->ChooseCharPopup.ListCount(), 0);
    EXPECT_EQ(Names(), "");
    ExpectTexts("AssociationField=|savedChar=true");
    // Leaving the choice is not guarded.
    ChooseCharPopup_LostFocus(*sheet);
    EXPECT_EQ(Names(), "Taint;Ghost Sight;Sadicas Touch;");

    // An association copies its notes; an unknown one leaves the field as it is.
    sheet->loadingCharFile = false;
    sheet->AssociationField.SetText("Mine");
    sheet->savedChar = true;
    sheet->AssociationCombo.SetText("Unknown Lodge");
    ExpectTexts("AssociationField=Mine|savedChar=true");
    sheet->AssociationCombo.SetText("Order");
    ExpectTexts("AssociationField=A quiet order of watchers.|savedChar=false");
}
