// The console front end, from the command line to the exit status.
#pragma once

#include <ostream>

namespace tidvane::console {

int consoleMain(int count, const char* const* arguments, std::ostream& out, std::ostream& err);

}  // namespace tidvane::console
