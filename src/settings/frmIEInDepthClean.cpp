#include "settings/frmIEInDepthClean.h"

#include "settings/modFormINI.h"

namespace tidvane::settings {

frmIEInDepthClean::frmIEInDepthClean(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Gründlich reinigen");
    chkIEINDepthClean.Value.design(1);
    chkIEINDepthCleanAll.Click.connect([this] { chkIEINDepthCleanAll_Click(); });
    cmdOK.Click.connect([this] { cmdOK_Click(); });
}

void frmIEInDepthClean::Form_Load() {
    const LangTable& text = program_.LangText;
    Caption = text(800);
    frmIEAdvancedOpt.Caption = text(800);
    chkIEINDepthClean.Caption = text(801);
    chkIEINDepthCleanAll.Caption = text(802);
    if (LoadFormINI(program_, *this)) return;
    chkIEINDepthCleanAll.Value = 0;
    chkIEINDepthClean.Value = 1;
}

void frmIEInDepthClean::chkIEINDepthCleanAll_Click() {
    const bool all = chkIEINDepthCleanAll.ticked();
    if (all) chkIEINDepthClean.Value = 0;
    chkIEINDepthClean.Enabled = !all;
}

bool frmIEInDepthClean::confirmAll() {
    namespace msgbox = forms::msgbox;
    if (!chkIEINDepthCleanAll.ticked()) return true;
    const int answer = program_.MsgBox(program_.LangText(803),
                                       msgbox::YesNo | msgbox::Exclamation | msgbox::DefaultButton2, "Tidvane");
    const bool all = answer == msgbox::Yes;
    chkIEINDepthCleanAll.Value = all ? 1 : 0;
    chkIEINDepthClean.Value = all ? 0 : 1;
    return all;
}

void frmIEInDepthClean::cmdOK_Click() {
    const bool again = !confirmAll();
    // Behind the question, so that a No is stored as it was answered.
    SaveFormINI(program_, *this);
    program_.windows.unload(*this);
    if (again) program_.windows.show(kName, program_.windows.ifLoaded("frmOptions"), true);
}

}  // namespace tidvane::settings
