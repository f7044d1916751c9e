// The one recomputation of the sheet: the type's record, the primary totals, the bonus pass
// over the qualities, the secondary attributes, the budgets and the drama-point mode, in this
// order, each step reading what the steps before it wrote.
#include "rules/SecondaryAttributes.h"

#include <optional>

#include "ruledata/RuleData.h"
#include "rules/PointSums.h"
#include "rules/QualityBonuses.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// Working values of one run; each addition is cut back to a whole number at once, so
// fractions are lost row by row.
struct BonusSums {
    std::int64_t skill = 0, meta = 0, attribute = 0, essence = 0;
    std::int64_t life = 0, speed = 0, endurance = 0, taintPool = 0;
};

void addCut(std::int64_t& sum, double amount) { sum = Whole(static_cast<double>(sum) + amount); }

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

        addCut(sums_.skill, expression(cell(QualityColumn::SkillBonus), metaColumn, false, level));
        if (s_.OptionalSkillPointBox.Value())
            addCut(sums_.skill, Val(cell(QualityColumn::OptionalSkillBonus)) * level);
        addCut(sums_.meta, expression(metaColumn, metaColumn, true, level));
        const std::string& attribute = cell(QualityColumn::AttributeBonus);
        if (CountFields(attribute, "&&") > 1)
            addCut(sums_.attribute, Val(NthField(attribute, "&&", 2)) * level);
        addCut(sums_.essence,
               expression(cell(QualityColumn::EssenceAttributeBonus), metaColumn, false, level));
        std::int64_t* flat[] = {&sums_.essence, &sums_.life, &sums_.speed, &sums_.endurance,
                                &sums_.taintPool};
        for (int i = 0; i < 5; ++i) {
            const std::string& bonus = cell(QualityColumn::EssenceBonus + i);
            if (!bonus.empty()) addCut(*flat[i], Val(bonus) * level);
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

}  // namespace

void FigureSecondaryAttributes(CharacterSheet& s) {
    try {
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
            if (physicalSum != physicalExpected || mentalSum != mentalExpected) {
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
        QualityGetBonus(s);

        // Step 3: primary totals, in the order the sheet has always formed them.
        for (int a : {Dexterity, Intelligence, Constitution, Willpower, Strength, Perception}) {
            CharacterSheet::AttributeItems items = s.AttributeOf(a);
            items.total.SetText(Str(valueOf(items.field) + valueOf(items.bonus)));
        }

        // Step 4: the bonus pass over the qualities.
        BonusSums sums;
        BonusPass pass(s, sums);
        for (int row = 0; row < s.QualityListBox.ListCount(); ++row) pass.Row(row);

        // Step 5: secondary bonuses.
        const bool speedDivides = InStr(typeSpeed, "/") > 0;
        s.LifePointsBonus.SetText(Str(static_cast<double>(sums.life) + m(8)));
        s.SpeedBonus.SetText(
            Str(static_cast<double>(sums.speed) + (speedDivides ? 0 : CDbl(typeSpeed)) + m(11)));
        s.EnduranceBonus.SetText(Str(static_cast<double>(sums.endurance) + m(9)));
        s.EssenceBonus.SetText(
            Str(static_cast<double>(sums.essence) + static_cast<double>(typeEssence) + m(10)));

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
        s.LifePointsTotal.SetText(Str(valueOf(s.LifePointsBonus) +
                                      (strength + constitution) * lifeMultiplier + lifeAdder));
        s.EnduranceTotal.SetText(Str(valueOf(s.EnduranceBonus) +
                                     (strength + constitution + willpower) * enduranceMultiplier +
                                     enduranceAdder));
        double primarySum = 0;
        for (int a = 0; a < kAttributeCount; ++a) primarySum += valueOf(s.AttributeOf(a).total);
        s.EssenceTotal.SetText(Str(valueOf(s.EssenceBonus) + primarySum));
        if (speedDivides)
            s.SpeedTotal.SetText(
                Str(valueOf(s.SpeedBonus) +
                    Round((constitution + dexterity) * 2 / CDbl(NthField(typeSpeed, "/", 2)))));
        else
            s.SpeedTotal.SetText(Str(valueOf(s.SpeedBonus) + (constitution + dexterity) * 2));

        // Step 8: the Taint pool joins the pool summary.
        addCut(sums.taintPool, m(12));
        if (sums.taintPool > 0) {
            const std::string pool = "Taint Pool: " + Str(static_cast<double>(sums.taintPool));
            s.ExtraStatsField.SetText(
                s.ExtraStatsField.Text().empty() ? pool : s.ExtraStatsField.Text() + ", " + pool);
        }

        // Step 9: the budgets.
        if (auto creation = s.Rules().Record(choicePath + "/creationpts")) {
            auto budget = [&](const char* name, double extra) {
                return Str(Val(creation->Attribute(name)) + extra);
            };
            s.QualityField.SetText(SumQualityPoints(s) + "/" + creation->Attribute("qualitypts"));
            s.DrawbackField.SetText(SumDrawbackPts(s) + "/" + creation->Attribute("drawbackpts"));
            s.MetaField.SetText(SumMetaPts(s) + "/" +
                                budget("metapts", static_cast<double>(sums.meta)));
            if (s.OptionalSkillPointBox.Value()) {
                // The sums may reach Whole's bound (rule data of 1e300): they stop there.
                const auto attributeExtra = AddWhole(sums.attribute, CalcAgeAttrbPenalty(s));
                s.AttributeField.SetText(SumAttrPts(s) + "/" +
                                         budget("attrpts", static_cast<double>(attributeExtra)));
                const auto skillExtra = AddWhole(sums.skill, CalcSkillPts(s));
                s.SkillField.SetText(SumSkillPts(s) + "/" +
                                     budget("optskillptgen", static_cast<double>(skillExtra)));
            } else {
                s.AttributeField.SetText(SumAttrPts(s) + "/" +
                                         budget("attrpts", static_cast<double>(sums.attribute)));
                s.SkillField.SetText(SumSkillPts(s) + "/" +
                                     budget("skillpts", static_cast<double>(sums.skill)));
            }
            if (EqualsNoCase(creation->Attribute("vitalessence"), "true")) {
                s.LPText.SetText("Vital Ess.:");
                double vital = static_cast<double>(vitalAdder);
                for (int a = 0; a < kAttributeCount; ++a)
                    vital += CDbl(s.AttributeOf(a).total.Text());
                // Essence is formed before the essence bonus goes into the vital figure.
                s.EssenceTotal.SetText(Str(vital * 2 + valueOf(s.EssenceBonus)));
                s.LifePointsTotal.SetText(Str(vital + valueOf(s.EssenceBonus)));
            } else {
                s.LPText.SetText("Life Points:");
            }
        }

        // Step 10: drama-point mode. The hidden items keep being computed.
        auto drama = s.Rules().Record(choicePath + "/dramapts");
        const bool dramaPoints = drama.has_value();
        if (dramaPoints && !s.CharacterInPlayBox.Value())
            s.DPField.SetText(drama->Attribute("points"));
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
