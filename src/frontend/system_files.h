// The small files in which other programs keep where their Windows systems are. Read as far as that takes, and no
// further: whatever is broken, cut off or of another format yields less, never an error.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidvane::frontend {

inline constexpr std::uint64_t kLongestSmallFile = 1'048'576;
inline constexpr std::uint64_t kLongestMountTable = 16'777'216;

// The beginning of a plain file, up to the limit. Empty: it cannot be read, or is no plain file.
std::string readSmallFile(const std::string& path, std::uint64_t limit = kLongestSmallFile);

// A text that any window can show: bytes that are no UTF-8 and control characters become "?".
std::string shownText(std::string_view text);

// libraryfolders.vdf, in its older form too ("1" "/place"): full paths in their order.
std::vector<std::string> pathsInLibraryList(std::string_view content);
// The first value of a name in a file of that format; empty: there is none.
std::string valueInVdf(std::string_view content, std::string_view name);

// The first "name: value" of a YAML file, at its top level alone or wherever it stands; empty: there is none.
enum class YamlLevel { Top, Any };
std::string valueInYaml(std::string_view content, std::string_view name, YamlLevel level);

struct Mount {
    std::string place;
    std::string type;
    std::string source;
};
// The lines of a mountinfo table.
std::vector<Mount> mountsInTable(std::string_view content);

}  // namespace tidvane::frontend
