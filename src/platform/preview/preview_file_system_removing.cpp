#include <algorithm>

#include "base/wildcard.h"
#include "platform/preview/preview_file_system.h"
#include "platform/preview/preview_visitors.h"

namespace tidvane::platform {

namespace {

constexpr unsigned kNotTaken = attribute::Hidden | attribute::System | attribute::Directory;

class NowhereHandle final : public OverwriteHandle {
public:
    explicit NowhereHandle(std::uint64_t length) : length_(length) {}
    [[nodiscard]] std::uint64_t length() const override { return length_; }
    Status write(std::string_view /*bytes*/) override { return Status::Ok; }
    Status writeRepeated(std::string_view /*block*/, std::uint64_t times, std::uint64_t& written) override {
        written = times;
        return Status::Ok;
    }

private:
    std::uint64_t length_;
};

bool isMissing(Status status) {
    return status == Status::NotFound || status == Status::PathNotFound;
}

std::string withoutBackslash(std::string path) {
    if (!path.empty() && path.back() == '\\') path.pop_back();
    return path;
}

}  // namespace

// --- counting --------------------------------------------------------------------------------------------------------

Status PreviewFileSystem::refuse(Status status, bool counts) {
    if (counts) ++counter_.totals.failed;
    return status;
}

void PreviewFileSystem::count(const RehearsedTree& tree) {
    counter_.totals.files += tree.gone.files;
    counter_.totals.folders += tree.gone.folders;
    counter_.totals.failed += tree.gone.failed;
    if (counter_.wantBytes) counter_.totals.bytes += tree.gone.bytes;
}

void PreviewFileSystem::tell(RemovedKind kind, const std::string& path, std::uint64_t bytes) const {
    if (counter_.each) counter_.each({kind, path, bytes, tellsOfBin_});
}

std::string PreviewFileSystem::shownPath(Spot& spot, const std::string& spelled) {
    return spot.node != nullptr ? spot.node->path() : joined(folderNode(spot).path(), spelled);
}

std::uint64_t PreviewFileSystem::bytesOfName(const EntryDetails& file) {
    const std::uint64_t gone = ++namesGone_[{file.volume, file.content}];
    return gone >= file.names ? file.length : 0;
}

// --- measuring -------------------------------------------------------------------------------------------------------

Status PreviewFileSystem::MeasureFolder(const std::string& folder, FolderTotals& totals) {
    const Spot spot = find(folder, Ending::Folder);
    if (!ok(spot.status)) return spot.status;
    if (spot.node != nullptr && !spot.node->isFolder()) return Status::Denied;
    measured_ = {};
    RehearsedTree tree;
    if (spot.node != nullptr && spot.below.empty()) {
        for (const auto& [name, child] : spot.node->nodes()) PreviewMeasure::addOwn(*this, *child, tree);
        if (!tree.measurable) return Status::Denied;
        totals = tree.measured;
        return Status::Ok;
    }
    PreviewMeasure measure(*this, spot.node);
    const Status status =
        files_.RehearseDeleteFolder(spot.below, FilesWithRehearsal::Extent::Content, true, around(spot), measure, tree);
    if (!ok(status)) return status;
    measured_.folder = withoutBackslash(spot.below);
    measured_.inside = std::move(measure.inside);
    if (!tree.measurable) return Status::Denied;
    totals = tree.measured;
    return Status::Ok;
}

// --- removing --------------------------------------------------------------------------------------------------------

Status PreviewFileSystem::removeAt(Spot& spot, Delete kind) {
    if (!ok(spot.status)) return spot.status;
    const PreviewNode* node = spot.node;
    const bool plain = kind == Delete::Plain;
    Rehearsed answer;
    if (spot.below.empty()) {
        (void)detailsOf(*node, answer.details);
        if (plain) answer.attributes = attributesOf(*node);
        if (node->isFolder() || answer.details.readOnly) answer.status = Status::Denied;
        answer.counts = !ok(answer.status);
    } else {
        const bool knownAttributes = node != nullptr && node->attributes;
        answer = files_.Rehearse(Intent::RemoveFile, spot.below, around(spot), plain && !knownAttributes);
        if (!ok(answer.status) && answer.details.name.empty()) return refuse(answer.status, answer.counts);
        answer.attributes = knownAttributes ? attributesOf(*node) : seen(spot.below, answer.attributes);
        if (node != nullptr) answer.details.name = node->name;
        if (node != nullptr && node->content) {
            answer.details.length = node->content->length;
            answer.details.names = 1;
        }
    }
    if (plain && (answer.attributes & kNotTaken) != 0) return Status::NotFound;
    if (!ok(answer.status)) return refuse(answer.status, answer.counts);

    const EntryDetails& file = answer.details;
    const std::uint64_t bytes = file.names > 1 ? bytesOfName(file) : file.length;
    ++counter_.totals.files;
    if (counter_.wantBytes) counter_.totals.bytes += bytes;
    if (counter_.each) tell(RemovedKind::File, shownPath(spot, file.name), bytes);
    markGone(spot, file.name);
    return Status::Ok;
}

Status PreviewFileSystem::RemoveFile(const std::string& file) {
    Spot spot = find(file, Ending::Name);
    return removeAt(spot, Delete::Any);
}

Status PreviewFileSystem::KillFiles(const std::string& pathOrMask) {
    const std::string mask = pathOrMask.substr(pathOrMask.find_last_of("\\/") + 1);
    if (!base::hasWildcard(mask)) {
        Spot spot = find(pathOrMask, Ending::Name);
        return removeAt(spot, Delete::Plain);
    }
    WindowsPath path;
    if (const Status status = parseWindowsPath(pathOrMask, path); !ok(status)) return status;
    path.names.pop_back();
    const std::string folder = path.text();
    std::vector<FolderEntry> entries;
    if (const Status status = ReadFolder(folder, entries); !ok(status)) {
        // Only the way to the files is missing or blocked.
        EntryDetails details;
        const bool noFolder =
            status == Status::Denied && ok(LookAt(folder, details)) && details.kind != EntryKind::Folder;
        return status == Status::NotFound || noFolder ? Status::PathNotFound : status;
    }
    bool any = false;
    Status first = Status::Ok;
    for (const FolderEntry& entry : entries) {
        if (entry.kind == EntryKind::Folder || !base::wildcardMatch(mask, entry.name)) continue;
        Spot spot = find(joined(folder, entry.name), Ending::Name);
        const Status status = removeAt(spot, Delete::Plain);
        if (isMissing(status)) continue;  // hidden, or gone meanwhile
        any = true;
        if (!ok(status) && ok(first)) first = status;
    }
    return any ? first : Status::NotFound;
}

bool PreviewFileSystem::isEmpty(const Spot& spot) {
    if (spot.node != nullptr) {
        for (const auto& [name, child] : spot.node->nodes()) {
            if (child->own || !spot.node->isGone(name)) return false;
        }
        if (spot.below.empty()) return true;
    }
    PreviewSearch search(*this, spot.node);
    RehearsedTree tree;
    const Status status =
        files_.RehearseDeleteFolder(spot.below, FilesWithRehearsal::Extent::Content, true, around(spot), search, tree);
    return ok(status) && !search.found;
}

Status PreviewFileSystem::RemoveFolder(const std::string& folder) {
    Spot spot = find(folder, Ending::Folder);
    if (!ok(spot.status)) return spot.status;
    std::string spelled;
    if (spot.below.empty()) {
        spelled = spot.node->name;
        if (!spot.node->isFolder() || spot.node->readOnly().value_or(false)) return refuse(Status::Denied, true);
    } else {
        const Rehearsed answer = files_.Rehearse(Intent::RemoveFolder, spot.below, around(spot));
        if (!ok(answer.status)) return refuse(answer.status, answer.counts);
        spelled = spot.node != nullptr ? spot.node->name : answer.details.name;
    }
    if (!isEmpty(spot)) return refuse(Status::NotEmpty, true);
    ++counter_.totals.folders;
    if (counter_.each) tell(RemovedKind::Folder, shownPath(spot, spelled), 0);
    markGone(spot, spelled);
    forgetPlaces();
    return Status::Ok;
}

Status PreviewFileSystem::DeleteFolder(const std::string& folder, bool force) {
    const std::string mask = folder.substr(folder.find_last_of("\\/") + 1);
    if (!base::hasWildcard(mask)) {
        Spot spot = find(folder, Ending::Name);
        return deleteAt(spot, force);
    }
    WindowsPath path;
    if (const Status status = parseWindowsPath(folder, path); !ok(status)) return status;
    path.names.pop_back();
    const std::string above = path.text();
    std::vector<FolderEntry> entries;
    if (const Status status = ReadFolder(above, entries); !ok(status))
        return status == Status::NotFound ? Status::PathNotFound : status;
    bool any = false;
    Status first = Status::Ok;
    for (const FolderEntry& entry : entries) {
        if (entry.kind != EntryKind::Folder || !base::wildcardMatch(mask, entry.name)) continue;
        Spot spot = find(joined(above, entry.name), Ending::Name);
        const Status status = deleteAt(spot, force);
        if (isMissing(status)) continue;
        any = true;
        if (!ok(status) && ok(first)) first = status;
    }
    return any ? first : Status::NotFound;
}

Status PreviewFileSystem::deleteAt(Spot& spot, bool force) {
    if (!ok(spot.status)) return spot.status;
    if (force && spot.node == nullptr && !counter_.each && !measured_.inside.empty() &&
        spot.below.size() == measured_.folder.size() + 1 + spot.name.size() &&
        spot.below.starts_with(measured_.folder)) {
        if (const auto known = measured_.inside.find(spot.name); known != measured_.inside.end()) {
            count(known->second);
            markGone(spot, spot.name);
            forgetPlaces();
            return Status::Ok;
        }
    }
    EntryDetails details;
    if (const Status status = look(spot, details); !ok(status)) return status;
    if (spot.root || details.kind == EntryKind::Link) return refuse(Status::Denied, true);
    if (details.kind != EntryKind::Folder) return Status::PathNotFound;

    PreviewNode& above = folderNode(spot);
    const std::string shown = counter_.each ? shownPath(spot, details.name) : std::string();
    RehearsedTree tree;
    PreviewRemoval removal(*this, spot.node, spot.below, shown, force);
    if (spot.node != nullptr && spot.node->own) {
        tree.topGoes = removal.removeOwn(*spot.node, tree);
    } else {
        const Status status = files_.RehearseDeleteFolder(spot.below, FilesWithRehearsal::Extent::Folder, force,
                                                          around(spot), removal, tree);
        if (!ok(status)) return refuse(status, !isMissing(status));
        if (tree.topGoes) tell(RemovedKind::Folder, shown, 0);
    }
    count(tree);
    dropMeasured(spot.below);
    if (tree.topGoes) {
        markGone(spot, details.name);
    } else if (std::unique_ptr<PreviewNode> left = removal.takeTop()) {
        left->name = details.name;
        above.attach(std::move(left));
    }
    forgetPlaces();
    return tree.topGoes || !ok(tree.first) ? tree.first : Status::Failed;
}

// --- for bins and handles --------------------------------------------------------------------------------------------

Status PreviewFileSystem::OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) {
    handle.reset();
    const Spot spot = find(file, Ending::Name);
    EntryDetails details;
    if (const Status status = look(spot, details); !ok(status)) return status;
    if (details.kind != EntryKind::File || details.readOnly || details.names > 1) return Status::Denied;
    if (!spot.below.empty() && (spot.node == nullptr || !spot.node->content)) {
        Circumstances now = around(spot);
        now.onlyName = true;
        const Rehearsed answer = files_.Rehearse(Intent::OverwriteFile, spot.below, now);
        if (!ok(answer.status)) return answer.status;
    }
    handle = std::make_unique<NowhereHandle>(details.length);
    return Status::Ok;
}

