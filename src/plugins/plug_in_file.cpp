#include "plugins/plug_in_file.h"

#include <algorithm>
#include <string_view>

#include "base/line_input.h"
#include "base/text.h"
#include "platform/common/profile_files_on_files.h"

namespace tidvane::plugins {

namespace {

// Buffer sizes in bytes, the closing NUL included.
constexpr std::size_t kKeyListBuffer = 8192;
constexpr std::size_t kValueBuffer = 1024;

constexpr const char* kNoKeys = "Err";
constexpr const char* kNoValue = "{ERR}";

}  // namespace

std::vector<std::string> ListSections(settings::Program& program, const std::string& file) {
    std::vector<std::string> sections;
    std::string bytes;
    constexpr std::uint64_t kLimit = platform::ProfileFilesOnFiles::largestFile;
    // No further than keys and values are read: a section without its lines would be worse than none. Ignored on
    // purpose: a file that cannot be read has no sections.
    (void)program.platform.files.ReadFileBytes(file, bytes, kLimit);
    // The limit may cut a line in two, and half a line may look like a header.
    if (bytes.size() >= kLimit) bytes.erase(std::min(bytes.size(), bytes.rfind('\r')));
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::string_view line = base::trimBlanks(base::takeLine(rest));
        if (line.size() < 2 || line.front() != '[' || line.back() != ']') continue;
        sections.push_back(program.codePage().toUtf8(line.substr(1, line.size() - 2)));
    }
    return sections;
}

std::vector<std::string> ListKeys(settings::Program& program, const std::string& file, const std::string& section) {
    const std::string list =
        program.platform.profiles.GetPrivateProfileStringA(section, std::nullopt, kNoKeys, kKeyListBuffer, file);
    std::vector<std::string> keys;
    for (std::string& key : base::split(list, std::string_view("\0", 1))) {
        if (!key.empty()) keys.push_back(std::move(key));
    }
    return keys;
}

std::string ReadPlugValue(settings::Program& program, const std::string& file, const std::string& section,
                          const std::string& key, const std::string& fallback) {
    std::string value = program.platform.profiles.GetPrivateProfileStringA(section, key, kNoValue, kValueBuffer, file);
    return value == kNoValue ? fallback : value;
}

}  // namespace tidvane::plugins
