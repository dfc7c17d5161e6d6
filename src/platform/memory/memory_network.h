// A network that holds what a test put there, and the restore points of the memory machine.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/network.h"

namespace tidvane::platform {

class MemoryNetwork final : public Network {
public:
    explicit MemoryNetwork(FileSystem& files) : files_(files) {}

    std::map<std::string, std::string> pages;  // content by address; others are not found
    bool connected = true;
    std::size_t blockSize = 1024;  // bytes between two calls of `progress`
    std::vector<std::string> requested;
    std::vector<std::string> fileDownloads;  // addresses handed to DoFileDownload

    long URLDownloadToFileA(const std::string& url, const std::string& file,
                            const std::function<bool(std::uint64_t, std::uint64_t)>& progress) override;
    bool DoFileDownload(const std::string& url) override;

private:
    FileSystem& files_;
};

struct RestorePoint {
    std::string description;
    int type = 0;
    int event = 0;
};

class MemoryRestorePoints final : public RestorePoints {
public:
    std::vector<RestorePoint> asked;
    // What a call answers; nothing where restore points cannot be reached.
    std::optional<long> answer;

    void createRestorePoint(const std::string& description, int type, int event, long& result) override {
        asked.push_back({description, type, event});
        if (answer) result = *answer;
    }
};

}  // namespace tidvane::platform
