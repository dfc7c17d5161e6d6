// Writing the log to td_log.txt, by the button and after a run.
#pragma once

namespace tidvane::app {

class frmMain;

// The button: asks for a file name with chkAskLogLocation ticked, else writes into the folder of txtTidvaneLog.
void saveLogByButton(frmMain& main);
// After a run: only with chkAutoLog ticked and no stop asked for. The lines that announce the save are not in the file.
void SaveAutoLog(frmMain& main);

}  // namespace tidvane::app
