// Twips and pixels. The model measures windows in twips, a twentieth of a point: 15 of them are one pixel of a screen
// at 96 dots per inch, which is what wx calls a device-independent pixel.
#pragma once

#include <wx/window.h>

namespace tidvane::view {

inline constexpr int kTwipsPerPixel = 15;

inline int toPixels(int twips, const wxWindow* window) {
    return wxWindow::FromDIP(twips / kTwipsPerPixel, window);
}

inline int toTwips(int pixels, const wxWindow* window) {
    return wxWindow::ToDIP(pixels, window) * kTwipsPerPixel;
}

// Distances of every layout, in device-independent pixels.
inline constexpr int kGap = 8;    // between two controls
inline constexpr int kEdge = 14;  // between a window's edge and what it holds

}  // namespace tidvane::view
