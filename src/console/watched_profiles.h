// The profile files of a command that stores settings.
//
// The ticks of the plug-ins are no settings of a run and never written by one: what --plugin ticks holds for that run
// alone, and nothing else of a run changes them.
#pragma once

#include "app/plug_in_files.h"
#include "base/text.h"
#include "frontend/watched_profiles.h"

namespace tidvane::console {

class WatchedProfiles final : public frontend::WatchedProfiles {
public:
    using frontend::WatchedProfiles::WatchedProfiles;

    bool WritePrivateProfileStringA(const std::string& section, const std::optional<std::string>& key,
                                    const std::optional<std::string>& value, const std::string& file) override {
        return isOfPlugIns(file) || frontend::WatchedProfiles::WritePrivateProfileStringA(section, key, value, file);
    }
    bool WriteValues(const std::string& section, const Values& values, const std::string& file) override {
        return isOfPlugIns(file) || frontend::WatchedProfiles::WriteValues(section, values, file);
    }

private:
    static bool isOfPlugIns(const std::string& file) {
        return base::equalNoCase(file.substr(file.rfind('\\') + 1), app::kPlugTicksFile);
    }
};

}  // namespace tidvane::console
