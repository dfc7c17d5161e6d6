// What keeps other programs of this machine away from the program folder while something changes there.
#pragma once

#include <string>
#include <system_error>

#include "platform/processes.h"

namespace tidvane::frontend {

inline constexpr const char* kAnotherRuns =
    "Tidvane is already running on this machine; wait until it has ended, then start again.";

// To be taken before anything is read that will be written anew: whatever another one stores in between would be lost.
class InstanceLock {
public:
    explicit InstanceLock(platform::Processes& processes) : processes_(processes) {}
    ~InstanceLock() {
        if (taken_) processes_.releaseInstanceLock();
    }
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // No second program works beside this one, as long as this lives. False: one does, or nobody can tell; `error` is
    // one sentence.
    bool take(std::string& error) {
        try {
            taken_ = processes_.takeInstanceLock();
            if (!taken_) error = kAnotherRuns;
        } catch (const std::system_error& problem) {
            error = std::string(problem.what()) + "; name another one with --program.";
        }
        return taken_;
    }

private:
    platform::Processes& processes_;
    bool taken_ = false;
};

}  // namespace tidvane::frontend
