#include "rules/AlternateForms.h"
#include "rules/NotesArea.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class AlternateForms : public SheetTest {
  protected:
    // Quality rows of these column 27 texts and metaphysic rows of these types; "|" ends lines.
    std::string Generate(std::vector<std::string> qualityForms, std::vector<std::string> metaTypes,
                         bool dramaPoints) {
        UseSmallRules();
        SetFields({"3", "2", "5", "2", "3", "1"});
        int a = 0;
        for (const char* total : {"8", "3", "8", "2", "4", "2"})
            sheet->AttributeOf(a++).total.SetText(total);
        sheet->EssenceTotal.SetText("17");
        for (const std::string& forms : qualityForms) AddQualityRow("Shifter", {{27, forms}});
        for (const std::string& type : metaTypes) AddMetaRow("Gift", {{25, type}});
        sheet->DPField.SetVisible(dramaPoints);
        std::string text = GenerateAltForms(*sheet);
        std::replace(text.begin(), text.end(), '\n', '|');
        return text;
    }
};

TEST_F(AlternateForms, WritesOneBlockPerForm) {
    // A quality's form adds to the bought points and reads "/n" as 0; a metaphysic's divides
    // the totals by it. A form without figures carries those before it, zero at first.
    EXPECT_EQ(Generate({"&&Wolf,Bear&&", "&&&&Bear", "&&&&Wolf"}, {"", "Mists"}, false),
              "Bear|Strength: 0 Dexterity: 0 Constitution: 0|Intelligence: 0 Perception: 0 "
              "Willpower: 0|Life Points: 0|Endurance Points: 0|Speed: 0|Essence Pool: 17|Armor "
              "Value: |||Wolf|Strength: 5 Dexterity: 3 Constitution: 6|Intelligence: 1 "
              "Perception: 6 Willpower: 1|Life Points: 19.5|Endurance Points: 25|Speed: "
              "22|Essence Pool: 17|Armor Value: 1|Natural Attacks: Fang d4|Page Reference: ZSB "
              "p. 9|||Haze|Strength: 4 Dexterity: 4 Constitution: 3|Intelligence: 2 Perception: 3 "
              "Willpower: 4|Life Points: 15|Endurance Points: 35|Speed: 15|Essence Pool: "
              "17|Other: Drifts through keyholes|||");
    // With drama points there are no pools, and a metaphysic's armour shows.
    EXPECT_EQ(Generate({"&&&&Haze"}, {"Beasts"}, true),
              "Haze|Strength: 3 Dexterity: 3 Constitution: 5|Intelligence: 2 Perception: 2 "
              "Willpower: 3|Life Points: 21.5|Other: Drifts through keyholes|||Wolf|Strength: 10 "
              "Dexterity: 4 Constitution: 9|Intelligence: 1 Perception: 7 Willpower: 2|Life "
              "Points: 22|Armor Value: 1|Natural Attacks: Fang d4|Page Reference: ZSB p. 9|||Bear|"
              "Strength: 10 Dexterity: 4 Constitution: 9|Intelligence: 1 Perception: 7 Willpower: "
              "2|Life Points: 22|Armor Value: 1|||");
    // A first form without calculations starts them at zero.
    EXPECT_EQ(Generate({"&&&&Stone"}, {}, false),
              "Stone|Strength: 4 Dexterity: 2 Constitution: 7|Intelligence: 2 Perception: 3 Willpower: 1|Life "
              "Points: 0|Endurance Points: 0|Speed: 18|Essence Pool: 17|Armor Value: |||");
    // The quote breaks the query: what was built before is dropped.
    EXPECT_EQ(Generate({"&&&&Wolf"}, {"Kin's"}, false), "");
    EXPECT_EQ(platform.Messages().size(), 1u) << "only the failure shows a message";
}

