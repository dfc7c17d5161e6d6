#include "settings/bans.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/common/protected_keys.h"
#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr std::array<std::pair<std::string_view, platform::HKey>, 7> kHives{{
    {"HKEY_CLASSES_ROOT", platform::HKEY_CLASSES_ROOT_},
    {"HKEY_CURRENT_USER", platform::HKEY_CURRENT_USER_},
    {"HKEY_LOCAL_MACHINE", platform::HKEY_LOCAL_MACHINE_},
    {"HKEY_USERS", platform::HKEY_USERS_},
    {"HKEY_PERFORMANCE_DATA", 0x80000004U},
    {"HKEY_CURRENT_CONFIG", platform::HKEY_CURRENT_CONFIG_},
    {"HKEY_DYN_DATA", 0x80000006U},
}};

// At most `limit` bytes, so that nobody waits for a file that cannot be a list of places.
bool readBans(Program& program, const std::string& file, std::uint64_t limit, std::string& bytes) {
    if (!platform::ok(program.platform.files.ReadFileBytes(file, bytes, limit + 1))) return false;
    if (bytes.size() <= limit) return true;
    bytes.resize(static_cast<std::size_t>(limit));
    if (program.tellOnce(file + " is too long")) {
        program.display.warn(sentence(program, Sentence::BanFileTooLong, {file, std::to_string(limit)}));
    }
    return true;
}

// What the system makes of a name: without the blanks and dots behind it. Of "." and the like nothing is left.
std::string withoutDroppedEnd(const std::string& name) {
    return name.substr(0, name.find_last_not_of(". ") + 1);
}

}  // namespace

bool FindInFile(Program& program, const std::string& file, const std::string& text, std::size_t blockSize,
                std::uint64_t limit) {
    std::string bytes;
    if (blockSize == 0 || !readBans(program, file, limit, bytes)) return false;

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

std::string plainSpelling(const std::string& text) {
    std::string path = base::replaceAll(base::trimBlanks(text), "/", "\\");
    if (path.find('\\') == std::string::npos) return path;
    const bool share = path.starts_with("\\\\");
    const std::size_t root = share ? 2 : 1;  // parts that ".." does not leave
    const std::vector<std::string> all = base::split(std::string_view(path).substr(share ? 2 : 0), "\\");
    std::vector<std::string> parts{all.front()};
    for (std::size_t i = 1; i < all.size(); ++i) {
        std::string name = withoutDroppedEnd(all[i]);
        if (all[i] == "..") {
            if (parts.size() > root) parts.pop_back();
        } else if (!name.empty()) {
            parts.push_back(std::move(name));
        }
    }
    std::string plain = share ? "\\\\" + parts.front() : parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) plain += "\\" + parts[i];
    if (withoutDroppedEnd(all.back()).empty() && !plain.ends_with('\\')) plain += '\\';
    return plain;
}

bool isProtectedRegistryEntry(const std::string& text) {
    const std::string_view entry = base::trimBlanks(text);
    const std::size_t separator = std::min(entry.find('\\'), entry.size());
    return std::any_of(kHives.begin(), kHives.end(), [&](const auto& hive) {
        return base::equalNoCase(hive.first, entry.substr(0, separator)) &&
               platform::isProtectedKey(hive.second, entry.substr(separator));
    });
}

}  // namespace tidvane::settings
