#include "base/text.h"

#include "base/upper_case.h"
#include "base/utf8.h"

namespace tidvane::base {
namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char upperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

std::string mapped(std::string_view text, char (*ascii)(char), char32_t (*other)(char32_t)) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (isAscii(text[i])) {
            result += ascii(text[i++]);
            continue;
        }
        const Utf8Character c = utf8At(text, i);
        if (c.valid) {
            appendUtf8(result, other(c.value));
        } else {
            result += text[i];
        }
        i += c.size;
    }
    return result;
}

struct Folded {
    char32_t value;  // a byte that is no UTF-8 sorts behind all characters
    std::size_t size;
};

Folded foldedAt(std::string_view text, std::size_t position) {
    if (isAscii(text[position])) return {static_cast<char32_t>(upperAscii(text[position])), 1};
    const Utf8Character c = utf8At(text, position);
    return c.valid ? Folded{upperCharacter(c.value), c.size} : Folded{0x110000 + c.value, 1};
}

}  // namespace

std::string upperCase(std::string_view text) {
    return mapped(text, upperAscii, upperCharacter);
}

std::string lowerCase(std::string_view text) {
    return mapped(text, lowerAscii, lowerCharacter);
}

bool equalNoCase(std::string_view a, std::string_view b) {
    // Folding keeps the number of bytes.
    return a.size() == b.size() && compareNoCase(a, b) == 0;
}

int compareNoCase(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    // As long as all is equal, both texts stand at the same byte.
    while (i < a.size() && i < b.size()) {
        const Folded left = foldedAt(a, i);
        const Folded right = foldedAt(b, i);
        if (left.value != right.value) return left.value < right.value ? -1 : 1;
        i += left.size;
    }
    if (i < b.size()) return -1;
    return i < a.size() ? 1 : 0;
}

bool startsWithNoCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && equalNoCase(text.substr(0, start.size()), start);
}

std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (!separator.empty()) {
        const std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos) break;
        parts.emplace_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    result.reserve(text.size());
    std::size_t start = 0;
    while (!from.empty()) {
        const std::size_t found = text.find(from, start);
        if (found == std::string_view::npos) break;
        result += text.substr(start, found - start);
        result += to;
        start = found + from.size();
    }
    result += text.substr(start);
    return result;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size();) {
        const Utf8Character c = utf8At(text, i);
        i += c.size;
        count += c.size == 4 ? 2 : 1;
    }
    return count;
}

std::size_t byteOffset(std::string_view text, std::size_t character) {
    std::size_t i = 0;
    while (i < text.size()) {
        const Utf8Character c = utf8At(text, i);
        const std::size_t units = c.size == 4 ? 2 : 1;
        if (character < units) break;
        character -= units;
        i += c.size;
    }
    return i;
}

std::string withBackslash(std::string_view folder) {
    std::string result(folder);
    if (result.empty() || result.back() != '\\') result += '\\';
    return result;
}

std::string withoutBackslash(std::string_view folder) {
    const bool root = folder.size() == 3 && folder[1] == ':';
    if (!root && !folder.empty() && folder.back() == '\\') folder.remove_suffix(1);
    return std::string(folder);
}

bool isAbsolutePath(std::string_view path) {
    if (path.size() >= 3 && path[1] == ':' && path[2] == '\\') {
        const char letter = upperAscii(path[0]);
        return letter >= 'A' && letter <= 'Z';
    }
    if (path.substr(0, 2) != "\\\\") return false;
    const std::size_t serverEnd = path.find('\\', 2);
    if (serverEnd == std::string_view::npos || serverEnd == 2) return false;
    const std::string_view server = path.substr(2, serverEnd - 2);
    // "\\?\" and "\\.\" lead to devices.
    if (server == "?" || server == ".") return false;
    return serverEnd + 1 < path.size() && path[serverEnd + 1] != '\\';
}

}  // namespace tidvane::base
