// The tray of an X11 desktop, in a thread of its own: it takes the icons that ask for a place, and shows them.
#pragma once

#include <atomic>
#include <thread>

namespace tidvane::tests {

class XTray {
public:
    // Stands in the upper left corner of the screen, 32 pixels high and wide.
    XTray();
    ~XTray();
    XTray(const XTray&) = delete;
    XTray& operator=(const XTray&) = delete;

    // How many icons it shows.
    [[nodiscard]] int icons() const { return icons_; }
    // A user's gestures on it. Each points at the icon first.
    void point();
    void click();
    void rightClick();
    void doubleClick();

private:
    void run();

    std::atomic<int> icons_{0};
    std::atomic<bool> ready_{false};
    std::atomic<bool> end_{false};
    std::thread thread_;
};

}  // namespace tidvane::tests
