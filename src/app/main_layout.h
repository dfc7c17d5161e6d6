// Where the controls of the main window's cleaning page stand, as numbers alone.
#pragma once

namespace tidvane::app {

struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

struct MainLayout {
    Rectangle pane;     // ExplorerBar1
    Rectangle tabs;     // SSTab1
    Rectangle list;     // lstTasks
    Rectangle log;      // txtLog; no height while the log is closed
    Rectangle buttons;  // the row under the log
};

// All in twips. `width` and `height`: the client area. The log pane, when shown, has a fixed height and the list takes
// the rest. With a visual theme in force some margins are tighter. No size is ever negative.
inline constexpr int kLogPaneHeight = 3180;
MainLayout mainLayout(int width, int height, bool logVisible, bool themed);

}  // namespace tidvane::app
