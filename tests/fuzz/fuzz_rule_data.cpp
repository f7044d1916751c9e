// Fuzzes the rule data file. Whatever its bytes, loading it as the app does and working a sheet
// over it may show messages or end an operation with a std::exception (which the app shows);
// a crash, a sanitizer report, a hang or a leak is a fault.
//
// The sheet takes the first and the last row of each list it is offered, so that a few runs
// reach every list of a small file and no run grows with the size of a large one.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/App.h"
#include "shell/SheetOperations.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace {

using zeph::CharacterSheet;
using zeph::ComboItem;
using zeph::SplitFields;

// A name the sheet lacks is a fault of this target, which would otherwise test less unseen.
[[noreturn]] void Missing(const std::string& name) {
    std::fprintf(stderr, "fuzz_rule_data: no operation or list %s\n", name.c_str());
    std::abort();
}

// Operations of the table joined by ";", as the window calls them; "NAME=ARGUMENT" passes an
// argument, and "NAME=*" the first item of the menu the operation before it built (items
// joined by "|"), skipped when that menu is empty. A failure thrown is the app's to show.
void Run(CharacterSheet& sheet, const std::string& operations) {
    std::optional<std::string> menu;
    for (const std::string& step : SplitFields(operations, ';')) {
        const std::size_t equals = step.find('=');
        const auto found = sheet.Operations().find(step.substr(0, equals));
        if (found == sheet.Operations().end()) Missing(step);
        std::string argument = equals == std::string::npos ? "" : step.substr(equals + 1);
        if (argument == "*") {
            if (!menu || menu->empty()) continue;
            argument = menu->substr(0, menu->find('|'));
        }
        try {
            menu = found->second.run(sheet, argument);
        } catch (const std::exception&) {
            menu = std::nullopt;
        }
    }
}

// Selects the first and, when there are more, the last row of a list, running the item's change
// operation from the table as a click does, and after each `then`.
template <class Then>
void PickEach(CharacterSheet& sheet, const std::string& name, Then then) {
    auto* list = dynamic_cast<ComboItem*>(sheet.Items().Find(name));
    if (list == nullptr) Missing(name);
    const int count = list->ListCount();
    for (int row : count > 1 ? std::vector{0, count - 1} : std::vector<int>(count, 0)) {
        try {
            if (row < list->ListCount()) list->SetListIndex(row);
        } catch (const std::exception&) {
        }
        then();
    }
}

// One page as a player works it: `before`, then every pick of each of `lists` within each pick
// of the one before it, where the innermost pick also picks from `also` and runs `each`; then
// `after`. Pages marked `again` are worked once more in play.
struct Page {
    const char *before, *lists, *also, *each, *after;
    bool again;
};

const Page kPages[] = {
    {"LoadCharacterTypes", "CharacterTypePopup;ChooseCharPopup", "", "",
     "StrengthBonus_MouseDown;IntelligenceBonus_MouseDown;LoadConceptBox;LoadAssociationCombo",
     false},
    {"", "AssociationCombo", "", "", "", false},
    {"LoadQualityTypes", "QualityTypePopup;QualityPopup", "QualityAlternateFormCombo",
     "QualityUpDownArrows_Up;QualityUpDownArrows_Up;QualityUpDownArrows_Down;"
     "QualityRecordButton_Action", "QualityGetBonus", true},
    {"LoadMetaTypes", "MetaTypePopup;MetaPopup", "",
     "MetaUpDownArrows_Up;MetaUpDownArrows_Up;MetaUpDownArrows_Down;MetaRecordButton_Action",
     "MetaGetBonus", true},
    {"LoadSkillCategories", "SkillCategoryPopup;SkillPopup", "SkillSelectPopup",
     "SkillUpDownArrows1_Up;SkillUpDownArrows1_Up;SkillMartialVisualListBox_ConstructContextualMenu;"
     "SkillMartialVisualListBox_ContextualMenuAction=Increase +;SkillRecordButton_Action", "", false},
    {"FigureSecondaryAttributes", "", "", "", "", true},
    {"GenerateAltForms", "", "", "", "", false},
    {"LoadEquipmentType", "EquipmentTypePopup", "",
     "EquipmentField_ConstructContextualMenu;EquipmentField_ContextualMenuAction=*",
     "EncumButton_Action", false},
};

void Walk(CharacterSheet& sheet, const Page& page, const std::vector<std::string>& lists,
          std::size_t depth) {
    if (depth < lists.size()) {
        PickEach(sheet, lists[depth], [&] { Walk(sheet, page, lists, depth + 1); });
        return;
    }
    if (*page.also) PickEach(sheet, page.also, [] {});
    Run(sheet, page.each);
}

void Work(CharacterSheet& sheet, bool inPlay) {
    for (const Page& page : kPages) {
        if (inPlay && !page.again) continue;
        Run(sheet, page.before);
        Walk(sheet, page, SplitFields(page.lists, ';'), 0);
        Run(sheet, page.after);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path =
        (std::filesystem::temp_directory_path() /
         ("zephalon-fuzz-rule-data-" + std::to_string(getpid()) + ".xml"))
            .string();
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    file.close();
    if (!file) return 0;

    zeph::ScriptedPlatform platform("/nonexistent-prefs", "/nonexistent-app",
                                    std::filesystem::temp_directory_path().string());
    zeph::DataModule module;
    zeph::App app(module, platform);
    const bool loaded = app.LoadDataFile(path);
    std::remove(path.c_str());
    if (!loaded) return 0;

    CharacterSheet sheet(module, platform, zeph::SheetOperations());
    for (auto* field : {&sheet.StrengthField, &sheet.DexterityField, &sheet.ConstitutionField,
                        &sheet.IntelligenceField, &sheet.PerceptionField, &sheet.WillpowerField})
        field->SetText("3");
    Work(sheet, false);

    // The optional skill points change the budgets; in play the same purchases are priced in
    // experience.
    try {
        sheet.OptionalSkillPointBox.SetValue(true);
    } catch (const std::exception&) {
    }
    sheet.CharacterInPlayBox.SetValue(true);
    sheet.SavedExperienceField.SetText("50");
    Work(sheet, true);
    return 0;
}
