#include "platform/machine/machine.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "base/text.h"
#include "platform/machine/folder_lock.h"
#include "platform/machine/whole_file.h"
#include "platform/machine/wine_server.h"

namespace tidvane::platform::machine {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

bool isPlace(int directory, const char* name, mode_t type) {
    struct stat info {};
    return ::fstatat(directory, name, &info, AT_SYMLINK_NOFOLLOW) == 0 && (info.st_mode & S_IFMT) == type;
}

bool hasShape(int directory) {
    return isPlace(directory, "dosdevices", S_IFDIR) && isPlace(directory, "system.reg", S_IFREG) &&
           isPlace(directory, "user.reg", S_IFREG);
}

Handle openDirectory(const std::string& directory) {
    return Handle(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool isOrLiesIn(const std::string& place, const std::string& folder) {
    return place.compare(0, folder.size(), folder) == 0 &&
           (place.size() == folder.size() || place[folder.size()] == '/' || folder == "/");
}

// The real place of a directory on the host; empty if there is none.
std::string realPlace(const std::string& path) {
    char* const place = ::realpath(path.c_str(), nullptr);
    if (place == nullptr) return {};
    std::string text = place;
    std::free(place);
    return text;
}

bool mayWrite(int directory) {
    constexpr int kFlags = AT_EACCESS;
    return ::faccessat(directory, ".", W_OK | X_OK, kFlags) == 0 &&
           ::faccessat(directory, "system.reg", W_OK, kFlags) == 0 &&
           ::faccessat(directory, "user.reg", W_OK, kFlags) == 0;
}

std::string inUse(const std::string& directory) {
    return "The registry of " + quoted(directory) +
           " is in use by a running Wine server; end its programs (wineserver -k), then start again.";
}

}  // namespace

bool Machine::isMachine(const std::string& directory) {
    const Handle handle = openDirectory(directory);
    return handle && hasShape(handle.get());
}

std::unique_ptr<Machine> Machine::open(const std::string& directory, Access access, std::string& error) {
    std::unique_ptr<Machine> machine(new Machine);
    machine->directory_ = realPlace(directory);
    machine->handle_ = openDirectory(machine->directory_.empty() ? directory : machine->directory_);
    if (!machine->handle_) {
        const bool denied = errno == EACCES;
        error =
            quoted(directory) + (denied ? " may not be read; check its rights, or run as its owner."
                                        : " is not a directory; name a Wine prefix or create a machine there first.");
        return nullptr;
    }
    const int handle = machine->handle_.get();
    if (!hasShape(handle)) {
        error =
            quoted(directory) +
            " is not a Windows system: dosdevices, system.reg and user.reg are not there; name a Wine prefix or create "
            "a machine in an empty directory.";
        return nullptr;
    }
    if (access == Access::Write && !machine->takeFor(directory, error)) return nullptr;
    std::string problem;
    if (!machine->registry_.read(handle, problem)) {
        error = "The registry of " + quoted(directory) + " cannot be used: " + problem;
        return nullptr;
    }
    if (!machine->findDrives(problem)) {
        error = quoted(directory) + " is not a Windows system: " + problem;
        return nullptr;
    }
    return machine;
}

// `shown`: the directory as its user knows it.
bool Machine::mayBeTaken(const std::string& shown, std::string& error) const {
    if (!mayWrite(handle_.get())) {
        error = quoted(shown) + " may not be written to; check its rights, or run as its owner.";
        return false;
    }
    if (hasWineServer(directory_)) {
        error = inUse(shown);
        return false;
    }
    return true;
}

bool Machine::takeFor(const std::string& shown, std::string& error) {
    if (!mayBeTaken(shown, error) || !lock(shown, error)) return false;
    removeStaleReplacements(handle_.get());
    access_ = Access::Write;
    return true;
}

std::string Machine::whyNotTaken() const {
    std::string error;
    return mayBeTaken(directory_, error) ? std::string() : error;
}

bool Machine::take(const std::function<void(RegistryTree&&)>& replace, std::string& error) {
    FolderIdentity now;
    FolderIdentity then;
    const Handle there = openDirectory(directory_);
    if (!there || !identify(there.get(), now) || !identify(handle_.get(), then) || !now.sameFolder(then)) {
        error = quoted(directory_) + " was moved or replaced meanwhile; start again.";
        return false;
    }
    if (taken() ? !mayBeTaken(directory_, error) : !takeFor(directory_, error)) return false;
    // What waits to be written is not dropped for what somebody else wrote meanwhile: the writing back refuses then.
    if (registry_.changed()) return true;
    std::string problem;
    if (registryIsCurrent() || registry_.readAnew(handle_.get(), replace, problem)) return true;
    error = "The registry of " + quoted(directory_) + " cannot be used any more: " + problem;
    release();
    return false;
}

void Machine::release() {
    if (!taken()) return;
    unlockFolder(handle_.get());
    lockedFile_.reset();
    access_ = Access::Read;
}

// The folder, or where the volume locks none, system.reg. A commit replaces that file and so gives the lock free a
// moment before the end; whoever opens the machine then reads the new files.
bool Machine::lock(const std::string& directory, std::string& error) {
    LockAnswer answer = lockFolder(handle_.get());
    if (answer == LockAnswer::Unsupported) {
        struct stat info {};
        if (ok(openPlainFile(handle_.get(), "system.reg", O_RDWR, lockedFile_, info))) {
            answer = lockFile(lockedFile_.get());
        }
    }
    if (answer == LockAnswer::Held) {
        error = "The registry of " + quoted(directory) +
                " is in use by another Tidvane; wait until it has finished, then start again.";
    } else if (answer == LockAnswer::Unsupported) {
        error = "The registry of " + quoted(directory) +
                " cannot be locked against other programs, as its volume knows no locks; copy the directory to a "
                "local disk, or mount the volume with locks.";
    }
    return answer == LockAnswer::Taken;
}

DriveType Machine::driveType(char letter) const {
    const std::string name{static_cast<char>(letter | 0x20), ':'};
    const std::string type = registry_.text("Machine\\Software\\Wine\\Drives", name).value_or("");
    if (base::equalNoCase(type, "cdrom")) return DriveType::CdRom;
    if (base::equalNoCase(type, "floppy")) return DriveType::Removable;
    if (base::equalNoCase(type, "network")) return DriveType::Remote;
    return DriveType::Fixed;
}

// A real place below the machine's directory, opened name by name: a link that somebody puts there meanwhile ends it.
Handle Machine::openBelow(const std::string& place, bool& listable) const {
    Handle folder;
    for (std::size_t at = directory_.size() + 1; at < place.size();) {
        const std::size_t end = std::min(place.find('/', at), place.size());
        folder = openFolder(folder ? folder.get() : handle_.get(), place.substr(at, end - at).c_str(), listable);
        if (!folder) return {};
        at = end + 1;
    }
    return folder;
}

Handle Machine::openDrive(const MachineDrive& drive) const {
    bool listable = true;
    Handle folder = openBelow(drive.hostFolder, listable);
    FolderIdentity now;
    if (folder && (!listable || !identify(folder.get(), now) || !now.sameFolder(drive.identity))) folder.reset();
    return folder;
}

// A drive counts if it is a directory below the machine's own. One that points elsewhere (a prefix mostly has "z:" for
// the whole host) is no part of the machine, and neither is the machine's directory itself, which holds the registry.
// Nor does a second letter for a folder of another drive, or for one above it, make a drive: what is protected on the
// one would lie open under the other.
void Machine::findDrive(char letter) {
    const std::string devices = directory_ + "/dosdevices";
    const std::string place = realPlace(devices + "/" + letter + ":");
    if (!isOrLiesIn(place, directory_) || place == directory_ || isOrLiesIn(place, devices)) return;
    MachineDrive drive{static_cast<char>(letter & ~0x20), DriveType::Fixed, place, {}};
    bool listable = true;
    if (const Handle folder = openBelow(place, listable); !folder || !identify(folder.get(), drive.identity)) return;
    for (const MachineDrive& other : drives_) {
        if (isOrLiesIn(place, other.hostFolder) || isOrLiesIn(other.hostFolder, place)) return;
        if (drive.identity.sameFolder(other.identity)) return;  // the same folder, mounted at two places
    }
    drive.type = driveType(drive.letter);
    drives_.push_back(std::move(drive));
}

bool Machine::findDrives(std::string& error) {
    findDrive('c');  // before all others: it is never the second letter
    if (drives_.empty()) {
        error = "its drive C: is missing or lies outside of it; name another one, or mend dosdevices/c:.";
        return false;
    }
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        if (letter != 'c') findDrive(letter);
    }
    std::sort(drives_.begin(), drives_.end(),
              [](const MachineDrive& a, const MachineDrive& b) { return a.letter < b.letter; });
    return true;
}

Status Machine::commit(std::string& error) {
    if (!registry_.changed()) return Status::Ok;
    if (access_ != Access::Write) {
        error = "The machine was opened for reading only.";
        return Status::Denied;
    }
    if (hasWineServer(directory_)) {
        error = inUse(directory_);
        return Status::InUse;
    }
    std::string problem;
    const Status status = registry_.write(handle_.get(), problem);
    if (!ok(status)) error = "The registry of " + quoted(directory_) + " was not written back: " + problem;
    return status;
}

}  // namespace tidvane::platform::machine
