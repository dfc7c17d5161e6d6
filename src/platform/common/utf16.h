// UTF-16, little end first, as the registry keeps texts on disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidvane::platform {

// A lone surrogate becomes its three-byte form and comes back from it unchanged; a byte that is no UTF-8 becomes the
// character of its number. An odd last byte of `bytes` is dropped.
std::string utf16leFromUtf8(std::string_view text);
std::string utf8FromUtf16le(std::string_view bytes);

// Number of UTF-16 units.
std::size_t utf16Length(std::string_view text);

// Appends one code point (surrogates too) as UTF-8.
void appendUtf8(std::string& text, char32_t point);

// Reads the code point at `at` and moves behind it.
char32_t nextCodePoint(std::string_view text, std::size_t& at);

}  // namespace tidvane::platform
