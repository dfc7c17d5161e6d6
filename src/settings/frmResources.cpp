#include "settings/frmResources.h"

#include "settings/modFormINI.h"

namespace tidvane::settings {

frmResources::frmResources(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Ressourcen");
    lblAddOnManager.Visible.design(false);
    cmdStandardServer.Click.connect([this] { setStandardAddresses(); });
    ImgOK.Click.connect([this] {
        tellOfEmptiedBoxes(program_, *this);
        SaveFormINI(program_, *this);
        program_.windows.unload(*this);
    });
}

void frmResources::Form_Load() {
    const LangTable& text = program_.LangText;
    Caption = text(743);
    lblApps.Caption = text(104) + " (Plug-ins)";
    lblAddOns.Caption = text(106) + " (Add-ons)";
    lblOnlineHelp.Caption = text(112);
    cmdStandardServer.Caption = text(728);
    const bool managed = plainFileExists(program_, program_.inProgramFolder("qrmx.exe"));
    lblAddOnManager.Visible = managed;
    lblAddOns.Visible = !managed;
    txtAddOns.Visible = !managed;
    if (!LoadFormINI(program_, *this)) setStandardAddresses();
}

void frmResources::setStandardAddresses() {
    txtApps.setText(address::kApps);
    txtAddOns.setText(address::kAddOns);
    txtLang.setText(address::kLanguages);
    txtOnlineHelp.setText(address::kOnlineHelp);
    txtForum.setText(address::kForum);
    txtFacebook.setText(address::kFacebook);
    txtTwitter.setText(address::kTwitter);
    txtRegister.setText(address::kRegister);
}

}  // namespace tidvane::settings
