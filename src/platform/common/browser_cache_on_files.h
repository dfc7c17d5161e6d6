// Cache, cookies and history of Internet Explorer 5 to 9 as they lie in the files and the registry of a machine.
//
// The places are the special folders 32, 33 and 34, each with what the versions put into it ("Content.IE5",
// "History.IE5" and its days, the "Low" side of the protected mode). An index that is missing, unreadable, of another
// version or damaged lists nothing, or what is whole of it. A special folder that no one may empty, or that is a link,
// is left alone with all that lies below it: nothing is listed or removed there, and it counts as something that stays.
//
// The indexes may be many and large: only as many are in memory together as the bound allows, and one more.
//
// Everything goes through the file system, shell and registry given: counting, refusing and previewing is theirs.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/code_page.h"
#include "platform/browser_cache.h"
#include "platform/common/url_cache_index.h"
#include "platform/file_system.h"
#include "platform/registry_api.h"
#include "platform/shell.h"

namespace tidvane::platform {

class BrowserCacheOnFiles final : public BrowserCache {
public:
    // Room for what any browser makes; a hostile machine could have thousands of indexes of 16 MB.
    static constexpr std::size_t usualBound = std::size_t{32} * 1024 * 1024;

    // `bound`: bytes of index files that a batch of deletes keeps in memory. Read, an index takes some times of that.
    BrowserCacheOnFiles(FileSystem& files, Shell& shell, RegistryApi& registry, const base::CodePage& page,
                        std::size_t bound = usualBound)
        : files_(files), shell_(shell), registry_(registry), page_(page), bound_(bound) {}

    // Of all places, in the order pages, cookies, visits. The local file is a full path, empty when there is none.
    std::vector<UrlCacheEntry> entries() override;

    // The cached file goes first, also a read-only one, then the record, from every index that has the address. False:
    // none has it, or a file stays, and its record with it, or an index could not be written. A file that the cache
    // cannot have made itself (see UrlCacheIndex) stays where it is, and only the record goes.
    //
    // Between beginDeletes and endDeletes an index is written once, at the end. So is an index beyond the bound, whose
    // files go then too: true tells for it that it had the address. An address whose file stayed is not tried again
    // before the end.
    bool DeleteUrlCacheEntry(const std::string& url) override;
    void beginDeletes() override;
    void endDeletes() override { (void)finishDeletes(); }

    // Removes the indexes of the history with what they name, the folders of its days, and the keys that announce those
    // to the browser. It makes new ones when it starts. False: the machine has no folder for it, or something stays.
    bool ClearHistory() override;

    // The number is a set of bits; those not named here have nothing on a machine in files, or nothing that is known:
    //   1    the history, and the typed addresses of the registry
    //   2    cookies: indexes, the files they name, and every other file beside them with the name of a cookie
    //   8    temporary internet files: indexes, the files they name, and the folders of the cache beside them
    //   16   form data: "IntelliForms\Storage1"; whether the user was asked, and his answer, stay
    //   32   passwords: "IntelliForms\Storage2" and "IntelliForms\SPW"
    //   128  the tabs kept for the case of a crash
    // False: something of it stays.
    bool ClearMyTracksByProcess(int number) override;

private:
    enum class Kind { Pages, Cookies, History };
    struct Place;
    static const Place kPlaces[];

    // An index file, and the folder whose files it names.
    struct Container {
        std::string special;  // the special folder it was found in
        std::string folder;
        Kind kind;
        bool whole = false;  // everything that looks like the cache's in this folder is
        std::optional<UrlCacheIndex> index;
        bool changed = false;
        // In a batch, of an index beyond the bound: the hashes of its addresses, sorted; and whether any of them is to
        // go at the end.
        std::vector<std::size_t> addresses;
        bool goesOnAtEnd = false;
    };

    [[nodiscard]] std::vector<Container> containers() const;
    bool dropRefused(std::vector<Container>& list);
    [[nodiscard]] std::vector<std::string> foldersOfDays(const std::string& folder) const;
    void read(Container& container) const;
    [[nodiscard]] static std::string indexFile(const Container& container);
    [[nodiscard]] std::string cachedFile(const Container& container, const UrlCacheIndex::Record& record) const;
    void addEntries(const Container& container, std::vector<UrlCacheEntry>& list,
                    const std::unordered_set<std::string>& without) const;
    bool leaveForEnd(const std::string& address);
    bool deleteAtEnd(Container& container);
    bool writeAndFree(Container& container);
    bool deleteRecords(Container& container, const std::vector<std::size_t>& records);

    bool removeFile(const std::string& file);
    bool removeFiles(const std::string& folder, bool (*isOne)(std::string_view));
    bool listToEmpty(const std::string& folder, std::vector<FolderEntry>& found);
    bool removeKey(const std::string& key);
    bool finishDeletes();

    bool clear(Kind kind);
    bool clearContainer(Container& container);
    bool removeFoldersOf(const Container& container);
    bool removeKeysOfDays();
    bool clearTypedAddresses();
    bool clearRecovery();

    FileSystem& files_;
    Shell& shell_;
    RegistryApi& registry_;
    base::CodePage page_;
    std::size_t bound_;
    // Between beginDeletes and endDeletes.
    int deleting_ = 0;
    std::vector<Container> held_;
    std::unordered_set<std::string> stayed_;  // addresses
    std::unordered_set<std::string> atEnd_;   // addresses that also stand in indexes beyond the bound
};

}  // namespace tidvane::platform
