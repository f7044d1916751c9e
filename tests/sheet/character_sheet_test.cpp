#include <functional>

#include "sheet/StyledText.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

using NewSheet = SheetTest;

TEST_F(NewSheet, StartsCleanWithItsDefaultsAndOnlyTheUsersEditsOfTrackedItemsMarkIt) {
    ExpectTexts(
        "savedChar=true|GenderField=Male or Female|AgeField=21|StrengthBonus=0|StrengthField=|q_row=0|s_row=0|"
        "m_row=0");
    EXPECT_FALSE(sheet->DPField.Visible() || sheet->JournalField.Visible());
    EXPECT_TRUE(sheet->QualitiesSeparateQDBox.Value());
    for (const char* name : {"NameField", "StrengthField", "QualityField", "AgeField",
                             "NotesField", "EquipmentField", "DPField", "ConceptBox"}) {
        sheet->savedChar = true;
        SetTexts(name + std::string("=12"));
        EXPECT_FALSE(sheet->savedChar) << name;
    }
    sheet->QualityField.SetText("3/10");
    sheet->savedChar = true;
    SetTexts("QualityField=3/10|AttributeField=1/20|ContactsField=a friend");
    sheet->Properties().Find("loadingCharFile")->set("true");
    sheet->NameField.SetText("Vera");
    EXPECT_TRUE(sheet->savedChar);
    ChangeWitness witness;  // a change of style alone is told too
    witness.Watch(sheet->Items());
    sheet->NotesField.SetStyled(StyledText{{StyleRun{"12", true}}});
    EXPECT_EQ(witness.Told(), std::set<std::string>{"NotesField"});
}

TEST_F(NewSheet, ListRowsHaveEveryColumnOneSelectedRowAndBoldMarks) {
    ListItem& list = sheet->QualityListBox;
    list.AddRow("--");
    EXPECT_EQ(list.Cell(0, 27), "");
    // Every accessor refuses a column or row outside the list, before it touches anything.
    for (int column : {-1, 28})
        for (const auto& outside : std::vector<std::function<void()>>{
                 [&] { list.Cell(0, column); }, [&] { list.SetCell(0, column, "x"); },
                 [&] { list.CellBold(0, column); }, [&] { list.SetCellBold(0, column, true); },
                 [&] { list.Heading(column); }, [&] { list.SetHeading(column, "x"); },
                 [&] { list.ColumnCentred(column); }, [&] { list.SetColumnCentred(column, true); },
                 [&] { list.SortRows(column); }, [&] { list.Cell(column + 1 ? 1 : -1, 0); },
                 [&] { list.SetSelected(column + 1 ? 1 : -1, true); },
                 [&] { list.SetListIndex(column + 1 ? 1 : -2); }})
            EXPECT_THROW(outside(), std::out_of_range) << column;
    list.SetListIndex(-1);  // -1 alone of the rows outside selects none
    list.InsertRow(0, "First");
    list.InsertRow(2, "Last");
    EXPECT_EQ(list.Cell(1, 0) + list.Cell(2, 0), "--Last");
    EXPECT_EQ(list.LastIndex(), 2);
    EXPECT_THROW(list.InsertRow(4, "Beyond"), std::out_of_range);
    list.MoveRow(0, 5);  // dragged past the end
    list.MoveRow(2, 0);  // and back to the top
    list.SetCell(0, 1, "b");
    list.SetCell(1, 1, "B");
    list.SetCell(2, 1, "a");
    list.SortRows(1);  // without regard to case; equal texts keep their order
    EXPECT_EQ(list.Cell(0, 0) + "|" + list.Cell(1, 0) + "|" + list.Cell(2, 0), "Last|First|--");

    ListItem& moves = sheet->SkillMartialVisualListBox;
    moves.AddRow("*Strike");
    moves.AddRow("Kick");
    moves.SetCellBold(0, 0, true);
    moves.SetListIndex(1);
    EXPECT_FALSE(moves.Selected(0));
    EXPECT_TRUE(moves.CellBold(0, 0));
    EXPECT_FALSE(moves.CellBold(1, 0));
    moves.AddRow("Sweep");
    moves.SetSelected(2, true);
    EXPECT_EQ(moves.ListIndex(), 1);  // the first of several selected rows
    moves.RemoveRow(0);
    EXPECT_THROW(moves.RemoveRow(2), std::out_of_range);
    EXPECT_EQ(moves.ListIndex(), 0);
    EXPECT_EQ(moves.Heading(0), "Martial Maneuver");
    ChangeWitness witness;  // every change a list can take tells its observers
    witness.Watch(sheet->Items());
    for (const auto& change : std::vector<std::function<void()>>{
             [&] { moves.SetColumnCount(4); }, [&] { moves.SetCell(0, 1, "x"); }, [&] { moves.AddRow("a"); },
             [&] { moves.InsertRow(0, "b"); }, [&] { moves.RemoveRow(0); }, [&] { moves.MoveRow(0, 2); },
             [&] { moves.SortRows(0); }, [&] { moves.SetListIndex(1); }, [&] { moves.SetSelected(0, true); },
             [&] { moves.SetCellBold(0, 1, true); }, [&] { moves.SetHeading(1, "H"); },
             [&] { moves.SetColumnWidths("1,2"); }, [&] { moves.SetColumnCentred(1, true); },
             [&] { moves.SetShownColumns(2); }, [&] { moves.DeleteAllRows(); }}) {
        witness.Clear();
        change();
        EXPECT_EQ(witness.Told(), std::set<std::string>{moves.Name()});
    }
}

