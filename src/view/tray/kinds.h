// The kinds of places that desktops have for tray icons.
#pragma once

#include <memory>

#include "view/tray.h"

namespace tidvane::view {

// An item on the session bus (StatusNotifierItem), which the desktop draws, its menu included. Only under GTK.
std::unique_ptr<Tray> makeNotifierTray();
// A small window in the tray of the desktop (XEmbed), or the notification area of Windows.
std::unique_ptr<Tray> makeEmbeddedTray();

}  // namespace tidvane::view
