#include "tools/ToolModel.h"

namespace zeph {

const ToolModel::Operation* ToolModel::FindOperation(const std::string& name) const {
    auto found = operations_.find(name);
    return found == operations_.end() ? nullptr : &found->second;
}

void ToolModel::AddOperation(const std::string& name, Operation run) {
    operations_.emplace(name, std::move(run));
}

void ToolModel::Close() {
    if (closed_) return;
    closed_ = true;
    Event_Close();
    if (closeWindow_) closeWindow_();
}

}  // namespace zeph
