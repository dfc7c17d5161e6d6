// Profile files that are read and never written: what a run is given for its own use stays with it.
//
// The start and the end of the program store the places of windows, the ticks of plug-ins and more by themselves. The
// console promises that nothing of that is stored unless it was asked to. Files with a purpose of their own (the date
// of the last run, a log file that the user asked for) do not come through here.
#pragma once

#include "platform/profile_files.h"

namespace tidvane::console {

class UnsavedProfiles final : public platform::ProfileFiles {
public:
    explicit UnsavedProfiles(platform::ProfileFiles& profiles) : profiles_(profiles) {}

    std::string GetPrivateProfileStringA(const std::optional<std::string>& section,
                                         const std::optional<std::string>& key, const std::string& fallback,
                                         std::size_t size, const std::string& file) override {
        return profiles_.GetPrivateProfileStringA(section, key, fallback, size, file);
    }
    std::string GetPrivateProfileSectionA(const std::string& section, std::size_t size,
                                          const std::string& file) override {
        return profiles_.GetPrivateProfileSectionA(section, size, file);
    }
    bool WritePrivateProfileStringA(const std::string&, const std::optional<std::string>&,
                                    const std::optional<std::string>&, const std::string&) override {
        return true;
    }
    bool WriteValues(const std::string&, const Values&, const std::string&) override { return true; }

private:
    platform::ProfileFiles& profiles_;
};

}  // namespace tidvane::console
