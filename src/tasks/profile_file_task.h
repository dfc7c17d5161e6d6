// The targets of the tasks that remove files of a browser's profile.
#pragma once

#include <span>

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

// What a target's name is joined to.
enum class ProfileBase {
    Profile,       // the profile box of the browser's window
    Cache,         // its cache box
    AppData,       // the roaming application data, whatever the window says
    LocalAppData,  // the local application data
};

enum class ProfileAct { Kill, Purge };

// One target of one task. Rows of a step stand together, in the order of removal.
struct ProfileTarget {
    int step;
    ProfileBase base;
    const char* name;  // a file, a mask, or the folder to empty
    ProfileAct act = ProfileAct::Kill;
};

std::span<const ProfileTarget> profileTargets();

}  // namespace tidvane::tasks
