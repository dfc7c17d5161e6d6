#include "platform/preview/preview_file_system.h"

#include <algorithm>

#include "base/text.h"

namespace tidvane::platform {

namespace {

constexpr unsigned kSettable = attribute::ReadOnly | attribute::Hidden | attribute::System | attribute::Archive;

// As long as the files below take a name that was just removed to be gone under every spelling.
constexpr std::chrono::milliseconds kJustGone{2};

bool isPlainName(std::string_view name) {
    return name.find_first_of("\\/") == std::string_view::npos &&
           name.find_first_not_of(" .") != std::string_view::npos;
}

}  // namespace

PreviewFileSystem::PreviewFileSystem(FilesWithRehearsal& files, RemovalCounter& counter, std::function<FileTime()> now)
    : files_(files), counter_(counter), now_(std::move(now)) {}

// --- finding ---------------------------------------------------------------------------------------------------------

// The usual case in a burst: another name in the folder of the question before.
bool PreviewFileSystem::findNearby(const std::string& path, Spot& spot) {
    const std::size_t cut = lastFolder_.size();
    if (!lastPlace_ || path.size() < cut + 2 || path[cut] != '\\' || path.compare(0, cut, lastFolder_) != 0)
        return false;
    const std::string_view name = std::string_view(path).substr(cut + 1);
    if (!isPlainName(name)) return false;
    spot.folder = *lastPlace_;
    spot.name = name;
    return true;
}

PreviewFileSystem::Spot PreviewFileSystem::find(const std::string& path, Ending ending) {
    Spot spot;
    spot.path = path;
    bool folderMeant = false;
    if (!findNearby(path, spot)) {
        WindowsPath parsed;
        spot.status = parseWindowsPath(path, parsed);
        if (!ok(spot.status)) return spot;
        folderMeant = parsed.emptyLastPart;
        if (folderMeant && ending == Ending::Name) {
            spot.status = Status::InvalidName;
            return spot;
        }
        if (parsed.names.empty()) {
            const Place top = placeOf(parsed, 0);
            spot.root = true;
            spot.node = top.node;
            spot.below = top.below;
            return spot;
        }
        spot.folder = placeOf(parsed, parsed.names.size() - 1);
        spot.status = spot.folder.status == Status::NotFound ? Status::PathNotFound : spot.folder.status;
        if (!ok(spot.status)) {
            // A name that no file can have is refused before anything is looked for.
            if (!isListable(parsed)) spot.status = Status::InvalidName;
            return spot;
        }
        spot.name = parsed.names.back();
        if (!folderMeant && parsed.text() == path) {
            lastFolder_ = path.substr(0, path.size() - spot.name.size() - 1);
            lastPlace_ = spot.folder;
        }
    }
    Place last = step(spot.folder, spot.name);
    spot.status = last.status;
    spot.node = last.node;
    spot.below = std::move(last.below);
    if (ok(spot.status) && folderMeant) {
        if (spot.node == nullptr) {
            spot.below += '\\';  // the files below look at the end of the path as well
        } else if (!spot.node->isFolder()) {
            spot.status = Status::NotFound;
        }
    }
    return spot;
}

PreviewFileSystem::Place PreviewFileSystem::placeOf(const WindowsPath& path, std::size_t depth) {
    Place place;
    place.below = path.root + "\\";
    if (const auto root = roots_.find(base::upperCase(path.root)); root != roots_.end())
        place.node = root->second.get();
    for (std::size_t i = 0; i < depth; ++i) {
        place = step(place, path.names[i]);
        if (!ok(place.status)) {
            if (place.status == Status::NotFound && i + 1 < depth) place.status = Status::PathNotFound;
            return place;
        }
        if (place.node != nullptr && !place.node->isFolder()) {
            place.status = Status::PathNotFound;
            return place;
        }
    }
    return place;
}

PreviewFileSystem::Place PreviewFileSystem::step(const Place& folder, const std::string& name) {
    if (folder.node == nullptr) return {Status::Ok, nullptr, joined(folder.below, name)};
    PreviewNode& node = *folder.node;
    if (PreviewNode* child = node.find(name)) return {Status::Ok, child, child->below};
    if (node.below.empty() || node.isGone(name)) return otherSpelling(folder, name);
    if (node.left() != nullptr || (node.isWhole() && node.findFolded(name) == nullptr))
        return {Status::Ok, nullptr, joined(node.below, name)};
    // Something of another spelling may be meant, and that may be gone.
    EntryDetails details;
    const std::string below = joined(node.below, name);
    const Status status = files_.LookAt(below, details);
    if (status == Status::NotFound) return otherSpelling(folder, name);
    if (!ok(status)) return {status, nullptr, {}};
    if (details.name == name) return {Status::Ok, nullptr, below};
    if (PreviewNode* child = node.find(details.name); child != nullptr && !child->own)
        return {Status::Ok, child, child->below};
    if (node.isGone(details.name)) return otherSpelling(folder, name);
    return {Status::Ok, nullptr, joined(node.below, details.name)};
}

PreviewFileSystem::Place PreviewFileSystem::otherSpelling(const Place& folder, const std::string& name) {
    PreviewNode& node = *folder.node;
    if (!isListable(name)) return {Status::InvalidName, nullptr, {}};
    if (PreviewNode* child = node.findFolded(name)) return {Status::Ok, child, child->below};
    const auto same = [&](const std::string& other) {
        return other != name && base::equalNoCase(other, name) && !node.isGone(other);
    };
    if (const PreviewNode::Names* left = node.left()) {
        const auto at = std::find_if(left->begin(), left->end(), same);
        if (at != left->end()) return {Status::Ok, nullptr, joined(node.below, *at)};
    } else if (!node.below.empty()) {
        findTwins(node);
        const auto at = std::find_if(node.twins->begin(), node.twins->end(), same);
        const bool justGone = lastGone_.folder == &node && lastGone_.name == name &&
                              std::chrono::steady_clock::now() - lastGone_.when <= kJustGone;
        if (at != node.twins->end() && !justGone) return {Status::Ok, nullptr, joined(node.below, *at)};
    }
    return {Status::NotFound, nullptr, {}};
}

void PreviewFileSystem::findTwins(PreviewNode& folder) {
    if (folder.twins) return;
    folder.twins.emplace();
    std::vector<FolderEntry> entries;
    (void)files_.ReadFolder(folder.below, entries);
    std::unordered_map<std::string, std::size_t> seen;
    seen.reserve(entries.size());
    constexpr std::size_t kTold = static_cast<std::size_t>(-1);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto [at, first] = seen.emplace(base::upperCase(entries[i].name), i);
        if (first) continue;
        if (at->second != kTold) folder.twins->push_back(entries[at->second].name);
        at->second = kTold;
        folder.twins->push_back(entries[i].name);
    }
}

