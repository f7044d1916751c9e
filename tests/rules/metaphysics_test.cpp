#include "rules/Metaphysics.h"

#include "rules/SecondaryAttributes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class Metaphysics : public SheetTest {
  protected:
    void SetUp() override {
        UseTestRules("purchase_rules.xml");
        SetTexts("CharacterTypePopup=Human|ChooseCharPopup=Plain");
    }
    void Pick(const std::string& name) {
        sheet->MetaTypePopup.SetText("Gifts");
        sheet->MetaPopup.AddRow(name);  // offered or not: the entry is what is tested here
        sheet->MetaPopup.SetText(name);
        PopulateMetaInfo(*sheet);
    }
    std::string Row(int row, int from, int to) { return Cells(sheet->MetaListBox, row, from, to); }
};

TEST_F(Metaphysics, OnlyWhatTheQualitiesAllowIsOffered) {
    for (const char* loader : {"LoadMetaTypes", "MetaTypePopup_MouseDown"}) {
        sheet->MetaTypePopup.DeleteAllRows();
        Do(loader);
        EXPECT_EQ(sheet->MetaTypePopup.Rows(), std::vector<std::string>{"Gifts"}) << loader;
    }
    const struct { const char* quality; std::vector<std::string> offered; } cases[] = {
        {"", {}}, {"Keen Eye", {"Seer's Eye"}}, {"Iron Will (Wolf)", {"Seer's Eye", "Ward"}}};
    for (const auto& c : cases) {
        sheet->QualityListBox.DeleteAllRows();
        if (*c.quality) AddQualityRow(c.quality, {});
        SetTexts("MetaTypePopup=|MetaTypePopup=Gifts");
        EXPECT_EQ(sheet->MetaPopup.Rows(), c.offered) << c.quality;
    }
    EXPECT_TRUE(MetaCheckQualityPrereq(*sheet, ""));
    EXPECT_FALSE(MetaCheckQualityPrereq(*sheet, "Keen"));
}

TEST_F(Metaphysics, ChoosingFillsTheEntryItems) {
    Pick("Seer's Eye");
    ExpectTexts(
        "MetaNameField=Seer's Eye|MetaMaxLevelField=3/0|MetaCostPerLevelField=1/2|"
        "MetaXPCostPerLevelField=3/6|MetaXPCostNewField=10|MetaLevelField=0|"
        "MetaReferenceField=ZPR 8|MetaPrerequisiteField=Ward,2|MetaNoteField=Sees far.|m_altform=Beasts|"
        "m_row=-1");
    EXPECT_EQ(sheet->m_attributes[0] * 10 + sheet->m_attributes[6], 12);
    EXPECT_EQ(sheet->m_bonuspts[0] + sheet->m_bonuspts[5], "31");

    Pick("Ward");  // a highest level below 5, and no price of its own for the first level
    ExpectTexts(
        "MetaMaxLevelField=0/4|MetaCostPerLevelField=2/-|MetaXPCostPerLevelField=4/-|"
        "MetaXPCostNewField=4/-|MetaReferenceField=|MetaPrerequisiteField=|MetaNoteField=");
    EXPECT_EQ(sheet->m_attributes[0] + sheet->m_attributes[6], 0);
    EXPECT_EQ(sheet->m_bonuspts[0] + sheet->m_altform, "");
}

TEST_F(Metaphysics, TheLowestLevelIsBoughtAndSoldInOnePress) {
    Pick("Seer's Eye");  // lowest 3, no highest; 1 per level, 2 above level 5
    MetaUpDownArrows_Up(*sheet);
    ExpectTexts("MetaLevelField=3|MetaCostField=3");
    Repeat(MetaUpDownArrows_Up, 3);
    ExpectTexts("MetaLevelField=6|MetaCostField=7");
    Repeat(MetaUpDownArrows_Down, 2);
    ExpectTexts("MetaLevelField=4|MetaCostField=4");
    MetaUpDownArrows_Down(*sheet);
    ExpectTexts("MetaLevelField=3|MetaCostField=3");
    MetaUpDownArrows_Down(*sheet);
    ExpectTexts("MetaLevelField=0|MetaCostField=0");
    MetaUpDownArrows_Down(*sheet);
    ExpectTexts("MetaLevelField=0|MetaCostField=0");

    Pick("Ward");
    Repeat(MetaUpDownArrows_Up, 6);
    ExpectTexts("MetaLevelField=4|MetaCostField=8");
}

