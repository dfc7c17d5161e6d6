#include "frontend/sample/sample_machine.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <system_error>
#include <vector>

#include "base/text.h"
#include "frontend/sample/sample_program.h"
#include "frontend/sample/sample_traces.h"
#include "platform/common/url_cache_builder.h"
#include "platform/common/utf16.h"
#include "platform/machine/machine.h"
#include "platform/machine/machine_files.h"
#include "platform/machine/recycle_record.h"
#include "platform/machine/whole_file.h"

namespace tidvane::frontend {

namespace fs = std::filesystem;
namespace machine = platform::machine;

namespace {

constexpr std::uint64_t kFileTimeOf1970 = 116'444'736'000'000'000;
constexpr std::uint64_t kStepsOfASecond = 10'000'000;
constexpr std::int64_t kSecondsOfADay = 86'400;

void appendNumber(std::string& out, std::uint64_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((number >> (8 * i)) & 0xFF));
}

std::string padded(std::string text, std::size_t size) {
    text.resize(size, '\0');
    return text;
}

// INFO2, the list of an old bin: a header of 20 bytes, then a record for each unit.
//   header   4 bytes version 5, 4 + 4 bytes counts (unused by XP), 4 bytes size of a record, 4 bytes total
//   record   260 bytes path in the code page, 4 bytes number, 4 bytes drive (0 is A:), 8 bytes FILETIME, 4 bytes size;
//            on NT 520 bytes path in UTF-16 behind that, so 800 bytes; 280 on FAT
struct OldBinList {
    std::string records;
    std::uint32_t units = 0;
    bool wide = false;

    void add(const std::string& path, std::uint64_t removed, std::uint32_t bytes) {
        constexpr std::size_t kPath = 260;
        constexpr std::uint32_t kDriveC = 2;
        records += padded(path, kPath);
        appendNumber(records, ++units, 4);
        appendNumber(records, kDriveC, 4);
        appendNumber(records, removed, 8);
        appendNumber(records, bytes, 4);
        if (wide) records += padded(platform::utf16leFromUtf8(path), 2 * kPath);
    }
    [[nodiscard]] std::string bytes() const {
        constexpr std::uint32_t kVersion = 5;
        std::string header;
        appendNumber(header, kVersion, 4);
        appendNumber(header, 0, 4);
        appendNumber(header, 0, 4);
        appendNumber(header, wide ? 800 : 280, 4);
        appendNumber(header, 0, 4);
        return header + records;
    }
};

// What becomes one index of the browser's cache.
struct Store {
    std::vector<std::string> folders;
    std::vector<platform::UrlCacheItem> items;

    // Without its times. The folder of the file joins the others.
    platform::UrlCacheItem add(const SampleUrl& from) {
        namespace type = platform::url_cache_type;
        platform::UrlCacheItem item;
        item.url = from.url;
        item.size = from.bytes;
        if (base::startsWithNoCase(item.url, "Cookie:")) item.type |= type::Cookie;
        if (base::startsWithNoCase(item.url, "Visited:") || item.url.front() == ':') item.type |= type::History;
        const std::string file = from.file;
        const std::size_t slash = file.find('/');
        item.file = slash == std::string::npos ? file : file.substr(slash + 1);
        if (slash == std::string::npos) return item;
        const auto found = std::find(folders.begin(), folders.end(), file.substr(0, slash));
        item.folder = static_cast<std::size_t>(found - folders.begin());
        if (found == folders.end()) folders.push_back(file.substr(0, slash));
        return item;
    }
};

class Sample {
public:
    Sample(fs::path directory, machine::Machine& opened)
        : directory_(std::move(directory)),
          machine_(opened),
          now_(std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
                   .count()) {}

    bool fill(std::string& problem) {
        for (const SampleFile& file : sampleFiles()) put(file.path, file.bytes, file.ageDays);
        for (const SampleText& file : sampleTexts()) put(file.path, std::string(file.text), file.ageDays);
        for (const SampleFolder& folder : sampleFolders()) make(place(folder.path));
        for (const SampleLink& link : sampleLinks()) {
            make(place(link.path).parent_path());
            if (!failure_) fs::create_symlink(link.target, place(link.path), failure_);
        }
        fillBins();
        fillStores();
        if (!failure_) setAttributes();
        setValues();
        if (failure_) problem = failure_.message();
        return !failure_ && ok(machine_.commit(problem));
    }

private:
    std::string filled(const char* text) const {
        std::string result = base::replaceAll(text, "<user>", kSampleUser);
        return base::replaceAll(result, "<sid>", machine_.registry().userSid());
    }
    fs::path place(const std::string& path) const { return directory_ / filled(path.c_str()); }

    static std::string content(std::size_t bytes) {
        constexpr std::string_view kLine = "A sample of Tidvane: nothing in here is of any worth.\r\n";
        std::string text;
        text.reserve(bytes + kLine.size());
        while (text.size() < bytes) text += kLine;
        text.resize(bytes);
        return text;
    }

    void make(const fs::path& folder) {
        if (!failure_) fs::create_directories(folder, failure_);
    }

