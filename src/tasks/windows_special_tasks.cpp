#include <cstdint>

#include "base/numbers.h"
#include "settings/frmOptions.h"
#include "tasks/windows_tasks.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

namespace {
constexpr unsigned kNoConfirmation = 1;
constexpr unsigned kNoProgressUi = 2;
constexpr unsigned kNoSound = 4;

// Intended: only the low half of each figure is read, as a signed number, so a bin of 2 GiB and more shows a wrong
// size.
std::int32_t lowHalf(std::uint64_t figure) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(figure));
}
}  // namespace

void UpdateRecyclerLabels(settings::Program& program, const std::string& root) {
    platform::RecycleBinInfo info;
    program.platform.shell.SHQueryRecycleBinA(root, info);
    auto& options = program.get<settings::frmOptions>();
    options.lblRecyclerFiles.Caption = base::numberText(static_cast<std::int64_t>(lowHalf(info.items)));
    options.lblRecylcerSize.Caption =
        base::formatNumber(lowHalf(info.bytes) / 1024.0 / 1024.0, "###,###,##0.00", program.locale()) + " MB";
}

void emptyRecycleBin(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    UpdateRecyclerLabels(program, "");
    auto& options = program.get<settings::frmOptions>();
    program.report().AddLogLine(taskName(program, task) + " " + options.lblRecyclerFiles.Caption.get() + " " +
                                program.LangText(500) + " (" + options.lblRecylcerSize.Caption.get() + ")");
    program.platform.shell.SHEmptyRecycleBinA(0, "", kNoConfirmation | kNoProgressUi | kNoSound);
    endCleaned(program, task);
}

void emptyClipboard(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    program.display.clearClipboard();
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
