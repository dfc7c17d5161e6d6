#include "platform/common/browser_cache_on_files.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "base/text.h"
#include "platform/common/url_cache_format.h"

namespace tidvane::platform {

namespace {

constexpr const char* kIndex = "index.dat";
constexpr const char* kExplorer = "Software\\Microsoft\\Internet Explorer\\";
constexpr const char* kCaches = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\5.0\\";

// The bits of ClearMyTracksByProcess.
constexpr unsigned kHistory = 1;
constexpr unsigned kCookies = 2;
constexpr unsigned kPages = 8;
constexpr unsigned kForms = 16;
constexpr unsigned kPasswords = 32;
constexpr unsigned kRecovery = 128;

std::string below(const std::string& folder, std::string_view name) {
    if (name.empty()) return base::withoutBackslash(folder);
    return base::withBackslash(folder).append(name);
}

bool areDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "MSHist", a version and two dates: the visits of a day or a week.
bool isDay(std::string_view name) {
    constexpr std::string_view kStart = "MSHist";
    return base::startsWithNoCase(name, kStart) && areDigits(name.substr(kStart.size()));
}

bool endsIn(std::string_view name, std::string_view end) {
    return name.size() >= end.size() && base::equalNoCase(name.substr(name.size() - end.size()), end);
}

bool hasNameOfEight(std::string_view name) {
    return name.size() == url_cache::kFolderNameSize && isCacheFolderName(name);
}

// "anna@site[1].txt", since Windows 7 also "0A1B2C3D.txt", since 10 "0A1B2C3D.cookie".
bool isCookie(std::string_view name) {
    constexpr std::string_view kText = ".txt";
    if (endsIn(name, ".cookie")) return true;
    if (!endsIn(name, kText)) return false;
    const std::string_view stem = name.substr(0, name.size() - kText.size());
    return stem.find('@') != std::string_view::npos || hasNameOfEight(stem);
}

std::size_t hashOf(const std::string& address) {
    return std::hash<std::string>()(address);
}

bool isKeptTab(std::string_view name) {
    return endsIn(name, ".dat");
}

}  // namespace

struct BrowserCacheOnFiles::Place {
    Kind kind;
    int specialFolder;
    const char* name;  // below the special folder
    // Whether the folder is the cache's alone. The others hold an index here and there, besides much else.
    bool whole;
};

// clang-format off
const BrowserCacheOnFiles::Place BrowserCacheOnFiles::kPlaces[] = {
    {Kind::Pages,   csidl::InternetCache, "Content.IE5",      true},
    {Kind::Pages,   csidl::InternetCache, "Low\\Content.IE5", true},   // protected mode, since version 7
    {Kind::Pages,   csidl::InternetCache, "",                 false},
    {Kind::Cookies, csidl::Cookies,       "",                 true},
    {Kind::Cookies, csidl::Cookies,       "Low",              true},
    {Kind::History, csidl::History,       "History.IE5",      true},
    {Kind::History, csidl::History,       "Low\\History.IE5", true},
    {Kind::History, csidl::History,       "",                 false},
};
// clang-format on

// --- looking -------------------------------------------------------------------------------------------------------

std::vector<BrowserCacheOnFiles::Container> BrowserCacheOnFiles::containers() const {
    std::vector<Container> list;
    // A machine may show two of its special folders in one place: the first kind has it.
    std::set<std::string, base::NoCaseLess> known;
    const auto add = [&](const std::string& special, const std::string& folder, Kind kind, bool whole) {
        if (known.insert(folder).second && files_.FolderExists(folder)) list.push_back({special, folder, kind, whole});
    };
    for (const Place& place : kPlaces) {
        const std::string special = shell_.SpecialFolder(place.specialFolder);
        if (!base::isAbsolutePath(special)) continue;
        const std::string folder = below(special, place.name);
        add(special, folder, place.kind, place.whole);
        if (place.kind != Kind::History) continue;
        for (const std::string& day : foldersOfDays(folder)) add(special, day, place.kind, true);
    }
    return list;
}

// Of a special folder that may not be emptied nothing below may be touched either: a machine that names the Windows
// folder its cache would lose files whose names stand in an index that anyone can put there. False: there was one.
bool BrowserCacheOnFiles::dropRefused(std::vector<Container>& list) {
    std::map<std::string, bool> refused;
    std::vector<FolderEntry> found;
    std::erase_if(list, [&](const Container& container) {
        const auto [known, isNew] = refused.emplace(container.special, false);
        if (isNew) known->second = !listToEmpty(container.special, found);
        return known->second;
    });
    return std::none_of(refused.begin(), refused.end(), [](const auto& answer) { return answer.second; });
}

std::vector<std::string> BrowserCacheOnFiles::foldersOfDays(const std::string& folder) const {
    std::vector<FolderEntry> found;
    (void)files_.ReadFolder(folder, found);  // empty on failure
    std::vector<std::string> days;
    for (const FolderEntry& entry : found) {
        if (entry.kind == EntryKind::Folder && isDay(entry.name)) days.push_back(below(folder, entry.name));
    }
    std::sort(days.begin(), days.end());
    return days;
}

std::string BrowserCacheOnFiles::indexFile(const Container& container) {
    return below(container.folder, kIndex);
}

void BrowserCacheOnFiles::read(Container& container) const {
    container.index.reset();
    std::string bytes;
    // One byte more than an index can have: a longer file is none.
    if (!ok(files_.ReadFileBytes(indexFile(container), bytes, url_cache::kLargestFile + 1))) return;
    container.index = UrlCacheIndex::read(std::move(bytes));
}

std::string BrowserCacheOnFiles::cachedFile(const Container& container, const UrlCacheIndex::Record& record) const {
    if (record.file.empty()) return {};
    return below(below(container.folder, record.folder), page_.toUtf8(record.file));
}

std::vector<UrlCacheEntry> BrowserCacheOnFiles::entries() {
    std::vector<UrlCacheEntry> list;
    std::vector<Container> own;
    if (deleting_ == 0) {
        own = containers();
        (void)dropRefused(own);
    }
    for (const Container& container : deleting_ == 0 ? own : held_) {
        if (container.index) {
            addEntries(container, list, {});
            continue;
        }
        Container passing{container.special, container.folder, container.kind, container.whole};
        read(passing);
        addEntries(passing, list, atEnd_);
    }
    return list;
}

void BrowserCacheOnFiles::addEntries(const Container& container, std::vector<UrlCacheEntry>& list,
                                     const std::unordered_set<std::string>& without) const {
    if (!container.index) return;
    const std::vector<UrlCacheIndex::Record>& records = container.index->records();
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (container.index->isRemoved(i) || without.count(records[i].url) > 0) continue;
        list.push_back(
            {page_.toUtf8(records[i].url), cachedFile(container, records[i]), records[i].type, records[i].lastAccess});
    }
}

