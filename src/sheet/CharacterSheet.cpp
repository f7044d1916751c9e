#include "sheet/CharacterSheet.h"

#include "platform/Platform.h"
#include "ruledata/DataModule.h"
#include "ruledata/XmlError.h"

namespace zeph {

CharacterSheet::CharacterSheet(DataModule& data, Platform& platform,
                               const OperationTable& operations)
    : data_(data), platform_(platform), operations_(operations) {
    hookChangeOperations();
    registerProperties();
}

const RuleData& CharacterSheet::Rules() const { return *data_.xdata; }

void CharacterSheet::hookChangeOperations() {
    for (Item* item : items_.All()) {
        auto found = operations_.find(ChangeOperationName(*item));
        if (found == operations_.end()) continue;
        const Operation& operation = found->second;
        // In a combo or choice a new selected row runs the change as a new text does, even
        // where the text reads the same (two rows alike, or a row set again after a refill).
        const bool rowsChoose = item->Kind() == ItemKind::Combo || item->Kind() == ItemKind::Choice;
        item->Observe([this, &operation, rowsChoose](ItemChange change) {
            if (items_.replaying) return;
            if (change == ItemChange::Text || (rowsChoose && change == ItemChange::Selection))
                operation.run(*this, "");
        });
    }
}

void CharacterSheet::registerProperties() {
    properties_.Add("mentalBonus", mentalBonus);
    properties_.Add("physicalBonus", physicalBonus);
    properties_.Add("attrBonus", attrBonus);
    properties_.Add("q_attributes", q_attributes);
    properties_.Add("q_bonuspts", q_bonuspts);
    properties_.Add("q_row", q_row);
    properties_.Add("q_chartype", q_chartype);
    properties_.Add("s_row", s_row);
    properties_.Add("martialmaneuvers", martialmaneuvers);
    properties_.Add("visualizations", visualizations);
    properties_.Add("m_attributes", m_attributes);
    properties_.Add("m_bonuspts", m_bonuspts);
    properties_.Add("m_row", m_row);
    properties_.Add("m_altform", m_altform);
    properties_.Add("m_all_bonuses", m_all_bonuses);
    properties_.Add("fileSaveString", fileSaveString);
    properties_.Add("loadingCharFile", loadingCharFile);
    properties_.Add("savedChar", savedChar);
    properties_.Add("title", title);
    properties_.Add("currentNotesButton", currentNotesButton);
    properties_.Add("portraitPath", portraitPath);
    properties_.Add("journalWindowIsOpen", journalWindowIsOpen);
    properties_.Add("portraitWindowIsOpen", portraitWindowIsOpen);
    properties_.Add("characterClosed", characterClosed);
}

CharacterSheet::AttributeItems CharacterSheet::AttributeOf(int attribute) {
    switch (attribute) {
        case Strength:
            return {StrengthField, StrengthBonus, StrengthTotal};
        case Dexterity:
            return {DexterityField, DexterityBonus, DexterityTotal};
        case Constitution:
            return {ConstitutionField, ConstitutionBonus, ConstitutionTotal};
        case Intelligence:
            return {IntelligenceField, IntelligenceBonus, IntelligenceTotal};
        case Perception:
            return {PerceptionField, PerceptionBonus, PerceptionTotal};
        default:
            return {WillpowerField, WillpowerBonus, WillpowerTotal};
    }
}

void CharacterSheet::ShowXmlFailure(const XmlError& failure) {
    platform_.MsgBox(FormatXmlFailure(failure));
}

void CharacterSheet::MarkDirty() {
    if (!loadingCharFile) savedChar = false;
}

void CharacterSheet::NameField_LostFocus() { title = "Zephalon CC: " + NameField.Text(); }

}  // namespace zeph
