// Profile files that remember whether something could not be written: the windows pass over it in silence, and whoever
// asked for settings to be stored has to hear of it.
#pragma once

#include <string>
#include <utility>

#include "platform/profile_files.h"
#include "settings/program.h"

namespace tidvane::frontend {

class WatchedProfiles : public platform::ProfileFiles {
public:
    explicit WatchedProfiles(platform::ProfileFiles& profiles) : profiles_(profiles) {}

    [[nodiscard]] bool failed() const { return !failed_.empty(); }
    // The last file that could not be written, on the machine; from here on nothing has failed.
    std::string takeFailed() { return std::exchange(failed_, {}); }

    std::string GetPrivateProfileStringA(const std::optional<std::string>& section,
                                         const std::optional<std::string>& key, const std::string& fallback,
                                         std::size_t size, const std::string& file) override {
        return profiles_.GetPrivateProfileStringA(section, key, fallback, size, file);
    }
    std::string GetPrivateProfileSectionA(const std::string& section, std::size_t size,
                                          const std::string& file) override {
        return profiles_.GetPrivateProfileSectionA(section, size, file);
    }
    bool WritePrivateProfileStringA(const std::string& section, const std::optional<std::string>& key,
                                    const std::optional<std::string>& value, const std::string& file) override {
        return watched(file, profiles_.WritePrivateProfileStringA(section, key, value, file));
    }
    bool WriteValues(const std::string& section, const Values& values, const std::string& file) override {
        return watched(file, profiles_.WriteValues(section, values, file));
    }

private:
    bool watched(const std::string& file, bool written) {
        if (!written) failed_ = file;
        return written;
    }

    platform::ProfileFiles& profiles_;
    std::string failed_;
};

// Behind an act of the user: one warning where something that it stored could not be written, whatever it held.
void warnOfUnstored(settings::Program& program, WatchedProfiles& profiles);

}  // namespace tidvane::frontend
