#include "rules/Skills.h"

#include <optional>
#include <stdexcept>

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kCategoryQuery = "//skills/category";

// Skills keep their notes on one line; the rest of their row (type, sub-types) is written apart.
EntryList skillEntry(CharacterSheet& s) {
    EntryList entry{s.SkillListBox,    s.s_row,
                    s.SkillNameField,  s.SkillLevelField,
                    s.SkillCostField,  s.SkillXPCostField,
                    s.SkillNotesField, s.SkillReferenceField};
    entry.notesOnOneLine = true;
    return entry;
}

bool isMartial(const std::string& name) { return InStr(name, "Martial Arts") > 0; }
bool isLucid(const std::string& name) { return InStr(name, "Lucid Dream") > 0; }

// The price of level `level` of a skill of the cost class `type`: in experience (with the
// extra of a first level) or in creation points (dearer from level 6). An unknown class
// prices nothing.
std::optional<double> levelPrice(const std::string& type, double level, bool firstLevel,
                                 bool inPlay) {
    struct Prices {
        const char* type;
        double perLevel, plus, times, firstExtra, low, high;
    };
    // In play a level costs (L + plus) x times; in creation, `low` below level 6, else `high`.
    static const Prices kPrices[] = {{"Regular", 1, 0, 1, 5, 1, 3},
                                     {"Special", 1, 1, 1, 6, 2, 5},
                                     {"Cinematic", 1, 0, 2, 3, 1, 3}};
    for (const Prices& p : kPrices) {
        if (!EqualsNoCase(type, p.type)) continue;
        if (!inPlay) return level < 6 ? p.low : p.high;
        return (level * p.perLevel + p.plus) * p.times + (firstLevel ? p.firstExtra : 0);
    }
    return std::nullopt;
}

void addLevelPrice(CharacterSheet& sheet, double level, bool firstLevel, double sign) {
    const bool inPlay = sheet.CharacterInPlayBox.Value();
    if (auto price = levelPrice(sheet.SkillTypeCombo.Text(), level, firstLevel, inPlay))
        AddToNumber(inPlay ? sheet.SkillXPCostField : sheet.SkillCostField, sign * *price);
}

// The moves list is stored last row first, as "name,level,experience".
void storeMoves(CharacterSheet& sheet) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    if (!moves.Visible()) return;
    std::vector<std::string>& store = EqualsNoCase(moves.Heading(0), "Visualization")
                                          ? sheet.visualizations
                                          : sheet.martialmaneuvers;
    store.clear();
    for (int row = moves.ListCount() - 1; row >= 0; --row)
        store.push_back(moves.Cell(row, MoveColumn::Name) + "," +
                        moves.Cell(row, MoveColumn::Level) + "," +
                        moves.Cell(row, MoveColumn::Experience));
    moves.DeleteAllRows();
    moves.SetVisible(false);
}

// Reopens the stored moves; the stored order is reversed again, so the list comes back as it was.
void reopenMoves(CharacterSheet& sheet, const std::vector<std::string>& store, bool markBasic) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    for (auto element = store.rbegin(); element != store.rend(); ++element) {
        moves.AddRow(NthField(*element, ",", 1));
        const int row = moves.LastIndex();
        moves.SetCell(row, MoveColumn::Level, NthField(*element, ",", 2));
        if (markBasic && InStr(*element, "*") > 0) {
            moves.SetCellBold(row, MoveColumn::Name, true);
            moves.SetCellBold(row, MoveColumn::Level, true);
        }
        moves.SetCell(row, MoveColumn::Experience, NthField(*element, ",", 3));
    }
}

}  // namespace

void LoadSkillCategories(CharacterSheet& sheet) {
    LoadChoices(sheet, sheet.SkillCategoryPopup, kCategoryQuery);
}

void SkillCategoryPopup_Change(CharacterSheet& sheet) {
    // No handler of its own: a failure goes to the application's.
    ReplaceNameChoices(sheet, kCategoryQuery, sheet.SkillCategoryPopup, sheet.SkillPopup);
}

void PopulateSkillInfo(CharacterSheet& sheet) {
    const std::string path =
        ChosenNamePath(kCategoryQuery, sheet.SkillCategoryPopup, sheet.SkillPopup);
    PopulateEntry(sheet, skillEntry(sheet), sheet.SkillPopup, [&](const RuleData& rules) {
        TakeLeaf(rules, path + "/pagereference", sheet.SkillReferenceField);
        sheet.SkillLevelField.SetText("0");
        sheet.SkillCostField.SetText("0");
        sheet.SkillXPCostField.SetText("0");
        auto type = rules.Record(path + "/type");
        sheet.SkillTypeCombo.SetText(type ? type->Attribute("value") : "");
        TakeLeaf(rules, path + "/notes", sheet.SkillNotesField);

        sheet.SkillSelectPopup.DeleteAllRows();
        if (auto typelist = rules.Leaf(path + "/typelist"))
            for (int f = 1; f <= CountFields(*typelist, ","); ++f)
                sheet.SkillSelectPopup.AddRow(NthField(*typelist, ",", f));

        ListItem& moves = sheet.SkillMartialVisualListBox;
        moves.DeleteAllRows();
        moves.SetVisible(false);
        const std::string& name = sheet.SkillNameField.Text();
        if (isMartial(name) || isLucid(name)) moves.SetVisible(true);
        if (isMartial(name)) moves.SetHeading(0, "Martial Maneuver");
        if (isLucid(name)) moves.SetHeading(0, "Visualization");
    });
}

