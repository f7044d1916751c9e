#include "rules/AlternateForms.h"

#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class AlternateForms : public SheetTest {
protected:
    void SetUp() override {
        UseSmallRules();
        SetFields({"3", "2", "5", "2", "3", "1"});
        for (auto [a, total] : {std::pair{0, "8"}, {1, "3"}, {2, "8"}, {3, "2"}, {4, "4"}, {5, "2"}})
            sheet->AttributeOf(a).total.SetText(total);
        sheet->EssenceTotal.SetText("17");
    }
};

// Chosen forms of quality rows (column 27 texts) and forms granted by metaphysic rows (types).
struct FormsCase {
    const char* label;
    std::vector<std::string> qualityForms, metaTypes;
    bool dramaPoints;
    std::string expected;
};

class GeneratedForms : public AlternateForms, public ::testing::WithParamInterface<FormsCase> {};

const std::string kQualityWolfAttributes =
    "Strength: 5 Dexterity: 3 Constitution: 6\nIntelligence: 1 Perception: 6 Willpower: 1\n";
const std::string kQualityWolfPools =
    "Endurance Points: 25\nSpeed: 22\nEssence Pool: 17\nArmor Value: 2\n";
const std::string kWolfExtras = "Natural Attacks: Fang d4\nPage Reference: ZSB p. 9\n\n\n";
const std::string kMetaWolfAttributes =
    "Strength: 10 Dexterity: 4 Constitution: 9\nIntelligence: 1 Perception: 7 Willpower: 2\n";
const std::string kMetaHaze =
    "Haze\nStrength: 4 Dexterity: 4 Constitution: 3\nIntelligence: 2 Perception: 3 Willpower: 4\n"
    "Life Points: 15\nEndurance Points: 35\nSpeed: 15\nEssence Pool: 17\n"
    "Other: Drifts through keyholes\n\n\n";

INSTANTIATE_TEST_SUITE_P(
    Forms, GeneratedForms,
    ::testing::Values(
        FormsCase{"EmptySheet", {}, {}, false, ""},
        FormsCase{"OfferedButNoneChosen", {"&&Wolf,Bear&&"}, {""}, false, ""},
        FormsCase{"BearCarriesWolfFigures",
                  {"&&Wolf,Bear&&Wolf", "Beasts&&Wolf,Bear&&Bear"}, {}, false,
                  "Wolf\n" + kQualityWolfAttributes + "Life Points: 19.5\n" + kQualityWolfPools +
                      kWolfExtras + "Bear\n" + kQualityWolfAttributes + "Life Points: 19.5\n" +
                      kQualityWolfPools + "\n\n"},
        FormsCase{"FirstFormWithoutAttributesPrintsZeros", {"&&Bear&&Bear"}, {}, false,
                  "Bear\nStrength: 0 Dexterity: 0 Constitution: 0\nIntelligence: 0 Perception: 0 "
                  "Willpower: 0\nLife Points: 0\nEndurance Points: 0\nSpeed: 0\nEssence Pool: "
                  "17\nArmor Value: \n\n\n"},
        FormsCase{"QualityReadsADivisorAsZero", {"&&Haze&&Haze"}, {}, false,
                  "Haze\nStrength: 3 Dexterity: 3 Constitution: 5\nIntelligence: 2 Perception: 2 "
                  "Willpower: 3\nLife Points: 21.5\nEndurance Points: 35\nSpeed: 17\nEssence "
                  "Pool: 17\nArmor Value: 0\nOther: Drifts through keyholes\n\n\n"},
        FormsCase{"MetaDividesTotalsAndLeavesZeroArmourOut", {}, {"Mists", "", "Mists"}, false,
                  kMetaHaze + kMetaHaze},
        FormsCase{"DramaPointsEndQualityAtLifeButMetaShowsArmour", {"&&Wolf&&Wolf"}, {"Beasts"},
                  true,
                  "Wolf\n" + kQualityWolfAttributes + "Life Points: 19.5\n" + kWolfExtras +
                      "Wolf\n" + kMetaWolfAttributes + "Life Points: 22\nArmor Value: 2\n" +
                      kWolfExtras + "Bear\n" + kMetaWolfAttributes +
                      "Life Points: 22\nArmor Value: 2\n\n\n"}),
    [](const ::testing::TestParamInfo<FormsCase>& param) { return std::string(param.param.label); });

TEST_P(GeneratedForms, WritesOneBlockPerForm) {
    for (const std::string& forms : GetParam().qualityForms) AddQualityRow("Shifter", {{27, forms}});
    for (const std::string& type : GetParam().metaTypes) {
        sheet->MetaListBox.AddRow("Gift");
        sheet->MetaListBox.SetCell(sheet->MetaListBox.LastIndex(), 25, type);
    }
    sheet->DPField.SetVisible(GetParam().dramaPoints);
    EXPECT_EQ(GenerateAltForms(*sheet), GetParam().expected);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(AlternateForms, ChosenFormNamesAndPricesTheQuality) {
    struct Case {
        const char* name;
        const char* form;
        const char* expected;
    };
    for (const Case& c : {
             Case{"Shapeshifter", "Wolf",
                  "QualityNameField=Shapeshifter(Wolf)|QualityLevelField=0|QualityCostField=|"
                  "QualityMaxLevelField=1|QualityXPCostField=|QualityCostPerLevelField=7/7|"
                  "QualityXPCostPerLevelField=7/7"},
             Case{"Accursed Kin(Bear)", "Wolf",
                  "QualityNameField=Accursed Kin(Wolf)|QualityCostPerLevelField=4/4|"
                  "QualityXPCostPerLevelField=4/4"},
             Case{"Shifter", "Bear",
                  "QualityNameField=Shifter(Bear)|QualityLevelField=3|QualityCostField=6|"
                  "QualityMaxLevelField=5|QualityCostPerLevelField=2/2"},
         }) {
        SCOPED_TRACE(c.name);
        UseSmallRules();
        sheet->QualityNameField.SetText(c.name);
        sheet->QualityLevelField.SetText("3");
        sheet->QualityCostField.SetText("6");
        sheet->QualityMaxLevelField.SetText("5");
        sheet->QualityCostPerLevelField.SetText("2/2");
        sheet->QualityAlternateFormCombo.AddRow(c.form);
        sheet->QualityAlternateFormCombo.SetListIndex(0);
        ExpectTexts(c.expected);
    }
}

TEST_F(AlternateForms, QuoteInANameIsShownAsAnXmlFailure) {
    sheet->QualityAlternateFormCombo.SetText("Kin's Wolf");
    ExpectTexts("QualityNameField=(Kin's Wolf)|QualityLevelField=");

    AddQualityRow("Shifter", {{27, "&&Wolf&&Wolf"}});
    sheet->MetaListBox.AddRow("Gift");
    sheet->MetaListBox.SetCell(0, 25, "Kin's");
    EXPECT_EQ(GenerateAltForms(*sheet), "");
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_NE(platform.Messages()[1].find("\n At node: //altforms/type[@value='Kin's']/name on: "),
              std::string::npos)
        << platform.Messages()[1];
}

}  // namespace
}  // namespace zeph::testing
