// The sibling programs that a finished run may start.
#pragma once

namespace tidvane::app {

class frmMain;

// With chkCleanRAM ticked and no stop: runs memtrim.exe of the program folder and waits.
void RunMemoryTrim(frmMain& main);
// With chkAddInRegClean ticked and no stop: runs the program of txtAddInRegCleanPath and waits.
void RunRegistryAddIn(frmMain& main);

}  // namespace tidvane::app
