// Downloads and restore points: what only a running Windows, or a network, can give.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tidvane::platform {

// Answers of URLDownloadToFileA: the codes of the call on Windows.
namespace download {
inline constexpr long Done = 0;
inline constexpr long Abort = static_cast<int>(0x80004004u);  // given up by the caller
inline constexpr long CannotConnect = static_cast<int>(0x800C0004u);
inline constexpr long ResourceNotFound = static_cast<int>(0x800C0005u);  // also without any network
inline constexpr long ObjectNotFound = static_cast<int>(0x800C0006u);
inline constexpr long Failure = static_cast<int>(0x800C0008u);  // the file could not be written
}  // namespace download

class Network {
public:
    virtual ~Network() = default;
    // download::Done when the file is there. `progress` gets bytes so far and in total and answers false to give up.
    virtual long URLDownloadToFileA(const std::string& url, const std::string& file,
                                    const std::function<bool(std::uint64_t, std::uint64_t)>& progress) = 0;
    virtual bool DoFileDownload(const std::string& url) = 0;
};

class RestorePoints {
public:
    virtual ~RestorePoints() = default;
    // 0 when made. `result` stays untouched where restore points cannot be reached at all.
    virtual void createRestorePoint(const std::string& description, int type, int event, long& result) = 0;
};

}  // namespace tidvane::platform
