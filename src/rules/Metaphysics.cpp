#include "rules/Metaphysics.h"

#include <algorithm>
#include <span>
#include <utility>

#include "ruledata/RuleData.h"
#include "rules/EntryLists.h"
#include "rules/SecondaryAttributes.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kTypeQuery = "//metaphysics/type";
// A press steps through a lowest level one level at a time, but through no more levels than
// this: a lowest level from absurd rule data (1e12) would keep the press busy for ever.
constexpr std::int64_t kMostLevelsInOnePress = 1000;

EntryList metaEntry(CharacterSheet& s) {
    EntryList entry{s.MetaListBox,   s.m_row,           s.MetaNameField, s.MetaLevelField,
                    s.MetaCostField, s.MetaXPCostField, s.MetaNoteField, s.MetaReferenceField};
    entry.ownCells = {{&s.MetaPrerequisiteField, MetaColumn::Prerequisites, true},
                      {&s.MetaMaxLevelField, MetaColumn::Levels},
                      {&s.MetaCostPerLevelField, MetaColumn::CostPerLevel},
                      {&s.MetaXPCostPerLevelField, MetaColumn::XPCostPerLevel},
                      {&s.MetaXPCostNewField, MetaColumn::XPCostNew}};
    return entry;
}

std::span<std::int64_t> attributeBonuses(CharacterSheet& sheet) {
    return std::span(sheet.m_attributes).first(kMetaAttributeBonusKeys.size());
}

std::span<std::string> pointBonuses(CharacterSheet& sheet) {
    return std::span(sheet.m_bonuspts).first(kMetaPointBonusKeys.size());
}

// The name stands between double quotes, since a metaphysic's name may hold an apostrophe.
std::string metaPath(CharacterSheet& sheet, const std::string& name) {
    return std::string(kTypeQuery) + "[@value='" + sheet.MetaTypePopup.Text() +
           "']/name[@value=\"" + name + "\"]";
}

void fillCosts(CharacterSheet& sheet, const XmlNode& costs) {
    sheet.MetaMaxLevelField.SetText(costs.Attribute("minlevel") + "/" +
                                    costs.Attribute("maxlevel"));
    // No highest level (0) means no limit, so the high price applies.
    const std::int64_t high = Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 2));
    FillCosts(costs, !(high < 5 && high != 0), sheet.MetaCostPerLevelField,
              sheet.MetaXPCostPerLevelField,
              {&sheet.MetaLevelField, &sheet.MetaCostField, &sheet.MetaXPCostField});
    sheet.MetaXPCostNewField.SetText(costs.Attribute("experiencecost_new"));
    if (Whole(sheet.MetaXPCostNewField.Text()) == 0)
        sheet.MetaXPCostNewField.SetText(sheet.MetaXPCostPerLevelField.Text());
}

std::int64_t lowestLevel(CharacterSheet& sheet) {
    return Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 1));
}

void stepUp(CharacterSheet& sheet) {
    const std::int64_t high = Whole(NthField(sheet.MetaMaxLevelField.Text(), "/", 2));
    const double level = StepLevel(sheet.MetaLevelField, +1);
    if (high != 0 && level > static_cast<double>(high)) {
        sheet.MetaLevelField.SetText(Str(static_cast<double>(high)));
        return;
    }
    if (!sheet.CharacterInPlayBox.Value()) {
        AddToNumber(sheet.MetaCostField, LevelPrice(sheet.MetaCostPerLevelField.Text(), level, 6));
    } else if (level < 6 && Whole(level) == 1) {
        // The first level has a price of its own, which replaces whatever stood there.
        sheet.MetaXPCostField.SetText(sheet.MetaXPCostNewField.Text());
    } else {
        AddToNumber(sheet.MetaXPCostField,
                    LevelPrice(sheet.MetaXPCostPerLevelField.Text(), level, 6));
    }
}

void stepDown(CharacterSheet& sheet) {
    const double level = StepLevel(sheet.MetaLevelField, -1);
    if (level < 0) {
        sheet.MetaLevelField.SetText("0");
        return;
    }
    if (!sheet.CharacterInPlayBox.Value()) {
        AddToNumber(sheet.MetaCostField, -LevelPrice(sheet.MetaCostPerLevelField.Text(), level, 5));
    } else if (level < 5 && Whole(level) == 0) {
        AddToNumber(sheet.MetaXPCostField, -Val(sheet.MetaXPCostNewField.Text()));
    } else {
        AddToNumber(sheet.MetaXPCostField,
                    -LevelPrice(sheet.MetaXPCostPerLevelField.Text(), level, 5));
    }
}

