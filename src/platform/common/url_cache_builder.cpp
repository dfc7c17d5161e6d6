#include "platform/common/url_cache_builder.h"

#include <algorithm>
#include <array>

#include "base/date_time.h"

namespace tidvane::platform {

using namespace url_cache;

namespace {

// The permutation of P. K. Pearson ("Fast hashing of variable-length text strings", 1990), with its rows and columns
// exchanged. Wine gives it away by the slots of addresses of a single byte.
// clang-format off
constexpr std::array<std::uint8_t, 256> kPermutation = {
    0x01, 0x0E, 0x6E, 0x19, 0x61, 0xAE, 0x84, 0x77, 0x8A, 0xAA, 0x7D, 0x76, 0x1B, 0xE9, 0x8C, 0x33,
    0x57, 0xC5, 0xB1, 0x6B, 0xEA, 0xA9, 0x38, 0x44, 0x1E, 0x07, 0xAD, 0x49, 0xBC, 0x28, 0x24, 0x41,
    0x31, 0xD5, 0x68, 0xBE, 0x39, 0xD3, 0x94, 0xDF, 0x30, 0x73, 0x0F, 0x02, 0x43, 0xBA, 0xD2, 0x1C,
    0x0C, 0xB5, 0x67, 0x46, 0x16, 0x3A, 0x4B, 0x4E, 0xB7, 0xA7, 0xEE, 0x9D, 0x7C, 0x93, 0xAC, 0x90,
    0xB0, 0xA1, 0x8D, 0x56, 0x3C, 0x42, 0x80, 0x53, 0x9C, 0xF1, 0x4F, 0x2E, 0xA8, 0xC6, 0x29, 0xFE,
    0xB2, 0x55, 0xFD, 0xED, 0xFA, 0x9A, 0x85, 0x58, 0x23, 0xCE, 0x5F, 0x74, 0xFC, 0xC0, 0x36, 0xDD,
    0x66, 0xDA, 0xFF, 0xF0, 0x52, 0x6A, 0x9E, 0xC9, 0x3D, 0x03, 0x59, 0x09, 0x2A, 0x9B, 0x9F, 0x5D,
    0xA6, 0x50, 0x32, 0x22, 0xAF, 0xC3, 0x64, 0x63, 0x1A, 0x96, 0x10, 0x91, 0x04, 0x21, 0x08, 0xBD,
    0x79, 0x40, 0x4D, 0x48, 0xD0, 0xF5, 0x82, 0x7A, 0x8F, 0x37, 0x69, 0x86, 0x1D, 0xA4, 0xB9, 0xC2,
    0xC1, 0xEF, 0x65, 0xF2, 0x05, 0xAB, 0x7E, 0x0B, 0x4A, 0x3B, 0x89, 0xE4, 0x6C, 0xBF, 0xE8, 0x8B,
    0x06, 0x18, 0x51, 0x14, 0x7F, 0x11, 0x5B, 0x5C, 0xFB, 0x97, 0xE1, 0xCF, 0x15, 0x62, 0x71, 0x70,
    0x54, 0xE2, 0x12, 0xD6, 0xC7, 0xBB, 0x0D, 0x20, 0x5E, 0xDC, 0xE0, 0xD4, 0xF7, 0xCC, 0xC4, 0x2B,
    0xF9, 0xEC, 0x2D, 0xF4, 0x6F, 0xB6, 0x99, 0x88, 0x81, 0x5A, 0xD9, 0xCA, 0x13, 0xA5, 0xE7, 0x47,
    0xE6, 0x8E, 0x60, 0xE3, 0x3E, 0xB3, 0xF6, 0x72, 0xA2, 0x35, 0xA0, 0xD7, 0xCD, 0xB4, 0x2F, 0x6D,
    0x2C, 0x26, 0x1F, 0x95, 0x87, 0x00, 0xD8, 0x34, 0x3F, 0x17, 0x25, 0x45, 0x27, 0x75, 0x92, 0xB8,
    0xA3, 0xC8, 0xDE, 0xEB, 0xF8, 0xF3, 0xDB, 0x0A, 0x98, 0x83, 0x7B, 0xE5, 0xCB, 0x4C, 0x78, 0xD1,
};
// clang-format on

constexpr std::uint32_t kVersionOfRecords = 0x1010;
constexpr std::uint64_t kUsageLimitOfNew = 128ULL << 20U;

std::size_t blocksFor(std::size_t bytes) {
    return (bytes + kBlockSize - 1) / kBlockSize;
}

// Date and time of the file system of DOS, the date in the low half.
std::uint32_t dosTime(std::uint64_t fileTime) {
    const base::DateTime at = base::fromFileTime(fileTime);
    if (at.year < 1980) return 0;
    const unsigned date = static_cast<unsigned>((at.year - 1980) << 9 | at.month << 5 | at.day);
    const unsigned time = static_cast<unsigned>(at.hour << 11 | at.minute << 5 | at.second / 2);
    return date | time << 16U;
}

// One record, its last block filled up.
class RecordBytes {
public:
    explicit RecordBytes(const UrlCacheItem& item) : bytes_(kTextsOfWriters, '\0') {
        bytes_.replace(0, kRecordSignature.size(), kRecordSignature);
        put64(bytes_, kLastModified, item.lastModified);
        put64(bytes_, kLastAccess, item.lastAccess);
        put64(bytes_, kSize, item.size);
        put32(bytes_, kFixedSize, kTextStart);
        put32(bytes_, kFolder, static_cast<std::uint32_t>(item.folder) | kVersionOfRecords << 16U);
        put32(bytes_, kType, item.type);
        put32(bytes_, kUses, 1);
        put32(bytes_, kLastChecked, dosTime(item.lastAccess));
        addText(kUrlPlace, item.url);
        if (!item.file.empty()) {
            put32(bytes_, kFileTime, dosTime(item.fileWritten));
            addText(kFilePlace, item.file);
        }
        if (!item.headers.empty()) {
            put32(bytes_, kHeadersSize, static_cast<std::uint32_t>(item.headers.size()));
            addText(kHeadersPlace, item.headers);
        }
        put32(bytes_, kBlocks, static_cast<std::uint32_t>(blocksFor(bytes_.size())));
        bytes_.resize(blocksFor(bytes_.size()) * kBlockSize);
    }

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    void addText(std::size_t field, const std::string& text) {
        put32(bytes_, field, static_cast<std::uint32_t>(bytes_.size()));
        bytes_ += text;
        bytes_.resize((bytes_.size() + 4) / 4 * 4);  // a NUL at least
    }

