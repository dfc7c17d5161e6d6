// The cache entries, through their manager.
#include "base/runtime_error.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/instance_lock.h"
#include "console/tool_program.h"
#include "tools/frmIECache.h"

namespace tidvane::console {

namespace {

class Cache {
public:
    Cache(Session& session, const Options& options)
        : session_(session), options_(options.manager), tool_(session, options) {}

    int run();

private:
    int removeAll();
    int removeNamed();
    // Row of an address; -1: there is none.
    int rowOf(const std::string& address);

    tools::frmIECache& window();
    forms::ListBox& list() { return window().lstCache; }
    int fail(int status, const std::string& sentence) {
        session_.err << sentence << std::endl;
        return status;
    }
    int tell(int gone, int wanted) {
        session_.out << "Removed " << gone << " of " << wanted << " cache entries." << std::endl;
        if (gone == wanted) return exit_status::Done;
        return fail(exit_status::MachineUnusable,
                    "Some entries are still there; end the programs that use the cache, then try again.");
    }

    Session& session_;
    const ManagerOptions& options_;
    ToolProgram tool_;
};

// A stored value that cannot be assigned leaves the window loaded, but without its list.
tools::frmIECache& Cache::window() {
    try {
        return tool_.program().get<tools::frmIECache>();
    } catch (const base::RuntimeError&) {
        auto& loaded = tool_.program().get<tools::frmIECache>();
        loaded.FillCacheList();
        return loaded;
    }
}

int Cache::rowOf(const std::string& address) {
    for (int row = 0; row < list().ListCount(); ++row) {
        if (window().addressOf(row) == address) return row;
    }
    return -1;
}

int Cache::removeAll() {
    if (options_.cookies) window().chkAllCookies.Value = 1;
    const auto thatGo = [this] {
        int count = 0;
        for (int row = 0; row < list().ListCount(); ++row) count += window().goesWithAll(row) ? 1 : 0;
        return count;
    };
    const int wanted = thatGo();
    window().cmdDeleteAll.press();
    const int left = thatGo();
    const int status = tell(wanted - left, wanted);
    if (const int kept = list().ListCount() - left; kept > 0) {
        session_.out << kept << " with \"Cookie\" in the address stay; --cookies takes them too." << std::endl;
    }
    return status;
}

int Cache::removeNamed() {
    for (const std::string& address : options_.names) {
        if (rowOf(address) >= 0) continue;
        return fail(exit_status::Usage, "There is no cache entry \"" + address +
                                            "\"; the command \"cache list\" shows all of them. Nothing was removed.");
    }
    int gone = 0;
    for (const std::string& address : options_.names) {
        list().setListIndex(rowOf(address));
        window().mnudeleteselected.Click();
        if (rowOf(address) < 0) ++gone;
    }
    return tell(gone, static_cast<int>(options_.names.size()));
}

int Cache::run() {
    if (options_.remove) return options_.all ? removeAll() : removeNamed();
    for (int row = 0; row < list().ListCount(); ++row) session_.out << printable(list().List(row)) << "\n";
    session_.out << std::flush;
    return exit_status::Done;
}

}  // namespace

int cacheCommand(Session& session, const Options& options) {
    InstanceLock lock(session);
    if (options.manager.remove && !lock.take()) return exit_status::MachineUnusable;
    return Cache(session, options).run();
}

}  // namespace tidvane::console
