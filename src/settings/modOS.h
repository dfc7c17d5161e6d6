// What the operating system says about itself and its user, and which tasks its version lacks.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::settings {

// 0 not detected, 1 "95", 2 "98", 3 "ME", 4 "NT 3.51", 5 "NT 4.0", 6 "2000", 7 "XP", 8 "2003", 9 "Vista", 10 "7", 11
// "8". A system above 6.2 tells every program that does not announce itself for it that it is 6.2, so it reads 11 here.
int windowsCode(Program& program);

// "Windows ", the name and, behind a blank, the service pack; "not detected" alone for an unknown version. Clears and
// disables the tasks and settings that the version lacks.
std::string DetectWindows(Program& program);

bool IsWindowsNT(Program& program);

// True when the value of USERNAME is the name of a member of the group "Administratoren". The name of the group is the
// German one everywhere: where it is another, the group cannot be bound and the answer is false. Intended.
bool IsUserAdmin(Program& program);

// The name of the user who is logged on.
std::string GetBenutzer(Program& program);

}  // namespace tidvane::settings
