#include <array>

#include "tasks/windows_tasks.h"

namespace tidvane::tasks {

namespace {

using platform::HKEY_CURRENT_USER_;
using platform::HKEY_LOCAL_MACHINE_;

#define EXPLORER "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
#define APPLETS "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\"
#define MEDIAPLAYER "Software\\Microsoft\\MediaPlayer\\"

// clang-format off
constexpr std::array kTargets{
    // Step, root, key, subkey. In order of removal: the last row of a step decides what the task reports.
    RegistryTarget{4,  HKEY_CURRENT_USER_,  EXPLORER "RecentDocs", ""},
    RegistryTarget{5,  HKEY_CURRENT_USER_,  EXPLORER "Doc Find Spec MRU", ""},
    RegistryTarget{5,  HKEY_CURRENT_USER_,  "Software\\Microsoft\\Search Assistant\\ACMru\\5603", ""},
    RegistryTarget{5,  HKEY_CURRENT_USER_,  "Software\\Microsoft\\Search Assistant\\ACMru\\5604", ""},
    RegistryTarget{6,  HKEY_CURRENT_USER_,  EXPLORER "FindComputerMRU", ""},
    RegistryTarget{6,  HKEY_CURRENT_USER_,  "Software\\Microsoft\\Search Assistant\\ACMru\\5647", ""},
    RegistryTarget{7,  HKEY_CURRENT_USER_,  EXPLORER "RunMRU", ""},
    RegistryTarget{8,  HKEY_CURRENT_USER_,  APPLETS "Regedit", ""},  // favourites too: the task's name says so
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\OpenSaveMRU", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\OpenSavePidlMRU", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\FirstFolder", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\CIDSizeMRU", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\LastVisitedMRU", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\LastVisitedPidlMRU", ""},
    RegistryTarget{9,  HKEY_CURRENT_USER_,  EXPLORER "ComDlg32\\LastVisitedPidlMRULegacy", ""},
    RegistryTarget{10, HKEY_CURRENT_USER_,  EXPLORER "UserAssist", ""},
    RegistryTarget{12, HKEY_CURRENT_USER_,  "Software\\Microsoft\\Search Assistant\\ACMru", ""},
    RegistryTarget{13, HKEY_LOCAL_MACHINE_, "SOFTWARE\\Microsoft\\RAS AutoDial\\Addresses", ""},
    RegistryTarget{19, HKEY_CURRENT_USER_,  APPLETS "Wordpad\\Recent File List", ""},
    RegistryTarget{20, HKEY_CURRENT_USER_,  APPLETS "Paint\\Recent File List", ""},
    RegistryTarget{21, HKEY_CURRENT_USER_,  MEDIAPLAYER "Player\\RecentFileList", ""},
    RegistryTarget{21, HKEY_CURRENT_USER_,  MEDIAPLAYER "Player\\RecentURLList", ""},
    RegistryTarget{21, HKEY_CURRENT_USER_,  MEDIAPLAYER "AutoComplete\\MediaEdit", ""},
    RegistryTarget{21, HKEY_CURRENT_USER_,  MEDIAPLAYER "Radio\\MRUList", ""},
    RegistryTarget{22, HKEY_CURRENT_USER_,  EXPLORER "MenuOrder\\Start Menu", ""},
    RegistryTarget{23, HKEY_CURRENT_USER_,  EXPLORER "MenuOrder\\Favorites", ""},
};
// clang-format on

#undef EXPLORER
#undef APPLETS
#undef MEDIAPLAYER

}  // namespace

std::span<const RegistryTarget> windowsRegistryTargets() {
    return kTargets;
}

void cleanWindowsRegistry(settings::Program& program, const CleaningTask& task) {
    runRegistryTask(program, task, kTargets);
}

void sortMenuOrder(settings::Program& program, const CleaningTask& task) {
    // These two clean nothing: without the stored order the shell sorts the menu by name again.
    RegistryWords words;
    words.begin.verb = false;
    words.cleanedWord = false;
    words.missingText = 497;
    words.missingStatus = 495;
    runRegistryTask(program, task, kTargets, words);
}

}  // namespace tidvane::tasks
