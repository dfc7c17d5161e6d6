#include "platform/common/profile_files_on_files.h"

#include "platform/common/profile_text.h"

namespace tidvane::platform {

std::string ProfileFilesOnFiles::GetPrivateProfileStringA(const std::optional<std::string>& section,
                                                          const std::optional<std::string>& key,
                                                          const std::string& fallback, std::size_t size,
                                                          const std::string& file) {
    return page_.toUtf8(profileString(bytesOf(file), encoded(section), encoded(key), encoded(fallback), size));
}

std::string ProfileFilesOnFiles::GetPrivateProfileSectionA(const std::string& section, std::size_t size,
                                                           const std::string& file) {
    return page_.toUtf8(profileSection(bytesOf(file), encoded(section), size));
}

template <class Change>
bool ProfileFilesOnFiles::rewrite(const std::string& file, Change change) {
    std::string before;
    const Status status = files_.ReadFileBytes(file, before, largestFile + 1);
    if (status == Status::NotFound) {
        before.clear();
    } else if (!ok(status) || before.size() > largestFile) {
        return false;
    }
    const std::string after = change(before);
    if (after == before) return true;
    return ok(files_.WriteFileBytes(file, after));
}

bool ProfileFilesOnFiles::WritePrivateProfileStringA(const std::string& section, const std::optional<std::string>& key,
                                                     const std::optional<std::string>& value, const std::string& file) {
    return rewrite(file, [&](const std::string& before) {
        return withProfileString(before, encoded(section), encoded(key), encoded(value));
    });
}

bool ProfileFilesOnFiles::WriteValues(const std::string& section, const Values& values, const std::string& file) {
    return rewrite(file, [&](std::string bytes) {
        for (const auto& [key, value] : values) {
            bytes = withProfileString(bytes, encoded(section), encoded(key), encoded(value));
        }
        return bytes;
    });
}

std::string ProfileFilesOnFiles::bytesOf(const std::string& file) const {
    std::string bytes;
    // A file that cannot be read is an empty one.
    if (!ok(files_.ReadFileBytes(file, bytes, largestFile))) bytes.clear();
    return bytes;
}

std::string ProfileFilesOnFiles::encoded(const std::string& text) const {
    return page_.fromUtf8(std::string_view(text).substr(0, text.find('\0')));
}

std::optional<std::string> ProfileFilesOnFiles::encoded(const std::optional<std::string>& text) const {
    if (!text) return std::nullopt;
    return encoded(*text);
}

}  // namespace tidvane::platform
