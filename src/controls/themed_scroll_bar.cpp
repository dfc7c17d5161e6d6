#include "controls/themed_scroll_bar.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace tidvane::controls {

const std::array<StoredProperty<ThemedScrollBar>, 11>& ThemedScrollBar::properties() {
    using Bar = ThemedScrollBar;
    static const std::array<StoredProperty<Bar>, 11> rows{{
        {"ContainerArrowKeys", "ContainerArrowKeys", &Bar::ContainerArrowKeys, false},
        {"Enabled", "Enabled", &Bar::Enabled, true},
        {"LargeChange", "LargeChange", &Bar::LargeChange, 1},
        {"Max", "Max", &Bar::Max, 0},
        {"Min", "Min", &Bar::Min, 0},
        {"MouseWheel", "MouseWheel", &Bar::MouseWheel, true},
        {"MouseWheelInContainer", "MouseWheelInContainer", &Bar::MouseWheelInContainer, false},
        {"Orientation", "Orientation", &Bar::Orientation, 1},
        {"ShowButtons", "ShowButtons", &Bar::ShowButtons, true},
        {"SmallChange", "SmallChange", &Bar::SmallChange, 1},
        {"Value", "Value", &Bar::Value, 0},
    }};
    return rows;
}

ThemedScrollBar::ThemedScrollBar(forms::Form& owner, std::string name)
    : forms::Control(owner, forms::ControlKind::ScrollBar, std::move(name)) {
    designFrom(properties(), *this);
    placed_.connect([this] { Refresh(); });
    changed_.connect([this] {
        if (!dragging_) Change();
    });
}

void ThemedScrollBar::setSize(Size size, int button) {
    if (size == size_ && button == button_) return;
    size_ = size;
    button_ = std::max(0, button);
    Refresh();
}

void ThemedScrollBar::Refresh() {
    layOut();
    repaint();
}

Rect ThemedScrollBar::span(int from, int to) const {
    return vertical() ? Rect{0, from, size_.width, to - from} : Rect{from, 0, to - from, size_.height};
}

double ThemedScrollBar::range() const {
    return std::max(0.0, static_cast<double>(Max.get()) - static_cast<double>(Min.get()));
}

void ThemedScrollBar::layOut() {
    const int whole = std::max(0, length());
    const int wanted = ShowButtons ? button_ : 0;
    const bool withThumb = 2 * wanted + kShortestThumb <= whole;
    // Two buttons that do not fit share the bar; an odd pixel between them is the track.
    const int button = !withThumb && 2 * wanted >= whole ? whole / 2 : wanted;
    first_ = span(0, button);
    second_ = span(whole - button, whole);
    track_ = span(button, whole - button);
    thumb_ = 0;
    if (!withThumb) return;
    const int room = whole - 2 * button;
    // A large change of 0 would be a thumb without length.
    const double pages = LargeChange.get() > 0 ? range() / LargeChange.get() + 1 : 0;
    const int share = pages > 0 ? static_cast<int>(room / pages) : 0;
    thumb_ = std::max(kShortestThumb, share);
    if (!dragging_) placeThumb();
}

void ThemedScrollBar::placeThumb() {
    const int start = along(track_.x, track_.y);
    const int room = vertical() ? track_.height : track_.width;
    const double travelled = static_cast<double>(Value.get()) - static_cast<double>(Min.get());
    // Without a range there is no way to go: the division below would be by zero.
    const double share = range() > 0 ? (room - thumb_) / range() * travelled : 0;
    // A value outside Min to Max may lie anywhere; a conversion of a number that no int holds is undefined.
    thumbAt_ = static_cast<int>(std::clamp<double>(start + share, 0, start + room));
    // Also without buttons, where the track begins at 0: intended.
    if (thumbAt_ == 0) thumbAt_ = button_;
    thumbAt_ = std::clamp(thumbAt_, start, start + room - thumb_);
}

Rect ThemedScrollBar::rectangle(ScrollPart part) const {
    const int start = along(track_.x, track_.y);
    const int end = start + (vertical() ? track_.height : track_.width);
    switch (part) {
        case ScrollPart::FirstButton:
            return first_;
        case ScrollPart::SecondButton:
            return second_;
        case ScrollPart::TrackBefore:
            return thumb_ > 0 ? span(start, thumbAt_) : Rect{};
        case ScrollPart::TrackAfter:
            return thumb_ > 0 ? span(thumbAt_ + thumb_, end) : Rect{};
        case ScrollPart::Thumb:
            return thumb_ > 0 ? span(thumbAt_, thumbAt_ + thumb_) : Rect{};
        case ScrollPart::None:
            break;
    }
    return {};
}

ScrollPart ThemedScrollBar::partAt(int x, int y) const {
    for (const ScrollPart part : {ScrollPart::FirstButton, ScrollPart::SecondButton, ScrollPart::TrackBefore,
                                  ScrollPart::TrackAfter, ScrollPart::Thumb}) {
        if (rectangle(part).contains(x, y)) return part;
    }
    return ScrollPart::None;
}

void ThemedScrollBar::stepDown(int amount) {
    if (range() <= 0) return;
    const std::int64_t wanted = static_cast<std::int64_t>(Value.get()) - amount;
    Value = static_cast<int>(std::clamp<std::int64_t>(wanted, Min.get(), Max.get()));
}

void ThemedScrollBar::stepUp(int amount) {
    if (range() <= 0) return;
    const std::int64_t wanted = static_cast<std::int64_t>(Value.get()) + amount;
    Value = static_cast<int>(std::clamp<std::int64_t>(wanted, Min.get(), Max.get()));
}

