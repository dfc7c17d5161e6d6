// A frame of one colour around an area; the inside lets through what lies behind.
#pragma once

#include <array>
#include <string>

#include "controls/geometry.h"
#include "controls/stored_properties.h"
#include "forms/control.h"

namespace tidvane::controls {

class Border : public forms::Control {
public:
    Border(forms::Form& form, std::string name);

    forms::Property<unsigned> BorderColor{0, &viewChanged};
    forms::Property<int> BorderWidth{0, &viewChanged};
    // Kept, but the corners are always square: intended.
    forms::Property<bool> RoundBorder{false, &viewChanged};

    // The table of the properties above.
    static const std::array<StoredProperty<Border>, 3>& properties();

    // Logical pixels. Told by the view at every change of size.
    void setSize(Size size);
    void Refresh() { viewChanged(); }

    // The line runs through these corners, which belong to it, and is this thick: half of a thick one lies on either
    // side. At the right and at the bottom it is not moved inwards by its thickness, so the outer half is cut off
    // there: intended.
    struct Line {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        int thickness = 1;
        bool operator==(const Line&) const = default;
    };
    // Without a line (the area is smaller than its line) the corners are crossed: right < left or bottom < top.
    Line line() const;
    // Only the line is opaque.
    bool opaqueAt(int x, int y) const;

private:
    Size size_;
};

}  // namespace tidvane::controls
