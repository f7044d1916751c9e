#include "tools/RuleDataLint.h"

#include <libxml/tree.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_map>

#include "platform/Files.h"
#include "ruledata/RuleData.h"
#include "ruledata/XmlError.h"
#include "text/TextHelpers.h"
#include "tools/RuleDataShape.h"

namespace zeph {
namespace {

std::string_view nameOf(const xmlNode* node) { return reinterpret_cast<const char*>(node->name); }

std::string attributeOf(const xmlNode* node, const char* name) {
    xmlChar* value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
    if (value == nullptr) return "";
    std::string text = reinterpret_cast<const char*>(value);
    xmlFree(value);
    return text;
}

std::string contentOf(const xmlNode* node) {
    return node->content ? reinterpret_cast<const char*>(node->content) : "";
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// The optimal string alignment distance: a swap of two neighbours counts as one edit.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) d[i][0] = i;
    for (std::size_t j = 0; j <= b.size(); ++j) d[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i)
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t cost = a[i - 1] == b[j - 1] ? 0 : 1;
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + cost});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    return d[a.size()][b.size()];
}

// "; did you mean `x`?" for the nearest known name within two edits (one for short names).
std::string didYouMean(std::string_view name, const std::vector<std::string_view>& known) {
    const std::size_t most = name.size() > 4 ? 2 : 1;
    std::string_view best;
    std::size_t bestDistance = most + 1;
    for (std::string_view candidate : known)
        if (const std::size_t distance = editDistance(name, candidate); distance < bestDistance)
            best = candidate, bestDistance = distance;
    return best.empty() ? "" : "; did you mean `" + std::string(best) + "`?";
}

// An entity whose key the program puts in its queries: the quote around the key there (a key
// holding it breaks the query), and the separators of the lists its name appears in.
struct KeyRule {
    const char* path;
    const char* what;
    char quote;
    std::vector<const char*> separators;
};

const KeyRule kKeyRules[] = {
    {"tabledata/table", "table name", '"', {}},
    {"charactertype/type", "character type", '\'', {}},
    {"charactertype/type/name", "character choice", '\'', {}},
    {"concepts/name", "concept", 0, {}},
    {"associations/name", "association", '\'', {}},
    {"qualities/type", "quality type", '\'', {}},
    {"qualities/type/name", "quality name", '\'', {"&&", "||", ","}},
    {"skills/category", "skill category", '\'', {}},
    {"skills/category/name", "skill name", '\'', {}},
    {"martialstyles/name", "martial style", '"', {","}},
    {"martialarts/name", "maneuver", 0, {","}},
    {"visualizations/name", "visualization", 0, {","}},
    {"metaphysics/type", "metaphysic type", '\'', {}},
    {"metaphysics/type/name", "metaphysic name", '"', {"&&", "||", ","}},
    {"equipment/type", "equipment type", '"', {}},
    {"equipment/type/name", "item of equipment", '"', {}},
    {"altforms/type", "alternate-form type", '\'', {}},
    {"altforms/type/name", "alternate form", '\'', {","}},
};

const KeyRule* keyRuleOf(std::string_view path) {
    for (const KeyRule& rule : kKeyRules)
        if (path == rule.path) return &rule;
    return nullptr;
}

const char* const kAttributeWords[] = {"Strength",   "Dexterity", "Constitution", "Intelligence",
                                       "Perception", "Willpower", "Mental",       "Physical"};

// A text that names other entities, checked once the whole file is read.
struct Reference {
    enum Kind { QualityExact, QualityNoCase, QualityPart, Metaphysic, FormType, MartialStyle };
    Kind kind;
    std::string name;
    std::string from;  // the element or attribute that names it
    int line;
};

class Linter {
  public:
    explicit Linter(std::string file) : file_(std::move(file)) {}

    void Add(int line, Severity severity, const char* code, std::string message) {
        findings_.push_back({file_, line, severity, code, std::move(message)});
    }

    void Walk(const xmlNode* root) {
        element(root, RuleDataShape(), "");
        resolveReferences();
    }

