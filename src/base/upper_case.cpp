#include "base/upper_case.h"

#include <array>
#include <cstdint>

namespace tidvane::base {
namespace {

// Small letters from `first` to `last`, every `step`th of them, whose capital stands `offset` further on. Made from the
// simple case mappings of Unicode. Left out, as file systems leave them out: letters that are no capital's small form
// (micro sign, dotless i, long s) and pairs whose encodings differ in length.
struct LetterRange {
    std::uint16_t first;
    std::uint16_t last;
    std::uint16_t step;
    std::int16_t offset;
};

// clang-format off
constexpr LetterRange letterRanges[] = {
    {0x0E0, 0x0F6, 1, -32}, {0x0F8, 0x0FE, 1, -32}, {0x0FF, 0x0FF, 1, 121}, {0x101, 0x12F, 2, -1},
    {0x133, 0x137, 2, -1}, {0x13A, 0x148, 2, -1}, {0x14B, 0x177, 2, -1}, {0x17A, 0x17E, 2, -1},
    {0x180, 0x180, 1, 195}, {0x183, 0x185, 2, -1}, {0x188, 0x188, 1, -1}, {0x18C, 0x18C, 1, -1},
    {0x192, 0x192, 1, -1}, {0x195, 0x195, 1, 97}, {0x199, 0x199, 1, -1}, {0x19A, 0x19A, 1, 163},
    {0x19E, 0x19E, 1, 130}, {0x1A1, 0x1A5, 2, -1}, {0x1A8, 0x1A8, 1, -1}, {0x1AD, 0x1AD, 1, -1},
    {0x1B0, 0x1B0, 1, -1}, {0x1B4, 0x1B6, 2, -1}, {0x1B9, 0x1B9, 1, -1}, {0x1BD, 0x1BD, 1, -1}, {0x1BF, 0x1BF, 1, 56},
    {0x1C6, 0x1C6, 1, -2}, {0x1C9, 0x1C9, 1, -2}, {0x1CC, 0x1CC, 1, -2}, {0x1CE, 0x1DC, 2, -1},
    {0x1DD, 0x1DD, 1, -79}, {0x1DF, 0x1EF, 2, -1}, {0x1F3, 0x1F3, 1, -2}, {0x1F5, 0x1F5, 1, -1},
    {0x1F9, 0x21F, 2, -1}, {0x223, 0x233, 2, -1}, {0x23C, 0x23C, 1, -1}, {0x242, 0x242, 1, -1}, {0x247, 0x24F, 2, -1},
    {0x253, 0x253, 1, -210}, {0x254, 0x254, 1, -206}, {0x256, 0x257, 1, -205}, {0x259, 0x259, 1, -202},
    {0x25B, 0x25B, 1, -203}, {0x260, 0x260, 1, -205}, {0x263, 0x263, 1, -207}, {0x268, 0x268, 1, -209},
    {0x269, 0x269, 1, -211}, {0x26F, 0x26F, 1, -211}, {0x272, 0x272, 1, -213}, {0x275, 0x275, 1, -214},
    {0x280, 0x280, 1, -218}, {0x283, 0x283, 1, -218}, {0x288, 0x288, 1, -218}, {0x289, 0x289, 1, -69},
    {0x28A, 0x28B, 1, -217}, {0x28C, 0x28C, 1, -71}, {0x292, 0x292, 1, -219}, {0x371, 0x373, 2, -1},
    {0x377, 0x377, 1, -1}, {0x37B, 0x37D, 1, 130}, {0x3AC, 0x3AC, 1, -38}, {0x3AD, 0x3AF, 1, -37},
    {0x3B1, 0x3C1, 1, -32}, {0x3C2, 0x3C2, 1, -31}, {0x3C3, 0x3CB, 1, -32}, {0x3CC, 0x3CC, 1, -64},
    {0x3CD, 0x3CE, 1, -63}, {0x3D7, 0x3D7, 1, -8}, {0x3D9, 0x3EF, 2, -1}, {0x3F2, 0x3F2, 1, 7},
    {0x3F3, 0x3F3, 1, -116}, {0x3F8, 0x3F8, 1, -1}, {0x3FB, 0x3FB, 1, -1}, {0x430, 0x44F, 1, -32},
    {0x450, 0x45F, 1, -80}, {0x461, 0x481, 2, -1}, {0x48B, 0x4BF, 2, -1}, {0x4C2, 0x4CE, 2, -1},
    {0x4CF, 0x4CF, 1, -15}, {0x4D1, 0x52F, 2, -1}, {0x561, 0x586, 1, -48}, {0x1E01, 0x1E95, 2, -1},
    {0x1EA1, 0x1EFF, 2, -1},
};
// clang-format on

constexpr char32_t tableEnd = 0x1F00;

constexpr std::array<std::uint16_t, tableEnd> makeUpper() {
    std::array<std::uint16_t, tableEnd> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<std::uint16_t>(i);
    for (char32_t letter = U'a'; letter <= U'z'; ++letter) table[letter] = static_cast<std::uint16_t>(letter - 0x20);
    for (const LetterRange& range : letterRanges) {
        for (unsigned letter = range.first; letter <= range.last; letter += range.step) {
            table[letter] = static_cast<std::uint16_t>(static_cast<int>(letter) + range.offset);
        }
    }
    return table;
}

constexpr std::array<std::uint16_t, tableEnd> makeLower() {
    std::array<std::uint16_t, tableEnd> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<std::uint16_t>(i);
    for (char32_t letter = U'a'; letter <= U'z'; ++letter) table[letter - 0x20] = static_cast<std::uint16_t>(letter);
    for (const LetterRange& range : letterRanges) {
        for (unsigned letter = range.first; letter <= range.last; letter += range.step) {
            const int upper = static_cast<int>(letter) + range.offset;
            // The final sigma shares its capital with the common one, which is that capital's small form.
            if (letter != 0x3C2) table[static_cast<std::size_t>(upper)] = static_cast<std::uint16_t>(letter);
        }
    }
    return table;
}

constexpr auto upperTable = makeUpper();
constexpr auto lowerTable = makeLower();

}  // namespace

char32_t upperCharacter(char32_t character) {
    return character < tableEnd ? upperTable[character] : character;
}

char32_t lowerCharacter(char32_t character) {
    return character < tableEnd ? lowerTable[character] : character;
}

}  // namespace tidvane::base
