// The columns of the three big lists and of the moves list, by what they hold. The first six mean
// the same in all three; the others are each list's own. A run of bonuses takes the columns from
// its first on.
#pragma once

namespace zeph {

namespace EntryColumn {
inline constexpr int Name = 0, Level = 1, Cost = 2, XPCost = 3, Notes = 4, Reference = 5;
}

namespace QualityColumn {
inline constexpr int Prerequisites = 6, MaxLevel = 7, CostPerLevel = 8, XPCostPerLevel = 9,
                     PoolMarker = 10, AttributeBonuses = 11, PointBonuses = 17, TaintPool = 26,
                     AltForms = 27;
// The point bonuses one by one, in the order of the rule data's bonuspts attributes.
inline constexpr int SkillBonus = 17, OptionalSkillBonus = 18, MetaBonus = 19, AttributeBonus = 20,
                     EssenceAttributeBonus = 21, EssenceBonus = 22;
}  // namespace QualityColumn

namespace SkillColumn {
inline constexpr int Type = 6, SubTypes = 7;
}

namespace MetaColumn {
inline constexpr int Prerequisites = 6, Levels = 7, CostPerLevel = 8, XPCostPerLevel = 9,
                     XPCostNew = 10, AttributeBonuses = 11, PointBonuses = 19, AltFormType = 25;
}

// SkillMartialVisualListBox: a martial maneuver or a visualization, its level, the experience
// spent on it.
namespace MoveColumn {
inline constexpr int Name = 0, Level = 1, Experience = 2;
}

}  // namespace zeph
