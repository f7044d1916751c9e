// The dice roller: one die in plain mode (with an addend and a multiplier), as a skill roll
// with the rule of ten, or as an armor roll with a second addend; a log, newest first.
#pragma once

#include <string>
#include <vector>

#include "tools/ToolModel.h"

namespace zeph {

class RandomSource;

class DiceWindow : public ToolModel {
  public:
    explicit DiceWindow(RandomSource& random);

    void RollButton_Action();
    void ClearButton_Action();
    void SkillRollCheckBox_Action();
    void ArmorRollCheckBox_Action();

    ComboItem DiePopup{
        items_, "DiePopup", ItemKind::Choice, {"D4", "D6", "D8", "D10", "D12", "D20"}};
    ComboItem AddCombo{items_, "AddCombo", ItemKind::Combo, numbers(0)};
    ComboItem MultiplierCombo{items_, "MultiplierCombo", ItemKind::Combo, numbers(1)};
    ComboItem ArmorAddCombo{items_, "ArmorAddCombo", ItemKind::Combo, numbers(0), false};
    FlagItem SkillRollCheckBox{items_, "SkillRollCheckBox", false};
    FlagItem ArmorRollCheckBox{items_, "ArmorRollCheckBox", false};
    // The log, which the user may edit too.
    TextItem EditField1{items_, "EditField1", ItemKind::Styled};
    // The formula's labels: (die + add) x multiplier, in armor mode [ ... ] + second addend.
    TextItem LeftParenText{items_, "LeftParenText", ItemKind::Label, "("};
    TextItem PlusText{items_, "PlusText", ItemKind::Label, "+"};
    TextItem RightParenText{items_, "RightParenText", ItemKind::Label, ")"};
    TextItem MultText{items_, "MultText", ItemKind::Label, "x"};
    TextItem LeftBracketText{items_, "LeftBracketText", ItemKind::Label, "[", false};
    TextItem RightBracketText{items_, "RightBracketText", ItemKind::Label, "]", false};
    TextItem SecondAddText{items_, "SecondAddText", ItemKind::Label, "+", false};

  private:
    // "0" to "20" for the combos' rows.
    static std::vector<std::string> numbers(int first);
    // The rule of ten's total for a skill roll that showed `first`; the extra rolls go on
    // the line.
    double ruleOfTen(int first, std::string& line);

    RandomSource& random_;
};

}  // namespace zeph
