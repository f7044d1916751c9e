#include "tools/DiceRoller.h"

#include "text/TextHelpers.h"
#include "tools/RandomSource.h"

namespace zeph {
namespace {

constexpr int kSkillDie = 3;  // "D10", the fourth entry of the die list

// What a further roll after a first 1 takes from the total, and after a first 10 adds.
int penaltyAfterOne(int roll) {
    switch (roll) {
        case 1:
            return 5;
        case 2:
            return 3;
        case 3:
            return 2;
        case 4:
            return 1;
        default:
            return 0;
    }
}

int bonusAfterTen(int roll) { return roll >= 6 ? roll - 5 : 0; }

}  // namespace

std::vector<std::string> DiceWindow::numbers(int first) {
    std::vector<std::string> rows;
    for (int n = first; n <= 20; ++n) rows.push_back(Str(n));
    return rows;
}

DiceWindow::DiceWindow(RandomSource& random) : ToolModel("Die Roller", 420, 360), random_(random) {
    DiePopup.SetListIndex(0);
    AddCombo.SetListIndex(0);
    MultiplierCombo.SetListIndex(0);
    ArmorAddCombo.SetListIndex(0);
    // A box set to another state, by a click or by the other box's operation, runs its own.
    SkillRollCheckBox.Observe([this](ItemChange change) {
        if (change == ItemChange::Text) SkillRollCheckBox_Action();
    });
    ArmorRollCheckBox.Observe([this](ItemChange change) {
        if (change == ItemChange::Text) ArmorRollCheckBox_Action();
    });
    AddOperation("RollButton_Action", [this](const std::string&) { RollButton_Action(); });
    AddOperation("ClearButton_Action", [this](const std::string&) { ClearButton_Action(); });
    AddOperation("SkillRollCheckBox_Action",
                 [this](const std::string&) { SkillRollCheckBox_Action(); });
    AddOperation("ArmorRollCheckBox_Action",
                 [this](const std::string&) { ArmorRollCheckBox_Action(); });
    AddOperation("_FileClose_Action", [this](const std::string&) { Close(); });
}

void DiceWindow::SkillRollCheckBox_Action() {
    if (SkillRollCheckBox.Value()) {
        ArmorRollCheckBox.SetValue(false);
        MultText.SetVisible(false);
        MultiplierCombo.SetVisible(false);
        DiePopup.SetListIndex(kSkillDie);
        DiePopup.SetEnabled(false);
    } else {
        MultText.SetVisible(true);
        MultiplierCombo.SetVisible(true);
        DiePopup.SetEnabled(true);
    }
}

void DiceWindow::ArmorRollCheckBox_Action() {
    const bool armor = ArmorRollCheckBox.Value();
    SkillRollCheckBox.SetValue(false);
    MultText.SetVisible(true);
    MultiplierCombo.SetVisible(true);
    DiePopup.SetEnabled(true);
    RightBracketText.SetVisible(armor);
    LeftBracketText.SetVisible(armor);
    SecondAddText.SetVisible(armor);
    ArmorAddCombo.SetVisible(armor);
}

double DiceWindow::ruleOfTen(int first, std::string& line) {
    if (first != 1 && first != 10) return first;
    double total = first;
    int roll = 0;
    do {
        roll = random_.InRange(1, 10);
        line += " Roll: " + Str(roll);
        total += first == 1 ? -penaltyAfterOne(roll) : bonusAfterTen(roll);
    } while (roll == first);
    return total;
}

void DiceWindow::RollButton_Action() {
    const int sides = static_cast<int>(Val(Right(DiePopup.Text(), Len(DiePopup.Text()) - 1)));
    if (sides < 1) return;  // no die chosen
    const int first = random_.InRange(1, sides);
    std::string line = "Roll: " + Str(first);
    if (SkillRollCheckBox.Value()) {
        line += " Total: " + Str(ruleOfTen(first, line) + CDbl(AddCombo.Text()));
    } else {
        double total = (first + CDbl(AddCombo.Text())) * CDbl(MultiplierCombo.Text());
        if (ArmorAddCombo.Visible()) total += CDbl(ArmorAddCombo.Text());
        line += " Total: " + Str(static_cast<double>(Whole(total)));
    }
    line += "\n";
    EditField1.SetText(line + "\n" + EditField1.Text());
}

void DiceWindow::ClearButton_Action() { EditField1.SetText(""); }

}  // namespace zeph
