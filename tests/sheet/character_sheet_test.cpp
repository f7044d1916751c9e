#include <gtest/gtest.h>

#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

using NewSheet = SheetTest;

TEST_F(NewSheet, StartsCleanWithItsDefaultsAndOnlyTheUsersEditsOfTrackedItemsMarkIt) {
    EXPECT_TRUE(sheet->savedChar);
    ExpectTexts("GenderField=Male or Female|AgeField=21|StrengthBonus=0|StrengthField=");
    EXPECT_FALSE(sheet->DPField.Visible());
    EXPECT_FALSE(sheet->JournalField.Visible());
    EXPECT_TRUE(sheet->QualitiesSeparateQDBox.Value());
    for (const char* name : {"NameField", "StrengthField", "QualityField", "AgeField",
                             "NotesField", "EquipmentField", "DPField", "ConceptBox"}) {
        sheet->savedChar = true;
        Item* item = sheet->Items().Find(name);
        ASSERT_NE(item, nullptr) << name;
        if (auto* text = dynamic_cast<TextItem*>(item)) text->SetText("12");
        else dynamic_cast<ComboItem*>(item)->SetText("12");
        EXPECT_FALSE(sheet->savedChar) << name;
    }
    sheet->QualityField.SetText("3/10");
    sheet->savedChar = true;
    sheet->QualityField.SetText("3/10");
    sheet->AttributeField.SetText("1/20");
    sheet->ContactsField.SetText("a friend");
    sheet->CharacterInPlayBox.SetValue(true);
    EXPECT_TRUE(sheet->savedChar);
    sheet->Properties().Find("loadingCharFile")->set("true");
    sheet->NameField.SetText("Vera");
    EXPECT_TRUE(sheet->savedChar);
}

TEST_F(NewSheet, ListRowsHaveEveryColumnOneSelectedRowAndBoldMarks) {
    ListItem& list = sheet->QualityListBox;
    list.AddRow("--");
    EXPECT_EQ(list.Cell(0, 27), "");
    EXPECT_THROW(list.Cell(0, 28), std::out_of_range);
    EXPECT_THROW(list.Cell(1, 0), std::out_of_range);
    list.InsertRow(0, "First");
    list.InsertRow(2, "Last");
    EXPECT_EQ(list.Cell(1, 0) + list.Cell(2, 0), "--Last");
    EXPECT_EQ(list.LastIndex(), 2);
    EXPECT_THROW(list.InsertRow(4, "Beyond"), std::out_of_range);
    list.MoveRow(0, 2);  // dragged to the end
    list.SetCell(0, 1, "b");
    list.SetCell(1, 1, "B");
    list.SetCell(2, 1, "a");
    list.SortRows(1);  // without regard to case; equal texts keep their order
    EXPECT_EQ(list.Cell(0, 0) + "|" + list.Cell(1, 0) + "|" + list.Cell(2, 0), "First|--|Last");

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
    EXPECT_EQ(moves.ListIndex(), 0);
    EXPECT_EQ(moves.Heading(0), "Martial Maneuver");
}

TEST_F(NewSheet, AComboKeepsFreeTextWhileAChoiceOnlyTakesItsRows) {
    ComboItem& combo = sheet->ConceptBox;
    combo.AddRow("Drifter");
    combo.SetText("Someone else");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.SetText("Drifter");
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_THROW(combo.SetListIndex(1), std::out_of_range);
    combo.DeleteAllRows();
    EXPECT_EQ(combo.Text(), "Drifter");
    EXPECT_EQ(combo.ListIndex(), -1);

    ComboItem& choice = sheet->QualityPopup;
    choice.AddRow("Brawny");
    choice.SetText("Unknown");
    EXPECT_EQ(choice.Text(), "");
    choice.SetListIndex(0);
    EXPECT_EQ(choice.Text(), "Brawny");
    choice.DeleteAllRows();
    EXPECT_EQ(choice.Text(), "");
}

TEST_F(NewSheet, ObserversHearChangesAndCanDetach) {
    int heard = 0;
    int token = sheet->StrengthTotal.Observe([&](ItemChange) { ++heard; });
    sheet->StrengthTotal.SetText("4");
    sheet->StrengthTotal.SetText("4");
    sheet->StrengthTotal.SetVisible(false);
    sheet->StrengthTotal.StopObserving(token);
    sheet->StrengthTotal.SetText("5");
    EXPECT_EQ(heard, 2);  // a change of text and one of visibility
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
}
