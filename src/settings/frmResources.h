// The addresses of the project's pages, as the user may change them.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/addresses.h"
#include "settings/program.h"

namespace tidvane::settings {

class frmResources : public forms::Form {
public:
    static constexpr const char* kName = "frmResources";

    explicit frmResources(settings::Program& program);

    void Form_Load() override;

    forms::Label lblApps{*this, "lblApps", "Anwendungen (Plug-ins)"};
    forms::TextBox txtApps{*this, "txtApps", address::kApps};
    forms::Label lblAddOns{*this, "lblAddOns", "Erweiterungen (Add-ons)"};
    forms::TextBox txtAddOns{*this, "txtAddOns", address::kAddOns};
    // Stands where the add-ons were, when the tool that manages them lies beside the program.
    forms::Label lblAddOnManager{*this, "lblAddOnManager", "qrmx.exe"};
    forms::Label lblLang{*this, "lblLang", "*.lng"};
    forms::TextBox txtLang{*this, "txtLang", address::kLanguages};
    forms::Label lblOnlineHelp{*this, "lblOnlineHelp", "Hilfe"};
    forms::TextBox txtOnlineHelp{*this, "txtOnlineHelp", address::kOnlineHelp};
    forms::Label lblForum{*this, "lblForum", "Forum"};
    forms::TextBox txtForum{*this, "txtForum", address::kForum};
    forms::Label lblFacebook{*this, "lblFacebook", "Facebook"};
    forms::TextBox txtFacebook{*this, "txtFacebook", address::kFacebook};
    forms::Label lblTwitter{*this, "lblTwitter", "Twitter"};
    forms::TextBox txtTwitter{*this, "txtTwitter", address::kTwitter};
    forms::Label lblRegister{*this, "lblRegister", "Account"};
    forms::TextBox txtRegister{*this, "txtRegister", address::kRegister};
    controls::isButton cmdStandardServer{*this, "cmdStandardServer", "Standard"};
    forms::Image ImgOK{*this, "ImgOK"};

private:
    void setStandardAddresses();

    settings::Program& program_;
};

}  // namespace tidvane::settings
