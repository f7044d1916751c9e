#include "sheet/FigureTerms.h"

#include <algorithm>
#include <utility>

#include "sheet/Item.h"
#include "text/TextHelpers.h"

namespace zeph {

Figure& Figure::record(TermJoin join, std::string label, double value) {
    terms_.push_back({join, std::move(label), value, 0});
    return *this;
}

Figure& Figure::Plus(std::string label, double value) {
    value_ += value;
    return record(TermJoin::Plus, std::move(label), value);
}

Figure& Figure::PlusBonus(std::string_view label, double value) {
    // Adding 0 changes nothing, and a list of every quality that gives nothing tells nothing.
    if (value == 0) return *this;
    return Plus(std::string(label), value);
}

Figure& Figure::PlusCut(std::string_view label, double amount) {
    const double before = value_;
    value_ = static_cast<double>(Whole(value_ + amount));
    if (value_ == before) return *this;
    return record(TermJoin::Plus, std::string(label), value_ - before);
}

Figure& Figure::PlusSum(std::string label, double value, Figure parts) {
    if (value == 0 && parts.terms_.empty()) return *this;
    Plus(std::move(label), value);
    for (FigureTerm& part : parts.terms_) {
        ++part.depth;
        terms_.push_back(std::move(part));
    }
    return *this;
}

Figure& Figure::Times(std::string label, double factor) {
    value_ *= factor;
    return record(TermJoin::Times, std::move(label), factor);
}

Figure& Figure::DividedRounded(std::string label, double divisor) {
    value_ = Round(value_ / divisor);
    return record(TermJoin::DividedRounded, std::move(label), divisor);
}

Figure& Figure::Over(std::string label, double budget) {
    value_ = budget;
    return record(TermJoin::Over, std::move(label), budget);
}

void FigureTerms::Write(TextItem& item, Figure figure) {
    const double value = figure.Value();
    Write(item, Str(value), std::move(figure));
}

void FigureTerms::Write(TextItem& item, std::string text, Figure figure) {
    item.SetText(text);
    records_.push_back({item.Name(), std::move(text), std::move(figure).TakeTerms()});
}

const FigureTerms::Record* FigureTerms::Find(const std::string& item) const {
    // The last of one name wins: an item written twice in a run shows its final figure.
    auto found = std::find_if(records_.rbegin(), records_.rend(),
                              [&](const Record& record) { return record.item == item; });
    return found == records_.rend() ? nullptr : &*found;
}

namespace {

std::string termLine(const FigureTerm& term, bool first) {
    const std::string named = term.label.empty() ? "" : term.label + " ";
    if (term.depth > 0 || first) return named + Str(term.value);
    switch (term.join) {
        case TermJoin::Times:
            return "x " + named + Str(term.value);
        case TermJoin::DividedRounded:
            return "/ " + named + Str(term.value) + ", rounded";
        case TermJoin::Over:
            return "out of " + named + Str(term.value);
        case TermJoin::Plus:
            break;
    }
    return term.value < 0 ? "- " + named + Str(-term.value) : "+ " + named + Str(term.value);
}

// A figure's terms, and beneath a term named after another figure, that figure's terms.
void explainTerms(const FigureTerms& figures, const FigureTerms::Record& record,
                  const std::string& indent, int nesting, std::string& out) {
    for (std::size_t i = 0; i < record.terms.size(); ++i) {
        const FigureTerm& term = record.terms[i];
        out += indent + std::string(static_cast<std::size_t>(term.depth) * 2, ' ') +
               termLine(term, i == 0) + "\n";
        const FigureTerms::Record* inner = term.depth == 0 ? figures.Find(term.label) : nullptr;
        // Two levels are all the sheet has (a total, its bonus); more would be a loop.
        if (inner != nullptr && inner != &record && nesting < 2)
            explainTerms(figures, *inner, indent + "    ", nesting + 1, out);
    }
}

}  // namespace

std::string ExplainFigure(const FigureTerms& figures, const std::string& item,
                          const std::string& shownNow) {
    const FigureTerms::Record* record = figures.Find(item);
    if (record == nullptr) return item + " has no figure from the last recomputation\n";
    std::string out = item + " = " + record->shown + "\n";
    if (record->terms.empty()) out += "  nothing adds to it\n";
    explainTerms(figures, *record, "  ", 0, out);
    if (shownNow != record->shown)
        out += "  (it shows " + shownNow + " now: changed since the last recomputation)\n";
    return out;
}

}  // namespace zeph
