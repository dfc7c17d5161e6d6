#include "settings/bans.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"

namespace tidvane::settings {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr std::array<std::string_view, 7> kHives{
    "HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",   "HKEY_LOCAL_MACHINE",    "HKEY_USERS",
    "HKEY_DYN_DATA",     "HKEY_CURRENT_CONFIG", "HKEY_PERFORMANCE_DATA",
};
constexpr std::array<std::string_view, 4> kFirstLevelKeys{"Software", "System", "SAM", "Security"};

template <class Names>
bool isOneOf(const Names& names, std::string_view text) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return base::equalNoCase(name, text); });
}

}  // namespace

bool FindInFile(Program& program, const std::string& file, const std::string& text, std::size_t blockSize) {
    std::string bytes;
    if (blockSize == 0 || !platform::ok(program.platform.files.ReadFileBytes(file, bytes))) return false;

    const std::string needle = base::upperCase(base::trimBlanks(text));
    const std::string needleAtLineEnd = needle + std::string(kLineEnd);
    std::string carry;
    bool firstBlock = true;
    for (std::size_t at = 0; at < bytes.size(); at += blockSize) {
        const std::string block = program.codePage().toUtf8(std::string_view(bytes).substr(at, blockSize));
        const std::string haystack = carry + base::upperCase(block);
        if (haystack.find(needleAtLineEnd) != std::string::npos) return true;
        if (firstBlock && haystack.compare(0, needle.size(), needle) == 0) return true;
        firstBlock = false;
        // Of the block as it was read, not in capitals: intended.
        const std::size_t lastLineEnd = block.rfind(kLineEnd);
        carry = lastLineEnd == std::string::npos ? std::string() : block.substr(lastLineEnd + kLineEnd.size());
    }
    return false;
}

bool isProtectedRegistryEntry(const std::string& text) {
    std::string_view entry = base::trimBlanks(text);
    while (!entry.empty() && entry.back() == '\\') entry.remove_suffix(1);
    const std::size_t separator = entry.find('\\');
    if (!isOneOf(kHives, entry.substr(0, separator))) return false;
    if (separator == std::string_view::npos) return true;
    return isOneOf(kFirstLevelKeys, entry.substr(separator + 1));
}

}  // namespace tidvane::settings
