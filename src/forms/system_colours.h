// Colours by which a design means those of the desktop.
#pragma once

namespace tidvane::forms {

inline constexpr unsigned kWindowText = 0x80000008u;

}  // namespace tidvane::forms