    std::vector<LintFinding> Findings() {
        std::stable_sort(
            findings_.begin(), findings_.end(),
            [](const LintFinding& a, const LintFinding& b) { return a.line < b.line; });
        return std::move(findings_);
    }

  private:
    static int lineOf(const xmlNode* node) { return static_cast<int>(xmlGetLineNo(node)); }
    // A text node carries the line where it ends; its first word may stand lines above.
    static int firstWordLine(const xmlNode* text) {
        const std::string content = contentOf(text);
        const std::size_t word = content.find_first_not_of(" \t\r\n");
        return lineOf(text) -
               static_cast<int>(std::count(content.begin() + word, content.end(), '\n'));
    }

    void element(const xmlNode* node, const ElementShape& shape, const std::string& path) {
        attributes(node, shape);
        if (const KeyRule* rule = keyRuleOf(path)) key(node, *rule, path);
        collectReferences(node, path);
        if (shape.leaf) return leaf(node);

        std::map<std::pair<std::string, std::string>, int> siblings;
        for (const xmlNode* child = node->children; child; child = child->next) {
            if (isText(child)) {
                if (!isBlank(contentOf(child)))
                    Add(firstWordLine(child), Severity::Warning, "text-not-read",
                        "the text inside `" + std::string(nameOf(node)) + "` is not read");
                continue;
            }
            if (child->type != XML_ELEMENT_NODE) continue;
            const std::string childName(nameOf(child));
            const std::string childPath = path.empty() ? childName : path + "/" + childName;
            if (shape.anyLeafChildren) {
                attributes(child, ElementShape{childName.c_str()});
                leaf(child);
                continue;
            }
            const ElementShape* childShape = shape.Child(childName);
            if (childShape == nullptr) {
                unknownElement(child, shape);
                continue;
            }
            if (const KeyRule* rule = keyRuleOf(childPath)) duplicate(child, *rule, siblings);
            element(child, *childShape, childPath);
        }
        if (path == "metaphysics/type/name") neverOffered(node);
    }

    void unknownElement(const xmlNode* node, const ElementShape& parent) {
        std::vector<std::string_view> known;
        for (const ElementShape& child : parent.children) known.push_back(child.name);
        Add(lineOf(node), Severity::Warning, "unknown-element",
            "`" + std::string(nameOf(node)) + "` is not read inside `" + parent.name + "`" +
                didYouMean(nameOf(node), known));
    }

    void attributes(const xmlNode* node, const ElementShape& shape) {
        for (const xmlAttr* attribute = node->properties; attribute; attribute = attribute->next) {
            const std::string_view name = reinterpret_cast<const char*>(attribute->name);
            const AttributeShape* known = shape.Attribute(name);
            if (known == nullptr) {
                std::vector<std::string_view> names;
                for (const AttributeShape& a : shape.attributes) names.push_back(a.name);
                Add(lineOf(node), Severity::Warning, "unknown-attribute",
                    "`" + std::string(shape.name) + "` has no attribute `" + std::string(name) +
                        "` that is read" + didYouMean(name, names));
                continue;
            }
            value(node, *known, attributeOf(node, known->name));
        }
    }

    void notANumber(const xmlNode* node, const std::string& what, const std::string& text) {
        Add(lineOf(node), Severity::Warning, "not-a-number",
            what + "=\"" + text + "\" is not a number; it reads as " + Str(Val(text)));
    }

    void value(const xmlNode* node, const AttributeShape& attribute, const std::string& text) {
        const std::string what = "`" + std::string(attribute.name) + "`";
        if (text.empty() && attribute.form != ValueForm::CostClass) return;
        switch (attribute.form) {
            case ValueForm::Text:
                return;
            case ValueForm::Number:
                if (!ReadsAsNumber(text)) notANumber(node, what, text);
                return;
            case ValueForm::Expression:
            case ValueForm::AnythingAndNumber:
                return expression(node, attribute, text);
            case ValueForm::NumberOrDivisor:
                if (text.find('/') == std::string::npos) {
                    if (!ReadsAsNumber(text)) notANumber(node, what, text);
                } else if (Val(NthField(text, "/", 2)) == 0) {
                    Add(lineOf(node), Severity::Error, "divisor",
                        what + "=\"" + text + "\" divides by nothing or 0");
                }
                return;
            case ValueForm::CostClass:
                for (const char* costClass : {"Regular", "Special", "Cinematic"})
                    if (EqualsNoCase(text, costClass)) return;
                Add(lineOf(node), Severity::Warning, "cost-class",
                    "skill type \"" + text +
                        "\" is none of Regular, Special and Cinematic, so its levels cost nothing");
                return;
        }
    }

