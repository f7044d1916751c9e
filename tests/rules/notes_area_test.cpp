#include "rules/NotesArea.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

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
        sheet->Operations().at(button + std::string("Button_Action")).run(*sheet, "");
        EXPECT_EQ(State(), expected) << button;
    }
    sheet->ContactsButton.SetValue(true);  // as the console's flag does: no click
    sheet->Operations().at("SwapFields").run(*sheet, "history");  // any case names the field
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
