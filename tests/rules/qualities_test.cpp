#include "rules/Qualities.h"

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
    std::string Row(int row, int from, int to) { return Cells(sheet->QualityListBox, row, from, to); }
};

// The pool markers a recorded name sets in columns 10 and 26; the prerequisites' line ends go.
TEST_F(Qualities, RecordingMarksThePoolsByName) {
    const struct { const char *name, *markers; } cases[] = {{"Essence Channeling", "Essence Channeling/"},
                 {"Sadicas Gift", "Sadicas Gift/"},
                 {"taint", "Taint Channeling/5"},
                 {"TAINT CHANNELING", "Taint Channeling/"},
                 {"Adept", "Adept/"},
                 {"Taint Pool Reserve", "/5"}};
    AddQualityRow("Keen Eye", {{1, "1"}});
    for (const auto& c : cases) {
        Pick("Nameless");
        sheet->QualityNameField.SetText(c.name);
        sheet->QualityPrerequisiteField.SetText("Keen Eye,0\r\n");
        QualityRecordButton_Action(*sheet);
        const int row = sheet->QualityListBox.LastIndex();
        EXPECT_EQ(Row(row, 10, 10) + "/" + Row(row, 26, 26), c.markers) << c.name;
    }
    EXPECT_EQ(Row(1, 6, 6), "Keen Eye,0 ") << "a line end becomes one blank";
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
