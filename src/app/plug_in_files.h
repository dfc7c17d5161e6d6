// The plug-ins of the program's folder and their stored ticks: what the list of the main window is filled from, and
// whoever works without that window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::app {

inline constexpr const char* kPlugTicksFile = "td_apps.ini";

// "C:\Program Files\Tidvane\PlugIns\".
std::string plugInFolder(const settings::Program& program);

// Names of the "*.tdp" entries of a folder, in the order of the look-up. Folders match too: one named "x.tdp" gets a
// row, and only its use shows that it is none.
std::vector<std::string> plugInFiles(settings::Program& program, const std::string& folder);

// What a plug-in's row is called: its file's name up to the last dot.
std::string plugInName(const std::string& fileName);

// Numbers and the words for true and false; nothing where there is no such key or its text is none of them.
std::optional<bool> storedPlugTick(settings::Program& program, const std::string& ticksFile, const std::string& name);

// False: the file could not be written.
bool storePlugTick(settings::Program& program, const std::string& ticksFile, const std::string& name,
                   const char* value);

}  // namespace tidvane::app
