#include <gtest/gtest.h>

#include "rules/QualityBonuses.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

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
