#include "controls/explorer_bar.h"

#include <algorithm>
#include <utility>

namespace tidvane::controls {

ExplorerBar::ExplorerBar(forms::Form& owner, std::string name)
    : forms::Control(owner, forms::ControlKind::ExplorerBar, std::move(name)) {}

int ExplorerBar::add(ExplorerGroup group) {
    if (groups_.size() >= kLimit) return kFull;
    groups_.push_back(std::move(group));
    viewChanged();
    return static_cast<int>(groups_.size()) - 1;
}

int ExplorerBar::AddNormalGroup(const std::string& title, const std::string& icon, const std::string& tag) {
    return add({GroupKind::Normal, title, icon, tag, {}, true, {}});
}

int ExplorerBar::AddSpecialGroup(const std::string& title, const std::string& icon, const std::string& tag) {
    return add({GroupKind::Special, title, icon, tag, {}, true, {}});
}

int ExplorerBar::AddDetailGroup(const std::string& title, const std::string& caption) {
    const bool exists = std::any_of(groups_.begin(), groups_.end(),
                                    [](const ExplorerGroup& group) { return group.kind == GroupKind::Detail; });
    if (exists) return kDetailGroupExists;
    return add({GroupKind::Detail, title, {}, {}, caption, true, {}});
}

int ExplorerBar::AddItem(int group, const std::string& caption, const std::string& icon, const std::string& tag) {
    if (group < 0 || group >= static_cast<int>(groups_.size())) return kNoSuchGroup;
    ExplorerGroup& target = groups_[static_cast<std::size_t>(group)];
    if (target.kind == GroupKind::Detail) return kDetailGroupTakesNoItems;
    if (target.items.size() >= kLimit) return kFull;
    target.items.push_back({caption, icon, tag});
    viewChanged();
    return static_cast<int>(target.items.size()) - 1;
}

void ExplorerBar::DeleteAllGroups() {
    groups_.clear();
    viewChanged();
}

void ExplorerBar::setColour(const std::string& property, unsigned value) {
    colours_[property] = value;
    viewChanged();
}

unsigned ExplorerBar::colour(const std::string& property) const {
    const auto found = colours_.find(property);
    return found == colours_.end() ? 0xFFFFFFFFu : found->second;
}

void ExplorerBar::clickItem(int group, int item) {
    ItemClick(group, item);
}

}  // namespace tidvane::controls
