// The command line that calls the browser's own cleaner, for machines that start no program and clean by themselves.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/browser_cache.h"
#include "platform/processes.h"

namespace tidvane::platform {

// The number n of "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess n". Case does not matter, nor do blanks around the
// comma and at both ends; ".exe" may be missing. Nothing for any other command line, such as one with a path, a sign,
// no number or one beyond 32 bits.
std::optional<int> clearTracksNumber(std::string_view commandLine);

// Clears what such a command line names and gives a process that has ended; null for any other. What could not be
// cleared is not told, as no exit code is read.
std::unique_ptr<Process> runClearTracksCommand(std::string_view commandLine, BrowserCache& cache);

}  // namespace tidvane::platform
