// What the painters share: scale, colours, shapes.
#pragma once

#include <wx/dcgraph.h>
#include <wx/gdicmn.h>
#include <wx/graphics.h>
#include <wx/window.h>

#include <functional>
#include <optional>

#include "controls/geometry.h"
#include "controls/input.h"

namespace tidvane::view {

// Runs what a user does.
using Act = std::function<void(const std::function<void()>&)>;

// The keys that the widget gets go to the model; Tab leaves the widget, and keys with Alt are the window's.
void bindKeysTo(wxWindow* widget, Act act, std::function<bool(controls::Key)> down,
                std::function<bool(controls::Key)> up);
// Whether it was the keyboard that brought the focus just now.
bool focusByKeyboard();

// Logical pixels of the models and pixels of the window.
wxRect toWindow(const controls::Rect& rect, const wxWindow* window);
controls::Size toLogical(wxSize size, const wxWindow* window);
wxPoint toLogical(wxPoint point, const wxWindow* window);
// The keys that are held, as the models count them.
int heldKeys(const wxKeyboardState& state);
// Nothing for keys that the models do not know.
std::optional<controls::Key> keyOf(const wxKeyEvent& event);

// Runs `what` when the window of the widget stops being the active one, as long as there is the widget.
void whenDeactivated(wxWindow* widget, std::function<void()> what);

bool darkDesktop();
// `share` of the second colour, 0 to 1.
wxColour mixed(const wxColour& one, const wxColour& other, double share);
// Whichever of black and white is read better on this ground; the wish itself where it is read well enough.
wxColour readable(const wxColour& wish, const wxColour& ground);

// A picture of what cannot be used now: grey and half as strong.
wxBitmap greyed(const wxBitmap& bitmap);

// A rectangle with round corners whose edge, one device pixel wide, lies crisply on pixels.
void roundedBox(wxGraphicsContext& context, const wxRect& box, double radius, const wxBrush& fill,
                const wxColour& edge);
// A down or up pointing arrow head in the middle of the box.
void arrowHead(wxGraphicsContext& context, const wxRect& box, const wxColour& colour, bool up, double size);
// The ring that says where the keyboard is, on this ground.
void focusRing(wxGraphicsContext& context, const wxRect& box, double radius, const wxColour& ground);

}  // namespace tidvane::view