    // Beyond a mebibyte the rest is room without content: it has to be gained, not to be read.
    void put(const std::string& path, std::size_t bytes, int ageDays) {
        constexpr std::size_t kMebibyte = 1'048'576;
        put(path, content(std::min(bytes, kMebibyte)), ageDays, bytes);
    }

    void put(const std::string& path, const std::string& bytes, int ageDays, std::size_t length = 0) {
        if (failure_) return;
        const fs::path target = place(path);
        make(target.parent_path());
        const machine::Handle file(::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
        int problem = file ? machine::writeAll(file.get(), bytes) : errno;
        if (problem == 0 && length > bytes.size()) {
            problem = ::posix_fallocate(file.get(), 0, static_cast<off_t>(length));
        }
        if (problem != 0) failure_ = std::error_code(problem, std::generic_category());
        const struct timespec moment { now_ - ageDays *kSecondsOfADay, 0 };
        const struct timespec both[] = {moment, moment};
        ::utimensat(AT_FDCWD, target.c_str(), both, 0);
    }

    std::uint64_t fileTime(int ageDays) const {
        return kFileTimeOf1970 + static_cast<std::uint64_t>(now_ - ageDays * kSecondsOfADay) * kStepsOfASecond;
    }

    void fillBins() {
        std::map<std::string, OldBinList> lists;
        for (const SampleUnit& unit : sampleUnits()) {
            const std::string place = std::string(unit.folder).append("/").append(unit.name);
            put(place, unit.bytes, unit.ageDays);
            const std::string former = filled(unit.formerPath);
            if (unit.record == 0) {
                OldBinList& list = lists[unit.folder];
                list.wide = place.find("<sid>") != std::string::npos;
                list.add(former, fileTime(unit.ageDays), unit.bytes);
                continue;
            }
            std::string record = place;
            record[place.rfind('/') + 2] = 'I';  // "$R..." becomes "$I..."
            put(record, machine::encodeRecycleRecord({unit.bytes, fileTime(unit.ageDays), former}, unit.record),
                unit.ageDays);
        }
        for (const auto& [folder, list] : lists) put(folder + "/INFO2", list.bytes(), 1);
    }

    // The indexes of the browser's cache, and the files that they know.
    void fillStores() {
        std::map<std::string, Store> stores;
        for (const SampleUrl& url : sampleUrls()) {
            platform::UrlCacheItem item = stores[url.store].add(url);
            item.lastAccess = fileTime(url.ageDays);
            item.lastModified = item.lastAccess;
            item.fileWritten = item.lastAccess;
            stores[url.store].items.push_back(std::move(item));
            if (*url.file != '\0') put(std::string(url.store).append("/").append(url.file), url.bytes, url.ageDays);
        }
        for (const auto& [folder, store] : stores) {
            put(folder + "/index.dat", platform::makeUrlCacheIndex(store.folders, store.items), 0);
        }
    }

    // Through the machine's own files, which know where a host keeps the bits of Windows. A host that cannot keep them
    // leaves an ordinary file.
    void setAttributes() {
        platform::RemovalCounter counter;
        machine::MachineFiles files(counter);
        for (const machine::MachineDrive& drive : machine_.drives()) {
            if (!files.addDrive(drive.letter, drive.type, drive.hostFolder)) return;
        }
        constexpr std::string_view kDriveC = "drive_c/";
        for (const SampleFile& file : sampleFiles()) {
            const std::string path = filled(file.path);
            if (file.attributes == 0 || path.compare(0, kDriveC.size(), kDriveC) != 0) continue;
            (void)files.SetAttributes("C:\\" + base::replaceAll(path.substr(kDriveC.size()), "/", "\\"),
                                      file.attributes);
        }
    }

    void setValues() {
        platform::RegistryTree& tree = machine_.registry().tree();
        const std::string user = "User\\" + tree.userSid() + "\\";
        for (const SampleValue& value : sampleValues()) {
            const std::string root = value.hive == SampleHive::User ? user : "Machine\\";
            tree.make(root + value.key)->setText(value.name, filled(value.text));
        }
    }

    fs::path directory_;
    machine::Machine& machine_;
    std::int64_t now_;
    std::error_code failure_;
};

}  // namespace

bool createSampleMachine(const std::string& directory, std::string& error) {
    machine::NewMachine description;
    description.user = kSampleUser;
    description.computer = "SAMPLE";
    if (!machine::Machine::create(directory, error, description)) return false;
    const auto opened = machine::Machine::open(directory, machine::Machine::Access::Write, error);
    if (opened == nullptr) return false;
    std::string problem;
    if (Sample(directory, *opened).fill(problem)) return true;
    error = "The sample machine in \"" + directory + "\" could not be filled: " + problem +
            ". Remove the directory, and try again where there is room.";
    return false;
}

bool createSample(const std::string& directory, const std::string& program, std::string& error) {
    // Asked first, so that there is no machine either when it is said what stands in the way.
    if (!program.empty() && !isNewProgramFolder(program, error)) return false;
    return createSampleMachine(directory, error) && (program.empty() || createSampleProgram(program, error));
}

}  // namespace tidvane::frontend
