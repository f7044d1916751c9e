#include "ruledata/QueryIndex.h"

namespace zeph {

QueryIndex::QueryIndex(xmlDoc* doc) : doc_(doc) {}
QueryIndex::~QueryIndex() = default;

std::optional<std::vector<xmlNode*>> QueryIndex::TryAnswer(std::string_view) {
    return std::nullopt;
}

}  // namespace zeph
