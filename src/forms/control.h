// What every control has: a name, a place in its window's list, and the common properties.
#pragma once

#include <optional>
#include <string>

#include "forms/property.h"

namespace tidvane::forms {

class Form;

enum class ControlKind {
    TextBox,
    CheckBox,
    OptionButton,
    ComboBox,
    ListBox,
    ListView,
    Label,
    Frame,
    Image,
    TabStrip,
    StatusBar,
    Menu,
    Timer,
    CommandButton,
    FileList,
    DriveList,
    ExplorerBar,
    ThemedButton,
    ScrollBar,
    Border,
};

// A control belongs to the window it is constructed with for its whole life and stands in that window's list in the
// order of construction, which is the order of the members of the window class.
class Control {
public:
    Control(Form& form, ControlKind kind, std::string name, std::string caption = {},
            std::optional<int> index = std::nullopt);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const ControlKind kind;
    const std::string Name;
    const std::optional<int> Index;  // set for a member of a control array

    // For the display. The logic listens to the events of the kind.
    Signal<> viewChanged;

    Property<std::string> Caption;
    Property<bool> Enabled{true, &viewChanged};
    Property<bool> Visible{true, &viewChanged};
    Property<std::string> ToolTipText{{}, &viewChanged};
    // Blue, green, red; values from 0x80000000 are system colours.
    Property<unsigned> ForeColor{0x80000008u, &viewChanged};
    Property<unsigned> BackColor{0x8000000Fu, &viewChanged};

    Form& form() const { return form_; }

private:
    Form& form_;
};

// How the designer of a window switches a control off before anybody listens.
template <class C>
C& designedOff(C& control) {
    control.Enabled.design(false);
    return control;
}

}  // namespace tidvane::forms
