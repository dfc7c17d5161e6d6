#include "platform/machine/entry_details.h"

#include <sys/sysmacros.h>

#include <utility>

#include "platform/machine/tree_removal.h"

namespace tidvane::platform::machine {

EntryKind kindOfMode(unsigned mode) {
    if (S_ISDIR(mode)) return EntryKind::Folder;
    if (S_ISLNK(mode)) return EntryKind::Link;
    return S_ISREG(mode) ? EntryKind::File : EntryKind::Other;
}

EntryDetails detailsOf(std::string name, const struct stat& info) {
    EntryDetails details;
    details.name = std::move(name);
    details.kind = kindOfMode(info.st_mode);
    details.readOnly = !S_ISLNK(info.st_mode) && isReadOnlyMode(info.st_mode);
    if (S_ISREG(info.st_mode)) details.length = static_cast<std::uint64_t>(info.st_size);
    if (!S_ISDIR(info.st_mode)) details.names = info.st_nlink;
    details.volume = info.st_dev;
    details.content = info.st_ino;
    return details;
}

struct stat plainState(const struct statx& state) {
    struct stat same {};
    same.st_mode = state.stx_mode;
    same.st_size = static_cast<off_t>(state.stx_size);
    same.st_nlink = state.stx_nlink;
    same.st_uid = state.stx_uid;
    same.st_gid = state.stx_gid;
    same.st_dev = makedev(state.stx_dev_major, state.stx_dev_minor);
    same.st_ino = state.stx_ino;
    return same;
}

EntryDetails detailsOf(std::string name, const struct statx& info) {
    return detailsOf(std::move(name), plainState(info));
}

}  // namespace tidvane::platform::machine
