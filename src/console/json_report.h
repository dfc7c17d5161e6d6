// What a run or a search came to, for programs: one JSON object.
#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "app/frmMain.h"
#include "platform/removal_counter.h"

namespace tidvane::console {

// One step of the walk. The texts are copied where the step ends, since the rows may change afterwards.
struct ReportedStep {
    int number = 0;
    std::string key;   // of the row, whether it stands or not
    std::string gate;  // "window.control"; empty for a step without one
    bool ticked = false;
    std::string status;
    int icon = 0;
    double milliseconds = 0;
    platform::RemovalTotals removed;
    std::vector<platform::RemovedEntry> entries;  // with details
};

// What a search looked for; it has no steps.
struct ReportedSearch {
    std::string mask;
    std::string folder;
};

struct Report {
    std::string version;
    std::string machine;
    std::string method;
    std::optional<ReportedSearch> search;
    bool preview = false;  // nothing was removed: these are the numbers that it would come to
    bool details = false;  // the entries are known
    bool stopped = false;
    bool registryStored = false;    // false: the keys and values that the steps name are still there
    platform::RemovalTotals total;  // of everything, a cleaning at the start or at the end included
    double elapsed = 0;             // seconds
    std::uint64_t freeBefore = 0;   // bytes free on the drive of the disk figures, of a search on that of its folder
    std::uint64_t freeAfter = 0;
    std::vector<ReportedStep> steps;
    std::vector<platform::RemovedEntry> otherEntries;  // with details: what no step names
};

ReportedStep reportedStep(settings::Program& program, const app::StepResult& result);

// UTF-8; bytes that are none (a host's file name in a text) become U+FFFD.
void writeReport(std::ostream& out, const Report& report);

// The file of --json: opened before anything is removed, written last.
class ReportFile {
public:
    // Without a name nothing is written. False: it cannot be opened; `error` is one sentence.
    bool open(const std::string& name, std::string& error);
    // False: it could not be written whole.
    bool write(const Report& report, std::string& error);

private:
    std::string name_;
    std::ofstream file_;
};

}  // namespace tidvane::console
