#include "rules/NotesArea.h"

#include "rules/AlternateForms.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class NotesArea : public SheetTest {
protected:
    void SetUp() override { UseSmallRules(); }
    void Click(const std::string& button) {
        sheet->Operations().at(button + "Button_Action").run(*sheet, "");
    }
    // The names of the items of that kind that are pressed, or visible, joined by ",".
    std::string Pressed() {
        std::vector<std::string> names;
        for (const char* name : {"NotesButton", "ContactsButton", "HistoryButton", "AltFormButton"})
            if (dynamic_cast<FlagItem*>(sheet->Items().Find(name))->Value()) names.push_back(name);
        return JoinFields(names, ",");
    }
    std::string Shown() {
        std::vector<std::string> names;
        for (const char* name : {"NotesField", "ContactsField", "HistoryField", "AltFormField"})
            if (sheet->Items().Find(name)->Visible()) names.push_back(name);
        return JoinFields(names, ",");
    }
};

TEST_F(NotesArea, ClicksPressOneButtonAndShowOneField) {
    struct Case {
        const char* clicks;
        const char* pressed;
        const char* current;
        const char* shown;
    };
    for (const Case& c : {
             Case{"", "NotesButton", "", "NotesField"},
             Case{"Contacts", "ContactsButton", "Contacts", "ContactsField"},
             Case{"Notes", "", "", "NotesField"},
             Case{"History,History", "", "History", "HistoryField"},
             Case{"Contacts,Contacts,Contacts", "ContactsButton", "Contacts", "ContactsField"},
             Case{"AltForm,Contacts,Notes", "NotesButton", "Notes", "NotesField"},
         }) {
        SCOPED_TRACE(c.clicks);
        UseSmallRules();
        for (const std::string& button : SplitFields(c.clicks, ',')) Click(button);
        EXPECT_EQ(Pressed(), c.pressed);
        EXPECT_EQ(sheet->Properties().Find("currentNotesButton")->get(), c.current);
        EXPECT_EQ(Shown(), c.shown);
    }
}

TEST_F(NotesArea, AltFormIsWrittenAnewEachTimeItIsBroughtIn) {
    AddQualityRow("Shifter", {{27, "&&Bear&&Bear"}});
    sheet->AltFormField.SetText("typed");
    Click("AltForm");
    const std::string generated = GenerateAltForms(*sheet);
    ASSERT_NE(generated, "");
    EXPECT_EQ(sheet->AltFormField.Text(), generated);

    sheet->AltFormField.SetText("edited");
    Click("AltForm");
    EXPECT_EQ(sheet->AltFormField.Text(), "edited") << "raising the button brings nothing in";
    Click("AltForm");
    EXPECT_EQ(sheet->AltFormField.Text(), generated);

    // Setting a button, as the console's flag does, is no click.
    sheet->ContactsButton.SetValue(true);
    EXPECT_EQ(sheet->currentNotesButton, "AltForm");
    EXPECT_EQ(Shown(), "AltFormField");
}

}  // namespace
}  // namespace zeph::testing
