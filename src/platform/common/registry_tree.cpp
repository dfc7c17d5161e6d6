#include "platform/common/registry_tree.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "platform/common/utf16.h"

namespace tidvane::platform {

namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Compares without building folded copies where all is ASCII, which names nearly always are.
bool sameName(std::string_view a, std::string_view b) {
    if (isAscii(a) && isAscii(b)) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
        return a.size() == b.size() &&
               std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return lower(x) == lower(y); });
    }
    return foldedName(a) == foldedName(b);
}

}  // namespace

std::string foldedName(std::string_view name) {
    if (!isAscii(name)) return base::lowerCase(base::upperCase(name));
    // Lower case, not upper: "_" sorts before the letters.
    std::string folded(name);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    }
    return folded;
}

std::vector<std::string_view> keyPathParts(std::string_view path) {
    path = path.substr(0, path.find('\0'));
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) parts.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

RegistryKey::RegistryKey(std::string name) : name_(std::move(name)), folded_(foldedName(name_)) {}

std::size_t RegistryKey::depth() const {
    std::size_t levels = 0;
    for (const RegistryKey* key = parent_; key != nullptr; key = key->parent_) ++levels;
    return levels;
}

std::size_t RegistryKey::position(std::string_view folded) const {
    // Files list their keys nearly sorted, so the new one mostly belongs at the end.
    if (children_.empty() || children_.back()->folded_ < folded) return children_.size();
    const auto at =
        std::lower_bound(children_.begin(), children_.end(), folded,
                         [](const RegistryKeyPtr& key, std::string_view wanted) { return key->folded_ < wanted; });
    return static_cast<std::size_t>(at - children_.begin());
}

RegistryKeyPtr RegistryKey::find(std::string_view childName) const {
    const std::string folded = foldedName(childName);
    const std::size_t at = position(folded);
    return at < children_.size() && children_[at]->folded_ == folded ? children_[at] : nullptr;
}

RegistryKeyPtr RegistryKey::findOrAdd(std::string_view childName) {
    auto child = std::make_shared<RegistryKey>(std::string(childName));
    const std::size_t at = position(child->folded_);
    if (at < children_.size() && children_[at]->folded_ == child->folded_) return children_[at];
    child->parent_ = this;
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(at), child);
    return child;
}

RegistryKeyPtr RegistryKey::appendRead(std::string childName) {
    auto child = std::make_shared<RegistryKey>(std::move(childName));
    child->parent_ = this;
    children_.push_back(child);
    return child;
}

void RegistryKey::sortChildren() {
    std::sort(children_.begin(), children_.end(),
              [](const RegistryKeyPtr& a, const RegistryKeyPtr& b) { return a->folded_ < b->folded_; });
}

void RegistryKey::fillFrom(const RegistryKey& other) {
    isRoot = other.isRoot;
    isLink = other.isLink;
    denied = other.denied;
    values_ = other.values_;
    children_.reserve(other.children_.size());
    for (const RegistryKeyPtr& child : other.children_) appendRead(child->name_)->fillFrom(*child);
}

void RegistryKey::attach(RegistryKeyPtr child, std::string childName) {
    child->name_ = std::move(childName);
    child->folded_ = foldedName(child->name_);
    child->parent_ = this;
    const std::size_t at = position(child->folded_);
    if (at < children_.size() && children_[at]->folded_ == child->folded_) {
        children_[at]->markDeleted();
        children_[at] = std::move(child);
    } else {
        children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(at), std::move(child));
    }
}

void RegistryKey::remove() {
    if (parent_ == nullptr) return;
    markChanged();
    markDeleted();
    RegistryKey* const above = std::exchange(parent_, nullptr);
    const std::size_t at = above->position(folded_);
    above->children_.erase(above->children_.begin() + static_cast<std::ptrdiff_t>(at));  // may end this object
}

void RegistryKey::markDeleted() {
    deleted = true;
    for (const RegistryKeyPtr& child : children_) child->markDeleted();
}

const RegistryValue* RegistryKey::findValue(std::string_view valueName) const {
    const auto at = std::find_if(values_.begin(), values_.end(),
                                 [&](const RegistryValue& value) { return sameName(value.name, valueName); });
    return at == values_.end() ? nullptr : &*at;
}

void RegistryKey::set(std::string_view valueName, std::uint32_t type, std::string data) {
    const auto at = std::find_if(values_.begin(), values_.end(),
                                 [&](const RegistryValue& value) { return sameName(value.name, valueName); });
    if (at == values_.end()) {
        values_.push_back({std::string(valueName), type, std::move(data), 0, true});
    } else {
        if (at->type == type && at->data == data) return;
        at->type = type;
        at->data = std::move(data);
        at->changed = true;
    }
    markChanged();
}

void RegistryKey::setText(std::string_view valueName, std::string_view text, std::uint32_t type) {
    std::string data = utf16leFromUtf8(text);
    data.append(2, '\0');
    set(valueName, type, std::move(data));
}

bool RegistryKey::removeValue(std::string_view valueName) {
    const auto at = std::find_if(values_.begin(), values_.end(),
                                 [&](const RegistryValue& value) { return sameName(value.name, valueName); });
    if (at == values_.end()) return false;
    values_.erase(at);
    markChanged();
    return true;
}

void RegistryKey::markChanged() {
    RegistryKey* key = this;
    while (!key->isRoot && key->parent_ != nullptr) key = key->parent_;
    key->changed = true;
}

RegistryTree::RegistryTree(std::string userSid) : userSid_(std::move(userSid)), root_(std::make_shared<RegistryKey>()) {
    root_->isRoot = true;
    refresh();
}

void RegistryTree::refresh() {
    machine_ = root_->findOrAdd("Machine");
    users_ = root_->findOrAdd("User");
    currentUser_ = users_->findOrAdd(userSid_);
    machine_->isRoot = users_->isRoot = currentUser_->isRoot = true;
}

void RegistryTree::mount(std::string_view path, const RegistryKeyPtr& fileRoot) {
    std::vector<std::string_view> parts = keyPathParts(path);
    if (parts.empty()) return;
    RegistryKeyPtr key = root_;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) key = key->findOrAdd(parts[i]);
    fileRoot->isRoot = true;
    key->attach(fileRoot, std::string(parts.back()));
    refresh();
}

RegistryTree RegistryTree::copy() const {
    RegistryTree same(userSid_);
    same.root_ = std::make_shared<RegistryKey>();
    same.root_->fillFrom(*root_);
    same.refresh();
    return same;
}

RegistryKeyPtr RegistryTree::find(std::string_view path) {
    RegistryKeyPtr key = root_;
    for (const std::string_view part : keyPathParts(path)) {
        key = key->find(part);
        if (!key) return nullptr;
    }
    return key;
}

RegistryKeyPtr RegistryTree::make(std::string_view path) {
    RegistryKeyPtr key = root_;
    for (const std::string_view part : keyPathParts(path)) {
        RegistryKeyPtr child = key->find(part);
        if (!child) {
            child = key->findOrAdd(part);
            child->markChanged();
        }
        key = std::move(child);
    }
    return key;
}

}  // namespace tidvane::platform
