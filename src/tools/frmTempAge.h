// How old files of the Windows temp folder have to be before they go.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::tools {

class frmTempAge : public forms::Form {
public:
    static constexpr const char* kName = "frmTempAge";

    explicit frmTempAge(settings::Program& program);

    void Form_Load() override;

    forms::Frame frmTempInterval{*this, "frmTempInterval", "Alter"};
    forms::CheckBox chkActivite{*this, "chkActivite", "Nur alte Dateien löschen"};  // the filter is on
    forms::TextBox txtAge{*this, "txtAge", "10"};                                   // days
    forms::Label lblDays{*this, "lblDays", "Tage"};
    forms::Label lblTemp{*this, "lblTemp", "Jüngere Dateien bleiben im Temp-Ordner von Windows."};
    controls::isButton cmdOK{*this, "cmdOK", "OK"};

private:
    settings::Program& program_;
};

}  // namespace tidvane::tools
