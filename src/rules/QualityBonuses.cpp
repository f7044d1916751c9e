#include "rules/QualityBonuses.h"

#include "rules/MetaBonusTerms.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {

// Alone, it forms the bonus items anew, and so begins a record of its own.
void QualityGetBonus(CharacterSheet& sheet) {
    sheet.figureTerms.Clear(sheet.QualityListBox);
    QualityGetBonus(sheet, "held before");
}

void QualityGetBonus(CharacterSheet& sheet, const std::string& heldLabel) {
    const ListItem& qualities = sheet.QualityListBox;
    FigureTerms& terms = sheet.figureTerms;
    Figure attributeSums[kAttributeCount] = {Figure(terms), Figure(terms), Figure(terms),
                                             Figure(terms), Figure(terms), Figure(terms)};
    double essenceChanneling = 0;
    double taintChanneling = 0;
    double sadicas = 0;

    for (int row = 0; row < qualities.ListCount(); ++row) {
        const double level = Val(qualities.Cell(row, EntryColumn::Level));
        const std::string& marker = qualities.Cell(row, QualityColumn::PoolMarker);
        if (!marker.empty()) {
            if (InStr(marker, "Essence Channeling") > 0) essenceChanneling += level;
            if (InStr(marker, "Taint Channeling") > 0) taintChanneling += level;
            if (EqualsNoCase(marker, "Taint")) taintChanneling += level;
            if (InStr(marker, "Sadicas") > 0) sadicas += level;
            // The total of the last recomputation: the totals are renewed after this runs.
            if (EqualsNoCase(marker, "Adept")) sadicas += Val(sheet.IntelligenceTotal.Text());
        }
        for (int a = 0; a < kAttributeCount; ++a)
            attributeSums[a].PlusBonus(
                ListRow{row},
                Val(qualities.Cell(row, QualityColumn::AttributeBonuses + a)) * level);
    }

    std::string summary;
    if (essenceChanneling > 0) summary += "Essence Channeling: " + Str(essenceChanneling);
    if (taintChanneling > 0)
        summary += (summary.empty() ? "" : ", ") + std::string("Taint Channeling: ") +
                   Str(taintChanneling);
    if (sadicas > 0) {
        // With another pool before it, the Sadicas sum shows under the Taint label and without
        // its maximum: that is how the sheet has always read.
        if (summary.empty())
            summary += "Sadicas: " + Str(sadicas) + ", Maximum Sadicas Pool: " + Str(sadicas * 30);
        else
            summary += ", Taint Channeling: " + Str(sadicas);
    }
    sheet.ExtraStatsField.SetText(summary);

    for (int a = 0; a < kAttributeCount; ++a) {
        TextItem& bonus = sheet.AttributeOf(a).bonus;
        Figure figure(terms);
        figure.PlusSum("qualities", attributeSums[a].Value(), attributeSums[a])
            .Plus(heldLabel, Val(bonus.Text()));
        terms.Write(bonus, PlusMetaBonus(figure, sheet, a));
    }
}

void AddQualityBonusOperations(OperationTable& table) {
    AddOperation(table, "QualityGetBonus", static_cast<void (*)(CharacterSheet&)>(QualityGetBonus));
}

}  // namespace zeph
