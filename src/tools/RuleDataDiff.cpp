#include "tools/RuleDataDiff.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include "documents/CharacterFile.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "ruledata/RuleData.h"
#include "rules/Metaphysics.h"
#include "rules/Qualities.h"
#include "rules/SecondaryAttributes.h"
#include "rules/Skills.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// The row readings run the entry operations by hand, so that choosing a name does not also
// run them through the items' change operations.
const OperationTable kNoOperations;
// A level of absurd rule data (1e12) is not stepped to for ever.
constexpr int kMostPresses = 1000;
// The names of readings and figures, the longest "Metaphysics points", fit in this.
constexpr std::size_t kNameWidth = 18;

using Readings = std::vector<std::pair<std::string, std::string>>;

// A sheet of its own over one rule data file, whose messages go nowhere.
struct ScratchSheet {
    ScratchSheet(DataModule& data, const OperationTable& operations)
        : platform("", "", ""), sheet(data, platform, operations) {}
    ScriptedPlatform platform;
    CharacterSheet sheet;
};

// The type (or category) that holds a name under a section's type query: the first one, as
// the queries by type and name find it; nullopt when the file does not hold the name.
std::optional<std::string> typeOf(const RuleData& rules, const std::string& typeQuery,
                                  const std::string& name) {
    // Names with both kinds of quote cannot be asked for; the rules' own queries cannot either.
    const char quote = name.find('\'') == std::string::npos ? '\'' : '"';
    const auto found = rules.Record(typeQuery + "/name[@value=" + quote + name + quote + "]");
    if (!found) return std::nullopt;
    return found->Parent().Attribute("value");
}

// Selects `name` in a choice list, as the user's choosing it from the list does.
void choose(ComboItem& names, const std::string& name) {
    names.DeleteAllRows();
    names.AddRow(name);
    names.SetText(name);
}

// Presses `up` until the level reaches `target`, or stops rising at a highest level.
void stepTo(const TextItem& level, double target, const std::function<void()>& up) {
    for (int press = 0; press < kMostPresses && Val(level.Text()) < target; ++press) {
        const double before = Val(level.Text());
        up();
        if (!(Val(level.Text()) > before)) return;
    }
}

// The bonuses a name gives, "key value" each, or "none".
template <class Keys, class Values>
void addBonuses(std::string& text, const Keys& keys, const Values& values) {
    auto given = values.begin();
    for (const char* key : keys) {
        std::string value;
        if constexpr (std::is_same_v<typename Values::value_type, std::string>)
            value = *given++;
        else
            value = Str(static_cast<double>(*given++));
        if (value.empty() || value == "0") continue;
        text += (text.empty() ? "" : ", ") + std::string(key) + " " + value;
    }
}

std::string orNone(const std::string& text) { return text.empty() ? "none" : text; }

// A row's name as its list knows it: a skill's choice in brackets and a specialty follow the
// rule data's name.
std::string skillBaseName(const std::string& name) {
    std::string base = NthField(name, "(", 1);
    while (!base.empty() && base.back() == ' ') base.pop_back();
    return base;
}

// What each row of the three lists reads under one rule data file, worked out on a scratch
// sheet with the lists' own operations.
class RowReader {
  public:
    explicit RowReader(DataModule& data)
        : scratch_(data, kNoOperations), rules_(*data.xdata) {}

    std::optional<Readings> Quality(const std::string& name, double level) {
        const auto type = typeOf(rules_, "//qualities/type", name);
        if (!type) return std::nullopt;
        CharacterSheet& s = scratch_.sheet;
        for (TextItem* item : {&s.QualityCostPerLevelField, &s.QualityXPCostPerLevelField,
                               &s.QualityMaxLevelField})
            item->SetText("");
        for (TextItem* item : {&s.QualityLevelField, &s.QualityCostField}) item->SetText("0");
        s.QualityTypePopup.SetText(*type);
        choose(s.QualityPopup, name);
        PopulateQualityInfo(s);
        stepTo(s.QualityLevelField, level, [&] { QualityUpDownArrows_Up(s); });
        std::string bonuses;
        addBonuses(bonuses, kAttributeKeys, s.q_attributes);
        addBonuses(bonuses, kQualityBonusPointKeys, s.q_bonuspts);
        return Readings{{"price per level", s.QualityCostPerLevelField.Text()},
                        {"XP price per level", s.QualityXPCostPerLevelField.Text()},
                        {"cost", s.QualityCostField.Text()},
                        {"bonuses", orNone(bonuses)}};
    }

