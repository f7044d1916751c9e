// The index must be invisible: for every query the program makes, and for anything else, the
// answer through RuleData::Query must be libxml2's own, node for node, failure for failure.
#include <gtest/gtest.h>
#include <libxml/tree.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ruledata/QueryIndex.h"
#include "ruledata/RuleData.h"

namespace zeph {
namespace {

struct Outcome {
    bool failed = false;
    std::vector<xmlNode*> nodes;
    std::string message;
    std::string node;
    int line = 0;
};

Outcome Run(const std::function<XmlNodeList()>& query) {
    Outcome outcome;
    try {
        outcome.nodes = query().raw();
    } catch (const XmlError& e) {
        outcome.failed = true;
        outcome.message = e.message();
        outcome.node = e.node();
        outcome.line = e.line();
    }
    return outcome;
}

struct Tally {
    int queries = 0;
    int withNodes = 0;
    int failures = 0;
};

// Runs each query both ways and demands the same outcome.
Tally ExpectSameAsLibxml(const RuleData& data, const std::vector<std::string>& queries) {
    Tally tally;
    for (const std::string& q : queries) {
        Outcome viaIndex = Run([&] { return data.Query(q); });
        Outcome viaLibxml = Run([&] { return data.QueryWithLibxml(q); });
        ++tally.queries;
        if (!viaLibxml.nodes.empty()) ++tally.withNodes;
        if (viaLibxml.failed) ++tally.failures;
        if (viaIndex.failed != viaLibxml.failed || viaIndex.nodes != viaLibxml.nodes ||
            viaIndex.message != viaLibxml.message || viaIndex.node != viaLibxml.node ||
            viaIndex.line != viaLibxml.line) {
            ADD_FAILURE() << "Query differs from libxml2: " << q << "\n index: "
                          << (viaIndex.failed ? "fails " + viaIndex.message : "")
                          << viaIndex.nodes.size() << " nodes\n libxml2: "
                          << (viaLibxml.failed ? "fails " + viaLibxml.message : "")
                          << viaLibxml.nodes.size() << " nodes";
        }
    }
    return tally;
}

// Attribute values of the nodes of a listing query, read through libxml2; a query that
// fails (a key with the wrong quote in it) lists nothing.
std::vector<std::string> Keys(const RuleData& data, const std::string& query, const char* attr) {
    std::vector<std::string> keys;
    try {
        XmlNodeList nodes = data.QueryWithLibxml(query);
        for (int i = 0; i < nodes.Count(); ++i) keys.push_back(nodes.Item(i).Attribute(attr));
    } catch (const XmlError&) {
    }
    keys.push_back("Nothing By This Name");
    return keys;
}

// Every query template of the program, filled with every key the document holds (and one it
// does not), inserted as plain text exactly as the program does.
std::vector<std::string> TemplateQueries(const RuleData& data) {
    std::vector<std::string> q = {"//zephalondata", "zephalondata/tabledata/table"};
    auto add = [&q](const std::string& base, std::initializer_list<const char*> leaves) {
        for (const char* leaf : leaves) q.push_back(base + "/" + leaf);
    };

    for (const std::string& table : Keys(data, "zephalondata/tabledata/table", "name")) {
        std::string base = "zephalondata/tabledata/table[@name=\"" + table + "\"]";
        add(base, {"columnheading", "row"});
        int rows = 0;
        try {
            rows = data.QueryWithLibxml(base + "/row").Count();
        } catch (const XmlError&) {
        }
        for (int n = 1; n <= rows + 1; ++n) q.push_back(base + "/row[" + std::to_string(n) + "]/column");
    }

    q.push_back("//charactertype/type");
    for (const std::string& type : Keys(data, "//charactertype/type", "value")) {
        std::string t = "//charactertype/type[@value='" + type + "']";
        q.push_back(t + "/name");
        for (const std::string& choice : Keys(data, t + "/name", "value")) {
            std::string c = t + "/name[@value='" + choice + "']";
            q.push_back(c);
            add(c, {"qualityrequired", "alternateform", "bonuspts", "calculations", "creationpts",
                    "dramapts"});
        }
    }

    q.push_back("//concepts/name");
    q.push_back("//associations/name");
    for (const std::string& a : Keys(data, "//associations/name", "value"))
        q.push_back("//associations/name[@value='" + a + "']/notes");

    q.push_back("//qualities/type");
    for (const std::string& type : Keys(data, "//qualities/type", "value")) {
        std::string t = "//qualities/type[@value='" + type + "']";
        q.push_back(t + "/name");
        for (const std::string& name : Keys(data, t + "/name", "value"))
            add(t + "/name[@value='" + name + "']",
                {"costs", "pagereference", "prerequisites", "notes", "alternateform", "bonusattr",
                 "bonuspts"});
    }
    for (const std::string& name : Keys(data, "//qualities/type/name", "value")) {
        std::string n = "//qualities/*/name[@value='" + name + "']";
        q.push_back(n);
        add(n, {"costs", "notes", "pagereference", "prerequisites", "bonusattr", "bonuspts"});
    }

    q.push_back("//skills/category");
    for (const std::string& category : Keys(data, "//skills/category", "value")) {
        std::string c = "//skills/category[@value='" + category + "']";
        q.push_back(c + "/name");
        for (const std::string& skill : Keys(data, c + "/name", "value"))
            add(c + "/name[@value='" + skill + "']", {"pagereference", "type", "notes", "typelist"});
    }

    for (const std::string& style : Keys(data, "//martialstyles/name", "value")) {
        std::string s = "//martialstyles/name[@value=\"" + style + "\"]";
        q.push_back(s);
        add(s, {"basicmoves", "specialmoves"});
    }
    q.push_back("//martialarts/name");
    q.push_back("//visualizations/name");

    q.push_back("//metaphysics/type");
    for (const std::string& type : Keys(data, "//metaphysics/type", "value")) {
        std::string t = "//metaphysics/type[@value='" + type + "']";
        q.push_back(t + "/name");
        for (const std::string& name : Keys(data, t + "/name", "value"))
            add(t + "/name[@value=\"" + name + "\"]",
                {"costs", "pagereference", "metaprerequisite", "qualityprerequisite", "notes",
                 "bonusattr", "bonuspts", "altform"});
    }

    q.push_back("//equipment/type");
    for (const std::string& type : Keys(data, "//equipment/type", "value")) {
        std::string t = "//equipment/type[@value=\"" + type + "\"]";
        q.push_back(t + "/name");
        for (const std::string& item : Keys(data, t + "/name", "value"))
            q.push_back(t + "/name[@value=\"" + item + "\"]/*");
    }

    for (const std::string& type : Keys(data, "//altforms/type", "value")) {
        std::string t = "//altforms/type[@value='" + type + "']";
        q.push_back(t + "/name");
        for (const std::string& form : Keys(data, t + "/name", "value"))
            add(t + "/name[@value='" + form + "']",
                {"attributes", "calculations", "naturalattacks", "other", "pagereference"});
    }
    for (const std::string& form : Keys(data, "//altforms/type/name", "value"))
        add("//altforms/*/name[@value='" + form + "']",
            {"costs", "attributes", "calculations", "naturalattacks", "other", "pagereference"});
    return q;
}

std::string SamplePath() { return std::string(ZEPHALON_SOURCE_DIR) + "/data/rules/sample.xml"; }

std::string Escape(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '"': out += "&quot;"; break;
            default: out += c;
        }
    }
    return out;
}

