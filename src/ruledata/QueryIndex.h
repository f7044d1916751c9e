// An index over one rule data document that answers the simple path queries the rules ask
// (names, `*`, `//` at the start, one `[@attr='key']` or `[n]` predicate per step) without
// walking the whole document. Anything else is declined, and the caller asks libxml2.
//
// Only structure is remembered, never answers: the document does not change while it is
// loaded, so an index built once stays true, and every query is evaluated afresh over it.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

typedef struct _xmlDoc xmlDoc;
typedef struct _xmlNode xmlNode;

namespace zeph {

class QueryIndex {
public:
    explicit QueryIndex(xmlDoc* doc);
    ~QueryIndex();
    QueryIndex(const QueryIndex&) = delete;
    QueryIndex& operator=(const QueryIndex&) = delete;

    // The nodes of the query, in document order, when its shape is one the index answers.
    std::optional<std::vector<xmlNode*>> TryAnswer(std::string_view xpath);

private:
    using Nodes = std::vector<xmlNode*>;

    // One step of a parsed query: a name (empty for `*`) and at most one predicate.
    struct Step {
        std::string_view name;
        bool any = false;
        enum class Pred { None, Attr, Position } pred = Pred::None;
        std::string_view attr;
        std::string_view literal;
        std::size_t position = 0;
    };

    // Elements keyed by an attribute's string value, for one (element name, attribute name).
    struct ValueMap {
        std::string name;
        std::string attr;
        std::unordered_map<std::string_view, Nodes> byValue;
    };

    // The element children of one parent, built the first time a query steps below it.
    struct ChildIndex {
        Nodes elements;
        std::unordered_map<std::string_view, Nodes> byName;  // only elements without namespace
        std::vector<std::unique_ptr<ValueMap>> byAttr;
    };

    static bool Parse(std::string_view xpath, bool& fromRoot, std::vector<Step>& steps);

    ChildIndex& ChildrenOf(xmlNode* parent);
    const Nodes* Named(std::string_view name) const;
    const ValueMap& GlobalValues(std::string_view name, std::string_view attr);
    const ValueMap& LocalValues(ChildIndex& index, std::string_view name, std::string_view attr);
    void FillValues(ValueMap& map, const Nodes& candidates, std::string_view attr);
    std::string_view AttrValue(xmlNode* element, std::string_view attr, bool& present);

    const Nodes& AllElements();
    Nodes FirstStepFromRoot(const Step& step);
    bool Matches(xmlNode* element, const Step& step);
    bool ScanSmallParent(xmlNode* parent, const Step& step, Nodes& out);
    Nodes StepBelow(const Nodes& contexts, const Step& step);

    xmlDoc* doc_;
    bool declineAll_ = false;
    Nodes allElements_;
    bool allElementsBuilt_ = false;
    std::unordered_map<std::string_view, Nodes> named_;
    std::unordered_map<const xmlNode*, std::unique_ptr<ChildIndex>> children_;
    std::vector<std::unique_ptr<ValueMap>> globalValues_;
    // Attribute values that are not one plain text node, computed once and kept here.
    std::deque<std::string> ownedValues_;
};

}  // namespace zeph
