// A file system on which everything can be tried out: what a program removes, renames and writes is remembered and
// seen by every later look, and nothing is done to the files below.
//
// What is counted, and what is answered, is what the files below would count and answer. They are asked for every step
// (FilesWithRehearsal); what the preview has changed before is told along with the question.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/common/windows_path.h"
#include "platform/preview/preview_node.h"
#include "platform/rehearsal.h"
#include "platform/removal_counter.h"

namespace tidvane::platform {

class PreviewFileSystem final : public FileSystem {
public:
    // `now`: the moment that new files get.
    PreviewFileSystem(FilesWithRehearsal& files, RemovalCounter& counter, std::function<FileTime()> now);

    Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) override;
    Status ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) override;
    Status GetAttributes(const std::string& path, unsigned& attributes) override;
    Status SetAttributes(const std::string& path, unsigned attributes) override;
    Status LookAt(const std::string& path, EntryDetails& details) override;
    Status GetSize(const std::string& path, std::uint64_t& bytes) override;
    Status GetFileTimes(const std::string& path, FileTimes& times) override;
    bool FileExists(const std::string& path) override;
    bool FolderExists(const std::string& path) override;
    // Goes through the tree as a removal would, and keeps what each folder in `folder` would come to: a purge that
    // follows need not walk again.
    Status MeasureFolder(const std::string& folder, FolderTotals& totals) override;

    Status RemoveFile(const std::string& file) override;
    Status KillFiles(const std::string& pathOrMask) override;
    Status RemoveFolder(const std::string& folder) override;
    Status DeleteFolder(const std::string& folder, bool force) override;
    // What is written into the handle goes nowhere.
    Status OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) override;

    Status RenameEntry(const std::string& from, const std::string& to) override;
    Status MakeFolder(const std::string& folder) override;

    Status ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit = UINT64_MAX) override;
    Status WriteFileBytes(const std::string& file, std::string_view bytes) override;
    Status CopyFileBytes(const std::string& from, const std::string& to) override;

    std::vector<Drive> Drives() override { return files_.Drives(); }
    Status GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes, std::uint64_t& totalBytes) override;

    // For a recycle bin: tells the counter's listener of everything that lies at a path now, as if it went from
    // another one. Nothing is counted.
    void tellTree(const std::string& at, const std::string& shownAs);
    // For a shell that keeps its bin elsewhere: the entry with all in it is gone, and nothing is counted. `totals`: of
    // everything, the entry included.
    Status takeOut(const std::string& path, FolderTotals& totals);

private:
    friend class PreviewWalk;
    friend class PreviewRemoval;
    friend class PreviewMeasure;
    friend class PreviewTelling;

    // A folder on the way. `below` is empty where the files below have nothing of it.
    struct Place {
        Status status = Status::Ok;
        PreviewNode* node = nullptr;
        std::string below;
    };
    // Where a path leads. Ok alone does not say that there is something: where nothing was changed around, the files
    // below are asked only by the operation itself.
    struct Spot {
        Status status = Status::Ok;
        std::string path;  // as it was asked for
        bool root = false;
        Place folder;
        std::string name;             // the last one, as it was spelled in the question
        PreviewNode* node = nullptr;  // of the entry itself
        std::string below;            // the entry's path below
    };
    // What may stand at the end of a path: a name alone, or a backslash behind that of a folder.
    enum class Ending { Name, Folder };

    // --- finding -----------------------------------------------------------------------------------------------------
    Spot find(const std::string& path, Ending ending);
    bool findNearby(const std::string& path, Spot& spot);
    Place placeOf(const WindowsPath& path, std::size_t depth);
    Place step(const Place& folder, const std::string& name);
    Place otherSpelling(const Place& folder, const std::string& name);
    // Fills what a look tells, or answers why there is nothing to tell.
    Status look(const Spot& spot, EntryDetails& details);
    Status detailsOf(const PreviewNode& node, EntryDetails& details);
    unsigned attributesOf(const PreviewNode& node);
    // What the files below tell of an entry's attributes, unless it is a link to a folder that is there no more.
    unsigned seen(const std::string& below, unsigned attributes);
    Circumstances around(const Spot& spot);
    // Set under one of several names of a content, and seen under all of them.
    [[nodiscard]] std::optional<unsigned> sharedAttributes(const EntryDetails& details) const;
    std::optional<unsigned> sharedAttributes(const std::string& below);
    Status readEntries(const std::string& folder, std::vector<FolderEntry>& out, bool toEmpty);
    void findTwins(PreviewNode& folder);

    // --- remembering -------------------------------------------------------------------------------------------------
    // The node of the folder in which the spot lies.
    PreviewNode& folderNode(Spot& spot);
    // The node of an entry that the files below have, or that is here already.
    PreviewNode& entryNode(Spot& spot, const EntryDetails& details);
    void markGone(Spot& spot, const std::string& spelled);
    // What was measured holds no longer for the folder in which this path lies.
    void dropMeasured(const std::string& below);
    void forgetPlaces() { lastPlace_.reset(); }

    // --- removing ----------------------------------------------------------------------------------------------------
    enum class Delete { Plain, Any };
    Status removeAt(Spot& spot, Delete kind);
    Status deleteAt(Spot& spot, bool force);
    void count(const RehearsedTree& tree);
    std::string shownPath(Spot& spot, const std::string& spelled);
    void tell(RemovedKind kind, const std::string& path, std::uint64_t bytes) const;
    // As recycled.
    void tellAll(const Spot& spot, const EntryDetails& details, const std::string& shownAs);
    std::uint64_t bytesOfName(const EntryDetails& file);
    bool isEmpty(const Spot& spot);
    Status refuse(Status status, bool counts);

    // --- changing ----------------------------------------------------------------------------------------------------
    Status mayCreate(const Spot& spot);
    Status write(const std::string& file, PreviewContent content);

    FilesWithRehearsal& files_;
    RemovalCounter& counter_;
    std::function<FileTime()> now_;
    std::map<std::string, std::unique_ptr<PreviewNode>> roots_;  // by root in upper case
    // Contents with several names, by volume and content: how many names are gone, so that the last one counts, and the
    // attributes that were set.
    using Content = std::pair<std::uint64_t, std::uint64_t>;
    std::map<Content, std::uint64_t> namesGone_;
    std::map<Content, unsigned> shared_;

    // The folder of the last question, as it was spelled, and its place.
    std::string lastFolder_;
    std::optional<Place> lastPlace_;

    struct {
        std::string folder;  // below
        std::unordered_map<std::string, RehearsedTree> inside;
    } measured_;

    bool tellsOfBin_ = false;  // what is told now went into a recycle bin

    struct {
        const PreviewNode* folder = nullptr;
        std::string name;
        std::chrono::steady_clock::time_point when;
    } lastGone_;
};

}  // namespace tidvane::platform
