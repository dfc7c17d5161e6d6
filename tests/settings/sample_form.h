// A window with one control of each kind that the store knows, and some it does not.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"

namespace tidvane::tests {

class SampleForm : public forms::Form {
public:
    SampleForm() : Form("frmSample") {
        for (const char* row : {"red", "green", "blue"}) {
            cboColour.AddItem(row);
            lstColours.AddItem(row);
        }
    }

    forms::Label lblName{*this, "lblName", "Name"};
    forms::TextBox txtName{*this, "txtName", "design"};
    forms::CheckBox chkPlain{*this, "chkPlain"};
    forms::CheckBox chkMember0{*this, "chkMember", "", 0};
    forms::CheckBox chkMember4{*this, "chkMember", "", 4};
    forms::OptionButton optFirst{*this, "optFirst", "group"};
    forms::OptionButton optSecond{*this, "optSecond", "group"};
    forms::ComboBox cboColour{*this, "cboColour"};
    forms::ListBox lstColours{*this, "lstColours"};
    controls::isButton cmdOK{*this, "cmdOK"};
    forms::TextBox txtLast{*this, "txtLast", "last"};
};

}  // namespace tidvane::tests
