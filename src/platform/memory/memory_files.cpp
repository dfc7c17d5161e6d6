#include "platform/memory/memory_files.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/wildcard.h"

namespace tidvane::platform {

using memory::Content;
using memory::Node;
using memory::Volume;

namespace {

constexpr unsigned kSettableAttributes =
    attribute::ReadOnly | attribute::Hidden | attribute::System | attribute::Archive;

std::string keyOf(const WindowsPath& path, std::size_t names) {
    std::string key = base::upperCase(path.root);
    for (std::size_t i = 0; i < names; ++i) key.append("\\").append(base::upperCase(path.names[i]));
    return key;
}

std::string keyOf(const WindowsPath& path) {
    return keyOf(path, path.names.size());
}

std::string keyOf(const std::string& path) {
    WindowsPath parsed;
    return ok(parseWindowsPath(path, parsed)) ? keyOf(parsed) : std::string();
}

std::string childKeyPath(const std::string& folderKey, const std::string& childKey) {
    return folderKey + "\\" + childKey;
}

void keepFirst(Status& first, Status status) {
    if (ok(first)) first = status;
}

Node* childOf(Node& folder, const std::string& key) {
    const auto found = folder.children.find(key);
    return found == folder.children.end() ? nullptr : found->second.get();
}

void addTotals(const Node& entry, FolderTotals& totals) {
    if (!entry.isFolder()) {
        ++totals.files;
        if (entry.kind == EntryKind::File) totals.bytes += entry.content->length;
        return;
    }
    ++totals.folders;
    for (const auto& child : entry.children) addTotals(*child.second, totals);
}

}  // namespace

// --- setting up
// --------------------------------------------------------------------------------------------------------

Volume& MemoryFiles::volumeForSetUp(const std::string& root) {
    Volume& on = volumes_[base::upperCase(root)];
    on.root.kind = EntryKind::Folder;
    return on;
}

Node& MemoryFiles::folderForSetUp(const WindowsPath& path, std::size_t depth) {
    Node* folder = &volumeForSetUp(path.root).root;
    for (std::size_t i = 0; i < depth; ++i) {
        std::unique_ptr<Node>& child = folder->children[base::upperCase(path.names[i])];
        if (!child) {
            child = std::make_unique<Node>();
            child->name = path.names[i];
            child->kind = EntryKind::Folder;
            child->content->times = {timeOfNewEntries, timeOfNewEntries, timeOfNewEntries};
        }
        folder = child.get();
    }
    return *folder;
}

Node& MemoryFiles::entryForSetUp(const std::string& path, EntryKind kind) {
    WindowsPath parsed;
    (void)parseWindowsPath(path, parsed);
    if (parsed.names.empty()) return volumeForSetUp(parsed.root).root;
    Node& folder = folderForSetUp(parsed, parsed.names.size() - 1);
    auto entry = std::make_unique<Node>();
    entry->name = parsed.names.back();
    entry->kind = kind;
    entry->content->times = {timeOfNewEntries, timeOfNewEntries, timeOfNewEntries};
    if (kind != EntryKind::Folder) entry->content->attributes = attributesOfNewFiles;
    std::unique_ptr<Node>& slot = folder.children[base::upperCase(entry->name)];
    slot = std::move(entry);
    return *slot;
}

void MemoryFiles::addDrive(char letter, DriveType type, std::uint64_t freeBytes, std::uint64_t totalBytes) {
    Volume& on = volumeForSetUp({letter, ':'});
    on.type = type;
    on.freeBytes = freeBytes;
    on.totalBytes = totalBytes;
}

void MemoryFiles::putFolder(const std::string& path) {
    WindowsPath parsed;
    if (ok(parseWindowsPath(path, parsed))) (void)folderForSetUp(parsed, parsed.names.size());
}

void MemoryFiles::putFile(const std::string& path, std::string_view bytes) {
    Content& content = *entryForSetUp(path, EntryKind::File).content;
    content.bytes = bytes;
    content.length = bytes.size();
}

void MemoryFiles::putFileOfLength(const std::string& path, std::uint64_t length) {
    entryForSetUp(path, EntryKind::File).content->length = length;
}

void MemoryFiles::putLink(const std::string& path, const std::string& target) {
    const Node* there = peek(target);
    Node& link = entryForSetUp(path, EntryKind::Link);
    link.target = target;
    link.standsForFolder = there != nullptr && there->isFolder();
}

void MemoryFiles::putHardLink(const std::string& path, const std::string& existing) {
    const Node* first = peek(existing);
    if (first == nullptr) return;
    const std::shared_ptr<Content> content = first->content;
    ++content->names;
    entryForSetUp(path, EntryKind::File).content = content;
}

void MemoryFiles::putOther(const std::string& path) {
    (void)entryForSetUp(path, EntryKind::Other);
}

void MemoryFiles::putRawName(const std::string& folder, const std::string& name, std::string_view bytes) {
    putFolder(folder);
    auto entry = std::make_unique<Node>();
    entry->name = name;
    entry->content->bytes = bytes;
    entry->content->length = bytes.size();
    peek(folder)->children[base::upperCase(name)] = std::move(entry);
}

void MemoryFiles::putMountPoint(const std::string& path) {
    putFolder(path);
    peek(path)->mountPoint = true;
}

void MemoryFiles::setAttributes(const std::string& path, unsigned attributes) {
    if (Node* node = peek(path)) node->content->attributes = attributes & kSettableAttributes;
}

void MemoryFiles::setTimes(const std::string& path, const FileTimes& times) {
    if (Node* node = peek(path)) node->content->times = times;
}

void MemoryFiles::setTime(const std::string& path, FileTime time) {
    setTimes(path, {time, time, time});
}

void MemoryFiles::take(const std::string& path) {
    WindowsPath parsed;
    if (!ok(parseWindowsPath(path, parsed))) return;
    const Place place = resolve(parsed);
    if (place.node == nullptr || place.parent == nullptr) return;
    release(place.on, *place.node, false);
    place.parent->children.erase(place.childKey);
}

// --- inspecting
// --------------------------------------------------------------------------------------------------------

Node* MemoryFiles::peek(const std::string& path) const {
    WindowsPath parsed;
    if (!ok(parseWindowsPath(path, parsed))) return nullptr;
    return resolve(parsed).node;
}

bool MemoryFiles::has(const std::string& path) const {
    return peek(path) != nullptr;
}

bool MemoryFiles::hasFolder(const std::string& path) const {
    const Node* node = peek(path);
    return node != nullptr && node->isFolder();
}

bool MemoryFiles::hasRawName(const std::string& folder, const std::string& name) const {
    Node* node = peek(folder);
    return node != nullptr && childOf(*node, base::upperCase(name)) != nullptr;
}

bool MemoryFiles::isLink(const std::string& path) const {
    const Node* node = peek(path);
    return node != nullptr && node->kind == EntryKind::Link;
}

std::optional<std::string> MemoryFiles::bytesOf(const std::string& path) const {
    const Node* node = peek(path);
    if (node == nullptr || node->kind != EntryKind::File) return std::nullopt;
    return node->content->bytes;
}

unsigned MemoryFiles::attributesOf(const std::string& path) const {
    const Node* node = peek(path);
    return node == nullptr ? 0 : attributesOfNode(*node);
}

std::uint64_t MemoryFiles::freeBytes(char letter) const {
    const auto found = volumes_.find(std::string{letter, ':'});
    return found == volumes_.end() ? 0 : found->second.freeBytes;
}

std::vector<std::string> MemoryFiles::everythingBelow(const std::string& folder) const {
    std::vector<std::string> paths;
    const auto collect = [&paths](const auto& self, const Node& node, const std::string& prefix) -> void {
        for (const auto& [key, child] : node.children) {
            paths.push_back(prefix + child->name + (child->isFolder() ? "\\" : ""));
            if (child->isFolder()) self(self, *child, prefix + child->name + "\\");
        }
    };
    if (const Node* node = peek(folder)) collect(collect, *node, base::withBackslash(folder));
    std::sort(paths.begin(), paths.end());
    return paths;
}

// --- faults
// ------------------------------------------------------------------------------------------------------------

void MemoryFiles::refuse(const std::string& path, unsigned operationSet, Status status, unsigned times) {
    refusals_[keyOf(path)].push_back({operationSet, status, times});
}

void MemoryFiles::lock(const std::string& path) {
    refuse(path, operation::Read | operation::Write | operation::Rename | operation::Remove, Status::InUse);
}

void MemoryFiles::deny(const std::string& path) {
    refuse(path, operation::All & ~operation::Look, Status::Denied);
}

void MemoryFiles::allow(const std::string& path) {
    refusals_.erase(keyOf(path));
}

void MemoryFiles::before(const std::string& path, unsigned n, std::function<void()> action) {
    interruptions_[keyOf(path)].push_back({n, std::move(action)});
}

void MemoryFiles::vanishBefore(const std::string& path, unsigned n) {
    before(path, n, [this, path] { take(path); });
}

void MemoryFiles::becomeLinkBefore(const std::string& path, unsigned n, const std::string& target) {
    before(path, n, [this, path, target] {
        take(path);
        putLink(path, target);
    });
}

void MemoryFiles::setDiskFull(char letter, bool full) {
    volumeForSetUp({letter, ':'}).full = full;
}

void MemoryFiles::setReady(char letter, bool ready) {
    volumeForSetUp({letter, ':'}).ready = ready;
}

void MemoryFiles::interrupt(const std::string& key) {
    const auto found = interruptions_.find(key);
    if (found == interruptions_.end()) return;
    std::vector<std::function<void()>> due;
    std::erase_if(found->second, [&due](Interruption& one) {
        if (--one.countdown != 0) return false;
        due.push_back(std::move(one.action));
        return true;
    });
    // Called last: an action may script further faults.
    for (const auto& action : due) action();
}

Status MemoryFiles::refusal(const std::string& key, unsigned operationOfCall) {
    if (refusals_.empty()) return Status::Ok;
    const auto found = refusals_.find(key);
    if (found == refusals_.end()) return Status::Ok;
    for (Refusal& one : found->second) {
        if ((one.operations & operationOfCall) == 0 || one.times == 0) continue;
        if (one.times != ~0u) --one.times;
        return one.status;
    }
    return Status::Ok;
}

// --- finding
// -----------------------------------------------------------------------------------------------------------

MemoryFiles::Place MemoryFiles::resolve(const WindowsPath& path) const {
    Place place;
    place.key = keyOf(path);
    const auto drive = volumes_.find(base::upperCase(path.root));
    if (drive == volumes_.end()) {
        place.status = Status::PathNotFound;
        return place;
    }
    place.on = &drive->second;
    if (!place.on->ready) {
        place.status = Status::NotReady;
        return place;
    }
    Node* node = &place.on->root;
    for (std::size_t i = 0; i < path.names.size(); ++i) {
        const bool last = i + 1 == path.names.size();
        // Neither a file nor a link leads on.
        if (!node->isFolder()) {
            place.status = Status::PathNotFound;
            place.parent = nullptr;
            return place;
        }
        place.parent = last ? node : nullptr;
        const std::string key = base::upperCase(path.names[i]);
        node = childOf(*node, key);
        if (last) {
            place.name = path.names[i];
            place.childKey = key;
        }
        if (node == nullptr) {
            place.status = last ? Status::NotFound : Status::PathNotFound;
            return place;
        }
    }
    place.node = node;
    return place;
}

MemoryFiles::Place MemoryFiles::find(const std::string& path, unsigned operationOfCall, bool trailingBackslashAllowed) {
    ++operations;
    Place place;
    WindowsPath parsed;
    place.status = parseWindowsPath(path, parsed);
    if (!ok(place.status)) return place;
    const bool misspelled = std::any_of(parsed.names.begin(), parsed.names.end(), [](const std::string& name) {
        return base::hasWildcard(name) || name.find(':') != std::string::npos;
    });
    if (misspelled || (parsed.emptyLastPart && !trailingBackslashAllowed)) {
        place.status = Status::InvalidName;
        return place;
    }
    interrupt(keyOf(parsed));
    place = resolve(parsed);
    if (!ok(place.status)) return place;
    if (parsed.emptyLastPart && !place.node->isFolder()) {
        place.status = Status::NotFound;
    } else {
        place.status = refusal(place.key, operationOfCall);
    }
    if (!ok(place.status)) place.node = nullptr;
    return place;
}

// --- looking
// -----------------------------------------------------------------------------------------------------------

Status MemoryFiles::readEntries(const std::string& folder, std::vector<FolderEntry>& out) {
    out.clear();
    const Place place = find(folder, operation::List, true);
    if (!ok(place.status)) return place.status;
    if (!place.node->isFolder()) return Status::Denied;
    ++foldersRead;
    for (const auto& [key, child] : place.node->children) {
        if (isListable(child->name)) out.push_back({child->name, child->kind});
    }
    return Status::Ok;
}

Status MemoryFiles::ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) {
    return readEntries(folder, out);
}

