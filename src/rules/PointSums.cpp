#include "rules/PointSums.h"

#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

enum class Sign { Positive, Negative, Any };

// Sum of column 2 over the rows whose cost has the sign; the total is cut to a whole number.
std::string sumCosts(const ListItem& list, Sign sign) {
    double sum = 0;
    for (int row = 0; row < list.ListCount(); ++row) {
        double cost = Val(list.Cell(row, EntryColumn::Cost));
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

std::string SumQualityPoints(CharacterSheet& sheet) {
    return sumCosts(sheet.QualityListBox, Sign::Positive);
}
std::string SumDrawbackPts(CharacterSheet& sheet) {
    return sumCosts(sheet.QualityListBox, Sign::Negative);
}
std::string SumMetaPts(CharacterSheet& sheet) { return sumCosts(sheet.MetaListBox, Sign::Any); }
std::string SumSkillPts(CharacterSheet& sheet) { return sumCosts(sheet.SkillListBox, Sign::Any); }

std::string SumAttrPts(CharacterSheet& sheet) {
    // A point up to 5 costs 1, each point above 5 costs 3; bonus points cost nothing.
    double sum = 0;
    for (int a = 0; a < kAttributeCount; ++a) {
        double value = Val(sheet.AttributeOf(a).field.Text());
        sum += value;
        if (value > 5) sum += (value - 5) * 2;
    }
    return Str(static_cast<double>(Whole(sum)));
}

std::int64_t CalcSkillPts(CharacterSheet& sheet) {
    const ListItem& qualities = sheet.QualityListBox;
    std::int64_t points = Whole(Max(3 * CDbl(sheet.IntelligenceTotal.Text()), 1));
    std::int64_t status = 0;
    std::int64_t resources = 0;
    bool hasAgeQuality = false;
    for (int row = 0; row < qualities.ListCount(); ++row) {
        const std::string& name = qualities.Cell(row, EntryColumn::Name);
        const std::int64_t level = Whole(qualities.Cell(row, EntryColumn::Level));
        if (EqualsNoCase(Left(name, 14), "Status Quality")) status = AddWhole(status, level);
        if (EqualsNoCase(Left(name, 17), "Resources Quality"))
            resources = AddWhole(resources, level);
        if (EqualsNoCase(Left(name, 3), "Age")) hasAgeQuality = true;
    }
    std::int64_t social = status > resources ? status : resources;
    // Intelligence and the levels may be as large as Whole goes: the sums stop at its bound.
    if (social > 0) points = AddWhole(points, social);
    if (hasAgeQuality) return AddWhole(points, 5);

    if (typeIsOneOf(sheet.CharacterTypePopup.Text(), {"Gifted", "Mundane", "Human"})) {
        double age = CDbl(sheet.AgeField.Text());
        if (age < 18) points = AddWhole(points, -5);
        if (age > 30) points = AddWhole(points, Whole(Floor((age - 30) / 10) * 5));
    }
    return points;
}

std::int64_t CalcAgeAttrbPenalty(CharacterSheet& sheet) {
    const ListItem& qualities = sheet.QualityListBox;
    bool hasAgeQuality = false;
    for (int row = 0; row < qualities.ListCount(); ++row)
        if (EqualsNoCase(qualities.Cell(row, EntryColumn::Name), "Age")) hasAgeQuality = true;
    // "Human" is deliberately missing here, unlike in the skill rule.
    if (hasAgeQuality || !typeIsOneOf(sheet.CharacterTypePopup.Text(), {"Gifted", "Mundane"}))
        return 0;
    double age = CDbl(sheet.AgeField.Text());
    return age > 30 ? Whole(Floor((age - 30) / 10) * -2) : 0;
}

void ShowBonus(CharacterSheet& sheet) {
    if (sheet.mentalBonus > 0 || sheet.physicalBonus > 0) {
        sheet.InfoText.SetText(
            "Bonus points are availble. Click the green number next to an attribute you wish to "
            "increase. Mental=" +
            Str(static_cast<double>(sheet.mentalBonus)) +
            ". Physical=" + Str(static_cast<double>(sheet.physicalBonus)) + ".");
    } else {
        std::string line;
        if (!sheet.AttributeField.Text().empty())
            line = "Attr(" + sheet.AttributeField.Text() + ") Q(" + sheet.QualityField.Text() +
                   ") D(" + sheet.DrawbackField.Text() + ") S(" + sheet.SkillField.Text() + ") M(" +
                   sheet.MetaField.Text() + ") " + "     |     ";
        sheet.InfoText.SetText(line + "Books in use: " + sheet.Data().zephalondata);
    }
    sheet.InfoText.SetVisible(true);
}

}  // namespace zeph
