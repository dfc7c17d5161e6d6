// The colour themes of the task panes.
#pragma once

#include <optional>
#include <string>

#include "base/locale.h"
#include "controls/explorer_bar.h"

namespace tidvane::settings {

// The names as the user chooses them, in the order of the list.
inline constexpr const char* kThemeNames[] = {"Default", "Blue", "Light", "Dark", "Desktop", "Windows", "Custom"};

// Sets the colours of a theme on a pane that is being built (byte order blue, green, red; from 0x80000000 on system
// colours). "Default" touches the pane of the main window alone; an unknown name touches nothing. Red, green and blue
// count for "Custom" only: numbers above 255 count as 255, and a negative one sets nothing.
void applyTheme(controls::ExplorerBar& pane, const std::string& theme, bool mainPane, int red, int green, int blue);

// The colour of three numbers as typed; nothing when one of them cannot be read as a number from 0 on.
std::optional<unsigned> mixedColour(const std::string& red, const std::string& green, const std::string& blue,
                                    const base::Locale& locale);

}  // namespace tidvane::settings
