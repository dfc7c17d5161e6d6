// The Opera tasks that empty folders.
#include <array>

#include "settings/frmOptions.h"
#include "tasks/browser_folders.h"
#include "tasks/browser_tasks.h"
#include "tasks/file_task.h"

namespace tidvane::tasks {

namespace {

// Emptied behind the cache folder, whatever the location window says.
constexpr std::array kFurtherCaches{
    "\\Opera\\Opera Widget Installer\\opcache\\",
    "\\Opera\\Opera Widget Installer\\cache\\",
    "\\Opera\\Opera\\temporary_downloads\\",
    "\\Opera\\Opera\\opcache\\",
};

}  // namespace

void cleanOperaCache(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    const std::string cache = folders.cache();
    if (!tellFolder(program, task, cache, endFolderMissing)) return;
    purge(program, cache);
    for (const char* folder : kFurtherCaches) purge(program, belowLocalAppData(program, folder));
    const std::string thumbnails = belowLocalAppData(program, "\\Opera\\Opera\\thumbnails\\");
    if (program.get<settings::frmOptions>().chkOperaINDepthClean.ticked() &&
        program.platform.files.FolderExists(thumbnails)) {
        purge(program, thumbnails);
        program.report().AddLogLine(taskName(program, task) + " (Thumbnails SpeedDial) " + program.LangText(504) +
                                    " <OK>");
    }
    endCleaned(program, task);
}

void cleanOperaIcons(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    const std::string icons = below(folders.second(), "icons\\");
    if (!tellFolder(program, task, icons, endFolderMissing)) return;
    purge(program, icons);
    purge(program, belowLocalAppData(program, "\\Opera\\Opera Widget Installer\\icons\\"));
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
