// What a plug-in says of itself.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "plugins/dPlugCleaner.h"
#include "settings/program.h"

namespace tidvane::plugins {

class frmPlugsInfo : public forms::Form {
public:
    static constexpr const char* kName = "frmPlugsInfo";

    explicit frmPlugsInfo(settings::Program& program);

    void Form_Load() override;

    // Shows the texts of a plug-in, in the language that the box chooses now.
    void fill(dPlugCleaner& plugIn);
    // The Escape key: the window closes and nothing is stored.
    void escape();

    forms::Label lblTitle{*this, "lblTitle", "Titel:"};
    forms::TextBox txtTitle{*this, "txtTitle"};
    forms::Label lblAuthor{*this, "lblAuthor", "Autor:"};
    forms::TextBox txtAuthor{*this, "txtAuthor"};
    forms::Label lblDesc{*this, "lblDesc", "Beschreibung:"};
    forms::TextBox txtDesc{*this, "txtDesc"};
    forms::Label lblWarning{*this, "lblWarning"};
    // Its caption says what a click would do. The texts change when the window is filled again.
    forms::CheckBox chkEnableEnglishPlugsDesc{*this, "chkEnableEnglishPlugsDesc", "Enable English Description"};
    controls::isButton cmdPlugInfo{*this, "cmdPlugInfo", "Web"};
    controls::isButton cmdAuthorsWebsite{*this, "cmdAuthorsWebsite", "Autor"};
    forms::Image ImgOK{*this, "ImgOK"};
    // Hidden; what "create" starts.
    forms::TextBox txtPlugEditor_g{*this, "txtPlugEditor_g", "notepad.exe"};

private:
    settings::Program& program_;
};

}  // namespace tidvane::plugins
