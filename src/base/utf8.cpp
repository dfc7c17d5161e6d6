#include "base/utf8.h"

namespace tidvane::base {
namespace {

char32_t byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

char lowSixBits(char32_t character, unsigned shift) {
    return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
}

}  // namespace

Utf8Character utf8At(std::string_view text, std::size_t position) {
    const char32_t lead = byteAt(text, position);
    if (lead < 0x80) return {lead, 1, true};
    std::size_t size = 0;
    char32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        size = 2;
        smallest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        size = 3;
        smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        size = 4;
        smallest = 0x10000;
    }
    const Utf8Character alone{lead, 1, false};
    if (size == 0 || text.size() - position < size) return alone;
    char32_t value = lead & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const char32_t next = byteAt(text, position + i);
        if ((next & 0xC0) != 0x80) return alone;
        value = (value << 6) | (next & 0x3F);
    }
    if (value < smallest || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return alone;
    return {value, size, true};
}

void appendUtf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += lowSixBits(character, 0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += lowSixBits(character, 6);
        text += lowSixBits(character, 0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        text += lowSixBits(character, 12);
        text += lowSixBits(character, 6);
        text += lowSixBits(character, 0);
    }
}

}  // namespace tidvane::base
