// The one recomputation of the sheet: the type's record, the primary totals, the bonus pass
// over the qualities, the secondary attributes, the budgets and the drama-point mode, in this
// order, each step reading what the steps before it wrote.
#include "rules/SecondaryAttributes.h"

#include <optional>

#include "ruledata/RuleData.h"
#include "rules/MetaBonusTerms.h"
#include "rules/PointSums.h"
#include "rules/QualityBonuses.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// Working values of one run; each addition is cut back to a whole number at once, so
// fractions are lost row by row. Each tells what every row gave it, by the row's name.
struct BonusSums {
    explicit BonusSums(FigureTerms& terms)
        : skill(terms),
          meta(terms),
          attribute(terms),
          essence(terms),
          life(terms),
          speed(terms),
          endurance(terms),
          taintPool(terms) {}
    Figure skill, meta, attribute, essence, life, speed, endurance, taintPool;
};

double valueOf(const TextItem& item) { return Val(item.Text()); }

double highest(double a, double b, double c) { return Max(Max(a, b), c); }

// The quality bonus pass over one row of QualityListBox.
class BonusPass {
  public:
    BonusPass(CharacterSheet& sheet, BonusSums& sums) : s_(sheet), sums_(sums) {}

    void Row(int row) {
        const ListItem& list = s_.QualityListBox;
        const double level = Val(list.Cell(row, EntryColumn::Level));
        auto cell = [&](int column) -> const std::string& { return list.Cell(row, column); };
        const std::string& metaColumn = cell(QualityColumn::MetaBonus);
        const ListRow name{row};

        sums_.skill.PlusCut(name,
                            expression(cell(QualityColumn::SkillBonus), metaColumn, false, level));
        if (s_.OptionalSkillPointBox.Value())
            sums_.skill.PlusCut(name, Val(cell(QualityColumn::OptionalSkillBonus)) * level);
        sums_.meta.PlusCut(name, expression(metaColumn, metaColumn, true, level));
        const std::string& attribute = cell(QualityColumn::AttributeBonus);
        if (CountFields(attribute, "&&") > 1)
            sums_.attribute.PlusCut(name, Val(NthField(attribute, "&&", 2)) * level);
        sums_.essence.PlusCut(
            name, expression(cell(QualityColumn::EssenceAttributeBonus), metaColumn, false, level));
        Figure* flat[] = {&sums_.essence, &sums_.life, &sums_.speed, &sums_.endurance,
                          &sums_.taintPool};
        for (int i = 0; i < 5; ++i) {
            const std::string& bonus = cell(QualityColumn::EssenceBonus + i);
            if (!bonus.empty()) flat[i]->PlusCut(name, Val(bonus) * level);
        }
    }

  private:
    // An attribute word, "&&", a multiplier. For "Mental" and "Physical" outside the meta
    // column the multiplier is read from the meta column of the row: kept as it always was.
    double expression(const std::string& text, const std::string& metaColumn, bool isMetaColumn,
                      double level) const {
        if (CountFields(text, "&&") <= 1) return 0;
        const std::string word = NthField(text, "&&", 1);
        if (word.empty()) return 0;
        std::optional<double> value = attributeValue(word, isMetaColumn);
        if (!value) return 0;
        const bool group = EqualsNoCase(word, "Mental") || EqualsNoCase(word, "Physical");
        const std::string& multiplierSource = (group && !isMetaColumn) ? metaColumn : text;
        return Val(NthField(multiplierSource, "&&", 2)) * *value * level;
    }

    std::optional<double> attributeValue(const std::string& word, bool isMetaColumn) const {
        for (int a = 0; a < kAttributeCount; ++a)
            if (EqualsNoCase(word, kAttributeNames[a])) return valueOf(s_.AttributeOf(a).total);
        if (EqualsNoCase(word, "Mental")) {
            double i = valueOf(s_.IntelligenceTotal), p = valueOf(s_.PerceptionTotal),
                   w = valueOf(s_.WillpowerTotal);
            if (isMetaColumn) {
                i = static_cast<double>(Whole(i));
                p = static_cast<double>(Whole(p));
                w = static_cast<double>(Whole(w));
            }
            return highest(i, p, w);
        }
        if (EqualsNoCase(word, "Physical"))
            return highest(valueOf(s_.StrengthTotal), valueOf(s_.DexterityTotal),
                           valueOf(s_.ConstitutionTotal));
        return std::nullopt;
    }

