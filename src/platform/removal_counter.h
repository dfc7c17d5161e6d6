// What a run really removed, counted where the removing happens and nowhere else.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tidvane::platform {

struct RemovalTotals {
    std::uint64_t files = 0;    // every entry that is no folder: files, links, fifos
    std::uint64_t folders = 0;  // folders removed, also inside a tree
    std::uint64_t keys = 0;     // registry keys, subkeys included
    std::uint64_t values = 0;   // registry values, those of removed keys included
    std::uint64_t bytes = 0;    // lengths of the removed files, without clusters; a further name of a file counts 0
    std::uint64_t failed = 0;   // targets that were there and stayed: denied, in use, not empty

    RemovalTotals& operator-=(const RemovalTotals& other) {
        files -= other.files;
        folders -= other.folders;
        keys -= other.keys;
        values -= other.values;
        bytes -= other.bytes;
        failed -= other.failed;
        return *this;
    }
    bool operator==(const RemovalTotals&) const = default;
};

enum class RemovedKind { File, Folder, Key, Value };

struct RemovedEntry {
    RemovedKind kind;
    std::string path;         // as the machine knows it: "C:\\...", "HKEY_CURRENT_USER\\...", a value as "key\\[name]"
    std::uint64_t bytes = 0;  // of a file
    bool recycled = false;    // it lies in a recycle bin now; anything else is gone for good
};

// Shared by all services of one platform. Files moved to a recycle bin count as removed.
struct RemovalCounter {
    RemovalTotals totals;
    // Lengths cost one system call a file; they are only asked for when somebody will read them.
    bool wantBytes = false;
    // Told of every entry, in the order of removal, where somebody wants the paths: a preview with details. A real run
    // removes files by handles and knows no paths; of them nobody is told there.
    std::function<void(const RemovedEntry&)> each;
};

}  // namespace tidvane::platform
