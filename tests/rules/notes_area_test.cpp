#include "rules/NotesArea.h"

#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class NotesArea : public SheetTest {
  protected:
    void Click(const std::string& button) {
        sheet->Operations().at(button + "Button_Action").run(*sheet, "");
    }
    // The current name, then the pressed buttons and shown fields: ": NotesButton NotesField".
    std::string State() {
        std::string state = sheet->Properties().Find("currentNotesButton")->get() + ":";
        for (std::string name : {"Notes", "Contacts", "History", "AltForm"}) {
            if (dynamic_cast<FlagItem&>(*sheet->Items().Find(name + "Button")).Value())
                state += " " + name + "Button";
            if (sheet->Items().Find(name + "Field")->Visible()) state += " " + name + "Field";
        }
        return state;
    }
};

TEST_F(NotesArea, ClicksPressOneButtonAndShowOneField) {
    for (auto [clicks, expected] :
         {std::pair{"", ": NotesButton NotesField"},
          {"Contacts", "Contacts: ContactsButton ContactsField"},
          {"Notes", ": NotesField"},  // a click on the pressed button only raises it
          {"History,History", "History: HistoryField"},
          {"AltForm,Contacts,Notes", "Notes: NotesButton NotesField"}}) {
        UseSmallRules();
        for (const std::string& button : SplitFields(clicks, ',')) Click(button);
        EXPECT_EQ(State(), expected) << clicks;
    }
}

TEST_F(NotesArea, AltFormIsWrittenAnewEachTimeItIsBroughtIn) {
    UseSmallRules();
    AddQualityRow("Shifter", {{27, "&&Bear&&Bear"}});
    Click("AltForm");
    const std::string generated = sheet->AltFormField.Text();
    EXPECT_EQ(generated.substr(0, 5), "Bear\n");
    sheet->AltFormField.SetText("edited");
    Click("AltForm");
    EXPECT_EQ(sheet->AltFormField.Text(), "edited") << "raising the button brings nothing in";
    Click("AltForm");
    EXPECT_EQ(sheet->AltFormField.Text(), generated);

    sheet->ContactsButton.SetValue(true);  // as the console's flag does: no click
    EXPECT_EQ(State(), "AltForm: ContactsButton AltFormButton AltFormField");
}

}  // namespace
}  // namespace zeph::testing
