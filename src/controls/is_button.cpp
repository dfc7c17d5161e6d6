#include "controls/is_button.h"

#include <algorithm>
#include <utility>

namespace tidvane::controls {

namespace {

constexpr int kDefaultLook = 3;

// clang-format off
constexpr std::array<ButtonLook, kButtonLooks> kLooks{{
    // name          edge                      body                        radius, at rest
    {"classic",      ButtonLook::Edge::Raised, ButtonLook::Body::Flat,     0, true},
    {"soft",         ButtonLook::Edge::Raised, ButtonLook::Body::Flat,     2, true},
    {"flat",         ButtonLook::Edge::Line,   ButtonLook::Body::Flat,     0, true},
    {"system",       ButtonLook::Edge::Line,   ButtonLook::Body::Native,   3, true},
    {"tool bar",     ButtonLook::Edge::Line,   ButtonLook::Body::Flat,     0, false},
    {"gradient",     ButtonLook::Edge::Line,   ButtonLook::Body::Gradient, 3, true},
    {"etched",       ButtonLook::Edge::Etched, ButtonLook::Body::Flat,     0, true},
    {"soft bar",     ButtonLook::Edge::Raised, ButtonLook::Body::Flat,     2, false},
    {"glass",        ButtonLook::Edge::Line,   ButtonLook::Body::Glass,    4, true},
    {"gradient bar", ButtonLook::Edge::Line,   ButtonLook::Body::Gradient, 3, false},
    {"plain",        ButtonLook::Edge::None,   ButtonLook::Body::Flat,     0, false},
}};
// clang-format on

Alignment alignment(int number, Alignment otherwise) {
    return number >= 0 && number <= static_cast<int>(Alignment::Bottom) ? static_cast<Alignment>(number) : otherwise;
}

Alignment mirrored(Alignment side) {
    if (side == Alignment::Left) return Alignment::Right;
    if (side == Alignment::Right) return Alignment::Left;
    return side;
}

bool beside(Alignment side) {
    return side != Alignment::Top && side != Alignment::Bottom;
}

// A box of this size within an area, cut to the area.
Rect placed(const Rect& area, Size size, Alignment side) {
    const int width = std::clamp(size.width, 0, std::max(0, area.width));
    const int height = std::clamp(size.height, 0, std::max(0, area.height));
    Rect box{area.x + (area.width - width) / 2, area.y + (area.height - height) / 2, width, height};
    if (side == Alignment::Left) box.x = area.x;
    if (side == Alignment::Right) box.x = area.right() - width;
    if (side == Alignment::Top) box.y = area.y;
    if (side == Alignment::Bottom) box.y = area.bottom() - height;
    return box;
}

}  // namespace

const ButtonLook& buttonLook(int number) {
    const bool known = number >= 0 && number < kButtonLooks;
    return kLooks[static_cast<std::size_t>(known ? number : kDefaultLook)];
}

const std::array<StoredProperty<isButton>, 28>& isButton::properties() {
    // clang-format off
    static const std::array<StoredProperty<isButton>, 28> rows{{
        {"Style",                 "Style",                 &isButton::Style,                 3},
        {"Caption",               "Caption",               &isButton::Caption,               std::string_view()},
        {"Icon",                  "Icon",                  &isButton::Icon,                  std::string_view()},
        {"IconSize",              "IconSize",              &isButton::IconSize,              16},
        {"IconAlign",             "IconAlign",             &isButton::IconAlign,             1},
        {"CaptionAlign",          "CaptionAlign",          &isButton::CaptionAlign,          0},
        {"NonThemeStyle",         "iNonThemeStyle",        &isButton::NonThemeStyle,         5},
        {"Enabled",               "Enabled",               &isButton::Enabled,               true},
        {"ShowFocus",             "ShowFocus",             &isButton::ShowFocus,             false},
        {"UseCustomColors",       "USeCustomColors",       &isButton::UseCustomColors,       false},
        {"BackColor",             "BackColor",             &isButton::BackColor,             0x8000000Fu},
        {"HighlightColor",        "HighlightColor",        &isButton::HighlightColor,        0x8000000Du},
        {"FontColor",             "FontColor",             &isButton::FontColor,             0x80000012u},
        {"FontHighlightColor",    "FontHighlightColor",    &isButton::FontHighlightColor,    0x80000012u},
        {"ToolTipText",           "ToolTipText",           &isButton::ToolTipText,           std::string_view()},
        {"ToolTipTitle",          "ToolTipTitle",          &isButton::ToolTipTitle,          std::string_view()},
        {"ToolTipIcon",           "ToolTipIcon",           &isButton::ToolTipIcon,           0},
        {"ToolTipType",           "ToolTipType",           &isButton::ToolTipType,           0},
        // The system's text colour of tips behind the text, and its background as the text: intended.
        {"ToolTipBackColor",      "ttBackColor",           &isButton::ToolTipBackColor,      0x80000017u},
        {"ToolTipForeColor",      "ttForeColor",           &isButton::ToolTipForeColor,      0x80000018u},
        {"Font",                  "Font",                  &isButton::Font,                  controls::Font()},
        {"ButtonType",            "ButtonType",            &isButton::ButtonType,            0},
        {"Value",                 "Value",                 &isButton::Value,                 false},
        {"MaskColor",             "MaskColor",             &isButton::MaskColor,             0xC0C0C0u},
        {"UseMaskColor",          "UseMaskColor",          &isButton::UseMaskColor,          false},
        {"MousePointer",          "MousePointer",          &isButton::MousePointer,          0},
        {"RoundedBordersByTheme", "RoundedBordersByTheme", &isButton::RoundedBordersByTheme, true},
        {"RightToLeft",           "bRTLText",              &isButton::RightToLeft,           false},
    }};
    // clang-format on
    return rows;
}

isButton::isButton(forms::Form& owner, std::string name, std::string caption)
    : forms::Control(owner, forms::ControlKind::ThemedButton, std::move(name)) {
    designFrom(properties(), *this);
    Caption.design(std::move(caption));
}

void isButton::press() {
    if (!alive()) return;
    if (ButtonType.get() != 0) Value = !Value.get();
    Click();
}

void isButton::mouseEnter() {
    // Enabled under the mouse, a button hears of it at the next word from the view.
    if (over_ && (toldEnter_ || !alive())) return;
    over_ = true;
    if (!alive()) return;
    toldEnter_ = true;
    viewChanged();
    MouseEnter();
}

void isButton::mouseLeave() {
    if (!over_) return;
    over_ = false;
    if (alive()) viewChanged();
    // Also of a button that was disabled meanwhile: whoever heard of the mouse hears that it has gone.
    if (std::exchange(toldEnter_, false)) MouseLeave();
}

void isButton::mouseDown() {
    if (!alive()) return;
    held_ = true;
    viewChanged();
}

void isButton::mouseUp() {
    if (!held_) return;
    held_ = false;
    viewChanged();
    if (over_) press();
}

void isButton::cancelMode() {
    if (!held_ && !keyHeld_) return;
    held_ = false;
    keyHeld_ = false;
    viewChanged();
}

bool isButton::keyDown(Key key) {
    if (!alive()) return false;
    if (key == Key::Enter) {
        press();
        return true;
    }
    if (key != Key::Space) return false;
    if (!keyHeld_) {
        keyHeld_ = true;
        viewChanged();
    }
    return true;
}

bool isButton::keyUp(Key key) {
    if (key != Key::Space || !keyHeld_) return false;
    keyHeld_ = false;
    viewChanged();
    press();
    return true;
}

void isButton::setFocus(bool has, bool byKeyboard) {
    if (has == focused_ && byKeyboard == focusByKeyboard_) return;
    focused_ = has;
    focusByKeyboard_ = has && byKeyboard;
    if (!has) keyHeld_ = false;
    viewChanged();
}

ButtonState isButton::state() const {
    if (!Enabled) return ButtonState::Disabled;
    if (Value || keyHeld_ || (held_ && over_)) return ButtonState::Pressed;
    return over_ ? ButtonState::Hot : ButtonState::Normal;
}

unsigned isButton::bodyColour() const {
    const bool highlighted = UseCustomColors && state() == ButtonState::Hot;
    if (highlighted) return HighlightColor;
    return UseCustomColors ? BackColor : 0x8000000Fu;
}

unsigned isButton::captionColour() const {
    if (!Enabled) return 0x80000011u;  // the system's grey text
    if (!UseCustomColors) return 0x80000012u;
    return state() == ButtonState::Hot ? FontHighlightColor : FontColor;
}

bool isButton::hasOwnTip() const {
    const auto& rows = properties();
    return std::any_of(rows.begin(), rows.end(), [this](const StoredProperty<isButton>& row) {
        const bool look = row.name == "ToolTipIcon" || row.name == "ToolTipType" || row.name == "ToolTipBackColor" ||
                          row.name == "ToolTipForeColor";
        return look && valueOf(row, *this) != initialOf(row);
    });
}

ButtonPlaces isButton::places(Size button, Size caption) const {
    const Rect inside{kPadding, kPadding, std::max(0, button.width - 2 * kPadding),
                      std::max(0, button.height - 2 * kPadding)};
    ButtonPlaces places;
    const int size = Icon.get().empty() ? 0 : std::max(0, IconSize.get());
    const bool withCaption = !Caption.get().empty();
    Alignment iconSide = alignment(IconAlign, Alignment::Left);
    Alignment captionSide = alignment(CaptionAlign, Alignment::Center);
    if (RightToLeft) {
        iconSide = mirrored(iconSide);
        captionSide = mirrored(captionSide);
    }
    if (size == 0) {
        if (withCaption) places.caption = placed(inside, caption, captionSide);
        return places;
    }
    if (!withCaption) {
        // Alone it has no one to stand beside.
        places.icon = placed(inside, {size, size}, Alignment::Center);
        return places;
    }
    Rect forIcon = inside;
    Rect forCaption = inside;
    if (iconSide == Alignment::Center) {
        // Both in the middle, side by side, as one block.
        const int whole = std::min(inside.width, size + kGap + caption.width);
        forIcon = forCaption = {inside.x + (inside.width - whole) / 2, inside.y, whole, inside.height};
        iconSide = RightToLeft ? Alignment::Right : Alignment::Left;
    }
    places.icon = placed(forIcon, {size, size}, iconSide);
    const int taken = beside(iconSide) ? places.icon.width + kGap : places.icon.height + kGap;
    switch (iconSide) {
        case Alignment::Center:
        case Alignment::Left:
            forCaption.x += taken;
            [[fallthrough]];
        case Alignment::Right:
            forCaption.width = std::max(0, forCaption.width - taken);
            break;
        case Alignment::Top:
            forCaption.y += taken;
            [[fallthrough]];
        case Alignment::Bottom:
            forCaption.height = std::max(0, forCaption.height - taken);
            break;
    }
    places.caption = placed(forCaption, caption, captionSide);
    return places;
}

Size isButton::wanted(Size caption) const {
    const int size = Icon.get().empty() ? 0 : std::max(0, IconSize.get());
    const bool withCaption = !Caption.get().empty();
    Size inside{size, size};
    if (withCaption) {
        const int gap = size > 0 ? kGap : 0;
        if (beside(alignment(IconAlign, Alignment::Left))) {
            inside = {size + gap + caption.width, std::max(size, caption.height)};
        } else {
            inside = {std::max(size, caption.width), size + gap + caption.height};
        }
    }
    return {inside.width + 2 * kPadding, inside.height + 2 * kPadding};
}

bool isButton::OpenLink(const std::string& address) const {
    return !address.empty() && openLink && openLink(address);
}

unsigned isButton::PaintIconGrayscale(unsigned colour) {
    const unsigned red = colour & 0xFF;
    const unsigned green = colour >> 8 & 0xFF;
    const unsigned blue = colour >> 16 & 0xFF;
    // How bright each of the three looks to the eye, in thousandths.
    const unsigned grey = (red * 299 + green * 587 + blue * 114) / 1000;
    return grey << 16 | grey << 8 | grey;
}

}  // namespace tidvane::controls
