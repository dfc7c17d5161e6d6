// The program for a command that works with one of its windows: without the main window, so that neither the start of
// the program nor a cleaning at its start can happen behind it, and with windows that store nothing by themselves.
#pragma once

#include "console/commands.h"
#include "console/console_display.h"
#include "console/no_pauses.h"
#include "console/unsaved_profiles.h"
#include "settings/program.h"

namespace tidvane::console {

class ToolProgram {
public:
    ToolProgram(Session& session, const Options& options);
    // With events that get in at the pumps of the program.
    ToolProgram(Session& session, const Options& options, platform::EventPump& events);
    ~ToolProgram();
    ToolProgram(const ToolProgram&) = delete;
    ToolProgram& operator=(const ToolProgram&) = delete;

    settings::Program& program() { return program_; }
    ConsoleDisplay& display() { return display_; }

private:
    Session& session_;
    UnsavedProfiles unsaved_;
    NoPauses noPauses_;
    ConsoleDisplay display_;
    settings::Program program_;
};

}  // namespace tidvane::console
