// Reads and writes UTF-8 character by character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidvane::base {

struct Utf8Character {
    char32_t value;    // the byte itself where it is no UTF-8
    std::size_t size;  // bytes taken, at least 1
    bool valid;
};

// The character at a position inside the text. Overlong forms, surrogates and cut sequences are no UTF-8: their first
// byte comes back alone.
Utf8Character utf8At(std::string_view text, std::size_t position);

void appendUtf8(std::string& text, char32_t character);

}  // namespace tidvane::base
