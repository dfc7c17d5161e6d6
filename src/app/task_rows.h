// The rows of the task list: which stand, under which key, with which icon.
#pragma once

#include <string>

#include "app/task_catalogue.h"
#include "forms/list_controls.h"
#include "settings/program.h"

namespace tidvane::app {

// Key and text of the junk search's row.
std::string searchRowText(settings::Program& program);

// Whether the gates want a row for this step now. Steps without a row of their own: false.
bool wantsRow(settings::Program& program, const tasks::CleaningTask& task);

// Adds the rows of ticked tasks and removes those of the others, in catalogue order. The junk search stands first, all
// others come to the end. Runs against an empty list at the start and against a filled one after the options changed.
void fillTaskRows(settings::Program& program, forms::ListView& list);
// Removes the row of the junk search before a fill, so that it comes back with the drive that is chosen now.
void dropSearchRow(settings::Program& program, forms::ListView& list);

// Gives each row its group's icon again. The junk search's row is not reached: it has no key that stays.
void resetTaskIcons(settings::Program& program, forms::ListView& list);
void clearTaskStatuses(forms::ListView& list);

}  // namespace tidvane::app
