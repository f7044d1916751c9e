#include "rules/Skills.h"

#include <stdexcept>

#include "rules/MartialMoves.h"
#include "support/SheetFixture.h"

using namespace zeph;
using zeph::testing::SheetTest;

class Skills : public SheetTest {
  protected:
    void SetUp() override { UseSample(); }
    // As the user opens the lists and chooses; opening the skills list fills the buffer anew.
    void Pick(const std::string& category, const std::string& skill) {
        sheet->SkillCategoryPopup.SetText(category);
        sheet->SkillPopup.SetText(skill);
        PopulateSkillInfo(*sheet);
    }
    // The moves list's menu, on the given row when one is given.
    void Menu(const std::string& item, int row = -2) {
        if (row != -2) sheet->SkillMartialVisualListBox.SetListIndex(row);
        SkillMartialVisualListBox_ContextualMenuAction(*sheet, item);
    }
    void Open(int row) {
        sheet->SkillListBox.SetListIndex(row);
        SkillListBox_DoubleClick(*sheet);
    }
    std::string Moves() {
        std::string out;
        const ListItem& moves = sheet->SkillMartialVisualListBox;
        for (int r = 0; r < moves.ListCount(); ++r)
            out += moves.Cell(r, 0) + "," + moves.Cell(r, 1) + "," + moves.Cell(r, 2) +
                   (moves.CellBold(r, 0) && moves.CellBold(r, 1) ? "B;" : ";");
        return out;
    }
};

TEST_F(Skills, LevelsArePricedByClassAndModeAndGivenBackExactly) {
    const struct { const char* type; bool inPlay; int from, to; const char* cost; } cases[] = {{"Regular", true, 0, 1, "6"},    {"Special", true, 0, 1, "8"},
                 {"cinematic", true, 0, 1, "5"},  {"Regular", true, 0, 3, "11"},
                 {"Special", true, 2, 3, "4"},    {"Cinematic", true, 2, 3, "6"},
                 {"Regular", false, 5, 6, "3"},   {"Special", false, 5, 6, "5"},
                 {"Cinematic", false, 5, 6, "3"}, {"Special", false, 0, 5, "10"},
                 {"Other", false, 0, 2, "0"}};
    for (const auto& c : cases) {
        sheet->CharacterInPlayBox.SetValue(c.inPlay);
        Pick("Combat", "Brawling");
        sheet->SkillTypeCombo.SetText(c.type);
        Repeat(SkillUpDownArrows1_Up, c.from);
        SetTexts("SkillCostField=0|SkillXPCostField=0");
        Repeat(SkillUpDownArrows1_Up, c.to - c.from);
        TextItem& moved = c.inPlay ? sheet->SkillXPCostField : sheet->SkillCostField;
        TextItem& still = c.inPlay ? sheet->SkillCostField : sheet->SkillXPCostField;
        EXPECT_EQ(moved.Text() + "/" + still.Text(), std::string(c.cost) + "/0")
            << c.type << " " << c.from << "->" << c.to;
        EXPECT_EQ(sheet->SkillLevelField.Text(), std::to_string(c.to));
        Repeat(SkillUpDownArrows1_Down, c.to - c.from);
        EXPECT_EQ(moved.Text(), "0") << c.type << " back to " << c.from;
    }
    Repeat(SkillUpDownArrows1_Down, 4);
    ExpectTexts("SkillLevelField=0|SkillCostField=0");
}

TEST_F(Skills, SpecialtiesAndSubTypes) {
    sheet->SkillCategoryPopup.AddRow("stale");
    LoadSkillCategories(*sheet);
    EXPECT_EQ(JoinFields(sheet->SkillCategoryPopup.Rows(), ","),
              "Combat,Knowledge,Social,Esoteric");
    Pick("Combat", "Guns");
    EXPECT_EQ(JoinFields(sheet->SkillSelectPopup.Rows(), ","), "Handgun,Rifle,Shotgun");
    SkillSpecialtyButton_Action(*sheet);
    ExpectTexts("SkillNameField=Guns (Specialty)|SkillLevelField=2|SkillCostField=1");
    sheet->SkillSelectPopup.SetText("Rifle");
    ExpectTexts("SkillNameField=Guns (Rifle)|SkillLevelField=2|SkillCostField=1");
    sheet->CharacterInPlayBox.SetValue(true);
    SkillSpecialtyButton_Action(*sheet);
    ExpectTexts("SkillNameField=Guns (Rifle) (Specialty)|SkillLevelField=4|SkillXPCostField=6");

    Pick("Combat", "Ricochet Shot");
    SkillSpecialtyButton_Action(*sheet);
    sheet->SkillNameField.SetText("");
    SkillSpecialtyButton_Action(*sheet);
    EXPECT_EQ(platform.Messages(),
              std::vector<std::string>(2, "Cinematic Unisystem skills cannot have specialties."));
    ExpectTexts("SkillLevelField=0|SkillXPCostField=0");
    sheet->SkillTypeCombo.SetText("Regular");
    SkillSpecialtyButton_Action(*sheet);
    ExpectTexts("SkillLevelField=0|SkillNameField=");
}

