// The recycle bins on the volumes of a machine, in the form in which Windows keeps them.
//
// What is removed goes to "$Recycle.Bin\<SID>" of its own drive. Older bins are counted and emptied too:
// "RECYCLER\<SID>" (Windows 2000 and XP on NTFS) and "RECYCLED" (on FAT), whose units are named "D<drive
// letter><number>.<ext>" and listed in "INFO2". Only the bins of the user whose registry is open are looked at, as
// Windows does.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/removal_counter.h"
#include "platform/shell.h"

namespace tidvane::platform::machine {

class RecycleBin {
public:
    // Called when something was taken that lay at another path. May be empty.
    using Tell = std::function<void(const std::string& unit, const std::string& from)>;

    // `recordVersion`: of the records it writes, 1 or 2.
    RecycleBin(FileSystem& files, RemovalCounter& counter, std::string sid, int recordVersion, Tell tell = {})
        : files_(files),
          counter_(counter),
          sid_(std::move(sid)),
          recordVersion_(recordVersion),
          tell_(std::move(tell)) {}

    // Moves a file, a link or a whole folder into the bin of its drive. Nothing is ever copied: where the move cannot
    // be made, the target stays. Denied: no fixed drive, part of a bin already, or something in it that is no part
    // of the machine (a mount, the program's folder). A read-only target can be moved.
    Status take(const std::string& path);

    // The folders of the bins of one fixed drive that are there.
    [[nodiscard]] std::vector<std::string> folders(char drive) const;
    // Units and lengths in the bins of one fixed drive.
    void count(char drive, RecycleBinInfo& info);
    // Removes the units and their records; "desktop.ini" and the folders of the bin stay. The first failure, or Ok.
    Status empty(char drive);

private:
    struct Bin {
        std::string folder;
        bool old = false;  // RECYCLER or RECYCLED
    };
    struct Unit {
        std::string path;
        EntryKind kind;
        std::string record;  // empty in an old bin
    };

    [[nodiscard]] std::vector<Bin> bins(char drive) const;
    std::vector<Unit> units(const Bin& bin, std::vector<std::string>& leftovers);
    Status makeBin(char drive, std::string& folder);
    Status removeForGood(const std::string& path, EntryKind kind);
    void dropRecord(const std::string& path);
    std::string freeName(const std::string& folder, const std::string& extension);

    FileSystem& files_;
    RemovalCounter& counter_;
    std::string sid_;
    int recordVersion_;
    Tell tell_;
};

}  // namespace tidvane::platform::machine