// Keys that quoting can trip over, plus ordinary ones; "Dup" twice on purpose.
const std::vector<std::string> kAwkwardKeys = {
    "O'Brien's Edge", "Say \"Hi\"", "Mixed ' and \"", "Bracket ] Inside", "[Open",
    "Slash/Inside",   "  blanks  ", "",               "Éclair ñ 漢字 🎲",
    "Dup",            "Dup",        "case",           "Case",
    "R&D",            "a=b",        "@value",         "//x",
};

std::string AttrFor(const std::string& attr, const std::string& key) {
    return " " + attr + "=\"" + Escape(key) + "\"";
}

// A rule data document with the shape of the real one, keyed by the awkward keys, with
// comments, text, keyless elements and namespaced intruders between the entities.
std::string AwkwardDocument() {
    std::string x = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    x += "<zephalondata books=\"ZA\" fullref=\"Awkward\" xmlns:q=\"urn:zeph:q\">\n<!-- c -->text\n";
    x += "<tabledata>";
    int serial = 0;
    for (const std::string& key : kAwkwardKeys) {
        x += "<table" + AttrFor("name", key) + "><columnheading width=\"5\">H</columnheading>"
             "<columnheading/><row><column>" + std::to_string(++serial) +
             "</column><column/></row><!-- between --><row> <column>b</column></row>"
             "<q:row><column>ns</column></q:row></table>";
    }
    x += "<table><row><column>keyless</column></row></table>";
    x += "<table name=\"line&#10;break\"><row><column>lb</column></row></table>";
    x += "</tabledata>\n";

    // Same nested shape for the sections keyed type/name.
    auto section = [&](const std::string& tag, const std::string& outer,
                       std::initializer_list<const char*> leaves) {
        x += "<" + tag + ">";
        for (const std::string& type : kAwkwardKeys) {
            x += "<" + outer + AttrFor("value", type) + ">text";
            for (const std::string& name : kAwkwardKeys) {
                x += "<name" + AttrFor("value", name) + ">";
                for (const char* leaf : leaves)
                {
                    std::string n = std::to_string(++serial);
                    x += std::string("<") + leaf + " a=\"" + n + "\">" + n + "</" + leaf + ">";
                }
                x += "</name><!-- n -->";
            }
            x += "<name><notes>keyless</notes></name><name value=\"\"/>";
            x += "</" + outer + ">";
        }
        x += "<" + outer + "><name value=\"Dup\"><notes>keyless type</notes></name></" + outer + ">";
        x += "<q:" + outer + " value=\"Dup\"><name value=\"Dup\"><costs a=\"prefixed\"/>"
             "<notes>prefixed</notes></name></q:" + outer + ">";
        x += "<" + outer + " xmlns=\"urn:zeph:d\" value=\"Dup\"><name value=\"Dup\">"
             "<notes>default ns</notes></name></" + outer + ">";
        x += "<" + outer + " q:value=\"Dup\"><name q:value=\"Dup\"><notes>ns attr</notes></name></" +
             outer + ">";
        x += "</" + tag + ">\n";
    };
    section("charactertype", "type",
            {"qualityrequired", "alternateform", "bonuspts", "calculations", "creationpts",
             "dramapts"});
    section("qualities", "type",
            {"costs", "pagereference", "prerequisites", "notes", "alternateform", "bonusattr",
             "bonuspts"});
    section("skills", "category", {"pagereference", "type", "notes", "typelist"});
    section("metaphysics", "type",
            {"costs", "pagereference", "metaprerequisite", "qualityprerequisite", "notes",
             "bonusattr", "bonuspts", "altform"});
    section("equipment", "type", {"weight", "notes", "Notes", "period"});
    section("altforms", "type",
            {"costs", "attributes", "calculations", "naturalattacks", "other", "pagereference"});

    for (const char* tag : {"concepts", "associations", "martialstyles", "martialarts",
                            "visualizations"}) {
        x += std::string("<") + tag + ">";
        for (const std::string& key : kAwkwardKeys)
            x += "<name" + AttrFor("value", key) + "><notes>n</notes><basicmoves>b</basicmoves>"
                 "<specialmoves/></name>";
        x += std::string("</") + tag + ">";
    }
    x += "</zephalondata>\n";
    return x;
}