// --- one entry -----------------------------------------------------------------------------------------------------

// Of an index without room in memory only hashes of its addresses stay there. Had it to come and go while the batch
// lasts, addresses that stand in many indexes would have all of them read and written once for each.
void BrowserCacheOnFiles::beginDeletes() {
    if (deleting_++ > 0) return;
    held_ = containers();
    (void)dropRefused(held_);
    std::size_t held = 0;
    for (Container& container : held_) {
        read(container);
        if (!container.index) continue;
        const std::size_t size = container.index->bytes().size();
        if (size <= bound_ - held) {
            held += size;
            continue;
        }
        for (const UrlCacheIndex::Record& record : container.index->records()) {
            container.addresses.push_back(hashOf(record.url));
        }
        std::sort(container.addresses.begin(), container.addresses.end());
        container.index.reset();
    }
}

bool BrowserCacheOnFiles::finishDeletes() {
    if (deleting_ == 0 || --deleting_ > 0) return true;
    bool all = true;
    for (Container& container : held_) all = writeAndFree(container) && all;
    for (Container& container : held_) {
        if (!container.goesOnAtEnd) continue;
        read(container);
        all = deleteAtEnd(container) && all;
        all = writeAndFree(container) && all;
    }
    held_.clear();
    stayed_.clear();
    atEnd_.clear();
    return all;
}

bool BrowserCacheOnFiles::writeAndFree(Container& container) {
    if (!container.index) return true;
    const bool written =
        !container.changed || ok(files_.WriteFileBytes(indexFile(container), container.index->bytes()));
    container.index.reset();
    return written;
}

