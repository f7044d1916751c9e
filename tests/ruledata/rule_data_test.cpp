#include <gtest/gtest.h>

#include "ruledata/RuleData.h"

using namespace zeph;

namespace {

const char* const kRules = R"(<?xml version="1.0"?>
<zephalondata books="ZSB">
  <qualities>
    <type value="Physical">
      <name value="Keen">
        <notes>  </notes>
        <pagereference/>
        <costs creationcost="2"/>
      </name>
    </type>
    <type value="Mental">
      <name value="Keen">
        <notes>Mental keenness</notes>
      </name>
    </type>
  </qualities>
  <skills><category value="Lore"><name value="Myth"><typelist>
Odd</typelist></name></category></skills>
</zephalondata>)";

// The failure report of what `work` throws, or "no failure".
template <class Work>
std::string Report(Work work) {
    try {
        work();
    } catch (const XmlError& failure) {
        return FormatXmlFailure(failure);
    }
    return "no failure";
}

}  // namespace

TEST(RuleData, LeavesRecordsAndQueriesAsTheRulesReadThem) {
    auto rules = RuleData::LoadText(kRules);
    const std::string keen = "//qualities/type[@value='Physical']/name[@value='Keen']/";
    EXPECT_EQ(rules->Leaf(keen + "notes"), "  ");  // blanks are present and copied
    EXPECT_EQ(rules->Leaf(keen + "pagereference"), std::nullopt);  // an empty element is absent
    EXPECT_EQ(rules->Leaf(keen + "nothing"), std::nullopt);
    // The text must come first inside the element: a line end before it is part of it.
    EXPECT_EQ(rules->Leaf("//skills/category[@value='Lore']/name[@value='Myth']/typelist"), "\nOdd");
    // The wildcard takes the first in document order, the typed query its own.
    EXPECT_EQ(rules->Leaf("//qualities/*/name[@value='Keen']/notes"), "  ");
    EXPECT_EQ(rules->Leaf("//qualities/type[@value='Mental']/name[@value='Keen']/notes"),
              "Mental keenness");
    EXPECT_TRUE(rules->Query("//qualities/*/name[@value='keen']").Empty());  // keys match case

    auto costs = rules->Record("//qualities/*/name[@value='Keen']/costs");
    ASSERT_TRUE(costs.has_value());
    EXPECT_EQ(costs->Attribute("creationcost"), "2");
    EXPECT_EQ(costs->Attribute("maxlevel"), "");
    EXPECT_FALSE(rules->Record("//qualities/*/name[@value='Gone']/costs").has_value());

    XmlNode type = rules->Query("//qualities/type").Item(0);
    EXPECT_EQ(type.ChildCount(), 3);  // blank text nodes are kept: blanks, name, blanks
    EXPECT_EQ(type.Child(1).Name(), "name");
    // A child past the last is no node: every question about it has an empty answer.
    const XmlNode none = type.Child(99);
    EXPECT_EQ(none.Attribute("value") + none.Name() + std::to_string(none.ChildCount()), "0");
    EXPECT_EQ(none.FirstChildValue(), std::nullopt);
    EXPECT_EQ(type.Child(0).Attribute("value"), "");  // a text node has no attributes
    // The double-quoted form finds keys with an apostrophe; the single-quoted one fails.
    EXPECT_TRUE(rules->Query("//qualities/*/name[@value=\"Devil's Luck\"]").Empty());
    EXPECT_EQ(Report([&] { rules->Query("//qualities/*/name[@value='Devil's Luck']"); }),
              "Invalid predicate\n At node: //qualities/*/name[@value='Devil's Luck'] on: 0");
}

TEST(RuleData, LoadFailuresReportWhatAndWhereAnEmptyDocumentAnswersNothing) {
    EXPECT_EQ(Report([] { RuleData::LoadText("<zephalondata>\n<open>\n</zephalondata>"); }),
              "Opening and ending tag mismatch: open line 2 and zephalondata\n At node: open on: 3");
    const std::string folder = ::testing::TempDir();
    EXPECT_EQ(Report([&] { RuleData::LoadFile(folder); }),
              "This is a folder, not a file. Please choose an XML data file.\n At node: " +
                  folder + " on: 0");
    EXPECT_TRUE(RuleData().Query("//zephalondata").Empty());
    EXPECT_EQ(RuleData().Leaf("//anything"), std::nullopt);
}