    std::optional<Readings> Skill(const std::string& name, double level) {
        const std::string base = skillBaseName(name);
        const auto category = typeOf(rules_, "//skills/category", base);
        if (!category) return std::nullopt;
        CharacterSheet& s = scratch_.sheet;
        s.SkillCategoryPopup.SetText(*category);
        choose(s.SkillPopup, base);
        PopulateSkillInfo(s);
        stepTo(s.SkillLevelField, level, [&] { SkillUpDownArrows1_Up(s); });
        return Readings{{"cost class", s.SkillTypeCombo.Text()},
                        {"cost", s.SkillCostField.Text()}};
    }

    std::optional<Readings> Metaphysic(const std::string& name, double level) {
        const auto type = typeOf(rules_, "//metaphysics/type", name);
        if (!type) return std::nullopt;
        CharacterSheet& s = scratch_.sheet;
        for (TextItem* item :
             {&s.MetaCostPerLevelField, &s.MetaXPCostPerLevelField, &s.MetaMaxLevelField})
            item->SetText("");
        for (TextItem* item : {&s.MetaLevelField, &s.MetaCostField}) item->SetText("0");
        s.MetaTypePopup.SetText(*type);
        choose(s.MetaPopup, name);
        PopulateMetaInfo(s);
        stepTo(s.MetaLevelField, level, [&] { MetaUpDownArrows_Up(s); });
        std::string bonuses;
        addBonuses(bonuses, kMetaAttributeBonusKeys, s.m_attributes);
        addBonuses(bonuses, kMetaPointBonusKeys, s.m_bonuspts);
        return Readings{{"price per level", s.MetaCostPerLevelField.Text()},
                        {"XP price per level", s.MetaXPCostPerLevelField.Text()},
                        {"cost", s.MetaCostField.Text()},
                        {"bonuses", orNone(bonuses)}};
    }

  private:
    ScratchSheet scratch_;
    const RuleData& rules_;
};

struct ListToRead {
    const char* title;
    ListItem CharacterSheet::*list;
    std::optional<Readings> (RowReader::*read)(const std::string&, double);
};
const ListToRead kLists[] = {
    {"Quality", &CharacterSheet::QualityListBox, &RowReader::Quality},
    {"Skill", &CharacterSheet::SkillListBox, &RowReader::Skill},
    {"Metaphysic", &CharacterSheet::MetaListBox, &RowReader::Metaphysic}};

// The figures the recomputation gives, with the names the sheet shows them by.
const std::pair<const char*, TextItem CharacterSheet::*> kFigures[] = {
    {"Attribute points", &CharacterSheet::AttributeField},
    {"Quality points", &CharacterSheet::QualityField},
    {"Drawback points", &CharacterSheet::DrawbackField},
    {"Skill points", &CharacterSheet::SkillField},
    {"Metaphysics points", &CharacterSheet::MetaField},
    {"Strength", &CharacterSheet::StrengthTotal},
    {"Dexterity", &CharacterSheet::DexterityTotal},
    {"Constitution", &CharacterSheet::ConstitutionTotal},
    {"Intelligence", &CharacterSheet::IntelligenceTotal},
    {"Perception", &CharacterSheet::PerceptionTotal},
    {"Willpower", &CharacterSheet::WillpowerTotal},
    {"Life Points", &CharacterSheet::LifePointsTotal},
    {"Endurance", &CharacterSheet::EnduranceTotal},
    {"Speed", &CharacterSheet::SpeedTotal},
    {"Essence", &CharacterSheet::EssenceTotal},
    {"Drama points", &CharacterSheet::DPField},
    {"Pools", &CharacterSheet::ExtraStatsField}};

std::optional<RowChange> compareRow(const std::string& title, const ListItem& list, int row,
                                    RowReader& before, RowReader& after,
                                    std::optional<Readings> (RowReader::*read)(const std::string&,
                                                                               double)) {
    const std::string& name = list.Cell(row, EntryColumn::Name);
    if (name.empty() || name == "--") return std::nullopt;
    const double level = Val(list.Cell(row, EntryColumn::Level));
    const auto old = (before.*read)(name, level);
    const auto now = (after.*read)(name, level);
    RowChange change{title, name, list.Cell(row, EntryColumn::Level), false, {}};
    if (!now) {
        // A name that neither file holds is no change of the new file's.
        if (!old) return std::nullopt;
        change.gone = true;
        return change;
    }
    for (std::size_t r = 0; r < now->size(); ++r) {
        const std::string oldText = old ? (*old)[r].second : "";
        if (oldText != (*now)[r].second)
            change.readings.push_back({(*now)[r].first, oldText, (*now)[r].second});
    }
    if (change.readings.empty()) return std::nullopt;
    return change;
}

