// Read-only views of the nodes of a rule data document. They do not own anything: they live
// as long as the RuleData that produced them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

typedef struct _xmlNode xmlNode;

namespace zeph {

class XmlNode {
public:
    explicit XmlNode(xmlNode* node) : node_(node) {}
    // Attribute by name without namespace; "" when absent.
    std::string Attribute(std::string_view name) const;
    // The value of the first child node; nullopt when the node has no child (the leaf is absent).
    std::optional<std::string> FirstChildValue() const;
    int ChildCount() const;
    XmlNode Child(int index) const;
    std::string Name() const;
    // The element that holds this one; a null node at the top.
    XmlNode Parent() const;
    xmlNode* raw() const { return node_; }

private:
    xmlNode* node_;
};

class XmlNodeList {
public:
    XmlNodeList() = default;
    explicit XmlNodeList(std::vector<xmlNode*> nodes) : nodes_(std::move(nodes)) {}
    int Count() const { return static_cast<int>(nodes_.size()); }
    bool Empty() const { return nodes_.empty(); }
    XmlNode Item(int index) const { return XmlNode(nodes_.at(static_cast<std::size_t>(index))); }
    const std::vector<xmlNode*>& raw() const { return nodes_; }

private:
    std::vector<xmlNode*> nodes_;
};

}  // namespace zeph