TEST_F(Skills, RowsComeBackAndGo) {
    sheet->SkillNameField.SetText("Typed");
    EXPECT_THROW(SkillRecordButton_Action(*sheet), std::out_of_range) << "a new sheet edits row 0";
    Pick("Knowledge", "Language");
    Do("SkillSeparator_Action");
    SkillRecordButton_Action(*sheet);
    sheet->SkillListBox.SetCell(1, 3, "4");
    Open(0);
    EXPECT_EQ(sheet->SkillNameField.Text() + JoinFields(sheet->SkillSelectPopup.Rows(), ","), "--");
    Open(1);
    EXPECT_EQ(JoinFields(sheet->SkillSelectPopup.Rows(), ","), "Latin,Greek,Aramaic");
    ExpectTexts("s_row=1");

    sheet->StrengthField.SetText("3");
    Do("SkillListBox_KeyDown", "\x08");  // refunds, and the totals wait
    ExpectTexts("SavedExperienceField=4|SpentExperienceField=-4|StrengthTotal=0");
    EXPECT_EQ(sheet->SkillListBox.ListIndex(), 0);
    Do("SkillRemoveButton_Action");  // the button recomputes
    ExpectTexts("StrengthTotal=3");
}

TEST_F(Skills, TheFreePoolOfEachMode) {
    Pick("Combat", "Martial Arts");
    Repeat(SkillUpDownArrows1_Up, 2);
    sheet->SkillSelectPopup.SetText("Stone Palm");
    Menu("Sweep");
    Menu("Throw");
    Menu("Increase +", 2);
    Menu("Increase +");  // the cap is the skill's level
    EXPECT_EQ(Moves(), "*Punch,2,B;*Block,2,B;Sweep,2,;Throw,1,;");
    Menu("Decrease +");                        // the menu's item is bought as a move of that name
    for (int i = 0; i < 3; ++i) Menu("Kick");  // duplicates too; the third finds no free point
    EXPECT_EQ(Moves(), "*Punch,2,B;*Block,2,B;Sweep,2,;Throw,1,;Decrease +,1,;Kick,1,;Kick,1,;");
    EXPECT_EQ(platform.Messages(),
              std::vector<std::string>{"You don't have enough points to buy this."});
    Menu("Toggle Basic Move", 0);
    EXPECT_EQ(Moves().substr(0, 9), "Punch,2,;");
    Menu("toggle basic move");
    EXPECT_EQ(Moves().substr(0, 11), "*Punch,2,B;");
    Menu("Toggle Basic Move", 2);
    EXPECT_EQ(Moves(), "*Punch,2,B;*Block,2,B;*Sweep,2,B;Throw,1,;Decrease +,1,;Kick,1,;Kick,1,;");

    Pick("Esoteric", "Lucid Dream");
    Repeat(SkillUpDownArrows1_Up, 3);
    Menu("Mirror Hall");
    for (int i = 0; i < 6; ++i) Menu("Increase +", 0);
    EXPECT_EQ(Moves(), "Mirror Hall,6,;");
    Menu("Increase +");  // 12 free points, cap 6
    EXPECT_EQ(Moves(), "Mirror Hall,6,;");
    sheet->SkillLevelField.SetText("2");  // 8 free points: 6 taken, then 1 left after the new rows
    Menu("Silent Garden");
    Menu("Increase +", 1);  // the last free point still raises
    EXPECT_EQ(Moves(), "Mirror Hall,6,;Silent Garden,2,;");
}

