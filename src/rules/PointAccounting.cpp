#include "rules/PointAccounting.h"

#include "rules/PointSums.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {

void AttributeBonus_MouseDown(CharacterSheet& sheet, int attribute) {
    std::int64_t& pool = attribute < Intelligence ? sheet.physicalBonus : sheet.mentalBonus;
    if (pool <= 0) return;
    TextItem& bonus = sheet.AttributeOf(attribute).bonus;
    bonus.SetText(Str(Val(bonus.Text()) + 1));
    --pool;
    ++sheet.attrBonus[static_cast<std::size_t>(attribute)];
    ShowBonus(sheet);
}

void OptionalSkillPointBox_Action(CharacterSheet& sheet) {
    if (!sheet.loadingCharFile) FigureSecondaryAttributes(sheet);
}

void AddPointAccountingOperations(OperationTable& table) {
    for (int a = 0; a < kAttributeCount; ++a) {
        const std::string name = kAttributeNames[a];
        AddOperation(table, name + "Bonus_MouseDown",
                     [a](CharacterSheet& s) { AttributeBonus_MouseDown(s, a); });
        AddOperation(table, name + "Field_LostFocus", FigureSecondaryAttributes);
    }
    AddResultOperation(table, "SumQualityPoints", SumQualityPoints);
    AddResultOperation(table, "SumDrawbackPts", SumDrawbackPts);
    AddResultOperation(table, "SumMetaPts", SumMetaPts);
    AddResultOperation(table, "SumSkillPts", SumSkillPts);
    AddResultOperation(table, "SumAttrPts", SumAttrPts);
    AddResultOperation(table, "CalcSkillPts",
                       [](CharacterSheet& s) { return Str(static_cast<double>(CalcSkillPts(s))); });
    AddResultOperation(table, "CalcAgeAttrbPenalty", [](CharacterSheet& s) {
        return Str(static_cast<double>(CalcAgeAttrbPenalty(s)));
    });
    AddOperation(table, "ShowBonus", ShowBonus);
    AddOperation(table, "OptionalSkillPointBox_Action", OptionalSkillPointBox_Action);
}

}  // namespace zeph
