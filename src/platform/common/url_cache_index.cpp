#include "platform/common/url_cache_index.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "platform/common/url_cache_format.h"
#include "platform/common/windows_path.h"

namespace tidvane::platform {

using namespace url_cache;

bool isCachedFileName(std::string_view name) {
    if (!isCreatableName(name) || name.back() == '.' || name.back() == ' ') return false;
    return !base::equalNoCase(name, "index.dat") && !base::equalNoCase(name, "desktop.ini");
}

bool isCacheFolderName(std::string_view name) {
    return !name.empty() && name.size() <= kFolderNameSize && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    });
}

std::optional<UrlCacheIndex> UrlCacheIndex::read(std::string bytes) {
    UrlCacheIndex index(std::move(bytes));
    if (!index.hasHeader()) return std::nullopt;
    index.taken_.resize((index.bytes_.size() - kFirstBlock) / kBlockSize);
    // All tables first, so that no record can lie on one.
    for (const std::size_t table : index.takeTables()) {
        for (std::size_t i = 0; i < kTableSlots; ++i) {
            const std::size_t slot = table + kSlots + i * kSlotSize;
            if ((get32(index.bytes_, slot) & kNoAddressFlag) != 0) continue;
            index.takeRecord(get32(index.bytes_, slot + kSlotRecord), slot);
        }
    }
    index.taken_.clear();
    return index;
}

bool UrlCacheIndex::hasHeader() const {
    if (bytes_.size() < kFirstBlock || bytes_.size() > kLargestFile) return false;
    const std::string_view signature = std::string_view(bytes_).substr(0, kWindowsSignature.size());
    if (signature != kWindowsSignature && signature != kWineSignature) return false;
    return get32(bytes_, kFolderCount) <= kMostFolders;
}

// How many blocks the table or record there takes; 0 when there is none, or not all of it.
std::size_t UrlCacheIndex::wholeBlocks(std::size_t start, std::string_view signature) const {
    if (start < kFirstBlock || start % kBlockSize != 0) return 0;
    if (start >= bytes_.size() || bytes_.size() - start < kBlockSize) return 0;
    if (bytes_.compare(start, signature.size(), signature) != 0) return 0;
    const std::size_t blocks = get32(bytes_, start + kBlocks);
    return blocks <= (bytes_.size() - start) / kBlockSize ? blocks : 0;
}

bool UrlCacheIndex::takeBlocks(std::size_t start, std::size_t count) {
    const auto first = taken_.begin() + static_cast<std::ptrdiff_t>((start - kFirstBlock) / kBlockSize);
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    if (std::find(first, last, true) != last) return false;
    std::fill(first, last, true);
    return true;
}

std::vector<std::size_t> UrlCacheIndex::takeTables() {
    std::vector<std::size_t> tables;
    std::size_t start = get32(bytes_, kFirstTable);
    for (;;) {
        const std::size_t blocks = wholeBlocks(start, kTableSignature);
        if (blocks * kBlockSize < kSlots + kTableSlots * kSlotSize) return tables;
        if (!takeBlocks(start, blocks)) return tables;
        tables.push_back(start);
        start = get32(bytes_, start + kNextTable);
    }
}

void UrlCacheIndex::takeRecord(std::size_t start, std::size_t slot) {
    if (const auto known = byStart_.find(start); known != byStart_.end()) {
        places_[known->second].slots.push_back(slot);
        return;
    }
    Place place{start, wholeBlocks(start, kRecordSignature), {slot}};
    if (place.blocks == 0) return;
    Record record;
    record.url = textAt(place, kUrlPlace);
    if (record.url.empty() || !takeBlocks(start, place.blocks)) return;
    record.type = get32(bytes_, start + kType);
    record.lastAccess = get64(bytes_, start + kLastAccess);
    record.size = get64(bytes_, start + kSize);
    placeFile(place, record);
    byStart_.emplace(start, records_.size());
    byUrl_.emplace(record.url, records_.size());
    records_.push_back(std::move(record));
    places_.push_back(std::move(place));
}

// The text that a field of a record leads to: empty when it does not end inside the record.
std::string_view UrlCacheIndex::textAt(const Place& place, std::size_t field) const {
    const std::size_t offset = get32(bytes_, place.start + field);
    const std::size_t length = place.blocks * kBlockSize;
    if (offset < kTextStart || offset >= length) return {};
    const std::string_view rest = std::string_view(bytes_).substr(place.start + offset, length - offset);
    const std::size_t end = rest.find('\0');
    return end == std::string_view::npos ? std::string_view() : rest.substr(0, end);
}

void UrlCacheIndex::placeFile(const Place& place, Record& record) const {
    const std::string_view file = textAt(place, kFilePlace);
    if (!isCachedFileName(file)) return;
    const std::size_t folder = static_cast<std::uint8_t>(bytes_[place.start + kFolder]);
    if (folder != kNoFolder) {
        if (folder >= get32(bytes_, kFolderCount)) return;
        const std::size_t at = kFolders + folder * kFolderSize + kFolderName;
        const std::string_view name = std::string_view(bytes_).substr(at, kFolderNameSize);
        record.folder = name.substr(0, name.find('\0'));
        if (!isCacheFolderName(record.folder)) {
            record.folder.clear();
            return;
        }
    }
    record.file = file;
}

std::vector<std::size_t> UrlCacheIndex::find(const std::string& url) const {
    std::vector<std::size_t> found;
    const auto [first, last] = byUrl_.equal_range(url);
    for (auto it = first; it != last; ++it) {
        if (!places_[it->second].removed) found.push_back(it->second);
    }
    std::sort(found.begin(), found.end());
    return found;
}

void UrlCacheIndex::remove(std::size_t record) {
    Place& place = places_[record];
    if (place.removed) return;
    place.removed = true;
    for (const std::size_t slot : place.slots) put32(bytes_, slot, kDeletedSlot);

    const std::uint64_t size = records_[record].size;
    lower64(kUsage, size);
    if (get32(bytes_, place.start + kExemptSeconds) != 0) lower64(kExemptUsage, size);
    const std::size_t folder = static_cast<std::uint8_t>(bytes_[place.start + kFolder]);
    if (folder < get32(bytes_, kFolderCount)) {
        const std::size_t files = kFolders + folder * kFolderSize;
        if (const std::uint32_t before = get32(bytes_, files); before > 0) put32(bytes_, files, before - 1);
    }
    freeBlocks(place);
}

// The blocks are overwritten: a record that is merely free could still be read.
void UrlCacheIndex::freeBlocks(const Place& place) {
    std::uint32_t freed = 0;
    const std::size_t first = (place.start - kFirstBlock) / kBlockSize;
    for (std::size_t block = first; block < first + place.blocks; ++block) {
        char& bits = bytes_[kBitmap + block / 8];
        const auto bit = static_cast<char>(1U << block % 8);
        if ((bits & bit) != 0) ++freed;
        bits = static_cast<char>(bits & ~bit);
    }
    const std::uint32_t before = get32(bytes_, kBlocksInUse);
    put32(bytes_, kBlocksInUse, before - std::min(before, freed));
    bytes_.replace(place.start, place.blocks * kBlockSize, place.blocks * kBlockSize, '\0');
}

void UrlCacheIndex::lower64(std::size_t at, std::uint64_t by) {
    const std::uint64_t before = get64(bytes_, at);
    put64(bytes_, at, before - std::min(before, by));
}

}  // namespace tidvane::platform
