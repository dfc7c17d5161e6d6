// Small text routines. Texts are UTF-8; bytes that are no UTF-8 (host names) pass through unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tidvane::base {

// Comparison of file names, keys and controls: simple upper case, character by character (Latin, Greek, Cyrillic).
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);
int compareNoCase(std::string_view a, std::string_view b);  // below 0, 0, above 0
bool startsWithNoCase(std::string_view text, std::string_view start);

struct NoCaseLess {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return compareNoCase(a, b) < 0; }
};

std::string_view trimBlanks(std::string_view text);  // blanks only, at both ends
// Always at least one part: an empty text has one, empty. An empty separator never splits.
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

// Number of characters (UTF-16 units, as a text box counts them; a byte that is no UTF-8 counts one).
std::size_t characterCount(std::string_view text);
// Byte offset of the character with this number from 0; the text's length behind the last.
// Inside a pair of units: the start of the character.
std::size_t byteOffset(std::string_view text, std::size_t character);

// Windows paths.
std::string withBackslash(std::string_view folder);     // adds one unless there is one
std::string withoutBackslash(std::string_view folder);  // "C:\" keeps its own
bool isAbsolutePath(std::string_view path);             // "X:\..." or "\\server\share..."

}  // namespace tidvane::base
