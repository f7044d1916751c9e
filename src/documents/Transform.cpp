#include "documents/Transform.h"

#include <libxml/parser.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "ruledata/XmlError.h"

namespace zeph {
namespace {

struct StylesheetDeleter {
    void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
};
struct DocDeleter {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};
struct SecurityDeleter {
    void operator()(xsltSecurityPrefs* prefs) const { xsltFreeSecurityPrefs(prefs); }
};
struct TransformContextDeleter {
    void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
};

// Keeps the first report libxml2 and libxslt make while it is alive, instead of printing it.
class Reports {
public:
    Reports() {
        xmlSetStructuredErrorFunc(this, &Reports::structured);
        xsltSetGenericErrorFunc(this, &Reports::generic);
    }
    ~Reports() {
        xmlSetStructuredErrorFunc(nullptr, nullptr);
        xsltSetGenericErrorFunc(nullptr, nullptr);
    }
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    [[noreturn]] void Raise(const std::string& fallback, const std::string& node) const {
        std::string message = first_.empty() ? fallback : first_;
        while (!message.empty() && (message.back() == '\n' || message.back() == ' '))
            message.pop_back();
        throw XmlError(message, node, line_);
    }

private:
    static void structured(void* self, xmlErrorPtr error) {
        auto* reports = static_cast<Reports*>(self);
        if (!reports->first_.empty() || error == nullptr || error->message == nullptr) return;
        reports->first_ = error->message;
        reports->line_ = error->line;
    }
    // A runtime or compilation error comes as two reports, where it stands ("runtime error: file
    // F line N element E") and then what went wrong; both are kept, and N is the line.
    static void generic(void* self, const char* format, ...) {
        auto* reports = static_cast<Reports*>(self);
        if (!reports->first_.empty() && !reports->placeOnly_) return;
        char text[1024];
        va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(text, sizeof text, format, arguments);
        va_end(arguments);
        reports->first_ += text;
        reports->placeOnly_ = !reports->placeOnly_ && (reports->first_.starts_with("runtime error: ") ||
                                                       reports->first_.starts_with("compilation error: "));
        if (reports->placeOnly_) {
            const std::size_t at = reports->first_.find(" line ");
            if (at != std::string::npos) reports->line_ = std::atoi(reports->first_.c_str() + at + 6);
        }
    }

    std::string first_;
    bool placeOnly_ = false;
    int line_ = 0;
};

std::unique_ptr<xsltSecurityPrefs, SecurityDeleter> readOnlyPrefs() {
    std::unique_ptr<xsltSecurityPrefs, SecurityDeleter> prefs(xsltNewSecurityPrefs());
    xsltSetSecurityPrefs(prefs.get(), XSLT_SECPREF_WRITE_FILE, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs.get(), XSLT_SECPREF_CREATE_DIRECTORY, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs.get(), XSLT_SECPREF_READ_NETWORK, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs.get(), XSLT_SECPREF_WRITE_NETWORK, xsltSecurityForbid);
    return prefs;
}

}  // namespace

std::string TransformDocument(xmlDoc* document, const std::string& stylesheetPath) {
    Reports reports;
    // Blanks kept: a stylesheet's text nodes are its output.
    std::unique_ptr<xmlDoc, DocDeleter> styleDoc(
        xmlReadFile(stylesheetPath.c_str(), nullptr, XML_PARSE_NONET));
    if (!styleDoc) reports.Raise("The stylesheet could not be read as XML", stylesheetPath);
    std::unique_ptr<xsltStylesheet, StylesheetDeleter> stylesheet(
        xsltParseStylesheetDoc(styleDoc.get()));
    if (!stylesheet) reports.Raise("The file is not an XSLT stylesheet", stylesheetPath);
    styleDoc.release();  // the stylesheet owns it now

    auto prefs = readOnlyPrefs();
    std::unique_ptr<xsltTransformContext, TransformContextDeleter> context(
        xsltNewTransformContext(stylesheet.get(), document));
    if (!context || xsltSetCtxtSecurityPrefs(prefs.get(), context.get()) != 0)
        reports.Raise("The transformation could not be prepared", stylesheetPath);
    std::unique_ptr<xmlDoc, DocDeleter> result(
        xsltApplyStylesheetUser(stylesheet.get(), document, nullptr, nullptr, nullptr,
                                context.get()));
    if (!result || context->state != XSLT_STATE_OK)
        reports.Raise("The transformation failed", stylesheetPath);

    xmlChar* text = nullptr;
    int length = 0;
    if (xsltSaveResultToString(&text, &length, result.get(), stylesheet.get()) != 0)
        reports.Raise("The result could not be written", stylesheetPath);
    std::string output = text ? std::string(reinterpret_cast<const char*>(text),
                                            static_cast<std::size_t>(length))
                              : std::string();
    xmlFree(text);
    return output;
}

}  // namespace zeph
