// The lock of the program folder, with its refusal told.
#pragma once

#include "console/commands.h"
#include "frontend/instance_lock.h"

namespace tidvane::console {

class InstanceLock {
public:
    explicit InstanceLock(Session& session) : session_(session), lock_(session.platform.processes) {}

    // False: it could not be taken, and why is told.
    bool take() {
        std::string error;
        const bool taken = lock_.take(error);
        if (!taken) session_.err << error << std::endl;
        return taken;
    }

private:
    Session& session_;
    frontend::InstanceLock lock_;
};

}  // namespace tidvane::console
