#include "platform/preview/preview_visitors.h"

#include <utility>

namespace tidvane::platform {

namespace {

void keepFirst(RehearsedTree& totals, Status status) {
    if (ok(totals.first)) totals.first = status;
}

}  // namespace

// --- every walk ------------------------------------------------------------------------------------------------------

bool PreviewWalk::enterFolder(std::string_view name) {
    PreviewNode* node = top_;
    if (!frames_.empty()) {
        const PreviewNode* above = frames_.back().node;
        node = above == nullptr ? nullptr : above->find(name);
        if (node != nullptr && node->own) node = nullptr;
    }
    frames_.push_back({node, std::string(name), 0, {}, {}});
    return everywhere_ || node != nullptr;
}

TreeVisitor::EntryNow PreviewWalk::entry(const EntryDetails& details) {
    EntryNow now;
    if (const auto shared = owner_.sharedAttributes(details)) now.readOnly = (*shared & attribute::ReadOnly) != 0;
    const PreviewNode* folder = frames_.back().node;
    if (folder == nullptr) return now;
    now.gone = folder->isGone(details.name);
    const PreviewNode* node = folder->find(details.name);
    if (now.gone || node == nullptr || node->own) return now;
    if (node->attributes) now.readOnly = node->readOnly();
    if (node->content) now.length = node->content->length;
    return now;
}

void PreviewWalk::leaveFolder(const FolderEnd& end, const RehearsedTree& inside) {
    onLeave(end, inside);
    frames_.pop_back();
}

// --- removing --------------------------------------------------------------------------------------------------------

PreviewRemoval::PreviewRemoval(PreviewFileSystem& owner, PreviewNode* top, std::string below, std::string shownAs,
                               bool force)
    : PreviewWalk(owner, top, owner.counter_.each || !owner.shared_.empty()),
      below_(std::move(below)),
      shown_(std::move(shownAs)),
      force_(force) {}

std::string PreviewRemoval::shownPath(std::string_view name) const {
    return owner_.counter_.each ? joined(shown_, name) : std::string();
}

bool PreviewRemoval::enterFolder(std::string_view name) {
    const std::size_t above = shown_.size();
    if (!frames_.empty() && owner_.counter_.each) shown_ = joined(shown_, name);
    const bool closer = PreviewWalk::enterFolder(name);
    folder().shownAbove = above;
    return closer;
}

void PreviewRemoval::goes(std::string_view name, EntryKind kind, std::uint64_t bytes) {
    if (!owner_.counter_.each) return;
    owner_.tell(kind == EntryKind::Folder ? RemovedKind::Folder : RemovedKind::File, joined(shown_, name), bytes);
}

bool PreviewRemoval::ownEntries(RehearsedTree& totals) {
    PreviewNode* node = folder().node;
    if (node == nullptr) return false;
    bool kept = false;
    std::vector<std::string> went;
    for (const auto& [name, child] : node->nodes()) {
        if (!child->own) continue;
        if (removeOwn(*child, totals)) {
            went.push_back(name);
        } else {
            kept = true;
        }
    }
    for (const std::string& name : went) (void)node->detach(name);
    return kept;
}

bool PreviewRemoval::removeOwnFile(PreviewNode& node, RehearsedTree& totals) {
    EntryDetails details;
    (void)owner_.detailsOf(node, details);
    if (details.readOnly && !force_) {
        ++totals.gone.failed;
        keepFirst(totals, Status::Denied);
        return false;
    }
    const std::uint64_t bytes = details.names > 1 ? owner_.bytesOfName(details) : details.length;
    ++totals.gone.files;
    totals.gone.bytes += bytes;
    owner_.tell(RemovedKind::File, shownPath(node.shownName()), bytes);
    return true;
}

bool PreviewRemoval::removeOwn(PreviewNode& node, RehearsedTree& totals) {
    if (!node.isFolder()) return removeOwnFile(node, totals);
    const std::string path = shownPath(node.shownName());
    PreviewRemoval inside(owner_, &node, node.below, path, force_);
    bool goes = false;
    if (node.below.empty()) {
        (void)inside.enterFolder(node.name);
        goes = !inside.ownEntries(totals);
        if (goes && !force_ && node.readOnly().value_or(false)) {
            goes = false;
            ++totals.gone.failed;
            keepFirst(totals, Status::Denied);
        }
        if (goes) ++totals.gone.folders;
    } else {
        RehearsedTree tree;
        const Status status = owner_.files_.RehearseDeleteFolder(node.below, FilesWithRehearsal::Extent::Folder, force_,
                                                                 {node.readOnly(), std::nullopt}, inside, tree);
        if (!ok(status)) {
            tree.first = status;
            ++tree.gone.failed;
        }
        totals.gone.files += tree.gone.files;
        totals.gone.folders += tree.gone.folders;
        totals.gone.bytes += tree.gone.bytes;
        totals.gone.failed += tree.gone.failed;
        keepFirst(totals, tree.first);
        goes = tree.topGoes;
    }
    if (goes) owner_.tell(RemovedKind::Folder, path, 0);
    return goes;
}

std::string PreviewRemoval::belowOfFolder() const {
    std::string path = below_;
    for (std::size_t i = 1; i < frames_.size(); ++i) path.append("\\").append(frames_[i].name);
    return path;
}

void PreviewRemoval::onLeave(const FolderEnd& end, const RehearsedTree& /*inside*/) {
    Frame& left = folder();
    shown_.resize(left.shownAbove);
    if (end.goes) return;
    std::unique_ptr<PreviewNode> made;
    PreviewNode* node = left.node;
    if (end.someWent || end.madeWritable || !left.keptNodes.empty()) {
        if (node == nullptr) {
            made = std::make_unique<PreviewNode>(left.name, EntryKind::Folder, belowOfFolder());
            node = made.get();
        }
        if (end.someWent) node->hollowOut(std::move(left.kept));
        for (std::unique_ptr<PreviewNode>& child : left.keptNodes) (void)node->attach(std::move(child));
        if (end.madeWritable) node->attributes = owner_.attributesOf(*node) & ~attribute::ReadOnly;
    }
    if (depth() == 1) {
        leftOfTop_ = std::move(made);
        return;
    }
    Frame& above = frames_[depth() - 2];
    above.kept.push_back(left.name);
    if (made) above.keptNodes.push_back(std::move(made));
}

// --- measuring -------------------------------------------------------------------------------------------------------

bool PreviewMeasure::enterFolder(std::string_view name) {
    if (depth() == 1) sharedContent_ = false;
    return PreviewWalk::enterFolder(name);
}

std::uint64_t PreviewMeasure::bytesOfName(const EntryDetails& /*file*/) {
    // What goes with a further name depends on what went before.
    sharedContent_ = true;
    return 0;
}

bool PreviewMeasure::ownEntries(RehearsedTree& totals) {
    PreviewNode* node = folder().node;
    if (node == nullptr) return false;
    for (const auto& [name, child] : node->nodes()) {
        if (child->own) addOwn(owner_, *child, totals);
    }
    return false;
}

void PreviewMeasure::addOwn(PreviewFileSystem& owner, PreviewNode& node, RehearsedTree& totals) {
    if (!node.isFolder()) {
        EntryDetails details;
        (void)owner.detailsOf(node, details);
        ++totals.measured.files;
        totals.measured.bytes += details.length;
        return;
    }
    ++totals.measured.folders;
    if (node.below.empty()) {
        for (const auto& [name, child] : node.nodes()) addOwn(owner, *child, totals);
        return;
    }
    PreviewMeasure inside(owner, &node);
    RehearsedTree tree;
    const Status status =
        owner.files_.RehearseDeleteFolder(node.below, FilesWithRehearsal::Extent::Content, true, {}, inside, tree);
    totals.measured.folders += tree.measured.folders;
    totals.measured.files += tree.measured.files;
    totals.measured.bytes += tree.measured.bytes;
    totals.measured.partial = totals.measured.partial || tree.measured.partial;
    totals.measurable = totals.measurable && ok(status) && tree.measurable;
}

void PreviewMeasure::onLeave(const FolderEnd& end, const RehearsedTree& result) {
    const bool asIs = folder().node == nullptr && result.gone.failed == 0 && result.measurable && !sharedContent_;
    if (depth() == 2 && end.goes && asIs) inside.emplace(folder().name, result);
}

// --- looking and telling ---------------------------------------------------------------------------------------------

TreeVisitor::EntryNow PreviewSearch::entry(const EntryDetails& details) {
    EntryNow now = PreviewWalk::entry(details);
    found = found || !now.gone;
    now.stop = !now.gone;
    return now;
}

bool PreviewTelling::enterFolder(std::string_view name) {
    const std::size_t above = shown_.size();
    if (!frames_.empty()) shown_ = joined(shown_, name);
    const bool closer = PreviewWalk::enterFolder(name);
    folder().shownAbove = above;
    return closer;
}

TreeVisitor::EntryNow PreviewTelling::entry(const EntryDetails& details) {
    EntryNow now = PreviewWalk::entry(details);
    if (!now.gone && details.kind != EntryKind::Folder)
        owner_.tell(RemovedKind::File, joined(shown_, details.name), now.length.value_or(details.length));
    return now;
}

bool PreviewTelling::ownEntries(RehearsedTree& /*totals*/) {
    PreviewNode* node = folder().node;
    if (node == nullptr) return false;
    for (const auto& [name, child] : node->nodes()) {
        if (child->own) tellOwn(owner_, *child, joined(shown_, child->shownName()));
    }
    return false;
}

void PreviewTelling::tellOwn(PreviewFileSystem& owner, PreviewNode& node, const std::string& shownAs) {
    if (!node.isFolder()) {
        EntryDetails details;
        (void)owner.detailsOf(node, details);
        owner.tell(RemovedKind::File, shownAs, details.length);
        return;
    }
    if (node.below.empty()) {
        for (const auto& [name, child] : node.nodes()) tellOwn(owner, *child, joined(shownAs, child->shownName()));
        owner.tell(RemovedKind::Folder, shownAs, 0);
        return;
    }
    PreviewTelling inside(owner, &node, shownAs);
    RehearsedTree tree;
    (void)owner.files_.RehearseDeleteFolder(node.below, FilesWithRehearsal::Extent::Content, true, {}, inside, tree);
}

void PreviewTelling::onLeave(const FolderEnd& /*end*/, const RehearsedTree& /*inside*/) {
    owner_.tell(RemovedKind::Folder, shown_, 0);
    shown_.resize(folder().shownAbove);
}

}  // namespace tidvane::platform