bool meetsRequirement(const ListItem& list, int row, const std::string& requirement,
                      double (*readLevel)(std::string_view)) {
    return EqualsNoCase(list.Cell(row, EntryColumn::Name), NthField(requirement, ",", 1)) &&
           readLevel(list.Cell(row, EntryColumn::Level)) >= Val(NthField(requirement, ",", 2));
}

// Each group of the text at "||" splits the whole text again, not the group, and the counter
// runs on across groups; a mixed text is judged that way on purpose.
bool prerequisitesMet(CharacterSheet& sheet) {
    const std::string& text = sheet.MetaPrerequisiteField.Text();
    if (text.empty()) return true;
    const ListItem& list = sheet.MetaListBox;
    bool met = false;
    int matches = 0;
    for (int g = 1; g <= CountFields(text, "||"); ++g) {
        if (InStr(NthField(text, "||", g), "&&") > 0) {
            const int requirements = CountFields(text, "&&");
            for (int r = 1; r <= requirements; ++r)
                for (int row = 0; row < list.ListCount(); ++row)
                    if (meetsRequirement(list, row, NthField(text, "&&", r), Val)) ++matches;
            if (matches == requirements) met = true;
        } else {
            for (int r = 1; r <= CountFields(text, "||"); ++r)
                for (int row = 0; row < list.ListCount(); ++row)
                    if (meetsRequirement(list, row, NthField(text, "||", r), CDbl)) met = true;
        }
    }
    return met;
}

}  // namespace

void LoadMetaTypes(CharacterSheet& sheet) { LoadChoices(sheet, sheet.MetaTypePopup, kTypeQuery); }

void MetaTypePopup_Change(CharacterSheet& sheet) {
    // No handler of its own: a failure goes to the application's.
    const RuleData& rules = sheet.Rules();
    XmlNodeList names =
        rules.Query(std::string(kTypeQuery) + "[@value='" + sheet.MetaTypePopup.Text() + "']/name");
    sheet.MetaPopup.DeleteAllRows();
    for (int i = 0; i < names.Count(); ++i) {
        const std::string name = names.Item(i).Attribute("value");
        // Only a metaphysic with a quality prerequisite that the character meets is offered.
        auto required = rules.Leaf(metaPath(sheet, name) + "/qualityprerequisite");
        if (required && MetaCheckQualityPrereq(sheet, *required)) sheet.MetaPopup.AddRow(name);
    }
}

bool MetaCheckQualityPrereq(CharacterSheet& sheet, const std::string& text) {
    if (text.empty()) return true;
    const ListItem& qualities = sheet.QualityListBox;
    bool met = false;
    for (int f = 1; f <= CountFields(text, "||"); ++f)
        for (int row = 0; row < qualities.ListCount(); ++row)
            if (InStr(qualities.Cell(row, EntryColumn::Name), NthField(text, "||", f)) > 0)
                met = true;
    return met;
}

void PopulateMetaInfo(CharacterSheet& sheet) {
    const std::string path = metaPath(sheet, sheet.MetaPopup.Text());
    PopulateEntry(sheet, metaEntry(sheet), sheet.MetaPopup, [&](const RuleData& rules) {
        if (auto costs = rules.Record(path + "/costs")) fillCosts(sheet, *costs);
        TakeLeaf(rules, path + "/pagereference", sheet.MetaReferenceField);
        TakeLeaf(rules, path + "/metaprerequisite", sheet.MetaPrerequisiteField);
        TakeLeaf(rules, path + "/notes", sheet.MetaNoteField);
        ReadBonuses(rules, path + "/bonusattr", kMetaAttributeBonusKeys, attributeBonuses(sheet));
        ReadBonuses(rules, path + "/bonuspts", kMetaPointBonusKeys, pointBonuses(sheet));
        sheet.m_altform = rules.Leaf(path + "/altform").value_or("");
    });
}