void PreviewFileSystem::tellTree(const std::string& at, const std::string& shownAs) {
    if (!counter_.each) return;
    const Spot spot = find(at, Ending::Name);
    EntryDetails details;
    if (!ok(look(spot, details))) return;
    // In the spelling of the volume.
    Spot from = find(shownAs, Ending::Name);
    const std::string name = spot.node != nullptr && !spot.node->below.empty()
                                 ? spot.node->below.substr(spot.node->below.rfind('\\') + 1)
                                 : from.name;
    tellAll(spot, details, joined(folderNode(from).path(), name));
}

void PreviewFileSystem::tellAll(const Spot& spot, const EntryDetails& details, const std::string& shownAs) {
    tellsOfBin_ = true;
    if (details.kind != EntryKind::Folder) {
        tell(RemovedKind::File, shownAs, details.length);
    } else if (spot.node != nullptr) {
        PreviewTelling::tellOwn(*this, *spot.node, shownAs);
    } else {
        PreviewTelling telling(*this, nullptr, shownAs);
        RehearsedTree tree;
        (void)files_.RehearseDeleteFolder(spot.below, FilesWithRehearsal::Extent::Content, true, {}, telling, tree);
    }
    tellsOfBin_ = false;
}

Status PreviewFileSystem::takeOut(const std::string& path, FolderTotals& totals) {
    Spot spot = find(path, Ending::Name);
    EntryDetails details;
    if (const Status status = look(spot, details); !ok(status)) return status;
    if (spot.root) return Status::Denied;
    FolderTotals taken;
    if (details.kind == EntryKind::Folder) {
        if (const Status status = MeasureFolder(path, taken); !ok(status)) return status;
        ++taken.folders;
    } else {
        taken.files = 1;
        taken.bytes = details.length;
    }
    if (!spot.below.empty()) {
        const Intent intent = details.kind == EntryKind::Folder ? Intent::MoveAway : Intent::RemoveFile;
        Circumstances now = around(spot);
        now.readOnly = false;  // a bin takes what is read-only as well
        const Rehearsed answer = files_.Rehearse(intent, spot.below, now);
        if (!ok(answer.status)) return answer.status;
    }
    if (counter_.each) tellAll(spot, details, shownPath(spot, details.name));
    markGone(spot, details.name);
    forgetPlaces();
    totals = taken;
    return Status::Ok;
}

}  // namespace tidvane::platform
