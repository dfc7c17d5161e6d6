// What a look at an entry tells, out of the state that the host gives.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/file_system.h"

namespace tidvane::platform::machine {

[[nodiscard]] EntryKind kindOfMode(unsigned mode);

[[nodiscard]] EntryDetails detailsOf(std::string name, const struct stat& info);
[[nodiscard]] EntryDetails detailsOf(std::string name, const struct statx& info);
// The fields of the older form that are looked at here: type, rights, length, names, owner, identity.
[[nodiscard]] struct stat plainState(const struct statx& state);

}  // namespace tidvane::platform::machine