// Entities nested in their own kind, deep enough that a step has many contexts, so that
// results gathered parent by parent come out of document order unless sorted.
std::string NestedDocument() {
    std::string x = "<zephalondata><tabledata><table name=\"T\">";
    for (int i = 1; i <= 3; ++i)
        x += "<row><column>r" + std::to_string(i) + "</column><row><column>inner</column></row></row>";
    x += "</table></tabledata>";
    for (int depth = 0; depth < 12; ++depth) {
        x += "<qualities><type value=\"T" + std::to_string(depth % 3) + "\">" +
             "<name value=\"X\"><notes>d" + std::to_string(depth) + "</notes>";
        if (depth % 4 == 0) x += "<type value=\"T0\"><name value=\"X\"><notes>in</notes></name></type>";
    }
    for (int depth = 0; depth < 12; ++depth) x += "</name></type><type value=\"After\"><name value=\"X\"/></type></qualities>";
    x += "<zephalondata><tabledata><table name=\"T\"><row><column>inner root</column></row>"
         "</table></tabledata><charactertype><type value=\"A\"><name value=\"B\"><bonuspts/>"
         "</name></type></charactertype></zephalondata>";
    x += "</zephalondata>";
    return x;
}

// Shapes beyond the templates that the index also answers.
const std::vector<std::string> kGenericShapes = {
    "//*", "//*[1]", "//*[2]", "//*[3]/*", "*", "*/*", "*/*/*[2]", "zephalondata/*[3]",
    "//name", "//name[2]", "//name[1]/notes", "//row[2]", "//row[2]/column", "//row/row",
    "//column[1]", "//type[@value='Dup']", "//type[@value=\"Dup\"]/name[2]",
    "//*[@value='Dup']", "//*[@value='']", "//name[@value='']", "//name[@value='  blanks  ']",
    "//table[@name='']/row", "//table[@name=\"line\nbreak\"]/row/column",
    "//table[@name='Bracket ] Inside']/row[1]/column[1]", "//qualities/*/*[@value='Dup']",
    "//qualities/*/name[@value='Dup']/*", "//qualities/type/name", "//qualities//name",
    "//zephalondata/zephalondata", "zephalondata/zephalondata", "tabledata", "//tabledata/table[1]",
    "//tabledata/table[99]", "//charactertype/type[@value='A']/name[@value='B']/bonuspts",
    "//type[@value='Éclair ñ 漢字 🎲']/name[1]",
    "//name[@value='case']", "//name[@value='CASE']", "//name[@value='R&D']",
    "//name[@value='a=b']/notes", "//name[@value='@value']", "//name[@value='//x']",
    "//name[@value='tab\there']", "//a-b.c_d", "//_x/*", "//Notes", "//notes"};