    std::string bytes_;
};

class IndexBytes {
public:
    IndexBytes(const std::vector<std::string>& folders, std::string_view signature) : bytes_(kFirstBlock, '\0') {
        bytes_.replace(0, signature.size(), signature);
        put64(bytes_, kUsageLimit, kUsageLimitOfNew);
        put32(bytes_, kFolderCount, static_cast<std::uint32_t>(folders.size()));
        for (std::size_t i = 0; i < folders.size(); ++i) {
            std::string name = folders[i];
            name.resize(kFolderNameSize);
            bytes_.replace(kFolders + i * kFolderSize + kFolderName, kFolderNameSize, name);
        }
        addTable();
        put32(bytes_, kFirstTable, static_cast<std::uint32_t>(tables_.front()));
    }

    void add(const UrlCacheItem& item) {
        const std::uint32_t hash = urlCacheHash(item.url);
        const std::size_t slot = freeSlot(hash % kRows);
        put32(bytes_, slot, hash & ~kHashFlags);
        put32(bytes_, slot + kSlotRecord, static_cast<std::uint32_t>(bytes_.size()));
        bytes_ += RecordBytes(item).bytes();

        put64(bytes_, kUsage, get64(bytes_, kUsage) + item.size);
        if (item.folder < get32(bytes_, kFolderCount)) {
            const std::size_t files = kFolders + item.folder * kFolderSize;
            put32(bytes_, files, get32(bytes_, files) + 1);
        }
    }

    std::string finished() {
        const std::size_t used = blocksFor(bytes_.size() - kFirstBlock);
        for (std::size_t block = 0; block < used; ++block) {
            char& bits = bytes_[kBitmap + block / 8];
            bits = static_cast<char>(bits | 1 << block % 8);
        }
        std::size_t inAll = kTableBlocks * 4;
        while (inAll < used) inAll *= 2;
        inAll = std::min(inAll, kMostBlocks);
        bytes_.resize(kFirstBlock + inAll * kBlockSize);
        put32(bytes_, kFileSize, static_cast<std::uint32_t>(bytes_.size()));
        put32(bytes_, kBlocksInAll, static_cast<std::uint32_t>(inAll));
        put32(bytes_, kBlocksInUse, static_cast<std::uint32_t>(used));
        return std::move(bytes_);
    }

private:
    void addTable() {
        const std::size_t start = bytes_.size();
        bytes_.resize(start + kTableBlocks * kBlockSize);
        bytes_.replace(start, kTableSignature.size(), kTableSignature);
        put32(bytes_, start + kBlocks, kTableBlocks);
        put32(bytes_, start + kTableNumber, static_cast<std::uint32_t>(tables_.size()));
        for (std::size_t i = 0; i < kTableSlots; ++i) {
            put32(bytes_, start + kSlots + i * kSlotSize, kFreeSlot);
            put32(bytes_, start + kSlots + i * kSlotSize + kSlotRecord, kFreeSlot);
        }
        if (!tables_.empty()) put32(bytes_, tables_.back() + kNextTable, static_cast<std::uint32_t>(start));
        tables_.push_back(start);
    }

    std::size_t freeSlot(std::size_t row) {
        for (std::size_t table = 0;; ++table) {
            if (table == tables_.size()) addTable();
            for (std::size_t i = row * kRowSlots; i < (row + 1) * kRowSlots; ++i) {
                const std::size_t slot = tables_[table] + kSlots + i * kSlotSize;
                if (get32(bytes_, slot) == kFreeSlot) return slot;
            }
        }
    }

    std::string bytes_;
    std::vector<std::size_t> tables_;
};

}  // namespace

std::uint32_t urlCacheHash(std::string_view url) {
    std::uint32_t hash = 0;
    for (unsigned lane = 0; lane < 4 && !url.empty(); ++lane) {
        auto sum = kPermutation[(static_cast<std::uint8_t>(url.front()) + lane) & 0xFFU];
        for (const char c : url.substr(1))
            sum = kPermutation[static_cast<std::uint8_t>(sum ^ static_cast<std::uint8_t>(c))];
        hash |= std::uint32_t{sum} << 8U * lane;
    }
    return hash;
}

std::string makeUrlCacheIndex(const std::vector<std::string>& folders, const std::vector<UrlCacheItem>& items,
                              std::string_view signature) {
    IndexBytes index(folders, signature);
    for (const UrlCacheItem& item : items) index.add(item);
    return index.finished();
}

}  // namespace tidvane::platform
