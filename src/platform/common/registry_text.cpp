#include "platform/common/registry_text.h"

#include <algorithm>
#include <utility>

#include "platform/common/registry_text_reader.h"
#include "platform/common/registry_text_values.h"

namespace tidvane::platform {

namespace {

// FILETIME counts from 1601.
constexpr std::uint64_t kSecondsTo1970 = 11644473600;
constexpr std::uint64_t kStepsPerSecond = 10000000;

void writeNewValues(const RegistryKey& key, std::string& out) {
    for (const RegistryValue& value : key.values()) {
        if (value.origin == 0) appendValueLine(out, value);
    }
}

bool isBlank(std::string_view line) {
    return line == "\n" || line == "\r\n";
}

}  // namespace

// What of the file is still there.
struct RegistryTextFile::Living {
    std::vector<const RegistryKey*> keys;                             // by origin
    std::vector<const RegistryValue*> values;                         // by origin
    std::vector<std::pair<std::string, const RegistryKey*>> newKeys;  // path in the file's form
    std::string path;
};

RegistryTextFile::RegistryTextFile() {
    create("Machine", "");
}

void RegistryTextFile::clear() {
    source_.clear();
    prolog_ = {};
    place_.clear();
    architecture_.clear();
    sections_.clear();
    items_.clear();
    keys_ = 0;
    root_ = std::make_shared<RegistryKey>();
    root_->isRoot = true;
}

void RegistryTextFile::create(std::string_view place, std::string_view architecture) {
    clear();
    place_ = place;
    architecture_ = architecture;
    source_ = std::string(kRegistryTextMark) + "\n;; All keys relative to \\\\";
    appendEscaped(source_, place, "");
    source_ += "\n";
    if (!architecture.empty()) source_ += "\n#arch=" + architecture_ + "\n";
    prolog_ = source_;
}

bool RegistryTextFile::read(std::string bytes, RegistryTextError& error) {
    clear();
    source_ = std::move(bytes);
    if (RegistryTextReader(*this).read(error)) return true;
    clear();
    return false;
}

void RegistryTextFile::collect(const RegistryKey& key, Living& living) const {
    for (const RegistryValue& value : key.values()) {
        if (value.origin != 0) living.values[value.origin] = &value;
    }
    const auto& children = key.children();
    // The top of another file stands in that file.
    const bool isLeaf = std::all_of(children.begin(), children.end(), [](const auto& child) { return child->isRoot; });
    if (key.origin != 0) {
        living.keys[key.origin] = &key;
    } else if (!key.values().empty() || (isLeaf && &key != root_.get())) {
        // Keys on the way to others need no section of their own.
        living.newKeys.emplace_back(living.path, &key);
    }
    for (const RegistryKeyPtr& child : children) {
        if (child->isRoot) continue;
        const std::size_t length = living.path.size();
        if (length > 0) living.path += "\\\\";
        appendEscaped(living.path, child->name(), "[]");
        collect(*child, living);
        living.path.resize(length);
    }
}

void RegistryTextFile::writeSection(std::size_t number, const Living& living, std::string& out) const {
    const Section& section = sections_[number];
    const RegistryKey* const key = living.keys[section.key];
    if (key == nullptr) return;
    const std::size_t end = number + 1 < sections_.size() ? sections_[number + 1].firstItem : items_.size();
    std::size_t bodyEnd = end;
    while (bodyEnd > section.firstItem && isBlank(items_[bodyEnd - 1].text)) --bodyEnd;

    out += section.head;
    for (std::size_t i = section.firstItem; i < end; ++i) {
        if (i == bodyEnd && section.lastOfKey) writeNewValues(*key, out);
        const Item& item = items_[i];
        if (!item.isValue) {
            out += item.text;
            continue;
        }
        std::size_t last = i;
        while (items_[last].later != 0) last = items_[last].later;
        const RegistryValue* const value = living.values[last + 1];
        if (value == nullptr) continue;
        if (!value->changed) {
            out += item.text;
        } else if (last == i) {
            appendValueLine(out, *value);
        }
    }
    if (bodyEnd == end && section.lastOfKey) writeNewValues(*key, out);
}

std::string RegistryTextFile::serialize(std::uint64_t now) const {
    Living living;
    living.keys.resize(keys_ + 1);
    living.values.resize(items_.size() + 1);
    collect(*root_, living);

    std::string out;
    out.reserve(source_.size());
    out += prolog_;
    for (std::size_t i = 0; i < sections_.size(); ++i) writeSection(i, living, out);
    for (const auto& [path, key] : living.newKeys) {
        out += "\n[" + path + "]";
        const std::uint64_t seconds = now / kStepsPerSecond;
        if (now != 0) out += " " + std::to_string(seconds - std::min(seconds, kSecondsTo1970));
        out += "\n";
        if (now != 0) out += "#time=" + hexadecimal(now) + "\n";
        writeNewValues(*key, out);
    }
    return out;
}

}  // namespace tidvane::platform
