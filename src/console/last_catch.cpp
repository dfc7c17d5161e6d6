#include "console/last_catch.h"

#include <exception>

#include "console/removed.h"

namespace tidvane::console {

int withLastCatch(Session& session, const std::function<int()>& command) {
    const platform::RemovalTotals before = session.platform.removed.totals;
    try {
        return command();
    } catch (const std::exception& problem) {
        const bool removed = !session.preview && removedSomething(removedSince(before, session.platform.removed));
        session.err << "The program failed (" << problem.what() << "); "
                    << (removed ? "what was removed before is removed." : "nothing was removed.") << std::endl;
        std::string error;
        if (removed && !session.commit(error)) session.err << error << std::endl;
    }
    return exit_status::MachineUnusable;
}

}  // namespace tidvane::console