bool BrowserCacheOnFiles::DeleteUrlCacheEntry(const std::string& url) {
    const std::string bytes = page_.fromUtf8(url);
    beginDeletes();
    bool any = false;
    bool all = true;
    // A list may show an address many times over; all of its records are tried with the first.
    if (stayed_.count(bytes) == 0) {
        for (Container& container : held_) {
            if (!container.index) continue;
            const std::vector<std::size_t> records = container.index->find(bytes);
            any = any || !records.empty();
            all = deleteRecords(container, records) && all;
        }
        if (!all) stayed_.insert(bytes);
        any = leaveForEnd(bytes) || any;
    }
    const bool finished = finishDeletes();
    return any && all && finished;
}

// False: no index that is not in memory has the address, or it was left before.
bool BrowserCacheOnFiles::leaveForEnd(const std::string& address) {
    bool any = false;
    const std::size_t hash = hashOf(address);
    for (Container& container : held_) {
        if (!std::binary_search(container.addresses.begin(), container.addresses.end(), hash)) continue;
        container.goesOnAtEnd = true;
        any = true;
    }
    return any && atEnd_.insert(address).second;
}

bool BrowserCacheOnFiles::deleteAtEnd(Container& container) {
    if (!container.index) return false;  // it could be read before, and its deletes were told done
    const std::vector<UrlCacheIndex::Record>& all = container.index->records();
    std::vector<std::size_t> records;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (atEnd_.count(all[i].url) > 0) records.push_back(i);
    }
    return deleteRecords(container, records);
}

bool BrowserCacheOnFiles::deleteRecords(Container& container, const std::vector<std::size_t>& records) {
    bool all = true;
    for (const std::size_t record : records) {
        const std::string file = cachedFile(container, container.index->records()[record]);
        if (!file.empty() && !removeFile(file)) {
            all = false;
            continue;
        }
        container.index->remove(record);
        container.changed = true;
    }
    return all;
}

// True when there is no such file, as for a folder of that name.
bool BrowserCacheOnFiles::removeFile(const std::string& file) {
    unsigned attributes = 0;
    const Status there = files_.GetAttributes(file, attributes);
    if (there == Status::NotFound || there == Status::PathNotFound) return true;
    const bool isLink = (attributes & attribute::ReparsePoint) != 0;
    if (ok(there) && (attributes & attribute::Directory) != 0 && !isLink) return true;
    if ((attributes & attribute::ReadOnly) != 0 && !isLink) {
        (void)files_.SetAttributes(file, attributes & ~attribute::ReadOnly);
    }
    const Status removed = files_.RemoveFile(file);
    return ok(removed) || removed == Status::NotFound;
}

// --- all of a kind -------------------------------------------------------------------------------------------------

bool BrowserCacheOnFiles::ClearHistory() {
    if (shell_.SpecialFolder(csidl::History).empty()) return false;
    const bool cleared = clear(Kind::History);
    return removeKeysOfDays() && cleared;
}

bool BrowserCacheOnFiles::ClearMyTracksByProcess(int number) {
    const auto bits = static_cast<unsigned>(number);
    bool all = true;
    if ((bits & kHistory) != 0) {
        all = ClearHistory() && all;
        all = clearTypedAddresses() && all;
    }
    if ((bits & kCookies) != 0) all = clear(Kind::Cookies) && all;
    if ((bits & kPages) != 0) all = clear(Kind::Pages) && all;
    const std::string forms = std::string(kExplorer) + "IntelliForms\\";
    if ((bits & kForms) != 0) all = removeKey(forms + "Storage1") && all;
    if ((bits & kPasswords) != 0) {
        all = removeKey(forms + "Storage2") && all;
        all = removeKey(forms + "SPW") && all;
    }
    if ((bits & kRecovery) != 0) all = clearRecovery() && all;
    return all;
}

bool BrowserCacheOnFiles::clear(Kind kind) {
    std::vector<Container> list = containers();
    std::erase_if(list, [kind](const Container& container) { return container.kind != kind; });
    bool all = dropRefused(list);
    for (Container& container : list) {
        read(container);
        all = clearContainer(container) && all;
        container.index.reset();
    }
    return all;
}

