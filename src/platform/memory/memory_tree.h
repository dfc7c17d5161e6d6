// The entries that the memory machine holds. Tests use MemoryFiles; this is what it is made of.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace tidvane::platform::memory {

// What the further names of a file share: its content, and with it attributes and times.
struct Content {
    std::string bytes;
    std::uint64_t length = 0;  // bytes.size(), or a declared length that has no bytes behind it
    unsigned attributes = 0;   // ReadOnly, Hidden, System, Archive
    FileTimes times;
    unsigned names = 1;  // number of entries that lead here
};

struct Node;
using Children = std::map<std::string, std::unique_ptr<Node>>;  // by name in upper case

struct Node {
    std::string name;
    EntryKind kind = EntryKind::File;
    std::shared_ptr<Content> content = std::make_shared<Content>();
    Children children;             // of a folder
    std::string target;            // of a link
    bool standsForFolder = false;  // a link made for a folder carries the Directory bit
    bool mountPoint = false;       // its children lie on another volume

    [[nodiscard]] bool isFolder() const { return kind == EntryKind::Folder; }
    [[nodiscard]] bool isReadOnly() const { return (content->attributes & attribute::ReadOnly) != 0; }
};

struct Volume {
    Node root;
    DriveType type = DriveType::Fixed;
    std::uint64_t freeBytes = 0;
    std::uint64_t totalBytes = 0;
    bool ready = true;
    bool full = false;  // every write that needs room fails
};

}  // namespace tidvane::platform::memory
