// Attributes and point accounting: what the character has spent in each budget, the optional
// skill and age rules, the placing of free bonus points, and the status line.
#include "platform/Platform.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "sheet/Operations.h"
#include "sheet/TextHelpers.h"

namespace zeph {
namespace {

enum class Sign { Positive, Negative, Any };

// Sum of column 2 over the rows whose cost has the sign; the total is cut to a whole number.
std::string sumCosts(const ListItem& list, Sign sign) {
    double sum = 0;
    for (int row = 0; row < list.ListCount(); ++row) {
        double cost = Val(list.Cell(row, 2));
        if ((sign == Sign::Positive && cost > 0) || (sign == Sign::Negative && cost < 0) ||
            sign == Sign::Any)
            sum += cost;
    }
    return Str(static_cast<double>(Whole(sum)));
}

bool typeIsOneOf(const std::string& type, std::initializer_list<const char*> names) {
    for (const char* name : names)
        if (EqualsNoCase(type, name)) return true;
    return false;
}

}  // namespace

std::string CharacterSheet::SumQualityPoints() { return sumCosts(QualityListBox, Sign::Positive); }
std::string CharacterSheet::SumDrawbackPts() { return sumCosts(QualityListBox, Sign::Negative); }
std::string CharacterSheet::SumMetaPts() { return sumCosts(MetaListBox, Sign::Any); }
std::string CharacterSheet::SumSkillPts() { return sumCosts(SkillListBox, Sign::Any); }

std::string CharacterSheet::SumAttrPts() {
    // A point up to 5 costs 1, each point above 5 costs 3; bonus points cost nothing.
    double sum = 0;
    for (int a = 0; a < kAttributeCount; ++a) {
        double value = Val(AttributeOf(a).field.Text());
        sum += value;
        if (value > 5) sum += (value - 5) * 2;
    }
    return Str(static_cast<double>(Whole(sum)));
}

std::int64_t CharacterSheet::CalcSkillPts() {
    std::int64_t points = Whole(Max(3 * CDbl(IntelligenceTotal.Text()), 1));
    std::int64_t status = 0;
    std::int64_t resources = 0;
    bool hasAgeQuality = false;
    for (int row = 0; row < QualityListBox.ListCount(); ++row) {
        const std::string& name = QualityListBox.Cell(row, 0);
        const std::int64_t level = Whole(QualityListBox.Cell(row, 1));
        if (EqualsNoCase(Left(name, 14), "Status Quality")) status += level;
        if (EqualsNoCase(Left(name, 17), "Resources Quality")) resources += level;
        if (EqualsNoCase(Left(name, 3), "Age")) hasAgeQuality = true;
    }
    std::int64_t social = status > resources ? status : resources;
    if (social > 0) points += social;
    if (hasAgeQuality) return points + 5;

    if (typeIsOneOf(CharacterTypePopup.Text(), {"Gifted", "Mundane", "Human"})) {
        double age = CDbl(AgeField.Text());
        if (age < 18) points -= 5;
        if (age > 30) points += Whole(Floor((age - 30) / 10) * 5);
    }
    return points;
}

std::int64_t CharacterSheet::CalcAgeAttrbPenalty() {
    bool hasAgeQuality = false;
    for (int row = 0; row < QualityListBox.ListCount(); ++row)
        if (EqualsNoCase(QualityListBox.Cell(row, 0), "Age")) hasAgeQuality = true;
    // "Human" is deliberately missing here, unlike in the skill rule.
    if (hasAgeQuality || !typeIsOneOf(CharacterTypePopup.Text(), {"Gifted", "Mundane"})) return 0;
    double age = CDbl(AgeField.Text());
    return age > 30 ? Whole(Floor((age - 30) / 10) * -2) : 0;
}

void CharacterSheet::ShowBonus() {
    if (mentalBonus > 0 || physicalBonus > 0) {
        InfoText.SetText(
            "Bonus points are availble. Click the green number next to an attribute you wish to "
            "increase. Mental=" +
            Str(static_cast<double>(mentalBonus)) +
            ". Physical=" + Str(static_cast<double>(physicalBonus)) + ".");
    } else {
        std::string line;
        if (!AttributeField.Text().empty())
            line = "Attr(" + AttributeField.Text() + ") Q(" + QualityField.Text() + ") D(" +
                   DrawbackField.Text() + ") S(" + SkillField.Text() + ") M(" +
                   MetaField.Text() + ") " + "     |     ";
        InfoText.SetText(line + "Books in use: " + Data().zephalondata);
    }
    InfoText.SetVisible(true);
}

void CharacterSheet::AttributeBonus_MouseDown(int attribute) {
    std::int64_t& pool = attribute < Intelligence ? physicalBonus : mentalBonus;
    if (pool <= 0) return;
    TextItem& bonus = AttributeOf(attribute).bonus;
    bonus.SetText(Str(Val(bonus.Text()) + 1));
    --pool;
    ++attrBonus[static_cast<std::size_t>(attribute)];
    ShowBonus();
}

void CharacterSheet::OptionalSkillPointBox_Action() {
    if (!loadingCharFile) FigureSecondaryAttributes();
}

void AddPointAccountingOperations(OperationTable& table) {
    for (int a = 0; a < kAttributeCount; ++a) {
        const std::string name = kAttributeNames[a];
        AddOperation(table, name + "Bonus_MouseDown",
                     [a](CharacterSheet& s) { s.AttributeBonus_MouseDown(a); });
        AddOperation(table, name + "Field_LostFocus",
                     [](CharacterSheet& s) { s.FigureSecondaryAttributes(); });
    }
    AddResultOperation(table, "SumQualityPoints", [](CharacterSheet& s) { return s.SumQualityPoints(); });
    AddResultOperation(table, "SumDrawbackPts", [](CharacterSheet& s) { return s.SumDrawbackPts(); });
    AddResultOperation(table, "SumMetaPts", [](CharacterSheet& s) { return s.SumMetaPts(); });
    AddResultOperation(table, "SumSkillPts", [](CharacterSheet& s) { return s.SumSkillPts(); });
    AddResultOperation(table, "SumAttrPts", [](CharacterSheet& s) { return s.SumAttrPts(); });
    AddResultOperation(table, "CalcSkillPts",
                       [](CharacterSheet& s) { return Str(static_cast<double>(s.CalcSkillPts())); });
    AddResultOperation(table, "CalcAgeAttrbPenalty", [](CharacterSheet& s) {
        return Str(static_cast<double>(s.CalcAgeAttrbPenalty()));
    });
    AddOperation(table, "ShowBonus", [](CharacterSheet& s) { s.ShowBonus(); });
    AddOperation(table, "OptionalSkillPointBox_Action",
                 [](CharacterSheet& s) { s.OptionalSkillPointBox_Action(); });
}

}  // namespace zeph