Status MemoryFiles::ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) {
    return readEntries(folder, out);
}

Status MemoryFiles::GetAttributes(const std::string& path, unsigned& attributes) {
    const Place place = find(path, operation::Look, true);
    if (ok(place.status)) attributes = attributesOfNode(*place.node);
    return place.status;
}

Status MemoryFiles::SetAttributes(const std::string& path, unsigned attributes) {
    const Place place = find(path, operation::Attributes, true);
    if (!ok(place.status)) return place.status;
    if (place.node->kind != EntryKind::File && !place.node->isFolder()) return Status::Denied;
    place.node->content->attributes = attributes & kSettableAttributes;
    return Status::Ok;
}

unsigned MemoryFiles::attributesOfNode(const Node& node) {
    unsigned result = node.content->attributes & kSettableAttributes;
    if (node.isFolder()) result |= attribute::Directory;
    if (node.kind == EntryKind::Link) {
        result |= attribute::ReparsePoint;
        if (node.standsForFolder) result |= attribute::Directory;
    }
    return result == 0 ? attribute::Normal : result;
}

EntryDetails MemoryFiles::detailsOf(const Node& node) {
    EntryDetails details;
    details.name = node.name;
    details.kind = node.kind;
    details.readOnly = node.isReadOnly();
    if (node.kind == EntryKind::File) details.length = node.content->length;
    details.names = node.content->names;
    details.content = reinterpret_cast<std::uintptr_t>(node.content.get());
    return details;
}

