#include "app/autostart.h"

#include <array>

#include "settings/autostart.h"

namespace tidvane::app {

namespace {

struct Root {
    std::string_view name;
    std::string_view other;
    const char* shortName;  // in the log
};
constexpr std::array kRoots{Root{settings::kMachineRoot, settings::kUserRoot, "HKLM"},
                            Root{settings::kUserRoot, settings::kMachineRoot, "HKCU"}};

}  // namespace

void applyAutostartAtStart(settings::Program& program) {
    const auto& options = program.get<settings::frmOptions>();
    settings::applyAutostart(program, options);
    if (!options.chkStartWindows.ticked()) return;
    for (const Root& root : kRoots) {
        if (options.cboAutoStart.Text() != root.name) continue;
        program.report().AddLogLine(program.LangText(581) + " " + program.LangText(510));
        program.report().AddLogLine(program.LangText(582) + ": " + root.shortName +
                                    "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run <OK>");
        (void)program.platform.scriptHost.RegDelete(settings::autostartValue(program, root.other));
    }
}

}  // namespace tidvane::app
