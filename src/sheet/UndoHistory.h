// The steps of a sheet that the user can take back and do again. A step is one thing the user
// does (a record, a removal, a choice, a field typed into); while it runs, the first change of
// each item sets aside what the item held, and the properties a step changes are set aside at
// its start. Taking a step back trades those for what the sheet holds now, so the same record
// does it again.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "sheet/Item.h"

namespace zeph {

struct SheetWorkingState;

class UndoHistory {
public:
    static constexpr std::size_t kDepth = 200;

    // `savedChar` is the sheet's saved mark, which follows the steps taken back and done again.
    UndoHistory(ItemRegistry& items, SheetWorkingState& state, bool& savedChar);
    ~UndoHistory();
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    // Opens a step named for the Edit menu ("Record Quality"); what changes until the matching
    // End is one step. A step begun inside another is part of it. Typing into a field goes on
    // as one step, `typingInto` that field, until EndTyping or another step.
    void Begin(const std::string& name, const std::string& typingInto = "");
    void End();
    void EndTyping() { typing_ = false; }

    // The names of the steps that Undo and Redo would take; empty when there is none.
    std::string UndoName() const;
    std::string RedoName() const;
    // False when there is nothing to take back or do again.
    bool Undo();
    bool Redo();
    // Forgets every step: the sheet holds another character, or the one on disk again.
    void Clear();

private:
    struct Step;
    using Steps = std::deque<std::unique_ptr<Step>>;
    void touched(Item& item);
    // Takes the last step of `from` to `to`, trading it with the sheet; the saved mark then says
    // whether the sheet stands where it was saved.
    bool takeStep(Steps& from, Steps& to);
    // Trades what the step set aside for what the sheet holds.
    void trade(Step& step);
    // The saved mark's place among the steps, when the sheet is as saved now.
    void noteSaved();

    ItemRegistry& items_;
    SheetWorkingState& state_;
    bool& savedChar_;
    Steps done_;
    Steps undone_;
    std::unique_ptr<Step> open_;
    int depth_ = 0;
    bool typing_ = false;
    // How many steps are done when the sheet is as saved; none when no place is.
    std::optional<std::size_t> savedAt_;
};

}  // namespace zeph
