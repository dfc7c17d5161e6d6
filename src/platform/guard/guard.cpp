#include "platform/guard/guard.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "platform/common/windows_path.h"

namespace tidvane::platform {
namespace {

bool isSeparator(char sign) {
    return sign == '\\' || sign == '/';
}

bool isLetter(char sign) {
    return (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z');
}

// Nothing but blanks and dots: Windows drops both at the end of a name, so that the path would mean the folder. "." and
// ".." are resolved by text and have their own meaning.
bool isDroppedName(std::string_view name) {
    return name.find_first_not_of(" .") == std::string_view::npos && name != "." && name != "..";
}

// A colon behind the drive names a stream or another face of the same file; control signs end or split names. No file
// that a listing shows has either.
bool hasForbiddenSign(std::string_view path) {
    const std::size_t from = path.size() >= 2 && path[1] == ':' ? 2 : 0;
    return std::any_of(path.begin() + static_cast<std::ptrdiff_t>(from), path.end(),
                       [](char sign) { return sign == ':' || static_cast<unsigned char>(sign) < 0x20; });
}

// The user's list of files and registry keys hands every entry to both ways of removing. A key that is refused as a
// file is what was meant: the words "nothing was done" would be wrong.
bool isRegistryKey(const std::string& path) {
    return base::startsWithNoCase(path, "HKEY_");
}

}  // namespace

Status Guard::refuseName(const std::string& path, Status status) {
    if (warn_ && !isRegistryKey(path)) {
        const bool relative = status == Status::PathNotFound;
        warn_({WarningKind::NotAbsolute, path,
               relative
                   ? "\"" + path + "\" is not a full path with a drive or a share; nothing was done with it."
                   : "\"" + path + "\" does not name anything behind its last backslash; nothing was done with it."});
    }
    return status;
}

Status Guard::checkSingle(const std::string& path) {
    const bool onDrive = path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && isSeparator(path[2]);
    if (!onDrive) {
        WindowsPath share;
        if (!ok(parseWindowsPath(path, share))) return refuseName(path, Status::PathNotFound);
        if (share.emptyLastPart) return refuseName(path, Status::InvalidName);
    }
    const std::string_view last = std::string_view(path).substr(path.find_last_of("\\/") + 1);
    return isDroppedName(last) || hasForbiddenSign(path) ? refuseName(path, Status::InvalidName) : Status::Ok;
}

Status Guard::checkTree(const std::string& path, bool trailingBackslash) {
    WindowsPath parsed;
    if (!ok(parseWindowsPath(path, parsed))) return refuseName(path, Status::PathNotFound);
    if (hasForbiddenSign(path)) return refuseName(path, Status::InvalidName);
    if (places_.isProtected(parsed)) {
        if (files_.FolderExists(path)) ++counter_.totals.failed;
        if (warn_) {
            warn_({WarningKind::ProtectedPlace, path,
                   "\"" + path + "\" is a place that is never emptied; it was left as it is."});
        }
        return Status::Denied;
    }
    const bool unclear = std::any_of(parsed.names.begin(), parsed.names.end(), isDroppedName);
    if (unclear || (parsed.emptyLastPart && !trailingBackslash)) return refuseName(path, Status::InvalidName);
    return Status::Ok;
}

Status Guard::checkEntry(const std::string& path) {
    WindowsPath parsed;
    unsigned attributes = 0;
    const bool isPlainFile = ok(parseWindowsPath(path, parsed)) && places_.isProtected(parsed) &&
                             ok(files_.GetAttributes(path, attributes)) &&
                             (attributes & (attribute::Directory | attribute::ReparsePoint)) == 0;
    return isPlainFile ? checkSingle(path) : checkTree(path, false);
}

}  // namespace tidvane::platform
