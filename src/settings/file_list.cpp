#include "settings/file_list.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/wildcard.h"
#include "settings/modFormINI.h"

namespace tidvane::settings {

void refreshFileList(Program& program, forms::FileList& list) {
    list.List.clear();
    std::vector<platform::FolderEntry> entries;
    (void)program.platform.files.ReadFolder(list.Path, entries);  // on failure there are no entries
    const std::string folder = base::withBackslash(list.Path);
    const base::Wildcard pattern(list.Pattern);
    for (platform::FolderEntry& entry : entries) {
        if (entry.kind == platform::EntryKind::Folder || !pattern.matches(entry.name)) continue;
        if (plainFileExists(program, folder + entry.name)) list.List.push_back(std::move(entry.name));
    }
    std::sort(list.List.begin(), list.List.end(), [](const std::string& a, const std::string& b) {
        const int order = base::compareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    list.viewChanged();
}

}  // namespace tidvane::settings