TEST_F(AlternateForms, ChosenFormNamesAndPricesTheQuality) {
    for (auto [name, form, expected] :
         {std::tuple{"Accursed Kin(Bear)", "Wolf",
           "QualityNameField=Accursed Kin(Wolf)|QualityCostPerLevelField=4/4"},
          {"Shifter", "Bear", "QualityNameField=Shifter(Bear)|QualityLevelField=3"},
          {"Shifter", "Kin's", "QualityNameField=Shifter(Kin's)"}}) {
        UseSmallRules();
        sheet->QualityNameField.SetText(name);
        SetTexts("QualityLevelField=3|QualityCostField=6");
        sheet->QualityAlternateFormCombo.AddRow(form);
        sheet->QualityAlternateFormCombo.SetListIndex(0);
        ExpectTexts(expected);
    }
    EXPECT_EQ(platform.Messages().size(), 1u) << "the quote breaks the query";
}

class NotesArea : public SheetTest {
  protected:
    // The current name, pressed buttons, shown fields, AltForm's first line: ": NotesField |".
    std::string State() {
        std::string state = sheet->currentNotesButton + ":";
        for (std::string name : {"Notes", "Contacts", "History", "AltForm"}) {
            if (dynamic_cast<FlagItem&>(*sheet->Items().Find(name + "Button")).Value())
                state += " " + name + "Button";
            if (sheet->Items().Find(name + "Field")->Visible()) state += " " + name + "Field";
        }
        return state + " |" + NthField(sheet->AltFormField.Text(), "\n", 1);
    }
};

TEST_F(NotesArea, ClicksPressOneButtonShowOneFieldAndWriteTheAltFormAnew) {
    UseSmallRules();
    AddQualityRow("Shifter", {{27, "&&Bear&&Bear"}});
    // Notes starts pressed. A click on the pressed button only raises it; the AltForm field is
    // written anew over an edit each time it is brought in.
    for (auto [button, expected] : {std::pair{"Notes", ": NotesField |edited"},
                                    {"Contacts", "Contacts: ContactsButton ContactsField |edited"},
                                    {"History", "History: HistoryButton HistoryField |edited"},
                                    {"AltForm", "AltForm: AltFormButton AltFormField |Bear"},
                                    {"AltForm", "AltForm: AltFormField |edited"},
                                    {"AltForm", "AltForm: AltFormButton AltFormField |Bear"},
                                    {"Notes", "Notes: NotesButton NotesField |edited"}}) {
        sheet->AltFormField.SetText("edited");
        Do(button + std::string("Button_Action"));
        EXPECT_EQ(State(), expected) << button;
    }
    sheet->ContactsButton.SetValue(true);  // as the console's flag does: no click
    Do("SwapFields", "history");  // any case names the field
    EXPECT_EQ(State(), "history: NotesButton ContactsButton HistoryField |edited");
}

TEST_F(NotesArea, TheStyleBarActsOnTheFirstPressedFieldAndFontsFallToTheAltForms) {
    const auto targets = [&] {
        TextItem* styles = DescripStylesTarget(*sheet);
        TextItem* fonts = DescripFontsTarget(*sheet);
        return (styles ? styles->Name() : "none") + " " + (fonts ? fonts->Name() : "none");
    };
    EXPECT_EQ(targets(), "NotesField NotesField");
    sheet->HistoryButton.SetValue(true);
    sheet->ContactsButton.SetValue(true);
    sheet->NotesButton.SetValue(false);
    EXPECT_EQ(targets(), "ContactsField ContactsField");
    UnselectButtons(*sheet);
    sheet->AltFormButton.SetValue(true);
    EXPECT_EQ(targets(), "AltFormField AltFormField");
    sheet->AltFormButton.SetValue(false);
    EXPECT_EQ(targets(), "none AltFormField");
    sheet->AltFormButton.SetVisible(false);
    EXPECT_EQ(targets(), "none none");
}

}  // namespace
}  // namespace zeph::testing
