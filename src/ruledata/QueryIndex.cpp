#include "ruledata/QueryIndex.h"

#include <libxml/tree.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace zeph {
namespace {

std::string_view View(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool IsNameChar(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// An ASCII NCName, read at `pos`. Names outside ASCII are left to libxml2, and so are the
// operator words, whose reading as a name or an operator depends on what stands before them.
std::string_view ReadName(std::string_view text, std::size_t& pos) {
    std::size_t start = pos;
    if (pos >= text.size() || !IsNameStart(text[pos])) return {};
    while (pos < text.size() && IsNameChar(text[pos])) ++pos;
    std::string_view name = text.substr(start, pos - start);
    if (name == "and" || name == "or" || name == "div" || name == "mod") return {};
    return name;
}

// True when the literal holds only characters that libxml2 reads inside an XPath literal
// (well-formed UTF-8 of XML characters); anything else is its to reject.
bool IsPlainLiteral(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x80) {
            if (byte < 0x20 && byte != 0x9 && byte != 0xA && byte != 0xD) return false;
            ++i;
            continue;
        }
        int extra = 0;
        std::uint32_t code = 0;
        if ((byte & 0xE0) == 0xC0) {
            extra = 1;
            code = byte & 0x1F;
        } else if ((byte & 0xF0) == 0xE0) {
            extra = 2;
            code = byte & 0x0F;
        } else if ((byte & 0xF8) == 0xF0) {
            extra = 3;
            code = byte & 0x07;
        } else {
            return false;
        }
        if (i + static_cast<std::size_t>(extra) >= text.size()) return false;
        for (int k = 1; k <= extra; ++k) {
            auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if ((next & 0xC0) != 0x80) return false;
            code = (code << 6) | (next & 0x3F);
        }
        static constexpr std::uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
        if (code < kLeast[extra]) return false;
        bool isXmlChar = (code >= 0x80 && code <= 0xD7FF) || (code >= 0xE000 && code <= 0xFFFD) ||
                       (code >= 0x10000 && code <= 0x10FFFF);
        if (!isXmlChar) return false;
        i += static_cast<std::size_t>(extra) + 1;
    }
    return true;
}

// xmlXPathOrderDocElems keeps minus the preorder number of each element in `content`.
bool ByOrder(const xmlNode* a, const xmlNode* b) {
    return -reinterpret_cast<std::ptrdiff_t>(a->content) <
           -reinterpret_cast<std::ptrdiff_t>(b->content);
}

// Visits every node in document order, descending only into elements (not into the
// expansion of an entity reference).
template <class Visit>
void WalkPreorder(xmlDoc* doc, Visit visit) {
    xmlNode* cur = doc->children;
    while (cur != nullptr) {
        // The walk is bound by memory, not work: ask for both possible next nodes at once.
        __builtin_prefetch(cur->next);
        __builtin_prefetch(cur->children);
        visit(cur);
        if (cur->type == XML_ELEMENT_NODE && cur->children != nullptr) {
            cur = cur->children;
            continue;
        }
        while (cur != nullptr && cur->next == nullptr) {
            cur = cur->parent;
            if (cur == reinterpret_cast<xmlNode*>(doc)) cur = nullptr;
        }
        if (cur != nullptr) cur = cur->next;
    }
}
}  // namespace

