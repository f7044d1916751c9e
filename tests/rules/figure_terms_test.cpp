#include <tuple>

#include "rules/Metaphysics.h"
#include "rules/SecondaryAttributes.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

namespace {

// The figure as its terms form it, read as the explanation reads them: each term joins the
// value so far; "out of" starts the budget of "used/budget".
std::string formed(const std::vector<FigureTerm>& terms) {
    double value = 0, used = 0;
    bool budget = false;
    for (const FigureTerm& term : terms) {
        if (term.depth > 0) continue;
        if (term.join == TermJoin::Plus) value += term.value;
        if (term.join == TermJoin::Times) value *= term.value;
        if (term.join == TermJoin::DividedRounded) value = Round(value / term.value);
        if (term.join == TermJoin::Over)
            std::tie(used, value, budget) = std::tuple(value, term.value, true);
    }
    return budget ? Str(used) + "/" + Str(value) : Str(value);
}

// Each term with parts beneath it is their sum.
void expectPartsAddUp(const std::vector<FigureTerm>& terms, const std::string& item) {
    for (std::size_t i = 0; i < terms.size(); ++i) {
        double parts = 0;
        std::size_t next = i + 1;
        for (; next < terms.size() && terms[next].depth > terms[i].depth; ++next)
            if (terms[next].depth == terms[i].depth + 1) parts += terms[next].value;
        if (next > i + 1) {
            EXPECT_EQ(parts, terms[i].value) << item << ": " << terms[i].label;
        }
    }
}

}  // namespace

// For each way through the recomputation, the terms of each figure form the number the item
// shows, the sums add up, and the explanation names who gave a bonus.
TEST_F(SheetTest, EveryFigureIsFormedByTheTermsItRecords) {
    const struct {
        const char *type, *choice;
        std::vector<const char*> figures;
        const char *named, *bonus;  // in the explanation of `named`
    } branches[] = {
        // clang-format off
        {"", "", {"StrengthTotal", "LifePointsTotal", "EnduranceTotal", "SpeedTotal", "EssenceTotal"},
         "LifePointsTotal", "Hard to Kill 6"},
        {"Human", "Slow", {"SpeedBonus", "SpeedTotal"}, "SpeedTotal", "Quick Step 2"},
        {"Gifted", "Vital", {"DPField", "LifePointsTotal", "EssenceTotal", "EssenceBonus"}, "EssenceTotal", "Inner Well 3"},
        {"Gifted", "Vital", {"DPField"}, "DPField", "Gifted (Vital) drama points 20"},
        {"Human", "Survivor", {"StrengthBonus", "StrengthTotal", "LifePointsTotal", "MetaField", "SkillField",
                               "AttributeField", "QualityField"}, "StrengthTotal", "Shapechanger (Wolf) 2"},
        {"Human", "Fast", {"EssenceBonus", "SpeedBonus", "SkillField"}, "SkillField", "Keen Mind 8"},
        // clang-format on
    };
    for (const auto& branch : branches) {
        UseSmallRules();
        SetFields({"3", "2", "4", "2", "3", "2"});
        AddQualityRow("Hard to Kill", {{1, "2"}, {23, "3"}, {22, "1.5"}});
        AddQualityRow("Shapechanger (Wolf)", {{1, "1"}, {11, "2"}, {19, "Mental&&1"}});
        AddQualityRow("Inner Well", {{1, "1"}, {22, "3.5"}});  // cut to 3
        AddQualityRow("Keen Mind", {{1, "2"}, {17, "Intelligence&&2"}});
        AddMetaRow("Quick Step", {{1, "2"}, {22, "1"}});
        MetaGetBonus(*sheet);
        sheet->OptionalSkillPointBox.SetValue(std::string(branch.choice) == "Fast");
        sheet->CharacterTypePopup.SetText(branch.type);
        sheet->ChooseCharPopup.SetText(branch.choice);
        FigureSecondaryAttributes(*sheet);
        const FigureTerms& figures = sheet->figureTerms;
        for (const char* figure : branch.figures) {
            const std::vector<FigureTerm> terms = figures.Terms(figure);
            ASSERT_FALSE(terms.empty()) << branch.choice << " " << figure;
            EXPECT_EQ(formed(terms), ItemText(*sheet->Items().Find(figure)))
                << branch.choice << " " << figure;
            expectPartsAddUp(terms, figure);
        }
        const std::string named = ItemText(*sheet->Items().Find(branch.named));
        EXPECT_NE(ExplainFigure(figures, branch.named, named).find(branch.bonus), std::string::npos)
            << ExplainFigure(figures, branch.named, named);
    }
    // A term of nothing is told as added, not as taken away.
    const std::string life = ExplainFigure(sheet->figureTerms, "LifePointsTotal", "");
    EXPECT_NE(life.find("+ life adder 0\n"), std::string::npos) << life;
    // A total tells its bonus's own terms beneath it.
    EXPECT_NE(life.find("\n        Hard to Kill 6\n"), std::string::npos) << life;
}
