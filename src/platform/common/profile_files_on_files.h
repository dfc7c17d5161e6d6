// Profile files of a machine, read and written through its file system.
#pragma once

#include "base/code_page.h"
#include "platform/file_system.h"
#include "platform/profile_files.h"

namespace tidvane::platform {

// Every call reads the file anew, so that nothing is stale when another process writes to it. Texts end at a NUL.
class ProfileFilesOnFiles final : public ProfileFiles {
public:
    // Of a larger file only so much is read, and it is never written to. No profile of ours or of a browser comes near
    // it, and a window asks for hundreds of values when it is loaded: each of them takes a pass.
    static constexpr std::uint64_t largestFile = 1U << 20U;

    ProfileFilesOnFiles(FileSystem& files, const base::CodePage& page) : files_(files), page_(page) {}

    std::string GetPrivateProfileStringA(const std::optional<std::string>& section,
                                         const std::optional<std::string>& key, const std::string& fallback,
                                         std::size_t size, const std::string& file) override;
    std::string GetPrivateProfileSectionA(const std::string& section, std::size_t size,
                                          const std::string& file) override;
    // False also for a file that is there and cannot be read. A file that would not change is not written.
    bool WritePrivateProfileStringA(const std::string& section, const std::optional<std::string>& key,
                                    const std::optional<std::string>& value, const std::string& file) override;
    bool WriteValues(const std::string& section, const Values& values, const std::string& file) override;

private:
    // Replaces the file by what `change` makes of its bytes.
    template <class Change>
    bool rewrite(const std::string& file, Change change);
    [[nodiscard]] std::string bytesOf(const std::string& file) const;
    [[nodiscard]] std::string encoded(const std::string& text) const;
    [[nodiscard]] std::optional<std::string> encoded(const std::optional<std::string>& text) const;

    FileSystem& files_;
    base::CodePage page_;
};

}  // namespace tidvane::platform
