// td_last.dat: when the last run ended.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::app {

struct LastRun {
    bool exists = false;
    std::string date;  // in the locale's short form; empty where the file does not tell
    std::string time;
};

LastRun readLastRun(settings::Program& program);
// Two lines, each between number signs: #2009-11-03# and #07:05:09#.
void writeLastRun(settings::Program& program);

}  // namespace tidvane::app
