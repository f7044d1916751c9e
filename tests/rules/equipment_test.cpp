#include "rules/Equipment.h"

#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

const char* const kGear = R"(<zephalondata><equipment><type value="Gear">
  <name value="Rope"><length>15 m</length><notes>Hemp.</notes><weight>2 kg</weight></name>
  <name value="Lamp"><Cost>5</Cost><period/><pagereference>p. 3</pagereference></name>
  <name value="Flask"><NOTES>Tin</NOTES><crew>1</crew></name>
  <name value="Empty"/>
  <name value="Van"><armorvalue>1</armorvalue><encumbrance>2</encumbrance><height>3</height><width>4</width><speed>5</speed><acceleration>6</acceleration><toughness>7</toughness><handling>8</handling><damagecapacity>9</damagecapacity><armament>0</armament></name>
</type></equipment></zephalondata>)";

class Equipment : public SheetTest {
  protected:
    void SetUp() override { UseRules(kGear); }
    // The bold runs of the field, joined by "|".
    std::string BoldRuns() {
        std::vector<std::string> bold;
        for (const StyleRun& run : sheet->EquipmentField.Styled().runs)
            if (run.bold) bold.push_back(run.text);
        return JoinFields(bold, "|");
    }
};

TEST_F(Equipment, ItemsAddTheirNameInBoldAndAParagraphAtTheEnd) {
    struct Case {
        const char* before;
        const char* items;
        const char* text;
        const char* bold;
    } cases[] = {
        // A value's own full stop takes the place of ". "; notes go on a line of their own.
        {"", "Rope", "Rope\nLength: 15 m. \nNotes: Hemp.Weight: 2 kg. \n", "Rope"},
        // Unknown elements keep their spelling, empty ones are skipped.
        {"", "Lamp", "Lamp\nCost: 5. \nReference: p. 3. \n", "Lamp"},
        {"", "Flask", "Flask\n\nNotes: Tin. Crew: 1. \n", "Flask"},
        {"", "Van",
         "Van\nArmor Value: 1. Encumbrance: 2. Height: 3. Width: 4. Speed: 5. Acceleration: 6. "
         "Toughness: 7. Handling: 8. Damage Capacity: 9. \nArmament: 0. \n",
         "Van"},
        {"", "Empty,Lamp", "Empty\n\n\nLamp\nCost: 5. \nReference: p. 3. \n", "Empty|Lamp"},
        {"Kit", "Empty", "Kit\nEmpty\n\n", "Empty"},
    };
    for (const Case& c : cases) {
        UseRules(kGear);
        sheet->EquipmentField.SetText(c.before);
        sheet->EquipmentField.SetSelection(0, 2);
        sheet->EquipmentTypePopup.SetText("Gear");
        for (const std::string& item : SplitFields(c.items, ','))
            EquipmentField_ContextualMenuAction(*sheet, item);
        EXPECT_EQ(sheet->EquipmentField.Text(), c.text) << c.items;
        EXPECT_EQ(BoldRuns(), c.bold) << c.items;
        EXPECT_EQ(sheet->EquipmentField.SelLength(), *c.before ? 2 : 0) << c.items;
    }
}

TEST_F(Equipment, TypesAndMenusComeFromTheCatalogue) {
    UseSample();
    sheet->EquipmentTypePopup.SetText("Armor");
    EXPECT_FALSE(EquipmentTypePopup_MouseDown(*sheet));
    EXPECT_EQ(JoinFields(sheet->EquipmentTypePopup.Rows(), "|"), "Weapons|Armor|Vehicles");
    EXPECT_EQ(sheet->EquipmentTypePopup.Text(), "Armor");
    EXPECT_EQ(JoinFields(EquipmentField_ConstructContextualMenu(*sheet), "|"),
              "Leather Jacket|Padded Vest|Chain Shirt");
    sheet->EquipmentTypePopup.SetText("Tools");
    EXPECT_TRUE(EquipmentField_ConstructContextualMenu(*sheet).empty());
}

