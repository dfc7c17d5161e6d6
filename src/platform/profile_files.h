// Profile files: sections in brackets, "key=value" lines, in the system's ANSI code page.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tidvane::platform {

// The rules of the calls of the same names. Sections and keys are found without regard to the case of ASCII letters;
// blanks around keys and values are dropped, and one pair of enclosing quotes of a value too. Texts are UTF-8 here;
// sizes count bytes of the code page, the closing NUL included. A file that cannot be read behaves as an empty one.
class ProfileFiles {
public:
    virtual ~ProfileFiles() = default;

    // What the call would have put into a buffer of `size` bytes, NULs inside kept; its length in code-page bytes is
    // the result of the call. A missing `section` lists all section names, a missing `key` all keys of the section,
    // each followed by a NUL. A text that does not fit is cut to size - 1 bytes (lists: size - 2, also when only
    // their closing NUL would not fit).
    virtual std::string GetPrivateProfileStringA(const std::optional<std::string>& section,
                                                 const std::optional<std::string>& key, const std::string& fallback,
                                                 std::size_t size, const std::string& file) = 0;

    // The lines "key=value" of a section, each followed by a NUL.
    virtual std::string GetPrivateProfileSectionA(const std::string& section, std::size_t size,
                                                  const std::string& file) = 0;

    // Writes one value; creates the file, the section and the key where they are missing. Without a value the key goes,
    // without a key the section. Only the line or section addressed changes. The file is replaced as a whole or not at
    // all. False: it could not be written.
    virtual bool WritePrivateProfileStringA(const std::string& section, const std::optional<std::string>& key,
                                            const std::optional<std::string>& value, const std::string& file) = 0;

    // Keys with their values, written in their order; the file is replaced once.
    using Values = std::vector<std::pair<std::string, std::string>>;
    virtual bool WriteValues(const std::string& section, const Values& values, const std::string& file) = 0;
};

}  // namespace tidvane::platform
