// Profile files that remember whether something could not be written: the windows pass over it in silence, and whoever
// asked for settings to be stored has to hear of it.
//
// The ticks of the plug-ins are no settings of a run and never written by one: what --plugin ticks holds for that run
// alone, and nothing else of a run changes them.
#pragma once

#include "app/plug_in_files.h"
#include "base/text.h"
#include "platform/profile_files.h"

namespace tidvane::console {

class WatchedProfiles final : public platform::ProfileFiles {
public:
    explicit WatchedProfiles(platform::ProfileFiles& profiles) : profiles_(profiles) {}

    [[nodiscard]] bool failed() const { return failed_; }

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
        if (base::equalNoCase(file.substr(file.rfind('\\') + 1), app::kPlugTicksFile)) return true;
        const bool written = profiles_.WritePrivateProfileStringA(section, key, value, file);
        failed_ = failed_ || !written;
        return written;
    }

private:
    platform::ProfileFiles& profiles_;
    bool failed_ = false;
};

}  // namespace tidvane::console
