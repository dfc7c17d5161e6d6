// The program's own push button as a model: its look is a value of its own.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "controls/geometry.h"
#include "controls/input.h"
#include "controls/stored_properties.h"
#include "forms/control.h"

namespace tidvane::controls {

// One of the eleven looks, as a painter needs it.
struct ButtonLook {
    enum class Edge { None, Line, Raised, Etched };
    enum class Body { Flat, Gradient, Glass, Native };  // Native: the visual style of the system draws all of it
    std::string_view name;
    Edge edge;
    Body body;
    int radius;       // of the corners, logical pixels
    bool edgeAtRest;  // false: the edge comes with the mouse, the pressed state or the focus
};

inline constexpr int kButtonLooks = 11;

// By the number of the look; any other number draws as look 3, the default.
const ButtonLook& buttonLook(int number);

enum class Alignment { Center = 0, Left = 1, Right = 2, Top = 3, Bottom = 4 };

enum class ButtonState { Normal, Hot, Pressed, Disabled };

// The tip that a button shows by itself, with title and colours of its own.
struct ButtonTip {
    std::string text;  // empty: no tip
    std::string title;
    int icon = 0;
    int type = 0;
    unsigned backColor = 0;
    unsigned foreColor = 0;
};

// Where icon and caption lie, in the button's own pixels. Empty where there is none.
struct ButtonPlaces {
    Rect icon;
    Rect caption;
};

// Value is the pressed look. Setting it raises no click: code that sets it starts nothing.
class isButton : public forms::Control {
public:
    static constexpr const char* VERSION = "isButton 1.0";
    static constexpr int kPadding = 4;  // between the edge and what stands inside, logical pixels
    static constexpr int kGap = 6;      // between icon and caption

    isButton(forms::Form& form, std::string name, std::string caption = {});

    forms::Signal<> Click;
    forms::Signal<> MouseEnter;
    forms::Signal<> MouseLeave;

    // Initial values stand in the table. Colours, captions and tip texts of every control are inherited.
    forms::Property<int> Style{0, &viewChanged};
    forms::Property<std::string> Icon{{}, &viewChanged};
    forms::Property<int> IconSize{0, &viewChanged};
    forms::Property<int> IconAlign{0, &viewChanged};     // an Alignment
    forms::Property<int> CaptionAlign{0, &viewChanged};  // an Alignment
    forms::Property<int> NonThemeStyle{0, &viewChanged};
    forms::Property<bool> ShowFocus{false, &viewChanged};
    forms::Property<bool> UseCustomColors{false, &viewChanged};
    forms::Property<unsigned> HighlightColor{0, &viewChanged};
    forms::Property<unsigned> FontColor{0, &viewChanged};
    forms::Property<unsigned> FontHighlightColor{0, &viewChanged};
    forms::Property<std::string> ToolTipTitle{{}, &viewChanged};
    forms::Property<int> ToolTipIcon{0, &viewChanged};
    forms::Property<int> ToolTipType{0, &viewChanged};
    forms::Property<unsigned> ToolTipBackColor{0, &viewChanged};
    forms::Property<unsigned> ToolTipForeColor{0, &viewChanged};
    forms::Property<controls::Font> Font{{}, &viewChanged};
    // 0 pushes; any other number stays down: a user's click turns Value over before it is told.
    forms::Property<int> ButtonType{0, &viewChanged};
    forms::Property<bool> Value{false, &viewChanged};
    forms::Property<unsigned> MaskColor{0, &viewChanged};
    forms::Property<bool> UseMaskColor{false, &viewChanged};
    forms::Property<int> MousePointer{0, &viewChanged};
    forms::Property<bool> RoundedBordersByTheme{false, &viewChanged};
    forms::Property<bool> RightToLeft{false, &viewChanged};

    // The table of the stored properties: names, stored names, initial values.
    static const std::array<StoredProperty<isButton>, 28>& properties();

    // A user's click: nothing happens on a button that is disabled or hidden.
    void press();

    // The mouse, left button. Whether it is over the button, the view tells by enter and leave, also while it holds the
    // mouse for a button that is being pressed.
    void mouseEnter();
    void mouseLeave();
    void mouseDown();
    void mouseUp();
    // The press ends without a click.
    void cancelMode();
    // Enter clicks at once, the space bar when it is let go. True: the key was for the button.
    bool keyDown(Key key);
    bool keyUp(Key key);
    void setFocus(bool has, bool byKeyboard = false);

    // For the painter.
    ButtonState state() const;
    bool hovered() const { return over_ && Enabled; }
    bool focused() const { return focused_; }
    // A focus that the keyboard brought is always shown, or nobody could tell where it is.
    bool showsFocus() const { return focused_ && (ShowFocus || focusByKeyboard_); }
    // Number of the look in force.
    int look(bool visualStyle) const { return visualStyle ? Style : NonThemeStyle; }
    bool iconInGrey() const { return !Enabled; }
    unsigned bodyColour() const;
    unsigned captionColour() const;
    ButtonTip tip() const {
        return {ToolTipText, ToolTipTitle, ToolTipIcon, ToolTipType, ToolTipBackColor, ToolTipForeColor};
    }

    // Whether icon, kind or colours of the tip are others than at first, so that the desktop's own tip does not do.
    bool hasOwnTip() const;

    // Icon and caption inside a button of this size; the caption's own size is measured by the view, Icon is square.
    // Nothing gets a negative size; what does not fit is cut by the button's edge.
    ButtonPlaces places(Size button, Size caption) const;
    // The smallest button in which both are seen whole.
    Size wanted(Size caption) const;

    void Refresh() { viewChanged(); }
    std::string About() const { return VERSION; }
    // Opens an address through whoever can; false when nobody can or the address is empty.
    bool OpenLink(const std::string& address) const;
    std::function<bool(const std::string&)> openLink;
    // A colour of an icon (blue, green, red) as it is drawn on a disabled button.
    static unsigned PaintIconGrayscale(unsigned colour);

private:
    bool alive() const { return Enabled && Visible; }

    bool over_ = false;
    bool toldEnter_ = false;  // MouseEnter, to which a MouseLeave belongs
    bool held_ = false;       // by the mouse
    bool keyHeld_ = false;    // by the space bar
    bool focused_ = false;
    bool focusByKeyboard_ = false;
};

}  // namespace tidvane::controls
