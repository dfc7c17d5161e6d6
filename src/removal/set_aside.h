// Files that match common junk masks and must survive a sweep.
#pragma once

#include <array>

namespace tidvane::removal {

struct SetAsideRow {
    const char* testMask;
    const char* from;
    const char* to;
    int logKey;  // language table
    const char* logTag;
    const char* logName;
};

// In this order, and only the first row whose test mask matches anything in the folder. The test masks are wider than
// the renames, the last row never fires behind the one above it, and of two certificates only the first is set aside:
// all intended as it stands.
inline constexpr std::array kSetAside{
    SetAsideRow{"opa12*.bak", "opa12.bak", "opa12.bak_copy", 900, "[*.bak] ", "OPA12.BAK"},
    SetAsideRow{"cacert*.001", "cacert.001", "cacert.001_copy", 902, "[*.001] ", "CACERT.001"},
    SetAsideRow{"cacert*.002", "cacert.002", "cacert.002_copy", 902, "[*.002] ", "CACERT.002"},
    SetAsideRow{"Uninstal*.log", "uninstal.log", "uninstal.log_copy", 903, "[*.log] ", "UNINSTAL.LOG"},
    SetAsideRow{"Uninstall*.log", "uninstall.log", "uninstall.log_copy", 932, "[*.log] ", "UNINSTALL.LOG"},
};

struct RestoreRow {
    const char* from;
    const char* to;
};

// Always all six, in every folder, whether a row fired or not. "opa13" has no partner above: it picks up a leftover.
// Three pairs come back in upper case: intended.
inline constexpr std::array kRestore{
    RestoreRow{"opa12.bak_copy", "opa12.bak"},       RestoreRow{"opa13.bak_copy", "opa13.bak"},
    RestoreRow{"CACERT.001_copy", "CACERT.001"},     RestoreRow{"CACERT.002_copy", "CACERT.002"},
    RestoreRow{"UNINSTAL.LOG_copy", "UNINSTAL.LOG"}, RestoreRow{"UNINSTALL.LOG_copy", "UNINSTALL.LOG"},
};

}  // namespace tidvane::removal
