#include "tasks/search_task.h"

#include "removal/folder_sweep.h"
#include "settings/frmOptions.h"
#include "settings/pause.h"

namespace tidvane::tasks {

void SearchMaskFiles(settings::Program& program, const CleaningTask&) {
    const auto& options = program.get<settings::frmOptions>();
    if (!options.chkSearchTasks.ticked()) return;

    settings::RunReport& report = program.report();
    const std::string masks = std::to_string(options.lstSearchMasks.ListCount());
    report.AddLogLine(program.LangText(222) + " " + program.LangText(510));
    settings::pauseByPurgeSpeed(program);
    report.selectFirstRow();
    report.setFirstRowStatus(program.LangText(511) + " [" + masks + " " + program.LangText(528) + "]");
    report.AddLogLine("[" + masks + "] " + program.LangText(512) + " ...");

    if (options.chkAllFixedDrives.ticked()) {
        // Nobody asks whether a drive is ready: one that is not contributes nothing.
        for (const platform::Drive& drive : program.platform.files.Drives()) {
            if (drive.type != platform::DriveType::Fixed) continue;
            removal::SweepFolderByMasks(program, std::string{drive.letter} + ":\\");
        }
    } else {
        removal::SweepFolderByMasks(program, options.cboDrives.Text() + "\\");
    }

    if (report.StopRequested()) return report.setFirstRowStatus(program.LangText(506));
    report.setFirstRowStatus(program.LangText(507));
    report.AddLogLine(program.LangText(529) + " <OK>");
}

}  // namespace tidvane::tasks
