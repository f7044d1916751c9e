// The index must be invisible: for every query the program makes, and for anything else, the
// answer through RuleData::Query must be libxml2's own, node for node, failure for failure.
#include <gtest/gtest.h>
#include <libxml/tree.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "ruledata/QueryIndex.h"
#include "ruledata/RuleData.h"

namespace zeph {
namespace {

struct Outcome {
    bool failed = false;
    std::vector<xmlNode*> nodes;
    std::string message, node;
    int line = 0;
    bool operator==(const Outcome&) const = default;
};

Outcome Run(const std::function<XmlNodeList()>& query) {
    Outcome outcome;
    try {
        outcome.nodes = query().raw();
    } catch (const XmlError& e) {
        outcome = {true, {}, e.message(), e.node(), e.line()};
    }
    return outcome;
}

struct Tally {
    int queries = 0, withNodes = 0, failures = 0;
};

// Runs each query both ways and demands the same outcome.
template <class Queries>
Tally ExpectSameAsLibxml(const RuleData& data, const Queries& queries) {
    Tally tally;
    for (const std::string& q : queries) {
        Outcome viaIndex = Run([&] { return data.Query(q); });
        Outcome viaLibxml = Run([&] { return data.QueryWithLibxml(q); });
        ++tally.queries;
        tally.withNodes += !viaLibxml.nodes.empty();
        tally.failures += viaLibxml.failed;
        EXPECT_TRUE(viaIndex == viaLibxml)
            << "differs from libxml2: " << q << "\n index: " << viaIndex.message << " "
            << viaIndex.nodes.size() << " nodes\n libxml2: " << viaLibxml.message << " "
            << viaLibxml.nodes.size() << " nodes";
    }
    return tally;
}

std::string Name(xmlNode* element) { return reinterpret_cast<const char*>(element->name); }

// The ways a step can name an element: bare, as `*`, by each attribute's value in either quote
// (as the program inserts its keys), and, last, by its position among its like and one past it.
std::vector<std::string> StepsFor(xmlNode* element, bool last) {
    const std::string name = Name(element);
    std::vector<std::string> steps = {name, "*"};
    for (xmlAttr* a = element->properties; a != nullptr; a = a->next) {
        xmlChar* raw = xmlNodeGetContent(reinterpret_cast<xmlNode*>(a));
        const std::string value = raw ? reinterpret_cast<const char*>(raw) : "";
        xmlFree(raw);
        const std::string attr = std::string("[@") + reinterpret_cast<const char*>(a->name) + "=";
        steps.push_back(name + attr + "'" + value + "']");
        steps.push_back(name + attr + "\"" + value + "\"]");
        steps.push_back("*" + attr + "'" + value + "']");
    }
    if (!last) return steps;
    int alike = 1, any = 1;
    for (xmlNode* s = element->prev; s != nullptr; s = s->prev) {
        if (s->type != XML_ELEMENT_NODE) continue;
        ++any;
        alike += Name(s) == name;
    }
    for (int n : {alike, alike + 1}) steps.push_back(name + "[" + std::to_string(n) + "]");
    steps.push_back("*[" + std::to_string(any) + "]");
    return steps;
}

xmlNode* ParentElement(xmlNode* node) {
    return node->parent && node->parent->type == XML_ELEMENT_NODE ? node->parent : nullptr;
}

// Every shape the program's queries take, at every element: one or two steps below `//` in
// every variant, three steps with a bare or `*` top, and the whole path from the top.
std::set<std::string> QueriesFor(const RuleData& data) {
    std::set<std::string> queries;
    std::function<void(xmlNode*)> visit = [&](xmlNode* node) {
        for (xmlNode* e = node; e != nullptr; e = e->next) {
            if (e->type != XML_ELEMENT_NODE) continue;
            const std::vector<std::string> own = StepsFor(e, true);
            std::string path = Name(e);
            for (xmlNode* up = ParentElement(e); up != nullptr; up = ParentElement(up))
                path = Name(up) + "/" + path;
            for (const std::string& step : own) queries.insert("//" + step);
            queries.insert(path);
            if (xmlNode* parent = ParentElement(e)) {
                const std::string above = path.substr(0, path.rfind('/') + 1);
                for (const std::string& parentStep : StepsFor(parent, false)) {
                    queries.insert(above.substr(0, above.size() - Name(parent).size() - 1) +
                                   parentStep + "/" + Name(e));
                    for (const std::string& step : own) queries.insert("//" + parentStep + "/" + step);
                    if (xmlNode* grand = ParentElement(parent))
                        for (const std::string& top : {Name(grand), std::string("*")})
                            queries.insert("//" + top + "/" + parentStep + "/" + Name(e));
                }
                for (const std::string& step : own) queries.insert(above + step);
            }
            visit(e->children);
        }
    };
    visit(data.raw()->children);
    return queries;
}

std::string Escape(const std::string& text) {
    std::string out;
    for (char c : text)
        out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '"' ? "&quot;" : std::string(1, c);
    return out;
}

// Keys that quoting can trip over, plus ordinary ones; "Dup" twice on purpose.
const std::vector<std::string> kAwkwardKeys = {
    "O'Brien's Edge", "Say \"Hi\"", "Mixed ' and \"", "Bracket ] Inside", "[Open",
    "Slash/Inside",   "  blanks  ", "",               "Éclair ñ 漢字 🎲",
    "Dup",            "Dup",        "case",           "Case",
    "R&D",            "a=b",        "@value",         "//x",
};

// Rule data keyed by the awkward keys, with comments, text, keyless elements, namespaced
// intruders, and over 16 children of one parent, so that parents are both scanned and indexed.
std::string AwkwardDocument() {
    std::string x = "<zephalondata books=\"ZA\" xmlns:q=\"urn:zeph:q\">\n<!-- c -->text<tabledata>";
    int serial = 0;
    for (const std::string& key : kAwkwardKeys)
        x += "<table name=\"" + Escape(key) + "\"><columnheading/><row><column>" +
             std::to_string(++serial) + "</column><column/></row><!-- between --><row> <column/>"
             "</row><q:row><column>ns</column></q:row></table>";
    x += "<table><row/></table><table name=\"line&#10;break\"><row/></table></tabledata>";
    for (const char* section : {"qualities", "skills"}) {
        x += std::string("<") + section + ">";
        for (const std::string& type : kAwkwardKeys) {
            x += "<type value=\"" + Escape(type) + "\">text";
            const bool full = type == kAwkwardKeys.front() || type == "Dup";
            for (const std::string& name : full ? kAwkwardKeys : std::vector{type, std::string("Dup")}) {
                const std::string n = std::to_string(++serial);
                x += "<name value=\"" + Escape(name) + "\" a=\"" + n + "\"><notes a=\"" + n + "\">" + n +
                     "</notes><costs/></name><!-- n -->";
            }
            x += "<name><notes>keyless</notes></name></type>";
        }
        x += "<q:type value=\"Dup\"><name value=\"Dup\"/></q:type>"
             "<type xmlns=\"urn:zeph:d\" value=\"Dup\"><name value=\"Dup\"/></type>"
             "<type q:value=\"Dup\"><name q:value=\"Dup\"/></type>";
        x += std::string("</") + section + ">";
    }
    return x + "</zephalondata>";
}

// Entities nested in their own kind, so that results gathered parent by parent come out of
// document order unless sorted.
std::string NestedDocument() {
    std::string x = "<zephalondata><tabledata><table name=\"T\">";
    for (int i = 1; i <= 3; ++i)
        x += "<row><column>r" + std::to_string(i) + "</column><row><column/></row></row>";
    x += "</table></tabledata>";
    for (int depth = 0; depth < 12; ++depth) {
        x += "<qualities><type value=\"T" + std::to_string(depth % 3) + "\"><name value=\"X\"><notes/>";
        if (depth % 4 == 0) x += "<type value=\"T0\"><name value=\"X\"><notes/></name></type>";
    }
    for (int depth = 0; depth < 12; ++depth)
        x += "</name></type><type value=\"After\"><name value=\"X\"/></type></qualities>";
    return x + "<zephalondata><tabledata/></zephalondata></zephalondata>";
}

// Shapes the generated queries do not take that the index also answers.
const std::vector<std::string> kGenericShapes = {
    "//*", "*", "*/*", "*/*/*[2]", "//*[3]/*", "//row/row", "//qualities//name",
    "//zephalondata/zephalondata", "tabledata", "//tabledata/table[99]", "//name[@value='CASE']",
    "//name[@value='tab\there']", "//a-b.c_d", "//_x/*", "//Notes"};

TEST(QueryIndexDifferential, EveryShapeOnEveryElementAnswersAsLibxml) {
    const std::vector<std::string> documents = {
        AwkwardDocument(), NestedDocument(),
        // Everything in a default namespace: name tests find nothing, `*` finds it all.
        "<zephalondata xmlns=\"urn:zeph\"><qualities><type value=\"A\"><name value=\"X\"/>"
        "</type></qualities></zephalondata>",
        // A prefixed root, a plain root of another name, a bare one.
        "<z:zephalondata xmlns:z=\"urn:z\"><tabledata><table name=\"T\"/></tabledata></z:zephalondata>",
        "<characters><zephalondata><qualities><type value=\"A\"/></qualities></zephalondata></characters>",
        "<other/>",
        // Entities, in content or in an attribute alone: the index steps aside entirely.
        "<!DOCTYPE zephalondata [<!ENTITY k \"Key\">]><zephalondata><qualities>"
        "<type value=\"&k;\"><name value=\"X\">&k;<notes/></name></type></qualities></zephalondata>",
        "<!DOCTYPE zephalondata [<!ENTITY k \"Key\">]><zephalondata><qualities>"
        "<type value=\"&k;\"><name value=\"X\"/></type></qualities></zephalondata>",
    };
    Tally all;
    for (const std::string& text : documents) {
        auto data = RuleData::LoadText(text);
        Tally tally = ExpectSameAsLibxml(*data, QueriesFor(*data));
        ExpectSameAsLibxml(*data, kGenericShapes);
        all.withNodes += tally.withNodes;
        all.failures += tally.failures;
    }
    EXPECT_GT(all.withNodes, 5000) << "too few queries found anything";
    EXPECT_GT(all.failures, 100) << "apostrophe and double quote keys must make queries fail";
}

const std::vector<std::string> kOutsideTheIndex = {
    "count(//a)", "//a[]", "//a[@b='c' and @d='e']", "//a//b", "//a[", "/zephalondata", "//a[0]", "// a",
    "//a [1]", "//a[@b = 'c']", "//x:a", "//a[@x:b='c']", "//a[1][2]", "//a[last()]", "//a/", "",
    "//", "//a[01]", "//a[@b='c']]", "//div", "//a[1.0]", "//@value", "//a/@value", "//a/text()",
    "..", ".", "//a[-1]", "//a[1234567890]", "//a[@b='c\"]", "//a[@b=\"c']", "//a[@b='x'y']",
    "a|b", "//a[@b]", "//a[@b='\x01']", "//a[@b='\xC3']", "//a[@b='\xC0\x80']", "//Été", "1a",
    "//a/*/", "child::a", "//a[@*='c']", "//a[ 1]", "//a[@b='c' ]", "*[@b='c']//*", "//a[@b=c]",
    "//a[@b='\xC3x']", "//a[@b='\xC3\xA9\x01']", "//a[@b='\xED\xA0\x80']", "//a[@b='\xEF\xBF\xBE']",
    std::string("//a\0", 4)};

TEST(QueryIndex, AnswersTheShapesTheRulesAskAndLeavesOtherQueriesToLibxml) {
    auto data = RuleData::LoadText(
        "<zephalondata>\n <qualities/>\n<a b=\"c\" d=\"e\"><b/><a b=\"x'y\"/></a><div/><a/>"
        "<x xmlns=\"urn:x\"/><Été/></zephalondata>");
    QueryIndex index(data->raw());
    for (const char* q : {"//zephalondata", "//_a", "zephalondata/tabledata/table[@name=\"a'b\"]/row[12]", "//a[7]", "//z", "//Z", "//A", "//a_09-.zZ",
                          "//a[123456789]",
                          "//qualities/*/name[@value='']/costs",
                          "//name[@value='\xF0\x90\x80\x80\xC2\x80\xF4\x8F\xBF\xBF']"})
        EXPECT_TRUE(index.TryAnswer(q).has_value()) << "declined: " << q;
    for (const std::string& q : kOutsideTheIndex)
        EXPECT_FALSE(index.TryAnswer(q).has_value()) << "answered: " << q;
    // An entity of an unread outside declaration: no index at all.
    auto entities = RuleData::LoadText("<!DOCTYPE z SYSTEM \"z.dtd\"><z>&k;</z>");
    EXPECT_FALSE(QueryIndex(entities->raw()).TryAnswer("//z").has_value());
}

}  // namespace
}  // namespace zeph
