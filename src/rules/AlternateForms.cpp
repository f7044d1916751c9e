#include "rules/AlternateForms.h"

#include <array>
#include <cstdint>

#include "ruledata/RuleData.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// The figures of the block being written. They carry over: a form without attributes or
// calculations shows those of the block before it.
struct FormFigures {
    std::array<std::int64_t, kAttributeCount> attribute{};
    std::string armor;
    double lifeMultiplier = 0, lifeAdder = 0;
    double enduranceMultiplier = 0, enduranceAdder = 0, speedAdder = 0;

    std::int64_t operator[](Attribute a) const { return attribute[static_cast<std::size_t>(a)]; }
};

std::string QualityFormPath(const std::string& form) {
    return "//altforms/*/name[@value='" + form + "']";
}

std::string Line(const std::string& text) { return text + "\n"; }

std::string AttributeLines(const std::string& form, const FormFigures& f) {
    auto pair = [&](Attribute a) {
        return std::string(kAttributeNames[a]) + ": " + Str(static_cast<double>(f[a]));
    };
    return Line(form) + Line(pair(Strength) + " " + pair(Dexterity) + " " + pair(Constitution)) +
           Line(pair(Intelligence) + " " + pair(Perception) + " " + pair(Willpower));
}

void ReadCalculations(const CharacterSheet& sheet, const std::string& prefix, FormFigures& f) {
    const auto calculations = sheet.Rules().Record(prefix + "/calculations");
    if (!calculations) return;
    f.lifeMultiplier = Val(calculations->Attribute("lifepointcalc_multiplier"));
    f.lifeAdder = Val(calculations->Attribute("lifepointcalc_adder"));
    f.enduranceMultiplier = Val(calculations->Attribute("endurancecalc_multiplier"));
    f.enduranceAdder = Val(calculations->Attribute("endurancecalc_adder"));
    f.speedAdder = Val(calculations->Attribute("speed_adder"));
}

// Endurance, speed and essence: only for a character without drama points.
std::string PoolLines(const CharacterSheet& sheet, const FormFigures& f) {
    // The attributes of a form come from the rule data, and may be as large as Whole goes.
    const auto endurance =
        AddWhole(MultiplyWhole(Whole(f.enduranceMultiplier),
                               AddWhole(AddWhole(f[Strength], f[Constitution]), f[Willpower])),
                 Whole(f.enduranceAdder));
    const auto speed =
        AddWhole(MultiplyWhole(AddWhole(f[Constitution], f[Dexterity]), 2), Whole(f.speedAdder));
    return Line("Endurance Points: " + Str(static_cast<double>(endurance))) +
           Line("Speed: " + Str(static_cast<double>(speed))) +
           Line("Essence Pool: " + sheet.EssenceTotal.Text());
}

std::string ClosingLines(const CharacterSheet& sheet, const std::string& prefix) {
    std::string text;
    for (const auto& [leaf, caption] : {std::pair{"/naturalattacks", "Natural Attacks: "},
                                        {"/other", "Other: "},
                                        {"/pagereference", "Page Reference: "}})
        if (const auto value = sheet.Rules().Leaf(prefix + leaf)) text += Line(caption + *value);
    return text + "\n\n";
}

// A quality's form starts from the points bought: bonuses do not carry into a form.
std::string QualityBlock(CharacterSheet& sheet, const std::string& form, FormFigures& f) {
    const std::string prefix = QualityFormPath(form);
    if (const auto attributes = sheet.Rules().Record(prefix + "/attributes")) {
        for (int a = 0; a < kAttributeCount; ++a)
            f.attribute[static_cast<std::size_t>(a)] =
                Whole(CDbl(sheet.AttributeOf(a).field.Text()) +
                      CDbl(attributes->Attribute(kAttributeKeys[a])));
        f.armor = attributes->Attribute("armorvalue");
    }
    std::string text = AttributeLines(form, f);
    ReadCalculations(sheet, prefix, f);
    const auto body = static_cast<double>(AddWhole(f[Strength], f[Constitution]));
    text += Line("Life Points: " + Str(f.lifeMultiplier * body + f.lifeAdder));
    if (!sheet.DPField.Visible()) text += PoolLines(sheet, f) + Line("Armor Value: " + f.armor);
    return text + ClosingLines(sheet, prefix);
}

