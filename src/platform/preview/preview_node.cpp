#include "platform/preview/preview_node.h"

#include <utility>

#include "base/text.h"

namespace tidvane::platform {

std::optional<bool> PreviewNode::readOnly() const {
    if (!attributes) return std::nullopt;
    return (*attributes & attribute::ReadOnly) != 0;
}

std::string PreviewNode::shownName() const {
    if (!own || below.empty() || parent == nullptr) return name;
    std::string real = below.substr(below.rfind('\\') + 1);
    return below == joined(parent->below, real) ? real : name;
}

std::string PreviewNode::path() const {
    if (parent == nullptr) return name;
    return joined(parent->path(), shownName());
}

void PreviewNode::markGone(const std::string& entryName) {
    if (hollow_) {
        names_.erase(entryName);
    } else {
        names_.insert(entryName);
    }
}

void PreviewNode::hollowOut(std::vector<std::string> left) {
    hollow_ = true;
    names_.clear();
    for (std::string& entryName : left) names_.insert(std::move(entryName));
    // What is known of entries that are gone is of no use any more.
    std::vector<std::string> dropped;
    for (const auto& [entryName, node] : nodes_) {
        if (!node->own && !names_.contains(entryName)) dropped.push_back(entryName);
    }
    for (const std::string& entryName : dropped) (void)detach(entryName);
}

PreviewNode* PreviewNode::find(std::string_view entryName) const {
    const auto at = nodes_.find(entryName);
    return at == nodes_.end() ? nullptr : at->second.get();
}

PreviewNode* PreviewNode::findFolded(std::string_view entryName) const {
    if (folded_.empty()) return nullptr;
    const auto at = folded_.find(base::upperCase(entryName));
    return at == folded_.end() ? nullptr : at->second;
}

PreviewNode& PreviewNode::attach(std::unique_ptr<PreviewNode> node) {
    PreviewNode& added = *node;
    added.parent = this;
    (void)detach(added.name);
    folded_.emplace(base::upperCase(added.name), &added);
    nodes_[added.name] = std::move(node);
    return added;
}

std::unique_ptr<PreviewNode> PreviewNode::detach(std::string_view entryName) {
    const auto at = nodes_.find(entryName);
    if (at == nodes_.end()) return nullptr;
    std::unique_ptr<PreviewNode> node = std::move(at->second);
    const auto [first, behind] = folded_.equal_range(base::upperCase(entryName));
    for (auto one = first; one != behind; ++one) {
        if (one->second != node.get()) continue;
        folded_.erase(one);
        break;
    }
    nodes_.erase(at);
    node->parent = nullptr;
    return node;
}

std::string joined(const std::string& folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (path.empty() || path.back() != '\\') path += '\\';
    path += name;
    return path;
}

}  // namespace tidvane::platform
