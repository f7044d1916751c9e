#include "sheet/FigureTerms.h"

#include <algorithm>

#include "sheet/Item.h"
#include "text/TextHelpers.h"

namespace zeph {

void FigureTerms::Clear(const ListItem& rows) {
    slotsUsed_ = 0;
    recordsUsed_ = 0;
    rowNames_.resize(static_cast<std::size_t>(rows.ListCount()));
    // A run mostly finds the names of the run before.
    for (int row = 0; row < rows.ListCount(); ++row) {
        std::string& name = rowNames_[static_cast<std::size_t>(row)];
        if (name != rows.Cell(row, 0)) name = rows.Cell(row, 0);
    }
}

int FigureTerms::add(TermJoin join, TermLabel label, double value) {
    if (slotsUsed_ == static_cast<int>(slots_.size())) slots_.emplace_back();
    Slot& slot = slots_[static_cast<std::size_t>(slotsUsed_)];
    slot.join = join;
    slot.row = label.row;
    if (label.row < 0 && slot.label != label.text) slot.label.assign(label.text);
    slot.value = value;
    slot.next = -1;
    slot.firstPart = -1;
    return slotsUsed_++;
}

std::string_view FigureTerms::labelOf(const Slot& slot) const {
    if (slot.row < 0) return slot.label;
    const auto row = static_cast<std::size_t>(slot.row);
    return row < rowNames_.size() ? std::string_view(rowNames_[row]) : std::string_view();
}

// Copies a chain of terms with their parts from `from`, which may be these terms themselves.
int FigureTerms::copy(const FigureTerms& from, int first) {
    int head = -1, last = -1;
    for (int i = first; i >= 0; i = from.slots_[static_cast<std::size_t>(i)].next) {
        // A copy: adding may move the slots, `from`'s too when they are these.
        const Slot source = from.slots_[static_cast<std::size_t>(i)];
        const int term = add(source.join, from.labelOf(source), source.value);
        if (source.firstPart >= 0)
            slots_[static_cast<std::size_t>(term)].firstPart = copy(from, source.firstPart);
        if (last >= 0)
            slots_[static_cast<std::size_t>(last)].next = term;
        else
            head = term;
        last = term;
    }
    return head;
}

void FigureTerms::Write(TextItem& item, const Figure& figure) {
    Write(item, Str(figure.Value()), figure);
}

void FigureTerms::Write(TextItem& item, const std::string& text, const Figure& figure) {
    item.SetText(text);
    if (recordsUsed_ == static_cast<int>(records_.size())) records_.emplace_back();
    Record& record = records_[static_cast<std::size_t>(recordsUsed_++)];
    record.item = &item;
    record.shown.assign(text);
    record.first = figure.first_;
}

const FigureTerms::Record* FigureTerms::find(const std::string& item) const {
    // The last of one name: an item written twice in a run shows its final figure.
    for (int i = recordsUsed_ - 1; i >= 0; --i)
        if (records_[static_cast<std::size_t>(i)].item->Name() == item)
            return &records_[static_cast<std::size_t>(i)];
    return nullptr;
}

const std::string* FigureTerms::Shown(const std::string& item) const {
    const Record* record = find(item);
    return record ? &record->shown : nullptr;
}

void FigureTerms::flatten(int first, int depth, std::vector<FigureTerm>& out) const {
    for (int i = first; i >= 0; i = slots_[static_cast<std::size_t>(i)].next) {
        const Slot& slot = slots_[static_cast<std::size_t>(i)];
        out.push_back({slot.join, std::string(labelOf(slot)), slot.value, depth});
        flatten(slot.firstPart, depth + 1, out);
    }
}

std::vector<FigureTerm> FigureTerms::Terms(const std::string& item) const {
    std::vector<FigureTerm> terms;
    if (const Record* record = find(item)) flatten(record->first, 0, terms);
    return terms;
}

Figure Figure::Copy() const {
    Figure copy(*terms_);
    copy.value_ = value_;
    copy.first_ = terms_->copy(*terms_, first_);
    for (copy.last_ = copy.first_;
         copy.last_ >= 0 && terms_->slots_[static_cast<std::size_t>(copy.last_)].next >= 0;
         copy.last_ = terms_->slots_[static_cast<std::size_t>(copy.last_)].next) {
    }
    return copy;
}

Figure& Figure::append(TermJoin join, TermLabel label, double value) {
    const int term = terms_->add(join, label, value);
    if (last_ >= 0)
        terms_->slots_[static_cast<std::size_t>(last_)].next = term;
    else
        first_ = term;
    last_ = term;
    return *this;
}

Figure& Figure::Plus(TermLabel label, double value) {
    value_ += value;
    return append(TermJoin::Plus, label, value);
}

Figure& Figure::plusCut(TermLabel label, double amount) {
    const double before = value_;
    value_ = static_cast<double>(Whole(value_ + amount));
    if (value_ == before) return *this;
    return append(TermJoin::Plus, label, value_ - before);
}

Figure& Figure::PlusSum(TermLabel label, double value, const Figure& parts) {
    if (value == 0 && parts.first_ < 0) return *this;
    Plus(label, value);
    // Parts of these same terms are linked in place; those kept elsewhere are copied in.
    const int first =
        parts.terms_ == terms_ ? parts.first_ : terms_->copy(*parts.terms_, parts.first_);
    terms_->slots_[static_cast<std::size_t>(last_)].firstPart = first;
    return *this;
}

Figure& Figure::Times(TermLabel label, double factor) {
    value_ *= factor;
    return append(TermJoin::Times, label, factor);
}

Figure& Figure::DividedRounded(TermLabel label, double divisor) {
    value_ = Round(value_ / divisor);
    return append(TermJoin::DividedRounded, label, divisor);
}

Figure& Figure::Over(TermLabel label, double budget) {
    value_ = budget;
    return append(TermJoin::Over, label, budget);
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
void explainTerms(const FigureTerms& figures, const std::string& item, const std::string& indent,
                  int nesting, std::string& out) {
    const std::vector<FigureTerm> terms = figures.Terms(item);
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const FigureTerm& term = terms[i];
        out += indent + std::string(static_cast<std::size_t>(term.depth) * 2, ' ') +
               termLine(term, i == 0) + "\n";
        // A total reads its bonus, no deeper: two levels are all the sheet has.
        if (term.depth == 0 && nesting == 0 && term.label != item &&
            figures.Shown(term.label) != nullptr)
            explainTerms(figures, term.label, indent + "    ", nesting + 1, out);
    }
}

}  // namespace

std::string ExplainFigure(const FigureTerms& figures, const std::string& item,
                          const std::string& shownNow) {
    const std::string* shown = figures.Shown(item);
    if (shown == nullptr) return item + " has no figure from the last recomputation\n";
    std::string out = item + " = " + *shown + "\n";
    if (figures.Terms(item).empty()) out += "  nothing adds to it\n";
    explainTerms(figures, item, "  ", 0, out);
    if (shownNow != *shown)
        out += "  (it shows " + shownNow + " now: changed since the last recomputation)\n";
    return out;
}

}  // namespace zeph
