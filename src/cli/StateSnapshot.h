// What a script's target shows, as the lines `print` would give for each of its items and
// properties, so that a step can be checked for every figure it changed and for nothing else.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "sheet/Item.h"
#include "sheet/Properties.h"

namespace zeph {

using StateSnapshot = std::map<std::string, std::string>;

// The texts `print` shows: a flag "true"/"false", a list row (or its headings) the cells joined
// by "|", a styled text its runs joined by "|", each after the marks of its styles
// ("[b]Name|details").
std::string BoolText(bool value);
std::string ItemText(const Item& item);
std::string ListRowText(const ListItem& list, int row);
std::string HeadingsText(const ListItem& list);
std::string RunsText(const StyledText& styled);
// What `set` does: a text or combo item takes the text; false for any other kind.
bool SetItemText(Item& item, const std::string& text);

// Every item's text, its being hidden or disabled, a combo's rows and selection, a list's count,
// selection, headings and rows (and bold first cells), a styled text's runs; then every
// property but `fileSaveString` (the saved file itself, which `print` still shows).
StateSnapshot TakeSnapshot(const ItemRegistry& items, const PropertyRegistry* properties);

// The entries that differ, as "NAME=VALUE" in name order; an entry gone reads "", or "true"
// for a hidden or disabled mark.
std::map<std::string, std::string> ChangedEntries(const StateSnapshot& before,
                                                  const StateSnapshot& after);

// The item an entry name belongs to: "QualityListBox[2].bold" -> "QualityListBox".
std::string ItemOfEntry(const std::string& entry);

// Follows every item of the registries it watches and remembers which told a change since the
// last Clear; it stops following them when it goes, so it must go before they do.
class ChangeWitness {
public:
    ChangeWitness() = default;
    ChangeWitness(const ChangeWitness&) = delete;
    ChangeWitness& operator=(const ChangeWitness&) = delete;
    ~ChangeWitness();
    void Watch(const ItemRegistry& items);
    const std::set<std::string>& Told() const { return told_; }
    void Clear() { told_.clear(); }

private:
    std::set<std::string> told_;
    std::vector<std::pair<Item*, int>> watched_;
};

}  // namespace zeph
