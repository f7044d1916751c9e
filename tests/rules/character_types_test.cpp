#include <gtest/gtest.h>

#include "rules/CharacterTypes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class CharacterTypes : public SheetTest {
protected:
    void SetUp() override { UseSmallRules(); }
    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (int row = 0; row < sheet->QualityListBox.ListCount(); ++row)
            result.push_back(sheet->QualityListBox.Cell(row, 0));
        return result;
    }
    using Names = std::vector<std::string>;
};

TEST_F(CharacterTypes, LoadersFillTheListsInDocumentOrder) {
    LoadCharacterTypes(*sheet);
    LoadConceptBox(*sheet);
    LoadAssociationCombo(*sheet);
    EXPECT_EQ(sheet->CharacterTypePopup.Rows(), (Names{"Human", "Gifted", "Spirit"}));
    EXPECT_EQ(sheet->ConceptBox.Rows(), (Names{"Drifter", "Scholar"}));
    EXPECT_EQ(sheet->AssociationCombo.Rows(), (Names{"Order", "Guild"}));
    LoadCharacterTypes(*sheet);
    EXPECT_EQ(sheet->CharacterTypePopup.ListCount(), 3);
    EXPECT_TRUE(sheet->savedChar);
}

TEST_F(CharacterTypes, ALoaderPutsTheOldIndexBackWithItsConsequences) {
    // As after opening a character: its type is the only row.
    sheet->loadingCharFile = true;
    sheet->CharacterTypePopup.AddRow("Spirit");
    sheet->CharacterTypePopup.SetListIndex(0);
    sheet->loadingCharFile = false;
    LoadCharacterTypes(*sheet);
    EXPECT_EQ(sheet->CharacterTypePopup.Text(), "Human");
    EXPECT_EQ(sheet->ChooseCharPopup.Rows(), (Names{"Survivor", "Fast", "Slow", "Slower"}));
    EXPECT_FALSE(sheet->savedChar);
}

TEST_F(CharacterTypes, ANewTypeOffersItsChoicesAndLeavesTheQualitiesAlone) {
    AddQualityRow("Brawny", {});
    sheet->CharacterTypePopup.SetText("Spirit");
    EXPECT_EQ(sheet->ChooseCharPopup.Rows(), (Names{"Bound", "Free", "Empty"}));
    EXPECT_FALSE(sheet->savedChar);
    EXPECT_EQ(names(), (Names{"Brawny"}));
    EXPECT_EQ(sheet->StrengthTotal.Text(), "0");  // nothing recomputed
}

TEST_F(CharacterTypes, AChoiceAddsItsRequiredQualitiesAsIfRecordedAtLevelOne) {
    sheet->CharacterTypePopup.SetText("Spirit");
    sheet->ChooseCharPopup.SetText("Bound");
    EXPECT_EQ(names(), (Names{"Taint", "Ghost Sight", "Sadicas Touch"}));
    EXPECT_EQ(sheet->q_chartype, "Taint&&Ghost Sight&&Nowhere Quality&&Sadicas Touch");
    std::string taint;
    for (int c = 0; c < 28; ++c) taint += sheet->QualityListBox.Cell(0, c) + "|";
    EXPECT_EQ(taint,
              "Taint|1|3||A stain on the soul.|ZSB p. 7|Ghost Sight,1|5|3/3|6/6|Taint|1|"
              "|||||"           // 12-16
              "||||||"          // 17-22
              "5|||5|"          // 23 life points, 26 taint pool
              "Beasts&&Wolf,Bear&&|");
    // Looked up in all types, the first in document order wins; no "/-" form here.
    EXPECT_EQ(sheet->QualityListBox.Cell(1, 4), "Sees the dead.");
    EXPECT_EQ(sheet->QualityListBox.Cell(1, 8), "2/");
    EXPECT_EQ(sheet->QualityListBox.Cell(1, 10), "");
    EXPECT_EQ(sheet->QualityListBox.Cell(1, 17), "Perception&&1");
    EXPECT_EQ(sheet->QualityListBox.Cell(2, 10), "Sadicas Touch");
    // The recomputation ran: the Taint row's strength bonus and life points are in.
    ExpectTexts("StrengthBonus=1|LifePointsBonus=5|"
                "ExtraStatsField=Taint Channeling: 1, Taint Channeling: 1, Taint Pool: 5");
}