// A metaphysic's form starts from the totals, and "/n" divides a total instead of adding.
std::string MetaBlock(CharacterSheet& sheet, const std::string& prefix, const std::string& form,
                      FormFigures& f) {
    if (const auto attributes = sheet.Rules().Record(prefix + "/attributes")) {
        for (int a = 0; a < kAttributeCount; ++a) {
            const std::string change = attributes->Attribute(kAttributeKeys[a]);
            const double total = CDbl(sheet.AttributeOf(a).total.Text());
            f.attribute[static_cast<std::size_t>(a)] =
                InStr(change, "/") > 0 ? Whole(Round(total / CDbl(NthField(change, "/", 2))))
                                       : Whole(total + CDbl(change));
        }
        f.armor = attributes->Attribute("armorvalue");
    }
    std::string text = AttributeLines(form, f);
    ReadCalculations(sheet, prefix, f);
    const auto life =
        AddWhole(MultiplyWhole(Whole(f.lifeMultiplier), AddWhole(f[Strength], f[Constitution])),
                 Whole(f.lifeAdder));
    text += Line("Life Points: " + Str(static_cast<double>(life)));
    if (!sheet.DPField.Visible()) text += PoolLines(sheet, f);
    if (Val(f.armor) > 0) text += Line("Armor Value: " + f.armor);
    return text + ClosingLines(sheet, prefix);
}

}  // namespace

void QualityAlternateFormCombo_Change(CharacterSheet& sheet) { QualityGetAltFormData(sheet); }

void QualityGetAltFormData(CharacterSheet& sheet) {
    const std::string form = sheet.QualityAlternateFormCombo.Text();
    // The name is renamed before the form's price is looked up, and stays so without one.
    sheet.QualityNameField.SetText(NthField(sheet.QualityNameField.Text(), "(", 1) + "(" + form +
                                   ")");
    try {
        const auto costs = sheet.Rules().Record(QualityFormPath(form) + "/costs");
        if (!costs) return;
        // The form's own name counts too, since it now stands in the field.
        const std::string price = costs->Attribute(
            InStr(sheet.QualityNameField.Text(), "Accursed") > 0 ? "cursecost" : "cost");
        sheet.QualityLevelField.SetText("0");
        sheet.QualityCostField.SetText("");
        sheet.QualityMaxLevelField.SetText("1");
        sheet.QualityXPCostField.SetText("");
        sheet.QualityCostPerLevelField.SetText(price + "/" + price);
        sheet.QualityXPCostPerLevelField.SetText(price + "/" + price);
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
}

std::string GenerateAltForms(CharacterSheet& sheet) {
    std::string text;
    FormFigures figures;
    try {
        const ListItem& qualities = sheet.QualityListBox;
        for (int row = 0; row < qualities.ListCount(); ++row) {
            const std::string form =
                NthField(qualities.Cell(row, QualityColumn::AltForms), "&&", 3);
            if (!form.empty()) text += QualityBlock(sheet, form, figures);
        }
        const ListItem& metaphysics = sheet.MetaListBox;
        for (int row = 0; row < metaphysics.ListCount(); ++row) {
            const std::string& type = metaphysics.Cell(row, MetaColumn::AltFormType);
            if (type.empty()) continue;
            const std::string typePath = "//altforms/type[@value='" + type + "']/name";
            const XmlNodeList forms = sheet.Rules().Query(typePath);
            for (int n = 0; n < forms.Count(); ++n) {
                const std::string form = forms.Item(n).Attribute("value");
                text += MetaBlock(sheet, typePath + "[@value='" + form + "']", form, figures);
            }
        }
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
        return "";
    }
    return text;
}

void AddAlternateFormOperations(OperationTable& table) {
    AddOperation(table, "QualityAlternateFormCombo_Change", QualityAlternateFormCombo_Change);
    AddOperation(table, "QualityGetAltFormData", QualityGetAltFormData);
    AddResultOperation(table, "GenerateAltForms", GenerateAltForms);
}

}  // namespace zeph
