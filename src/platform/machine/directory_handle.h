// Open directories of the host, and reading them without a copy of every name.
#pragma once

#include <dirent.h>
#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/status.h"

namespace tidvane::platform::machine {

// A descriptor that closes itself.
class Handle {
public:
    Handle() = default;
    explicit Handle(int descriptor) : descriptor_(descriptor) {}
    Handle(Handle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { reset(); }

    void reset();
    [[nodiscard]] int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};

// What tells one folder of the host from every other, and from a mount point in its place.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t mount = 0;  // 0 where the kernel does not tell

    [[nodiscard]] bool sameFolder(const FolderIdentity& other) const {
        return device == other.device && inode == other.inode;
    }
    [[nodiscard]] bool sameMount(const FolderIdentity& other) const {
        return device == other.device && mount == other.mount;
    }
};

// Of an open descriptor. False: errno tells.
bool identify(int descriptor, FolderIdentity& identity);

// Opens a folder below another, never through a link. A folder that may be passed but not listed is opened for passing
// only, and `listable` tells. The result is empty on failure: errno tells, ENOTDIR or ELOOP for a link or a file.
Handle openFolder(int parent, const char* name, bool& listable);

// An errno as an answer. `missing` is the answer for what is not there.
Status statusOf(int error, Status missing = Status::NotFound);

// Reads the entries of an open folder, "." and ".." left out, in blocks of one fixed buffer.
class DirectoryReader {
public:
    static constexpr std::size_t kBufferSize = 32UL * 1024;

    struct Entry {
        const char* name;
        unsigned char type;  // DT_...
        std::uint64_t inode;
    };

    // False at the end, or on failure: error() is then not 0.
    bool next(int folder, Entry& entry);
    [[nodiscard]] int error() const { return error_; }

    // Starts over.
    bool rewind(int folder);
    // Gives the buffer back; the place behind the entry read last is kept. Reading goes on there with the next call,
    // whose handle may be another one of the same folder.
    void suspend();

private:
    std::unique_ptr<char[]> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    std::int64_t behind_ = 0;
    bool seek_ = true;
    int error_ = 0;
};

}  // namespace tidvane::platform::machine
