#include "app/task_rows.h"

#include "settings/frmOptions.h"

namespace tidvane::app {

namespace {

constexpr int kTicked = 1;  // greyed counts as off here

// Row 1 is the junk search's only if it has the icon of its kind and is not the common row of the own lists.
bool firstRowIsSearch(settings::Program& program, const forms::ListView& list) {
    const forms::ListItem* first = list.item(1);
    return first != nullptr && first->smallIcon == groupIcon(tasks::Group::Search) &&
           first->key != program.LangText(220);
}

bool isSearch(const tasks::CleaningTask& task) {
    return task.group == tasks::Group::Search;
}

bool hasOwnRow(const tasks::CleaningTask& task) {
    return task.rowGate.control != nullptr;
}

// The second of two steps with a common row: the first has seen to it, also where no language gives the row a key.
bool sharesRowAbove(const tasks::CleaningTask& task) {
    const auto walk = taskCatalogue();
    return task.group == tasks::Group::Custom && walk[static_cast<std::size_t>(task.step) - 2].group == task.group;
}

// The own folders and the own files share a row that stands while either is ticked.
bool eitherOwnList(settings::Program& program) {
    const auto& options = program.get<settings::frmOptions>();
    return options.chkActivateOwnFolder.Value == kTicked || options.chkActivateOwnFiles.Value == kTicked;
}

}  // namespace

std::string searchRowText(settings::Program& program) {
    const auto& options = program.get<settings::frmOptions>();
    if (options.chkAllFixedDrives.ticked()) return program.LangText(221) + " \"All Fixed HD\"";
    return program.LangText(221) + " " + options.cboDrives.Text() + "\\";
}

bool wantsRow(settings::Program& program, const tasks::CleaningTask& task) {
    if (!hasOwnRow(task)) return false;
    if (task.group == tasks::Group::Custom) return eitherOwnList(program);
    return tasks::gateValue(program, task.rowGate) == kTicked;
}

void dropSearchRow(settings::Program& program, forms::ListView& list) {
    if (firstRowIsSearch(program, list)) list.Remove(1);
}

void fillTaskRows(settings::Program& program, forms::ListView& list) {
    for (const tasks::CleaningTask& task : taskCatalogue()) {
        if (!hasOwnRow(task) || sharesRowAbove(task)) continue;
        const bool wanted = wantsRow(program, task);
        if (isSearch(task)) {
            // By position and not by key, since its text changes with the drive.
            if (wanted) {
                const std::string text = searchRowText(program);
                list.Add(1, text, text, groupIcon(task.group));
            } else {
                dropSearchRow(program, list);
            }
            continue;
        }
        const std::string key = tasks::taskName(program, task);
        if (wanted) {
            list.Add(0, key, key, groupIcon(task.group));  // a key that stands already is not added again
        } else {
            list.Remove(key);
        }
    }
}

void resetTaskIcons(settings::Program& program, forms::ListView& list) {
    for (const tasks::CleaningTask& task : taskCatalogue()) {
        if (!hasOwnRow(task) || isSearch(task)) continue;
        list.setSmallIcon(tasks::taskName(program, task), groupIcon(task.group));
    }
}

void clearTaskStatuses(forms::ListView& list) {
    for (int row = 1; row <= list.Count(); ++row) list.setSubItem(row, "Status", {});
}

}  // namespace tidvane::app
