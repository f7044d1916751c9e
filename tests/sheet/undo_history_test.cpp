// The limits of the undo history: how deep it goes, what a step is made of, and that taking
// back one step leaves the others' rows as they were.
#include <functional>
#include <stdexcept>
#include <vector>

#include "app/SheetSteps.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

using UndoHistoryTest = SheetTest;

TEST_F(UndoHistoryTest, KeepsTheLastTwoHundredStepsEachWhole) {
    for (int step = 1; step <= 201; ++step)
        RunStep(*sheet, "Step " + std::to_string(step), [&] {
            sheet->HairField.SetText(std::to_string(step));
            if (step == 1) RunStep(*sheet, "Inner", [&] { sheet->EyesField.SetText("grey"); });
        });
    int undone = 0;
    while (sheet->history.Undo()) ++undone;
    EXPECT_EQ(undone, 200);
    EXPECT_EQ(sheet->HairField.Text(), "1") << "the first step fell out of the history";
    EXPECT_FALSE(sheet->savedChar) << "and the fresh sheet with it";
    EXPECT_EQ(sheet->history.RedoName(), "Step 2");
    // A step that changes nothing is none; one that fails halfway is one all the same.
    RunStep(*sheet, "Nothing", [] {});
    EXPECT_EQ(sheet->history.UndoName(), "");
    EXPECT_THROW(RunStep(*sheet, "Fails", [&] {
                     sheet->HairField.SetText("x");
                     throw std::runtime_error("halfway");
                 }),
                 std::runtime_error);
    EXPECT_EQ(sheet->history.RedoName(), "") << "a new step drops what could be redone";
    ASSERT_TRUE(sheet->history.Undo());
    EXPECT_EQ(sheet->HairField.Text(), "1");
    EXPECT_EQ(sheet->EyesField.Text(), "grey");
}

TEST_F(UndoHistoryTest, RowsSharedWithEarlierStepsStayAsThoseStepsLeftThem) {
    ListItem& list = sheet->SkillListBox;
    for (const char* name : {"Climbing", "Riding", "Sailing"}) list.AddRow(name);
    list.SetListIndex(0);
    list.MoveRow(0, 2);  // a row moved keeps its selection
    EXPECT_EQ(list.ListIndex(), 2);
    list.MoveRow(2, 0);
    list.SetListIndex(-1);
    RunStep(*sheet, "One", [&] { list.SetCell(1, 1, "2"); });
    RunStep(*sheet, "Two", [&] {
        list.SetCell(1, 1, "3");
        list.MoveRow(0, 2);
        list.SetListIndex(2);
        list.SetCellBold(0, 0, true);
    });
    RunStep(*sheet, "Three", [&] { list.SortRows(0); list.RemoveRow(0); });
    const auto rows = [&] {
        std::string all;
        for (int r = 0; r < list.ListCount(); ++r)
            all += list.Cell(r, 0) + ":" + list.Cell(r, 1) + (list.Selected(r) ? "*" : "") +
                   (list.CellBold(r, 0) ? "b" : "") + " ";
        return all;
    };
    EXPECT_EQ(rows(), "Riding:3b Sailing: ");
    sheet->history.Undo();
    EXPECT_EQ(rows(), "Riding:3b Sailing: Climbing:* ");
    sheet->history.Undo();
    EXPECT_EQ(rows(), "Climbing: Riding:2 Sailing: ");
    sheet->history.Undo();
    EXPECT_EQ(rows(), "Climbing: Riding: Sailing: ");
    sheet->history.Redo();
    sheet->history.Redo();
    EXPECT_EQ(rows(), "Riding:3b Sailing: Climbing:* ");
}

