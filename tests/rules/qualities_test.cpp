#include "rules/Qualities.h"

#include <stdexcept>

#include "rules/QualityBonuses.h"
#include "rules/SecondaryAttributes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class Qualities : public SheetTest {
  protected:
    void SetUp() override {
        UseTestRules("purchase_rules.xml");
        SetTexts("CharacterTypePopup=Human|ChooseCharPopup=Plain");
        sheet->savedChar = true;
    }
    // As the user chooses; opening the names list fills the entry items anew.
    void Pick(const std::string& name, const std::string& type = "Qualities") {
        sheet->QualityTypePopup.SetText(type);
        sheet->QualityPopup.SetText(name);
        Do("QualityPopup_MouseDown");
    }
    void Buy(const std::string& name, int levels, const std::string& type = "Qualities") {
        Pick(name, type);
        Repeat(QualityUpDownArrows_Up, levels);
        QualityRecordButton_Action(*sheet);
    }
    std::string Row(int row, int from, int to) { return Cells(sheet->QualityListBox, row, from, to); }
    static constexpr const char* kRefused = "Prerequisites are not met. This cannot be purchased.";
};

TEST_F(Qualities, ChoosingFillsTheEntryItemsFromTheRuleData) {
    Pick("Keen Eye");
    ExpectTexts(
        "QualityMaxLevelField=4|QualityCostPerLevelField=2/-|QualityXPCostPerLevelField=5/-|"
        "QualityLevelField=0|QualityCostField=0|QualityXPCostField=0|QualityNoteField=Sharp.|"
        "q_row=-1");
    EXPECT_EQ(sheet->q_attributes[Perception], 1);
    EXPECT_EQ(sheet->q_bonuspts[0] + sheet->q_bonuspts[7], "21");
    Pick("Even Keel");  // a highest level of exactly 5 takes the high values, even empty ones
    ExpectTexts(
        "QualityCostPerLevelField=2/|QualityXPCostPerLevelField=3/|"
        "QualityPrerequisiteField=Keen Eye,2&&Iron Will,1|QualityNoteField=");
    EXPECT_EQ(sheet->q_attributes[Perception] + sheet->q_bonuspts[0].size(), 0u);
    QualityUpDownArrows_Up(*sheet);
    Pick("Nameless");  // without costs the cost items keep what they held
    ExpectTexts(
        "QualityNameField=Nameless|QualityLevelField=1|QualityCostField=2|QualityMaxLevelField=5");
    Pick("Shapeshifter");
    EXPECT_TRUE(sheet->QualityAlternateFormCombo.Visible() && sheet->QualityAltFormText.Visible());
    EXPECT_EQ(JoinFields(sheet->QualityAlternateFormCombo.Rows(), ","), "Wolf,Hawk");
    Pick("Keen Eye");
    EXPECT_FALSE(sheet->QualityAlternateFormCombo.Visible() || sheet->QualityAltFormText.Visible());
}

TEST_F(Qualities, ArrowsPriceLevelsAboveFiveAtTheHighValue) {
    sheet->QualityNameField.SetText("Typed");  // no highest level: the level takes its empty text
    QualityUpDownArrows_Up(*sheet);
    ExpectTexts("QualityLevelField=|QualityCostField=");
    Pick("Iron Will");  // 1 per level, 3 above level 5
    Repeat(QualityUpDownArrows_Up, 6);
    ExpectTexts("QualityLevelField=6|QualityCostField=8|QualityXPCostField=0");
    QualityUpDownArrows_Down(*sheet);
    ExpectTexts("QualityLevelField=5|QualityCostField=5");
    Repeat(QualityUpDownArrows_Down, 6);
    ExpectTexts("QualityLevelField=0|QualityCostField=0");
    Pick("Keen Eye");  // up to 4
    Repeat(QualityUpDownArrows_Up, 5);
    ExpectTexts("QualityLevelField=4|QualityCostField=8");
    Pick("Clumsy", "Drawbacks");
    QualityUpDownArrows_Up(*sheet);
    EXPECT_EQ(sheet->QualityCostField.Text(), "-2");
    sheet->CharacterInPlayBox.SetValue(true);
    Pick("Iron Will");
    Repeat(QualityUpDownArrows_Up, 6);
    ExpectTexts("QualityXPCostField=27|QualityCostField=0");
}