Status MemoryFiles::LookAt(const std::string& path, EntryDetails& details) {
    const Place place = find(path, operation::Look, true);
    if (ok(place.status)) details = detailsOf(*place.node);
    return place.status;
}

Status MemoryFiles::GetSize(const std::string& path, std::uint64_t& bytes) {
    const Place place = find(path, operation::Look, false);
    if (!ok(place.status)) return place.status;
    if (place.node->isFolder()) return Status::Denied;
    bytes = place.node->kind == EntryKind::File ? place.node->content->length : 0;
    return Status::Ok;
}

Status MemoryFiles::GetFileTimes(const std::string& path, FileTimes& times) {
    const Place place = find(path, operation::Look, false);
    if (!ok(place.status)) return place.status;
    if (place.node->isFolder()) return Status::Denied;
    times = place.node->content->times;
    return Status::Ok;
}

bool MemoryFiles::FileExists(const std::string& path) {
    const Place place = find(path, operation::Look, false);
    return ok(place.status) && !place.node->isFolder() && !place.node->standsForFolder;
}

bool MemoryFiles::FolderExists(const std::string& path) {
    const Place place = find(path, operation::Look, true);
    return ok(place.status) && place.node->isFolder();
}

Status MemoryFiles::measure(const Node& folder, const std::string& folderKey, FolderTotals& totals) {
    if (const Status refused = refusal(folderKey, operation::List); !ok(refused)) return refused;
    for (const auto& [key, child] : folder.children) {
        if (!child->isFolder()) {
            ++totals.files;
            if (child->kind == EntryKind::File) totals.bytes += child->content->length;
            continue;
        }
        ++totals.folders;
        if (child->mountPoint) {
            totals.partial = true;
            continue;
        }
        // Whatever keeps one folder from being read fails the whole in the same way.
        if (!ok(measure(*child, childKeyPath(folderKey, key), totals))) return Status::Denied;
    }
    return Status::Ok;
}

