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
    Colour{"Blue", "BackColor", 0xE6AA8Cu},
    Colour{"Blue", "BorderColor", 0x80000008u},
    Colour{"Blue", "DetailsForeColor", 0xC65D21u},
    Colour{"Blue", "GradientBackColor", 0xCC6633u},
    Colour{"Blue", "GradientNormalHeaderBackColor", 0xF0D2C5u},
    Colour{"Blue", "GradientNormalItemBackColor", 0xF7DFD6u},
    Colour{"Blue", "GradientSpecialHeaderBackColor", 0xB24801u},
    Colour{"Blue", "GradientSpecialItemBackColor", 0xF7DFD6u},
    Colour{"Blue", "NormalArrowDownColor", 0xC65D21u},
    Colour{"Blue", "NormalArrowHoverColor", 0xC65D21u},
    Colour{"Blue", "NormalArrowUpColor", 0xFF8E42u},
    Colour{"Blue", "NormalButtonBackColor", 0xFFFFFFu},
    Colour{"Blue", "NormalButtonDownColor", 0xF0CDC0u},
    Colour{"Blue", "NormalButtonHoverColor", 0xF09D90u},
    Colour{"Blue", "NormalButtonUpColor", 0xF0CDC0u},
    Colour{"Blue", "NormalHeaderBackColor", 0xFFFFFFu},
    Colour{"Blue", "NormalHeaderForeColor", 0xC65D21u},
    Colour{"Blue", "NormalHeaderHoverColor", 0xFF8E42u},
    Colour{"Blue", "NormalItemBackColor", 0xF7DFD6u},
    Colour{"Blue", "NormalItemBorderColor", 0xFFFFFFu},
    Colour{"Blue", "NormalItemForeColor", 0xC65D21u},
    Colour{"Blue", "NormalItemHoverColor", 0xFF8E42u},
    Colour{"Blue", "SpecialArrowDownColor", 0xFF8E42u},
    Colour{"Blue", "SpecialArrowHoverColor", 0xFFFFFFu},
    Colour{"Blue", "SpecialArrowUpColor", 0xFFFFFFu},
    Colour{"Blue", "SpecialButtonBackColor", 0xBC5215u},
    Colour{"Blue", "SpecialButtonDownColor", 0xB24801u},
    Colour{"Blue", "SpecialButtonHoverColor", 0xC6AD71u},
    Colour{"Blue", "SpecialButtonUpColor", 0xC67D41u},
    Colour{"Blue", "SpecialHeaderBackColor", 0xBC5215u},
    Colour{"Blue", "SpecialHeaderForeColor", 0xFFFFFFu},
    Colour{"Blue", "SpecialHeaderHoverColor", 0xFF8E42u},
    Colour{"Blue", "SpecialItemBackColor", 0xF7DFD6u},
    Colour{"Blue", "SpecialItemBorderColor", 0xFFFFFFu},
    Colour{"Blue", "SpecialItemForeColor", 0xC65D21u},
    Colour{"Blue", "SpecialItemHoverColor", 0xFF8E42u},
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
