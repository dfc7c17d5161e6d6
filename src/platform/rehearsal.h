// What a preview asks of the files below it: what a step would come to, without making it.
//
// A preview keeps what it pretends to have changed; the files below know nothing of it. So whatever of that an answer
// depends on is told along with the question.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/removal_counter.h"
#include "platform/status.h"

namespace tidvane::platform {

enum class Intent {
    RemoveFile,     // RemoveFile
    RemoveFolder,   // RemoveFolder on a folder that is empty
    MoveAway,       // the one side of RenameEntry: the entry leaves its folder
    Create,         // a new entry of this name, which does not exist
    ReplaceFile,    // WriteFileBytes on a file that exists
    OverwriteFile,  // OpenForOverwrite
};

// What a preview has changed already around the target.
struct Circumstances {
    std::optional<bool> readOnly;        // the target's own attribute
    std::optional<bool> folderReadOnly;  // that of the folder it lies in
    bool onlyName = false;               // all further names of its content are gone
};

struct Rehearsed {
    Status status = Status::Ok;  // what the operation would answer
    bool counts = false;         // it would count a target that was there and stayed
    EntryDetails details;        // of the target, where it is there
    unsigned attributes = 0;     // the same, if they were asked for
};

// What came together over a tree, or a part of one.
struct RehearsedTree {
    RemovalTotals gone;         // what would go, and how much would fail
    FolderTotals measured;      // what MeasureFolder counts
    bool measurable = true;     // false: something cannot be read, and MeasureFolder would answer Denied
    bool topGoes = false;       // the folder itself would go
    Status first = Status::Ok;  // the first failure
};

// How a visit of one folder ended.
struct FolderEnd {
    bool goes = false;
    bool someWent = false;      // something that lay directly in it
    bool madeWritable = false;  // it was read-only, and is that no longer although it stays
};

// Goes along with the walk over a tree, and knows what the preview has changed in it.
class TreeVisitor {
public:
    virtual ~TreeVisitor() = default;

    struct EntryNow {
        bool gone = false;
        std::optional<bool> readOnly;
        std::optional<std::uint64_t> length;  // of a file that was written anew
        bool stop = false;                    // ends the whole walk
    };

    // A folder is entered, first the top. True: `entry` is asked for everything in it, and `goes` told. False where the
    // preview has changed nothing in this folder and nobody wants to hear of each entry: then that costs nothing.
    virtual bool enterFolder(std::string_view name) = 0;
    // The entry as the volume has it; of a folder name and kind alone.
    virtual EntryNow entry(const EntryDetails& details) = 0;
    // The entry would be removed; a folder when all in it has been told.
    virtual void goes(std::string_view name, EntryKind kind, std::uint64_t bytes) = 0;
    // Told of every folder. The entry stays as it is.
    virtual void stays(std::string_view name) = 0;
    // The bytes that go with one more name of a content that has several.
    virtual std::uint64_t bytesOfName(const EntryDetails& file) = 0;
    // Behind the last entry of a folder: adds what the preview itself has put there. True: some of it stays.
    virtual bool ownEntries(RehearsedTree& totals) = 0;
    // `inside`: everything since the folder was entered, itself included.
    virtual void leaveFolder(const FolderEnd& end, const RehearsedTree& inside) = 0;
};

class FilesWithRehearsal : public FileSystem {
public:
    // A plain path. `withAttributes`: they cost one more system call.
    virtual Rehearsed Rehearse(Intent intent, const std::string& path, const Circumstances& now,
                               bool withAttributes = false) = 0;
    // Where a link to a folder leads, as a path of this machine; empty: out of it, to no folder, or it is no link.
    virtual std::string TargetOfLink(const std::string& link) = 0;
    // What SetAttributes would answer. `becomes`: what GetAttributes would tell then, without the kind.
    virtual Status RehearseSetAttributes(const std::string& path, unsigned attributes, const Circumstances& now,
                                         unsigned& becomes) = 0;

    // Whether the folder named goes as well, or only what it holds.
    enum class Extent { Folder, Content };

    // The walk of DeleteFolder over the tree of one folder. NotFound, PathNotFound, Denied and `tree` untouched: it
    // cannot be walked at all, as ReadFolder would answer.
    virtual Status RehearseDeleteFolder(const std::string& folder, Extent extent, bool force, const Circumstances& now,
                                        TreeVisitor& visitor, RehearsedTree& tree) = 0;
};

}  // namespace tidvane::platform