Status MemoryFiles::MeasureFolder(const std::string& folder, FolderTotals& totals) {
    const Place place = find(folder, operation::Look, true);
    if (!ok(place.status)) return place.status;
    if (!place.node->isFolder()) return Status::Denied;
    FolderTotals measured;
    const Status status = measure(*place.node, place.key, measured);
    if (ok(status)) totals = measured;
    return status;
}

// --- removing
// ----------------------------------------------------------------------------------------------------------

bool MemoryFiles::counts(Status status) {
    return status == Status::Denied || status == Status::InUse || status == Status::NotEmpty ||
           status == Status::Failed;
}

Status MemoryFiles::counted(Status status) {
    if (counts(status)) ++counter_.totals.failed;
    return status;
}

// Lets go of an entry with everything in it: its room becomes free unless a further name still leads to it.
void MemoryFiles::release(Volume* on, const Node& entry, bool count) {
    for (const auto& child : entry.children) release(on, *child.second, count);
    if (entry.isFolder()) {
        if (count) ++counter_.totals.folders;
        return;
    }
    const bool lastName = --entry.content->names == 0;
    const std::uint64_t length = entry.kind == EntryKind::File && lastName ? entry.content->length : 0;
    if (on != nullptr) on->freeBytes += length;
    if (!count) return;
    ++counter_.totals.files;
    if (counter_.wantBytes) counter_.totals.bytes += length;
}

