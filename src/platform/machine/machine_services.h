// The small services of a machine in a directory. What needs a running Windows answers "cannot be done".
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/browser_cache.h"
#include "platform/clock.h"
#include "platform/machine/directory_handle.h"
#include "platform/network.h"
#include "platform/processes.h"

namespace tidvane::platform::machine {

class HostClock final : public Clock {
public:
    base::DateTime now() override;
    double timer() override;
    void Sleep(int milliseconds) override;
};

class HookedEvents final : public EventPump {
public:
    // Called at every pump.
    void onPump(std::function<void()> hook) { hook_ = std::move(hook); }
    void DoEvents() override {
        if (hook_) hook_();
    }

private:
    std::function<void()> hook_;
};

class MachineProcesses final : public Processes {
public:
    // The lock lies on the program's folder itself: it leaves no file and ends with the process.
    MachineProcesses(std::string programFolder, BrowserCache& cache)
        : programFolder_(std::move(programFolder)), cache_(cache) {}

    // Starts nothing. What the browser's own cleaner is asked for by its command line is done here instead.
    std::unique_ptr<Process> CreateProcessA(const std::string& commandLine, int show) override;
    bool takeInstanceLock() override;
    void releaseInstanceLock() override { lock_.reset(); }

private:
    std::string programFolder_;
    BrowserCache& cache_;
    Handle lock_;
};

class MachineSession final : public Session {
public:
    bool ExitWindowsEx(unsigned /*flags*/) override { return false; }
};

class MachineNetwork final : public Network {
public:
    long URLDownloadToFileA(const std::string& url, const std::string& file,
                            const std::function<bool(std::uint64_t, std::uint64_t)>& progress) override;
    bool DoFileDownload(const std::string& /*url*/) override { return false; }
};

class MachineRestorePoints final : public RestorePoints {
public:
    void createRestorePoint(const std::string& /*description*/, int /*type*/, int /*event*/,
                            long& /*result*/) override {}
};

}  // namespace tidvane::platform::machine
