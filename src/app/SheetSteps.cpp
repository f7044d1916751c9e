#include "app/SheetSteps.h"

#include <cctype>
#include <map>
#include <set>
#include <vector>

#include "sheet/CharacterSheet.h"
#include "text/NameWords.h"

namespace zeph {
namespace {

// Items whose name reads badly as words: the words their window shows instead.
const std::map<std::string, std::string, std::less<>> kThingNames = {
    {"ChooseCharPopup", "Character Choice"},
    {"QualitiesSeparateQDBox", "Keep Drawbacks and Qualities Separate"},
    {"DPField", "Drama Points"},
};

// Buttons whose name does not say what they do.
const std::map<std::string, std::string, std::less<>> kStepNames = {
    {"EncumButton_Action", "Calculate Lifting Cap/Encumbrance"},
    {"QualitySeparateButton_Action", "Separate Qualities and Drawbacks"},
    {"SkillSpecialtyButton_Action", "Add a Specialty"},
};

// What the item stands for, without the widget words: "QualityUpDownArrows" is "Quality".
std::string thingOf(const std::string& item) {
    if (auto named = kThingNames.find(item); named != kThingNames.end()) return named->second;
    static const std::set<std::string> widgetWords = {"Button", "Field", "Box",  "Popup", "Combo",
                                                      "List",   "Arrows", "Down", "Up"};
    static const std::map<std::string, std::string> shortWords = {{"Meta", "Metaphysic"},
                                                                  {"Char", "Character"}};
    std::vector<std::string> words = NameWords(item);
    while (words.size() > 1 &&
           (widgetWords.count(words.back()) || std::isdigit(static_cast<unsigned char>(words.back()[0]))))
        words.pop_back();
    std::string thing;
    for (const std::string& word : words) {
        const auto longer = shortWords.find(word);
        thing += (thing.empty() ? "" : " ") + (longer == shortWords.end() ? word : longer->second);
    }
    return thing;
}

// A button's step: "Quality Record" is "Record Quality"; a button that names a field shows it.
std::string actionName(const std::string& thing) {
    for (const std::string verb : {"Record", "Remove"})
        if (thing.ends_with(" " + verb))
            return verb + " " + thing.substr(0, thing.size() - verb.size() - 1);
    if (thing.ends_with(" Separator")) return "Add " + thing;
    return "Show " + thing;
}

// Steps ended by a throw end all the same.
struct OpenStep {
    OpenStep(CharacterSheet& of, const std::string& name, const std::string& typingInto)
        : sheet(of) {
        sheet.history.Begin(name, typingInto);
    }
    ~OpenStep() { sheet.history.End(); }
    CharacterSheet& sheet;
};

}  // namespace

std::string StepName(const std::string& operation) {
    if (auto named = kStepNames.find(operation); named != kStepNames.end()) return named->second;
    const std::size_t mark = operation.rfind('_');
    if (mark == std::string::npos) return thingOf(operation);
    const std::string item = operation.substr(0, mark), event = operation.substr(mark + 1);
    const std::string thing = thingOf(item);
    if (event == "Up") return "Raise " + thing + " Level";
    if (event == "Down") return "Lower " + thing + " Level";
    if (event == "DoubleClick") return "Edit " + thing;
    if (event == "KeyDown") return "Delete " + thing;
    if (event == "MouseDown" && thing.ends_with(" Bonus"))
        return "Place Free Point on " + thing.substr(0, thing.size() - 6);
    if (event == "Action") return actionName(thing);
    return thing;
}

std::string EditStepName(const Item& item) {
    const std::string thing = thingOf(item.Name());
    switch (item.Kind()) {
        case ItemKind::Combo:
        case ItemKind::Choice:
            return "Choose " + thing;
        case ItemKind::List:
            return "Select " + thing;
        case ItemKind::Flag:
        case ItemKind::Toggle:
            return "Set " + thing;
        default:
            return "Typing in " + thing;
    }
}

std::optional<std::string> RunUserOperation(CharacterSheet& sheet, const std::string& operation,
                                            const std::string& argument) {
    const auto run = [&] { return sheet.Operations().at(operation).run(sheet, argument); };
    const std::size_t mark = operation.rfind('_');
    const std::string item = mark == std::string::npos ? "" : operation.substr(0, mark),
                      event = mark == std::string::npos ? "" : operation.substr(mark + 1);
    static const std::set<std::string> stepEvents = {"Action", "Up", "Down", "DoubleClick",
                                                     "KeyDown"};
    std::optional<std::string> result;
    if (event == "LostFocus" && sheet.Items().Find(item)) {
        RunStep(sheet, EditStepName(*sheet.Items().Find(item)), [&] { result = run(); }, item);
        sheet.history.EndTyping();
    } else if (!item.empty() && item[0] != '_' && (stepEvents.count(event) ||
                                 (event == "MouseDown" && item.ends_with("Bonus")))) {
        RunStep(sheet, StepName(operation), [&] { result = run(); });
    } else {
        result = run();
    }
    return result;
}

void RunStep(CharacterSheet& sheet, const std::string& name, const std::function<void()>& work,
             const std::string& typingInto) {
    OpenStep step(sheet, name, typingInto);
    work();
}

void RunEditStep(CharacterSheet& sheet, const Item& item, const std::function<void()>& work) {
    const bool typed = item.Kind() == ItemKind::Text || item.Kind() == ItemKind::Number ||
                       item.Kind() == ItemKind::Styled;
    RunStep(sheet, EditStepName(item), work, typed ? item.Name() : "");
}

}  // namespace zeph