TEST_F(Qualities, RecordingWritesTheRowAndEmptiesTheEntry) {
    Buy("Keen Eye", 2);
    EXPECT_EQ(Row(0, 0, 27), "Keen Eye|2|4|0|Sharp.|ZPR 3||4|2/-|5/-||2|0|0|0|1|0|2|||||||1|||");
    ExpectTexts(
        "QualityNameField=|QualityLevelField=|QualityCostField=|QualityMaxLevelField=|"
        "QualityNoteField=|QualityXPCostPerLevelField=|QualityField=4/10|q_row=-1|savedChar=false");
    EXPECT_EQ(sheet->q_attributes[Perception] + sheet->q_bonuspts[0].size(), 0u);

    const struct { const char *name, *markers; } cases[] = {{"Essence Channeling", "Essence Channeling/"},
                 {"Sadicas Gift", "Sadicas Gift/"},
                 {"taint", "Taint Channeling/5"},
                 {"TAINT CHANNELING", "Taint Channeling/"},
                 {"Adept", "Adept/"},
                 {"Taint Pool Reserve", "/5"}};
    for (const auto& c : cases) {
        Pick("Nameless");
        sheet->QualityNameField.SetText(c.name);
        sheet->QualityPrerequisiteField.SetText("Keen Eye,0\r\n");
        QualityRecordButton_Action(*sheet);
        const int row = sheet->QualityListBox.LastIndex();
        EXPECT_EQ(Row(row, 10, 10) + "/" + Row(row, 26, 26), c.markers) << c.name;
    }
    EXPECT_EQ(Row(1, 6, 6), "Keen Eye,0 ") << "a line end becomes one blank";
    ExpectTexts("QualityPrerequisiteField=");
}

TEST_F(Qualities, PrerequisitesCountMatchingRowsNotRequirements) {
    const struct { std::vector<std::pair<const char*, const char*>> rows; bool recorded; } cases[] = {
        {{{"keen eye", "3"}, {"IRON WILL", "1"}}, true},
        {{{"Keen Eye", "2"}, {"Keen Eye", "4"}}, true},  // two rows stand in for Iron Will
        {{{"Keen Eye", "1"}, {"Iron Will", "1"}}, false},
        {{{"Keen Eye (Wolf)", "2"}, {"Iron Will", "1"}}, false},
        {{{"Keen Eye", "2"}}, false},
    };
    for (const auto& c : cases) {
        sheet->QualityListBox.DeleteAllRows();
        platform = ScriptedPlatform("/p", "/a", "/tmp");
        for (const auto& [name, level] : c.rows) AddQualityRow(name, {{1, level}});
        Buy("Even Keel", 1);
        EXPECT_EQ(sheet->QualityListBox.ListCount(), static_cast<int>(c.rows.size()) + c.recorded);
        EXPECT_EQ(platform.Messages().size(), c.recorded ? 0u : 1u);
        EXPECT_EQ(sheet->QualityNameField.Text(), c.recorded ? "" : "Even Keel")
            << "a refused entry stays";
    }
    EXPECT_EQ(platform.Messages().at(0), kRefused);
}

TEST_F(Qualities, InPlayExperienceAloneDecides) {
    InPlay("20");
    Buy("Even Keel", 1);  // prerequisites unmet: warned, yet bought
    EXPECT_EQ(platform.Messages(), std::vector<std::string>{kRefused});
    EXPECT_EQ(Row(0, 0, 3), "Even Keel|1|0|3");
    ExpectTexts("SavedExperienceField=17|SpentExperienceField=3");
    InPlay("3");
    Buy("Iron Will", 1);  // costs 4: refused without a word
    EXPECT_EQ(sheet->QualityListBox.ListCount() + platform.Messages().size(), 2u);
    ExpectTexts("SavedExperienceField=3|QualityNameField=Iron Will");
    SetTexts("QualityNameField=|SavedExperienceField=10");
    QualityRecordButton_Action(*sheet);  // taken before the empty name refuses
    ExpectTexts("SavedExperienceField=6|SpentExperienceField=4");
    EXPECT_EQ(sheet->QualityListBox.ListCount(), 1);
}

