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
};

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

TEST_F(Metaphysics, PrerequisitesWithAlternativesJudgedAsTheyStand) {
    const struct { const char* text; std::vector<std::pair<const char*, const char*>> rows; bool met; } cases[] = {
        {"Ward,2", {{"Ward", "2"}}, true},
        {"Ward,2", {{"ward", "1"}}, false},
        {"A,1&&B,1", {{"A", "1"}}, false},
        {"A,1&&B,1", {{"a", "1"}, {"B", "3"}}, true},
        {"", {}, true},
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

TEST_F(Metaphysics, BonusesAreCutRowByRow) {
    AddMetaRow("A", {{1, "1"}, {11, "0.5"}, {24, "1"}, {25, "2 Beasts"}});  // the form's type adds nothing
    AddMetaRow("--", {});
    AddMetaRow("B", {{1, "1"}, {11, "0.5"}});
    AddMetaRow("C", {{1, "3"}, {12, "1.5"}});
    MetaGetBonus(*sheet);
    ExpectTexts("m_all_bonuses=0,4,0,0,0,0,0,0,0,0,0,0,0,1,0");
}
