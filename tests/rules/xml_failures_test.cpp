// A key with a quote breaks the query of its lookup. Each operation either shows the report and
// stops where it stood, or leaves the failure to the application's handler.
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

class XmlFailures : public SheetTest {
  protected:
    void SetUp() override { UseSmallRules(); }
    // "Name=text|...": a list is offered the row and takes it, as the user chooses; a field is typed.
    void Offer(const std::string& entries) {
        for (const std::string& entry : SplitFields(entries, '|')) {
            const std::string name = entry.substr(0, entry.find('=')), row = entry.substr(name.size() + 1);
            if (auto* list = dynamic_cast<ComboItem*>(sheet->Items().Find(name))) list->AddRow(row);
            SetTexts(entry);
        }
    }
};

TEST_F(XmlFailures, TheListsAndTheRecomputationShowTheReportAndStop) {
    const std::string imp = "StrengthField=3|CharacterTypePopup=Devil's Own|ChooseCharPopup=Imp";
    const struct { std::string steps; const char *shown, *after; } cases[] = {
        {"CharacterTypePopup=Devil's Own", "Invalid predicate\n At node: //charactertype/type[@value='Devil's Own']/name on: 0",
         "savedChar=true"},
        {imp, "\n At node: //charactertype/type[@value='Devil's Own']/name[@value='Imp'] on: 0", "StrengthTotal=0"},
        {imp, "\n At node: //charactertype/type[@value='Devil's Own']/name[@value='Imp']/bonuspts on: 0", "StrengthTotal=0"},
        {"AssociationCombo=Mother's Guild", "\n At node: //associations/name[@value='Mother's Guild']/notes on: 0",
         "savedChar=true"},
        {"QualityPopup=Bad 'Name", "\n At node: //qualities/type[@value='']/name[@value='Bad 'Name']/costs",
         "QualityNameField=Bad 'Name"},
        {"MetaTypePopup=Gifts|MetaPopup=Bad \"Name",
         "\n At node: //metaphysics/type[@value='Gifts']/name[@value=\"Bad \"Name\"]/costs", "MetaNameField=Bad \"Name"},
        {"SkillPopup=O'Neil", "\n At node: //skills/category[@value='']/name[@value='O'Neil']", "SkillNameField=O'Neil"},
    };
    for (const auto& c : cases) {
        UseSmallRules();  // a new sheet
        platform = ScriptedPlatform("/p", "/a", "/tmp");
        Offer(c.steps);
        EXPECT_NE(JoinFields(platform.Messages(), "|").find(c.shown), std::string::npos) << c.shown;
        ExpectTexts(c.after);
    }
}

TEST_F(XmlFailures, ChangingATypeOrAStyleLeavesItToTheApplication) {
    EXPECT_THROW(Offer("SkillNameField=Martial Arts|SkillSelectPopup=Bare"), std::runtime_error)
        << "its basic moves are empty";
    for (const char* list : {"QualityTypePopup", "MetaTypePopup", "SkillCategoryPopup"})
        EXPECT_THROW(Offer(list + std::string("=Devil's")), XmlError) << list;
    EXPECT_TRUE(platform.Messages().empty());
}

}  // namespace
}  // namespace zeph::testing
