// One loaded rule data document (kept with its blanks) and the XPath queries the rules ask of it.
// Queries of the shapes the program uses are answered from an index built for this document;
// every other query goes to libxml2. Both give the same nodes in the same order and the same
// failures.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "ruledata/XmlError.h"
#include "ruledata/XmlNode.h"

typedef struct _xmlDoc xmlDoc;
typedef struct _xmlXPathCompExpr xmlXPathCompExpr;

namespace zeph {

class QueryIndex;

class RuleData {
public:
    // An empty document: every query yields nothing.
    RuleData();
    ~RuleData();
    RuleData(const RuleData&) = delete;
    RuleData& operator=(const RuleData&) = delete;

    // What a folder given as the file is told.
    static constexpr const char* kFolderNotFileMessage =
        "This is a folder, not a file. Please choose an XML data file.";
    // Parse a file or a text; throws XmlError when it is a folder or not well-formed XML.
    static std::unique_ptr<RuleData> LoadFile(const std::string& path);
    static std::unique_ptr<RuleData> LoadText(std::string_view xml);

    // Nodes of the query in document order; throws XmlError for a malformed query.
    XmlNodeList Query(std::string_view xpath) const;
    // The same, always through libxml2 (the reference that the index must agree with).
    XmlNodeList QueryWithLibxml(std::string_view xpath) const;

    // Reading a leaf: the first node's first child value; nullopt when there is none.
    std::optional<std::string> Leaf(std::string_view xpath) const;
    // Reading a record: the first node; nullopt when the query yields nothing.
    std::optional<XmlNode> Record(std::string_view xpath) const;

    xmlDoc* raw() const { return doc_.get(); }

private:
    struct DocDeleter {
        void operator()(xmlDoc* doc) const;
    };
    struct CompExprDeleter {
        void operator()(xmlXPathCompExpr* expr) const;
    };
    explicit RuleData(xmlDoc* doc);
    xmlXPathCompExpr* compiled(std::string_view xpath) const;

    std::unique_ptr<xmlDoc, DocDeleter> doc_;
    mutable std::unique_ptr<QueryIndex> index_;
    mutable std::unordered_map<std::string, std::unique_ptr<xmlXPathCompExpr, CompExprDeleter>>
        compiledQueries_;
};

}  // namespace zeph
