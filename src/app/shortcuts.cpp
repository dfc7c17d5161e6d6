#include "app/shortcuts.h"

#include <algorithm>
#include <array>

namespace tidvane::app {

namespace {

constexpr std::array kShortcuts{
    // The run and its log
    Shortcut{"cmdClean", "F9"},
    Shortcut{"cmdStop", "Shift+F9"},
    Shortcut{"cmdCopyLog", "Ctrl+Shift+C"},
    Shortcut{"cmdSaveLog", "Ctrl+S"},
    Shortcut{"cmdViewLog", "Ctrl+L"},
    // Menus
    Shortcut{"mnuCleaningJobWindows", "Ctrl+T"},
    Shortcut{"mnuOptionsGeneral", "Ctrl+,"},
    Shortcut{"mnuBackground", "Ctrl+W"},
    Shortcut{"mnuExit", "Ctrl+Q"},
    Shortcut{"mnuCleaner", "Ctrl+1"},
    Shortcut{"mnuApps", "Ctrl+2"},
    Shortcut{"mnuAddOns", "Ctrl+3"},
    Shortcut{"mnuAbout", "Ctrl+4"},
    Shortcut{"mnuManualSearch", "Ctrl+M"},
    Shortcut{"mnuOnlineHelp", "F1"},
};

}  // namespace

std::span<const Shortcut> shortcuts() {
    return kShortcuts;
}

std::string_view shortcutOf(std::string_view control) {
    const auto* const found =
        std::find_if(kShortcuts.begin(), kShortcuts.end(), [&](const Shortcut& row) { return control == row.control; });
    return found == kShortcuts.end() ? std::string_view() : found->keys;
}

}  // namespace tidvane::app
