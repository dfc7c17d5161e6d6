// Where things lie in an index of the WinINet cache ("index.dat"), as far as they are read or written here. All numbers
// are little-endian.
//
//   header       signature, length, first hash table, blocks in all and in use, usage counters, names of the folders
//   bitmap       one bit a block: taken or free
//   blocks       128 bytes each; a hash table or a record takes several in a row
//
// A hash table has 64 rows of 7 slots: a hash and the place of a record. When a row is full the next table goes on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tidvane::platform::url_cache {

// Internet Explorer 5 to 9, and Wine, which keeps its caches apart by a signature of its own. Both end in a NUL.
inline constexpr std::string_view kWindowsSignature{"Client UrlCache MMF Ver 5.2\0", 28};
inline constexpr std::string_view kWineSignature{"WINE URLCache Ver 0.2012001\0", 28};

// The header.
inline constexpr std::size_t kFileSize = 0x1C;
inline constexpr std::size_t kFirstTable = 0x20;
inline constexpr std::size_t kBlocksInAll = 0x24;
inline constexpr std::size_t kBlocksInUse = 0x28;
inline constexpr std::size_t kUsageLimit = 0x30;   // 64 bits, bytes of cached files
inline constexpr std::size_t kUsage = 0x38;        // 64 bits
inline constexpr std::size_t kExemptUsage = 0x40;  // 64 bits, the part of it that is kept when room is made
inline constexpr std::size_t kFolderCount = 0x48;
inline constexpr std::size_t kFolders = 0x4C;  // each: number of files, name without a NUL
inline constexpr std::size_t kFolderSize = 12;
inline constexpr std::size_t kFolderName = 4;
inline constexpr std::size_t kFolderNameSize = 8;
inline constexpr std::size_t kMostFolders = 32;
inline constexpr std::size_t kBitmap = 0x250;

inline constexpr std::size_t kFirstBlock = 0x4000;
inline constexpr std::size_t kBlockSize = 0x80;
inline constexpr std::size_t kMostBlocks = (kFirstBlock - kBitmap) * 8;
inline constexpr std::size_t kLargestFile = kFirstBlock + kMostBlocks * kBlockSize;

// What hash tables and records begin with.
inline constexpr std::size_t kBlocks = 0x04;

inline constexpr std::string_view kTableSignature = "HASH";
inline constexpr std::size_t kNextTable = 0x08;
inline constexpr std::size_t kTableNumber = 0x0C;
inline constexpr std::size_t kSlots = 0x10;
inline constexpr std::size_t kSlotSize = 8;
inline constexpr std::size_t kSlotRecord = 4;
inline constexpr std::size_t kRows = 64;
inline constexpr std::size_t kRowSlots = 7;
inline constexpr std::size_t kTableSlots = kRows * kRowSlots;
inline constexpr std::size_t kTableBlocks = 0x20;

// The low six bits of a slot's hash: even when it stands for a record with an address.
inline constexpr std::uint32_t kHashFlags = 0x3F;
inline constexpr std::uint32_t kNoAddressFlag = 1;
inline constexpr std::uint32_t kDeletedSlot = 1;  // the search for an address goes on behind it
inline constexpr std::uint32_t kFreeSlot = 3;     // and ends here

inline constexpr std::string_view kRecordSignature = "URL ";
// No address and no headers that a server sends need more than 64 KB. Without a bound, records on top of one another
// make up far more text than the file has.
inline constexpr std::size_t kMostRecordBlocks = 0x200;
inline constexpr std::size_t kLastModified = 0x08;  // FILETIME
inline constexpr std::size_t kLastAccess = 0x10;    // FILETIME
inline constexpr std::size_t kSize = 0x20;          // 64 bits, of the cached file
inline constexpr std::size_t kExemptSeconds = 0x2C;
inline constexpr std::size_t kFixedSize = 0x30;  // value 0x60: where what is constant in size ends
inline constexpr std::size_t kUrlPlace = 0x34;   // from the record's start, as the places below
inline constexpr std::size_t kFolder = 0x38;     // 8 bits
inline constexpr std::size_t kVersions = 0x3A;   // 16 bits
inline constexpr std::size_t kFilePlace = 0x3C;
inline constexpr std::size_t kType = 0x40;
inline constexpr std::size_t kHeadersPlace = 0x44;
inline constexpr std::size_t kHeadersSize = 0x48;
inline constexpr std::size_t kLastChecked = 0x50;  // as in the file system of DOS
inline constexpr std::size_t kUses = 0x54;
inline constexpr std::size_t kFileTime = 0x5C;   // the same
inline constexpr std::size_t kTextStart = 0x60;  // no text begins before
inline constexpr std::size_t kTextsOfWriters = 0x68;

inline constexpr std::uint8_t kNoFolder = 0xFE;  // the file lies beside the index

// The caller has made sure that the place is inside.
inline std::uint32_t get32(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8U | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

inline std::uint64_t get64(std::string_view bytes, std::size_t at) {
    return get32(bytes, at) | static_cast<std::uint64_t>(get32(bytes, at + 4)) << 32U;
}

inline void put32(std::string& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> 8 * i & 0xFFU);
}

inline void put64(std::string& bytes, std::size_t at, std::uint64_t value) {
    put32(bytes, at, static_cast<std::uint32_t>(value));
    put32(bytes, at + 4, static_cast<std::uint32_t>(value >> 32U));
}

}  // namespace tidvane::platform::url_cache
