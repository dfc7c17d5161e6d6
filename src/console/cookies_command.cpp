// The cookie files, through their manager.
#include "base/text.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/instance_lock.h"
#include "console/tool_program.h"
#include "tools/frmIECookies.h"

namespace tidvane::console {

namespace {

class Cookies {
public:
    Cookies(Session& session, const Options& options)
        : session_(session), options_(options.manager), tool_(session, options) {}

    int run();

private:
    int remove();
    bool mark(const std::string& name);

    tools::frmIECookies& window() { return tool_.program().get<tools::frmIECookies>(); }
    int fail(int status, const std::string& sentence) {
        session_.err << sentence << std::endl;
        return status;
    }

    Session& session_;
    const ManagerOptions& options_;
    ToolProgram tool_;
};

bool Cookies::mark(const std::string& name) {
    forms::ListView& list = window().lstCookies;
    bool found = false;
    for (int row = 1; row <= list.Count(); ++row) {
        if (!base::equalNoCase(list.item(row)->text, name)) continue;
        list.mark(row, true);
        found = true;
    }
    return found;
}

int Cookies::remove() {
    forms::ListView& list = window().lstCookies;
    // The load marks the last row.
    window().mnudeselectall.Click();
    for (const std::string& name : options_.names) {
        if (mark(name)) continue;
        return fail(exit_status::Usage, "There is no cookie file \"" + name +
                                            "\"; the command \"cookies list\" shows all of them. Nothing was removed.");
    }
    int wanted = 0;
    for (const forms::ListItem& cookie : list.items()) wanted += options_.all || cookie.selected ? 1 : 0;
    const int before = list.Count();
    (options_.all ? window().mnudeleteall : window().mnudeleteselected).Click();
    const int gone = before - list.Count();
    session_.out << "Removed " << gone << " of " << wanted << " cookie files." << std::endl;
    if (gone == wanted) return exit_status::Done;
    std::string left;
    for (const forms::ListItem& cookie : list.items()) {
        if (options_.all || cookie.selected) left += (left.empty() ? "" : ", ") + printable(cookie.text);
    }
    return fail(exit_status::MachineUnusable, "Not removed, since they are in use or protected: " + left + ".");
}

int Cookies::run() {
    InstanceLock lock(session_);
    if (options_.remove && !lock.take()) return exit_status::MachineUnusable;
    const std::string folder = base::withoutBackslash(window().lblCookieDir.Caption.get());
    // With none the window lists the root of a drive, and deletes nothing from it.
    if (folder.empty() || folder.back() == '\\' || folder.back() == ':') {
        return fail(exit_status::MachineUnusable,
                    "The machine's registry names no folder for cookies (value \"Cookies\" of \"Shell Folders\"), so "
                    "that there is nothing to list or remove.");
    }
    if (options_.remove) return remove();
    for (const forms::ListItem& cookie : window().lstCookies.items()) session_.out << printable(cookie.text) << "\n";
    session_.out << std::flush;
    return exit_status::Done;
}

}  // namespace

int cookiesCommand(Session& session, const Options& options) {
    return Cookies(session, options).run();
}

}  // namespace tidvane::console
