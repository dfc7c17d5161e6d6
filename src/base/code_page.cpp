#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/code_page_tables.h"
#include "base/utf8.h"

namespace tidvane::base {
namespace {

struct Cell {
    std::uint16_t character;
    std::uint8_t byte;
};

using ReverseTable = std::array<Cell, 128>;

ReverseTable reverseOf(const CodePageTable& table) {
    ReverseTable reverse{};
    for (unsigned i = 0; i < 128; ++i) reverse[i] = {table.characters[i], static_cast<std::uint8_t>(0x80 + i)};
    std::sort(reverse.begin(), reverse.end(), [](Cell a, Cell b) { return a.character < b.character; });
    return reverse;
}

const ReverseTable& reverseTable(std::size_t page) {
    static const auto tables = [] {
        std::array<ReverseTable, codePageCount> all{};
        for (std::size_t i = 0; i < codePageCount; ++i) all[i] = reverseOf(codePageTables[i]);
        return all;
    }();
    return tables[page];
}

std::size_t pageOf(int number) {
    std::size_t fallback = 0;
    for (std::size_t i = 0; i < codePageCount; ++i) {
        if (codePageTables[i].number == number) return i;
        if (codePageTables[i].number == 1252) fallback = i;
    }
    return fallback;
}

}  // namespace

CodePage::CodePage(int number) : page_(pageOf(number)) {}

int CodePage::number() const {
    return codePageTables[page_].number;
}

std::string CodePage::toUtf8(std::string_view bytes) const {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            appendUtf8(text, codePageTables[page_].characters[byte - 0x80]);
        }
    }
    return text;
}

std::string CodePage::fromUtf8(std::string_view text) const {
    const ReverseTable& reverse = reverseTable(page_);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Utf8Character c = utf8At(text, i);
        i += c.size;
        if (!c.valid || c.value < 0x80) {
            bytes += static_cast<char>(c.value);
            continue;
        }
        const auto* cell = std::lower_bound(reverse.begin(), reverse.end(), c.value,
                                            [](Cell a, char32_t wanted) { return a.character < wanted; });
        const bool known = cell != reverse.end() && cell->character == c.value;
        bytes += known ? static_cast<char>(cell->byte) : '?';
    }
    return bytes;
}

std::size_t CodePage::encodedLength(std::string_view text) const {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++length) i += utf8At(text, i).size;
    return length;
}

}  // namespace tidvane::base
