// Cache and history of Internet Explorer on the memory machine.
#pragma once

#include <string>
#include <vector>

#include "platform/browser_cache.h"

namespace tidvane::platform {

class MemoryBrowserCache final : public BrowserCache {
public:
    std::vector<UrlCacheEntry> cached;
    std::vector<std::string> refused;  // addresses whose entries cannot be deleted
    std::vector<std::string> deleteCalls;
    bool hasHistoryObject = true;
    unsigned historyCleared = 0;
    bool tracksCanBeCleared = true;
    std::vector<int> tracksCleared;  // numbers of the calls

    std::vector<UrlCacheEntry> entries() override { return cached; }
    bool DeleteUrlCacheEntry(const std::string& url) override;
    bool ClearHistory() override;
    bool ClearMyTracksByProcess(int number) override;
};

}  // namespace tidvane::platform
