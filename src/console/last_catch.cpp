#include "console/last_catch.h"

#include <exception>

#include "frontend/last_words.h"
#include "frontend/removed.h"

namespace tidvane::console {

int withLastCatch(Session& session, const std::function<int()>& command) {
    const platform::RemovalTotals before = session.platform.removed.totals;
    try {
        return command();
    } catch (const std::exception& problem) {
        const bool removed =
            !session.preview && frontend::removedSomething(frontend::removedSince(before, session.platform.removed));
        session.err << frontend::lastWords(problem, removed) << std::endl;
        std::string error;
        if (removed && !session.commit(error)) session.err << error << std::endl;
    }
    return exit_status::MachineUnusable;
}

}  // namespace tidvane::console