void MetaUpDownArrows_Up(CharacterSheet& sheet) {
    const std::int64_t low = lowestLevel(sheet);
    // A lowest level is bought at once: from 0 to 3 in one press.
    const bool oneStep = low == 0 || Whole(sheet.MetaLevelField.Text()) >= low;
    const std::int64_t steps = oneStep ? 1 : std::min(low, kMostLevelsInOnePress);
    for (std::int64_t step = 0; step < steps; ++step) stepUp(sheet);
}

void MetaUpDownArrows_Down(CharacterSheet& sheet) {
    const std::int64_t low = lowestLevel(sheet);
    const bool oneStep = low == 0 || low < Whole(sheet.MetaLevelField.Text());
    const std::int64_t steps = oneStep ? 1 : std::min(low, kMostLevelsInOnePress);
    for (std::int64_t step = 0; step < steps; ++step) stepDown(sheet);
}

void MetaRecordButton_Action(CharacterSheet& sheet) {
    auto row = RecordEntry(sheet, metaEntry(sheet), prerequisitesMet(sheet));
    if (!row) return;
    ListItem& list = sheet.MetaListBox;
    RecordBonuses(list, *row, MetaColumn::AttributeBonuses, attributeBonuses(sheet));
    RecordBonuses(list, *row, MetaColumn::PointBonuses, pointBonuses(sheet));
    list.SetCell(*row, MetaColumn::AltFormType, sheet.m_altform);
    sheet.m_altform.clear();
    sheet.m_row = -1;
    MetaGetBonus(sheet);
    FigureSecondaryAttributes(sheet);
}

void MetaListBox_DoubleClick(CharacterSheet& sheet) {
    const int row = PullBackEntry(metaEntry(sheet));
    const ListItem& list = sheet.MetaListBox;
    PullBackBonuses(list, row, MetaColumn::AttributeBonuses, attributeBonuses(sheet));
    PullBackBonuses(list, row, MetaColumn::PointBonuses, pointBonuses(sheet));
    sheet.m_altform = list.Cell(row, MetaColumn::AltFormType);
}

void MetaGetBonus(CharacterSheet& sheet) {
    const ListItem& list = sheet.MetaListBox;
    sheet.metaBonusTerms.Clear(list);
    sheet.metaBonusParts.clear();
    for (int entry = 0; entry < 14; ++entry) {
        Figure sum(sheet.metaBonusTerms);
        for (int row = 0; row < list.ListCount(); ++row)
            sum.PlusCut(ListRow{row}, Val(list.Cell(row, MetaColumn::AttributeBonuses + entry)) *
                                          Val(list.Cell(row, EntryColumn::Level)));
        sheet.m_all_bonuses[entry] = Whole(sum.Value());
        sheet.metaBonusParts.push_back(std::move(sum));
    }
}

void AddMetaphysicsOperations(OperationTable& table) {
    AddOperation(table, "LoadMetaTypes", LoadMetaTypes);
    AddOperation(table, "MetaTypePopup_MouseDown", LoadMetaTypes);
    AddOperation(table, "MetaTypePopup_Change", MetaTypePopup_Change);
    AddOperation(table, "MetaPopup_MouseDown", PopulateMetaInfo);
    AddOperation(table, "MetaPopup_Change", PopulateMetaInfo);
    AddOperation(table, "PopulateMetaInfo", PopulateMetaInfo);
    table["MetaCheckQualityPrereq"] = {
        [](CharacterSheet& sheet, const std::string& text) -> std::optional<std::string> {
            return MetaCheckQualityPrereq(sheet, text) ? "true" : "false";
        }};
    AddOperation(table, "MetaUpDownArrows_Up", MetaUpDownArrows_Up);
    AddOperation(table, "MetaUpDownArrows_Down", MetaUpDownArrows_Down);
    AddOperation(table, "MetaRecordButton_Action", MetaRecordButton_Action);
    AddOperation(table, "MetaListBox_DoubleClick", MetaListBox_DoubleClick);
    // A deletion renews the bonus sums; only the Remove button renews the sheet's totals.
    AddRemovalOperations(table,
                         {"MetaListBoxDeleteRow", "MetaRemoveButton_Action", "MetaListBox_KeyDown",
                          "MetaSeparator_Action"},
                         &CharacterSheet::MetaListBox, MetaGetBonus);
    AddOperation(table, "MetaGetBonus", MetaGetBonus);
}

}  // namespace zeph
