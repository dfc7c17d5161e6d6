#include "view/tray/owner_watch.h"

#include <utility>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif
#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

namespace tidvane::view {

#ifdef GDK_WINDOWING_X11

namespace {

GdkFilterReturn onEvent(GdkXEvent* event, GdkEvent*, gpointer watch) {
    if (static_cast<const XEvent*>(event)->type == DestroyNotify) static_cast<OwnerWatch*>(watch)->ownerGone();
    return GDK_FILTER_CONTINUE;
}

}  // namespace

OwnerWatch::OwnerWatch(std::function<void()> onGone) : onGone_(std::move(onGone)) {
    Bind(wxEVT_THREAD, [this](wxThreadEvent&) {
        const std::function<void()> told = onGone_;  // its end may be that of this watch
        told();
    });
    GdkDisplay* display = gdk_display_get_default();
    if (display == nullptr || !GDK_IS_X11_DISPLAY(display)) return;
    const Atom selection = gdk_x11_get_xatom_by_name_for_display(display, "_NET_SYSTEM_TRAY_S0");
    const Window owner = XGetSelectionOwner(gdk_x11_display_get_xdisplay(display), selection);
    if (owner == None) return;
    // It may go at any moment; unwatched, the error would end the program.
    gdk_x11_display_error_trap_push(display);
    owner_ = gdk_x11_window_foreign_new_for_display(display, owner);
    if (owner_ != nullptr) {
        // What the toolkit itself listens to on that window stays.
        gdk_window_set_events(owner_, static_cast<GdkEventMask>(gdk_window_get_events(owner_) | GDK_STRUCTURE_MASK));
        gdk_window_add_filter(owner_, onEvent, this);
    }
    if (gdk_x11_display_error_trap_pop(display) != 0) ownerGone();
}

OwnerWatch::~OwnerWatch() {
    if (owner_ == nullptr) return;
    gdk_window_remove_filter(owner_, onEvent, this);
    g_object_unref(owner_);
}

void OwnerWatch::ownerGone() {
    // As an event of its own kind: painting while the program works does not let it in.
    QueueEvent(new wxThreadEvent);
}

#else

OwnerWatch::OwnerWatch(std::function<void()> onGone) : onGone_(std::move(onGone)) {}
OwnerWatch::~OwnerWatch() = default;
void OwnerWatch::ownerGone() {}

#endif

}  // namespace tidvane::view
