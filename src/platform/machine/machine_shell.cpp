#include "platform/machine/machine_shell.h"

#include <array>

#include "base/text.h"
#include "base/wildcard.h"
#include "platform/machine/machine_environment.h"
#include "platform/machine/machine_path.h"
#include "platform/machine/machine_system.h"

namespace tidvane::platform::machine {

namespace {

constexpr int kNothingStarted = 2;  // ERROR_FILE_NOT_FOUND, as ShellExecute answers it
constexpr int kInvalidParameter = 87;
constexpr long kRootNotFound = static_cast<int>(0x80070003u);  // HRESULT of "the path was not found"

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const char* kUserShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

enum class Base { User, Machine, Variable };

// Where a special folder is found: the value's name in the two keys, and the places documented by Microsoft ("Default
// folder locations", KNOWNFOLDERID) below the profile, or for the machine below the variable named.
struct Folder {
    int number;
    Base base;
    const char* value;
    const char* since6;  // Windows Vista and later
    const char* before;  // Windows 2000 and XP
};

// clang-format off
constexpr std::array kFolders = {
    Folder{0,  Base::User,     "Desktop",        "Desktop",                                                        "Desktop"},
    Folder{2,  Base::User,     "Programs",       "AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs",     "Start Menu\\Programs"},
    Folder{5,  Base::User,     "Personal",       "Documents",                                                      "My Documents"},
    Folder{6,  Base::User,     "Favorites",      "Favorites",                                                      "Favorites"},
    Folder{7,  Base::User,     "Startup",        "AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup", "Start Menu\\Programs\\Startup"},
    Folder{8,  Base::User,     "Recent",         "AppData\\Roaming\\Microsoft\\Windows\\Recent",                   "Recent"},
    Folder{9,  Base::User,     "SendTo",         "AppData\\Roaming\\Microsoft\\Windows\\SendTo",                   "SendTo"},
    Folder{11, Base::User,     "Start Menu",     "AppData\\Roaming\\Microsoft\\Windows\\Start Menu",               "Start Menu"},
    Folder{16, Base::User,     "Desktop",        "Desktop",                                                        "Desktop"},
    Folder{19, Base::User,     "NetHood",        "AppData\\Roaming\\Microsoft\\Windows\\Network Shortcuts",        "NetHood"},
    Folder{20, Base::Variable, "SystemRoot",     "Fonts",                                                          "Fonts"},
    Folder{21, Base::User,     "Templates",      "AppData\\Roaming\\Microsoft\\Windows\\Templates",                "Templates"},
    Folder{25, Base::Machine,  "Common Desktop", "PUBLIC\\Desktop",                                                "ALLUSERSPROFILE\\Desktop"},
    Folder{26, Base::User,     "AppData",        "AppData\\Roaming",                                               "Application Data"},
    Folder{28, Base::User,     "Local AppData",  "AppData\\Local",                                                 "Local Settings\\Application Data"},
    Folder{32, Base::User,     "Cache",          "AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files",   "Local Settings\\Temporary Internet Files"},
    Folder{33, Base::User,     "Cookies",        "AppData\\Roaming\\Microsoft\\Windows\\Cookies",                  "Cookies"},
    Folder{34, Base::User,     "History",        "AppData\\Local\\Microsoft\\Windows\\History",                    "Local Settings\\History"},
    Folder{35, Base::Machine,  "Common AppData", "ALLUSERSPROFILE\\",                                              "ALLUSERSPROFILE\\Application Data"},
    Folder{36, Base::Variable, "SystemRoot",     "",                                                               ""},
    Folder{37, Base::Variable, "SystemRoot",     "System32",                                                       "system32"},
    Folder{38, Base::Variable, "ProgramFiles",   "",                                                               ""},
    Folder{39, Base::User,     "My Pictures",    "Pictures",                                                       "My Documents\\My Pictures"},
    Folder{40, Base::Variable, "USERPROFILE",    "",                                                               ""},
};
// clang-format on

std::string below(const std::string& folder, const std::string& name) {
    if (folder.empty() || name.empty()) return base::withoutBackslash(folder);
    return base::withBackslash(folder) + name;
}

}  // namespace

MachineShell::MachineShell(const MachineRegistry& registry, Environment& environment, FileSystem& files,
                           RemovalCounter& counter, RecycleBin::Tell tell)
    : registry_(registry),
      environment_(environment),
      files_(files),
      bin_(files, counter, registry.userSid(), trueMajorVersion(registry) >= 10 ? 2 : 1, std::move(tell)),
      vista_(windowsVersion(registry).major >= 6) {}

std::string MachineShell::SpecialFolder(int number) {
    for (const Folder& folder : kFolders) {
        if (folder.number != number) continue;
        const std::string usual = vista_ ? folder.since6 : folder.before;
        if (folder.base == Base::Variable) return below(environment_.get(folder.value).value_or(""), usual);
        for (const char* key : {kUserShellFolders, kShellFolders}) {
            const std::string path =
                folder.base == Base::User ? userKey(registry_, key) : std::string("Machine\\") + key;
            const std::string found = expandedValue(registry_, environment_, path, folder.value);
            if (base::isAbsolutePath(found)) return base::withoutBackslash(found);
        }
        if (folder.base == Base::User) return below(environment_.get("USERPROFILE").value_or(""), usual);
        const std::size_t cut = usual.find('\\');
        return below(environment_.get(usual.substr(0, cut)).value_or(""), usual.substr(cut + 1));
    }
    return {};
}

// The order in which Windows looks.
std::string MachineShell::TemporaryFolder() {
    for (const char* name : {"TMP", "TEMP", "USERPROFILE", "SystemRoot"}) {
        const std::string folder = environment_.get(name).value_or("");
        if (base::isAbsolutePath(folder)) return base::withoutBackslash(folder);
    }
    return {};
}

Status MachineShell::removeOne(const std::string& path, bool undo) {
    if (undo) return bin_.take(path);
    unsigned attributes = 0;
    if (const Status status = files_.GetAttributes(path, attributes); !ok(status)) return status;
    const bool isLink = (attributes & attribute::ReparsePoint) != 0;
    if ((attributes & attribute::Directory) != 0 && !isLink) return files_.DeleteFolder(path, true);
    if ((attributes & attribute::ReadOnly) != 0) (void)files_.SetAttributes(path, 0);
    return files_.RemoveFile(path);
}

int MachineShell::SHFileOperationA(const ShFileOp& operation) {
    if (operation.wFunc != kFoDelete) return kInvalidParameter;
    std::string from;
    if (!onePathOf(operation, from)) return static_cast<int>(Status::InvalidName);
    MachinePath path;
    if (!ok(parseMachinePath(from, path)) || path.emptyLastPart) return static_cast<int>(Status::InvalidName);
    const bool undo = (operation.fFlags & kFofAllowUndo) != 0;
    if (!path.wildcard) return static_cast<int>(removeOne(from, undo));

    const std::string folder = from.substr(0, from.find_last_of("\\/") + 1);
    std::vector<FolderEntry> entries;
    if (const Status status = files_.ReadFolder(folder, entries); !ok(status)) {
        return static_cast<int>(status == Status::NotFound ? Status::PathNotFound : status);
    }
    bool any = false;
    Status first = Status::Ok;
    for (const FolderEntry& entry : entries) {
        if (entry.kind == EntryKind::Folder || !base::wildcardMatch(path.last(), entry.name)) continue;
        const std::string one = folder + entry.name;
        unsigned attributes = 0;
        if (entry.kind == EntryKind::Link &&
            (!ok(files_.GetAttributes(one, attributes)) || (attributes & attribute::Directory) != 0)) {
            continue;
        }
        any = true;
        const Status status = removeOne(one, undo);
        if (!ok(status) && ok(first)) first = status;
    }
    return static_cast<int>(any ? first : Status::NotFound);
}

bool MachineShell::drivesOf(const std::string& root, std::string& letters) {
    letters.clear();
    MachinePath path;
    if (!root.empty() && !ok(parseMachinePath(root.size() == 2 ? root + "\\" : root, path))) return false;
    bool known = root.empty();
    for (const Drive& drive : files_.Drives()) {
        if (!root.empty() && drive.letter != path.drive) continue;
        known = true;
        if (drive.type == DriveType::Fixed) letters += drive.letter;
    }
    return known;
}

long MachineShell::SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) {
    std::string letters;
    if (!drivesOf(root, letters)) return kRootNotFound;
    info = {};
    for (const char letter : letters) bin_.count(letter, info);
    return 0;
}

