// The dice roller's window: the formula row of labels and combos, the two mode boxes, the
// buttons and the log.
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/ToolView.h"
#include "tools/DiceRoller.h"

namespace zeph::gui {

ToolView* ShowDiceView(RandomSource& random, const MenuSources& menus) {
    auto* view = new ToolView(std::make_unique<DiceWindow>(random), menus);
    // (die + add) x multiplier, in brackets plus the second addend in armor mode.
    auto* formula = new QHBoxLayout;
    for (const char* item :
         {"LeftBracketText", "LeftParenText", "DiePopup", "PlusText", "AddCombo", "RightParenText",
          "MultText", "MultiplierCombo", "RightBracketText", "SecondAddText", "ArmorAddCombo"}) {
        QWidget* widget = view->Bind(item);
        if (auto* combo = qobject_cast<QComboBox*>(widget)) combo->setFixedWidth(70);
        formula->addWidget(widget);
    }
    formula->addStretch(1);
    auto* modes = new QHBoxLayout;
    modes->addWidget(view->Bind("SkillRollCheckBox", "Skill Roll"));
    modes->addWidget(view->Bind("ArmorRollCheckBox", "Armor Roll"));
    modes->addStretch(1);
    modes->addWidget(view->Button("Clear", "ClearButton_Action"));
    modes->addWidget(view->Button("Roll!", "RollButton_Action", true));
    auto* layout = new QVBoxLayout;
    layout->addWidget(new QLabel("Die to roll:"));
    layout->addLayout(formula);
    layout->addLayout(modes);
    layout->addWidget(view->Bind("EditField1"), 1);
    view->Finish(layout);
    return view;
}

}  // namespace zeph::gui