QueryIndex::QueryIndex(xmlDoc* doc) : doc_(doc) {
    if (doc_ == nullptr) {
        declineAll_ = true;
        return;
    }
    // Entities make string values and tree walks subtle; such documents are libxml2's alone.
    if (doc_->intSubset != nullptr &&
        (doc_->intSubset->entities != nullptr || doc_->intSubset->pentities != nullptr)) {
        declineAll_ = true;
        return;
    }
    // One preorder pass over the elements. It stamps each with its order the way
    // xmlXPathOrderDocElems does (minus the number, in `content`, unused by elements), which
    // also speeds up libxml2's own sorting for the queries that still go to it, and files it
    // under its name. Names are usually shared dictionary strings, so a small cache keyed by
    // the name's address spares most hash lookups.
    struct Slot {
        const xmlChar* name = nullptr;
        Nodes* list = nullptr;
    };
    Slot cache[64];
    std::ptrdiff_t count = 0;
    WalkPreorder(doc_, [&](xmlNode* cur) {
        if (cur->type == XML_ENTITY_REF_NODE) declineAll_ = true;
        if (cur->type != XML_ELEMENT_NODE) return;
        cur->content = reinterpret_cast<xmlChar*>(-(++count));
        if (cur->ns == nullptr) {
            Slot& slot = cache[(reinterpret_cast<std::uintptr_t>(cur->name) >> 3) & 63];
            if (slot.name != cur->name) {
                slot.name = cur->name;
                slot.list = &named_[View(cur->name)];
            }
            slot.list->push_back(cur);
        }
    });
}

const QueryIndex::Nodes& QueryIndex::AllElements() {
    // Only `//*` needs every element; few queries do, so the list waits for the first.
    if (!allElementsBuilt_) {
        allElementsBuilt_ = true;
        WalkPreorder(doc_, [this](xmlNode* cur) {
            if (cur->type == XML_ELEMENT_NODE) allElements_.push_back(cur);
        });
    }
    return allElements_;
}

QueryIndex::~QueryIndex() = default;

bool QueryIndex::Parse(std::string_view xpath, bool& fromRoot, std::vector<Step>& steps) {
    if (xpath.find('\0') != std::string_view::npos) return false;
    std::size_t pos = 0;
    fromRoot = false;
    if (xpath.substr(0, 2) == "//") {
        fromRoot = true;
        pos = 2;
    }
    for (;;) {
        Step step;
        if (pos < xpath.size() && xpath[pos] == '*') {
            step.any = true;
            ++pos;
        } else {
            step.name = ReadName(xpath, pos);
            if (step.name.empty()) return false;
        }
        if (pos < xpath.size() && xpath[pos] == '[') {
            ++pos;
            if (pos < xpath.size() && xpath[pos] == '@') {
                ++pos;
                step.attr = ReadName(xpath, pos);
                if (step.attr.empty() || pos + 1 >= xpath.size() || xpath[pos] != '=') return false;
                ++pos;
                char quote = xpath[pos];
                if (quote != '\'' && quote != '"') return false;
                std::size_t close = xpath.find(quote, pos + 1);
                if (close == std::string_view::npos) return false;
                step.literal = xpath.substr(pos + 1, close - pos - 1);
                if (!IsPlainLiteral(step.literal)) return false;
                pos = close + 1;
                step.pred = Step::Pred::Attr;
            } else {
                std::size_t start = pos;
                while (pos < xpath.size() && xpath[pos] >= '0' && xpath[pos] <= '9') ++pos;
                std::size_t digits = pos - start;
                // No leading zero, and small enough to be an exact position.
                if (digits == 0 || digits > 9 || xpath[start] == '0') return false;
                step.position = 0;
                for (std::size_t i = start; i < pos; ++i)
                    step.position = step.position * 10 + static_cast<std::size_t>(xpath[i] - '0');
                step.pred = Step::Pred::Position;
            }
            if (pos >= xpath.size() || xpath[pos] != ']') return false;
            ++pos;
        }
        steps.push_back(step);
        if (pos == xpath.size()) return true;
        if (xpath[pos] != '/') return false;
        ++pos;
        if (pos < xpath.size() && xpath[pos] == '/') return false;  // `//` inside a path
    }
}

const QueryIndex::Nodes* QueryIndex::Named(std::string_view name) const {
    auto found = named_.find(name);
    return found == named_.end() ? nullptr : &found->second;
}

