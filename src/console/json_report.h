// What a run came to, for programs: one JSON object.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "app/frmMain.h"

namespace tidvane::console {

// One step of the walk. The texts are copied where the step ends, since the rows may change afterwards.
struct ReportedStep {
    int number = 0;
    std::string key;   // of the row, whether it stands or not
    std::string gate;  // "window.control"; empty for a step without one
    bool ticked = false;
    bool notThereYet = false;
    std::string status;
    int icon = 0;
    double milliseconds = 0;
    platform::RemovalTotals removed;
};

struct Report {
    std::string version;
    std::string machine;
    std::string method;
    bool stopped = false;
    bool registryStored = false;    // false: the keys and values that the steps name are still there
    platform::RemovalTotals total;  // of everything, a cleaning at the start or at the end included
    double elapsed = 0;             // seconds
    std::uint64_t freeBefore = 0;   // bytes free on the drive of the disk figures
    std::uint64_t freeAfter = 0;
    std::vector<ReportedStep> steps;
};

ReportedStep reportedStep(settings::Program& program, const app::StepResult& result);

// UTF-8; bytes that are none (a host's file name in a text) become U+FFFD.
void writeReport(std::ostream& out, const Report& report);

}  // namespace tidvane::console
