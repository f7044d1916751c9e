#include "rules/Equipment.h"

#include <algorithm>

#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

struct FieldLabel {
    const char* element;
    const char* label;
    bool onNewLine;
};

const FieldLabel kFieldLabels[] = {{"armorvalue", "Armor Value: ", false},
                                   {"encumbrance", "Encumbrance: ", false},
                                   {"period", "Period: ", false},
                                   {"pagereference", "Reference: ", true},
                                   {"damage", "Damage: ", false},
                                   {"damagetype", "Damage Type: ", false},
                                   {"range", "Range: ", false},
                                   {"capacity", "Capacity: ", false},
                                   {"weight", "Weight: ", false},
                                   {"height", "Height: ", false},
                                   {"width", "Width: ", false},
                                   {"length", "Length: ", false},
                                   {"speed", "Speed: ", false},
                                   {"acceleration", "Acceleration: ", false},
                                   {"toughness", "Toughness: ", false},
                                   {"handling", "Handling: ", false},
                                   {"crew", "Crew: ", false},
                                   {"damagecapacity", "Damage Capacity: ", false},
                                   {"armament", "Armament: ", true},
                                   {"notes", "Notes: ", true}};

struct Label {
    std::string text;
    bool onNewLine;
};

// An element the table does not know is labelled with its own name as the file spells it.
Label labelOf(const std::string& element) {
    for (const FieldLabel& known : kFieldLabels)
        if (EqualsNoCase(element, known.element)) return {known.label, known.onNewLine};
    return {element + ": ", false};
}

// Names go between double quotes, since item names hold apostrophes ("Hunter's Knife").
std::string typePath(CharacterSheet& sheet) {
    return "//equipment/type[@value=\"" + sheet.EquipmentTypePopup.Text() + "\"]";
}

// Each detail with a value, labelled and closed by a full stop, unless the value brings its own.
std::string paragraphOf(const XmlNodeList& details) {
    std::string paragraph;
    for (int i = 0; i < details.Count(); ++i) {
        const XmlNode detail = details.Item(i);
        const auto value = detail.FirstChildValue();
        if (!value) continue;
        const Label label = labelOf(detail.Name());
        if (label.onNewLine) paragraph += "\n";
        paragraph += label.text + *value;
        if (paragraph.back() != '.') paragraph += ". ";
    }
    return paragraph;
}

std::string number(std::int64_t n) { return Str(static_cast<double>(n)); }

// Kilograms are pounds halved, to the nearest whole number.
std::string kilos(std::int64_t pounds) { return Str(Round(static_cast<double>(pounds) / 2)); }

std::string poundsAndKilos(std::int64_t pounds) { return number(pounds) + "/" + kilos(pounds); }

}  // namespace

void EquipLabel_Open(CharacterSheet& sheet) {
    sheet.EquipLabel.SetText(
        "Choose equipment type, then right click or cmd-click to see a list of items to add.");
}

void LoadEquipmentType(CharacterSheet& sheet) {
    LoadChoices(sheet, sheet.EquipmentTypePopup, "//equipment/type");
}

bool EquipmentTypePopup_MouseDown(CharacterSheet& sheet) {
    LoadEquipmentType(sheet);
    return false;
}

void EquipmentTypePopup_GotFocus(CharacterSheet& sheet) { LoadEquipmentType(sheet); }

std::vector<std::string> EquipmentField_ConstructContextualMenu(CharacterSheet& sheet) {
    const XmlNodeList names = sheet.Rules().Query(typePath(sheet) + "/name");
    std::vector<std::string> items;
    for (int i = 0; i < names.Count(); ++i) items.push_back(names.Item(i).Attribute("value"));
    return items;
}

void EquipmentField_ContextualMenuAction(CharacterSheet& sheet, const std::string& item) {
    // No handler of its own: a broken name goes to the application's, with nothing written.
    const XmlNodeList details =
        sheet.Rules().Query(typePath(sheet) + "/name[@value=\"" + item + "\"]/*");
    StyledText entry;
    if (!sheet.EquipmentField.Text().empty()) entry.Append(StyleRun{"\n"});
    entry.Append(StyleRun{item, true});
    entry.Append(StyleRun{"\n" + paragraphOf(details) + "\n"});
    sheet.EquipmentField.AppendStyled(entry);
}

bool EquipmentField_KeyDown(CharacterSheet& sheet, const std::string& key) {
    if (key != "\t") return false;
    sheet.EquipmentField.ReplaceSelection("    ");
    return true;
}

std::int64_t LiftingCapacity(std::int64_t strength) {
    if (strength <= 0) return 0;
    if (strength <= 5) return strength * 50;
    if (strength <= 10) return (strength - 5) * 200 + 250;
    if (strength <= 15) return (strength - 10) * 500 + 1250;
    // A Strength from absurd rule data stops at Whole's bound instead of wrapping.
    return AddWhole(MultiplyWhole(strength - 15, 1000), 5000);
}

void EncumButton_Action(CharacterSheet& sheet) {
    const std::int64_t strength = std::max<std::int64_t>(0, Whole(sheet.StrengthTotal.Text()));
    const std::int64_t capacity = LiftingCapacity(strength);
    auto share = [capacity](double k) { return Whole(Floor(static_cast<double>(capacity) * k)); };
    const std::int64_t throwing = share(0.9);
    std::string block = "Lifting Capacity = " + number(capacity) + "lbs /" + kilos(capacity) +
                        "kg. Throwing Capacity = " + number(throwing) + "lbs/" + kilos(throwing) +
                        "kg.\n";
    block += "Up to " + poundsAndKilos(share(0.5)) + " = No penalty.\n";
    struct Band {
        double from, to;
        const char* rest;
    };
    for (const Band& band :
         {Band{0.5, 1.25, " = -1 penalty. D4(2) Endurance per 10 minutes. (Light)"},
          Band{1.25, 1.5, " = -2 penalty. D4(2) Endurance per 5 minutes. (Medium)"},
          Band{1.5, 1.75, " = -3 penalty. D4(2) Endurance per 2 minutes. (Heavy)"},
          Band{1.75, 2, " = -5 penalty. D4(2) Endurance per minute. (Extra Heavy)"}})
        block += poundsAndKilos(share(band.from) + 1) + " to " + poundsAndKilos(share(band.to)) +
                 band.rest + "\n";
    // Added as plain text after what stands, so the bold names before it stay bold.
    sheet.EquipmentField.AppendStyled(StyledText{{StyleRun{block}}});
}

void AddEquipmentOperations(OperationTable& table) {
    AddOperation(table, "EquipLabel_Open", EquipLabel_Open);
    AddOperation(table, "LoadEquipmentType", LoadEquipmentType);
    AddOperation(table, "EquipmentTypePopup_MouseDown",
                 [](CharacterSheet& s) { EquipmentTypePopup_MouseDown(s); });
    AddOperation(table, "EquipmentTypePopup_GotFocus", EquipmentTypePopup_GotFocus);
    AddResultOperation(table, "EquipmentField_ConstructContextualMenu", [](CharacterSheet& s) {
        return JoinFields(EquipmentField_ConstructContextualMenu(s), "|");
    });
    AddOperationWithArgument(table, "EquipmentField_ContextualMenuAction",
                             EquipmentField_ContextualMenuAction);
    // The answer tells the window whether the key was consumed.
    table["EquipmentField_KeyDown"] = {
        [](CharacterSheet& s, const std::string& key) -> std::optional<std::string> {
            return EquipmentField_KeyDown(s, key) ? "true" : "false";
        }};
    AddOperation(table, "EncumButton_Action", EncumButton_Action);
}

}  // namespace zeph
