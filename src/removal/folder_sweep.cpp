#include "removal/folder_sweep.h"

#include <vector>

#include "base/text.h"
#include "removal/modKillMethod.h"

namespace tidvane::removal {

void DelAll(platform::Platform& platform, const std::string& Path) {
    // Ignored on purpose: what cannot go stays, and nobody is told.
    (void)platform.files.DeleteFolder(Path, true);
}

void PurgeFolder(settings::Program& program, const std::string& Path) {
    std::vector<platform::FolderEntry> entries;
    if (!ok(program.platform.files.ReadFolderToEmpty(Path, entries))) return;
    const std::string prefix = base::withBackslash(Path);
    const auto remove = [&](const platform::FolderEntry& entry) {
        const int method = program.selectedKillMethod();
        if (method < 0) return;
        const std::string path = prefix + entry.name;
        KillFile(program.platform, path, method, false);
        // The recycle bin takes a folder whole. The other two methods do nothing to a folder: the tree goes here, and a
        // link to a folder as the link it is.
        if (method == KillRecycle) return;
        if (entry.kind == platform::EntryKind::Folder) DelAll(program.platform, path);
        if (entry.kind == platform::EntryKind::Link) (void)program.platform.files.RemoveFile(path);
    };
    for (const platform::FolderEntry& entry : entries) {
        if (entry.kind != platform::EntryKind::Folder) remove(entry);
    }
    for (const platform::FolderEntry& entry : entries) {
        if (entry.kind == platform::EntryKind::Folder) remove(entry);
    }
}

}  // namespace tidvane::removal
