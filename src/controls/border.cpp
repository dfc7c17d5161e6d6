#include "controls/border.h"

#include <algorithm>
#include <utility>

namespace tidvane::controls {

const std::array<StoredProperty<Border>, 3>& Border::properties() {
    static const std::array<StoredProperty<Border>, 3> rows{{
        {"BorderColor", "BorderColor", &Border::BorderColor, 0x80000008u},
        {"BorderWidth", "BorderWidth", &Border::BorderWidth, 0},
        {"RoundBorder", "RoundBorder", &Border::RoundBorder, true},
    }};
    return rows;
}

Border::Border(forms::Form& owner, std::string name)
    : forms::Control(owner, forms::ControlKind::Border, std::move(name)) {
    designFrom(properties(), *this);
}

void Border::setSize(Size size) {
    if (size == size_) return;
    size_ = size;
    viewChanged();
}

Border::Line Border::line() const {
    const int width = std::max(0, BorderWidth.get());
    return {width, width, size_.width - 1, size_.height - 1, width + 1};
}

bool Border::opaqueAt(int x, int y) const {
    const Rect area{0, 0, size_.width, size_.height};
    // An area that is smaller than its line shows nothing, where crossed corners would fill all of it: intended.
    const Line line = this->line();
    if (!area.contains(x, y) || line.right < line.left || line.bottom < line.top) return false;
    const auto covers = [&](int edge, int at) {
        const int first = edge - line.thickness / 2;
        return at >= first && at < first + line.thickness;
    };
    const auto between = [&](int first, int last, int at) {
        return at >= first - line.thickness / 2 && at <= last + line.thickness / 2;
    };
    const bool upright = (covers(line.left, x) || covers(line.right, x)) && between(line.top, line.bottom, y);
    const bool level = (covers(line.top, y) || covers(line.bottom, y)) && between(line.left, line.right, x);
    return upright || level;
}

}  // namespace tidvane::controls