// Removes what a place names: a folder with all its content. What cannot go stays, and the rest goes.
Status MemoryFiles::removeEntry(const Place& place, bool force) {
    Status first = refusal(place.key, operation::Remove);
    Node& node = *place.node;
    if (node.isFolder()) {
        if (node.mountPoint) return Status::InUse;
        keepFirst(first, emptyFolder(*place.on, place.key, node, force));
        if (interruptions_.empty() || peek(place.key) == &node) {
            if (ok(first) && !node.children.empty()) first = Status::NotEmpty;
        } else {
            return Status::Ok;  // vanished under the walk
        }
    }
    if (ok(first) && node.isReadOnly() && !force) first = Status::Denied;
    if (!ok(first)) return first;
    release(place.on, node, true);
    place.parent->children.erase(place.childKey);
    return Status::Ok;
}

Status MemoryFiles::emptyFolder(Volume& on, const std::string& folderKey, Node& folder, bool force) {
    if (const Status refused = refusal(folderKey, operation::List); !ok(refused)) return refused;
    std::vector<std::string> keys;
    keys.reserve(folder.children.size());
    for (const auto& child : folder.children) keys.push_back(child.first);
    Status first = Status::Ok;
    for (const std::string& key : keys) {
        Place place;
        place.key = childKeyPath(folderKey, key);
        if (!interruptions_.empty()) {
            interrupt(place.key);
            if (peek(folderKey) != &folder) return first;
        }
        place.on = &on;
        place.parent = &folder;
        place.node = childOf(folder, key);
        place.childKey = key;
        // A link that stands here by now is removed as a link, and what is gone by now is no failure.
        if (place.node != nullptr) keepFirst(first, removeEntry(place, force));
    }
    return first;
}

Status MemoryFiles::RemoveFile(const std::string& file) {
    const Place place = find(file, operation::Remove, false);
    if (!ok(place.status)) return counted(place.status);
    if (place.node->isFolder() || place.node->isReadOnly()) return counted(Status::Denied);
    release(place.on, *place.node, true);
    place.parent->children.erase(place.childKey);
    return Status::Ok;
}

