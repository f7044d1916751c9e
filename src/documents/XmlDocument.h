// A character document being written: an owned libxml2 document that keeps the whitespace
// nodes we put in it, and the few ways we build one.
#pragma once

#include <memory>
#include <string>

typedef struct _xmlDoc xmlDoc;
typedef struct _xmlNode xmlNode;

namespace zeph {

class XmlDocument {
public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;

    xmlDoc* raw() const { return doc_.get(); }
    // The document's text: UTF-8 with its declaration.
    std::string Serialise() const;

    // Appends a text node at the top of the document, before its root.
    void AppendTopText(const std::string& text);
    xmlNode* AppendRoot(const std::string& name);

    // Appends the whitespace `indent` and then an element `name` to `parent`.
    static xmlNode* AppendIndented(xmlNode* parent, const std::string& indent,
                                   const std::string& name);
    static void SetAttribute(xmlNode* element, const std::string& name, const std::string& value);
    static void AppendText(xmlNode* element, const std::string& text);

private:
    struct DocDeleter {
        void operator()(xmlDoc* doc) const;
    };
    std::unique_ptr<xmlDoc, DocDeleter> doc_;
};

}  // namespace zeph