std::optional<unsigned> PreviewFileSystem::sharedAttributes(const EntryDetails& details) const {
    if (shared_.empty() || details.names < 2) return std::nullopt;
    const auto set = shared_.find({details.volume, details.content});
    return set == shared_.end() ? std::nullopt : std::optional<unsigned>(set->second);
}

std::optional<unsigned> PreviewFileSystem::sharedAttributes(const std::string& below) {
    EntryDetails details;
    if (shared_.empty() || below.empty() || !ok(files_.LookAt(below, details))) return std::nullopt;
    return sharedAttributes(details);
}

Circumstances PreviewFileSystem::around(const Spot& spot) {
    Circumstances now;
    if (spot.node != nullptr) now.readOnly = spot.node->readOnly();
    if (!now.readOnly && (spot.node == nullptr || !spot.node->content)) {
        if (const auto shared = sharedAttributes(spot.below)) now.readOnly = (*shared & attribute::ReadOnly) != 0;
    }
    if (spot.folder.node != nullptr) now.folderReadOnly = spot.folder.node->readOnly();
    return now;
}

// --- looking ---------------------------------------------------------------------------------------------------------

Status PreviewFileSystem::detailsOf(const PreviewNode& node, EntryDetails& details) {
    EntryDetails found;
    if (!node.below.empty() && !node.content) {
        if (const Status status = files_.LookAt(node.below, found); !ok(status)) return status;
    }
    if (const auto shared = sharedAttributes(found)) found.readOnly = (*shared & attribute::ReadOnly) != 0;
    found.name = node.parent == nullptr ? std::string() : node.name;
    found.kind = node.kind;
    found.readOnly = node.readOnly().value_or(found.readOnly);
    if (node.content) found.length = node.content->length;
    details = std::move(found);
    return Status::Ok;
}

Status PreviewFileSystem::look(const Spot& spot, EntryDetails& details) {
    if (!ok(spot.status)) return spot.status;
    const Status status = spot.node != nullptr ? detailsOf(*spot.node, details) : files_.LookAt(spot.below, details);
    if (const auto shared = sharedAttributes(details); spot.node == nullptr && shared)
        details.readOnly = (*shared & attribute::ReadOnly) != 0;
    if (ok(status) && details.names > 1) {
        const auto gone = namesGone_.find({details.volume, details.content});
        if (gone != namesGone_.end()) details.names -= std::min(gone->second, details.names - 1);
    }
    return status;
}