    void expression(const xmlNode* node, const AttributeShape& attribute, const std::string& text) {
        const std::string what = "`" + std::string(attribute.name) + "`";
        if (CountFields(text, "&&") <= 1) {
            Add(lineOf(node), Severity::Warning, "bonus-expression",
                what + "=\"" + text + "\" has no \"&&\", so it adds nothing");
            return;
        }
        const std::string multiplier = NthField(text, "&&", 2);
        if (!ReadsAsNumber(multiplier)) notANumber(node, what + " multiplier", multiplier);
        if (attribute.form == ValueForm::AnythingAndNumber) return;
        const std::string word = NthField(text, "&&", 1);
        for (const char* known : kAttributeWords)
            if (EqualsNoCase(word, known)) return;
        Add(lineOf(node), Severity::Warning, "bonus-expression",
            what + "=\"" + text + "\" " +
                (word.empty() ? std::string("has nothing ahead of \"&&\"")
                              : "names \"" + word +
                                    "\", none of Strength, Dexterity, Constitution, "
                                    "Intelligence, Perception, Willpower, Mental and Physical") +
                ", so it adds nothing");
    }

    static bool isText(const xmlNode* node) {
        return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
    }

    // What is lost behind a leaf's first child: an element, or text that is not blank.
    static bool holdsMore(const xmlNode* node) {
        return node->type == XML_ELEMENT_NODE || (isText(node) && !isBlank(contentOf(node)));
    }

    // The text of a leaf is the value of its first child, and of nothing after it.
    void leaf(const xmlNode* node) {
        const xmlNode* first = node->children;
        if (first == nullptr) return;
        bool lost = !isText(first);
        for (const xmlNode* next = first->next; next; next = next->next) lost |= holdsMore(next);
        if (lost) {
            Add(lineOf(node), Severity::Warning, "leaf-not-first-child",
                "the text of `" + std::string(nameOf(node)) +
                    "` is not all in its first child; only that child is read");
        } else if (isBlank(contentOf(first))) {
            Add(lineOf(node), Severity::Note, "blank-leaf",
                "`" + std::string(nameOf(node)) +
                    "` holds only blanks, which count as its text, not as absent");
        }
    }

    static std::string keyOf(const xmlNode* node, const KeyRule& rule) {
        return attributeOf(node,
                           std::string_view(rule.path) == "tabledata/table" ? "name" : "value");
    }

    void key(const xmlNode* node, const KeyRule& rule, const std::string& path) {
        const std::string name = keyOf(node, rule);
        if (rule.quote != 0 && name.find(rule.quote) != std::string::npos)
            Add(lineOf(node), Severity::Error, "quote-in-key",
                std::string(rule.what) + " \"" + name + "\" holds " + rule.quote +
                    ", which the queries that look it up put around it; it cannot be found");
        for (const char* separator : rule.separators)
            if (name.find(separator) != std::string::npos)
                Add(lineOf(node), Severity::Warning, "separator-in-name",
                    std::string(rule.what) + " \"" + name + "\" holds \"" + separator +
                        "\", which separates the lists that name it");
        if (path == "qualities/type/name") quality(node, name);
        if (path == "metaphysics/type/name") metaphysicNames_.insert(FoldCase(name));
        if (path == "altforms/type") formTypes_.insert(name);
        if (path == "martialstyles/name") styles_.insert(name);
    }

