#include "rules/NotesArea.h"

#include "rules/AlternateForms.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

TextItem& FieldOf(CharacterSheet& sheet, const std::string& name) {
    if (EqualsNoCase(name, "Contacts")) return sheet.ContactsField;
    if (EqualsNoCase(name, "History")) return sheet.HistoryField;
    if (EqualsNoCase(name, "AltForm")) return sheet.AltFormField;
    return sheet.NotesField;
}

void Click(CharacterSheet& sheet, FlagItem& button, const std::string& name) {
    button.SetValue(!button.Value());
    if (!button.Value()) return;
    UnselectButtons(sheet);
    button.SetValue(true);
    SwapFields(sheet, name);
}

// The field of the first pressed button. The two style bars differ only in the last one: the
// styles ask whether "Alt Form" is pressed, the fonts whether its field is shown.
TextItem* firstPressedField(CharacterSheet& sheet, bool altFormCounts) {
    if (sheet.NotesButton.Value()) return &sheet.NotesField;
    if (sheet.ContactsButton.Value()) return &sheet.ContactsField;
    if (sheet.HistoryButton.Value()) return &sheet.HistoryField;
    if (altFormCounts) return &sheet.AltFormField;
    return nullptr;
}

}  // namespace

void UnselectButtons(CharacterSheet& sheet) {
    for (FlagItem* button :
         {&sheet.NotesButton, &sheet.ContactsButton, &sheet.HistoryButton, &sheet.AltFormButton})
        button->SetValue(false);
}

void SwapFields(CharacterSheet& sheet, const std::string& name) {
    // Every other field is hidden, not only the outgoing one, so that exactly one stands in
    // the place even after a load has shown the notes under another current name.
    TextItem& incoming = FieldOf(sheet, name);
    for (TextItem* field :
         {&sheet.NotesField, &sheet.ContactsField, &sheet.HistoryField, &sheet.AltFormField})
        if (field != &incoming) field->SetVisible(false);
    sheet.currentNotesButton = name;
    if (&incoming == &sheet.AltFormField) incoming.SetText(GenerateAltForms(sheet));
    incoming.SetVisible(true);
}

void NotesButton_Action(CharacterSheet& sheet) { Click(sheet, sheet.NotesButton, "Notes"); }
void ContactsButton_Action(CharacterSheet& sheet) {
    Click(sheet, sheet.ContactsButton, "Contacts");
}
void HistoryButton_Action(CharacterSheet& sheet) { Click(sheet, sheet.HistoryButton, "History"); }
void AltFormButton_Action(CharacterSheet& sheet) { Click(sheet, sheet.AltFormButton, "AltForm"); }

TextItem* DescripStylesTarget(CharacterSheet& sheet) {
    return firstPressedField(sheet, sheet.AltFormButton.Value());
}

TextItem* DescripFontsTarget(CharacterSheet& sheet) {
    return firstPressedField(sheet, sheet.AltFormButton.Visible());
}

void AddNotesAreaOperations(OperationTable& table) {
    AddOperation(table, "UnselectButtons", UnselectButtons);
    AddOperationWithArgument(table, "SwapFields", SwapFields);
    AddOperation(table, "NotesButton_Action", NotesButton_Action);
    AddOperation(table, "ContactsButton_Action", ContactsButton_Action);
    AddOperation(table, "HistoryButton_Action", HistoryButton_Action);
    AddOperation(table, "AltFormButton_Action", AltFormButton_Action);
}

}  // namespace zeph
