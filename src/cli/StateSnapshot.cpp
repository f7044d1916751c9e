#include "cli/StateSnapshot.h"

#include "platform/ScriptedPlatform.h"
#include "text/TextHelpers.h"

namespace zeph {

std::string BoolText(bool value) { return value ? "true" : "false"; }

namespace {

template <class Column>
std::string JoinColumns(const ListItem& list, Column text) {
    std::string joined;
    for (int column = 0; column < list.ColumnCount(); ++column)
        joined += (column > 0 ? "|" : "") + text(column);
    return joined;
}

}  // namespace

std::string ListRowText(const ListItem& list, int row) {
    return JoinColumns(list, [&](int column) { return list.Cell(row, column); });
}

std::string HeadingsText(const ListItem& list) {
    return JoinColumns(list, [&](int column) { return list.Heading(column); });
}

std::string RunsText(const StyledText& styled) {
    std::vector<std::string> runs;
    for (const StyleRun& run : styled.runs) {
        const std::string marks = std::string(run.bold ? "b" : "") + (run.italic ? "i" : "") +
                                  (run.underline ? "u" : "");
        runs.push_back((marks.empty() ? "" : "[" + marks + "]") + run.text);
    }
    return JoinFields(runs, "|");
}

bool SetItemText(Item& item, const std::string& text) {
    if (auto* field = dynamic_cast<TextItem*>(&item)) field->SetText(text);
    else if (auto* combo = dynamic_cast<ComboItem*>(&item)) combo->SetText(text);
    else return false;
    return true;
}

std::string ItemText(const Item& item) {
    if (auto* text = dynamic_cast<const TextItem*>(&item)) return text->Text();
    if (auto* flag = dynamic_cast<const FlagItem*>(&item)) return BoolText(flag->Value());
    if (auto* combo = dynamic_cast<const ComboItem*>(&item)) return combo->Text();
    return "";
}

StateSnapshot TakeSnapshot(const ItemRegistry& items, const PropertyRegistry* properties) {
    StateSnapshot shown;
    auto put = [&](const std::string& name, const std::string& value) {
        shown[name] = EscapeLineEnds(value);
    };
    for (const Item* item : items.All()) {
        const std::string& name = item->Name();
        // Shown and enabled are the rule: only their exceptions are entries.
        if (!item->Visible()) put(name + ".visible", "false");
        if (!item->Enabled()) put(name + ".enabled", "false");
        if (const auto* list = dynamic_cast<const ListItem*>(item)) {
            put(name + ".ListCount", Str(list->ListCount()));
            put(name + ".ListIndex", Str(list->ListIndex()));
            put(name + ".headings", HeadingsText(*list));
            for (int row = 0; row < list->ListCount(); ++row) {
                const std::string at = name + "[" + std::to_string(row) + "]";
                put(at, ListRowText(*list, row));
                if (list->ColumnCount() > 0 && list->CellBold(row, 0)) put(at + ".bold", "true");
            }
            continue;
        }
        put(name, ItemText(*item));
        if (const auto* combo = dynamic_cast<const ComboItem*>(item)) {
            put(name + ".rows", JoinFields(combo->Rows(), "|"));
            put(name + ".ListIndex", Str(combo->ListIndex()));
        }
        if (item->Kind() == ItemKind::Styled)
            put(name + ".runs", RunsText(dynamic_cast<const TextItem&>(*item).Styled()));
    }
    if (properties != nullptr)
        for (const auto& [name, accessor] : properties->All())
            if (name != "fileSaveString") put(name, accessor.get());
    return shown;
}

namespace {

bool IsShownOrEnabled(const std::string& entry) {
    return entry.ends_with(".visible") || entry.ends_with(".enabled");
}

}  // namespace

std::map<std::string, std::string> ChangedEntries(const StateSnapshot& before,
                                                  const StateSnapshot& after) {
    std::map<std::string, std::string> changed;
    for (const auto& [name, value] : after) {
        auto old = before.find(name);
        if (old == before.end() || old->second != value) changed[name] = value;
    }
    for (const auto& [name, value] : before)
        if (!after.count(name)) changed[name] = IsShownOrEnabled(name) ? "true" : "";
    return changed;
}

std::string ItemOfEntry(const std::string& entry) {
    return entry.substr(0, entry.find_first_of(".["));
}

ChangeWitness::~ChangeWitness() {
    for (const auto& [item, token] : watched_) item->StopObserving(token);
}

void ChangeWitness::Watch(const ItemRegistry& items) {
    for (Item* item : items.All())
        watched_.emplace_back(
            item, item->Observe([this, name = item->Name()](ItemChange) { told_.insert(name); }));
}

}  // namespace zeph