QueryIndex::ChildIndex& QueryIndex::ChildrenOf(xmlNode* parent) {
    auto& slot = children_[parent];
    if (!slot) {
        slot = std::make_unique<ChildIndex>();
        for (xmlNode* child = parent->children; child != nullptr; child = child->next) {
            if (child->type != XML_ELEMENT_NODE) continue;
            slot->elements.push_back(child);
            if (child->ns == nullptr) slot->byName[View(child->name)].push_back(child);
        }
    }
    return *slot;
}

std::string_view QueryIndex::AttrValue(xmlNode* element, std::string_view attr, bool& present) {
    present = false;
    for (xmlAttr* a = element->properties; a != nullptr; a = a->next) {
        if (a->ns != nullptr || View(a->name) != attr) continue;
        present = true;
        xmlNode* text = a->children;
        if (text == nullptr) return {};
        if (text->next == nullptr && text->type == XML_TEXT_NODE) return View(text->content);
        // Several pieces: take the string value exactly as XPath reads it.
        xmlChar* whole = xmlNodeGetContent(reinterpret_cast<xmlNode*>(a));
        ownedValues_.emplace_back(whole ? reinterpret_cast<const char*>(whole) : "");
        if (whole != nullptr) xmlFree(whole);
        return ownedValues_.back();
    }
    return {};
}

void QueryIndex::FillValues(ValueMap& map, const Nodes& candidates, std::string_view attr) {
    for (xmlNode* element : candidates) {
        bool present = false;
        std::string_view value = AttrValue(element, attr, present);
        if (present) map.byValue[value].push_back(element);
    }
}

const QueryIndex::ValueMap& QueryIndex::GlobalValues(std::string_view name, std::string_view attr) {
    for (const auto& map : globalValues_)
        if (map->name == name && map->attr == attr) return *map;
    auto map = std::make_unique<ValueMap>();
    map->name = name;
    map->attr = attr;
    if (const Nodes* elements = Named(name)) FillValues(*map, *elements, attr);
    globalValues_.push_back(std::move(map));
    return *globalValues_.back();
}

const QueryIndex::ValueMap& QueryIndex::LocalValues(ChildIndex& index, std::string_view name,
                                                    std::string_view attr) {
    // An empty name stands for `*`, which no element name can be.
    for (const auto& map : index.byAttr)
        if (map->name == name && map->attr == attr) return *map;
    auto map = std::make_unique<ValueMap>();
    map->name = name;
    map->attr = attr;
    if (name.empty()) {
        FillValues(*map, index.elements, attr);
    } else {
        auto found = index.byName.find(name);
        if (found != index.byName.end()) FillValues(*map, found->second, attr);
    }
    index.byAttr.push_back(std::move(map));
    return *index.byAttr.back();
}

QueryIndex::Nodes QueryIndex::FirstStepFromRoot(const Step& step) {
    static const Nodes kNone;
    const Nodes* source = step.any ? &AllElements() : Named(step.name);
    if (source == nullptr) source = &kNone;
    switch (step.pred) {
        case Step::Pred::None:
            return *source;
        case Step::Pred::Attr: {
            if (!step.any) {
                const ValueMap& values = GlobalValues(step.name, step.attr);
                auto found = values.byValue.find(step.literal);
                return found == values.byValue.end() ? Nodes{} : found->second;
            }
            Nodes out;
            for (xmlNode* element : *source) {
                bool present = false;
                if (AttrValue(element, step.attr, present) == step.literal && present)
                    out.push_back(element);
            }
            return out;
        }
        case Step::Pred::Position: {
            // `//x[n]` is the n-th x child of every node; the list is in document order, so
            // counting per parent as it goes gives each element's position among its siblings.
            Nodes out;
            std::unordered_map<const xmlNode*, std::size_t> seen;
            for (xmlNode* element : *source)
                if (++seen[element->parent] == step.position) out.push_back(element);
            return out;
        }
    }
    return {};
}

bool QueryIndex::Matches(xmlNode* element, const Step& step) {
    if (!step.any && (element->ns != nullptr || View(element->name) != step.name)) return false;
    if (step.pred != Step::Pred::Attr) return true;
    bool present = false;
    std::string_view value = AttrValue(element, step.attr, present);
    return present && value == step.literal;
}