TEST_F(Metaphysics, APressStepsThroughAThousandLevelsAtMost) {
    // Absurd rule data: a lowest level that a press would otherwise take years to step through.
    UseRules(R"(<zephalondata><metaphysics><type value="Gifts"><name value="Abyss">
        <costs minlevel="100000" maxlevel="0" creationcost="1" creationcost_highvalue="2"/>
      </name></type></metaphysics></zephalondata>)");
    Pick("Abyss");
    MetaUpDownArrows_Up(*sheet);
    ExpectTexts("MetaLevelField=1000|MetaCostField=1995");  // 5 levels at 1, 995 at 2
    MetaUpDownArrows_Down(*sheet);
    ExpectTexts("MetaLevelField=0|MetaCostField=0");
}

TEST_F(Metaphysics, InPlayTheFirstLevelHasItsOwnPrice) {
    sheet->CharacterInPlayBox.SetValue(true);
    Pick("Seer's Eye");
    MetaUpDownArrows_Up(*sheet);
    ExpectTexts("MetaLevelField=3|MetaXPCostField=16|MetaCostField=0");  // 10 + 3 + 3
    MetaUpDownArrows_Down(*sheet);
    ExpectTexts("MetaLevelField=0|MetaXPCostField=0");

    Pick("Ward");
    sheet->MetaXPCostField.SetText("99");
    MetaUpDownArrows_Up(*sheet);
    EXPECT_EQ(sheet->MetaXPCostField.Text(), "4/-") << "set, not added, slash and all";
    MetaUpDownArrows_Up(*sheet);
    EXPECT_EQ(sheet->MetaXPCostField.Text(), "8");
}

TEST_F(Metaphysics, PrerequisitesWithAlternativesJudgedAsTheyStand) {
    const struct { const char* text; std::vector<std::pair<const char*, const char*>> rows; bool met; } cases[] = {
        {"Ward,2", {{"Ward", "2"}}, true},
        {"Ward,2", {{"ward", "1"}}, false},
        {"A,1&&B,1", {{"A", "1"}}, false},
        {"A,1&&B,1", {{"a", "1"}, {"B", "3"}}, true},
        {"A,1||B,1", {{"B", "1"}}, true},
        {"A,1&&B,1||C,1", {{"C", "1"}}, true},
        {"A,1&&B,1||C,1", {{"A", "1"}, {"B", "1"}}, true},
        {"A,1&&B,1||C,1&&D,1", {{"A", "1"}, {"B", "1"}, {"D", "1"}}, true},
        // Every requirement met, but the counter runs on past the count: refused.
        {"A,1&&B,1||C,1&&D,1", {{"A", "1"}, {"B", "1"}, {"D", "1"}, {"D", "2"}}, false},
    };
    for (const auto& c : cases) {
        sheet->MetaListBox.DeleteAllRows();
        platform = ScriptedPlatform("/p", "/a", "/tmp");
        for (const auto& [name, level] : c.rows) AddMetaRow(name, {{1, level}});
        sheet->m_row = -1;
        sheet->MetaNameField.SetText("New");
        sheet->MetaPrerequisiteField.SetText(c.text);
        MetaRecordButton_Action(*sheet);
        EXPECT_EQ(sheet->MetaListBox.ListCount(), static_cast<int>(c.rows.size()) + c.met)
            << c.text << " with " << c.rows.size() << " rows";
        EXPECT_EQ(platform.Messages().size(), c.met ? 0u : 1u) << c.text;
    }
    sheet->CharacterInPlayBox.SetValue(true);
    SetTexts("SavedExperienceField=5|MetaXPCostField=5");
    MetaRecordButton_Action(*sheet);
    EXPECT_EQ(sheet->MetaListBox.ListCount(), 5) << "in play the warning does not refuse";
    ExpectTexts("SavedExperienceField=0|SpentExperienceField=5");
}

