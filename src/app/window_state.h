// Where the main window stands and what it shows, kept in td_config.ini.
#pragma once

namespace tidvane::app {

class frmMain;

void loadWindowState(frmMain& main);
void saveWindowState(frmMain& main);

}  // namespace tidvane::app