unsigned PreviewFileSystem::seen(const std::string& below, unsigned attributes) {
    if (const auto shared = sharedAttributes(below)) return *shared == 0 ? attribute::Normal : *shared;
    constexpr unsigned kFolderLink = attribute::ReparsePoint | attribute::Directory;
    if ((attributes & kFolderLink) != kFolderLink || roots_.empty()) return attributes;
    const std::string target = files_.TargetOfLink(below);
    return target.empty() || FolderExists(target) ? attributes : attributes & ~attribute::Directory;
}

unsigned PreviewFileSystem::attributesOf(const PreviewNode& node) {
    unsigned attributes = node.isFolder() ? attribute::Directory : attribute::Normal;
    if (node.attributes) {
        attributes = *node.attributes | (node.isFolder() ? attribute::Directory : 0u);
        return attributes == 0 ? attribute::Normal : attributes;
    }
    if (node.below.empty() || !ok(files_.GetAttributes(node.below, attributes)) || node.content) return attributes;
    return seen(node.below, attributes);
}

Status PreviewFileSystem::readEntries(const std::string& folder, std::vector<FolderEntry>& out, bool toEmpty) {
    out.clear();
    const Spot spot = find(folder, Ending::Folder);
    if (!ok(spot.status)) return spot.status;
    const auto readBelow = [&](const std::string& path) {
        return toEmpty ? files_.ReadFolderToEmpty(path, out) : files_.ReadFolder(path, out);
    };
    if (spot.node == nullptr) return readBelow(spot.below);
    const PreviewNode& node = *spot.node;
    if (!node.isFolder()) return Status::Denied;
    if (!node.below.empty()) {
        if (const Status status = readBelow(node.below); !ok(status)) return status;
        if (!node.isWhole()) std::erase_if(out, [&](const FolderEntry& entry) { return node.isGone(entry.name); });
    }
    for (const auto& [name, child] : node.nodes()) {
        if (child->own) out.push_back({name, child->kind});
    }
    return Status::Ok;
}

Status PreviewFileSystem::ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) {
    return readEntries(folder, out, false);
}

Status PreviewFileSystem::ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) {
    return readEntries(folder, out, true);
}

Status PreviewFileSystem::GetAttributes(const std::string& path, unsigned& attributes) {
    const Spot spot = find(path, Ending::Folder);
    if (!ok(spot.status)) return spot.status;
    if (spot.node != nullptr) {
        attributes = attributesOf(*spot.node);
        return Status::Ok;
    }
    const Status status = files_.GetAttributes(spot.below, attributes);
    if (ok(status)) attributes = seen(spot.below, attributes);
    return status;
}

Status PreviewFileSystem::SetAttributes(const std::string& path, unsigned attributes) {
    Spot spot = find(path, Ending::Folder);
    EntryDetails details;
    if (const Status status = look(spot, details); !ok(status)) return status;
    unsigned wanted = attributes & kSettable;
    if (spot.root) return files_.RehearseSetAttributes(spot.below, attributes, {}, wanted);
    if (details.kind != EntryKind::File && details.kind != EntryKind::Folder) return Status::Denied;
    if (!spot.below.empty()) {
        const Status status = files_.RehearseSetAttributes(spot.below, attributes, around(spot), wanted);
        if (!ok(status)) return status;
    }
    unsigned present = 0;
    if (spot.node != nullptr) {
        present = attributesOf(*spot.node);
    } else if (const Status status = GetAttributes(path, present); !ok(status)) {
        return status;
    }
    if ((present & kSettable) == wanted) return Status::Ok;
    EntryDetails onDisk;
    const bool written = spot.node != nullptr && spot.node->content;
    if (!written && !spot.below.empty() && ok(files_.LookAt(spot.below, onDisk)) && onDisk.kind == EntryKind::File &&
        onDisk.names > 1) {
        shared_[{onDisk.volume, onDisk.content}] = wanted;
        measured_ = {};
    } else {
        entryNode(spot, details).attributes = wanted;
    }
    return Status::Ok;
}

Status PreviewFileSystem::LookAt(const std::string& path, EntryDetails& details) {
    return look(find(path, Ending::Folder), details);
}

Status PreviewFileSystem::GetSize(const std::string& path, std::uint64_t& bytes) {
    const Spot spot = find(path, Ending::Name);
    if (!ok(spot.status)) return spot.status;
    if (spot.node == nullptr) return files_.GetSize(spot.below, bytes);
    if (spot.node->isFolder()) return Status::Denied;
    EntryDetails details;
    const Status status = detailsOf(*spot.node, details);
    if (ok(status)) bytes = details.length;
    return status;
}

