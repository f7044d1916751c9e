#include "rules/Equipment.h"

#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

const char* const kGear = R"(<zephalondata><equipment><type value="Gear"><name value="Empty"/>
  <name value="Rope"><NOTES>Hemp.</NOTES><length>15 m</length><Cost>5</Cost><period/><crew>1</crew></name>
  <name value="Van"><armorvalue>1</armorvalue><encumbrance>2</encumbrance><height>3</height><width>4</width><speed>5</speed><acceleration>6</acceleration><toughness>7</toughness><handling>8</handling><damagecapacity>9</damagecapacity><armament>0</armament></name>
</type><type value="Tools"/></equipment></zephalondata>)";

class Equipment : public SheetTest {
  protected:
    void SetUp() override { UseRules(kGear); }
    // The field's runs joined by "|", bold ones marked "[b]", as the console prints them.
    std::string Runs() {
        std::string runs;
        for (const StyleRun& run : sheet->EquipmentField.Styled().runs)
            runs += (runs.empty() ? "" : "|") + std::string(run.bold ? "[b]" : "") + run.text;
        return runs;
    }
};

TEST_F(Equipment, TheMenuOfATypeAddsItsItemsInBoldWithAParagraphAtTheEnd) {
    sheet->EquipmentTypePopup.SetText("Gear");
    EquipmentTypePopup_GotFocus(*sheet);
    EXPECT_FALSE(EquipmentTypePopup_MouseDown(*sheet));  // the rows are made anew
    EXPECT_EQ(JoinFields(sheet->EquipmentTypePopup.Rows(), "|"), "Gear|Tools");
    EXPECT_EQ(JoinFields(EquipmentField_ConstructContextualMenu(*sheet), "|"), "Empty|Rope|Van");
    sheet->EquipmentField.SetText("Kit");
    sheet->EquipmentField.SetSelection(0, 2);
    // A double quote breaks the query; it is left to the application, with nothing written.
    EXPECT_THROW(EquipmentField_ContextualMenuAction(*sheet, "12\" Rope"), XmlError);
    for (const char* item : {"Empty", "Rope", "Van"})
        EquipmentField_ContextualMenuAction(*sheet, item);
    // Labels match in any case, unknown elements keep their spelling and empty ones are
    // skipped; a value's own full stop takes the place of ". ".
    EXPECT_EQ(Runs(),
              "Kit\n|[b]Empty|\n\n\n|[b]Rope|\n\nNotes: Hemp.Length: 15 m. Cost: 5. Crew: 1. \n\n|"
              "[b]Van|\nArmor Value: 1. Encumbrance: 2. Height: 3. Width: 4. Speed: 5. "
              "Acceleration: 6. Toughness: 7. Handling: 8. Damage Capacity: 9. \nArmament: 0. \n");
    EXPECT_EQ(sheet->EquipmentField.SelLength(), 2);
    sheet->EquipmentTypePopup.SetText("Tools");
    EXPECT_TRUE(EquipmentField_ConstructContextualMenu(*sheet).empty());
    sheet->EquipmentTypePopup.SetText("\"");
    EXPECT_THROW(EquipmentField_ConstructContextualMenu(*sheet), XmlError);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(Equipment, TabPutsFourBlanksInPlaceOfTheSelectionInTheStyleBeforeIt) {
    // At the start in the style of the first character; a selection past the end is clamped.
    for (auto [start, length, runs, caret] : {std::tuple{4, 0, "[b]Säge    |\nab", 8},
                                              {0, 0, "[b]    Säge|\nab", 4},
                                              {3, 3, "[b]Säg    |b", 7},
                                              {9, 5, "[b]Säge|\nab    ", 11}}) {
        sheet->EquipmentField.SetStyled(StyledText{{StyleRun{"Säge", true}, StyleRun{"\nab"}}});
        sheet->EquipmentField.SetSelection(start, length);
        EXPECT_TRUE(EquipmentField_KeyDown(*sheet, "\t"));
        EXPECT_EQ(Runs(), runs) << start;
        // The caret stands after the blanks, with nothing selected.
        EXPECT_EQ(std::pair(sheet->EquipmentField.SelStart(), sheet->EquipmentField.SelLength()),
                  std::pair(caret, 0)) << start;
    }
    EXPECT_FALSE(EquipmentField_KeyDown(*sheet, "a"));
    EXPECT_EQ(sheet->EquipmentField.Text(), "Säge\nab    ");
}

TEST_F(Equipment, LiftingCapacityRunsOnThroughTheBandsAndLeapsAt16) {
    for (auto [strength, pounds] :
         {std::pair{-1, 0}, {1, 50}, {6, 450}, {11, 1750}, {15, 3750}, {16, 6000}, {17, 7000}})
        EXPECT_EQ(LiftingCapacity(strength), pounds) << strength;
    // No Strength below zero counts; tests/scripts/equipment.zs checks the whole block.
    sheet->StrengthTotal.SetText("-3");
    EncumButton_Action(*sheet);
    EXPECT_EQ(NthField(sheet->EquipmentField.Text(), "\n", 1),
              "Lifting Capacity = 0lbs /0kg. Throwing Capacity = 0lbs/0kg.");
}

}  // namespace
}  // namespace zeph::testing
