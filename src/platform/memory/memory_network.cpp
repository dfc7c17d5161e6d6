#include "platform/memory/memory_network.h"

#include <algorithm>

namespace tidvane::platform {
namespace {

// The codes of the download call: given up by the caller, resource not found, no connection, file not written.
constexpr long kAbort = static_cast<int>(0x80004004u);
constexpr long kObjectNotFound = static_cast<int>(0x800C0006u);
constexpr long kCannotConnect = static_cast<int>(0x800C0004u);
constexpr long kDownloadFailure = static_cast<int>(0x800C0008u);

}  // namespace

long MemoryNetwork::URLDownloadToFileA(const std::string& url, const std::string& file,
                                       const std::function<bool(std::uint64_t, std::uint64_t)>& progress) {
    requested.push_back(url);
    if (!connected) return kCannotConnect;
    const auto found = pages.find(url);
    if (found == pages.end()) return kObjectNotFound;
    const std::uint64_t total = found->second.size();
    for (std::uint64_t done = 0; progress && done < total;) {
        done = std::min<std::uint64_t>(total, done + blockSize);
        if (!progress(done, total)) return kAbort;
    }
    return ok(files_.WriteFileBytes(file, found->second)) ? 0 : kDownloadFailure;
}

bool MemoryNetwork::DoFileDownload(const std::string& url) {
    fileDownloads.push_back(url);
    return connected;
}

}  // namespace tidvane::platform