TEST_F(Metaphysics, RecordingWritesTheRowAndSumsTheBonuses) {
    AddMetaRow("Ward", {{1, "2"}});
    Pick("Seer's Eye");
    MetaUpDownArrows_Up(*sheet);
    MetaRecordButton_Action(*sheet);
    EXPECT_EQ(Row(1, 0, 10), "Seer's Eye|3|3|0|Sees far.|ZPR 8|Ward,2|3/0|1/2|3/6|10");
    EXPECT_EQ(Row(1, 11, 25), "1|0|0|0|0|0|2|0|3|||||1|Beasts");
    ExpectTexts("MetaNameField=|MetaXPCostNewField=|MetaMaxLevelField=|MetaPrerequisiteField=|"
                "StrengthBonus=3|"
                "m_all_bonuses=3,0,0,0,0,0,6,0,9,0,0,0,0,3,0");
    EXPECT_EQ(sheet->m_attributes[0] + sheet->m_attributes[6] + sheet->m_row, -1);
    EXPECT_EQ(sheet->m_bonuspts[5] + sheet->m_altform, "");

    sheet->MetaListBox.SetListIndex(1);
    MetaListBox_DoubleClick(*sheet);
    ExpectTexts(
        "MetaNameField=Seer's Eye|MetaLevelField=3|MetaXPCostNewField=10|"
        "MetaPrerequisiteField=Ward,2|MetaCostPerLevelField=1/2|MetaCostField=3|MetaXPCostField=0|"
        "m_row=1|m_altform=Beasts");
    EXPECT_EQ(sheet->m_attributes[0] * 10 + sheet->m_attributes[6], 12);
    EXPECT_EQ(sheet->m_bonuspts[5], "1");
}

TEST_F(Metaphysics, BonusesAreCutRowByRow) {
    AddMetaRow("A", {{1, "1"}, {11, "0.5"}, {24, "1"}});
    AddMetaRow("--", {});
    AddMetaRow("B", {{1, "1"}, {11, "0.5"}});
    AddMetaRow("C", {{1, "3"}, {12, "1.5"}});
    MetaGetBonus(*sheet);
    ExpectTexts("m_all_bonuses=0,4,0,0,0,0,0,0,0,0,0,0,0,1,0");
}

TEST_F(Metaphysics, RemovingRenewsTheSumsTheButtonAlsoTheTotals) {
    AddMetaRow("A", {{1, "2"}, {11, "1"}, {3, "4"}});
    AddMetaRow("B", {{1, "1"}, {11, "1"}});
    MetaGetBonus(*sheet);
    FigureSecondaryAttributes(*sheet);
    ASSERT_EQ(sheet->StrengthBonus.Text(), "3");
    sheet->MetaListBox.SetListIndex(0);
    MetaListBox_KeyDown(*sheet, "\x08");
    EXPECT_EQ(sheet->m_all_bonuses[0], 1);
    ExpectTexts("StrengthBonus=3|SavedExperienceField=4|SpentExperienceField=-4");
    MetaRemoveButton_Action(*sheet);
    EXPECT_EQ(sheet->m_all_bonuses[0], 0);
    EXPECT_EQ(sheet->StrengthBonus.Text(), "0");
    EXPECT_EQ(sheet->MetaListBox.ListCount(), 0);
}

// Loading and choosing show a broken path's report; changing the type leaves it to the
// application's handler.
TEST_F(Metaphysics, FailuresStandWhereEachListPlacesThem) {
    sheet->QualityPopup.AddRow("Bad 'Name");
    SetTexts("QualityPopup=Bad 'Name|MetaTypePopup=Gifts");
    sheet->MetaPopup.AddRow("Bad \"Name");
    sheet->MetaPopup.SetText("Bad \"Name");
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_NE(platform.Messages()[0].find(
                  "\n At node: //qualities/type[@value='']/name[@value='Bad 'Name']/costs"),
              std::string::npos);
    EXPECT_NE(platform.Messages()[1].find(
                  "At node: //metaphysics/type[@value='Gifts']/name[@value=\"Bad \"Name\"]/costs"),
              std::string::npos);
    EXPECT_EQ(sheet->MetaNameField.Text(), "Bad \"Name") << "what came before the failure stays";
    EXPECT_THROW(sheet->QualityTypePopup.SetText("Devil's"), XmlError);
    EXPECT_THROW(sheet->MetaTypePopup.SetText("Devil's"), XmlError);
}
