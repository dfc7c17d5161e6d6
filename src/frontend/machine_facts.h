// What a machine tells about itself, as people read it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/machine/machine_platform.h"

namespace tidvane::frontend {

// "Windows 7 Service Pack 1", "Windows XP"; "Windows 6.4" for a version without a name.
std::string windowsName(const platform::machine::MachineRegistry& registry);

// Several lines, each with its end: directory, version, user, folders, drives with their free space, recycle bin.
std::string machineFacts(platform::machine::MachinePlatform& machine, const std::string& programFolder);

}  // namespace tidvane::frontend