bool QueryIndex::ScanSmallParent(xmlNode* parent, const Step& step, Nodes& out) {
    // Most parents (an entity's handful of leaves) are cheaper to scan than to index; an
    // index is worth building only for the ones with many children.
    constexpr std::size_t kMaxScanned = 16;
    std::size_t elements = 0;
    for (xmlNode* child = parent->children; child != nullptr; child = child->next)
        if (child->type == XML_ELEMENT_NODE && ++elements > kMaxScanned) return false;
    std::size_t position = 0;
    for (xmlNode* child = parent->children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE || !Matches(child, step)) continue;
        if (step.pred != Step::Pred::Position) {
            out.push_back(child);
        } else if (++position == step.position) {
            out.push_back(child);
            break;
        }
    }
    return true;
}

QueryIndex::Nodes QueryIndex::StepBelow(const Nodes& contexts, const Step& step) {
    Nodes out;
    // A keyed step: a key names few elements in the whole document, so look it up once and
    // keep the hits whose parent is a context, rather than visiting every context. Contexts
    // are in document order, so a parent is found by its order number.
    if (step.pred == Step::Pred::Attr && !step.any) {
        const ValueMap& values = GlobalValues(step.name, step.attr);
        auto found = values.byValue.find(step.literal);
        if (found == values.byValue.end()) return out;
        if (found->second.size() <= contexts.size() + 8) {
            for (xmlNode* hit : found->second) {
                xmlNode* parent = hit->parent;
                if (contexts.size() == 1) {
                    if (parent == contexts.front()) out.push_back(hit);
                    continue;
                }
                if (parent == nullptr || parent->type != XML_ELEMENT_NODE) continue;
                auto at = std::lower_bound(contexts.begin(), contexts.end(), parent, ByOrder);
                if (at != contexts.end() && *at == parent) out.push_back(hit);
            }
            return out;
        }
    }

    for (xmlNode* context : contexts) {
        auto indexed = children_.find(context);
        if (indexed == children_.end() && ScanSmallParent(context, step, out)) continue;
        ChildIndex& index = indexed != children_.end() ? *indexed->second : ChildrenOf(context);
        const Nodes* list = &index.elements;
        if (!step.any) {
            auto named = index.byName.find(step.name);
            if (named == index.byName.end()) continue;
            list = &named->second;
        }
        switch (step.pred) {
            case Step::Pred::None:
                out.insert(out.end(), list->begin(), list->end());
                break;
            case Step::Pred::Position:
                if (step.position <= list->size()) out.push_back((*list)[step.position - 1]);
                break;
            case Step::Pred::Attr: {
                const ValueMap& values =
                    LocalValues(index, step.any ? std::string_view() : step.name, step.attr);
                auto found = values.byValue.find(step.literal);
                if (found != values.byValue.end())
                    out.insert(out.end(), found->second.begin(), found->second.end());
                break;
            }
        }
    }
    // Children of contexts in document order are in document order themselves, unless one
    // context holds another (nested elements of the same name).
    if (contexts.size() > 1 && !std::is_sorted(out.begin(), out.end(), ByOrder))
        std::sort(out.begin(), out.end(), ByOrder);
    return out;
}

std::optional<std::vector<xmlNode*>> QueryIndex::TryAnswer(std::string_view xpath) {
    if (declineAll_) return std::nullopt;
    bool fromRoot = false;
    std::vector<Step> steps;
    if (!Parse(xpath, fromRoot, steps)) return std::nullopt;

    Nodes current;
    std::size_t next = 1;
    if (fromRoot) {
        current = FirstStepFromRoot(steps[0]);
    } else {
        current = StepBelow(Nodes{reinterpret_cast<xmlNode*>(doc_)}, steps[0]);
    }
    for (; next < steps.size() && !current.empty(); ++next) current = StepBelow(current, steps[next]);
    return current;
}

}  // namespace zeph
