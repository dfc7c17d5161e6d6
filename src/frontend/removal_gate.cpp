#include "frontend/removal_gate.h"

#include "app/frmMain.h"
#include "frontend/confirmations.h"
#include "frontend/guards.h"
#include "settings/sentences.h"

namespace tidvane::frontend {

namespace {

using settings::Removal;

bool refuse(settings::Program& program, const std::string& why) {
    (void)program.MsgBox(settings::inLanguageOf(program, why), forms::msgbox::Exclamation, "Tidvane");
    return false;
}

// Steps of a run press buttons of other windows: what they remove was allowed with the run.
bool runIsUnderWay(settings::Program& program) {
    const auto* main = program.windows.ifLoaded<app::frmMain>();
    return main != nullptr && main->cmdStop.Enabled;
}

// The wizard puts its own question behind this.
bool settingsAllow(settings::Program& program, Removal act) {
    if (act == Removal::Run) return allowsRun(program);
    if (act == Removal::Manager) return true;
    const std::string why = whyNotToRun(program, FrontEnd::Windows);
    return why.empty() || refuse(program, why);
}

}  // namespace

void connectRemovalGate(settings::Program& program, HeldMachine& machine) {
    program.mayRemove = [&program, &machine](Removal act) {
        if (runIsUnderWay(program)) return true;
        // Before any question, and again behind them: a box may stand for hours.
        if (const std::string why = machine.whyNotNow(); !why.empty()) return refuse(program, why);
        if (!settingsAllow(program, act)) return false;
        std::string why;
        return machine.mayRemove(why) || refuse(program, why);
    };
}

}  // namespace tidvane::frontend