Status PreviewFileSystem::GetFileTimes(const std::string& path, FileTimes& times) {
    const Spot spot = find(path, Ending::Name);
    if (!ok(spot.status)) return spot.status;
    if (spot.node == nullptr) return files_.GetFileTimes(spot.below, times);
    if (spot.node->isFolder()) return Status::Denied;
    if (!spot.node->content) return files_.GetFileTimes(spot.node->below, times);
    times = spot.node->content->times;
    return Status::Ok;
}

bool PreviewFileSystem::FileExists(const std::string& path) {
    const Spot spot = find(path, Ending::Name);
    if (!ok(spot.status)) return false;
    if (spot.node != nullptr && (spot.node->isFolder() || spot.node->content)) return !spot.node->isFolder();
    unsigned attributes = 0;
    if (!ok(files_.GetAttributes(spot.below, attributes))) return false;
    return (seen(spot.below, attributes) & attribute::Directory) == 0;
}

bool PreviewFileSystem::FolderExists(const std::string& path) {
    const Spot spot = find(path, Ending::Folder);
    if (!ok(spot.status)) return false;
    return spot.node != nullptr ? spot.node->isFolder() : files_.FolderExists(spot.below);
}

Status PreviewFileSystem::GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                                              std::uint64_t& totalBytes) {
    const Spot spot = find(folder, Ending::Folder);
    // A drive alone, "C:", is no path for any other operation.
    if (spot.status == Status::PathNotFound) return files_.GetDiskFreeSpaceExA(folder, freeBytes, totalBytes);
    if (!ok(spot.status)) return spot.status;
    if (!spot.below.empty()) return files_.GetDiskFreeSpaceExA(spot.below, freeBytes, totalBytes);
    WindowsPath parsed;
    (void)parseWindowsPath(folder, parsed);
    return files_.GetDiskFreeSpaceExA(parsed.root + "\\", freeBytes, totalBytes);
}

// --- remembering -----------------------------------------------------------------------------------------------------

PreviewNode& PreviewFileSystem::folderNode(Spot& spot) {
    if (spot.folder.node != nullptr) return *spot.folder.node;
    WindowsPath path;
    (void)parseWindowsPath(spot.path, path);
    std::unique_ptr<PreviewNode>& root = roots_[base::upperCase(path.root)];
    if (root == nullptr) root = std::make_unique<PreviewNode>(path.root, EntryKind::Folder, path.root + "\\");
    PreviewNode* node = root.get();
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i) {
        const Place next = step({Status::Ok, node, node->below}, path.names[i]);
        if (next.node != nullptr) {
            node = next.node;
            continue;
        }
        EntryDetails details;
        (void)files_.LookAt(next.below, details);
        const std::string& spelled = details.name.empty() ? path.names[i] : details.name;
        node = &node->attach(std::make_unique<PreviewNode>(spelled, EntryKind::Folder, joined(node->below, spelled)));
    }
    forgetPlaces();
    spot.folder.node = node;
    return *node;
}

PreviewNode& PreviewFileSystem::entryNode(Spot& spot, const EntryDetails& details) {
    dropMeasured(spot.below);
    if (spot.node != nullptr) return *spot.node;
    PreviewNode& folder = folderNode(spot);
    auto node = std::make_unique<PreviewNode>(details.name, details.kind, joined(folder.below, details.name));
    spot.node = &folder.attach(std::move(node));
    if (spot.node->isFolder()) forgetPlaces();
    return *spot.node;
}

void PreviewFileSystem::markGone(Spot& spot, const std::string& spelled) {
    dropMeasured(spot.below);
    PreviewNode& folder = folderNode(spot);
    const bool own = spot.node != nullptr && spot.node->own;
    if (spot.node != nullptr) (void)folder.detach(spot.node->name);
    spot.node = nullptr;
    if (!own) folder.markGone(spelled);
    lastGone_ = {&folder, spelled, std::chrono::steady_clock::now()};
}

void PreviewFileSystem::dropMeasured(const std::string& below) {
    const std::string& folder = measured_.folder;
    if (folder.empty() || below.empty()) return;
    const bool inside = below.size() > folder.size() && below[folder.size()] == '\\' && below.starts_with(folder);
    if (inside) {
        const std::size_t from = folder.size() + 1;
        measured_.inside.erase(below.substr(from, below.find('\\', from) - from));
    } else if (folder.starts_with(below)) {
        measured_ = {};
    }
}

}  // namespace tidvane::platform