Status MemoryFiles::KillFiles(const std::string& pathOrMask) {
    constexpr unsigned kPassedOver = attribute::Hidden | attribute::System | attribute::Directory;
    WindowsPath path;
    if (const Status status = parseWindowsPath(pathOrMask, path); !ok(status)) return status;
    if (path.emptyLastPart) return Status::InvalidName;
    const std::string mask = path.names.back();
    if (!base::hasWildcard(mask)) {
        const Place place = find(pathOrMask, operation::Look, false);
        if (!ok(place.status)) return place.status;
        if ((attributesOfNode(*place.node) & kPassedOver) != 0) return Status::NotFound;
        return RemoveFile(pathOrMask);
    }
    path.names.pop_back();
    const std::string folder = path.text();
    const Place place = find(folder, operation::List, true);
    // The folder is only the way here: what is missing is part of the way.
    if (place.status == Status::NotFound) return Status::PathNotFound;
    if (!ok(place.status)) return place.status;
    if (!place.node->isFolder()) return Status::PathNotFound;
    std::vector<std::string> names;
    for (const auto& [key, child] : place.node->children) {
        if (!isListable(child->name) || !base::wildcardMatch(mask, child->name)) continue;
        if ((attributesOfNode(*child) & kPassedOver) == 0) names.push_back(child->name);
    }
    Status first = names.empty() ? Status::NotFound : Status::Ok;
    for (const std::string& name : names) {
        const Status status = RemoveFile(base::withBackslash(folder) + name);
        // Gone by itself in the meantime: nobody's failure.
        if (status != Status::NotFound) keepFirst(first, status);
    }
    return first;
}

Status MemoryFiles::RemoveFolder(const std::string& folder) {
    const Place place = find(folder, operation::Remove, false);
    if (!ok(place.status)) return counted(place.status);
    if (!place.node->isFolder() || place.node->isReadOnly()) return counted(Status::Denied);
    if (place.node->mountPoint) return counted(Status::InUse);
    if (!place.node->children.empty()) return counted(Status::NotEmpty);
    release(place.on, *place.node, true);
    place.parent->children.erase(place.childKey);
    return Status::Ok;
}

Status MemoryFiles::DeleteFolder(const std::string& folder, bool force) {
    WindowsPath path;
    if (const Status status = parseWindowsPath(folder, path); !ok(status)) return status;
    if (path.emptyLastPart) return Status::InvalidName;
    const std::string mask = path.names.back();
    if (base::hasWildcard(mask)) {
        path.names.pop_back();
        const Place above = find(path.text(), operation::List, true);
        if (above.status == Status::NotFound) return Status::PathNotFound;
        if (!ok(above.status)) return above.status;
        if (!above.node->isFolder()) return Status::PathNotFound;
        std::vector<std::string> names;
        for (const auto& [key, child] : above.node->children) {
            if (child->isFolder() && isListable(child->name) && base::wildcardMatch(mask, child->name)) {
                names.push_back(child->name);
            }
        }
        Status first = names.empty() ? Status::NotFound : Status::Ok;
        for (const std::string& name : names) {
            keepFirst(first, DeleteFolder(base::withBackslash(path.text()) + name, force));
        }
        return first;
    }
    const Place place = find(folder, 0, false);
    if (!ok(place.status)) return place.status;
    if (place.node->kind == EntryKind::Link) return counted(Status::Denied);
    if (!place.node->isFolder()) return Status::PathNotFound;
    return counted(removeEntry(place, force));
}

// --- overwriting
// -------------------------------------------------------------------------------------------------------

class MemoryFiles::Handle final : public OverwriteHandle {
public:
    Handle(MemoryFiles& files, std::string key, std::shared_ptr<Content> content, std::size_t record)
        : files_(files),
          key_(std::move(key)),
          content_(std::move(content)),
          length_(content_->length),
          record_(record) {}

    [[nodiscard]] std::uint64_t length() const override { return length_; }

