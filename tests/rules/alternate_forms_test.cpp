#include "rules/AlternateForms.h"

#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

// Quality rows (column 27 texts) and metaphysic rows (alternate-form types) as on the sheet.
struct FormsCase {
    const char* label;
    std::vector<std::string> qualityForms, metaTypes;
    bool dramaPoints;
    const char* expected;  // "|" for each line end
};

class AlternateForms : public SheetTest, public ::testing::WithParamInterface<FormsCase> {
  protected:
    void SetUp() override {
        UseSmallRules();
        SetFields({"3", "2", "5", "2", "3", "1"});
        for (auto [a, total] :
             {std::pair{0, "8"}, {1, "3"}, {2, "8"}, {3, "2"}, {4, "4"}, {5, "2"}})
            sheet->AttributeOf(a).total.SetText(total);
        sheet->EssenceTotal.SetText("17");
    }
};

// clang-format off: one case a paragraph
INSTANTIATE_TEST_SUITE_P(
    Forms, AlternateForms,
    ::testing::Values(
        FormsCase{"NoneChosenOrGranted", {"&&Wolf,Bear&&"}, {""}, false, ""},
        FormsCase{"QualityFiguresStartAtZero", {"&&&&Bear", "&&&&Wolf"}, {}, false,
                  "Bear|Strength: 0 Dexterity: 0 Constitution: 0|Intelligence: 0 Perception: 0 "
                  "Willpower: 0|Life Points: 0|Endurance Points: 0|Speed: 0|Essence Pool: 17|Armor "
                  "Value: |||Wolf|Strength: 5 Dexterity: 3 Constitution: 6|Intelligence: 1 "
                  "Perception: 6 Willpower: 1|Life Points: 19.5|Endurance Points: 25|Speed: "
                  "22|Essence Pool: 17|Armor Value: 2|Natural Attacks: Fang d4|Page Reference: ZSB "
                  "p. 9|||"},
        FormsCase{"QualityReadsADivisorAsZero", {"&&&&Haze"}, {}, true,
                  "Haze|Strength: 3 Dexterity: 3 Constitution: 5|Intelligence: 2 Perception: 2 "
                  "Willpower: 3|Life Points: 21.5|Other: Drifts through keyholes|||"},
        FormsCase{"MetaDividesRoundsCutsAndLeavesZeroArmourOut", {}, {"", "Mists"}, false,
                  "Haze|Strength: 4 Dexterity: 4 Constitution: 3|Intelligence: 2 Perception: 3 "
                  "Willpower: 4|Life Points: 15|Endurance Points: 35|Speed: 15|Essence Pool: "
                  "17|Other: Drifts through keyholes|||"},
        FormsCase{"MetaCarriesFiguresAndShowsArmourWithDramaPoints", {}, {"Beasts"}, true,
                  "Wolf|Strength: 10 Dexterity: 4 Constitution: 9|Intelligence: 1 Perception: 7 "
                  "Willpower: 2|Life Points: 22|Armor Value: 2|Natural Attacks: Fang d4|Page "
                  "Reference: ZSB p. 9|||Bear|Strength: 10 Dexterity: 4 Constitution: "
                  "9|Intelligence: 1 Perception: 7 Willpower: 2|Life Points: 22|Armor Value: 2|||"},
        // The quote breaks the query: what was built before is dropped.
        FormsCase{"XmlFailure", {"&&&&Wolf"}, {"Kin's"}, false, ""}),
    [](const ::testing::TestParamInfo<FormsCase>& param) {
        return std::string(param.param.label);
    });
// clang-format on

TEST_P(AlternateForms, WritesOneBlockPerForm) {
    for (const std::string& forms : GetParam().qualityForms)
        AddQualityRow("Shifter", {{27, forms}});
    for (const std::string& type : GetParam().metaTypes) {
        sheet->MetaListBox.AddRow("Gift");
        sheet->MetaListBox.SetCell(sheet->MetaListBox.LastIndex(), 25, type);
    }
    sheet->DPField.SetVisible(GetParam().dramaPoints);
    std::string expected = GetParam().expected;
    std::replace(expected.begin(), expected.end(), '|', '\n');
    EXPECT_EQ(GenerateAltForms(*sheet), expected);
    EXPECT_EQ(platform.Messages().size(),
              GetParam().metaTypes == std::vector<std::string>{"Kin's"});
}

TEST_F(AlternateForms, ChosenFormNamesAndPricesTheQuality) {
    for (auto [name, form, expected] :
         {std::tuple{"Shapeshifter", "Wolf",
                     "QualityNameField=Shapeshifter(Wolf)|QualityLevelField=0|QualityCostField=|"
                     "QualityMaxLevelField=1|QualityXPCostField=|QualityCostPerLevelField=7/7|"
                     "QualityXPCostPerLevelField=7/7"},
          {"Accursed Kin(Bear)", "Wolf",
           "QualityNameField=Accursed Kin(Wolf)|QualityCostPerLevelField=4/4"},
          {"Shifter", "Bear",
           "QualityNameField=Shifter(Bear)|QualityLevelField=3|QualityCostField=6"},
          {"Shifter", "Kin's", "QualityNameField=Shifter(Kin's)|QualityLevelField=3"}}) {
        SCOPED_TRACE(name);
        UseSmallRules();
        sheet->QualityNameField.SetText(name);
        sheet->QualityLevelField.SetText("3");
        sheet->QualityCostField.SetText("6");
        sheet->QualityAlternateFormCombo.AddRow(form);
        sheet->QualityAlternateFormCombo.SetListIndex(0);
        ExpectTexts(expected);
    }
    ASSERT_EQ(platform.Messages().size(), 1u) << "the quote breaks the query";
    EXPECT_NE(
        platform.Messages()[0].find("\n At node: //altforms/*/name[@value='Kin's']/costs on: "),
        std::string::npos);
}

}  // namespace
}  // namespace zeph::testing