long MachineShell::SHEmptyRecycleBinA(std::uint64_t /*hwnd*/, const std::string& root, unsigned flags) {
    std::string letters;
    if (!drivesOf(root, letters)) return kRootNotFound;
    if ((flags & kSherbNoConfirmation) == 0) return kErrorCancelled;  // nobody is there to be asked
    Status first = Status::Ok;
    for (const char letter : letters) {
        const Status status = bin_.empty(letter);
        if (!ok(status) && ok(first)) first = status;
    }
    return static_cast<long>(first);
}

std::vector<std::string> MachineShell::RecycleBinFolders() {
    std::vector<std::string> all;
    std::string letters;
    (void)drivesOf({}, letters);
    for (const char letter : letters) {
        for (const std::string& folder : bin_.folders(letter)) all.push_back(folder);
    }
    return all;
}

int MachineShell::ShellExecuteA(const std::string& /*verb*/, const std::string& /*file*/,
                                const std::string& /*parameters*/, const std::string& /*directory*/, int /*show*/) {
    return kNothingStarted;
}

bool MachineShell::ShellExecuteExAndWait(const std::string& /*verb*/, const std::string& /*file*/,
                                         const std::string& /*parameters*/, const std::string& /*directory*/,
                                         int /*show*/) {
    return false;
}

}  // namespace tidvane::platform::machine
