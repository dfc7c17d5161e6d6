// One row of the catalogue of 62 steps, and what every worker gets.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::tasks {

enum class Group { Search, Custom, Windows, InternetExplorer, Firefox, Opera, Chrome, Safari, Office, PlugIns };

struct CleaningTask;
using Worker = void (*)(settings::Program& program, const CleaningTask& task);

// The check box that decides, by window and control name.
struct Gate {
    const char* window;
    const char* control;
};

struct CleaningTask {
    int step;          // 1 to 62, the order of the walk
    int text;          // number of the task's name in the language table; 0 for a fixed name or none
    const char* name;  // fixed name, where the language does not change it; null otherwise
    Gate gate;         // of the worker
    Gate rowGate;      // of the row in the task list; no control: no row of its own
    Group group;
    Worker worker;
};

// What the row is found by, and what the log calls the task.
std::string taskName(settings::Program& program, const CleaningTask& task);
// The gate's value now: 0, 1, 2; 0 where the window or control is missing.
int gateValue(settings::Program& program, const Gate& gate);

}  // namespace tidvane::tasks
