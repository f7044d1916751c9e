// A player's steps at random, as console lines: type, attributes and free points, purchases,
// edits and removals in the three lists, play, equipment, names, notes and tabs. The random
// flow test and the rule data fuzzer both walk a sheet with them.
#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph::testing {

class RandomSteps {
public:
    // `run` runs one console line and returns what it printed.
    RandomSteps(std::function<std::string(const std::string&)> run, unsigned seed)
        : run_(std::move(run)), random_(seed) {}

    void Step() {
        static const char* lists[] = {"Quality", "Skill", "Meta"};
        const std::string attribute = kAttributeNames[Any(kAttributeCount)];
        const std::string list = lists[Any(3)];
        switch (Any(11)) {
        case 0:
            run_("do CharacterTypePopup_GotFocus");
            ChooseAny("CharacterTypePopup");
            return ChooseAny("ChooseCharPopup");
        case 1:
            run_("set " + attribute + "Field " + std::to_string(Any(7)));
            run_("do " + attribute + "Field_LostFocus");
            return;
        case 2: run_("do " + attribute + "Bonus_MouseDown"); return;
        case 3: return Purchase("Quality", "QualityTypePopup", "QualityPopup", "QualityUpDownArrows");
        case 4: return Purchase("Skill", "SkillCategoryPopup", "SkillPopup", "SkillUpDownArrows1");
        case 5: return Purchase("Meta", "MetaTypePopup", "MetaPopup", "MetaUpDownArrows");
        case 6: AnyRow(list + "ListBox", "do " + list + "RemoveButton_Action"); return;
        case 7:
            // Recording with no row in the list and none chosen fails as the rules say; not a step.
            if (!AnyRow(list + "ListBox", "do " + list + "ListBox_DoubleClick")) return;
            Press(list == "Skill" ? "SkillUpDownArrows1_Up" : list + "UpDownArrows_Up", 2);
            run_("do " + list + "RecordButton_Action");
            return;
        case 8:
            run_("flag CharacterInPlayBox " + std::string(Any(2) ? "on" : "off"));
            run_("set SavedExperienceField " + std::to_string(Any(60)));
            return;
        case 9:
            run_("do EquipmentTypePopup_GotFocus");
            ChooseAny("EquipmentTypePopup");
            if (const std::string menu = Ask("do EquipmentField_ConstructContextualMenu"); !menu.empty())
                run_("do EquipmentField_ContextualMenuAction " + SplitFields(menu, '|')[0]);
            return;
        default:
            run_("set NameField Wren " + std::to_string(Any(100)));
            run_("set NotesField line one\\nline " + std::to_string(Any(100)));
            run_("flag OptionalSkillPointBox " + std::string(Any(2) ? "on" : "off"));
            run_("do TabPanel1_Change");
        }
    }

private:
    // The value the last line of a command's output shows ("NAME = VALUE").
    std::string Ask(const std::string& line) {
        const std::string shown = run_(line);
        const std::size_t at = shown.rfind(" = ");
        return at == std::string::npos ? "" : shown.substr(at + 3, shown.find('\n', at) - at - 3);
    }
    std::size_t Any(std::size_t count) { return random_() % count; }
    void ChooseAny(const std::string& combo) {
        const std::vector<std::string> rows = SplitFields(Ask("print " + combo + ".rows"), '|');
        if (!rows.empty() && !rows[0].empty()) run_("choose " + combo + " " + rows[Any(rows.size())]);
    }
    void Press(const std::string& operation, std::size_t most) {
        for (std::size_t i = Any(most + 1); i > 0; --i) run_("do " + operation);
    }
    // Chooses an entry of one of the big lists, steps its level and records it.
    void Purchase(const std::string& area, const std::string& type, const std::string& names,
                  const std::string& arrows) {
        run_("do " + type + "_MouseDown");
        ChooseAny(type);
        run_("do " + names + "_MouseDown");
        ChooseAny(names);
        if (area == "Skill") ChooseAny("SkillSelectPopup");
        if (area == "Quality" && Ask("print QualityAlternateFormCombo.visible") == "true")
            ChooseAny("QualityAlternateFormCombo");
        Press(arrows + "_Up", 3);
        run_("do " + area + "RecordButton_Action");
    }
    // Runs `then` on a row chosen in the list; false when the list is empty.
    bool AnyRow(const std::string& list, const std::string& then) {
        const std::string count = Ask("print " + list + ".ListCount");
        if (count.empty() || count == "0") return false;
        run_("select " + list + " " + std::to_string(Any(std::stoul(count))));
        run_(then);
        return true;
    }

    std::function<std::string(const std::string&)> run_;
    std::mt19937 random_;
};

}  // namespace zeph::testing
