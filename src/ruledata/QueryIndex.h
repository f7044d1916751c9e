// An index over one rule data document that answers the simple path queries the rules ask
// (names, `*`, `//` at the start, one `[@attr='key']` or `[n]` predicate per step) without
// walking the whole document. Anything else is declined, and the caller asks libxml2.
#pragma once

#include <optional>
#include <string_view>
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
    xmlDoc* doc_;
};

}  // namespace zeph
