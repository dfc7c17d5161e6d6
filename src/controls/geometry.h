// Rectangles of the program's own controls, in logical pixels: the painter scales them to the display.
#pragma once

namespace tidvane::controls {

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

// Right and bottom edges lie outside. A rectangle without area contains nothing.
struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool empty() const { return width <= 0 || height <= 0; }
    bool contains(int px, int py) const { return px >= x && px < right() && py >= y && py < bottom(); }
    bool operator==(const Rect&) const = default;
};

}  // namespace tidvane::controls