// Every change of every kind of item tells the history first, so one step of any change is
// undone to exactly what the item held.
TEST_F(UndoHistoryTest, EveryChangeOfEveryItemIsTakenBack) {
    ListItem& list = sheet->QualityListBox;
    list.AddRow("Brawny");
    TextItem& notes = sheet->NotesField;
    notes.SetText("Keeps a diary");
    ComboItem& choice = sheet->QualityPopup;
    choice.AddRow("Brawny");
    const auto held = [&] {
        std::string all = notes.Text() + "/" + std::to_string(notes.SelStart()) + "," +
                          std::to_string(notes.SelLength()) + "/" + choice.Text() + ":" +
                          std::to_string(choice.ListCount()) + (sheet->CharacterInPlayBox.Value() ? "in" : "out") +
                          std::to_string(list.ColumnCount()) + list.Heading(0) +
                          list.ColumnWidths() + std::to_string(list.ShownColumns().value_or(-1)) +
                          (list.ColumnCentred(1) ? "c" : "") + (list.Visible() ? "v" : "") + (list.Enabled() ? "e" : "");
        for (int r = 0; r < list.ListCount(); ++r)
            all += "|" + list.Cell(r, 0) + (list.Selected(r) ? "*" : "") +
                   (list.CellBold(r, 0) ? "b" : "");
        return all;
    };
    const std::vector<std::function<void()>> changes = {
        [&] { list.SetColumnCount(3); },       [&] { list.SetHeading(0, "Name"); },
        [&] { list.SetColumnWidths("50%"); },  [&] { list.SetColumnCentred(1, true); },
        [&] { list.SetShownColumns(2); },      [&] { list.SetVisible(false); },
        [&] { list.SetEnabled(false); },       [&] { list.SetSelected(0, true); },
        [&] { list.SetListIndex(0); },         [&] { list.SetCellBold(0, 0, true); },
        [&] { list.InsertRow(0, "Wiry"); },    [&] { list.DeleteAllRows(); },
        [&] { notes.AppendStyled(StyledText{{StyleRun{" daily"}}}); },
        [&] { notes.SetSelection(2, 3); },     [&] { notes.ReplaceSelection("X"); },
        [&] { choice.SetListIndex(0); },       [&] { choice.AddRow("Wiry"); },
        [&] { choice.DeleteAllRows(); },       [&] { sheet->CharacterInPlayBox.SetValue(true); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const std::string before = held();
        RunStep(*sheet, "Change", changes[i]);
        ASSERT_NE(held(), before) << "change " << i << " changes nothing";
        sheet->history.Undo();
        EXPECT_EQ(held(), before) << "change " << i;
    }
    EXPECT_THROW(choice.SetListIndex(-2), std::out_of_range);
    notes.SetSelection(2, 5);
    notes.SetText("Kee");  // a shorter text takes the selection with it
    EXPECT_EQ(notes.SelStart() * 10 + notes.SelLength(), 21);
    choice.SetListIndex(0);
    choice.SetText("Nowhere");  // a choice holds one of its rows or nothing
    EXPECT_EQ(choice.Text() + std::to_string(choice.ListIndex()), "-1");
}

// Saved after a step and undone at once, the sheet is no longer what the file holds.
TEST_F(UndoHistoryTest, TheSavedMarkFollowsASaveMadeBetweenSteps) {
    RunStep(*sheet, "Hair", [&] { sheet->HairField.SetText("red"); });
    sheet->savedChar = true;  // saved here
    sheet->history.Undo();
    EXPECT_FALSE(sheet->savedChar);
    sheet->history.Redo();
    EXPECT_TRUE(sheet->savedChar);
    // Saved with a step taken back, the saved place is there, not where the steps began.
    RunStep(*sheet, "Eyes", [&] { sheet->EyesField.SetText("grey"); });
    sheet->history.Undo();
    sheet->history.Undo();
    sheet->savedChar = true;  // saved here
    sheet->history.Redo();
    EXPECT_FALSE(sheet->savedChar);
    sheet->history.Undo();
    EXPECT_TRUE(sheet->savedChar);
}
