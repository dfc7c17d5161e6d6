// The steps that all workers share: from the gate to the stop test, and the ends.
#pragma once

#include <string>

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

inline constexpr int kIconDone = 9;
inline constexpr int kIconNotFound = 10;

enum class Begin { Unticked, Stopped, Go };

// How a group of workers differs in its first steps.
struct BeginWords {
    bool verb = true;             // panel 1 starts with the word for "working on"
    const char* dots = " ...";    // what stands behind the name in panel 1
    bool greyedIsSilent = false;  // value 2 ends without a line: the two temp tasks test for 0 and not for 1
};

// Unticked: logged, shown in panel 1, the row keeps what it showed. Ticked: panel 1, status "running", the pause, the
// selection, and only then the stop test, which sets the status "stopped" and writes no line.
Begin beginTask(settings::Program& program, const CleaningTask& task, const BeginWords& words = {});

// The same behind the gate, for tasks with words of their own: what panel 1 shows, and what stands behind the word for
// "running" without a blank.
Begin beginRow(settings::Program& program, const CleaningTask& task, const std::string& panel,
               const std::string& behindRunning = {});

// What a task that is off reports: the log line, the same in panel 1, then "finished" in panel 1.
void reportUnticked(settings::Program& program, const std::string& name);

// The end of a task that did its work: log line with the word for "cleaned", status "finished", icon 9.
void endCleaned(settings::Program& program, const CleaningTask& task);
// The end of a task whose target is not there: log line with this text behind the name, this status, icon 10.
void endNotFound(settings::Program& program, const CleaningTask& task, int text = 499, int status = 508);
// The row alone.
void endRow(settings::Program& program, const CleaningTask& task, int statusText, int icon);

}  // namespace tidvane::tasks
