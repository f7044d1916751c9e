#include "rules/MartialMoves.h"

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// Heading 0 is the list's mode: "Visualization", or anything else for martial moves.
bool visualizing(CharacterSheet& sheet) {
    return EqualsNoCase(sheet.SkillMartialVisualListBox.Heading(0), "Visualization");
}

// The free pool: the skill's level times 4 (visualizations) or 3 (moves), less the levels of
// the rows; basic moves (bold) take nothing from it.
double freePoints(CharacterSheet& sheet) {
    const ListItem& moves = sheet.SkillMartialVisualListBox;
    const bool visual = visualizing(sheet);
    double free =
        static_cast<double>(MultiplyWhole(Whole(sheet.SkillLevelField.Text()), visual ? 4 : 3));
    for (int row = 0; row < moves.ListCount(); ++row)
        if (visual || !moves.CellBold(row, MoveColumn::Name))
            free -= Val(moves.Cell(row, MoveColumn::Level));
    return free;
}

double levelCap(CharacterSheet& sheet) {
    return Val(sheet.SkillLevelField.Text()) * (visualizing(sheet) ? 2 : 1);
}

void refund(CharacterSheet& sheet, double experience) {
    AddToNumber(sheet.SavedExperienceField, experience);
    AddToNumber(sheet.SpentExperienceField, -experience);
}

void increase(CharacterSheet& sheet, int selected) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    const bool hasRow = selected > -1;
    const double level = hasRow ? Val(moves.Cell(selected, MoveColumn::Level)) : 0;
    if (freePoints(sheet) > 0) {
        if (hasRow && level < levelCap(sheet))
            moves.SetCell(selected, MoveColumn::Level, Str(level + 1));
        return;
    }
    const double cost = static_cast<double>(Whole(level)) + 1;
    if (!sheet.CharacterInPlayBox.Value() || Val(sheet.SavedExperienceField.Text()) < cost) {
        sheet.Host().MsgBox("You don't have enough points to buy this level.");
        return;
    }
    if (!hasRow || level >= levelCap(sheet)) return;
    moves.SetCell(selected, MoveColumn::Level, Str(level + 1));
    // A basic move rises at no charge.
    if (moves.CellBold(selected, MoveColumn::Name)) return;
    moves.SetCell(selected, MoveColumn::Experience,
                  Str(Val(moves.Cell(selected, MoveColumn::Experience)) + level + 1));
    refund(sheet, -(level + 1));
}

void decrease(CharacterSheet& sheet, int selected) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    if (moves.Cell(selected, MoveColumn::Level) == "1") {
        refund(sheet, Val(moves.Cell(selected, MoveColumn::Experience)));
        moves.RemoveRow(selected);
        return;
    }
    const double level = Val(moves.Cell(selected, MoveColumn::Level));
    if (Val(moves.Cell(selected, MoveColumn::Experience)) >= level) {
        moves.SetCell(selected, MoveColumn::Experience,
                      Str(Val(moves.Cell(selected, MoveColumn::Experience)) - level));
        refund(sheet, level);
    }
    moves.SetCell(selected, MoveColumn::Level, Str(level - 1));
}

void toggleBasicMove(ListItem& moves, int selected) {
    const bool basic = moves.CellBold(selected, MoveColumn::Name);
    std::string name = moves.Cell(selected, MoveColumn::Name);
    if (basic) {
        std::erase(name, '*');
    } else {
        name = "*" + name;
    }
    moves.SetCell(selected, MoveColumn::Name, name);
    moves.SetCellBold(selected, MoveColumn::Name, !basic);
    moves.SetCellBold(selected, MoveColumn::Level, !basic);
}

void addMove(CharacterSheet& sheet, const std::string& name) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    std::string experience;
    if (freePoints(sheet) <= 0) {
        // More than 5 against a price of 6: at 5.5 the purchase passes and leaves -0.5.
        if (!sheet.CharacterInPlayBox.Value() || Val(sheet.SavedExperienceField.Text()) <= 5) {
            sheet.Host().MsgBox("You don't have enough points to buy this.");
            return;
        }
        refund(sheet, -6);
        experience = "6";
    }
    moves.AddRow(name);
    moves.SetCell(moves.LastIndex(), MoveColumn::Level, "1");
    moves.SetCell(moves.LastIndex(), MoveColumn::Experience, experience);
}

}  // namespace

std::vector<std::string> SkillMartialVisualListBox_ConstructContextualMenu(CharacterSheet& sheet) {
    const RuleData& rules = sheet.Rules();
    auto valuesOf = [&rules](const std::string& query, std::vector<std::string>& items) {
        XmlNodeList nodes = rules.Query(query);
        for (int i = 0; i < nodes.Count(); ++i) items.push_back(nodes.Item(i).Attribute("value"));
    };
    if (visualizing(sheet)) {
        std::vector<std::string> items = {"Increase +", "Decrease +", "Delete Item", "-"};
        valuesOf("//visualizations/name", items);
        return items;
    }
    std::vector<std::string> items = {"Increase +", "Decrease +", "Toggle Basic Move",
                                      "Delete Item", "-"};
    // The style is the sub-type in the name, less its last character (the closing parenthesis).
    const std::string inParentheses = NthField(sheet.SkillNameField.Text(), "(", 2);
    const std::string style = Left(inParentheses, Len(inParentheses) - 1);
    auto special = rules.Leaf("//martialstyles/name[@value=\"" + style + "\"]/specialmoves");
    if (special) {
        for (int f = 1; f <= CountFields(*special, ","); ++f)
            items.push_back(NthField(*special, ",", f));
    } else {
        valuesOf("//martialarts/name", items);
    }
    return items;
}

void SkillMartialVisualListBox_ContextualMenuAction(CharacterSheet& sheet,
                                                    const std::string& item) {
    ListItem& moves = sheet.SkillMartialVisualListBox;
    const int selected = static_cast<int>(SelectedRowOr(moves, -1));
    // The menu offers "Decrease +", which matches no branch here and is bought as a move
    // named so; only a caller passing "Decrease -" lowers a row.
    if (EqualsNoCase(item, "Increase +")) {
        increase(sheet, selected);
    } else if (EqualsNoCase(item, "Decrease -")) {
        if (selected > -1) decrease(sheet, selected);
    } else if (EqualsNoCase(item, "Delete Item")) {
        if (selected > -1) {
            refund(sheet, Val(moves.Cell(selected, MoveColumn::Experience)));
            moves.RemoveRow(selected);
        }
    } else if (EqualsNoCase(item, "Toggle Basic Move")) {
        if (selected > -1) toggleBasicMove(moves, selected);
    } else {
        addMove(sheet, item);
    }
}

void AddMartialMoveOperations(OperationTable& table) {
    AddResultOperation(
        table, "SkillMartialVisualListBox_ConstructContextualMenu", [](CharacterSheet& sheet) {
            return JoinFields(SkillMartialVisualListBox_ConstructContextualMenu(sheet), "|");
        });
    AddOperationWithArgument(table, "SkillMartialVisualListBox_ContextualMenuAction",
                             SkillMartialVisualListBox_ContextualMenuAction);
}

}  // namespace zeph