void SkillSelectPopup_Change(CharacterSheet& sheet) {
    const std::string choice = sheet.SkillSelectPopup.Text();
    sheet.SkillNameField.SetText(NthField(sheet.SkillNameField.Text(), "(", 1) + "(" + choice +
                                 ")");
    if (!isMartial(sheet.SkillNameField.Text())) return;

    // No handler here: a failure, and a style whose basic moves are empty, go to the application's.
    const RuleData& rules = sheet.Rules();
    const std::string style = "//martialstyles/name[@value=\"" + choice + "\"]";
    if (rules.Query(style).Empty()) return;
    XmlNodeList basic = rules.Query(style + "/basicmoves");
    if (basic.Empty()) return;
    ListItem& moves = sheet.SkillMartialVisualListBox;
    moves.DeleteAllRows();
    auto names = basic.Item(0).FirstChildValue();
    if (!names) throw std::runtime_error("The basic moves of " + choice + " are empty.");
    for (int f = 1; f <= CountFields(*names, ","); ++f) {
        moves.AddRow("*" + NthField(*names, ",", f));
        const int row = moves.LastIndex();
        moves.SetCell(row, MoveColumn::Level, sheet.SkillLevelField.Text());
        moves.SetCellBold(row, MoveColumn::Name, true);
        moves.SetCellBold(row, MoveColumn::Level, true);
    }
}

void SkillSpecialtyButton_Action(CharacterSheet& sheet) {
    const bool cinematic = EqualsNoCase(sheet.SkillTypeCombo.Text(), "Cinematic");
    if (cinematic) {
        sheet.Host().MsgBox("Cinematic Unisystem skills cannot have specialties.");
        return;
    }
    if (sheet.SkillNameField.Text().empty()) return;
    AddToNumber(sheet.SkillLevelField, 2);
    sheet.SkillNameField.SetText(sheet.SkillNameField.Text() + " (Specialty)");
    if (sheet.CharacterInPlayBox.Value())
        AddToNumber(sheet.SkillXPCostField, 6);
    else
        AddToNumber(sheet.SkillCostField, 1);
}

void SkillUpDownArrows1_Up(CharacterSheet& sheet) {
    const double level = StepLevel(sheet.SkillLevelField, +1);
    addLevelPrice(sheet, level, sheet.SkillLevelField.Text() == "1", +1);
}

void SkillUpDownArrows1_Down(CharacterSheet& sheet) {
    const double level = StepLevel(sheet.SkillLevelField, -1);
    if (level < 0) {
        sheet.SkillLevelField.SetText("0");
        return;
    }
    // Gives back what Up charged to reach the level just left.
    addLevelPrice(sheet, level + 1, sheet.SkillLevelField.Text() == "0", -1);
}

void SkillRecordButton_Action(CharacterSheet& sheet) {
    auto row = RecordEntry(sheet, skillEntry(sheet), true);
    if (!row) return;
    ListItem& list = sheet.SkillListBox;
    list.SetCell(*row, SkillColumn::Type, sheet.SkillTypeCombo.Text());
    sheet.SkillTypeCombo.SetText("");
    list.SetCell(*row, SkillColumn::SubTypes, JoinFields(sheet.SkillSelectPopup.Rows(), ","));
    storeMoves(sheet);
    sheet.s_row = -1;
    FigureSecondaryAttributes(sheet);
}

void SkillListBox_DoubleClick(CharacterSheet& sheet) {
    const int row = PullBackEntry(skillEntry(sheet));
    const ListItem& list = sheet.SkillListBox;
    sheet.SkillTypeCombo.SetText(list.Cell(row, SkillColumn::Type));

    sheet.SkillSelectPopup.DeleteAllRows();
    const std::string& subTypes = list.Cell(row, SkillColumn::SubTypes);
    for (int f = 1; f <= CountFields(subTypes, ","); ++f)
        sheet.SkillSelectPopup.AddRow(NthField(subTypes, ",", f));

    ListItem& moves = sheet.SkillMartialVisualListBox;
    const std::string name = sheet.SkillNameField.Text();
    if (!isMartial(name) && !isLucid(name)) {
        moves.SetVisible(false);
        return;
    }
    moves.SetVisible(true);
    moves.DeleteAllRows();
    if (isMartial(name)) {
        moves.SetHeading(0, "Combat Move");
        reopenMoves(sheet, sheet.martialmaneuvers, true);
    }
    if (isLucid(name)) {
        moves.SetHeading(0, "Visualization");
        reopenMoves(sheet, sheet.visualizations, false);
    }
}

void AddSkillOperations(OperationTable& table) {
    AddOperation(table, "LoadSkillCategories", LoadSkillCategories);
    AddOperation(table, "SkillCategoryPopup_MouseDown", LoadSkillCategories);
    AddOperation(table, "SkillCategoryPopup_Change", SkillCategoryPopup_Change);
    AddOperation(table, "SkillPopup_MouseDown", PopulateSkillInfo);
    AddOperation(table, "SkillPopup_Change", PopulateSkillInfo);
    AddOperation(table, "PopulateSkillInfo", PopulateSkillInfo);
    AddOperation(table, "SkillSelectPopup_Change", SkillSelectPopup_Change);
    AddOperation(table, "SkillSpecialtyButton_Action", SkillSpecialtyButton_Action);
    AddOperation(table, "SkillUpDownArrows1_Up", SkillUpDownArrows1_Up);
    AddOperation(table, "SkillUpDownArrows1_Down", SkillUpDownArrows1_Down);
    AddOperation(table, "SkillRecordButton_Action", SkillRecordButton_Action);
    AddOperation(table, "SkillListBox_DoubleClick", SkillListBox_DoubleClick);
    AddRemovalOperations(table,
                         {"SkillListBoxDeleteRow", "SkillRemoveButton_Action",
                          "SkillListBox_KeyDown", "SkillSeparator_Action"},
                         &CharacterSheet::SkillListBox);
}

}  // namespace zeph
