#include "settings/autostart.h"

#include "base/text.h"

namespace tidvane::settings {

namespace {

constexpr const char* kRunKey = "\\SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\RUN\\";

}  // namespace

std::string autostartValue(const Program& program, std::string_view root) {
    return std::string(root) + kRunKey + program.platform.system.ExecutableName();
}

void applyAutostart(Program& program, const frmOptions& options) {
    platform::ScriptHost& host = program.platform.scriptHost;
    if (!options.chkStartWindows.ticked()) {
        for (const std::string_view root : {kMachineRoot, kUserRoot}) {
            (void)host.RegDelete(autostartValue(program, root));
        }
        return;
    }
    const std::string& root = options.cboAutoStart.Text();
    if (root.empty()) return;  // a key without a root may never be written
    (void)host.RegWrite(autostartValue(program, root), base::withoutBackslash(program.programFolder()) + "\\" +
                                                           program.platform.system.ExecutableName() + ".exe");
}

}  // namespace tidvane::settings
