// The one icon in the notification area.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tidvane::view {

class Tray {
public:
    virtual ~Tray() = default;
    // False: the desktop has no place for it.
    virtual bool add(const std::string& tip) = 0;
    virtual void remove() = 0;
    std::function<void()> onDoubleClick;
    std::function<void()> onMenu;
};

// The kind that this desktop has.
std::unique_ptr<Tray> makeTray();

}  // namespace tidvane::view
