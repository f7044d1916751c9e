#include "ruledata/XmlNode.h"

#include <libxml/tree.h>

#include <memory>

namespace zeph {
namespace {

std::string takeXmlString(xmlChar* text) {
    if (text == nullptr) return "";
    std::string result(reinterpret_cast<const char*>(text));
    xmlFree(text);
    return result;
}

}  // namespace

std::string XmlNode::Attribute(std::string_view name) const {
    if (node_ == nullptr || node_->type != XML_ELEMENT_NODE) return "";
    for (xmlAttr* attr = node_->properties; attr != nullptr; attr = attr->next) {
        if (attr->ns == nullptr && name == reinterpret_cast<const char*>(attr->name))
            return takeXmlString(xmlNodeListGetString(node_->doc, attr->children, 1));
    }
    return "";
}

std::optional<std::string> XmlNode::FirstChildValue() const {
    if (node_ == nullptr || node_->children == nullptr) return std::nullopt;
    return takeXmlString(xmlNodeGetContent(node_->children));
}

int XmlNode::ChildCount() const {
    int count = 0;
    for (xmlNode* child = node_ ? node_->children : nullptr; child; child = child->next) ++count;
    return count;
}

XmlNode XmlNode::Child(int index) const {
    xmlNode* child = node_ ? node_->children : nullptr;
    for (int i = 0; child != nullptr && i < index; ++i) child = child->next;
    return XmlNode(child);
}

XmlNode XmlNode::Parent() const { return XmlNode(node_ ? node_->parent : nullptr); }

std::string XmlNode::Name() const {
    if (node_ == nullptr || node_->name == nullptr) return "";
    return reinterpret_cast<const char*>(node_->name);
}

}  // namespace zeph
