#include "tools/frmTempAge.h"

#include "settings/modFormINI.h"

namespace tidvane::tools {

frmTempAge::frmTempAge(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Temp Manager");
    forms::designedOff(txtAge).keyFilter = forms::numericKey;
    chkActivite.Click.connect([this] { txtAge.Enabled = chkActivite.ticked(); });
    cmdOK.Click.connect([this] {
        settings::tellOfEmptiedBoxes(program_, *this);
        settings::SaveFormINI(program_, *this);
        program_.windows.unload(*this);
    });
}

void frmTempAge::Form_Load() {
    const settings::LangTable& text = program_.LangText;
    Caption = text(809);
    chkActivite.Caption = text(804);
    lblTemp.Caption = text(805);
    frmTempInterval.Caption = text(806);
    lblDays.Caption = text(807);
    if (settings::LoadFormINI(program_, *this)) return;
    txtAge.setText("10");
    chkActivite.Value = 0;
}

}  // namespace tidvane::tools
