// The task pane of the main window: groups and items, with the numbers that its events carry.
#pragma once

#include <span>

namespace tidvane::app {

enum class PaneAction {
    CleaningPage,
    Clean,
    CustomApplication,
    CleaningJobs,
    Options,
    PlugInsPage,
    MorePlugIns,
    ExtensionsPage,
    MoreExtensions,
    OnlineHelp,
    AboutPage,
    UpdateCheck,
    Exit,
    SessionMenu,
};

struct PaneRow {
    int group;
    int title;  // entry of the group's title
    int item;
    int text;  // entry of the item's text
    const char* icon;
    PaneAction action;
};

// In order of adding: groups and items are numbered by it.
std::span<const PaneRow> paneTable();

}  // namespace tidvane::app
