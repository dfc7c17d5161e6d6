// The rules of profile files on the bytes of one file: sections in brackets, "key=value" lines, in the ANSI code page.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tidvane::platform {

// All texts are bytes of the code page. Any bytes are a profile file; every operation takes one pass over them.
//
// A line ends at CR, LF or both; a NUL ends what is read of a line. White space round names and values does not count.
// A line whose first character is "[" and that has a "]" somewhere is a header, up to the last "]". What stands before
// the first header belongs to a section without a name. Of sections and keys that occur twice the first one is found.
// ASCII letters compare without regard to case, all other bytes as they are.

// What GetPrivateProfileStringA puts into a buffer of `size` bytes. Without a section: the names of all sections;
// without a key: the keys of the section; each name followed by a NUL. `fallback` loses one pair of quotes, and its
// blanks at the end when a key is asked for; it also stands in for a list of keys that would begin with a NUL.
std::string profileString(std::string_view file, const std::optional<std::string>& section,
                          const std::optional<std::string>& key, std::string_view fallback, std::size_t size);

// The lines of a section with their blanks dropped and quotes kept, comments left out, each followed by a NUL.
std::string profileSection(std::string_view file, std::string_view section, std::size_t size);

// The file with one value written; without a value the key goes, without a key the first section of the name. All other
// bytes stay: a value replaces what stands behind "=", a new key follows the last line of its section that is not
// blank, a new section comes last. Line ends inside a value are written as they are.
std::string withProfileString(std::string_view file, std::string_view section, const std::optional<std::string>& key,
                              const std::optional<std::string>& value);

}  // namespace tidvane::platform
