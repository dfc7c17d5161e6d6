#include "platform/memory/memory_files.h"

namespace tidvane::platform {

using memory::Node;

// What all steps of one walk share.
struct MemoryFiles::TreeStep {
    TreeVisitor& visitor;
    RehearsedTree& tree;
    bool force;
    bool closer;  // of the folder in which the step is made
};

namespace {

constexpr unsigned operationOf(Intent intent) {
    switch (intent) {
        case Intent::RemoveFile:
        case Intent::RemoveFolder:
            return operation::Remove;
        case Intent::MoveAway:
            return operation::Rename;
        case Intent::ReplaceFile:
        case Intent::OverwriteFile:
        case Intent::Create:
            return operation::Write;
    }
    return 0;
}

RehearsedTree since(const RehearsedTree& before, const RehearsedTree& now) {
    RehearsedTree inside = now;
    inside.gone -= before.gone;
    inside.measured.folders -= before.measured.folders;
    inside.measured.files -= before.measured.files;
    inside.measured.bytes -= before.measured.bytes;
    return inside;
}

std::uint64_t lengthOf(const Node& node) {
    return node.kind == EntryKind::File ? node.content->length : 0;
}

void keepFirst(Status& first, Status status) {
    if (ok(first)) first = status;
}

}  // namespace

Status MemoryFiles::rehearse(Intent intent, const Place& place, const Circumstances& now) {
    const Node& node = *place.node;
    const bool readOnly = now.readOnly.value_or(node.isReadOnly());
    const bool full = place.on->full;
    switch (intent) {
        case Intent::RemoveFile:
            return node.isFolder() || readOnly ? Status::Denied : Status::Ok;
        case Intent::RemoveFolder:
            if (place.parent == nullptr || !node.isFolder() || readOnly) return Status::Denied;
            return node.mountPoint ? Status::InUse : Status::Ok;
        case Intent::MoveAway:
            return place.parent == nullptr ? Status::InvalidName : Status::Ok;
        case Intent::ReplaceFile:
            if (node.kind != EntryKind::File || readOnly) return Status::Denied;
            return full ? Status::DiskFull : Status::Ok;
        case Intent::OverwriteFile:
            if (node.content->names > 1 && !now.onlyName) return Status::Denied;
            return node.kind != EntryKind::File || readOnly ? Status::Denied : Status::Ok;
        case Intent::Create:
            return full ? Status::DiskFull : Status::Ok;
    }
    return Status::Failed;
}

Rehearsed MemoryFiles::Rehearse(Intent intent, const std::string& path, const Circumstances& now, bool withAttributes) {
    Rehearsed answer;
    if (intent == Intent::Create) {
        WindowsPath parsed;
        answer.status = parseWindowsPath(path, parsed);
        if (ok(answer.status) && (parsed.names.empty() || !isCreatableName(parsed.names.back())))
            answer.status = Status::InvalidName;
        if (!ok(answer.status)) return answer;
        Place place = find(path, 0, true);
        answer.status = place.status == Status::NotFound ? Status::Ok : place.status;
        if (ok(answer.status)) answer.status = refusal(place.key, operation::Write);
        if (ok(answer.status) && place.on->full) answer.status = Status::DiskFull;
        return answer;
    }
    // The target may be there all the same: what is known of it helps the preview on.
    if (const Place there = find(path, 0, intent != Intent::RemoveFile); ok(there.status)) {
        answer.details = detailsOf(*there.node);
        if (withAttributes) answer.attributes = attributesOfNode(*there.node);
    }
    const Place place = find(path, operationOf(intent), intent == Intent::RemoveFolder || intent == Intent::MoveAway);
    answer.status = ok(place.status) ? rehearse(intent, place, now) : place.status;
    answer.counts = (intent == Intent::RemoveFile || intent == Intent::RemoveFolder) && counts(answer.status);
    return answer;
}

// Whether a link stands for a folder is its own here, as on Windows: it does not matter what became of the target.
std::string MemoryFiles::TargetOfLink(const std::string& /*link*/) {
    return {};
}

Status MemoryFiles::RehearseSetAttributes(const std::string& path, unsigned attributes, const Circumstances& /*now*/,
                                          unsigned& becomes) {
    constexpr unsigned kSettable = attribute::ReadOnly | attribute::Hidden | attribute::System | attribute::Archive;
    const Place place = find(path, operation::Attributes, true);
    if (!ok(place.status)) return place.status;
    becomes = attributes & kSettable;
    return place.node->kind == EntryKind::File || place.node->isFolder() ? Status::Ok : Status::Denied;
}

Status MemoryFiles::rehearseContent(const Node& folder, const std::string& key, const TreeStep& step, bool& someWent) {
    if (const Status refused = refusal(key, operation::List); !ok(refused)) {
        step.tree.measurable = false;
        return refused;
    }
    Status first = Status::Ok;
    for (const auto& [childKey, child] : folder.children) {
        TreeVisitor::EntryNow now;
        if (step.closer) now = step.visitor.entry(detailsOf(*child));
        if (now.stop) return Status::Failed;
        if (now.gone) continue;
        const Status status = rehearseEntry(*child, key + "\\" + childKey, step, now);
        keepFirst(first, status);
        someWent = someWent || ok(status);
    }
    return first;
}

Status MemoryFiles::rehearseEntry(const Node& node, const std::string& key, const TreeStep& step,
                                  const TreeVisitor::EntryNow& now) {
    RehearsedTree& tree = step.tree;
    const bool stays = now.readOnly.value_or(node.isReadOnly()) && !step.force;
    Status first = refusal(key, operation::Remove);
    if (!node.isFolder()) {
        ++tree.measured.files;
        std::uint64_t bytes = now.length.value_or(lengthOf(node));
        tree.measured.bytes += bytes;
        if (ok(first) && stays) first = Status::Denied;
        if (!ok(first)) {
            step.visitor.stays(node.name);
            return first;
        }
        if (bytes != 0 && !now.length && node.content->names > 1) bytes = step.visitor.bytesOfName(detailsOf(node));
        ++tree.gone.files;
        tree.gone.bytes += bytes;
        if (step.closer) step.visitor.goes(node.name, node.kind, bytes);
        return Status::Ok;
    }
    ++tree.measured.folders;
    if (node.mountPoint) {
        tree.measured.partial = true;
        step.visitor.stays(node.name);
        return Status::InUse;
    }
    const RehearsedTree before = tree;
    TreeStep inside = step;
    inside.closer = step.visitor.enterFolder(node.name);
    bool someWent = false;
    keepFirst(first, rehearseContent(node, key, inside, someWent));
    if (step.visitor.ownEntries(tree)) keepFirst(first, Status::NotEmpty);
    if (ok(first) && stays) first = Status::Denied;
    if (ok(first)) ++tree.gone.folders;
    step.visitor.leaveFolder({ok(first), someWent, false}, since(before, tree));
    if (ok(first) && step.closer) step.visitor.goes(node.name, node.kind, 0);
    return first;
}

Status MemoryFiles::RehearseDeleteFolder(const std::string& folder, Extent extent, bool force, const Circumstances& now,
                                         TreeVisitor& visitor, RehearsedTree& tree) {
    const bool content = extent == Extent::Content;
    const Place place = find(folder, content ? operation::Look : 0, content);
    if (!ok(place.status)) return place.status;
    if (!place.node->isFolder())
        return content || place.node->kind == EntryKind::Link ? Status::Denied : Status::PathNotFound;
    if (content) {
        if (const Status refused = refusal(place.key, operation::List); !ok(refused)) return refused;
        const bool closer = visitor.enterFolder(place.node->name);
        bool someWent = false;
        tree.first = rehearseContent(*place.node, place.key, {visitor, tree, force, closer}, someWent);
        if (visitor.ownEntries(tree)) keepFirst(tree.first, Status::NotEmpty);
        visitor.leaveFolder({false, someWent, false}, tree);
        return Status::Ok;
    }
    if (place.parent == nullptr) return Status::Denied;
    if (place.node->mountPoint) return Status::InUse;
    tree.first = rehearseEntry(*place.node, place.key, {visitor, tree, force, false}, {false, now.readOnly});
    tree.topGoes = ok(tree.first);
    // One failure a call, however many entries stay.
    if (counts(tree.first)) ++tree.gone.failed;
    return Status::Ok;
}

}  // namespace tidvane::platform