bool BrowserCacheOnFiles::clearContainer(Container& container) {
    bool all = true;
    if (container.whole && container.kind == Kind::Pages) all = removeFoldersOf(container);
    if (container.index) {
        for (const UrlCacheIndex::Record& record : container.index->records()) {
            const std::string file = cachedFile(container, record);
            if (!file.empty()) all = removeFile(file) && all;
        }
    }
    if (container.whole && container.kind == Kind::Cookies) {
        all = removeFiles(container.folder, isCookie) && all;
    }
    // The index goes last: with it goes the knowledge of what else there is to remove.
    if (container.whole || container.index) all = removeFile(indexFile(container)) && all;
    // The folder of a day holds nothing else.
    if (container.kind == Kind::History && isDay(container.folder.substr(container.folder.rfind('\\') + 1))) {
        all = ok(files_.DeleteFolder(container.folder, true)) && all;
    }
    return all;
}

// The folders of the pages go with all that is in them: files that no index knows any more are traces too.
bool BrowserCacheOnFiles::removeFoldersOf(const Container& container) {
    std::vector<FolderEntry> found;
    if (!listToEmpty(container.folder, found)) return false;
    bool all = true;
    for (const FolderEntry& entry : found) {
        if (entry.kind != EntryKind::Folder || !hasNameOfEight(entry.name)) continue;
        all = ok(files_.DeleteFolder(below(container.folder, entry.name), true)) && all;
    }
    return all;
}

bool BrowserCacheOnFiles::removeFiles(const std::string& folder, bool (*isOne)(std::string_view)) {
    std::vector<FolderEntry> found;
    if (!listToEmpty(folder, found)) return false;
    bool all = true;
    for (const FolderEntry& entry : found) {
        if (entry.kind == EntryKind::Folder || !isOne(entry.name)) continue;
        all = removeFile(below(folder, entry.name)) && all;
    }
    return all;
}

// False where nothing may be emptied, or the folder cannot be read; a missing folder is empty.
bool BrowserCacheOnFiles::listToEmpty(const std::string& folder, std::vector<FolderEntry>& found) {
    const Status status = files_.ReadFolderToEmpty(folder, found);
    return ok(status) || status == Status::NotFound || status == Status::PathNotFound;
}

bool BrowserCacheOnFiles::removeKey(const std::string& key) {
    constexpr RegResult kNotThere = 2;
    const RegResult result = registry_.SHDeleteKeyA(HKEY_CURRENT_USER_, key);
    return result == 0 || result == kNotThere;
}

bool BrowserCacheOnFiles::removeKeysOfDays() {
    constexpr std::uint32_t kRoom = 256;
    bool all = true;
    for (const char* side : {"Cache\\Extensible Cache", "LowCache\\Extensible Cache"}) {
        const std::string path = std::string(kCaches) + side;
        HKey key = 0;
        if (registry_.RegOpenKeyExA(HKEY_CURRENT_USER_, path, kKeyEnumerateSubKeys, key) != 0) continue;
        std::vector<std::string> days;
        std::string name;
        for (std::uint32_t i = 0; registry_.RegEnumKeyA(key, i, kRoom, name) == 0; ++i) {
            if (isDay(name)) days.push_back(below(path, name));
        }
        registry_.RegCloseKey(key);
        for (const std::string& day : days) all = removeKey(day) && all;
    }
    return all;
}

bool BrowserCacheOnFiles::clearTypedAddresses() {
    const bool addresses = removeKey(std::string(kExplorer) + "TypedURLs");
    return removeKey(std::string(kExplorer) + "TypedURLsTime") && addresses;
}

bool BrowserCacheOnFiles::clearRecovery() {
    const std::string local = shell_.SpecialFolder(csidl::LocalAppData);
    if (!base::isAbsolutePath(local)) return true;
    bool all = true;
    for (const char* folder : {"Active", "Last Active", "High\\Active", "High\\Last Active"}) {
        const std::string tabs = below(local, "Microsoft\\Internet Explorer\\Recovery\\") + folder;
        all = removeFiles(tabs, isKeptTab) && all;
    }
    return all;
}

}  // namespace tidvane::platform
