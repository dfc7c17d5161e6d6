// What keeps other programs of this machine out while a command changes something.
#pragma once

#include <system_error>

#include "console/commands.h"

namespace tidvane::console {

inline constexpr const char* kAnotherRuns =
    "Tidvane is already running on this machine; wait until it has ended, then start again.";

// To be taken before the command reads what it will write anew: whatever another one stores in between would be lost.
class InstanceLock {
public:
    explicit InstanceLock(Session& session) : session_(session) {}
    ~InstanceLock() {
        if (taken_) session_.platform.processes.releaseInstanceLock();
    }
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // No second program works beside this one, as long as this lives. False: one does, or nobody can tell; the error is
    // told.
    bool take() {
        try {
            taken_ = session_.platform.processes.takeInstanceLock();
            if (!taken_) session_.err << kAnotherRuns << std::endl;
        } catch (const std::system_error& problem) {
            session_.err << problem.what() << "; name another one with --program." << std::endl;
        }
        return taken_;
    }

private:
    Session& session_;
    bool taken_ = false;
};

}  // namespace tidvane::console
