#include "view/x_tray.h"

#include <wx/uiaction.h>

#include <chrono>
#include <set>

#include "view/display_fixture.h"

// The last one: it gives everyday words a meaning of its own.
#include <X11/Xlib.h>

namespace tidvane::tests {

namespace {
constexpr int kSide = 32;
constexpr int kInside = 8;  // in every icon: one may have asked for a smaller size behind that of the tray
constexpr long kDock = 0;   // the request of an icon for a place
}  // namespace

XTray::XTray() {
    thread_ = std::thread([this] { run(); });
    while (!ready_) std::this_thread::yield();
}

XTray::~XTray() {
    end_ = true;
    thread_.join();
}

void XTray::run() {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        ready_ = true;
        return;
    }
    const Window root = DefaultRootWindow(display);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.background_pixel = WhitePixel(display, DefaultScreen(display));
    attributes.event_mask = SubstructureNotifyMask;
    const Window tray = XCreateWindow(display, root, 0, 0, kSide, kSide, 0, CopyFromParent, InputOutput, CopyFromParent,
                                      CWOverrideRedirect | CWBackPixel | CWEventMask, &attributes);
    XMapRaised(display, tray);
    const Atom selection = XInternAtom(display, "_NET_SYSTEM_TRAY_S0", False);
    const Atom opcode = XInternAtom(display, "_NET_SYSTEM_TRAY_OPCODE", False);
    XSetSelectionOwner(display, selection, tray, CurrentTime);
    XSync(display, False);
    ready_ = true;
    std::set<Window> docked;
    while (!end_) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == ClientMessage && event.xclient.message_type == opcode &&
                event.xclient.data.l[1] == kDock) {
                const auto icon = static_cast<Window>(event.xclient.data.l[2]);
                XReparentWindow(display, icon, tray, 0, 0);
                XMoveResizeWindow(display, icon, 0, 0, kSide, kSide);
                XMapRaised(display, icon);
                docked.insert(icon);
            } else if (event.type == DestroyNotify) {
                docked.erase(event.xdestroywindow.window);
            } else if (event.type == ReparentNotify && event.xreparent.parent != tray) {
                docked.erase(event.xreparent.window);
            } else if (event.type == UnmapNotify && event.xunmap.event == tray) {
                docked.erase(event.xunmap.window);
            }
            icons_ = static_cast<int>(docked.size());
        }
        XFlush(display);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    // The icons survive their tray.
    for (const Window icon : docked) {
        XUnmapWindow(display, icon);
        XReparentWindow(display, icon, root, 0, 0);
    }
    XDestroyWindow(display, tray);
    XSync(display, False);
    XCloseDisplay(display);
}

void XTray::point() {
    wxUIActionSimulator().MouseMove(kInside, kInside);
    letSettle();
}

void XTray::click() {
    point();
    wxUIActionSimulator().MouseClick();
}

void XTray::rightClick() {
    point();
    wxUIActionSimulator().MouseClick(wxMOUSE_BTN_RIGHT);
}

void XTray::doubleClick() {
    point();
    wxUIActionSimulator().MouseDblClick();
}

}  // namespace tidvane::tests
