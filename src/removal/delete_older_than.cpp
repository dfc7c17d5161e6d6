#include "removal/delete_older_than.h"

#include <cstdio>
#include <vector>

#include "removal/modKillMethod.h"
#include "removal/paths.h"

namespace tidvane::removal {

std::string GetFileDate(platform::FileSystem& files, const std::string& Path, int Which) {
    if (Path.empty()) return {};
    platform::FileTimes times;
    if (!ok(files.GetFileTimes(Path, times))) return {};
    const platform::FileTime chosen = Which == kCreation     ? times.creation
                                      : Which == kLastAccess ? times.lastAccess
                                                             : times.lastWrite;
    const base::DateTime moment = base::fromFileTime(chosen);
    char text[64];
    std::snprintf(text, sizeof text, "%d/%d/%d  %02d:%02d:%02d", moment.day, moment.month, moment.year, moment.hour,
                  moment.minute, moment.second);
    return text;
}

std::optional<base::DateTime> parseFileDate(const std::string& text) {
    base::DateTime moment;
    const int fields = std::sscanf(text.c_str(), "%d/%d/%d %d:%d:%d", &moment.day, &moment.month, &moment.year,
                                   &moment.hour, &moment.minute, &moment.second);
    if (fields != 6) return std::nullopt;
    return moment;
}

void DeleteOlderThan(platform::Platform& platform, const std::string& Path, std::int16_t MaxDays) {
    if (Path.empty() || !platform.files.FolderExists(Path)) return;
    std::vector<platform::FolderEntry> entries;
    if (!ok(platform.files.ReadFolderToEmpty(Path, entries))) return;
    const base::DateTime now = platform.clock.now();
    for (const platform::FolderEntry& entry : entries) {
        if (entry.kind == platform::EntryKind::Folder || entry.name.starts_with('.')) continue;
        const std::string file = JoinPath(Path, entry.name);
        const auto changed = parseFileDate(GetFileDate(platform.files, file, kLastWrite));
        if (!changed || base::dayDifference(*changed, now) <= MaxDays) continue;
        (void)platform.files.SetAttributes(file, 0);
        KillFile(platform, file, KillPlain, true);
    }
    for (const platform::FolderEntry& entry : entries) {
        if (entry.kind != platform::EntryKind::Folder || entry.name.starts_with('.')) continue;
        const std::string folder = JoinPath(Path, entry.name);
        (void)platform.files.SetAttributes(folder, 0);
        DeleteOlderThan(platform, folder, MaxDays);
        (void)platform.files.RemoveFolder(folder);  // fails while it holds younger files
    }
}

}  // namespace tidvane::removal
