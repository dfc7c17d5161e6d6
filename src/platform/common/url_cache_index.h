// An index of the WinINet cache in memory: what it lists, and the same bytes without one of its records.
//
// The bytes come from anywhere. Whatever they hold, nothing outside them is read or written, reading ends, and what
// makes no sense is left out: a record or hash table that is cut off, off its blocks, without an address or on top of
// another one (the first in the order of the slots stands), a record longer than any that the cache writes; a chain of
// hash tables ends where it comes back to itself. Each place is looked at once, however many slots lead to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tidvane::platform {

class UrlCacheIndex {
public:
    // Texts are bytes as the index holds them.
    struct Record {
        std::string url;
        // Where the cached file lies: the name of a folder beside the index, empty for the index's own; and the file.
        // An empty file name: there is none, or it is none that the cache could have given (see isCachedFileName), or
        // the file is not one of the cache's own.
        std::string folder;
        std::string file;
        std::uint32_t type = 0;
        std::uint64_t lastAccess = 0;  // FILETIME
        std::uint64_t size = 0;        // of the cached file, in bytes
    };

    // Nothing: it is none, of another version, without a whole header, or larger than an index can be.
    static std::optional<UrlCacheIndex> read(std::string bytes);

    // In the order of the hash table; records that were removed keep their place.
    [[nodiscard]] const std::vector<Record>& records() const { return records_; }
    [[nodiscard]] bool isRemoved(std::size_t record) const { return places_[record].removed; }
    // Numbers of the records of an address that are not removed: as a rule one or none.
    [[nodiscard]] std::vector<std::size_t> find(const std::string& url) const;

    // Marks the slots as deleted, frees the blocks in the bitmap and overwrites them, and takes the record off the
    // counters of the header and of its folder, none of which falls below 0. A removed record stays removed.
    void remove(std::size_t record);

    // As read, with the removals.
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    struct Place {
        std::size_t start = 0;
        std::size_t blocks = 0;
        std::vector<std::size_t> slots;
        bool removed = false;
    };

    explicit UrlCacheIndex(std::string bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] bool hasHeader() const;
    [[nodiscard]] std::size_t wholeBlocks(std::size_t start, std::string_view signature) const;
    [[nodiscard]] bool areFree(std::size_t start, std::size_t count) const;
    void takeBlocks(std::size_t start, std::size_t count);
    [[nodiscard]] std::vector<std::size_t> takeTables();
    void takeSlot(std::size_t slot);
    void takeRecord(Place place);
    [[nodiscard]] std::string_view textAt(const Place& place, std::size_t field) const;
    void placeFile(const Place& place, Record& record) const;
    void freeBlocks(const Place& place);
    void lower64(std::size_t at, std::uint64_t by);

    std::string bytes_;
    // A block each, while reading: whether a table or record lies on it, and what was found of a record that begins
    // there (its number, or that there is none).
    std::vector<bool> taken_;
    std::vector<std::size_t> begins_;
    std::vector<Record> records_;
    std::vector<Place> places_;                                     // of the record with the same number
    std::unordered_map<std::string, std::set<std::size_t>> byUrl_;  // what is not removed
};

// Whether a name can be that of a file which the cache made in a folder of its own: one name without a path, a drive, a
// wildcard or a control character, not "." or "..", without a dot or blank at its end, and not one of the cache's own
// ("index.dat", "desktop.ini").
bool isCachedFileName(std::string_view name);

// Whether a name can be that of a folder which the cache made: letters and digits, eight at most.
bool isCacheFolderName(std::string_view name);

}  // namespace tidvane::platform
