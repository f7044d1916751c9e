// The columns of the three big lists, by what they hold. The first six mean the same in all
// three; the others are each list's own. A run of bonuses takes the columns from its first on.
#pragma once

namespace zeph {

namespace EntryColumn {
inline constexpr int Name = 0, Level = 1, Cost = 2, XPCost = 3, Notes = 4, Reference = 5;
}

namespace QualityColumn {
inline constexpr int Prerequisites = 6, MaxLevel = 7, CostPerLevel = 8, XPCostPerLevel = 9,
                     PoolMarker = 10, AttributeBonuses = 11, PointBonuses = 17, TaintPool = 26,
                     AltForms = 27;
}

namespace SkillColumn {
inline constexpr int Type = 6, SubTypes = 7;
}

namespace MetaColumn {
inline constexpr int Prerequisites = 6, Levels = 7, CostPerLevel = 8, XPCostPerLevel = 9,
                     XPCostNew = 10, AttributeBonuses = 11, PointBonuses = 19, AltFormType = 25;
}

}  // namespace zeph
