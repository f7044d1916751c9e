#include "rules/PointAccounting.h"
#include "rules/PointSums.h"
#include "rules/SecondaryAttributes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class Recomputation : public SheetTest {
protected:
    void SetUp() override { UseSmallRules(); }
    // Picks the type and choice as the user does; the choice's change recomputes.
    void Choose(const std::string& type, const std::string& choice) {
        sheet->CharacterTypePopup.SetText(type);
        sheet->ChooseCharPopup.SetText(choice);
        FigureSecondaryAttributes(*sheet);
    }
};

TEST_F(Recomputation, TheFieldsAloneWithNoTypeThenTheFormulasAndBudgetsOfTheChoice) {
    SetFields({"2", "3", "4", "2", "2", "2"});
    sheet->attrBonus[Strength] = 1;
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("StrengthBonus=1|StrengthTotal=3|DexterityTotal=3|LifePointsTotal=0|"
                "EnduranceTotal=0|SpeedTotal=14|EssenceTotal=16|AttributeField=|SkillField=");
    EXPECT_TRUE(sheet->EnduranceTotal.Visible());

    SetFields({"3", "4", "3", "2", "3", "6"});
    Choose("Human", "Survivor");
    ExpectTexts("LifePointsTotal=34|EnduranceTotal=41|SpeedTotal=14|EssenceTotal=21|"
                "AttributeField=23/20|SkillField=0/25|MetaField=0/5|LPText=Life Points:|"
                "physicalBonus=3|mentalBonus=2");

    sheet->m_all_bonuses[6] = 2;
    sheet->m_all_bonuses[7] = -2;
    sheet->m_all_bonuses[9] = 4;
    Choose("Gifted", "Lone");
    ExpectTexts("EnduranceBonus=4");
    EXPECT_EQ(sheet->mentalBonus, 1);     // the refilled pool is the whole number of -0.5 + 2
    EXPECT_EQ(sheet->physicalBonus, 0);   // 1.5 - 2, cut towards zero

    // Points placed from a pool that a metaphysic fills stay placed at the next recomputation.
    sheet->m_all_bonuses[7] = 0;
    Choose("Human", "Survivor");
    while (sheet->mentalBonus > 0) AttributeBonus_MouseDown(*sheet, Intelligence);
    while (sheet->physicalBonus > 0) AttributeBonus_MouseDown(*sheet, Strength);
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("IntelligenceBonus=4|StrengthBonus=3|mentalBonus=0");
}

TEST_F(Recomputation, SpeedDividesOnlyWithASlash) {
    SetFields({"", "4", "3"});
    sheet->m_all_bonuses[11] = 1;  // from the qualities
    Choose("Human", "Fast");
    ExpectTexts("SpeedBonus=3|SpeedTotal=17|EssenceBonus=3");
    Choose("Human", "Slow");
    ExpectTexts("SpeedBonus=1|SpeedTotal=8");
    SetFields({"", "2", "3"});
    Choose("Human", "Slower");
    ExpectTexts("SpeedTotal=4");  // 1 + 10 / 4 rounded up from 2.5
}

TEST_F(Recomputation, VitalEssenceFormsEssenceBeforeTheBonusGoesInAndDramaPointsCount) {
    SetFields({"2", "2", "2", "2", "2", "2"});
    AddQualityRow("Inner Well", {{1, "1"}, {22, "3"}});
    Choose("Gifted", "Vital");
    ExpectTexts("LPText=Vital Ess.:|WillpowerTotal=3|EssenceBonus=3|EssenceTotal=49|"  // (13 + 10) * 2 + 3
                "LifePointsTotal=26|DPField=20|"  // 13 + 10 + 3
                "attrBonus=0,0,0,0,0,1,0");  // the seventh is no attribute's
    // Drama points follow the record until the character is in play.
    EXPECT_TRUE(sheet->DPField.Visible() && sheet->DPText.Visible());
    for (Item* hidden : std::initializer_list<Item*>{
             &sheet->EndText, &sheet->EnduranceBonus, &sheet->EnduranceTotal, &sheet->SpeedText,
             &sheet->SpeedBonus, &sheet->SpeedTotal, &sheet->EssenceLabel, &sheet->EssenceBonus,
             &sheet->EssenceTotal})
        EXPECT_FALSE(hidden->Visible()) << hidden->Name();
    sheet->DPField.SetText("15");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("DPField=20");
    sheet->CharacterInPlayBox.SetValue(true);
    sheet->DPField.SetText("15");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("DPField=15");

    Choose("Human", "Survivor");
    EXPECT_FALSE(sheet->DPField.Visible());
    EXPECT_TRUE(sheet->EssenceTotal.Visible());
}

