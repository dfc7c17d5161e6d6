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

namespace {

// Of a block, while reading, with no record that begins there.
constexpr std::size_t kNotLookedAt = static_cast<std::size_t>(-1);
constexpr std::size_t kNoRecord = static_cast<std::size_t>(-2);

std::size_t blockOf(std::size_t start) {
    return (start - kFirstBlock) / kBlockSize;
}

}  // namespace

std::optional<UrlCacheIndex> UrlCacheIndex::read(std::string bytes) {
    UrlCacheIndex index(std::move(bytes));
    if (!index.hasHeader()) return std::nullopt;
    index.taken_.resize(blockOf(index.bytes_.size()));
    index.begins_.resize(index.taken_.size(), kNotLookedAt);
    // All tables first, so that no record can lie on one.
    for (const std::size_t table : index.takeTables()) {
        for (std::size_t i = 0; i < kTableSlots; ++i) index.takeSlot(table + kSlots + i * kSlotSize);
    }
    index.taken_ = {};
    index.begins_ = {};
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

bool UrlCacheIndex::areFree(std::size_t start, std::size_t count) const {
    const auto first = taken_.begin() + static_cast<std::ptrdiff_t>(blockOf(start));
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    return std::find(first, last, true) == last;
}

void UrlCacheIndex::takeBlocks(std::size_t start, std::size_t count) {
    std::fill_n(taken_.begin() + static_cast<std::ptrdiff_t>(blockOf(start)), count, true);
}

std::vector<std::size_t> UrlCacheIndex::takeTables() {
    std::vector<std::size_t> tables;
    std::size_t start = get32(bytes_, kFirstTable);
    for (;;) {
        const std::size_t blocks = wholeBlocks(start, kTableSignature);
        if (blocks * kBlockSize < kSlots + kTableSlots * kSlotSize) return tables;
        if (!areFree(start, blocks)) return tables;
        takeBlocks(start, blocks);
        tables.push_back(start);
        start = get32(bytes_, start + kNextTable);
    }
}

void UrlCacheIndex::takeSlot(std::size_t slot) {
    if ((get32(bytes_, slot) & kNoAddressFlag) != 0) return;
    const std::size_t start = get32(bytes_, slot + kSlotRecord);
    const std::size_t blocks = wholeBlocks(start, kRecordSignature);
    if (blocks == 0) return;
    std::size_t& begins = begins_[blockOf(start)];
    if (begins == kNotLookedAt) {
        const std::size_t next = records_.size();
        takeRecord({start, blocks, {}, false});
        begins = records_.size() > next ? next : kNoRecord;
    }
    if (begins != kNoRecord) places_[begins].slots.push_back(slot);
}

// The bound and the blocks come before the texts, which cost most.
void UrlCacheIndex::takeRecord(Place place) {
    if (place.blocks > kMostRecordBlocks || !areFree(place.start, place.blocks)) return;
    Record record;
    record.url = textAt(place, kUrlPlace);
    if (record.url.empty()) return;
    takeBlocks(place.start, place.blocks);
    record.type = get32(bytes_, place.start + kType);
    record.lastAccess = get64(bytes_, place.start + kLastAccess);
    record.size = get64(bytes_, place.start + kSize);
    placeFile(place, record);
    byUrl_[record.url].insert(records_.size());
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
    const auto found = byUrl_.find(url);
    if (found == byUrl_.end()) return {};
    return {found->second.begin(), found->second.end()};
}

void UrlCacheIndex::remove(std::size_t record) {
    Place& place = places_[record];
    if (place.removed) return;
    place.removed = true;
    byUrl_[records_[record].url].erase(record);
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
    const std::size_t first = blockOf(place.start);
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