    void duplicate(const xmlNode* node, const KeyRule& rule,
                   std::map<std::pair<std::string, std::string>, int>& siblings) {
        const std::string name = keyOf(node, rule);
        const auto [first, isNew] =
            siblings.try_emplace({std::string(nameOf(node)), name}, lineOf(node));
        if (!isNew)
            Add(lineOf(node), Severity::Warning, "duplicate-key",
                "a second " + std::string(rule.what) + " \"" + name +
                    "\" here; the first, at line " + std::to_string(first->second) +
                    ", is the one in force");
    }

    // The lookups of a quality by name alone take the first in the file, across all types.
    void quality(const xmlNode* node, const std::string& name) {
        qualityNames_.push_back(FoldCase(name));
        foldedQualities_.insert(qualityNames_.back());
        const auto [first, isNew] = qualities_.try_emplace(name, node);
        if (isNew || first->second->parent == node->parent) return;
        Add(lineOf(node), Severity::Warning, "shadowed-quality",
            "quality \"" + name + "\" also stands under type \"" +
                attributeOf(first->second->parent, "value") + "\" at line " +
                std::to_string(lineOf(first->second)) + "; lookups by name alone take that one");
    }

    void neverOffered(const xmlNode* node) {
        for (const xmlNode* child = node->children; child; child = child->next)
            if (child->type == XML_ELEMENT_NODE && nameOf(child) == "qualityprerequisite" &&
                child->children != nullptr)
                return;
        Add(lineOf(node), Severity::Warning, "never-offered",
            "metaphysic \"" + attributeOf(node, "value") +
                "\" has no qualityprerequisite text, so it is never offered");
    }

    static std::string leafText(const xmlNode* node) {
        return node->children ? contentOf(node->children) : "";
    }

    void refer(Reference::Kind kind, const std::string& name, const xmlNode* node) {
        references_.push_back({kind, name, std::string(nameOf(node)), lineOf(node)});
    }

    void collectReferences(const xmlNode* node, const std::string& path) {
        const std::string_view leafName = nameOf(node);
        const std::string text = leafText(node);
        if (path == "charactertype/type/name/qualityrequired") {
            for (int f = 1; f <= CountFields(text, "&&"); ++f)
                refer(Reference::QualityExact, NthField(text, "&&", f), node);
        } else if (path == "qualities/type/name/prerequisites") {
            for (int f = 1; f <= CountFields(text, "&&"); ++f)
                refer(Reference::QualityNoCase, NthField(NthField(text, "&&", f), ",", 1), node);
        } else if (path == "metaphysics/type/name/metaprerequisite") {
            for (int g = 1; g <= CountFields(text, "||"); ++g) {
                const std::string group = NthField(text, "||", g);
                for (int f = 1; f <= CountFields(group, "&&"); ++f)
                    refer(Reference::Metaphysic, NthField(NthField(group, "&&", f), ",", 1), node);
            }
        } else if (path == "metaphysics/type/name/qualityprerequisite") {
            for (int f = 1; f <= CountFields(text, "||"); ++f)
                refer(Reference::QualityPart, NthField(text, "||", f), node);
        } else if ((leafName == "alternateform" || leafName == "altform") && node->children) {
            refer(Reference::FormType, text, node);
        } else if (path == "skills/category/name" &&
                   InStr(attributeOf(node, "value"), "Martial Arts") > 0) {
            for (const xmlNode* child = node->children; child; child = child->next)
                if (child->type == XML_ELEMENT_NODE && nameOf(child) == "typelist")
                    for (const std::string& style : SplitFields(leafText(child), ','))
                        refer(Reference::MartialStyle, style, child);
        }
    }

    bool containedInAQuality(const std::string& part) {
        const auto [memo, isNew] = partFound_.try_emplace(part, false);
        if (!isNew) return memo->second;
        const std::u32string folded = FoldCase(part);
        for (const std::u32string& name : qualityNames_)
            if (!folded.empty() && name.find(folded) != std::u32string::npos)
                return memo->second = true;
        return false;
    }

