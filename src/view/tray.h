// The one icon in the notification area.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tidvane::view {

// An entry of the icon's menu, for desktops that draw that menu themselves.
struct TrayEntry {
    std::string name;     // of the control in the model
    std::string caption;  // with "&" in front of the keyboard letter
    bool enabled = true;
    bool separatorBefore = false;
    std::vector<TrayEntry> entries;  // those of a submenu
    bool operator==(const TrayEntry&) const = default;
};

class Tray {
public:
    Tray() = default;
    virtual ~Tray() = default;
    Tray(const Tray&) = delete;
    Tray& operator=(const Tray&) = delete;

    // False: the desktop has no place for it. A second add changes nothing and answers as the first.
    virtual bool add(const std::string& tip) = 0;
    virtual void remove() = 0;
    // Something about the entries of the menu is different now.
    virtual void menuChanged() {}

    // Also when the desktop has lost its place for the icon: what lies behind it would be out of reach.
    std::function<void()> onDoubleClick;
    std::function<void()> onMenu;
    std::function<std::vector<TrayEntry>()> entries;
    // An entry was chosen: its name.
    std::function<void(const std::string&)> onEntry;
};

// Takes whatever place the desktop has when the icon is added.
std::unique_ptr<Tray> makeTray();

}  // namespace tidvane::view