TEST_F(NewSheet, AComboKeepsFreeTextWhileAChoiceOnlyTakesItsRows) {
    ComboItem& combo = sheet->ConceptBox;
    combo.AddRow("Drifter");
    combo.SetText("Someone else");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_THROW(combo.SetListIndex(1), std::out_of_range);

    ComboItem& choice = sheet->QualityPopup;
    choice.AddRow("Brawny");
    choice.SetText("Unknown");
    EXPECT_EQ(choice.Text(), "");
    choice.SetListIndex(0);
    EXPECT_EQ(choice.Text(), "Brawny");
    choice.DeleteAllRows();
    EXPECT_EQ(choice.Text(), "");
}

TEST_F(NewSheet, ItemsPropertiesAndOperationsAreFoundByName) {
    EXPECT_EQ(sheet->Items().Find("StrengthField"), &sheet->StrengthField);
    EXPECT_EQ(sheet->Items().Find("NoSuchField"), nullptr);
    sheet->Properties().Find("attrBonus")->set("1,2,3");
    sheet->Properties().Find("savedChar")->set("false");
    EXPECT_EQ(sheet->attrBonus[2], 3);
    EXPECT_EQ(sheet->Properties().Find("attrBonus")->get(), "1,2,3,0,0,0,0");
    EXPECT_EQ(sheet->Properties().Find("savedChar")->get(), "false");
    sheet->NameField.SetText("Vera Lund");
    sheet->NameField_LostFocus();
    EXPECT_EQ(sheet->Properties().Find("title")->get(), "Zephalon CC: Vera Lund");
    std::string properties;
    for (const auto& [name, accessor] : sheet->Properties().All()) properties += name + " ";
    EXPECT_EQ(properties,
              "attrBonus characterClosed currentNotesButton fileSaveString journalWindowIsOpen "
              "loadingCharFile m_all_bonuses m_altform m_attributes m_bonuspts m_row martialmaneuvers "
              "mentalBonus physicalBonus portraitPath portraitWindowIsOpen q_attributes q_bonuspts "
              "q_chartype q_row s_row savedChar title visualizations ");
    // Every operation the windows bind by item and event, and the console by name: a
    // registration left out shows in the count, and each runs on a new sheet over the sample
    // data, with a row chosen in each big list.
    EXPECT_EQ(sheet->Operations().size(), 137u);
    for (const auto& [name, operation] : SheetOperations()) {
        UseSample();
        for (ListItem* list : {&sheet->QualityListBox, &sheet->SkillListBox, &sheet->MetaListBox}) {
            list->AddRow("Typed");
            list->SetListIndex(0);
        }
        try {
            operation.run(*sheet, "");
        } catch (const std::exception& e) {
            ADD_FAILURE() << name << ": " << e.what();
        }
    }
}

// When the change operation of a combo or choice list runs: at a new selected row, even one
// that reads as the old, but never when the rows are emptied.
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
        EXPECT_TRUE(list->Kind() != ItemKind::Choice || list->Text().empty()) << list->Name();
    }
    EXPECT_GT(lists, 10) << "the combos and choices of every tab";
}

TEST(StyledText, RunsJoinOnlyWithRunsOfTheSameStyle) {
    std::vector<StyleRun> others(6, StyleRun{"b"});
    others[0].bold = others[1].italic = others[2].underline = true;
    others[3].font = "Serif";
    others[4].size = 14;
    others[5].color = 0x0000FF;
    for (const StyleRun& other : others) {
        StyledText text;
        // An empty run adds nothing, not even a run of its own style.
        for (const StyleRun& run : {StyleRun{"a"}, StyleRun{"", true}, other, other})
            text.Append(run);
        EXPECT_EQ(text.runs.size(), 2u) << other.font << other.size;
        EXPECT_EQ(text.runs.back().text, "bb");
    }
    // A slice and a replacement keep the styles around them.
    StyledText text{{StyleRun{"one", true}, StyleRun{"two"}, StyleRun{"six", true}}};
    EXPECT_EQ(text.Slice(2, 7).Text(), "etwos");
    EXPECT_EQ(text.Slice(2, 7).runs.size(), 3u);
    text.Replace(3, 3, "");
    EXPECT_EQ(text.runs.size(), 1u) << "the bold runs meet and join";
    EXPECT_EQ(text.Text(), "onesix");
}