TEST_F(CharacterTypes, EachApplicationMovesTheRequiredRowsToTheEnd) {
    sheet->CharacterTypePopup.SetText("Spirit");
    sheet->ChooseCharPopup.SetText("Bound");
    AddQualityRow("Brawny", {});
    sheet->QualityListBox.SetCell(0, 1, "4");
    ChooseCharPopup_LostFocus(*sheet);
    EXPECT_EQ(names(), (Names{"Brawny", "Taint", "Ghost Sight", "Sadicas Touch"}));
    EXPECT_EQ(sheet->QualityListBox.Cell(1, 1), "1");  // the user's change is lost
}

TEST_F(CharacterTypes, TheRemovalWalkSkipsTheRowThatMovedUp) {
    sheet->q_chartype = "Taint";
    AddQualityRow("Taint", {});
    AddQualityRow("taint", {});
    AddQualityRow("Brawny", {});
    AddQualityRow("TAINT", {});
    AddQualityFromCharType(*sheet, "Human", "Survivor");
    EXPECT_EQ(names(), (Names{"taint", "Brawny"}));
    EXPECT_EQ(sheet->q_chartype, "Taint");  // the choice requires nothing
}

TEST_F(CharacterTypes, AChoiceWithoutRequirementsRemovesTheEarlierOnesAndKeepsTheirNames) {
    sheet->CharacterTypePopup.SetText("Spirit");
    sheet->ChooseCharPopup.SetText("Bound");
    sheet->ChooseCharPopup.SetText("Empty");
    EXPECT_EQ(names(), Names{});
    EXPECT_EQ(sheet->q_chartype, "Taint&&Ghost Sight&&Nowhere Quality&&Sadicas Touch");
    sheet->ChooseCharPopup.SetText("");
    EXPECT_EQ(names(), Names{});
}

TEST_F(CharacterTypes, AnAssociationCopiesItsNotes) {
    sheet->AssociationField.SetText("Mine");
    sheet->savedChar = true;
    sheet->AssociationCombo.SetText("Unknown Lodge");
    EXPECT_EQ(sheet->AssociationField.Text(), "Mine");
    EXPECT_TRUE(sheet->savedChar);
    sheet->AssociationCombo.SetText("Order");
    EXPECT_EQ(sheet->AssociationField.Text(), "A quiet order of watchers.");
    EXPECT_FALSE(sheet->savedChar);
}

TEST_F(CharacterTypes, ChangesDoNothingWhileACharacterLoads) {
    sheet->loadingCharFile = true;
    sheet->CharacterTypePopup.SetText("Spirit");
    sheet->ChooseCharPopup.SetText("Bound");
    sheet->AssociationCombo.SetText("Order");
    EXPECT_EQ(sheet->ChooseCharPopup.ListCount(), 0);
    EXPECT_EQ(names(), Names{});
    EXPECT_EQ(sheet->AssociationField.Text(), "");
    EXPECT_TRUE(sheet->savedChar);
    // Leaving the choice is not guarded.
    ChooseCharPopup_LostFocus(*sheet);
    EXPECT_EQ(names(), (Names{"Taint", "Ghost Sight", "Sadicas Touch"}));
}

TEST_F(CharacterTypes, AnApostropheInATypeShowsTheReport) {
    sheet->CharacterTypePopup.SetText("Devil's Own");
    AddQualityFromCharType(*sheet, "Devil's Own", "Imp");
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_NE(platform.Messages()[0].find(" At node: "), std::string::npos);
    EXPECT_TRUE(sheet->savedChar);
}