TEST_F(Qualities, AnEditedRowIsChargedTheDifference) {
    InPlay("20");
    Buy("Iron Will", 1);
    sheet->QualityListBox.SetCell(0, 11, "2");
    sheet->QualityListBox.SetCell(0, 26, "5");
    sheet->QualityListBox.SetListIndex(0);
    QualityListBox_DoubleClick(*sheet);
    EXPECT_EQ(sheet->q_attributes[Strength], 2);
    EXPECT_EQ(sheet->q_bonuspts[9], "5");
    ExpectTexts(
        "q_row=0|QualityNameField=Iron Will|QualityLevelField=1|QualityXPCostField=4|"
        "QualityMaxLevelField=8|QualityCostPerLevelField=1/3|QualityXPCostPerLevelField=4/7");
    QualityUpDownArrows_Up(*sheet);
    QualityRecordButton_Action(*sheet);
    EXPECT_EQ(Row(0, 0, 3), "Iron Will|2|0|8");
    ExpectTexts("SavedExperienceField=12|SpentExperienceField=8");
    QualityListBox_DoubleClick(*sheet);
    QualityUpDownArrows_Down(*sheet);
    QualityRecordButton_Action(*sheet);
    ExpectTexts("SavedExperienceField=16|SpentExperienceField=4");
    EXPECT_EQ(Names(), "Iron Will;");

    sheet = std::make_unique<CharacterSheet>(data, platform, SheetOperations());
    sheet->QualityNameField.SetText("Typed");  // a new sheet edits row 0
    EXPECT_THROW(QualityRecordButton_Action(*sheet), std::out_of_range);
    AddQualityRow("Old", {{1, "3"}});
    QualityRecordButton_Action(*sheet);
    EXPECT_EQ(Names(), "Typed;");
}

TEST_F(Qualities, RemovingRefundsAndSelectsANeighbour) {
    AddQualityRow("A", {{3, "3"}});
    AddQualityRow("B", {});
    AddQualityRow("C", {{3, "2"}, {2, "4"}});
    sheet->SpentExperienceField.SetText("5");
    FigureSecondaryAttributes(*sheet);
    const std::string before = sheet->QualityField.Text();
    sheet->QualityListBox.SetListIndex(2);
    QualityListBox_KeyDown(*sheet, "\x08");
    ExpectTexts("SavedExperienceField=2|SpentExperienceField=3|QualityField=" + before);
    EXPECT_EQ(sheet->QualityListBox.ListIndex(), 1);
    QualityListBox_KeyDown(*sheet, "a");
    sheet->QualityListBox.SetListIndex(0);
    QualityRemoveButton_Action(*sheet);
    EXPECT_EQ(Names(), "B;");
    ExpectTexts("SavedExperienceField=5|SpentExperienceField=0");
    EXPECT_NE(sheet->QualityField.Text(), before) << "the button recomputes, the key not";
    sheet->QualityListBox.SetListIndex(-1);
    QualityListBox_KeyDown(*sheet, "\x10");
    EXPECT_EQ(Names(), "B;");
    EXPECT_EQ(sheet->QualityListBox.ListIndex(), 0);
}

TEST_F(Qualities, DrawbacksGoBehindTheQualitiesInTheirOrder) {
    AddQualityRow("D1", {{2, "-2"}, {27, "kept"}});
    AddQualityRow("Q1", {{2, "2"}});
    AddQualityRow("--", {});
    AddQualityRow("Q2", {{2, "-2"}, {3, "3"}});
    AddQualityRow("D2", {{2, "-1"}});
    SeparateQD(*sheet);
    EXPECT_EQ(Names(), "Q1;--;Q2;D1;D2;");
    EXPECT_EQ(Row(3, 27, 27), "kept");

    sheet->QualityListBox.DeleteAllRows();  // recording separates while the box is set
    Buy("Clumsy", 1, "Drawbacks");
    Buy("Iron Will", 1);
    EXPECT_EQ(Names(), "Iron Will;Clumsy;");
    QualityListBox_HeaderPressed(*sheet);  // ordering by hand unsets it
    Buy("Clumsy", 1, "Drawbacks");
    Buy("Keen Eye", 1);
    EXPECT_EQ(Names(), "Iron Will;Clumsy;Clumsy;Keen Eye;");
    sheet->QualitiesSeparateQDBox.SetValue(true);
    EXPECT_EQ(Names(), "Iron Will;Keen Eye;Clumsy;Clumsy;");
    QualityListBox_DragReorderRows(*sheet);
    EXPECT_FALSE(sheet->QualitiesSeparateQDBox.Value());
}

