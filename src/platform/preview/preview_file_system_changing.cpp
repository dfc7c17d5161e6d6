#include "base/text.h"
#include "platform/preview/preview_file_system.h"

namespace tidvane::platform {

Status PreviewFileSystem::mayCreate(const Spot& spot) {
    if (!isCreatableName(spot.name)) return Status::InvalidName;
    if (spot.folder.node != nullptr && spot.folder.node->below.empty()) return Status::Ok;  // in a folder made here
    return files_.Rehearse(Intent::Create, joined(spot.folder.below, spot.name), around(spot)).status;
}

Status PreviewFileSystem::RenameEntry(const std::string& from, const std::string& to) {
    WindowsPath source;
    WindowsPath target;
    if (const Status status = parseWindowsPath(from, source); !ok(status)) return status;
    if (const Status status = parseWindowsPath(to, target); !ok(status)) return status;
    const auto isPlace = [](const WindowsPath& path) { return !path.names.empty() && isListable(path); };
    if (!isPlace(source) || !isPlace(target) || !isCreatableName(target.names.back())) return Status::InvalidName;

    Spot old = find(from, Ending::Folder);
    EntryDetails details;
    if (const Status status = look(old, details); !ok(status)) return status;
    if (!base::equalNoCase(source.root, target.root)) return Status::Failed;
    if (details.name.empty()) return Status::Denied;  // the program's own folder
    Spot place = find(target.text(), Ending::Name);
    EntryDetails there;
    const Status taken = look(place, there);
    if (!ok(taken) && taken != Status::NotFound) return taken;
    if (ok(taken)) {
        const bool same = old.node != nullptr ? old.node == place.node
                                              : place.node == nullptr && base::equalNoCase(old.below, place.below) &&
                                                    details.name == there.name;
        if (!same) return Status::Exists;
        if (details.name == place.name) return Status::Ok;
    }
    // Into itself.
    if (base::startsWithNoCase(target.text(), source.text() + "\\")) return Status::Denied;
    if (!old.below.empty()) {
        const Status status = files_.Rehearse(Intent::MoveAway, old.below, around(old)).status;
        if (!ok(status)) return status == Status::NotFound ? Status::Failed : status;
    }
    place.node = nullptr;
    if (const Status status = mayCreate(place); !ok(status)) return status;

    PreviewNode& oldFolder = folderNode(old);
    dropMeasured(old.below);
    std::unique_ptr<PreviewNode> moved;
    if (old.node != nullptr) moved = oldFolder.detach(old.node->name);
    if (moved == nullptr)
        moved = std::make_unique<PreviewNode>(details.name, details.kind, joined(oldFolder.below, details.name));
    if (!moved->own) oldFolder.markGone(details.name);
    forgetPlaces();
    // Only now: the way to the new place may lead through nodes that were just made.
    Spot free = find(target.text(), Ending::Name);
    dropMeasured(joined(free.folder.below, free.name));
    moved->own = true;
    moved->name = target.names.back();
    folderNode(free).attach(std::move(moved));
    forgetPlaces();
    return Status::Ok;
}

Status PreviewFileSystem::MakeFolder(const std::string& folder) {
    WindowsPath path;
    if (const Status status = parseWindowsPath(folder, path); !ok(status)) return status;
    if (path.names.empty()) return Status::InvalidName;
    Spot spot = find(path.text(), Ending::Name);
    EntryDetails details;
    const Status there = look(spot, details);
    if (ok(there)) return Status::Exists;
    if (there != Status::NotFound) return there;
    if (const Status status = mayCreate(spot); !ok(status)) return status;
    dropMeasured(joined(spot.folder.below, spot.name));
    auto made = std::make_unique<PreviewNode>(spot.name, EntryKind::Folder, std::string());
    made->own = true;
    folderNode(spot).attach(std::move(made));
    forgetPlaces();
    return Status::Ok;
}

// --- whole files -----------------------------------------------------------------------------------------------------

Status PreviewFileSystem::ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit) {
    bytes.clear();
    const Spot spot = find(file, Ending::Name);
    if (!ok(spot.status)) return spot.status;
    if (spot.node == nullptr) return files_.ReadFileBytes(spot.below, bytes, limit);
    if (spot.node->kind != EntryKind::File) return Status::Denied;
    if (!spot.node->content) return files_.ReadFileBytes(spot.node->below, bytes, limit);
    const PreviewContent& content = *spot.node->content;
    if (!content.copyOf.empty()) return files_.ReadFileBytes(content.copyOf, bytes, limit);
    bytes = content.bytes.substr(0, limit);
    return Status::Ok;
}

Status PreviewFileSystem::write(const std::string& file, PreviewContent content) {
    Spot spot = find(file, Ending::Name);
    if (spot.root) return Status::InvalidName;
    EntryDetails details;
    const Status there = look(spot, details);
    if (!ok(there) && there != Status::NotFound) return there;
    content.times.creation = content.times.lastAccess = content.times.lastWrite = now_();
    if (!ok(there)) {
        if (const Status status = mayCreate(spot); !ok(status)) return status;
        dropMeasured(joined(spot.folder.below, spot.name));
        auto made = std::make_unique<PreviewNode>(spot.name, EntryKind::File, std::string());
        made->own = true;
        made->content = std::move(content);
        folderNode(spot).attach(std::move(made));
        return Status::Ok;
    }
    if (details.kind != EntryKind::File || details.readOnly) return Status::Denied;
    if (!spot.below.empty()) {
        const Status status = files_.Rehearse(Intent::ReplaceFile, spot.below, around(spot)).status;
        if (!ok(status)) return status;
    }
    FileTimes before;
    if (ok(GetFileTimes(file, before))) content.times.creation = before.creation;
    const std::optional<unsigned> shared = sharedAttributes(spot.below);
    PreviewNode& node = entryNode(spot, details);
    // A file of several names gives this one up: the new content has no other.
    EntryDetails old;
    if (!node.content && !spot.below.empty() && ok(files_.LookAt(spot.below, old)) && old.names > 1) {
        (void)bytesOfName(old);
        if (shared) node.attributes = shared;
    }
    node.content = std::move(content);
    return Status::Ok;
}

Status PreviewFileSystem::WriteFileBytes(const std::string& file, std::string_view bytes) {
    return write(file, {std::string(bytes), {}, bytes.size(), {}});
}

Status PreviewFileSystem::CopyFileBytes(const std::string& from, const std::string& to) {
    const Spot source = find(from, Ending::Name);
    EntryDetails details;
    if (const Status status = look(source, details); !ok(status)) return status;
    if (details.kind != EntryKind::File) return Status::Denied;
    std::string none;
    if (const Status status = ReadFileBytes(from, none, 0); !ok(status)) return status;  // it may be read at all
    const Spot target = find(to, Ending::Name);
    EntryDetails there;
    if (ok(look(target, there))) {
        const bool same = source.node != nullptr || target.node != nullptr
                              ? source.node == target.node
                              : details.volume == there.volume && details.content == there.content;
        if (same) return Status::InUse;
    }
    PreviewContent content;
    content.length = details.length;
    if (source.node != nullptr && source.node->content) {
        content.bytes = source.node->content->bytes;
        content.copyOf = source.node->content->copyOf;
    } else {
        content.copyOf = source.below;
    }
    return write(to, std::move(content));
}

}  // namespace tidvane::platform
