// The walks of a preview over trees of the files below, with what it has changed in them.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/preview/preview_file_system.h"

namespace tidvane::platform {

// Knows which node belongs to the folder that is being visited.
class PreviewWalk : public TreeVisitor {
public:
    bool enterFolder(std::string_view name) override;
    EntryNow entry(const EntryDetails& details) override;
    void goes(std::string_view /*name*/, EntryKind /*kind*/, std::uint64_t /*bytes*/) override {}
    void stays(std::string_view /*name*/) override {}
    std::uint64_t bytesOfName(const EntryDetails& /*file*/) override { return 0; }
    bool ownEntries(RehearsedTree& /*totals*/) override { return false; }
    void leaveFolder(const FolderEnd& end, const RehearsedTree& inside) override;

protected:
    struct Frame {
        PreviewNode* node = nullptr;
        std::string name;
        std::size_t shownAbove = 0;  // length of the shown path of the folder above
        // Of a removal: what stays, and what was found out about the folders among it.
        std::vector<std::string> kept;
        std::vector<std::unique_ptr<PreviewNode>> keptNodes;
    };

    // `everywhere`: to be asked for every entry of every folder.
    PreviewWalk(PreviewFileSystem& owner, PreviewNode* top, bool everywhere)
        : owner_(owner), top_(top), everywhere_(everywhere) {}

    [[nodiscard]] Frame& folder() { return frames_.back(); }
    [[nodiscard]] std::size_t depth() const { return frames_.size(); }
    // Called with the frame still there.
    virtual void onLeave(const FolderEnd& /*end*/, const RehearsedTree& /*inside*/) {}

    PreviewFileSystem& owner_;
    std::vector<Frame> frames_;

private:
    PreviewNode* top_;
    bool everywhere_;
};

// Removes: own entries go from their nodes, and what stays of the tree is remembered.
class PreviewRemoval final : public PreviewWalk {
public:
    // `shownAs`: the path of the top in the preview; only looked at when somebody is told of each entry.
    PreviewRemoval(PreviewFileSystem& owner, PreviewNode* top, std::string below, std::string shownAs, bool force);

    void goes(std::string_view name, EntryKind kind, std::uint64_t bytes) override;
    void stays(std::string_view name) override { folder().kept.emplace_back(name); }
    std::uint64_t bytesOfName(const EntryDetails& file) override { return owner_.bytesOfName(file); }
    bool ownEntries(RehearsedTree& totals) override;

    // True: the entry, which the preview has put there, goes with all in it.
    bool removeOwn(PreviewNode& node, RehearsedTree& totals);
    // What is left of a top of which nothing had been changed before; null if it is gone or whole.
    std::unique_ptr<PreviewNode> takeTop() { return std::move(leftOfTop_); }

private:
    bool enterFolder(std::string_view name) override;
    void onLeave(const FolderEnd& end, const RehearsedTree& inside) override;
    [[nodiscard]] std::string shownPath(std::string_view name) const;
    std::string belowOfFolder() const;
    bool removeOwnFile(PreviewNode& node, RehearsedTree& totals);

    std::string below_;
    std::string shown_;  // of the folder that is being visited
    bool force_;
    std::unique_ptr<PreviewNode> leftOfTop_;
};

// Counts, and keeps what the folders directly in the top would come to.
class PreviewMeasure final : public PreviewWalk {
public:
    PreviewMeasure(PreviewFileSystem& owner, PreviewNode* top) : PreviewWalk(owner, top, false) {}

    std::uint64_t bytesOfName(const EntryDetails& file) override;
    bool ownEntries(RehearsedTree& totals) override;

    static void addOwn(PreviewFileSystem& owner, PreviewNode& node, RehearsedTree& totals);

    // By name. Left out are those of which the same walk could bring another result the next time.
    std::unordered_map<std::string, RehearsedTree> inside;

private:
    bool enterFolder(std::string_view name) override;
    void onLeave(const FolderEnd& end, const RehearsedTree& result) override;

    bool sharedContent_ = false;  // in the folder of the top that is being visited
};

// Looks for the first entry that is there.
class PreviewSearch final : public PreviewWalk {
public:
    PreviewSearch(PreviewFileSystem& owner, PreviewNode* top) : PreviewWalk(owner, top, true) {}

    EntryNow entry(const EntryDetails& details) override;

    bool found = false;
};

// Tells of everything that is there.
class PreviewTelling final : public PreviewWalk {
public:
    PreviewTelling(PreviewFileSystem& owner, PreviewNode* top, std::string shownAs)
        : PreviewWalk(owner, top, true), shown_(std::move(shownAs)) {}

    EntryNow entry(const EntryDetails& details) override;
    bool ownEntries(RehearsedTree& totals) override;

    static void tellOwn(PreviewFileSystem& owner, PreviewNode& node, const std::string& shownAs);

private:
    bool enterFolder(std::string_view name) override;
    void onLeave(const FolderEnd& end, const RehearsedTree& inside) override;

    std::string shown_;
};

}  // namespace tidvane::platform
