#include "platform/memory/memory_processes.h"

#include <utility>

#include "platform/memory/memory_clock.h"

namespace tidvane::platform {
namespace {

class MemoryProcess final : public Process {
public:
    MemoryProcess(MemoryClock& clock, std::shared_ptr<StartedProcess> record, unsigned waitsLeft)
        : clock_(clock), record_(std::move(record)), waitsLeft_(waitsLeft) {}

    bool wait(int milliseconds) override {
        ++record_->waits;
        record_->timeOuts.push_back(milliseconds);
        if (waitsLeft_ == 0) {
            record_->ended = true;
            return true;
        }
        --waitsLeft_;
        if (milliseconds > 0) clock_.advance(milliseconds);
        return false;
    }

private:
    MemoryClock& clock_;
    std::shared_ptr<StartedProcess> record_;
    unsigned waitsLeft_;
};

}  // namespace

std::unique_ptr<Process> MemoryProcesses::CreateProcessA(const std::string& commandLine, int show) {
    if (failToStart) return nullptr;
    started.push_back(std::make_shared<StartedProcess>(StartedProcess{commandLine, show, 0, false, {}}));
    if (onStart) onStart(commandLine);
    return std::make_unique<MemoryProcess>(clock_, started.back(), endsAfterWaits);
}

bool MemoryProcesses::takeInstanceLock() {
    ++instanceLockTries;
    holdsInstanceLock = !otherInstanceRuns;
    return holdsInstanceLock;
}

}  // namespace tidvane::platform
