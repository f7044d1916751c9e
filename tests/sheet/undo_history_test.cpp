// The limits of the undo history: how deep it goes, what a step is made of, and that taking
// back one step leaves the others' rows as they were.
#include <stdexcept>

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
