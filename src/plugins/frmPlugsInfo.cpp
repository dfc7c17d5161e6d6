#include "plugins/frmPlugsInfo.h"

#include "base/text.h"
#include "settings/addresses.h"
#include "settings/modFormINI.h"

namespace tidvane::plugins {

namespace {

// Fixed words, in every language. The first pair is found by its exact case: intended.
constexpr const char* kNotSpecified = "Not specified";
constexpr const char* kNotSpecifiedInGerman = "Keine Angabe";
constexpr const char* kEnableEnglish = "Enable English Description";
constexpr const char* kDisableEnglish = "Disable English Description";

constexpr const char* kSearchQuery = "/search?hl=en&lr=&ie=ISO-8859-1&q=";

}  // namespace

frmPlugsInfo::frmPlugsInfo(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Tidvane");  // until a plug-in gives it its title
    txtPlugEditor_g.Visible.design(false);
    chkEnableEnglishPlugsDesc.Click.connect([this] {
        chkEnableEnglishPlugsDesc.Caption = chkEnableEnglishPlugsDesc.ticked() ? kDisableEnglish : kEnableEnglish;
    });
    cmdAuthorsWebsite.Click.connect(
        [this] { (void)program_.platform.shell.ShellExecuteA("Open", txtAuthor.Text(), "", "", 1); });
    cmdPlugInfo.Click.connect([this] {
        // The title goes in as it is, not encoded: intended.
        (void)program_.platform.shell.ShellExecuteA(
            "open", std::string(settings::address::kWebSearch) + kSearchQuery + txtTitle.Text(), "", "", 1);
    });
    ImgOK.Click.connect([this] {
        settings::SaveFormINI(program_, *this);
        program_.windows.unload(*this);
    });
}

void frmPlugsInfo::Form_Load() {
    const settings::LangTable& text = program_.LangText;
    lblTitle.Caption = text(475);
    lblAuthor.Caption = text(476);
    lblDesc.Caption = text(477);
    cmdPlugInfo.Caption = text(486);
    cmdAuthorsWebsite.Caption = text(487);
    (void)settings::LoadFormINI(program_, *this);
}

void frmPlugsInfo::escape() {
    program_.windows.unload(*this);
}

void frmPlugsInfo::fill(dPlugCleaner& plugIn) {
    Caption = plugIn.PlugTitle();
    txtTitle.setText(plugIn.PlugTitle());
    txtAuthor.setText(plugIn.PlugAuthor());
    if (chkEnableEnglishPlugsDesc.ticked()) {
        txtDesc.setText(plugIn.PlugDescriptionEnglish());
        lblWarning.Caption = plugIn.PlugWarningEnglish();
        return;
    }
    txtDesc.setText(plugIn.PlugDescription());
    lblWarning.Caption = plugIn.PlugWarning();
    for (forms::TextBox* box : {&txtAuthor, &txtDesc}) {
        box->setText(base::replaceAll(box->Text(), kNotSpecified, kNotSpecifiedInGerman));
    }
}

}  // namespace tidvane::plugins
