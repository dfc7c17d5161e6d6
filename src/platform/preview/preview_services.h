// The small services of a preview: nothing is started, downloaded or ended.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/browser_cache.h"
#include "platform/network.h"
#include "platform/processes.h"

namespace tidvane::platform {

class PreviewProcesses final : public Processes {
public:
    // Whether programs can be started on this machine at all. The program goes on as it would behind one that ended at
    // once, or behind one that could not be started.
    enum class Starts { Nothing, AsIfEnded };

    // `cache`: the one of the preview. What the browser's own cleaner is asked for by its command line goes to it.
    PreviewProcesses(BrowserCache& cache, Starts starts) : cache_(cache), starts_(starts) {}

    std::unique_ptr<Process> CreateProcessA(const std::string& commandLine, int show) override;
    // A preview changes nothing that another process could rely on: it needs no lock and keeps nobody out.
    bool takeInstanceLock() override { return true; }
    void releaseInstanceLock() override {}

private:
    BrowserCache& cache_;
    Starts starts_;
};

class PreviewSession final : public Session {
public:
    bool ExitWindowsEx(unsigned /*flags*/) override { return false; }
};

class PreviewNetwork final : public Network {
public:
    long URLDownloadToFileA(const std::string& url, const std::string& file,
                            const std::function<bool(std::uint64_t, std::uint64_t)>& progress) override;
    bool DoFileDownload(const std::string& /*url*/) override { return false; }
};

class PreviewRestorePoints final : public RestorePoints {
public:
    void createRestorePoint(const std::string& /*description*/, int /*type*/, int /*event*/,
                            long& /*result*/) override {}
};

}  // namespace tidvane::platform
