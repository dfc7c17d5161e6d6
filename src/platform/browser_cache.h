// The cache and history of Internet Explorer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tidvane::platform {

struct UrlCacheEntry {
    std::string sourceUrlName;
    std::string localFileName;
    std::uint32_t type = 0;
    std::uint64_t lastAccess = 0;  // FILETIME
};

class BrowserCache {
public:
    virtual ~BrowserCache() = default;
    // FindFirstUrlCacheEntryA and FindNextUrlCacheEntryA to the end.
    virtual std::vector<UrlCacheEntry> entries() = 0;
    virtual bool DeleteUrlCacheEntry(const std::string& url) = 0;
    // Around many deletes (see ManyDeletes): they may share one write of each index, and some may be done at the end
    // only. Where that fails, entries whose delete was told done are listed again. Pairs may be nested.
    virtual void beginDeletes() {}
    virtual void endDeletes() {}
    // The history object {3C374A40-BAE4-11CF-BF7D-00AA006946EE}: false when it cannot be made.
    virtual bool ClearHistory() = 0;
    // The control panel's entry of the same name, by its number.
    virtual bool ClearMyTracksByProcess(int number) = 0;
};

class ManyDeletes {
public:
    explicit ManyDeletes(BrowserCache& cache) : cache_(cache) { cache_.beginDeletes(); }
    ~ManyDeletes() { cache_.endDeletes(); }
    ManyDeletes(const ManyDeletes&) = delete;
    ManyDeletes& operator=(const ManyDeletes&) = delete;

private:
    BrowserCache& cache_;
};

}  // namespace tidvane::platform
