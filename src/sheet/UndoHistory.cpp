#include "sheet/UndoHistory.h"

#include <algorithm>

#include "sheet/CharacterSheet.h"

namespace zeph {

struct UndoHistory::Step {
    std::string name;
    std::string typingInto;
    std::vector<std::pair<Item*, std::unique_ptr<Item::Kept>>> items;
    SheetWorkingState state;
    // A step that left the saved mark on (a row chosen) does not move it when taken back.
    bool keptSaved;
};

UndoHistory::UndoHistory(ItemRegistry& items, SheetWorkingState& state, bool& savedChar)
    : items_(items), state_(state), savedChar_(savedChar) {
    items_.WatchChanges([this](Item& item) { touched(item); });
}

UndoHistory::~UndoHistory() { items_.WatchChanges(nullptr); }

void UndoHistory::Begin(const std::string& name, const std::string& typingInto) {
    if (depth_++ > 0) return;
    noteSaved();
    const bool goesOn = typing_ && !typingInto.empty() && !done_.empty() &&
                        done_.back()->typingInto == typingInto &&
                        savedAt_ != done_.size();
    if (goesOn) {
        open_ = std::move(done_.back());
        done_.pop_back();
        return;
    }
    open_ = std::make_unique<Step>(Step{name, typingInto, {}, state_, savedChar_});
}

void UndoHistory::End() {
    if (depth_ == 0 || --depth_ > 0) return;
    std::unique_ptr<Step> step = std::move(open_);
    typing_ = !step->typingInto.empty();
    if (step->items.empty() && step->state == state_) return;
    step->keptSaved = step->keptSaved && savedChar_;
    if (savedAt_ > done_.size()) savedAt_.reset();
    undone_.clear();
    done_.push_back(std::move(step));
    if (done_.size() > kDepth) {
        done_.pop_front();
        if (savedAt_) savedAt_ = *savedAt_ > 0 ? std::optional(*savedAt_ - 1) : std::nullopt;
    }
}

void UndoHistory::touched(Item& item) {
    if (!open_ || items_.replaying) return;
    const auto kept = std::ranges::find(open_->items, &item, &decltype(open_->items)::value_type::first);
    if (kept == open_->items.end()) open_->items.emplace_back(&item, item.Keep());
}

std::string UndoHistory::UndoName() const { return done_.empty() ? "" : done_.back()->name; }

std::string UndoHistory::RedoName() const { return undone_.empty() ? "" : undone_.back()->name; }

bool UndoHistory::Undo() { return takeStep(done_, undone_); }

bool UndoHistory::Redo() { return takeStep(undone_, done_); }

bool UndoHistory::takeStep(Steps& from, Steps& to) {
    if (depth_ > 0 || from.empty()) return false;
    noteSaved();
    std::unique_ptr<Step> step = std::move(from.back());
    from.pop_back();
    trade(*step);
    const bool keptSaved = step->keptSaved;
    to.push_back(std::move(step));
    if (keptSaved && savedChar_) savedAt_ = done_.size();
    savedChar_ = savedAt_ == done_.size();
    return true;
}

void UndoHistory::Clear() {
    done_.clear();
    undone_.clear();
    open_.reset();
    depth_ = 0;
    typing_ = false;
    savedAt_.reset();
}

void UndoHistory::trade(Step& step) {
    typing_ = false;
    const bool wasReplaying = std::exchange(items_.replaying, true);
    // Backwards, as the changes were made, so views hear of them in a sensible order.
    for (auto it = step.items.rbegin(); it != step.items.rend(); ++it) it->first->Trade(*it->second);
    std::swap(step.state, state_);
    items_.replaying = wasReplaying;
}

void UndoHistory::noteSaved() {
    if (savedChar_) savedAt_ = done_.size();
}

}  // namespace zeph
