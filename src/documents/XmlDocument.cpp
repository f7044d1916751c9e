#include "documents/XmlDocument.h"

#include <libxml/tree.h>

namespace zeph {
namespace {

const xmlChar* x(const std::string& text) { return BAD_CAST text.c_str(); }

}  // namespace

void XmlDocument::DocDeleter::operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }

XmlDocument::XmlDocument() : doc_(xmlNewDoc(BAD_CAST "1.0")) {
    if (!doc_) throw std::bad_alloc();
}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

std::string XmlDocument::Serialise() const {
    xmlChar* buffer = nullptr;
    int size = 0;
    xmlDocDumpMemoryEnc(doc_.get(), &buffer, &size, "UTF-8");
    if (buffer == nullptr) throw std::bad_alloc();
    std::string text(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(size));
    xmlFree(buffer);
    return text;
}

void XmlDocument::AppendTopText(const std::string& text) {
    xmlAddChild(reinterpret_cast<xmlNode*>(doc_.get()), xmlNewDocText(doc_.get(), x(text)));
}

xmlNode* XmlDocument::AppendRoot(const std::string& name) {
    xmlNode* root = xmlNewDocNode(doc_.get(), nullptr, x(name), nullptr);
    xmlAddChild(reinterpret_cast<xmlNode*>(doc_.get()), root);
    return root;
}

xmlNode* XmlDocument::AppendIndented(xmlNode* parent, const std::string& indent,
                                     const std::string& name) {
    xmlAddChild(parent, xmlNewDocText(parent->doc, x(indent)));
    return xmlAddChild(parent, xmlNewDocNode(parent->doc, nullptr, x(name), nullptr));
}

void XmlDocument::SetAttribute(xmlNode* element, const std::string& name,
                               const std::string& value) {
    xmlSetProp(element, x(name), x(value));
}

void XmlDocument::AppendText(xmlNode* element, const std::string& text) {
    // A text node takes its text as it is; only serialising escapes it.
    xmlAddChild(element, xmlNewDocTextLen(element->doc, x(text), static_cast<int>(text.size())));
}

}  // namespace zeph
