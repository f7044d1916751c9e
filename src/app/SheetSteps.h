// What the user does to a sheet, as steps that can be taken back: the name each one has in the
// Edit menu, and the running of one.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zeph {

class CharacterSheet;
class Item;

// The step an event operation starts: "QualityRecordButton_Action" is "Record Quality",
// "SkillUpDownArrows1_Up" "Raise Skill Level", "StrengthBonus_MouseDown" "Place Free Point on
// Strength".
std::string StepName(const std::string& operation);
// The step an edit of the item starts: "Typing in Name", "Choose Character Type", "Select
// Quality".
std::string EditStepName(const Item& item);

// Runs the sheet's operation of that name as what the user did: a button, an arrow, a double
// click, a delete key or a free point is a step of its own; a field's _LostFocus ends the
// typing into it as part of that step; looking (a tab, a focus, a list opened), saving and the
// status line are no step. Gives the operation's result.
std::optional<std::string> RunUserOperation(CharacterSheet& sheet, const std::string& operation,
                                            const std::string& argument = "");

// Runs `work` as one step of the sheet, even when it throws. Typing into a text item goes on as
// the same step until the sheet's history hears that the typing ended.
void RunStep(CharacterSheet& sheet, const std::string& name, const std::function<void()>& work,
             const std::string& typingInto = "");
// Runs `work`, an edit of the item, as its step.
void RunEditStep(CharacterSheet& sheet, const Item& item, const std::function<void()>& work);

}  // namespace zeph