    Status write(std::string_view bytes) override {
        if (const Status refused = files_.refusal(key_, operation::Block); !ok(refused)) return refused;
        const bool declared = content_->bytes.size() != content_->length;
        const std::uint64_t end = position_ + bytes.size();
        if (!declared) {
            if (content_->bytes.size() < end) content_->bytes.resize(end);
            content_->bytes.replace(position_, bytes.size(), bytes);
        }
        content_->length = std::max(content_->length, end);
        content_->times.lastWrite = files_.timeOfNewEntries;
        position_ = end;
        Overwritten& record = files_.overwritten[record_];
        record.blocks.push_back(bytes.size());
        if (!declared) record.bytes = content_->bytes;
        return Status::Ok;
    }

private:
    MemoryFiles& files_;
    std::string key_;
    std::shared_ptr<Content> content_;
    std::uint64_t length_;
    std::uint64_t position_ = 0;
    std::size_t record_;
};

Status MemoryFiles::OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) {
    handle.reset();
    const Place place = find(file, operation::Write, false);
    if (!ok(place.status)) return place.status;
    if (place.node->kind != EntryKind::File || place.node->isReadOnly()) return Status::Denied;
    if (place.node->content->names > 1) return Status::Denied;
    overwritten.push_back({file, {}, place.node->content->bytes});
    handle = std::make_unique<Handle>(*this, place.key, place.node->content, overwritten.size() - 1);
    return Status::Ok;
}

// --- changing
// ----------------------------------------------------------------------------------------------------------

Status MemoryFiles::RenameEntry(const std::string& from, const std::string& to) {
    const Place source = find(from, operation::Rename, false);
    if (!ok(source.status)) return source.status;
    WindowsPath path;
    if (const Status status = parseWindowsPath(to, path); !ok(status)) return status;
    if (path.emptyLastPart || !isListable(path) || !isCreatableName(path.names.back())) return Status::InvalidName;
    const Place target = resolve(path);
    if (target.status != Status::NotFound && !ok(target.status)) return target.status;
    // Another volume would be a copy, which nobody asked for.
    if (target.on != source.on) return Status::Failed;
    if (target.node != nullptr && target.node != source.node) return Status::Exists;
    if (base::startsWithNoCase(target.key, source.key + "\\")) return Status::Denied;
    std::unique_ptr<Node> entry = std::move(source.parent->children[source.childKey]);
    source.parent->children.erase(source.childKey);
    entry->name = target.name;
    target.parent->children[target.childKey] = std::move(entry);
    return Status::Ok;
}

Status MemoryFiles::MakeFolder(const std::string& folder) {
    WindowsPath path;
    if (const Status status = parseWindowsPath(folder, path); !ok(status)) return status;
    if (!path.names.empty() && !isCreatableName(path.names.back())) return Status::InvalidName;
    const Place place = find(folder, 0, true);
    if (ok(place.status)) return Status::Exists;
    if (place.status != Status::NotFound) return place.status;
    if (const Status refused = refusal(place.key, operation::Write); !ok(refused)) return refused;
    if (place.on->full) return Status::DiskFull;
    putFolder(folder);
    return Status::Ok;
}

// --- whole files
// -------------------------------------------------------------------------------------------------------

Status MemoryFiles::ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit) {
    bytes.clear();
    const Place place = find(file, operation::Read, false);
    if (!ok(place.status)) return place.status;
    if (place.node->kind != EntryKind::File) return Status::Denied;
    const Content& content = *place.node->content;
    const std::uint64_t length = std::min(limit, content.length);
    bytes = content.bytes.substr(0, length);
    bytes.resize(length, ' ');
    return Status::Ok;
}

Status MemoryFiles::replaceContent(const std::string& file, std::string_view bytes, std::uint64_t length) {
    WindowsPath path;
    if (const Status status = parseWindowsPath(file, path); !ok(status)) return status;
    if (path.emptyLastPart || !isCreatableName(path.names.back())) return Status::InvalidName;
    const Place place = find(file, operation::Write, false);
    if (place.status == Status::NotFound) {
        if (const Status refused = refusal(place.key, operation::Write); !ok(refused)) return refused;
    } else if (!ok(place.status)) {
        return place.status;
    } else if (place.node->kind != EntryKind::File || place.node->isReadOnly()) {
        return Status::Denied;
    }
    // Old and new stand side by side for a moment, as with every replacement as a whole.
    if (place.on->full || length > place.on->freeBytes) return Status::DiskFull;
    auto content = std::make_shared<Content>();
    content->bytes = bytes;
    content->length = length;
    content->attributes = attributesOfNewFiles;
    content->times = {timeOfNewEntries, timeOfNewEntries, timeOfNewEntries};
    if (place.node != nullptr) {
        Content& old = *place.node->content;
        content->attributes = old.attributes;
        content->times.creation = old.times.creation;
        if (--old.names == 0) place.on->freeBytes += old.length;
        place.node->content = std::move(content);
    } else {
        entryForSetUp(file, EntryKind::File).content = std::move(content);
    }
    place.on->freeBytes -= length;
    return Status::Ok;
}

