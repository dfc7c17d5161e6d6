// The program's own scroll bar as a model: where its parts lie, which one is hot or pressed, and what the mouse, the
// wheel and the keys do to its value.
#pragma once

#include <array>
#include <string>

#include "controls/geometry.h"
#include "controls/input.h"
#include "controls/stored_properties.h"
#include "forms/control.h"

namespace tidvane::controls {

enum class ScrollPart { None = 0, FirstButton = 1, SecondButton = 2, TrackBefore = 3, TrackAfter = 4, Thumb = 5 };

// Over what the mouse stood when its wheel turned.
enum class WheelPlace { Control, Container, Elsewhere };

// A step never leaves Min to Max. With Max at or below Min no step changes the value, whatever it is. A value that is
// assigned is kept as it is, but the thumb stays within the track.
class ThemedScrollBar : public forms::Control {
public:
    static constexpr int kShortestThumb = 8;
    static constexpr int kFirstRepeat = 300;  // milliseconds from the press to the first repeat
    static constexpr int kNextRepeat = 50;
    static constexpr int kDragBand = 150;    // how far beside the bar the mouse still drags the thumb
    static constexpr int kWheelNotch = 120;  // one notch of a wheel

    ThemedScrollBar(forms::Form& form, std::string name);

    forms::Signal<> Change;    // Value has changed: by a step, by an assignment, or when a dragged thumb is let go
    forms::Signal<> Scroll;    // Value has changed under a dragged thumb
    forms::Signal<int> Wheel;  // the amount: negative for a forward turn, positive otherwise

    forms::Property<bool> ContainerArrowKeys{false, &viewChanged};
    forms::Property<int> LargeChange{0, &placed_};
    forms::Property<int> Max{0, &placed_};
    forms::Property<int> Min{0, &placed_};
    forms::Property<bool> MouseWheel{false, &viewChanged};
    forms::Property<bool> MouseWheelInContainer{false, &viewChanged};
    forms::Property<int> Orientation{0, &placed_};  // 0 horizontal, all others vertical
    forms::Property<bool> ShowButtons{false, &placed_};
    forms::Property<int> SmallChange{0, &viewChanged};
    forms::Property<int> Value{0, &placed_, &changed_};
    long hWnd = 0;  // the view's handle of the window, 0 while there is none

    static const std::array<StoredProperty<ThemedScrollBar>, 11>& properties();

    // Logical pixels; the view tells them. A button is `button` long along the bar.
    void setSize(Size size, int button);
    void Refresh();  // places all parts anew and repaints

    // For the painter. Rectangles are in the bar's own pixels; one of a part that is not shown is empty.
    Rect rectangle(ScrollPart part) const;
    const Rect& track() const { return track_; }
    int thumbLength() const { return thumb_; }  // 0 without a thumb
    bool hot(ScrollPart part) const { return Enabled && part == hot_ && part != ScrollPart::None; }
    bool pressed(ScrollPart part) const { return part == pressed_ && part != ScrollPart::None && overPressed_; }
    ScrollPart partAt(int x, int y) const;

    // The mouse, in the bar's own pixels, left button. The view catches the mouse from press to release.
    void mouseDown(int x, int y);
    void mouseMove(int x, int y);
    void mouseUp();
    void mouseLeave();
    // A second press soon after the first: one more press, so that fast clicks keep stepping.
    void doubleClick(int x, int y) { mouseDown(x, y); }
    // The press ends without a release: a message box came up, another window took the mouse.
    void cancelMode() { mouseUp(); }

    // How long the view shall wait before it calls `repeat` once: 0 when nothing is to repeat.
    int repeatDelay() const;
    void repeat();

    // `turn` is positive for a turn forward, away from the user, kWheelNotch a notch. True: it was for this bar.
    bool wheel(int turn, WheelPlace place);

    // A key that came to the bar itself, or to its container. True: it was for this bar.
    bool keyDown(Key key, bool fromContainer = false);
    void keyUp(Key key);
    int keyState() const { return keys_; }  // kShift, kCtrl, kAlt added up

    // Steps, with all that follows from a change.
    void stepDown(int amount);
    void stepUp(int amount);

private:
    void layOut();
    void placeThumb();
    void stepPart(ScrollPart part);
    void drag(int along);
    bool vertical() const { return Orientation.get() != 0; }
    int along(int x, int y) const { return vertical() ? y : x; }
    int length() const { return vertical() ? size_.height : size_.width; }
    Rect span(int from, int to) const;
    // Max - Min, at least 0.
    double range() const;
    void repaint() { viewChanged(); }

    // A property that moves parts tells these two, not the view at once.
    forms::Signal<> placed_;
    forms::Signal<> changed_;
    Size size_;
    int button_ = 17;
    Rect first_;
    Rect second_;
    Rect track_;
    int thumb_ = 0;
    int thumbAt_ = 0;  // along the bar
    ScrollPart hot_ = ScrollPart::None;
    ScrollPart pressed_ = ScrollPart::None;
    bool overPressed_ = false;
    bool repeated_ = false;
    int mouseX_ = 0;
    int mouseY_ = 0;
    int grip_ = 0;  // of the mouse within the thumb
    int valueAtPress_ = 0;
    bool dragging_ = false;  // the value follows the thumb, not the other way round
    int wheelRest_ = 0;
    int keys_ = 0;
};

}  // namespace tidvane::controls