TEST_F(Qualities, TheFormsOfferedAndChosenTravelWithTheRow) {
    Pick("Shapeshifter");
    sheet->QualityAlternateFormCombo.SetText("Hawk");
    QualityUpDownArrows_Up(*sheet);
    QualityRecordButton_Action(*sheet);
    EXPECT_EQ(Row(0, 27, 27), "&&Wolf,Hawk&&Hawk");
    EXPECT_FALSE(sheet->QualityAlternateFormCombo.Visible());
    EXPECT_EQ(sheet->QualityAlternateFormCombo.ListCount(), 0);
    sheet->QualityListBox.SetListIndex(0);
    QualityListBox_DoubleClick(*sheet);
    EXPECT_TRUE(sheet->QualityAlternateFormCombo.Visible());
    EXPECT_EQ(sheet->QualityAlternateFormCombo.ListIndex(), 1);
    ExpectTexts("QualityNameField=Shapeshifter(Hawk)|QualityLevelField=0|QualityCostField=");
    sheet->QualityListBox.SetCell(0, 27, "");
    QualityListBox_DoubleClick(*sheet);
    EXPECT_FALSE(sheet->QualityAlternateFormCombo.Visible());
    Pick("Shapeshifter");  // the forms offered anew, none chosen: the name stays bare
    EXPECT_EQ(sheet->QualityNameField.Text(), "Shapeshifter");
}

class QualityBonuses : public SheetTest {
protected:
    std::string poolsOf(std::initializer_list<std::pair<const char*, const char*>> rows) {
        sheet->QualityListBox.DeleteAllRows();
        for (const auto& [marker, level] : rows) AddQualityRow(marker, {{1, level}, {10, marker}});
        QualityGetBonus(*sheet);
        return sheet->ExtraStatsField.Text();
    }
};

TEST_F(QualityBonuses, PoolSummaryReadsAsTheSheetAlwaysHas) {
    EXPECT_EQ(poolsOf({{"Sadicas", "3"}}), "Sadicas: 3, Maximum Sadicas Pool: 90");
    EXPECT_EQ(poolsOf({{"Essence Channeling", "2"}, {"Sadicas", "3"}}),
              "Essence Channeling: 2, Taint Channeling: 3");
    EXPECT_EQ(poolsOf({{"Essence Channeling", "1"}, {"Essence Channeling", "2"}}),
              "Essence Channeling: 3");
    EXPECT_EQ(poolsOf({{"Taint", "2"}, {"Taint Channeling", "1"}}), "Taint Channeling: 3");
    EXPECT_EQ(poolsOf({{"taint", "2"}}), "Taint Channeling: 2");
    EXPECT_EQ(poolsOf({{"Essence Channeling", "1"}, {"Taint Channeling", "2"}}),
              "Essence Channeling: 1, Taint Channeling: 2");
    EXPECT_EQ(poolsOf({{"Spirit Channeling", "4"}}), "");
    EXPECT_EQ(poolsOf({{"--", ""}}), "");
    // Adept adds the last Intelligence total whatever its level.
    sheet->IntelligenceTotal.SetText("4");
    EXPECT_EQ(poolsOf({{"ADEPT", "0"}}), "Sadicas: 4, Maximum Sadicas Pool: 120");
}

TEST_F(QualityBonuses, AttributeBonusesArePerLevelAndAddToWhatTheItemsHold) {
    AddQualityRow("Brawny", {{1, "2"}, {11, "1"}, {16, "-1"}});
    AddQualityRow("--", {});
    AddQualityRow("Keen", {{1, "0"}, {15, "3"}});
    sheet->StrengthBonus.SetText("1");
    sheet->m_all_bonuses[Strength] = 1;
    sheet->m_all_bonuses[Perception] = 2;
    QualityGetBonus(*sheet);
    ExpectTexts("StrengthBonus=4|WillpowerBonus=-2|PerceptionBonus=2|"  // level 0 adds nothing of its own
                "ExtraStatsField=");
    // Not idempotent: the items are reset by the recomputation before each call.
    QualityGetBonus(*sheet);
    EXPECT_EQ(sheet->StrengthBonus.Text(), "7");
}
