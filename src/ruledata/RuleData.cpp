#include "ruledata/RuleData.h"

#include <libxml/globals.h>
#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <filesystem>

#include "ruledata/QueryIndex.h"

namespace zeph {
namespace {

// Collects the first error libxml2 raises while it is alive, instead of printing it.
class ErrorCatcher {
public:
    ErrorCatcher()
        : previousHandler_(xmlStructuredError), previousContext_(xmlStructuredErrorContext) {
        xmlSetStructuredErrorFunc(this, &ErrorCatcher::record);
    }
    ~ErrorCatcher() { xmlSetStructuredErrorFunc(previousContext_, previousHandler_); }
    ErrorCatcher(const ErrorCatcher&) = delete;
    ErrorCatcher& operator=(const ErrorCatcher&) = delete;

    static void record(void* self, xmlErrorPtr error) {
        auto* catcher = static_cast<ErrorCatcher*>(self);
        if (catcher->caught || error == nullptr) return;
        catcher->caught = true;
        catcher->message = error->message ? error->message : "XML error";
        while (!catcher->message.empty() &&
               (catcher->message.back() == '\n' || catcher->message.back() == ' '))
            catcher->message.pop_back();
        catcher->node = error->str1 ? error->str1 : "";
        catcher->line = error->line;
    }
    [[noreturn]] void raise(const std::string& fallbackMessage, const std::string& fallbackNode) {
        if (!caught) throw XmlError(fallbackMessage, fallbackNode, 0);
        throw XmlError(message, node.empty() ? fallbackNode : node, line);
    }

    xmlStructuredErrorFunc previousHandler_;
    void* previousContext_;
    bool caught = false;
    std::string message;
    std::string node;
    int line = 0;
};

struct XPathContextDeleter {
    void operator()(xmlXPathContext* ctx) const { xmlXPathFreeContext(ctx); }
};
struct XPathObjectDeleter {
    void operator()(xmlXPathObject* obj) const { xmlXPathFreeObject(obj); }
};

// Big lines: the nodes of a large file past line 65535 keep their true line.
constexpr int kParseOptions =
    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_BIG_LINES;
constexpr std::size_t kMaxCompiledQueries = 4096;

}  // namespace

void RuleData::DocDeleter::operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
void RuleData::CompExprDeleter::operator()(xmlXPathCompExpr* expr) const {
    xmlXPathFreeCompExpr(expr);
}

RuleData::RuleData() = default;
RuleData::RuleData(xmlDoc* doc) : doc_(doc) {}
RuleData::~RuleData() = default;

std::unique_ptr<RuleData> RuleData::LoadFile(const std::string& path) {
    // libxml2 would report a folder as a failed read of its compression layer.
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        throw XmlError(kFolderNotFileMessage, path, 0);
    ErrorCatcher catcher;
    xmlDoc* doc = xmlReadFile(path.c_str(), nullptr, kParseOptions);
    if (doc == nullptr) catcher.raise("The file could not be read as XML", path);
    return std::unique_ptr<RuleData>(new RuleData(doc));
}

std::unique_ptr<RuleData> RuleData::LoadText(std::string_view xml) {
    ErrorCatcher catcher;
    xmlDoc* doc = xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "text.xml", nullptr,
                                kParseOptions);
    if (doc == nullptr) catcher.raise("The text could not be read as XML", "");
    return std::unique_ptr<RuleData>(new RuleData(doc));
}

xmlXPathCompExpr* RuleData::compiled(std::string_view xpath) const {
    std::string key(xpath);
    auto found = compiledQueries_.find(key);
    if (found != compiledQueries_.end()) return found->second.get();

    std::unique_ptr<xmlXPathContext, XPathContextDeleter> ctx(xmlXPathNewContext(doc_.get()));
    ErrorCatcher catcher;
    xmlXPathCompExpr* expr = xmlXPathCtxtCompile(ctx.get(), BAD_CAST key.c_str());
    if (expr == nullptr) catcher.raise("Invalid expression", key);
    if (compiledQueries_.size() >= kMaxCompiledQueries) compiledQueries_.clear();
    compiledQueries_.emplace(key, std::unique_ptr<xmlXPathCompExpr, CompExprDeleter>(expr));
    return expr;
}

XmlNodeList RuleData::QueryWithLibxml(std::string_view xpath) const {
    if (!doc_) return {};
    xmlXPathCompExpr* expr = compiled(xpath);
    std::unique_ptr<xmlXPathContext, XPathContextDeleter> ctx(xmlXPathNewContext(doc_.get()));
    ctx->node = reinterpret_cast<xmlNode*>(doc_.get());
    ErrorCatcher catcher;
    std::unique_ptr<xmlXPathObject, XPathObjectDeleter> result(
        xmlXPathCompiledEval(expr, ctx.get()));
    if (!result) catcher.raise("The query could not be evaluated", std::string(xpath));
    std::vector<xmlNode*> nodes;
    if (result->type == XPATH_NODESET && result->nodesetval != nullptr) {
        xmlNodeSet* set = result->nodesetval;
        nodes.assign(set->nodeTab, set->nodeTab + set->nodeNr);
    }
    return XmlNodeList(std::move(nodes));
}

XmlNodeList RuleData::Query(std::string_view xpath) const {
    if (!doc_) return {};
    if (!index_) index_ = std::make_unique<QueryIndex>(doc_.get());
    if (auto answer = index_->TryAnswer(xpath)) return XmlNodeList(std::move(*answer));
    return QueryWithLibxml(xpath);
}

std::optional<std::string> RuleData::Leaf(std::string_view xpath) const {
    XmlNodeList nodes = Query(xpath);
    if (nodes.Empty()) return std::nullopt;
    return nodes.Item(0).FirstChildValue();
}

std::optional<XmlNode> RuleData::Record(std::string_view xpath) const {
    XmlNodeList nodes = Query(xpath);
    if (nodes.Empty()) return std::nullopt;
    return nodes.Item(0);
}

}  // namespace zeph
