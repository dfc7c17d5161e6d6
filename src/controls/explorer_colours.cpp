#include "controls/explorer_colours.h"

#include <algorithm>

namespace tidvane::controls {

namespace {

// clang-format off
constexpr std::array<PaneColour, kPaneColours> kColours{{
    {"BackColor",                        0xE6AA8Cu},
    {"BorderColor",                      0x80000008u},
    {"DetailsForeColor",                 0xC65D21u},
    {"GradientBackColor",                0xCC6633u},
    {"GradientNormalHeaderBackColor",    0xF0D2C5u},
    {"GradientNormalItemBackColor",      0xF7DFD6u},
    {"GradientSpecialHeaderBackColor",   0xB24801u},
    {"GradientSpecialItemBackColor",     0xF7DFD6u},
    {"NormalArrowDownColor",             0xC65D21u},
    {"NormalArrowHoverColor",            0xC65D21u},
    {"NormalArrowUpColor",               0xFF8E42u},
    {"NormalButtonBackColor",            0xFFFFFFu},
    {"NormalButtonDownColor",            0xF0CDC0u},
    {"NormalButtonHoverColor",           0xF09D90u},
    {"NormalButtonUpColor",              0xF0CDC0u},
    {"NormalHeaderBackColor",            0xFFFFFFu},
    {"NormalHeaderForeColor",            0xC65D21u},
    {"NormalHeaderHoverColor",           0xFF8E42u},
    {"NormalItemBackColor",              0xF7DFD6u},
    {"NormalItemBorderColor",            0xFFFFFFu},
    {"NormalItemForeColor",              0xC65D21u},
    {"NormalItemHoverColor",             0xFF8E42u},
    {"SpecialArrowDownColor",            0xFF8E42u},
    {"SpecialArrowHoverColor",           0xFFFFFFu},
    {"SpecialArrowUpColor",              0xFFFFFFu},
    {"SpecialButtonBackColor",           0xBC5215u},
    {"SpecialButtonDownColor",           0xB24801u},
    {"SpecialButtonHoverColor",          0xC6AD71u},
    {"SpecialButtonUpColor",             0xC67D41u},
    {"SpecialHeaderBackColor",           0xBC5215u},
    {"SpecialHeaderForeColor",           0xFFFFFFu},
    {"SpecialHeaderHoverColor",          0xFF8E42u},
    {"SpecialItemBackColor",             0xF7DFD6u},
    {"SpecialItemBorderColor",           0xFFFFFFu},
    {"SpecialItemForeColor",             0xC65D21u},
    {"SpecialItemHoverColor",            0xFF8E42u},
}};

constexpr std::array<std::string_view, 5> kStyles{"Luna", "Royale", "Embedded", "Media Centre", "Zune"};
constexpr std::array<std::string_view, 2> kStyleColours{"NormalColor", "Metallic"};

struct StyleRow {
    std::string_view style;
    std::string_view colours;  // empty: all that have no row of their own
    Gradient pane;
};
constexpr std::array kGradients{
    StyleRow{"Luna",         "NormalColor", {0xE6A67Bu, 0xD67563u}},
    StyleRow{"Luna",         "Metallic",    {0xD4C8C4u, 0xC8B3B1u}},
    StyleRow{"Luna",         "",            {0xA5D9CCu, 0x84BDA5u}},
    StyleRow{"Royale",       "",            {0xE3AC8Bu, 0xC97A58u}},
    StyleRow{"Embedded",     "",            {0xDDAA8Eu, 0xBF7E5Eu}},
    StyleRow{"Media Centre", "",            {0xE0B08Cu, 0xC8814Fu}},
    StyleRow{"Zune",         "",            {0x8C8C8Cu, 0x525252u}},
};
// clang-format on

}  // namespace

const std::array<PaneColour, kPaneColours>& paneColours() {
    return kColours;
}

std::optional<std::size_t> paneColourIndex(std::string_view property) {
    const auto* found =
        std::lower_bound(kColours.begin(), kColours.end(), property,
                         [](const PaneColour& row, std::string_view name) { return row.property < name; });
    if (found == kColours.end() || found->property != property) return std::nullopt;
    return static_cast<std::size_t>(found - kColours.begin());
}

std::span<const std::string_view> knownStyles() {
    return kStyles;
}

std::span<const std::string_view> knownStyleColours() {
    return kStyleColours;
}

std::optional<Gradient> styleGradient(std::string_view style, std::string_view colours) {
    for (const StyleRow& row : kGradients) {
        if (row.style == style && (row.colours.empty() || row.colours == colours)) return row.pane;
    }
    return std::nullopt;
}

}  // namespace tidvane::controls
