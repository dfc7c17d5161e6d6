#include "settings/themes.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/numbers.h"

namespace tidvane::settings {

namespace {

struct Colour {
    std::string_view theme;
    const char* property;
    unsigned value;
};

// clang-format off
constexpr std::array kColours = {
    Colour{"Default", "BackColor", 0xC0C0C0u},
    Colour{"Default", "GradientBackColor", 0x808080u},
    Colour{"Light", "BackColor", 0x8000000Fu},
    Colour{"Light", "GradientBackColor", 0x8000000Fu},
    Colour{"Dark", "BackColor", 0x676767u},
    Colour{"Dark", "GradientBackColor", 0x676767u},
    Colour{"Dark", "GradientSpecialHeaderBackColor", 0x676767u},
    Colour{"Dark", "BorderColor", 0x676767u},
    Colour{"Desktop", "BackColor", 0x80000001u},
    Colour{"Desktop", "GradientBackColor", 0x80000001u},
    Colour{"Desktop", "GradientSpecialHeaderBackColor", 0x80000001u},
    Colour{"Desktop", "BorderColor", 0x80000001u},
    Colour{"Desktop", "NormalHeaderBackColor", 0x80000001u},
};

// The theme "Custom" gives one colour to all of these.
constexpr std::array kCustomProperties = {
    "BackColor",
    "GradientBackColor",
    "GradientSpecialHeaderBackColor",
    "BorderColor",
    "NormalHeaderBackColor",
};
// clang-format on

// Only the main window's pane has the theme "Default"; the other keeps the colours of its design.
constexpr std::string_view kMainPaneOnly = "Default";

// The colours that a pane begins with.
constexpr std::string_view kInitial = "Blue";

unsigned mix(int red, int green, int blue) {
    const auto part = [](int value) { return static_cast<unsigned>(std::min(value, 255)); };
    return part(blue) << 16 | part(green) << 8 | part(red);
}

}  // namespace

void applyTheme(controls::ExplorerBar& pane, const std::string& theme, bool mainPane, int red, int green, int blue) {
    if (theme == "Windows") {
        pane.UseTheme = true;
        return;
    }
    if (theme == "Custom") {
        if (red < 0 || green < 0 || blue < 0) return;
        for (const char* property : kCustomProperties) pane.setColour(property, mix(red, green, blue));
        return;
    }
    if (theme == kInitial) {
        for (const controls::PaneColour& row : controls::paneColours()) {
            pane.setColour(std::string(row.property), row.initial);
        }
        return;
    }
    if (theme == kMainPaneOnly && !mainPane) return;
    for (const Colour& colour : kColours) {
        if (colour.theme == theme) pane.setColour(colour.property, colour.value);
    }
}

std::optional<unsigned> mixedColour(const std::string& red, const std::string& green, const std::string& blue,
                                    const base::Locale& locale) {
    const auto r = base::toInt16(red, locale);
    const auto g = base::toInt16(green, locale);
    const auto b = base::toInt16(blue, locale);
    if (!r || !g || !b || *r < 0 || *g < 0 || *b < 0) return std::nullopt;
    return mix(*r, *g, *b);
}

}  // namespace tidvane::settings
