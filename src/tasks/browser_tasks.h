// The tasks of Firefox, Opera, Chrome and Safari.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

void cleanProfileFiles(settings::Program& program, const CleaningTask& task);
void cleanFirefoxCache(settings::Program& program, const CleaningTask& task);
void cleanFirefoxCrashReports(settings::Program& program, const CleaningTask& task);
void cleanOperaCache(settings::Program& program, const CleaningTask& task);
void cleanOperaIcons(settings::Program& program, const CleaningTask& task);
void cleanChromeCookies(settings::Program& program, const CleaningTask& task);
void cleanChromeCache(settings::Program& program, const CleaningTask& task);
void cleanSafariHistory(settings::Program& program, const CleaningTask& task);
void cleanSafariCookies(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