    CharacterSheet& s_;
    BonusSums& sums_;
};

// A sum of the bonus pass, told by the qualities that gave it.
Figure& plusQualities(Figure& figure, const Figure& sum) {
    return figure.PlusSum("qualities", sum.Value(), sum);
}

// A figure that reads another figure's item names it, so its terms can be told beneath.
Figure& plusItem(Figure& figure, const TextItem& item) {
    return figure.Plus(item.Name(), valueOf(item));
}

// A budget: "used/budget", the budget formed from the type's base on.
Figure usedOver(FigureTerms& terms, const std::string& used, const char* base, double value) {
    Figure figure(terms);
    figure.Plus("used", Val(used)).Over(base, value);
    return figure;
}

}  // namespace

void FigureSecondaryAttributes(CharacterSheet& s) {
    try {
        s.figureTerms.Clear(s.QualityListBox);
        FigureTerms& figures = s.figureTerms;
        const std::string typeName =
            s.CharacterTypePopup.Text() + " (" + s.ChooseCharPopup.Text() + ")";
        const std::string choicePath = "//charactertype/type[@value='" +
                                       s.CharacterTypePopup.Text() + "']/name[@value='" +
                                       s.ChooseCharPopup.Text() + "']";
        auto m = [&s](int index) {
            return static_cast<double>(s.m_all_bonuses[static_cast<std::size_t>(index)]);
        };

        // Step 1: the type's fixed bonuses, and the reset of free points not wholly placed.
        std::int64_t typeEssence = 0;
        std::string typeSpeed;
        std::int64_t vitalAdder = 0;
        // What the *Bonus items hold when the quality and metaphysic bonuses join them.
        std::string heldLabel = "placed points";
        if (auto points = s.Rules().Record(choicePath + "/bonuspts")) {
            auto fieldBonus = [&](int a) { return CDbl(s.AttributeOf(a).bonus.Text()); };
            auto recordBonus = [&](int a) { return CDbl(points->Attribute(kAttributeKeys[a])); };
            std::int64_t physicalSum =
                Whole(fieldBonus(Strength) + fieldBonus(Dexterity) + fieldBonus(Constitution));
            std::int64_t mentalSum =
                Whole(fieldBonus(Intelligence) + fieldBonus(Perception) + fieldBonus(Willpower));
            std::int64_t physicalExpected =
                Whole(recordBonus(Strength) + recordBonus(Dexterity) + recordBonus(Constitution) +
                      Val(points->Attribute("physicalattr")) + m(7));
            std::int64_t mentalExpected =
                Whole(recordBonus(Intelligence) + recordBonus(Perception) + recordBonus(Willpower) +
                      CDbl(points->Attribute("mentalattr")) + m(6));
            const bool reset = physicalSum != physicalExpected || mentalSum != mentalExpected;
            heldLabel = reset ? typeName : typeName + " and placed points";
            if (reset) {
                for (int a = 0; a < kAttributeCount; ++a)
                    s.AttributeOf(a).bonus.SetText(Str(Val(points->Attribute(kAttributeKeys[a]))));
                // The sum is cut, not its first term: "-0.5" with a pool bonus of 2 leaves 1.
                s.mentalBonus = Whole(Val(points->Attribute("mentalattr")) + m(6));
                s.physicalBonus = Whole(Val(points->Attribute("physicalattr")) + m(7));
            }
            for (int a = 0; a < kAttributeCount; ++a)
                s.attrBonus[static_cast<std::size_t>(a)] = Whole(s.AttributeOf(a).bonus.Text());
            typeEssence = Whole(points->Attribute("essence"));
            typeSpeed = points->Attribute("speed");
            vitalAdder = Whole(points->Attribute("vitalessence"));
        } else {
            for (int a = 0; a < kAttributeCount; ++a)
                s.AttributeOf(a).bonus.SetText(
                    Str(static_cast<double>(s.attrBonus[static_cast<std::size_t>(a)])));
        }

        // Step 2: the qualities' and metaphysics' attribute bonuses, and the pool summary.
        QualityGetBonus(s, heldLabel);

        // Step 3: primary totals, in the order the sheet has always formed them.
        for (int a : {Dexterity, Intelligence, Constitution, Willpower, Strength, Perception}) {
            CharacterSheet::AttributeItems items = s.AttributeOf(a);
            Figure total(figures);
            figures.Write(items.total, plusItem(plusItem(total, items.field), items.bonus));
        }

        // Step 4: the bonus pass over the qualities.
        BonusSums sums(figures);
        BonusPass pass(s, sums);
        for (int row = 0; row < s.QualityListBox.ListCount(); ++row) pass.Row(row);

        // Step 5: secondary bonuses.
        const bool speedDivides = InStr(typeSpeed, "/") > 0;
        Figure life(figures), speed(figures), endurance(figures), essence(figures);
        figures.Write(s.LifePointsBonus, PlusMetaBonus(plusQualities(life, sums.life), s, 8));
        plusQualities(speed, sums.speed).PlusBonus(typeName, speedDivides ? 0 : CDbl(typeSpeed));
        figures.Write(s.SpeedBonus, PlusMetaBonus(speed, s, 11));
        figures.Write(s.EnduranceBonus,
                      PlusMetaBonus(plusQualities(endurance, sums.endurance), s, 9));
        plusQualities(essence, sums.essence).PlusBonus(typeName, static_cast<double>(typeEssence));
        figures.Write(s.EssenceBonus, PlusMetaBonus(essence, s, 10));

        // Step 6: the type's formulas.
        double lifeMultiplier = 0, lifeAdder = 0, enduranceMultiplier = 0, enduranceAdder = 0;
        if (auto calculations = s.Rules().Record(choicePath + "/calculations")) {
            auto whole = [&](const char* name) {
                return static_cast<double>(Whole(calculations->Attribute(name)));
            };
            lifeMultiplier = whole("lifepointcalc_multiplier");
            lifeAdder = whole("lifepointcalc_adder");
            enduranceMultiplier = whole("endurancecalc_multiplier");
            enduranceAdder = whole("endurancecalc_adder");
        }

        // Step 7: secondary totals.
        const double strength = valueOf(s.StrengthTotal),
                     constitution = valueOf(s.ConstitutionTotal),
                     dexterity = valueOf(s.DexterityTotal), willpower = valueOf(s.WillpowerTotal);
        // Each bonus joins its total where adding it gives the same number as the formula.
        Figure lifeTotal(figures);
        lifeTotal.Plus("Strength", strength)
            .Plus("Constitution", constitution)
            .Times("life multiplier", lifeMultiplier);
        plusItem(lifeTotal, s.LifePointsBonus).Plus("life adder", lifeAdder);
        figures.Write(s.LifePointsTotal, lifeTotal);
        Figure enduranceTotal(figures);
        enduranceTotal.Plus("Strength", strength)
            .Plus("Constitution", constitution)
            .Plus("Willpower", willpower)
            .Times("endurance multiplier", enduranceMultiplier);
        plusItem(enduranceTotal, s.EnduranceBonus).Plus("endurance adder", enduranceAdder);
        figures.Write(s.EnduranceTotal, enduranceTotal);
        Figure essenceTotal(figures);
        for (int a = 0; a < kAttributeCount; ++a)
            essenceTotal.Plus(kAttributeNames[a], valueOf(s.AttributeOf(a).total));
        figures.Write(s.EssenceTotal, plusItem(essenceTotal, s.EssenceBonus));
        Figure speedTotal(figures);
        speedTotal.Plus("Constitution", constitution).Plus("Dexterity", dexterity).Times("", 2);
        if (speedDivides)
            speedTotal.DividedRounded(typeName + " speed divisor",
                                      CDbl(NthField(typeSpeed, "/", 2)));
        figures.Write(s.SpeedTotal, plusItem(speedTotal, s.SpeedBonus));

        // Step 8: the Taint pool joins the pool summary.
        sums.taintPool.PlusCut("metaphysics", m(12));
        if (sums.taintPool.Value() > 0) {
            const std::string pool = "Taint Pool: " + Str(sums.taintPool.Value());
            s.ExtraStatsField.SetText(
                s.ExtraStatsField.Text().empty() ? pool : s.ExtraStatsField.Text() + ", " + pool);
        }

        // Step 9: the budgets.
        if (auto creation = s.Rules().Record(choicePath + "/creationpts")) {
            // The quality and drawback budgets stand as the rule data writes them.
            auto fixedBudget = [&](TextItem& item, const std::string& used, const char* name) {
                const std::string base = creation->Attribute(name);
                figures.Write(item, used + "/" + base, usedOver(figures, used, name, Val(base)));
            };
            fixedBudget(s.QualityField, SumQualityPoints(s), "qualitypts");
            fixedBudget(s.DrawbackField, SumDrawbackPts(s), "drawbackpts");
            // The other budgets grow by what the qualities give, and optional points.
            auto budget = [&](TextItem& item, const std::string& used, const char* name,
                              const char* extraLabel, double extra, const Figure& parts) {
                Figure figure = usedOver(figures, used, name, Val(creation->Attribute(name)));
                figure.PlusSum(extraLabel, extra, parts);
                figures.Write(item, used + "/" + Str(figure.Value()), figure);
            };
            budget(s.MetaField, SumMetaPts(s), "metapts", "qualities", sums.meta.Value(),
                   sums.meta);
            const std::int64_t attributeBonus = Whole(sums.attribute.Value());
            const std::int64_t skillBonus = Whole(sums.skill.Value());
            if (s.OptionalSkillPointBox.Value()) {
                // The sums may reach Whole's bound (rule data of 1e300): they stop there.
                const std::int64_t age = CalcAgeAttrbPenalty(s);
                Figure attributeExtra(figures);
                plusQualities(attributeExtra, sums.attribute)
                    .PlusBonus("age", static_cast<double>(age));
                budget(s.AttributeField, SumAttrPts(s), "attrpts", "qualities and age",
                       static_cast<double>(AddWhole(attributeBonus, age)), attributeExtra);
                const std::int64_t optional = CalcSkillPts(s);
                Figure skillExtra(figures);
                plusQualities(skillExtra, sums.skill)
                    .PlusBonus("Intelligence, status and age", static_cast<double>(optional));
                budget(s.SkillField, SumSkillPts(s), "optskillptgen",
                       "qualities and optional points",
                       static_cast<double>(AddWhole(skillBonus, optional)), skillExtra);
            } else {
                budget(s.AttributeField, SumAttrPts(s), "attrpts", "qualities",
                       static_cast<double>(attributeBonus), sums.attribute);
                budget(s.SkillField, SumSkillPts(s), "skillpts", "qualities",
                       static_cast<double>(skillBonus), sums.skill);
            }
            if (EqualsNoCase(creation->Attribute("vitalessence"), "true")) {
                s.LPText.SetText("Vital Ess.:");
                Figure vital(figures);
                vital.Plus(typeName + " vital essence", static_cast<double>(vitalAdder));
                for (int a = 0; a < kAttributeCount; ++a)
                    vital.Plus(kAttributeNames[a], CDbl(s.AttributeOf(a).total.Text()));
                // Essence is formed before the essence bonus goes into the vital figure.
                Figure vitalEssence = vital.Copy();
                vitalEssence.Times("", 2);
                figures.Write(s.EssenceTotal, plusItem(vitalEssence, s.EssenceBonus));
                figures.Write(s.LifePointsTotal, plusItem(vital, s.EssenceBonus));
            } else {
                s.LPText.SetText("Life Points:");
            }
        }

        // Step 10: drama-point mode. The hidden items keep being computed.
        auto drama = s.Rules().Record(choicePath + "/dramapts");
        const bool dramaPoints = drama.has_value();
        if (dramaPoints && !s.CharacterInPlayBox.Value()) {
            const std::string points = drama->Attribute("points");
            Figure dramaFigure(figures);
            figures.Write(s.DPField, points,
                          dramaFigure.Plus(typeName + " drama points", Val(points)));
        }
        s.DPField.SetVisible(dramaPoints);
        s.DPText.SetVisible(dramaPoints);
        for (Item* item : std::initializer_list<Item*>{
                 &s.EndText, &s.EnduranceBonus, &s.EnduranceTotal, &s.SpeedText, &s.SpeedBonus,
                 &s.SpeedTotal, &s.EssenceLabel, &s.EssenceBonus, &s.EssenceTotal})
            item->SetVisible(!dramaPoints);

        // Step 11: the status line.
        ShowBonus(s);
    } catch (const XmlError& failure) {
        s.ShowXmlFailure(failure);
    }
}

void AddSecondaryAttributeOperations(OperationTable& table) {
    AddOperation(table, "FigureSecondaryAttributes", FigureSecondaryAttributes);
    AddOperation(table, "TabPanel1_Change", FigureSecondaryAttributes);
}

}  // namespace zeph
