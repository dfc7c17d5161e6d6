#include "app/autostart.h"

#include <array>

#include "base/text.h"
#include "settings/frmOptions.h"

namespace tidvane::app {

namespace {

constexpr const char* kRunKey = "\\SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\RUN\\";

struct Root {
    const char* name;
    const char* shortName;  // in the log
};
constexpr std::array kRoots{Root{"HKEY_LOCAL_MACHINE", "HKLM"}, Root{"HKEY_CURRENT_USER", "HKCU"}};

}  // namespace

void applyAutostartAtStart(settings::Program& program) {
    platform::ScriptHost& host = program.platform.scriptHost;
    auto& options = program.get<settings::frmOptions>();
    const std::string name = program.platform.system.ExecutableName();
    if (!options.chkStartWindows.ticked()) {
        for (const Root& root : kRoots) (void)host.RegDelete(root.name + std::string(kRunKey) + name);
        return;
    }
    const std::string chosen = options.cboAutoStart.Text();
    if (chosen.empty()) return;  // a key without a root may never be written
    (void)host.RegWrite(chosen + kRunKey + name,
                        base::withoutBackslash(program.programFolder()) + "\\" + name + ".exe");
    for (std::size_t i = 0; i < kRoots.size(); ++i) {
        if (chosen != kRoots[i].name) continue;
        program.report().AddLogLine(program.LangText(581) + " " + program.LangText(510));
        program.report().AddLogLine(program.LangText(582) + ": " + kRoots[i].shortName +
                                    "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run <OK>");
        (void)host.RegDelete(kRoots[1 - i].name + std::string(kRunKey) + name);
    }
}

}  // namespace tidvane::app
