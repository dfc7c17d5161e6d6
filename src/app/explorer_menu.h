// The menu of shell folders.
#pragma once

#include <string>

namespace tidvane::app {

class frmMain;

// Fills lstExplorer with 19 rows "Label: folder", sorted.
void FillExplorerMenu(frmMain& main);

// The part of a row from one character before the first ":\"; empty for a row without one (a folder that cannot be
// told).
std::string folderOfRow(const std::string& row);

}  // namespace tidvane::app
