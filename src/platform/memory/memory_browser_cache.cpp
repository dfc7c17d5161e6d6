#include "platform/memory/memory_browser_cache.h"

#include <algorithm>

namespace tidvane::platform {

bool MemoryBrowserCache::DeleteUrlCacheEntry(const std::string& url) {
    deleteCalls.push_back(url);
    if (std::find(refused.begin(), refused.end(), url) != refused.end()) return false;
    return std::erase_if(cached, [&url](const UrlCacheEntry& entry) { return entry.sourceUrlName == url; }) != 0;
}

bool MemoryBrowserCache::ClearHistory() {
    if (!hasHistoryObject) return false;
    ++historyCleared;
    return true;
}

bool MemoryBrowserCache::ClearMyTracksByProcess(int number) {
    tracksCleared.push_back(number);
    return tracksCanBeCleared;
}

}  // namespace tidvane::platform
