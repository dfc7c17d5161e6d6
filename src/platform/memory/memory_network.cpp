#include "platform/memory/memory_network.h"

#include <algorithm>

namespace tidvane::platform {

long MemoryNetwork::URLDownloadToFileA(const std::string& url, const std::string& file,
                                       const std::function<bool(std::uint64_t, std::uint64_t)>& progress) {
    requested.push_back(url);
    if (!connected) return download::CannotConnect;
    const auto found = pages.find(url);
    if (found == pages.end()) return download::ObjectNotFound;
    const std::uint64_t total = found->second.size();
    for (std::uint64_t done = 0; progress && done < total;) {
        done = std::min<std::uint64_t>(total, done + blockSize);
        if (!progress(done, total)) return download::Abort;
    }
    return ok(files_.WriteFileBytes(file, found->second)) ? download::Done : download::Failure;
}

bool MemoryNetwork::DoFileDownload(const std::string& url) {
    fileDownloads.push_back(url);
    return connected;
}

}  // namespace tidvane::platform
