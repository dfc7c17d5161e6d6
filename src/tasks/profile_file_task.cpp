#include "tasks/profile_file_task.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tasks/browser_folders.h"
#include "tasks/browser_tasks.h"

namespace tidvane::tasks {

namespace {

using enum ProfileBase;
using enum ProfileAct;

#define WIDGETS "\\Opera\\Opera Widget Installer\\"
#define OPERA "\\Opera\\Opera\\"

// clang-format off
constexpr std::array kTargets{
    // Firefox. The profile's folder comes without a backslash.
    ProfileTarget{33, Profile,      "\\history.dat"},
    ProfileTarget{33, Profile,      "\\formhistory.sqlite"},  // form entries go with the history: intended
    ProfileTarget{34, Profile,      "\\Cookies.txt"},
    ProfileTarget{34, Profile,      "\\Cookies.sqlite"},
    ProfileTarget{36, Profile,      "\\formhistory.dat"},
    ProfileTarget{36, Profile,      "\\content-prefs.sqlite"},  // the settings of sites, as the task's name says
    ProfileTarget{37, Profile,      "\\downloads.rdf"},
    ProfileTarget{37, Profile,      "\\downloads.sqlite"},
    ProfileTarget{38, Profile,      "\\GoogleToolbarData\\searchhistory.xml"},
    ProfileTarget{40, Profile,      "\\search.sqlite"},
    ProfileTarget{41, Profile,      "\\sessionstore.js"},
    ProfileTarget{41, Profile,      "\\sessionstore.bak"},

    // Opera. "sessions" is a folder: only the recycle bin takes it, the other methods leave it where it is: intended.
    ProfileTarget{42, Profile,      "global.dat"},
    ProfileTarget{42, Profile,      "opera.dir"},
    ProfileTarget{42, Profile,      "sessions"},
    ProfileTarget{42, Profile,      "global_history.dat"},
    ProfileTarget{42, Profile,      "sessions\\autosave.win"},
    ProfileTarget{42, Profile,      "sessions\\autosave.win.bak"},
    ProfileTarget{42, Profile,      "vlink4.dat"},
    ProfileTarget{42, Profile,      "typed_history.xml"},
    ProfileTarget{42, Profile,      "search_field_history.dat"},
    ProfileTarget{42, AppData,      WIDGETS "global_history.dat"},
    ProfileTarget{42, AppData,      WIDGETS "vlink4.dat"},
    ProfileTarget{42, AppData,      WIDGETS "typed_history.xml"},
    ProfileTarget{42, LocalAppData, WIDGETS "vps\\0000\\md.dat"},
    ProfileTarget{42, LocalAppData, OPERA "vps\\0000\\md.dat"},
    ProfileTarget{42, LocalAppData, WIDGETS "vps\\", Purge},
    ProfileTarget{42, LocalAppData, OPERA "vps\\", Purge},
    ProfileTarget{43, Profile,      "cookies4.dat"},
    ProfileTarget{43, AppData,      WIDGETS "cookies4.dat"},
    ProfileTarget{43, AppData,      OPERA "pstorage\\psindex.dat"},  // of the roaming folder the index alone: intended
    ProfileTarget{43, LocalAppData, OPERA "pstorage\\", Purge},
    ProfileTarget{45, Profile,      "vlink4.dat"},
    ProfileTarget{45, Profile,      "typed_history.xml"},
    ProfileTarget{46, Profile,      "download.dat"},

    // Chrome
    ProfileTarget{48, Profile,      "History"},
    ProfileTarget{48, Profile,      "Archived History"},
    ProfileTarget{48, Profile,      "Visited Links"},
    ProfileTarget{48, Profile,      "Current Tabs"},
    ProfileTarget{48, Profile,      "Last Tabs"},
    ProfileTarget{48, Profile,      "History Provider Cache"},
    ProfileTarget{48, Profile,      "Network Action Predictor"},
    ProfileTarget{48, Profile,      "History Index*"},
    ProfileTarget{48, Profile,      "Top Sites*"},
    ProfileTarget{51, Profile,      "Current Session"},
    ProfileTarget{51, Profile,      "Last Session"},
    ProfileTarget{52, Profile,      "Web Data"},  // form entries and search engines too, as the name says: intended

    // Safari
    ProfileTarget{55, Cache,        "Cache.db"},
    ProfileTarget{56, Profile,      "Form Values.plist"},
};
// clang-format on

#undef WIDGETS
#undef OPERA

// How a task differs from the others.
struct ProfileRule {
    int step;
    // It never looks whether a file is there: it removes and reports success, also on nothing. Intended.
    bool alwaysProceeds = false;
    int missingText = 499;
    int missingStatus = 508;
};

constexpr std::array kRules{
    ProfileRule{42, true},
    ProfileRule{43, true},
    ProfileRule{45, true},
    ProfileRule{48, true},
    ProfileRule{51, true},
    ProfileRule{55, false, 550, 498},
    ProfileRule{56, false, 550, 498},
};

ProfileRule ruleOf(int step) {
    const auto* found =
        std::find_if(kRules.begin(), kRules.end(), [&](const ProfileRule& r) { return r.step == step; });
    return found == kRules.end() ? ProfileRule{step} : *found;
}

std::string pathOf(settings::Program& program, const BrowserFolders& folders, const ProfileTarget& target) {
    switch (target.base) {
        case Profile:
            return below(folders.profile(), target.name);
        case Cache:
            return below(folders.cacheToJoin(), target.name);
        case AppData:
            return belowAppData(program, target.name);
        case LocalAppData:
            return belowLocalAppData(program, target.name);
    }
    return {};
}

}  // namespace

std::span<const ProfileTarget> profileTargets() {
    return kTargets;
}

void cleanProfileFiles(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    std::vector<std::pair<ProfileAct, std::string>> targets;
    for (const ProfileTarget& target : kTargets) {
        if (target.step == task.step) targets.emplace_back(target.act, pathOf(program, folders, target));
    }
    const ProfileRule rule = ruleOf(task.step);
    const bool proceeds = rule.alwaysProceeds || std::any_of(targets.begin(), targets.end(), [&](const auto& target) {
                              return program.platform.files.FileExists(target.second);
                          });
    if (!proceeds) return endNotFound(program, task, rule.missingText, rule.missingStatus);
    for (const auto& [act, path] : targets) {
        if (act == Kill) kill(program, path);
        if (act == Purge) purge(program, path);
    }
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
