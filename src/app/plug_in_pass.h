// What a run of the plug-ins alone, started from their list, has around it. The pass itself is frmMain::CleanPlugins.
#pragma once

namespace tidvane::app {

class frmMain;

// The command mnuCleanPlugNow: the shorter start and end of a run that cleans nothing but the plug-ins. It writes no
// td_last.dat, leaves the look of the button and the old log as they are, and does not bring the list's page back.
void cleanPlugInsNow(frmMain& main);

}  // namespace tidvane::app