TEST(QueryIndexDifferential, SampleFileAnswersEveryTemplateAsLibxml) {
    auto data = RuleData::LoadFile(SamplePath());
    std::vector<std::string> queries = TemplateQueries(*data);
    Tally tally = ExpectSameAsLibxml(*data, queries);
    EXPECT_GT(tally.queries, 500);
    EXPECT_GT(tally.withNodes, tally.queries / 3) << "too few queries found anything";
    ExpectSameAsLibxml(*data, kGenericShapes);
}

TEST(QueryIndexDifferential, AwkwardKeysAnswerAndFailAsLibxml) {
    auto data = RuleData::LoadText(AwkwardDocument());
    Tally tally = ExpectSameAsLibxml(*data, TemplateQueries(*data));
    EXPECT_GT(tally.withNodes, 1000);
    EXPECT_GT(tally.failures, 100) << "apostrophe and double quote keys must make queries fail";
    Tally generic = ExpectSameAsLibxml(*data, kGenericShapes);
    EXPECT_GT(generic.withNodes, 20);
}

TEST(QueryIndexDifferential, NestedSameNameElementsKeepDocumentOrder) {
    auto data = RuleData::LoadText(NestedDocument());
    Tally tally = ExpectSameAsLibxml(*data, TemplateQueries(*data));
    EXPECT_GT(tally.withNodes, 20);
    ExpectSameAsLibxml(*data, kGenericShapes);
    ExpectSameAsLibxml(*data, {"//qualities/*/name[@value='X']/notes",
                               "//qualities/type[@value='T0']/name[@value='X']/notes",
                               "//qualities/*/name/type/name", "//name/type[@value='T0']/name",
                               "//row/row/column", "//row[1]/column", "//table/row[2]/row"});
}

