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
        <prerequisites>Brawny,1</prerequisites>
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

}  // namespace

TEST(RuleDataLeaf, BlanksArePresentAndCopiedWhileAnEmptyElementIsAbsent) {
    auto rules = RuleData::LoadText(kRules);
    EXPECT_EQ(rules->Leaf("//qualities/type[@value='Physical']/name[@value='Keen']/notes"), "  ");
    EXPECT_EQ(rules->Leaf("//qualities/type[@value='Physical']/name[@value='Keen']/pagereference"),
              std::nullopt);
    EXPECT_EQ(rules->Leaf("//qualities/type[@value='Physical']/name[@value='Keen']/nothing"),
              std::nullopt);
    // The text must come first inside the element: a line end before it is part of it.
    EXPECT_EQ(rules->Leaf("//skills/category[@value='Lore']/name[@value='Myth']/typelist"),
              "\nOdd");
}

TEST(RuleDataLeaf, TheWildcardTakesTheFirstInDocumentOrderAndTheTypedQueryItsOwn) {
    auto rules = RuleData::LoadText(kRules);
    EXPECT_EQ(rules->Leaf("//qualities/*/name[@value='Keen']/notes"), "  ");
    EXPECT_EQ(rules->Leaf("//qualities/type[@value='Mental']/name[@value='Keen']/notes"),
              "Mental keenness");
    EXPECT_EQ(rules->Query("//qualities/*/name[@value='Keen']").Count(), 2);
}

TEST(RuleDataRecord, MissingAttributesReadEmpty) {
    auto rules = RuleData::LoadText(kRules);
    auto costs = rules->Record("//qualities/*/name[@value='Keen']/costs");
    ASSERT_TRUE(costs.has_value());
    EXPECT_EQ(costs->Attribute("creationcost"), "2");
    EXPECT_EQ(costs->Attribute("maxlevel"), "");
    EXPECT_EQ(costs->Name(), "costs");
    EXPECT_FALSE(rules->Record("//qualities/*/name[@value='Gone']/costs").has_value());
}

TEST(RuleDataQuery, KeepsBlankTextNodesAsChildren) {
    auto rules = RuleData::LoadText(kRules);
    XmlNode type = rules->Query("//qualities/type").Item(0);
    EXPECT_EQ(type.ChildCount(), 3);  // blanks, name, blanks
    EXPECT_EQ(type.Child(1).Name(), "name");
}

TEST(RuleDataQuery, AnApostropheInASingleQuotedKeyFailsWithTheReport) {
    auto rules = RuleData::LoadText(kRules);
    try {
        rules->Query("//qualities/*/name[@value='Devil's Luck']");
        FAIL() << "no failure";
    } catch (const XmlError& failure) {
        EXPECT_FALSE(failure.message().empty());
        EXPECT_EQ(failure.node(), "//qualities/*/name[@value='Devil's Luck']");
        EXPECT_EQ(FormatXmlFailure(failure),
                  failure.message() + "\n At node: " + failure.node() + " on: " +
                      std::to_string(failure.line()));
    }
    // The double-quoted form finds such keys.
    EXPECT_TRUE(rules->Query("//qualities/*/name[@value=\"Devil's Luck\"]").Empty());
}

TEST(RuleDataLoad, ANonXmlTextFailsWithTheReportOfItsLine) {
    try {
        RuleData::LoadText("<zephalondata>\n<open>\n</zephalondata>");
        FAIL() << "no failure";
    } catch (const XmlError& failure) {
        EXPECT_EQ(FormatXmlFailure(failure),
                  "Opening and ending tag mismatch: open line 2 and zephalondata\n"
                  " At node: open on: 3");
    }
}

TEST(RuleDataLoad, AFolderIsToldToBeAFolder) {
    const std::string folder = ::testing::TempDir();
    try {
        RuleData::LoadFile(folder);
        FAIL() << "no failure";
    } catch (const XmlError& failure) {
        EXPECT_EQ(FormatXmlFailure(failure),
                  "This is a folder, not a file. Please choose an XML data file.\n At node: " +
                      folder + " on: 0");
    }
}

TEST(RuleDataLoad, AnEmptyDocumentAnswersNothing) {
    RuleData empty;
    EXPECT_TRUE(empty.Query("//zephalondata").Empty());
    EXPECT_EQ(empty.Leaf("//anything"), std::nullopt);
}

TEST(RuleDataLoad, AnotherRootLoadsAndFindsNothingOfOurs) {
    auto rules = RuleData::LoadText("<character><name>x</name></character>");
    EXPECT_TRUE(rules->Query("//zephalondata").Empty());
    EXPECT_TRUE(rules->Query("zephalondata/tabledata/table").Empty());
}