TEST_F(Skills, PastThePoolMovesAreBoughtWithExperience) {
    sheet->CharacterInPlayBox.SetValue(true);
    SetTexts("SavedExperienceField=5|SpentExperienceField=0");
    Pick("Esoteric", "Lucid Dream");
    Menu("Falling Sky");  // 5 is not more than 5
    EXPECT_EQ(Moves() + platform.Messages().at(0), "You don't have enough points to buy this.");
    sheet->SavedExperienceField.SetText("5.5");
    Menu("Falling Sky");  // more than 5 passes, at a price of 6
    EXPECT_EQ(Moves(), "Falling Sky,1,6;");
    ExpectTexts("SavedExperienceField=-0.5|SpentExperienceField=6");
    sheet->SavedExperienceField.SetText("10");
    Menu("Increase +", 0);  // level 0 caps every row, without a word
    EXPECT_EQ(Moves(), "Falling Sky,1,6;");
    Menu("Decrease -");  // from level 1 the row goes, and what it cost comes back
    ExpectTexts("SavedExperienceField=16|SpentExperienceField=0");
    Menu("Falling Sky");
    sheet->SkillMartialVisualListBox.SetListIndex(0);

    sheet->SkillLevelField.SetText("1");  // 4 free points, a cap of 2
    Menu("Increase +");
    Menu("Falling Sky");  // duplicates are not refused
    Menu("Silent Garden");
    Menu("Increase +", 1);  // the pool is spent: the new level is paid
    EXPECT_EQ(Moves(), "Falling Sky,2,6;Falling Sky,2,2;Silent Garden,1,;");
    ExpectTexts("SavedExperienceField=8|SpentExperienceField=8");
    Menu("Decrease -");
    EXPECT_EQ(Moves(), "Falling Sky,2,6;Falling Sky,1,0;Silent Garden,1,;");
    sheet->SavedExperienceField.SetText("1");  // the next level costs 2
    Menu("Increase +");
    EXPECT_EQ(Moves(), "Falling Sky,2,6;Falling Sky,1,0;Silent Garden,1,;");
    sheet->SavedExperienceField.SetText("2");  // exactly enough
    Menu("Increase +");
    EXPECT_EQ(Moves() + sheet->SavedExperienceField.Text(), "Falling Sky,2,6;Falling Sky,2,2;Silent Garden,1,;0");
    sheet->SavedExperienceField.SetText("10");
    Menu("Increase +");  // at the cap: nothing
    Menu("Decrease -");
    sheet->SavedExperienceField.SetText("10");
    Menu("Decrease -");  // from level 1 the row goes
    EXPECT_EQ(Moves(), "Falling Sky,2,6;Silent Garden,1,;");
    Menu("Delete Item", 0);
    ExpectTexts("SavedExperienceField=16|SpentExperienceField=0");
    sheet->CharacterInPlayBox.SetValue(false);
    sheet->SkillLevelField.SetText("0");
    Menu("Increase +");
    EXPECT_EQ(std::vector(platform.Messages().begin() + 1, platform.Messages().end()),
              std::vector<std::string>(2, "You don't have enough points to buy this level."));
}

TEST_F(Skills, ReopeningASkillRestoresItsMovesInOrderWithTheirMarks) {
    sheet->martialmaneuvers = {"Kick,1,6", "*Punch,2,"};
    sheet->visualizations = {"*Odd,1,", "Mirror Hall,3,"};
    sheet->SkillListBox.AddRow("Martial Arts(Iron Crane)");
    sheet->SkillListBox.AddRow("Lucid Dream");
    Open(0);
    EXPECT_EQ(Moves(), "*Punch,2,B;Kick,1,6;");
    ASSERT_TRUE(sheet->SkillMartialVisualListBox.Visible());
    Menu("Toggle Basic Move");  // nothing selected: nothing toggled
    Open(1);
    EXPECT_EQ(Moves(), "Mirror Hall,3,;*Odd,1,;");
    SkillRecordButton_Action(*sheet);  // stored, and the list goes away with the skill
    EXPECT_FALSE(sheet->SkillMartialVisualListBox.Visible());
    EXPECT_EQ(JoinFields(sheet->visualizations, ";"), "*Odd,1,;Mirror Hall,3,");
    Open(0);
    sheet->SkillListBox.AddRow("Brawling");
    Open(2);  // any other skill hides the list
    EXPECT_FALSE(sheet->SkillMartialVisualListBox.Visible());
}

TEST_F(Skills, TheMenuOffersTheStyleSpecialMovesOrAllMoves) {
    const struct { const char *name, *heading, *offered; } cases[] = {
        {"Martial Arts(River Fist)", "Combat Move", "Flowing Strike|Joint Lock|Disarm"},
        {"Martial Arts(River Fist) (Specialty)", "Martial Maneuver",
         "Punch|Kick|Block|Dodge|Sweep|Throw|Disarm|Joint Lock|Crane Step|Flowing Strike"},
        {"Lucid Dream", "Visualization", "Mirror Hall|Falling Sky|Burning Door|Silent Garden"}};
    for (const auto& c : cases) {
        sheet->SkillNameField.SetText(c.name);
        sheet->SkillMartialVisualListBox.SetHeading(0, c.heading);
        auto items = SkillMartialVisualListBox_ConstructContextualMenu(*sheet);
        const auto separator = std::find(items.begin(), items.end(), "-");
        EXPECT_EQ(JoinFields(std::vector<std::string>(separator + 1, items.end()), "|"), c.offered)
            << c.name;
        EXPECT_EQ(separator - items.begin(), std::string(c.heading) == "Visualization" ? 3 : 4);
    }
}
