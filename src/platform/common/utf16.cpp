#include "platform/common/utf16.h"

namespace tidvane::platform {

namespace {

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

void appendUnit(std::string& bytes, unsigned unit) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
}

}  // namespace

void appendUtf8(std::string& text, char32_t point) {
    if (point < 0x80) {
        text.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        text.push_back(static_cast<char>(0xC0 | (point >> 6)));
        text.push_back(static_cast<char>(0x80 | (point & 0x3F)));
    } else if (point < 0x10000) {
        text.push_back(static_cast<char>(0xE0 | (point >> 12)));
        text.push_back(static_cast<char>(0x80 | ((point >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (point & 0x3F)));
    } else {
        text.push_back(static_cast<char>(0xF0 | (point >> 18)));
        text.push_back(static_cast<char>(0x80 | ((point >> 12) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | ((point >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (point & 0x3F)));
    }
}

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
    const unsigned first = byteAt(text, at++);
    if (first < 0x80) return first;
    int more = 0;
    char32_t point = 0;
    char32_t least = 0;
    if (first >= 0xC2 && first < 0xE0) {
        more = 1;
        point = first & 0x1F;
        least = 0x80;
    } else if (first >= 0xE0 && first < 0xF0) {
        more = 2;
        point = first & 0x0F;
        least = 0x800;
    } else if (first >= 0xF0 && first < 0xF5) {
        more = 3;
        point = first & 0x07;
        least = 0x10000;
    } else {
        return first;
    }
    std::size_t next = at;
    for (; more > 0; --more, ++next) {
        if (next >= text.size() || (byteAt(text, next) & 0xC0) != 0x80) return first;
        point = (point << 6) | (byteAt(text, next) & 0x3F);
    }
    if (point < least || point > 0x10FFFF) return first;
    at = next;
    return point;
}

std::string utf16leFromUtf8(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (std::size_t at = 0; at < text.size();) {
        const char32_t point = nextCodePoint(text, at);
        if (point < 0x10000) {
            appendUnit(bytes, static_cast<unsigned>(point));
        } else {
            appendUnit(bytes, 0xD800 + static_cast<unsigned>((point - 0x10000) >> 10));
            appendUnit(bytes, 0xDC00 + static_cast<unsigned>((point - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

std::string utf8FromUtf16le(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() / 2);
    const auto unitAt = [&](std::size_t at) { return byteAt(bytes, at) | (byteAt(bytes, at + 1) << 8); };
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t point = unitAt(at);
        if (point >= 0xD800 && point < 0xDC00 && at + 3 < bytes.size()) {
            const unsigned low = unitAt(at + 2);
            if (low >= 0xDC00 && low < 0xE000) {
                point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
                at += 2;
            }
        }
        appendUtf8(text, point);
    }
    return text;
}

std::size_t utf16Length(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) units += nextCodePoint(text, at) < 0x10000 ? 1 : 2;
    return units;
}

}  // namespace tidvane::platform