Status MemoryFiles::WriteFileBytes(const std::string& file, std::string_view bytes) {
    return replaceContent(file, bytes, bytes.size());
}

Status MemoryFiles::CopyFileBytes(const std::string& from, const std::string& to) {
    const Place source = find(from, operation::Read, false);
    if (!ok(source.status)) return source.status;
    if (source.node->kind != EntryKind::File) return Status::Denied;
    const std::shared_ptr<Content> content = source.node->content;
    if (const Node* target = peek(to); target != nullptr && target->content == content) return Status::InUse;
    return replaceContent(to, content->bytes, content->length);
}

// --- drives
// ------------------------------------------------------------------------------------------------------------

std::vector<Drive> MemoryFiles::Drives() {
    std::vector<Drive> drives;
    for (const auto& [root, on] : volumes_) {
        if (root.size() == 2) drives.push_back({root[0], on.type});
    }
    return drives;
}

Status MemoryFiles::GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                                        std::uint64_t& totalBytes) {
    const bool driveAlone = folder.size() == 2 && folder[1] == ':';
    const Place place = find(driveAlone ? folder + "\\" : folder, operation::Look, true);
    // A drive that is not there is itself what was asked for.
    if (place.on == nullptr && place.status == Status::PathNotFound) return Status::NotFound;
    if (!ok(place.status)) return place.status;
    freeBytes = place.on->freeBytes;
    totalBytes = place.on->totalBytes;
    return Status::Ok;
}

// --- for the recycle bin
// -----------------------------------------------------------------------------------------------

Status MemoryFiles::checkMovable(const Node& entry, const std::string& key) {
    if (const Status refused = refusal(key, operation::Remove | operation::List); !ok(refused)) return refused;
    for (const auto& [childKey, child] : entry.children) {
        if (const Status status = checkMovable(*child, childKeyPath(key, childKey)); !ok(status)) return status;
    }
    return Status::Ok;
}

Status MemoryFiles::moveOut(const std::string& path, std::unique_ptr<Node>& entry) {
    const Place place = find(path, 0, false);
    if (!ok(place.status)) return place.status;
    if (const Status status = checkMovable(*place.node, place.key); !ok(status)) return counted(status);
    entry = std::move(place.parent->children[place.childKey]);
    place.parent->children.erase(place.childKey);
    const FolderTotals totals = totalsOf(*entry);
    counter_.totals.files += totals.files;
    counter_.totals.folders += totals.folders;
    if (counter_.wantBytes) counter_.totals.bytes += totals.bytes;
    return Status::Ok;
}

void MemoryFiles::dropMovedOut(const std::string& originalPath, std::unique_ptr<Node> entry) {
    WindowsPath path;
    (void)parseWindowsPath(originalPath, path);
    const auto found = volumes_.find(base::upperCase(path.root));
    release(found == volumes_.end() ? nullptr : &found->second, *entry, true);
}

FolderTotals MemoryFiles::totalsOf(const Node& entry) {
    FolderTotals totals;
    addTotals(entry, totals);
    return totals;
}

DriveType MemoryFiles::driveType(const std::string& path) const {
    WindowsPath parsed;
    if (!ok(parseWindowsPath(path, parsed))) return DriveType::Unknown;
    const auto found = volumes_.find(base::upperCase(parsed.root));
    return found == volumes_.end() ? DriveType::Unknown : found->second.type;
}

}  // namespace tidvane::platform
