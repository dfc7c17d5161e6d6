// The commands that work on an opened machine.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "console/options.h"
#include "platform/platform.h"

namespace tidvane::console {

// What a command works with: the services, where it speaks, and how the registry is stored at the end.
struct Session {
    platform::Platform platform;
    std::string machine;  // the directory, as the report names it
    std::ostream& out;
    std::ostream& err;
    // False: the registry could not be stored; the text is one sentence.
    std::function<bool(std::string&)> commit = [](std::string&) { return true; };
    // Set by a command while it has somewhere to show a warning of the platform.
    std::function<void(const std::string&)> warn;
    // Nothing is really removed, whatever the counters say.
    bool preview = false;
};

// The start, the settings of the options, the clean button, the end.
int runCommand(Session& session, const Options& options);
// One line a step: number, group, gate, tick, row, name. Nothing is started and nothing cleaned.
int tasksCommand(Session& session, const Options& options);
// One line a control: window.control=value.
int settingsCommand(Session& session, const Options& options);
// Shows or changes the own lists.
int listsCommand(Session& session, const Options& options);
// Lists the plug-ins, stores ticks, shows what a plug-in says of itself.
int pluginsCommand(Session& session, const Options& options);
// The search wizard, from its first page to the end of the search.
int searchCommand(Session& session, const Options& options);
// The managers of cookie files and of cache entries.
int cookiesCommand(Session& session, const Options& options);
int cacheCommand(Session& session, const Options& options);

}  // namespace tidvane::console
