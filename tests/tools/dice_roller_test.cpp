// The dice roller with decided draws: the rule of ten, the three modes, the boxes' interplay.
#include <gtest/gtest.h>

#include "tools/DiceRoller.h"
#include "tools/RandomSource.h"

namespace zeph {
namespace {

TEST(DiceWindow, LogsEachRollByTheRulesOfItsMode) {
    const struct { const char *name, *mode, *die, *add, *multiplier; std::vector<int> draws; const char* line; } cases[] = {
        {"Plain", "plain", "D4", "3", "1", {4}, "Roll: 4 Total: 7"},
        {"PlainMultiplied", "plain", "D20", "2", "3", {20}, "Roll: 20 Total: 66"},
        {"PlainFractionDropped", "plain", "D6", "1.5", "1", {2}, "Roll: 2 Total: 3"},
        {"EmptyAddCountsZero", "plain", "D8", "", "2", {5}, "Roll: 5 Total: 10"},
        {"EmptyMultiplier", "plain", "D12", "4", "", {12}, "Roll: 12 Total: 0"},
        {"Armor", "armor", "D4", "1", "2", {4}, "Roll: 4 Total: 13"},
        {"TensChain", "skill", "", "3", "5", {10, 10, 7}, "Roll: 10 Roll: 10 Roll: 7 Total: 20"},
        {"TenThenSix", "skill", "", "0", "1", {10, 6}, "Roll: 10 Roll: 6 Total: 11"},
        {"TenThenFive", "skill", "", "0", "1", {10, 5}, "Roll: 10 Roll: 5 Total: 10"},
        {"OnesChain", "skill", "", "0", "1", {1, 1, 3}, "Roll: 1 Roll: 1 Roll: 3 Total: -6"},
        {"OneThenFour", "skill", "", "2", "1", {1, 4}, "Roll: 1 Roll: 4 Total: 2"},
        {"OneThenFive", "skill", "", "0", "1", {1, 5}, "Roll: 1 Roll: 5 Total: 1"},
        {"SkillFraction", "skill", "", "0.5", "1", {7}, "Roll: 7 Total: 7.5"},
    };
    for (const auto& c : cases) {
        QueuedRandom random;
        for (int draw : c.draws) random.Queue(draw);
        DiceWindow dice(random);
        dice.SkillRollCheckBox.SetValue(std::string(c.mode) == "skill");
        dice.ArmorRollCheckBox.SetValue(std::string(c.mode) == "armor");
        dice.ArmorAddCombo.SetText("3");
        if (std::string(c.mode) != "skill") dice.DiePopup.SetText(c.die);
        dice.AddCombo.SetText(c.add);
        dice.MultiplierCombo.SetText(c.multiplier);
        dice.RollButton_Action();  // a draw beyond those queued throws
        EXPECT_EQ(dice.EditField1.Text(), std::string(c.line) + "\n\n") << c.name;
    }
}

// The boxes, the die, whether it can be chosen, and which parts of the formula show.
std::string modeShown(const DiceWindow& d) {
    std::string shown = std::to_string(d.SkillRollCheckBox.Value()) +
                        std::to_string(d.ArmorRollCheckBox.Value()) + " " + d.DiePopup.Text() +
                        " " + std::to_string(d.DiePopup.Enabled());
    for (const Item* item : std::initializer_list<const Item*>{
             &d.MultText, &d.MultiplierCombo, &d.LeftBracketText, &d.RightBracketText,
             &d.SecondAddText, &d.ArmorAddCombo})
        shown += std::to_string(item->Visible());
    return shown;
}

TEST(DiceWindow, BoxesSwitchModesAndTheLogGrowsAtTheTop) {
    QueuedRandom random;
    DiceWindow dice(random);
    dice.SkillRollCheckBox.SetValue(true);
    EXPECT_EQ(modeShown(dice), "10 D10 0000000");
    dice.SkillRollCheckBox.SetValue(false);
    EXPECT_EQ(modeShown(dice), "00 D10 1110000");
    dice.ArmorRollCheckBox.SetValue(true);
    EXPECT_EQ(modeShown(dice), "01 D10 1111111");
    // From armor straight to skill: the armor box's operation turns the skill box off again,
    // and the skill box's own operation then ends as it began.
    dice.SkillRollCheckBox.SetValue(true);
    EXPECT_EQ(modeShown(dice), "00 D10 0000000");
    dice.SkillRollCheckBox.SetValue(false);  // no change of state: nothing runs
    EXPECT_EQ(modeShown(dice), "00 D10 0000000");

    for (int draw : {3, 8}) random.Queue(draw);
    dice.RollButton_Action();
    dice.RollButton_Action();
    EXPECT_EQ(dice.EditField1.Text(), "Roll: 8 Total: 8\n\nRoll: 3 Total: 3\n\n");
    dice.ClearButton_Action();
    EXPECT_EQ(dice.EditField1.Text(), "");
    random.Queue(11);  // more than the die has: the script is told
    EXPECT_THROW(dice.RollButton_Action(), std::runtime_error);
}

}  // namespace
}  // namespace zeph