    bool resolves(const Reference& reference) {
        switch (reference.kind) {
            case Reference::QualityExact:
                return qualities_.count(reference.name) > 0;
            case Reference::QualityNoCase:
                return foldedQualities_.count(FoldCase(reference.name)) > 0;
            case Reference::QualityPart:
                return containedInAQuality(reference.name);
            case Reference::Metaphysic:
                return metaphysicNames_.count(FoldCase(reference.name)) > 0;
            case Reference::FormType:
                return formTypes_.count(reference.name) > 0;
            case Reference::MartialStyle:
                return styles_.count(reference.name) > 0;
        }
        return true;
    }

    void resolveReferences() {
        static const char* const kWhat[] = {"quality",
                                            "quality",
                                            "part of a quality name",
                                            "metaphysic",
                                            "alternate-form type",
                                            "martial style"};
        for (const Reference& reference : references_)
            if (!resolves(reference))
                Add(reference.line, Severity::Warning, "dangling-reference",
                    "`" + reference.from + "` names the " + kWhat[reference.kind] + " \"" +
                        reference.name + "\", which the file does not hold");
    }

    std::string file_;
    std::vector<LintFinding> findings_;
    std::unordered_map<std::string, const xmlNode*> qualities_;
    std::vector<std::u32string> qualityNames_;
    std::set<std::u32string> foldedQualities_;
    std::set<std::u32string> metaphysicNames_;
    std::set<std::string> formTypes_;
    std::set<std::string> styles_;
    std::unordered_map<std::string, bool> partFound_;
    std::vector<Reference> references_;
};

std::string jsonString(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            out += escaped;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

}  // namespace

std::vector<LintFinding> LintRuleDataText(const std::string& text, const std::string& file) {
    Linter linter(file);
    // Read as the program reads it, blanks kept; the first parse error is the one told.
    std::unique_ptr<RuleData> rules;
    try {
        rules = RuleData::LoadText(text);
    } catch (const XmlError& failure) {
        linter.Add(failure.line(), Severity::Error, "not-well-formed", failure.message());
        return linter.Findings();
    }
    const xmlNode* root = xmlDocGetRootElement(rules->raw());
    if (root == nullptr || nameOf(root) != "zephalondata") {
        linter.Add(root ? static_cast<int>(xmlGetLineNo(root)) : 1, Severity::Error, "wrong-root",
                   "the root element is `" + std::string(root ? nameOf(root) : "") +
                       "`, not `zephalondata`, so nothing in the file is found");
        return linter.Findings();
    }
    linter.Walk(root);
    return linter.Findings();
}

std::vector<LintFinding> LintRuleDataFile(const std::string& path) {
    if (auto text = ReadWholeFile(path)) return LintRuleDataText(*text, path);
    return {{path, 0, Severity::Error, "unreadable", "the file cannot be read"}};
}

const char* SeverityName(Severity severity) {
    switch (severity) {
        case Severity::Note:
            return "note";
        case Severity::Warning:
            return "warning";
        case Severity::Error:
            return "error";
    }
    return "";
}

std::string FindingsAsText(const std::vector<LintFinding>& findings) {
    std::string out;
    for (const LintFinding& f : findings)
        out += f.file + ":" + std::to_string(f.line) + ": " + SeverityName(f.severity) + ": " +
               f.message + " [" + f.code + "]\n";
    return out;
}

std::string FindingsAsJson(const std::vector<LintFinding>& findings) {
    std::string out = "[";
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const LintFinding& f = findings[i];
        out += std::string(i ? "," : "") + "\n  {\"file\": " + jsonString(f.file) +
               ", \"line\": " + std::to_string(f.line) + ", \"severity\": \"" +
               SeverityName(f.severity) + "\", \"code\": " + jsonString(f.code) +
               ", \"message\": " + jsonString(f.message) + "}";
    }
    return out + (findings.empty() ? "]\n" : "\n]\n");
}

int LintExitStatus(const std::vector<LintFinding>& findings) {
    int status = 0;
    for (const LintFinding& f : findings)
        status = std::max(status, f.severity == Severity::Error     ? 2
                                  : f.severity == Severity::Warning ? 1
                                                                    : 0);
    return status;
}

}  // namespace zeph