TEST_F(Recomputation, MentalAndPhysicalTakeTheirMultiplierFromTheMetaColumn) {
    SetFields({"2", "1", "1", "2", "4", "3"});
    AddQualityRow("Odd Gift", {{1, "1"}, {17, "Mental&&2"}});
    Choose("Human", "Survivor");
    ExpectTexts("SkillField=0/25");  // no meta multiplier: adds nothing
    sheet->QualityListBox.SetCell(0, 19, "Strength&&3");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("SkillField=0/37|"  // 3 * highest mental 4
                "MetaField=0/11");  // 5 + 3 * Strength 2
    sheet->QualityListBox.SetCell(0, 17, "Perception&&2");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("SkillField=0/33");  // a plain word reads its own multiplier
    sheet->QualityListBox.SetCell(0, 17, "Mental");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("SkillField=0/25");  // without "&&" even a group word adds nothing
    sheet->QualityListBox.SetCell(0, 17, "&&2");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("SkillField=0/25");  // nor with nothing ahead of it
}

// Each of the other bonus columns of a quality row, at level 2, feeds its own figure.
TEST_F(Recomputation, EachBonusColumnFeedsItsFigure) {
    const struct { int column; const char *cell, *figure; } cases[] = {
        {18, "1.5", "SkillField=0/24"}, {20, "Any&&2", "AttributeField=13/24"},  // from 21 and 20
        {21, "Perception&&2", "EssenceBonus=12"}, {23, "2", "LifePointsBonus=4"}, {24, "1", "SpeedBonus=2"},
        {25, "3", "EnduranceBonus=6"}};
    for (const auto& c : cases) {
        UseSmallRules();
        SetFields({"2", "2", "2", "2", "3", "2"});
        sheet->OptionalSkillPointBox.SetValue(true);
        AddQualityRow("Gift", {{1, "2"}, {c.column, c.cell}});
        Choose("Human", "Survivor");
        ExpectTexts(c.figure);
    }
}

TEST_F(Recomputation, FractionsAreCutRowByRowAndTheTaintPoolJoinsTheSummary) {
    AddQualityRow("Spark", {{1, "1"}, {22, "0.5"}});
    AddQualityRow("Spark", {{1, "1"}, {22, "0.5"}});
    Choose("Human", "Survivor");
    ExpectTexts("EssenceBonus=0");
    sheet->QualityListBox.RemoveRow(1);
    sheet->QualityListBox.SetCell(0, 1, "3");
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("EssenceBonus=1");

    sheet->QualityListBox.DeleteAllRows();
    AddQualityRow("Taint Pool Reserve", {{1, "2"}, {26, "5"}});
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("ExtraStatsField=Taint Pool: 10");
    AddQualityRow("Essence Channeling", {{1, "1"}, {10, "Essence Channeling"}});
    sheet->m_all_bonuses[12] = 3;
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("ExtraStatsField=Essence Channeling: 1, Taint Pool: 13");
    sheet->QualityListBox.DeleteAllRows();
    sheet->m_all_bonuses[12] = 1;
    FigureSecondaryAttributes(*sheet);
    ExpectTexts("ExtraStatsField=Taint Pool: 1");
}
