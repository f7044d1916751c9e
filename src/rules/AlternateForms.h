// Alternate forms: a quality bought with a chosen form takes the form's price and name, and
// the sheet of the forms a character has, one block of figures per form, is written on demand.
#pragma once

#include <string>

#include "sheet/Operations.h"

namespace zeph {

class CharacterSheet;

void QualityAlternateFormCombo_Change(CharacterSheet& sheet);
// Names the quality in the entry items after the chosen form and prices it by the form.
void QualityGetAltFormData(CharacterSheet& sheet);
// The text of the forms: first the form chosen in each quality row, then every form of the type
// each metaphysic row grants. Empty after an XML failure, which is shown.
std::string GenerateAltForms(CharacterSheet& sheet);

void AddAlternateFormOperations(OperationTable& table);

}  // namespace zeph
