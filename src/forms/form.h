// A window as a model: controls as members, a rectangle in twips, and the handlers of its life.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace tidvane::forms {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// Why a window is about to close.
enum class UnloadMode { ControlMenu = 0, Code = 1, WindowsShutdown = 2 };

class Form {
public:
    explicit Form(std::string name);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string Name;
    Signal<> viewChanged;

    Property<std::string> Caption{{}, &viewChanged};
    Property<int> Left{0, &viewChanged};
    Property<int> Top{0, &viewChanged};
    Property<int> Width{9000, &viewChanged};
    Property<int> Height{6000, &viewChanged};
    Property<WindowState> State{WindowState::Normal, &viewChanged};
    Property<bool> Visible{false, &viewChanged};

    // All controls, in the order of their declaration in the window.
    const std::vector<Control*>& Controls() const { return controls_; }
    // By name without regard to case; with an index, the member of the array. Null when there is none.
    Control* control(std::string_view name, std::optional<int> index = std::nullopt) const;
    // How many members the control array of this name has; 0 for a plain control and for an unknown name.
    int arrayCount(std::string_view name) const;

    // Runs once, hidden, when the window is first used. An error that leaves it reaches whoever asked for the window.
    virtual void Form_Load() {}
    // Answers true to keep the window open.
    virtual bool Form_QueryUnload(UnloadMode) { return false; }
    virtual void Form_Unload() {}

private:
    friend class Control;
    std::vector<Control*> controls_;
};

}  // namespace tidvane::forms
