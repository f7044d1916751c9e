// Where the figures of the sheet come from: the recomputation forms each total, bonus and
// budget term by term through a Figure, which records every term as it uses it, so that the
// record can never tell another story than the figure it made.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zeph {

class TextItem;

// How a term joins the value of the terms before it.
enum class TermJoin { Plus, Times, DividedRounded, Over };

struct FigureTerm {
    TermJoin join = TermJoin::Plus;
    std::string label;
    double value = 0;
    // 0 for the figure's own terms; a deeper term is a part of the nearest shallower one above.
    int depth = 0;
};

class Figure {
  public:
    // A term that shows even at 0: the figure's starting point or one of its operands.
    Figure& Plus(std::string label, double value);
    // A bonus, named by what gives it: shows only when it gives something.
    Figure& PlusBonus(std::string_view label, double value);
    // Adds to a whole-number sum that is cut back at once, so fractions are lost term by term;
    // the term shows what the cut sum gained, when it gained something.
    Figure& PlusCut(std::string_view label, double amount);
    // A sum told by its parts beneath it; shows when it or one of its parts is not 0.
    Figure& PlusSum(std::string label, double value, Figure parts);
    Figure& Times(std::string label, double factor);
    Figure& DividedRounded(std::string label, double divisor);
    // A budget "used/budget": the terms before it gave what is used, the budget starts here.
    Figure& Over(std::string label, double budget);

    double Value() const { return value_; }
    const std::vector<FigureTerm>& Terms() const { return terms_; }
    std::vector<FigureTerm> TakeTerms() && { return std::move(terms_); }

  private:
    Figure& record(TermJoin join, std::string label, double value);

    double value_ = 0;
    std::vector<FigureTerm> terms_;
};

// The figures of the last recomputation, by item name, each with the text it gave its item.
class FigureTerms {
  public:
    struct Record {
        std::string item;
        std::string shown;
        std::vector<FigureTerm> terms;
    };

    void Clear() { records_.clear(); }
    // Gives the item the figure's value as a number, and keeps the figure's terms.
    void Write(TextItem& item, Figure figure);
    // Gives the item a text that the figure formed, such as a budget's "used/budget".
    void Write(TextItem& item, std::string text, Figure figure);
    const Record* Find(const std::string& item) const;

  private:
    std::vector<Record> records_;  // a few dozen: a walk finds one faster than a map
};

// The figure of an item, one term a line: "LifePointsTotal = 41", then "  Strength 3",
// "  + Constitution 4", "  x multiplier 4"... A term named after another figure is followed
// by that figure's terms. `shownNow` is the item's text, told when it changed since.
std::string ExplainFigure(const FigureTerms& figures, const std::string& item,
                          const std::string& shownNow);

}  // namespace zeph
