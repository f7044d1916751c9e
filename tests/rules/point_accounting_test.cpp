#include <tuple>

#include "rules/PointAccounting.h"
#include "rules/PointSums.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class PointAccounting : public SheetTest {
protected:
    void SetUp() override { data.zephalondata = "ZSB"; }
};

TEST_F(PointAccounting, AttributePointsAboveFiveCostThreeQualitiesAndDrawbacksSplitBySign) {
    SetFields({"5"});
    EXPECT_EQ(SumAttrPts(*sheet), "5");
    SetFields({"6"});
    EXPECT_EQ(SumAttrPts(*sheet), "8");
    SetFields({"-2", "abc", "2.5", "1", "1", "7"});
    EXPECT_EQ(SumAttrPts(*sheet), "13");  // -2 + 0 + 2.5 + 1 + 1 + 7 + 4, cut
    sheet->StrengthBonus.SetText("9");
    EXPECT_EQ(SumAttrPts(*sheet), "13");  // bonus points cost nothing
    AddQualityRow("Brawny", {{2, "3"}});
    AddQualityRow("--", {});
    AddQualityRow("Clumsy", {{2, "-2"}});
    AddQualityRow("Phobia", {{2, "-1.5"}});
    AddQualityRow("Keen", {{2, "2.5"}});
    EXPECT_EQ(SumQualityPoints(*sheet), "5");
    EXPECT_EQ(SumDrawbackPts(*sheet), "-3");
    sheet->SkillListBox.AddRow("Myth");
    sheet->SkillListBox.SetCell(0, 2, "4");
    EXPECT_EQ(SumSkillPts(*sheet), "4");
    sheet->MetaListBox.AddRow("Ward");
    sheet->MetaListBox.SetCell(0, 2, "-1");
    EXPECT_EQ(SumMetaPts(*sheet), "-1");
}

// The skill budget (Intelligence total 3: base 9) and the attribute penalty by type, age and
// quality ("" for none).
TEST_F(PointAccounting, AgeRulesAdjustSkillAndAttributeBudgets) {
    const std::tuple<const char*, const char*, const char*, std::int64_t, std::int64_t> cases[] = {
        {"Gifted", "39", "", 9, 0},         {"Gifted", "40", "", 14, -2},
        {"Mundane", "50", "", 19, -4},      {"Gifted", "17", "", 4, 0},
        {"Gifted", "18", "", 9, 0},         {"Gifted", "30.5", "", 9, 0},
        {"Human", "40", "", 14, 0},         {"mundane", "40", "", 14, -2},
        {"Spirit Touched", "50", "", 9, 0}, {"Gifted", "50", "Age", 14, 0},
        {"Gifted", "12", "Age", 14, 0},     {"Gifted", "50", "Ageless", 14, -4}};
    sheet->IntelligenceTotal.SetText("3");
    for (const auto& [type, age, quality, skillPoints, attributePenalty] : cases) {
        SCOPED_TRACE(std::string(type) + " aged " + age + " with " + quality);
        sheet->QualityListBox.DeleteAllRows();
        sheet->CharacterTypePopup.SetText(type);
        sheet->AgeField.SetText(age);
        if (*quality) AddQualityRow(quality, {{1, "1"}});
        EXPECT_EQ(CalcSkillPts(*sheet), skillPoints);
        EXPECT_EQ(CalcAgeAttrbPenalty(*sheet), attributePenalty);
    }
}

TEST_F(PointAccounting, SkillBaseIsAtLeastOneAndTakesTheLargerSocialQuality) {
    sheet->CharacterTypePopup.SetText("Spirit Touched");
    EXPECT_EQ(CalcSkillPts(*sheet), 1);
    AddQualityRow("Status Quality", {{1, "3"}});
    AddQualityRow("Resources Quality 2", {{1, "5"}});
    EXPECT_EQ(CalcSkillPts(*sheet), 6);
    AddQualityRow("status quality, old money", {{1, "3"}});
    EXPECT_EQ(CalcSkillPts(*sheet), 7);  // status 6 now beats resources 5
}

TEST_F(PointAccounting, PlacingAFreePointUsesItsOwnPoolAndTheStatusLineShowsWhatIsLeft) {
    sheet->physicalBonus = 3;
    AttributeBonus_MouseDown(*sheet, Strength);
    AttributeBonus_MouseDown(*sheet, Constitution);
    AttributeBonus_MouseDown(*sheet, Willpower);  // the total waits for the recomputation
    ExpectTexts("StrengthBonus=1|ConstitutionBonus=1|WillpowerBonus=0|StrengthTotal=0|"
                "InfoText=Bonus points are availble. Click the green number next to an attribute "
                "you wish to increase. Mental=0. Physical=1.|attrBonus=1,0,1,0,0,0,0|mentalBonus=0|"
                "savedChar=true");

    sheet->physicalBonus = 0;
    sheet->InfoText.SetVisible(false);
    ShowBonus(*sheet);
    ExpectTexts("InfoText=Books in use: ZSB");
    EXPECT_TRUE(sheet->InfoText.Visible());
    SetTexts("AttributeField=12/20|QualityField=3/10|DrawbackField=-2/10|SkillField=5/25");
    ShowBonus(*sheet);
    EXPECT_EQ(sheet->InfoText.Text(),
              "Attr(12/20) Q(3/10) D(-2/10) S(5/25) M()      |     Books in use: ZSB");
    sheet->mentalBonus = 2;
    ShowBonus(*sheet);
    ExpectTexts("InfoText=Bonus points are availble. Click the green number next to an attribute "
                "you wish to increase. Mental=2. Physical=0.");
}
