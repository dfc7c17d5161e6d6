// A cleaning run, from the button to the end.
#pragma once

#include <string>

#include "app/disk_statistics.h"
#include "forms/list_controls.h"
#include "settings/program.h"
#include "tasks/cleaning_task.h"

namespace tidvane::settings {
class frmOptions;
}

namespace tidvane::app {

class frmMain;

class CleaningRun {
public:
    explicit CleaningRun(frmMain& main);
    void run();

private:
    void prepare();
    void warnWhenNothingIsTicked();
    void openRecycleBinAsPreview();
    void announce();
    // Every step is called, also after a stop: each worker tests that by itself.
    void walk();
    // The row that a step reports in; null without one.
    const forms::ListItem* rowOf(const tasks::CleaningTask& task, bool ticked) const;
    void enableEntryPoints(bool enabled);
    void summarise();
    // What follows the summary. False: the routine is left here, with the button still pressed.
    bool finish();
    bool runCustomApplication();
    std::string now() const;
    // Asked for at each use: events that get in may store the options and load them anew.
    settings::frmOptions& options();

    frmMain& main_;
    settings::Program& program_;
    FreeSpaceBefore freeBefore_;
    double startTime_ = 0;
};

// The time of a run as its summary tells it: "1,50 <minutes> " above 60 seconds (with a comma in every locale), else
// seconds rounded to three decimals.
std::string elapsedText(settings::Program& program, float seconds);

}  // namespace tidvane::app
