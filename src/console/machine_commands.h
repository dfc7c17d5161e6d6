// machine create, machine info.
#pragma once

#include <ostream>

#include "console/options.h"
#include "platform/machine/machine_platform.h"

namespace tidvane::console {

int machineCreateCommand(const Options& options, std::ostream& out, std::ostream& err);
int machineInfoCommand(platform::machine::MachinePlatform& machine, const std::string& programFolder,
                       std::ostream& out);

}  // namespace tidvane::console
