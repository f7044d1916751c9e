#include "rules/MetaBonusTerms.h"

#include "sheet/CharacterSheet.h"

namespace zeph {

Figure& PlusMetaBonus(Figure& figure, const CharacterSheet& sheet, int entry) {
    const auto index = static_cast<std::size_t>(entry);
    const double bonus = static_cast<double>(sheet.m_all_bonuses[index]);
    if (index < sheet.metaBonusParts.size() && sheet.metaBonusParts[index].Value() == bonus)
        return figure.PlusSum("metaphysics", bonus, sheet.metaBonusParts[index]);
    return figure.PlusBonus("metaphysics", bonus);
}

}  // namespace zeph
