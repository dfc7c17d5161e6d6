#include "platform/common/directory_lookup.h"

#include <algorithm>

#include "base/text.h"
#include "base/wildcard.h"
#include "platform/common/windows_path.h"

namespace tidvane::platform {
namespace {

bool takesAttributes(unsigned present, unsigned wanted) {
    constexpr unsigned kOnlyWhenAsked = attribute::Hidden | attribute::System | attribute::Directory;
    return (present & kOnlyWhenAsked & ~wanted) == 0;
}

// Calls found(name) for each match; found answers false to end the look-up.
template <class Found>
void lookUp(FileSystem& files, const std::string& folderAndMask, unsigned attributes, Found found) {
    WindowsPath path;
    if (!ok(parseWindowsPath(folderAndMask, path))) return;
    const std::size_t cut = folderAndMask.find_last_of("\\/");
    const std::string mask = folderAndMask.substr(cut + 1);
    if (mask.empty()) return;
    if (!base::hasWildcard(mask)) {
        unsigned present = 0;
        if (ok(files.GetAttributes(folderAndMask, present)) && takesAttributes(present, attributes)) (void)found(mask);
        return;
    }
    const std::string folder = folderAndMask.substr(0, cut + 1);
    std::vector<FolderEntry> entries;
    if (!ok(files.ReadFolder(folder, entries))) return;
    for (const FolderEntry& entry : entries) {
        if (!base::wildcardMatch(mask, entry.name) || !lookUpTakes(files, folder, entry, attributes)) continue;
        if (!found(entry.name)) return;
    }
}

}  // namespace

bool lookUpTakes(FileSystem& files, const std::string& folder, const FolderEntry& entry, unsigned attributes) {
    if (entry.kind == EntryKind::Folder && (attributes & attribute::Directory) == 0) return false;
    // Asked for every kind: the attributes, one system call each, decide nothing any more.
    constexpr unsigned kEverything = attribute::Hidden | attribute::System | attribute::Directory;
    if ((attributes & kEverything) == kEverything) return true;
    unsigned present = 0;
    if (!ok(files.GetAttributes(base::withBackslash(folder) + entry.name, present))) return false;
    return takesAttributes(present, attributes);
}

std::vector<std::string> findMatches(FileSystem& files, const std::string& folderAndMask, unsigned attributes) {
    std::vector<std::string> names;
    lookUp(files, folderAndMask, attributes, [&names](const std::string& name) {
        names.push_back(name);
        return true;
    });
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const int order = base::compareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

bool anyMatch(FileSystem& files, const std::string& folderAndMask, unsigned attributes) {
    bool any = false;
    lookUp(files, folderAndMask, attributes, [&any](const std::string&) {
        any = true;
        return false;
    });
    return any;
}

}  // namespace tidvane::platform
