// The controls that hold one value or none.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace tidvane::forms {

class Label : public Control {
public:
    Label(Form& form, std::string name, std::string caption = {})
        : Control(form, ControlKind::Label, std::move(name), std::move(caption)) {}
    Signal<> Click;
};

class Frame : public Control {
public:
    Frame(Form& form, std::string name, std::string caption = {})
        : Control(form, ControlKind::Frame, std::move(name), std::move(caption)) {}
};

class Image : public Control {
public:
    Image(Form& form, std::string name, bool visible = true) : Control(form, ControlKind::Image, std::move(name)) {
        Visible.design(visible);
    }
    Signal<> Click;
};

// Setting Value to true clicks; the value itself never stays true.
class CommandButton : public Control {
public:
    CommandButton(Form& form, std::string name, std::string caption = {})
        : Control(form, ControlKind::CommandButton, std::move(name), std::move(caption)) {}
    Signal<> Click;
    void setValue(bool value) {
        if (value) Click();
    }
    // A user's click: nothing happens on a button that is disabled or hidden.
    void press() {
        if (Enabled && Visible) Click();
    }
};

// 0 off, 1 on, 2 greyed. A box counts as ticked at 1.
class CheckBox : public Control {
public:
    CheckBox(Form& form, std::string name, std::string caption = {}, std::optional<int> index = std::nullopt)
        : Control(form, ControlKind::CheckBox, std::move(name), std::move(caption), index) {}
    Signal<> Click;
    Property<int> Value{0, &viewChanged, &Click};
    bool ticked() const { return Value == 1; }
};

// -1 selected, 0 not. Selecting one clears the others of its group without an event of theirs.
class OptionButton : public Control {
public:
    // Buttons of one window with the same group name exclude one another.
    OptionButton(Form& form, std::string name, std::string group, std::string caption = {});
    Signal<> Click;
    const std::string group;

    int value() const { return value_; }
    bool selected() const { return value_ != 0; }
    // Any value but 0 selects. The event is raised when the button becomes selected, and only then.
    void setValue(int value);
    void design(bool selected) { value_ = selected ? -1 : 0; }

private:
    int value_ = 0;
};

class TabStrip : public Control {
public:
    TabStrip(Form& form, std::string name, std::vector<std::string> captions);
    Signal<> Click;  // the current tab has changed
    Property<int> Tab{0, &viewChanged, &Click};

    int Tabs() const { return static_cast<int>(tabs_.size()); }
    const std::string& TabCaption(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).caption; }
    void setTabCaption(int tab, std::string caption);
    bool TabVisible(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).visible; }
    void setTabVisible(int tab, bool visible);
    bool TabEnabled(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).enabled; }
    void setTabEnabled(int tab, bool enabled);
    // Only this tab on offer: it becomes visible and current, the others invisible.
    void offerOnly(int tab);

private:
    struct Page {
        std::string caption;
        bool visible = true;
        bool enabled = true;
    };
    std::vector<Page> tabs_;
};

class StatusBar : public Control {
public:
    StatusBar(Form& form, std::string name, int panels);
    // Panels count from 1.
    const std::string& Panel(int panel) const { return panels_.at(static_cast<std::size_t>(panel - 1)); }
    void setPanel(int panel, std::string text);

private:
    std::vector<std::string> panels_;
};

class Menu : public Control {
public:
    Menu(Form& form, std::string name, std::string caption = {}, std::optional<int> index = std::nullopt)
        : Control(form, ControlKind::Menu, std::move(name), std::move(caption), index) {}
    Signal<> Click;
    // Name of the menu of the same window that this entry lies in; empty: a title, of the bar or of a pop-up.
    std::string parent;
    bool separatorBefore = false;  // a line above it tells groups of commands apart
    // Shown in bold where its popup comes up: what a double click on the list would do.
    Property<bool> isDefault{false, &viewChanged};
};

// Driven from outside: by the display's loop, or by the pump. Its event is not raised while its own handler runs.
class Timer : public Control {
public:
    Timer(Form& form, std::string name, int interval, bool enabled);
    Signal<> Tick;
    Property<int> Interval;  // milliseconds
    // Runs the handler if the timer is enabled and not already inside it.
    void fire();

private:
    bool inside_ = false;
};

// A hidden list of the files of one folder that match a pattern, sorted by name without regard to case.
class FileList : public Control {
public:
    FileList(Form& form, std::string name) : Control(form, ControlKind::FileList, std::move(name)) {
        Visible.design(false);
    }
    std::string Path;
    std::string Pattern = "*.*";
    std::vector<std::string> List;
    int ListCount() const { return static_cast<int>(List.size()); }
};

// Drives as "c:" texts; only the first two characters of one are used.
class DriveList : public Control {
public:
    DriveList(Form& form, std::string name) : Control(form, ControlKind::DriveList, std::move(name)) {}
    Signal<> Change;
    std::vector<std::string> List;
    Property<int> ListIndex{-1, &viewChanged, &Change};
    std::string Drive() const {
        const int index = ListIndex;
        return index >= 0 && index < static_cast<int>(List.size()) ? List[static_cast<std::size_t>(index)]
                                                                   : std::string();
    }
};

}  // namespace tidvane::forms
