// Programs and the session of the memory machine: nothing is started, everything is recorded.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/processes.h"

namespace tidvane::platform {

class MemoryClock;

struct StartedProcess {
    std::string commandLine;
    int show = 0;
    unsigned waits = 0;
    bool ended = false;
    std::vector<int> timeOuts;  // milliseconds of each wait
};

class MemoryProcesses final : public Processes {
public:
    explicit MemoryProcesses(MemoryClock& clock) : clock_(clock) {}

    std::vector<std::shared_ptr<StartedProcess>> started;
    bool failToStart = false;
    // Waits that time out before the program has ended; each lets its time pass.
    unsigned endsAfterWaits = 0;
    // What the started program does to the machine.
    std::function<void(const std::string& commandLine)> onStart;

    bool otherInstanceRuns = false;
    bool holdsInstanceLock = false;
    unsigned instanceLockTries = 0;

    std::unique_ptr<Process> CreateProcessA(const std::string& commandLine, int show) override;
    bool takeInstanceLock() override;
    void releaseInstanceLock() override { holdsInstanceLock = false; }

private:
    MemoryClock& clock_;
};

class MemorySession final : public Session {
public:
    std::vector<unsigned> exits;  // flags of each call
    bool allowed = true;

    bool ExitWindowsEx(unsigned flags) override {
        exits.push_back(flags);
        return allowed;
    }
};

}  // namespace tidvane::platform