std::string typeQuery(const CharacterSheet& sheet) {
    return "//charactertype/type[@value='" + sheet.CharacterTypePopup.Text() + "']/name[@value='" +
           sheet.ChooseCharPopup.Text() + "']";
}

std::string typeName(const CharacterSheet& sheet) {
    return sheet.CharacterTypePopup.Text() + ": " + sheet.ChooseCharPopup.Text();
}

// A table of readings under a heading "Old New", the old ones in a column as wide as the
// widest; an empty reading shows as "-".
std::string readingsAsText(const std::vector<ReadingChange>& readings) {
    const auto shown = [](const std::string& reading) { return reading.empty() ? "-" : reading; };
    std::size_t width = 3;
    for (const ReadingChange& reading : readings)
        width = std::max(width, shown(reading.before).size());
    const auto line = [&](const std::string& name, const std::string& before,
                          const std::string& after) {
        return "    " + name + std::string(kNameWidth - std::min(kNameWidth, name.size()) + 1, ' ') +
               before + std::string(width - before.size() + 2, ' ') + after + "\n";
    };
    std::string text = line("", "Old", "New");
    for (const ReadingChange& reading : readings)
        text += line(reading.name, shown(reading.before), shown(reading.after));
    return text;
}

}  // namespace

CharacterChanges DiffRuleData(const RuleData& character, DataModule& before, DataModule& after,
                              const OperationTable& operations) {
    ScratchSheet old(before, operations), now(after, operations);
    FillCharSheet(old.sheet, character);
    FillCharSheet(now.sheet, character);
    CharacterChanges changes;
    changes.character = old.sheet.NameField.Text();
    if (!old.sheet.CharacterTypePopup.Text().empty() &&
        before.xdata->Record(typeQuery(old.sheet)) && !after.xdata->Record(typeQuery(now.sheet)))
        changes.lostType = typeName(old.sheet);

    RowReader oldRows(before), newRows(after);
    for (const ListToRead& kind : kLists) {
        const ListItem& list = old.sheet.*kind.list;
        for (int row = 0; row < list.ListCount(); ++row)
            if (auto change = compareRow(kind.title, list, row, oldRows, newRows, kind.read))
                changes.rows.push_back(std::move(*change));
    }

    FigureSecondaryAttributes(old.sheet);
    FigureSecondaryAttributes(now.sheet);
    for (const auto& [name, item] : kFigures)
        if ((old.sheet.*item).Text() != (now.sheet.*item).Text())
            changes.figures.push_back({name, (old.sheet.*item).Text(), (now.sheet.*item).Text()});
    return changes;
}

std::string ForeignCharacterReason(const RuleData& character, const DataModule& rules) {
    const auto root = character.Record("/character");
    if (!root) return "it is not a character file";
    const std::string warning = BookWarning(root->Attribute("books"), rules.zephalondata);
    if (!warning.empty()) return warning;
    const auto type = character.Record("/character/charactertype");
    if (!type || type->Attribute("type").empty()) return "";
    const std::string query = "//charactertype/type[@value='" + type->Attribute("type") +
                              "']/name[@value='" + type->Attribute("choice") + "']";
    if (rules.xdata->Record(query)) return "";
    return "its character type " + type->Attribute("type") + ": " + type->Attribute("choice") +
           " is not in the file";
}

std::string ChangesAsText(const CharacterChanges& changes) {
    std::string text = "Character: " +
                       (changes.character.empty() ? "(unnamed)" : changes.character) + "\n";
    if (changes.Empty()) return text + "  Nothing reads differently under the new file.\n";
    if (!changes.lostType.empty())
        text += "  The character type " + changes.lostType + " is not in the new file.\n";
    for (const RowChange& row : changes.rows) {
        text += "  " + row.list + " \"" + row.name + "\", level " + row.level;
        text += row.gone ? ": not in the new file\n" : "\n" + readingsAsText(row.readings);
    }
    if (!changes.figures.empty()) text += "  Recomputed\n" + readingsAsText(changes.figures);
    return text;
}

}  // namespace zeph
