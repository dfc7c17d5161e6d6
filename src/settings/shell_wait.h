// Starting a program and waiting for its end.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::settings {

// Starts a command line and lets events in every 10 ms until it has ended. `show`: the window mode, its absolute value
// counts. False, with a warning box: it could not be started.
bool ShellWait(Program& program, const std::string& commandLine, int show = 1);

// Starts a document or program through the shell and waits without letting any event in.
bool ShellExecuteWait(Program& program, const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show);

}  // namespace tidvane::settings
