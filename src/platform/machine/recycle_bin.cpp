#include "platform/machine/recycle_bin.h"

#include <random>
#include <utility>

#include "base/text.h"
#include "platform/common/windows_path.h"
#include "platform/machine/file_time_now.h"
#include "platform/machine/machine_path.h"
#include "platform/machine/recycle_record.h"

namespace tidvane::platform::machine {

namespace {

constexpr const char* kBin = "$Recycle.Bin";
constexpr const char* kBinNt = "RECYCLER";
constexpr const char* kBinFat = "RECYCLED";

// Tells the shell of Windows to show the folder as the recycle bin.
constexpr const char* kDesktopIni =
    "[.ShellClassInfo]\r\nCLSID={645FF040-5081-101B-9F08-00AA002F954E}\r\n"
    "LocalizedResourceName=@%SystemRoot%\\system32\\shell32.dll,-8964\r\n";

std::string root(char drive) {
    return std::string{drive, ':', '\\'};
}

bool isBinName(const std::string& name) {
    return base::equalNoCase(name, kBin) || base::equalNoCase(name, kBinNt) || base::equalNoCase(name, kBinFat);
}

// "Dc12.txt", "DC7": a unit of an old bin.
bool isOldUnit(const std::string& name) {
    if (name.size() < 3 || (name[0] | 0x20) != 'd') return false;
    const char letter = static_cast<char>(name[1] | 0x20);
    if (letter < 'a' || letter > 'z') return false;
    std::size_t at = 2;
    while (at < name.size() && name[at] >= '0' && name[at] <= '9') ++at;
    return at > 2 && (at == name.size() || name[at] == '.');
}

bool startsWith(const std::string& name, const char* start) {
    return base::startsWithNoCase(name, start);
}

}  // namespace

std::vector<RecycleBin::Bin> RecycleBin::bins(char drive) const {
    return {{root(drive) + kBin + "\\" + sid_, false},
            {root(drive) + kBinNt + "\\" + sid_, true},
            {root(drive) + kBinFat, true}};
}

std::vector<std::string> RecycleBin::folders(char drive) const {
    std::vector<std::string> there;
    for (const Bin& bin : bins(drive)) {
        if (files_.FolderExists(bin.folder)) there.push_back(bin.folder);
    }
    return there;
}

Status RecycleBin::makeBin(char drive, std::string& folder) {
    const std::string top = root(drive) + kBin;
    folder = top + "\\" + sid_;
    if (files_.FolderExists(folder)) return Status::Ok;
    Status status = files_.MakeFolder(top);
    if (ok(status)) (void)files_.SetAttributes(top, attribute::Hidden | attribute::System);
    if (!ok(status) && status != Status::Exists) return status;
    status = files_.MakeFolder(folder);
    if (!ok(status)) return status;
    (void)files_.SetAttributes(folder, attribute::Hidden | attribute::System);
    const std::string ini = folder + "\\desktop.ini";
    if (ok(files_.WriteFileBytes(ini, kDesktopIni)))
        (void)files_.SetAttributes(ini, attribute::Hidden | attribute::System);
    return Status::Ok;
}

std::string RecycleBin::freeName(const std::string& folder, const std::string& extension) {
    static constexpr char kSigns[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    static std::minstd_rand random{std::random_device{}()};
    for (;;) {
        std::string name;
        for (int i = 0; i < 6; ++i) name += kSigns[random() % (sizeof kSigns - 1)];
        name += extension;
        const std::string unit = std::string(folder).append("\\$R").append(name);
        const std::string record = std::string(folder).append("\\$I").append(name);
        if (!files_.FileExists(unit) && !files_.FolderExists(unit) && !files_.FileExists(record)) {
            return name;
        }
    }
}

Status RecycleBin::take(const std::string& path) {
    MachinePath parsed;
    if (const Status status = parseMachinePath(path, parsed); !ok(status)) return status;
    if (parsed.isRoot()) return Status::Denied;
    EntryDetails entry;
    if (const Status status = files_.LookAt(path, entry); !ok(status)) return status;
    const auto denied = [this](Status status) {
        ++counter_.totals.failed;
        return status;
    };
    bool fixed = false;
    for (const Drive& drive : files_.Drives())
        fixed = fixed || (drive.letter == parsed.drive && drive.type == DriveType::Fixed);
    if (!fixed || entry.name.empty() || isBinName(parsed.names.front())) return denied(Status::Denied);

    // What goes: the unit itself and all in it.
    RemovalTotals gone;
    RecycleRecord record;
    record.path = root(parsed.drive);
    for (std::size_t i = 0; i < parsed.names.size(); ++i) record.path += (i == 0 ? "" : "\\") + parsed.names[i];
    if (entry.kind == EntryKind::Folder) {
        FolderTotals totals;
        const Status status = files_.MeasureFolder(path, totals);
        if (!ok(status) || totals.partial) return denied(ok(status) ? Status::Denied : status);
        gone.files = totals.files;
        gone.folders = totals.folders + 1;
        record.bytes = gone.bytes = totals.bytes;
    } else {
        gone.files = 1;
        record.bytes = entry.length;
        gone.bytes = entry.names == 1 ? entry.length : 0;
    }

    std::string bin;
    if (const Status status = makeBin(parsed.drive, bin); !ok(status)) return denied(status);
    const std::size_t dot = parsed.last().rfind('.');
    std::string extension = dot == std::string::npos ? std::string() : parsed.last().substr(dot);
    // The name has to fit beside "$Rxxxxxx", and to be one that Windows knows.
    if (extension.size() > 200 || !isCreatableName(extension)) extension.clear();
    const std::string name = freeName(bin, extension);
    record.removed = fileTimeNow();
    // The record first: a unit without one would be lost to the user, a record without a unit shows nothing.
    const std::string recordPath = bin + "\\$I" + name;
    if (const Status status = files_.WriteFileBytes(recordPath, encodeRecycleRecord(record, recordVersion_));
        !ok(status)) {
        return denied(status);
    }
    const std::string unit = bin + "\\$R" + name;
    if (const Status status = files_.RenameEntry(path, unit); !ok(status)) {
        dropRecord(recordPath);
        return denied(status);
    }
    if (tell_) tell_(unit, record.path);
    counter_.totals.files += gone.files;
    counter_.totals.folders += gone.folders;
    if (counter_.wantBytes) counter_.totals.bytes += gone.bytes;
    return Status::Ok;
}

// Our own record is nothing that was removed for the user.
void RecycleBin::dropRecord(const std::string& path) {
    const RemovalTotals before = counter_.totals;
    const auto each = std::exchange(counter_.each, nullptr);
    (void)files_.RemoveFile(path);
    counter_.totals = before;
    counter_.each = each;
}

std::vector<RecycleBin::Unit> RecycleBin::units(const Bin& bin, std::vector<std::string>& leftovers) {
    std::vector<FolderEntry> entries;
    std::vector<Unit> found;
    if (!ok(files_.ReadFolder(bin.folder, entries))) return found;
    for (const FolderEntry& entry : entries) {
        const std::string path = bin.folder + "\\" + entry.name;
        if (bin.old) {
            if (isOldUnit(entry.name)) found.push_back({path, entry.kind, {}});
            const bool list = base::equalNoCase(entry.name, "INFO2") || base::equalNoCase(entry.name, "INFO");
            if (list && entry.kind == EntryKind::File) leftovers.push_back(path);
        } else if (startsWith(entry.name, "$R")) {
            found.push_back({path, entry.kind, bin.folder + "\\$I" + entry.name.substr(2)});
        } else if (startsWith(entry.name, "$I") && entry.kind != EntryKind::Folder) {
            leftovers.push_back(path);
        }
    }
    return found;
}

void RecycleBin::count(char drive, RecycleBinInfo& info) {
    for (const Bin& bin : bins(drive)) {
        std::vector<std::string> leftovers;
        for (const Unit& unit : units(bin, leftovers)) {
            ++info.items;
            std::string bytes;
            if (!unit.record.empty() && ok(files_.ReadFileBytes(unit.record, bytes, 4096))) {
                if (const auto record = decodeRecycleRecord(bytes)) {
                    info.bytes += record->bytes;
                    continue;
                }
            }
            FolderTotals totals;
            std::uint64_t length = 0;
            if (unit.kind == EntryKind::Folder && ok(files_.MeasureFolder(unit.path, totals)))
                info.bytes += totals.bytes;
            if (unit.kind == EntryKind::File && ok(files_.GetSize(unit.path, length))) info.bytes += length;
        }
    }
}

Status RecycleBin::removeForGood(const std::string& path, EntryKind kind) {
    if (kind == EntryKind::Folder) return files_.DeleteFolder(path, true);
    unsigned attributes = 0;
    if (kind == EntryKind::File && ok(files_.GetAttributes(path, attributes)) &&
        (attributes & attribute::ReadOnly) != 0) {
        (void)files_.SetAttributes(path, 0);
    }
    return files_.RemoveFile(path);
}

Status RecycleBin::empty(char drive) {
    Status first = Status::Ok;
    const auto note = [&first](Status status) {
        if (!ok(status) && status != Status::NotFound && ok(first)) first = status;
    };
    for (const Bin& bin : bins(drive)) {
        std::vector<std::string> leftovers;
        bool all = true;
        for (const Unit& unit : units(bin, leftovers)) {
            const Status status = removeForGood(unit.path, unit.kind);
            note(status);
            all = all && (ok(status) || status == Status::NotFound);
        }
        // The records go when nothing is left that they tell about.
        for (const std::string& path : leftovers) {
            const std::string unit = bin.old ? std::string() : bin.folder + "\\$R" + path.substr(bin.folder.size() + 3);
            const bool needed = bin.old ? !all : files_.FileExists(unit) || files_.FolderExists(unit);
            if (!needed) note(removeForGood(path, EntryKind::File));
        }
    }
    return first;
}

}  // namespace tidvane::platform::machine
