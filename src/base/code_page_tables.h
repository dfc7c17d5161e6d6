// The upper halves of the single-byte Windows code pages.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tidvane::base {

struct CodePageTable {
    int number;
    std::uint16_t characters[128];  // of the bytes 0x80 to 0xFF
};

// Recorded from the conversion to wide characters: a byte that a page leaves open became the control character of the
// same number below 0xA0 and a private-use character (U+F8xx) from there on, so that every byte comes back.
inline constexpr std::size_t codePageCount = 10;
extern const CodePageTable codePageTables[codePageCount];

}  // namespace tidvane::base
