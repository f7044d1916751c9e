// When the change operation of a combo or choice list runs: at a new selected row, even one
// that reads as the old, but never when the rows are emptied.
#include <gtest/gtest.h>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "sheet/CharacterSheet.h"

namespace zeph {
namespace {

TEST(ChoiceLists, EveryListRunsItsChangeAtANewRowAndNotAtEmptying) {
    DataModule data;
    ScriptedPlatform platform("/p", "/a", "/tmp");
    std::map<std::string, int> runs;
    OperationTable counting;
    const OperationTable none;
    const CharacterSheet names(data, platform, none);
    for (const Item* item : names.Items().All())
        if (item->Kind() == ItemKind::Combo || item->Kind() == ItemKind::Choice)
            AddOperation(counting, ChangeOperationName(*item),
                         [&runs, name = item->Name()](CharacterSheet&) { ++runs[name]; });
    CharacterSheet sheet(data, platform, counting);
    int lists = 0;
    for (Item* item : sheet.Items().All()) {
        auto* list = dynamic_cast<ComboItem*>(item);
        if (list == nullptr) continue;
        ++lists;
        list->DeleteAllRows();
        for (const char* row : {"Same", "Same", "Other"}) list->AddRow(row);
        list->SetListIndex(0);
        list->SetListIndex(1);  // reads the same, yet another row
        list->SetListIndex(1);  // the row again: nothing new
        list->DeleteAllRows();
        EXPECT_EQ(runs[list->Name()], 2) << list->Name();
        EXPECT_EQ(list->ListIndex(), -1);
        if (list->Kind() == ItemKind::Choice) {
            EXPECT_EQ(list->Text(), "") << list->Name();
        }
    }
    EXPECT_GT(lists, 10) << "the combos and choices of every tab";
}

}  // namespace
}  // namespace zeph