TEST(QueryIndexDifferential, NamespacedAndForeignDocuments) {
    const std::vector<std::string> documents = {
        // Everything in a default namespace: name tests find nothing, `*` finds it all.
        "<zephalondata xmlns=\"urn:zeph\"><qualities><type value=\"A\"><name value=\"X\">"
        "<notes>n</notes></name></type></qualities></zephalondata>",
        // A prefixed root and a plain root of another name.
        "<z:zephalondata xmlns:z=\"urn:z\"><tabledata><table name=\"T\"><row/></table>"
        "</tabledata></z:zephalondata>",
        "<characters><zephalondata><qualities><type value=\"A\"><name value=\"X\"/></type>"
        "</qualities></zephalondata></characters>",
        "<other/>",
        // A DOCTYPE with an entity: the index steps aside entirely.
        "<!DOCTYPE zephalondata [<!ENTITY k \"Key\">]><zephalondata><qualities>"
        "<type value=\"&k;\"><name value=\"X\">&k;<notes/></name></type></qualities></zephalondata>",
        // An entity in an attribute alone.
        "<!DOCTYPE zephalondata [<!ENTITY k \"Key\">]><zephalondata><qualities>"
        "<type value=\"&k;\"><name value=\"X\"/></type></qualities></zephalondata>",
    };
    for (const std::string& text : documents) {
        auto data = RuleData::LoadText(text);
        ExpectSameAsLibxml(*data, TemplateQueries(*data));
        ExpectSameAsLibxml(*data, kGenericShapes);
        ExpectSameAsLibxml(*data, {"//*[@value='A']/*", "*/*/*/*", "//*/name[@value='X']",
                                   "//qualities/type[@value='Key']/name"});
    }
}

const std::vector<std::string> kOutsideTheIndex = {
    "count(//a)",           "//a[@b='c' and @d='e']", "//a//b",         "//a[",
    "/zephalondata",        "//a[0]",                 "// a",           "//a [1]",
    "//a[@b = 'c']",        "//x:a",                  "//a[@x:b='c']",  "//a[1][2]",
    "//a[last()]",          "//a/",                   "",               "//",
    "//a[01]",              "//a[@b='c']]",           "//div",          "//a[1.0]",
    "//@value",             "//a/@value",             "//a/text()",     "..",
    ".",                    "//a[-1]",                "//a[1234567890]", "//a[@b='c\"]",
    "//a[@b=\"c']",         "//a[@b='x'y']",          "a|b",            "//a[@b]",
    "//a[@b='\x01']",       "//a[@b='\xC3']",         "//a[@b='\xC0\x80']", "//Été",
    "1a",                   "//a/*/",                 "child::a",       "//a[@*='c']",
    "//a[ 1]",              "//a[@b='c' ]",           "*[@b='c']//*",   "//a[@b=c]",
    "//a[@b='\xC3x']",      "//a[@b='\xC3\xA9\x01']",
};

