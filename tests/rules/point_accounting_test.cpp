#include <gtest/gtest.h>

#include "rules/PointAccounting.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class PointAccounting : public SheetTest {
protected:
    void SetUp() override {
        UseRules("<zephalondata/>");
        data.zephalondata = "ZSB";
    }
};

TEST_F(PointAccounting, AttributePointsAboveFiveCostThree) {
    SetFields({"5", "", "", "", "", ""});
    EXPECT_EQ(SumAttrPts(*sheet), "5");
    SetFields({"6", "", "", "", "", ""});
    EXPECT_EQ(SumAttrPts(*sheet), "8");
    SetFields({"-2", "abc", "2.5", "1", "1", "7"});
    EXPECT_EQ(SumAttrPts(*sheet), "13");  // -2 + 0 + 2.5 + 1 + 1 + 7 + 4, cut
    sheet->StrengthBonus.SetText("9");
    EXPECT_EQ(SumAttrPts(*sheet), "13");  // bonus points cost nothing
}

TEST_F(PointAccounting, QualityAndDrawbackSumsSplitBySignAndSkipSeparators) {
    AddQualityRow("Brawny", {{2, "3"}});
    AddQualityRow("--", {});
    AddQualityRow("Clumsy", {{2, "-2"}});
    AddQualityRow("Phobia", {{2, "-1.5"}});
    AddQualityRow("Keen", {{2, "2.5"}});
    EXPECT_EQ(SumQualityPoints(*sheet), "5");
    EXPECT_EQ(SumDrawbackPts(*sheet), "-3");
    sheet->SkillListBox.AddRow("Myth");
    sheet->SkillListBox.SetCell(0, 2, "4");
    sheet->SkillListBox.AddRow("--");
    EXPECT_EQ(SumSkillPts(*sheet), "4");
    sheet->MetaListBox.AddRow("Ward");
    sheet->MetaListBox.SetCell(0, 2, "-1");
    EXPECT_EQ(SumMetaPts(*sheet), "-1");
}

struct AgeCase {
    const char* label;
    const char* type;
    const char* age;
    const char* qualityName;  // "" for none
    std::int64_t skillPoints;  // CalcSkillPts with Intelligence total 3 (base 9)
    std::int64_t attributePenalty;
};

// Keeps the test listing readable instead of a byte dump of the case.
void PrintTo(const AgeCase& c, std::ostream* out) { *out << c.label; }

class AgeRules : public PointAccounting, public ::testing::WithParamInterface<AgeCase> {};

TEST_P(AgeRules, AdjustSkillAndAttributeBudgets) {
    const AgeCase& c = GetParam();
    sheet->IntelligenceTotal.SetText("3");
    sheet->CharacterTypePopup.SetText(c.type);
    sheet->AgeField.SetText(c.age);
    if (*c.qualityName) AddQualityRow(c.qualityName, {{1, "1"}});
    EXPECT_EQ(CalcSkillPts(*sheet), c.skillPoints);
    EXPECT_EQ(CalcAgeAttrbPenalty(*sheet), c.attributePenalty);
}

INSTANTIATE_TEST_SUITE_P(
    Ages, AgeRules,
    ::testing::Values(AgeCase{"Age39", "Gifted", "39", "", 9, 0},
                      AgeCase{"Age40", "Gifted", "40", "", 14, -2},
                      AgeCase{"Age50", "Mundane", "50", "", 19, -4},
                      AgeCase{"Age17", "Gifted", "17", "", 4, 0},
                      AgeCase{"Age18IsNoLongerYoung", "Gifted", "18", "", 9, 0},
                      AgeCase{"Age30Half", "Gifted", "30.5", "", 9, 0},
                      AgeCase{"HumanGetsSkillsButNoPenalty", "Human", "40", "", 14, 0},
                      AgeCase{"TypeCaseIgnored", "mundane", "40", "", 14, -2},
                      AgeCase{"OtherTypeNoAgeRule", "Spirit Touched", "50", "", 9, 0},
                      AgeCase{"AgeQualityWhateverTheAge", "Gifted", "50", "Age", 14, 0},
                      AgeCase{"AgeQualityYoung", "Gifted", "12", "Age", 14, 0},
                      AgeCase{"NameBeginningWithAgeOnlyCountsForSkills", "Gifted", "50",
                              "Ageless", 14, -4}),
    [](const ::testing::TestParamInfo<AgeCase>& param) { return param.param.label; });

TEST_F(PointAccounting, SkillBaseIsAtLeastOneAndTakesTheLargerSocialQuality) {
    sheet->CharacterTypePopup.SetText("Spirit Touched");
    EXPECT_EQ(CalcSkillPts(*sheet), 1);
    AddQualityRow("Status Quality", {{1, "3"}});
    AddQualityRow("Resources Quality 2", {{1, "5"}});
    EXPECT_EQ(CalcSkillPts(*sheet), 6);
    AddQualityRow("status quality", {{1, "3"}});
    EXPECT_EQ(CalcSkillPts(*sheet), 7);  // status 6 now beats resources 5
}

TEST_F(PointAccounting, PlacingAFreePointUsesItsOwnPoolOnly) {
    sheet->physicalBonus = 3;
    AttributeBonus_MouseDown(*sheet, Strength);
    AttributeBonus_MouseDown(*sheet, Constitution);
    ExpectTexts("StrengthBonus=1|ConstitutionBonus=1");
    EXPECT_EQ(sheet->physicalBonus, 1);
    EXPECT_EQ(sheet->attrBonus[Strength], 1);
    EXPECT_EQ(sheet->StrengthTotal.Text(), "0");  // the total waits for the recomputation
    EXPECT_TRUE(sheet->savedChar);

    AttributeBonus_MouseDown(*sheet, Willpower);
    EXPECT_EQ(sheet->WillpowerBonus.Text(), "0");
    EXPECT_EQ(sheet->mentalBonus, 0);
    EXPECT_EQ(sheet->InfoText.Text(),
              "Bonus points are availble. Click the green number next to an attribute you wish to "
              "increase. Mental=0. Physical=1.");
}

TEST_F(PointAccounting, StatusLineShowsBudgetsOrOnlyTheBooks) {
    sheet->InfoText.SetVisible(false);
    ShowBonus(*sheet);
    EXPECT_EQ(sheet->InfoText.Text(), "Books in use: ZSB");
    EXPECT_TRUE(sheet->InfoText.Visible());
    sheet->AttributeField.SetText("12/20");
    sheet->QualityField.SetText("3/10");
    sheet->DrawbackField.SetText("-2/10");
    sheet->SkillField.SetText("5/25");
    sheet->MetaField.SetText("0/0");
    ShowBonus(*sheet);
    EXPECT_EQ(sheet->InfoText.Text(),
              "Attr(12/20) Q(3/10) D(-2/10) S(5/25) M(0/0)      |     Books in use: ZSB");
    sheet->mentalBonus = 2;
    ShowBonus(*sheet);
    EXPECT_EQ(sheet->InfoText.Text(),
              "Bonus points are availble. Click the green number next to an attribute you wish to "
              "increase. Mental=2. Physical=0.");
}
