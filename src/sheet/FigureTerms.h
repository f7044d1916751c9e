// Where the figures of the sheet come from: the recomputation forms each total, bonus and
// budget term by term through a Figure, which records every term as it uses it, so that the
// record can never tell another story than the figure it made.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zeph {

class Figure;
class ListItem;
class TextItem;

// How a term joins the value of the terms before it.
enum class TermJoin { Plus, Times, DividedRounded, Over };

// A term given by a row of the list whose names the run took (qualities, metaphysics): the
// name is taken once a run, not once for each of the row's many bonuses.
struct ListRow {
    int index;
};

// A term's name: a text, or a row of the list the run named.
struct TermLabel {
    TermLabel(std::string_view name) : text(name) {}
    TermLabel(const char* name) : text(name) {}
    TermLabel(const std::string& name) : text(name) {}
    TermLabel(ListRow given) : row(given.index) {}
    std::string_view text;
    int row = -1;
};

struct FigureTerm {
    TermJoin join = TermJoin::Plus;
    std::string label;
    double value = 0;
    // 0 for the figure's own terms; a deeper term is a part of the nearest shallower one above.
    int depth = 0;
};

// The terms of one run and the figures they made, by item name. The recomputation runs at
// every edit: the terms' slots are kept from run to run and written over, so that recording
// asks for no memory once the sheet has been figured a first time.
class FigureTerms {
  public:
    // Forgets the figures; what follows is a new run, whose rows are those of `rows`, which
    // stay as they are during the run.
    void Clear(const ListItem& rows);
    // Gives the item the figure's value as a number, and keeps the figure's terms.
    void Write(TextItem& item, const Figure& figure);
    // Gives the item a text that the figure formed, such as a budget's "used/budget".
    void Write(TextItem& item, const std::string& text, const Figure& figure);
    // The text the item's figure gave it, or nothing when the run wrote no figure there.
    const std::string* Shown(const std::string& item) const;
    // The item's figure, its terms in order with their parts beneath them.
    std::vector<FigureTerm> Terms(const std::string& item) const;

  private:
    friend class Figure;
    struct Slot {
        TermJoin join;
        std::string label;
        int row;  // the row that names it, or -1 for the label
        double value;
        int next;       // the figure's next term, or -1
        int firstPart;  // the first of its parts, or -1
    };
    struct Record {
        const TextItem* item;
        std::string shown;
        int first;
    };

    int add(TermJoin join, TermLabel label, double value);
    std::string_view labelOf(const Slot& slot) const;
    int copy(const FigureTerms& from, int first);
    const Record* find(const std::string& item) const;
    void flatten(int first, int depth, std::vector<FigureTerm>& out) const;

    std::vector<Slot> slots_;
    std::vector<std::string> rowNames_;
    int slotsUsed_ = 0;
    std::vector<Record> records_;
    int recordsUsed_ = 0;
};

// Builds one figure in the terms of a run: each step changes the value and records the term.
class Figure {
  public:
    explicit Figure(FigureTerms& terms) : terms_(&terms) {}
    // A figure is made once: copying one would have two figures share their terms.
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;
    Figure(Figure&&) = default;
    Figure& operator=(Figure&&) = default;
    // A figure of the same terms, going on from here on its own.
    Figure Copy() const;

    // A term that shows even at 0: the figure's starting point or one of its operands.
    Figure& Plus(TermLabel label, double value);
    // A bonus, named by what gives it: shows only when it gives something.
    Figure& PlusBonus(TermLabel label, double value) {
        // Adding 0 changes nothing, and a list of every row that gives nothing tells nothing.
        return value == 0 ? *this : Plus(label, value);
    }
    // Adds to a whole-number sum that is cut back at once, so fractions are lost term by term;
    // the term shows what the cut sum gained, when it gained something.
    Figure& PlusCut(TermLabel label, double amount) {
        // The sum is whole already: nothing to add is nothing to cut.
        return amount == 0 ? *this : plusCut(label, amount);
    }
    // A sum told by the terms of `parts` beneath it; shows when it or a part is not 0.
    Figure& PlusSum(TermLabel label, double value, const Figure& parts);
    Figure& Times(TermLabel label, double factor);
    Figure& DividedRounded(TermLabel label, double divisor);
    // A budget "used/budget": the terms before it gave what is used, the budget starts here.
    Figure& Over(TermLabel label, double budget);

    double Value() const { return value_; }

  private:
    friend class FigureTerms;
    Figure& append(TermJoin join, TermLabel label, double value);
    Figure& plusCut(TermLabel label, double amount);

    FigureTerms* terms_;
    double value_ = 0;
    int first_ = -1;
    int last_ = -1;
};

// The figure of an item, one term a line: "LifePointsTotal = 41", then "  Strength 3",
// "  + Constitution 4", "  x life multiplier 4"... A term named after another figure of the
// run is followed by that figure's terms. `shownNow` is the item's text, told when it changed
// since.
std::string ExplainFigure(const FigureTerms& figures, const std::string& item,
                          const std::string& shownNow);

}  // namespace zeph
