// The record that lies beside each unit of a recycle bin and tells where it came from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidvane::platform::machine {

// "$Rxxxxxx.ext" holds what was removed, "$Ixxxxxx.ext" this record, little end first:
//   version 1 (Windows Vista to 8.1)   8 bytes 1, 8 bytes length, 8 bytes FILETIME, 520 bytes path in UTF-16
//   version 2 (Windows 10 and later)   8 bytes 2, 8 bytes length, 8 bytes FILETIME, 4 bytes count of UTF-16 units with
//                                      the closing NUL, then the path
struct RecycleRecord {
    std::uint64_t bytes = 0;    // lengths of the unit, without clusters
    std::uint64_t removed = 0;  // FILETIME
    std::string path;           // where it lay, UTF-8
};

// A path that does not fit into a record of version 1 is written as version 2.
std::string encodeRecycleRecord(const RecycleRecord& record, int version);
// Nothing if the bytes are no record.
std::optional<RecycleRecord> decodeRecycleRecord(std::string_view bytes);

}  // namespace tidvane::platform::machine
