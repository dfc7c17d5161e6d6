// What the command line changes before a run, in its fixed order: method, set, tick, untick.
#pragma once

#include <set>
#include <string>

#include "console/options.h"
#include "settings/program.h"

namespace tidvane::console {

// Applies everything, each with its events. Where a group or "all", and no name of its own, has ticked the one step
// that clears all of Internet Explorer, the question of its window is asked behind the ticks, unless it is to be
// unticked: an untick always has the last word. A no leaves the two boxes of that window as they were. False at the
// first thing that cannot be done: `error` is one sentence. `changed` gets the names of the windows that were
// addressed.
bool applySettings(settings::Program& program, const Options& options, std::set<std::string>& changed,
                   std::string& error);

// Ticks (1) or unticks (0) a task's box by its name, the boxes of a group, or "all": the gates of steps 1 to 61.
bool tick(settings::Program& program, const std::string& what, int value, std::set<std::string>& changed,
          std::string& error);

// What is said when a write of theirs failed.
inline constexpr const char* kNotStored =
    "The settings could not be stored; check the rights and the free space of the program folder.";

// Stores the windows, each as its own OK would store its controls, and tells of emptied boxes whose text comes back.
// What cannot be written is passed over: the caller has it watched.
void saveWindows(settings::Program& program, const std::set<std::string>& windows);

}  // namespace tidvane::console