TEST(QueryIndexDeclines, OtherQueriesAreLeftToLibxml) {
    auto data = RuleData::LoadText(
        "<zephalondata><a b=\"c\" d=\"e\"><b/><a b=\"x'y\"/></a><div/><a/><x xmlns=\"urn:x\"/>"
        "<Été/></zephalondata>");
    QueryIndex index(data->raw());
    for (const std::string& q : kOutsideTheIndex)
        EXPECT_FALSE(index.TryAnswer(q).has_value()) << "answered: " << q;
}

TEST(QueryIndexDeclines, NotTheShapesTheRulesAsk) {
    auto data = RuleData::LoadText("<zephalondata>\n <qualities/>\n</zephalondata>");
    QueryIndex index(data->raw());
    for (const char* q : {"//zephalondata", "zephalondata/tabledata/table[@name=\"a'b\"]/row[12]",
                          "//qualities/*/name[@value='']/costs", "//name[@value='\xF0\x90\x80\x80\xC2\x80']"})
        EXPECT_TRUE(index.TryAnswer(q).has_value()) << "declined: " << q;
}

std::vector<std::string> NotesOf(const XmlNodeList& nodes) {
    std::vector<std::string> texts;
    for (int i = 0; i < nodes.Count(); ++i) texts.push_back(nodes.Item(i).FirstChildValue().value_or("-"));
    return texts;
}

TEST(QueryIndexSemantics, KnownAnswers) {
    auto data = RuleData::LoadText(
        "<zephalondata><qualities>"
        "<type value=\"Drawbacks\"><name value=\"Keen\"><notes>second type</notes></name></type>"
        "<type value=\"Qualities\"><name value=\"Keen\"><notes>first? no</notes></name></type>"
        "</qualities><qualities>"
        "<type value=\"Qualities\"><name value=\"Keen\"><notes>third</notes></name></type>"
        "</qualities>"
        "<tabledata><table name=\"T\"><row><column>a1</column><column>a2</column></row>"
        "<row><column>b1</column><column>b2</column></row></table></tabledata>"
        "<a><b>1</b><a><b>2</b></a><b>3</b></a>"
        "<big><row/><row/><row/><row/><row/><row/><row/><row/><row/><row/><row/><row/><row/><row/>"
        "<row/><row/><row><column>r17</column></row><row name=\"last\"><column>r18</column></row>"
        "</big></zephalondata>");

    // The wildcard lookup takes the first in document order across all types.
    EXPECT_EQ(data->Leaf("//qualities/*/name[@value='Keen']/notes"), "second type");
    EXPECT_EQ(NotesOf(data->Query("//qualities/type[@value='Qualities']/name/notes")),
              (std::vector<std::string>{"first? no", "third"}));
    EXPECT_TRUE(data->Query("//qualities/*/name[@value='keen']").Empty());

    EXPECT_EQ(NotesOf(data->Query("zephalondata/tabledata/table[@name=\"T\"]/row[2]/column")),
              (std::vector<std::string>{"b1", "b2"}));
    EXPECT_EQ(data->Query("zephalondata/tabledata/table[@name=\"T\"]/row[3]/column").Count(), 0);
    EXPECT_EQ(NotesOf(data->Query("//row/column[2]")), (std::vector<std::string>{"a2", "b2"}));

    // Nested a elements: the inner b lies between the outer ones in document order.
    EXPECT_EQ(NotesOf(data->Query("//a/b")), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(NotesOf(data->Query("//a/b[2]")), (std::vector<std::string>{"3"}));

    // A parent of more than 16 children is looked up through the index, not scanned.
    EXPECT_EQ(NotesOf(data->Query("//big/row[18]/column")), (std::vector<std::string>{"r18"}));
    EXPECT_EQ(NotesOf(data->Query("//big/row[17]/column")), (std::vector<std::string>{"r17"}));
    EXPECT_EQ(NotesOf(data->Query("//big/row[@name='last']/column")),
              (std::vector<std::string>{"r18"}));
    EXPECT_TRUE(data->Query("//big/row[19]").Empty());
}

}  // namespace
}  // namespace zeph
