// The colours of the task pane by name, with their initial values, and what follows from the system's visual style.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace tidvane::controls {

// Blue, green, red; values from 0x80000000 are system colours.
struct PaneColour {
    std::string_view property;
    unsigned initial;  // those of the theme "Blue"
};

inline constexpr std::size_t kPaneColours = 36;

// In order of their names.
const std::array<PaneColour, kPaneColours>& paneColours();
// The place of a colour in the table; nothing for a name that is not in it.
std::optional<std::size_t> paneColourIndex(std::string_view property);

// A pair of colours from top to bottom.
struct Gradient {
    unsigned top = 0;
    unsigned bottom = 0;
    bool operator==(const Gradient&) const = default;
};

// The visual styles whose panes the program knows, and their colour variants. Numbers count from 1 in these lists.
std::span<const std::string_view> knownStyles();
std::span<const std::string_view> knownStyleColours();
// The pane's gradient under a known style, whatever its colour variant; nothing for an unknown style.
std::optional<Gradient> styleGradient(std::string_view style, std::string_view colours);

}  // namespace tidvane::controls
