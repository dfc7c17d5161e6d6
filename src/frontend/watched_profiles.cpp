#include "frontend/watched_profiles.h"

#include "settings/sentences.h"

namespace tidvane::frontend {

void warnOfUnstored(settings::Program& program, WatchedProfiles& profiles) {
    const std::string file = profiles.takeFailed();
    if (file.empty()) return;
    program.display.warn(settings::sentence(program, settings::Sentence::SettingsNotStored, {file}));
}

}  // namespace tidvane::frontend