void ThemedScrollBar::stepPart(ScrollPart part) {
    switch (part) {
        case ScrollPart::FirstButton:
            stepDown(SmallChange);
            break;
        case ScrollPart::SecondButton:
            stepUp(SmallChange);
            break;
        case ScrollPart::TrackBefore:
            stepDown(LargeChange);
            break;
        case ScrollPart::TrackAfter:
            stepUp(LargeChange);
            break;
        case ScrollPart::Thumb:
        case ScrollPart::None:
            break;
    }
}

void ThemedScrollBar::mouseDown(int x, int y) {
    if (!Enabled || !Visible) return;
    mouseX_ = x;
    mouseY_ = y;
    pressed_ = partAt(x, y);
    hot_ = pressed_;
    overPressed_ = pressed_ != ScrollPart::None;
    repeated_ = false;
    valueAtPress_ = Value;
    dragging_ = pressed_ == ScrollPart::Thumb;
    grip_ = along(x, y) - thumbAt_;
    repaint();
    stepPart(pressed_);
}

void ThemedScrollBar::mouseMove(int x, int y) {
    mouseX_ = x;
    mouseY_ = y;
    if (!Enabled || !Visible) return;
    if (pressed_ == ScrollPart::Thumb) {
        const int across = vertical() ? x : y;
        const int thickness = vertical() ? size_.width : size_.height;
        if (across >= -kDragBand && across < thickness + kDragBand) drag(along(x, y));
        return;
    }
    if (pressed_ != ScrollPart::None) {
        const bool over = rectangle(pressed_).contains(x, y);
        if (over == overPressed_) return;
        overPressed_ = over;
        repaint();
        return;
    }
    const ScrollPart part = partAt(x, y);
    if (part == hot_) return;
    hot_ = part;
    repaint();
}

void ThemedScrollBar::drag(int mouse) {
    const int start = along(track_.x, track_.y);
    const int room = (vertical() ? track_.height : track_.width) - thumb_;
    const int to = std::clamp(mouse - grip_, start, start + std::max(0, room));
    if (to == thumbAt_) return;
    thumbAt_ = to;
    repaint();
    // Min and Max may have met under the held thumb: the division below would be by zero.
    if (room <= 0 || range() <= 0) return;
    const double value = std::round((to - start) * (range() / room)) + Min.get();
    if (static_cast<int>(value) == Value.get()) return;
    Value = static_cast<int>(value);
    Scroll();
    // Nothing lets the windows draw here: the view's own loop does it between two moves. Intended.
}

void ThemedScrollBar::mouseUp() {
    if (pressed_ == ScrollPart::None) return;
    const bool dragged = dragging_;
    dragging_ = false;
    pressed_ = ScrollPart::None;
    overPressed_ = false;
    layOut();
    hot_ = partAt(mouseX_, mouseY_);
    repaint();
    if (dragged && Value.get() != valueAtPress_) Change();
}

void ThemedScrollBar::mouseLeave() {
    if (pressed_ != ScrollPart::None || hot_ == ScrollPart::None) return;
    hot_ = ScrollPart::None;
    repaint();
}

int ThemedScrollBar::repeatDelay() const {
    if (!Enabled || pressed_ == ScrollPart::None || pressed_ == ScrollPart::Thumb) return 0;
    return repeated_ ? kNextRepeat : kFirstRepeat;
}

void ThemedScrollBar::repeat() {
    if (repeatDelay() == 0) return;
    repeated_ = true;
    // Asked of the rectangles as they are now: the track before the thumb ends where the thumb has come to.
    const bool over = rectangle(pressed_).contains(mouseX_, mouseY_);
    if (over != overPressed_) {
        overPressed_ = over;
        repaint();
    }
    if (over) stepPart(pressed_);
}

bool ThemedScrollBar::wheel(int turn, WheelPlace place) {
    if (!MouseWheel || !Enabled) return false;
    if (place == WheelPlace::Elsewhere || (place == WheelPlace::Container && !MouseWheelInContainer)) return false;
    // Fine wheels report parts of a notch; a turn back starts counting anew.
    if ((turn > 0) != (wheelRest_ > 0)) wheelRest_ = 0;
    wheelRest_ += turn;
    const int notches = wheelRest_ / kWheelNotch;
    wheelRest_ %= kWheelNotch;
    if (notches == 0) return true;
    const int amount = -notches * SmallChange.get();
    if (amount < 0)
        stepDown(-amount);
    else
        stepUp(amount);
    Wheel(amount);
    return true;
}

bool ThemedScrollBar::keyDown(Key key, bool fromContainer) {
    switch (key) {
        case Key::Shift:
            keys_ |= kShift;
            return false;
        case Key::Ctrl:
            keys_ |= kCtrl;
            return false;
        case Key::Alt:
            keys_ |= kAlt;
            return false;
        default:
            break;
    }
    if (!Enabled || (fromContainer && !ContainerArrowKeys)) return false;
    switch (key) {
        case Key::Up:
        case Key::Left:
            stepDown(SmallChange);
            return true;
        case Key::Down:
        case Key::Right:
            stepUp(SmallChange);
            return true;
        default:
            break;
    }
    if (fromContainer) return false;
    switch (key) {
        case Key::PageUp:
            stepDown(LargeChange);
            return true;
        case Key::PageDown:
            stepUp(LargeChange);
            return true;
        case Key::Home:
            if (range() > 0) Value = Min.get();
            return true;
        case Key::End:
            if (range() > 0) Value = Max.get();
            return true;
        default:
            return false;
    }
}

void ThemedScrollBar::keyUp(Key key) {
    switch (key) {
        case Key::Shift:
            keys_ &= ~kShift;
            break;
        case Key::Ctrl:
            keys_ &= ~kCtrl;
            break;
        case Key::Alt:
            keys_ &= ~kAlt;
            break;
        default:
            break;
    }
}

}  // namespace tidvane::controls