TEST_F(Equipment, ADoubleQuoteInANameIsLeftToTheApplication) {
    sheet->EquipmentTypePopup.SetText("Gear");
    EXPECT_THROW(EquipmentField_ContextualMenuAction(*sheet, "12\" Rope"), XmlError);
    EXPECT_EQ(sheet->EquipmentField.Text(), "");
    sheet->EquipmentTypePopup.SetText("\"");
    EXPECT_THROW(EquipmentField_ConstructContextualMenu(*sheet), XmlError);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(Equipment, TabPutsFourBlanksInPlaceOfTheSelection) {
    struct Case {
        int start, length;
        const char* text;
        const char* bold;
        int caret;
    } cases[] = {
        {4, 0, "Säge    \nab", "Säge    ", 8},  // typed after a bold run, it is bold
        {5, 0, "Säge\n    ab", "Säge", 9},     {0, 0, "    Säge\nab", "    Säge", 4},
        {3, 3, "Säg    b", "Säg    ", 7},    // a selection across runs
        {9, 5, "Säge\nab    ", "Säge", 11},  // clamped to the end
    };
    for (const Case& c : cases) {
        sheet->EquipmentField.SetStyled(StyledText{{StyleRun{"Säge", true}, StyleRun{"\nab"}}});
        sheet->EquipmentField.SetSelection(c.start, c.length);
        EXPECT_TRUE(EquipmentField_KeyDown(*sheet, "\t"));
        EXPECT_EQ(sheet->EquipmentField.Text(), c.text) << c.start;
        EXPECT_EQ(BoldRuns(), c.bold) << c.start;
        EXPECT_EQ(sheet->EquipmentField.SelStart(), c.caret) << c.start;
    }
    EXPECT_FALSE(EquipmentField_KeyDown(*sheet, "a"));
    EXPECT_EQ(sheet->EquipmentField.Text(), "Säge\nab    ");
}

TEST_F(Equipment, LiftingCapacityRunsOnThroughTheBandsAndLeapsAt16) {
    for (auto [strength, pounds] :
         {std::pair{-1, 0}, {1, 50}, {6, 450}, {11, 1750}, {15, 3750}, {16, 6000}, {17, 7000}})
        EXPECT_EQ(LiftingCapacity(strength), pounds) << strength;
}

TEST_F(Equipment, TheEncumbranceBlockFollowsWhatStands) {
    struct Case {
        const char* strength;
        const char* first;
        const char* last;
    } cases[] = {
        {"0", "0lbs /0kg. Throwing Capacity = 0lbs/0kg.", "1/1 to 0/0"},
        {"-3", "0lbs /0kg. Throwing Capacity = 0lbs/0kg.", "1/1 to 0/0"},
        {"5.9", "250lbs /125kg. Throwing Capacity = 225lbs/113kg.", "438/219 to 500/250"},
        {"15", "3750lbs /1875kg. Throwing Capacity = 3375lbs/1688kg.", "6563/3282 to 7500/3750"},
        {"16", "6000lbs /3000kg. Throwing Capacity = 5400lbs/2700kg.", "10501/5251 to 12000/6000"},
    };
    for (const Case& c : cases) {
        sheet->EquipmentField.SetStyled(StyledText{{StyleRun{"Rope", true}, StyleRun{"\n"}}});
        sheet->StrengthTotal.SetText(c.strength);
        EncumButton_Action(*sheet);
        const std::vector<std::string> lines = SplitFields(sheet->EquipmentField.Text(), '\n');
        ASSERT_EQ(lines.size(), 8u) << c.strength;
        EXPECT_EQ(lines[1], std::string("Lifting Capacity = ") + c.first) << c.strength;
        EXPECT_EQ(lines[6],
                  std::string(c.last) + " = -5 penalty. D4(2) Endurance per minute. (Extra Heavy)")
            << c.strength;
        EXPECT_EQ(lines[7], "") << "each line ends";
        EXPECT_EQ(BoldRuns(), "Rope");
    }
    const std::vector<std::string> lines = SplitFields(sheet->EquipmentField.Text(), '\n');
    EXPECT_EQ(std::vector(lines.begin() + 2, lines.begin() + 6),
              (std::vector<std::string>{
                  "Up to 3000/1500 = No penalty.",
                  "3001/1501 to 7500/3750 = -1 penalty. D4(2) Endurance per 10 minutes. (Light)",
                  "7501/3751 to 9000/4500 = -2 penalty. D4(2) Endurance per 5 minutes. (Medium)",
                  "9001/4501 to 10500/5250 = -3 penalty. D4(2) Endurance per 2 minutes. (Heavy)"}));
}

}  // namespace
}  // namespace zeph::testing
