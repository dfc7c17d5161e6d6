#include "settings/frmStarter.h"

#include <algorithm>
#include <array>

#include "settings/addresses.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "settings/modOS.h"

namespace tidvane::settings {

namespace {

constexpr const char* kSection = "WindowStateStarter";

// Bytes of the licence between two looks at what the user does.
constexpr std::size_t kLicenseBlock = 4096;

}  // namespace

frmStarter::frmStarter(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Tidvane");
    optCompleteBackUpSettings.design(true);
    for (forms::Control* control :
         std::initializer_list<forms::Control*>{&lblResetVersion, &txtResetSettingsPW, &lblResetSettingsInfo,
                                                &cmdResetSettingsOK, &cmdResetSettingsCancel}) {
        control->Visible.design(false);
    }
    // Still to be built.
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &cmdInfoServer, &cmdAppsCommunity, &cmdAddOnsCommunity, &cmdLanguageCommunity, &cmdCreateAccount,
             &cmdRateNow, &cmdContactUs, &cmdSupportForum, &cmdTellFriends, &cmdLikeTidvane, &cmdFollowTidvane,
             &cmdBackUpFolderPath, &cmdBackUpSettings, &cmdOptimizeSettings, &cmdResetSettings}) {
        forms::designedOff(*control);
    }
    lblHomepage.Click.connect([this] { open(address::kHomepage); });
    lblTranslatorHomepage.Click.connect([this] { open(program_.LangText(997)); });
    Timer2.Tick.connect([this] { Timer2_Timer(); });
}

void frmStarter::Form_Load() {
    const LangTable& text = program_.LangText;
    // The first page greets before the first run only.
    SSTab2.setTabEnabled(0, !plainFileExists(program_, program_.inProgramFolder("td_last.dat")));
    appsFile = program_.inProgramFolder("td_apps.ini");
    loadWindowNumbers(program_, kSection, rectangleOf(*this), State == forms::WindowState::Minimized);

    lblWelcome.Caption = text(151);
    lblWelcomeInfo.Caption = text(150);
    captionWindow(program_, *this);

    if (!program_.get<frmMoreToConfigure>().chkInfoServer.ticked()) {
        txtInfoServer.setText(text(399) + " (Offline)");
        ImgNewsIdle.Visible = false;
        ImgNewsBusy.Visible = true;
    }

    for (const char* page : address::kRatings) cboRateTidvane.AddItem(page);
    ShowLangLine("Loading ...");
    loadLicense();

    const bool newest = windowsCode(program_) == 11;
    lblOSInfo.Caption = newest ? "Full support for" : "Even more efficient with";
    lblWinSystem.Caption = newest ? "Windows 8" : "Windows 7";
}

void frmStarter::Form_Unload() {
    saveWindowNumbers(program_, kSection, rectangleOf(*this));
}

void frmStarter::open(const std::string& page) {
    (void)program_.platform.shell.ShellExecuteA("open", page, "", "", 1);
}

void frmStarter::ShowLangLine(const std::string& text) {
    txtLang.setText(txtLang.Text() + text + "\r\n");
}

void frmStarter::ShowInfoLine(const std::string& text) {
    txtInfoServer.setText(txtInfoServer.Text() + text + "\r\n");
}

void frmStarter::loadLicense() {
    std::string bytes;
    // Ignored on purpose: without the file the box stays empty.
    (void)program_.platform.files.ReadFileBytes(program_.inProgramFolder("License.txt"), bytes);
    for (std::size_t done = 0; done < bytes.size(); done += kLicenseBlock) {
        txtLicense.caretToEnd();
        txtLicense.setSelText(program_.codePage().toUtf8(std::string_view(bytes).substr(done, kLicenseBlock)));
        program_.platform.events.DoEvents();
    }
    // It is read from its beginning.
    txtLicense.select(0, 0);
}

void frmStarter::Timer2_Timer() {
    const LangTable& text = program_.LangText;
    if (languageNamed_) {
        ShowLangLine(text(999));
        Timer2.Enabled = false;
        return;
    }
    languageNamed_ = true;
    std::string first;
    if (forms::Form* main = program_.windows.ifLoaded("frmMain")) {
        const forms::Control* control = main->control("File1");
        if (control != nullptr && control->kind == forms::ControlKind::FileList) {
            const auto& list = static_cast<const forms::FileList&>(*control);
            // The first one, also where a later one is in force: intended.
            if (list.ListCount() > 0) first = list.List.front();
        }
    }
    txtLang.setText({});
    ShowLangLine(text(998) + ": " + first);
}

}  // namespace tidvane::settings
