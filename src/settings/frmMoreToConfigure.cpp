#include "settings/frmMoreToConfigure.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "settings/sentences.h"
#include "settings/themes.h"

namespace tidvane::settings {

namespace {

constexpr unsigned kInfoColour = 0x80000018u;    // the system's tool tip background
constexpr unsigned kWindowColour = 0x80000005u;  // the system's window background
constexpr unsigned kTrustedColour = 0xC0FFC0u;
constexpr unsigned kWhite = 0xFFFFFFu;
constexpr const char* kTrustedTip = "This Cleaner you can Trust.";

// Programs that a user may be told to trust, as they stand in a path.
constexpr std::array kTrustedCleaners = {
    "CCleaner", "BleachBit",           "SlimCleaner", "Wise Disk Cleaner", "Glary Utilities", "System Ninja",
    "FCleaner", "Advanced SystemCare", "JetClean",    "ClearProg",         "AppCleaner",
};

}  // namespace

frmMoreToConfigure::frmMoreToConfigure(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Erweiterte Einstellungen");
    chkDisksizeInfo.Value.design(1);
    txtInfoServer.BackColor.design(kWindowColour);
    forms::designedOff(cmdChangeTheme);
    for (forms::TextBox* box : {&CustomThemeR, &CustomThemeG, &CustomThemeB}) {
        forms::designedOff(*box).Visible.design(false);
        box->GotFocus.connect([box] { box->setText({}); });
    }
    for (forms::Label* label : {&lblThemeR, &lblThemeG, &lblThemeB}) label->Visible.design(false);
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &txtCustomAppPath, &cmdCustomApp, &txtCustomAppCommandlineParameter, &chkRunCustomAppAfterTidvane,
             &txtUpdateLocation, &txtUpdateIntDelay, &chkOpenChangelogAfterUpdate, &cboChangelogServer, &txtInfoServer,
             &chkAutoStartInfoServer}) {
        forms::designedOff(*control);
    }
    txtUpdateIntDelay.keyFilter = forms::numericKey;

    cboTheme.Change.connect([this] { cboTheme_Change(); });
    chkEnableCustomApp.Click.connect([this] { chkEnableCustomApp_Click(); });
    chkEnableAutoUpdate.Click.connect([this] { chkEnableAutoUpdate_Click(); });
    chkOpenChangelogAfterUpdate.Click.connect(
        [this] { cboChangelogServer.Enabled = chkOpenChangelogAfterUpdate.ticked(); });
    chkInfoServer.Click.connect([this] { chkInfoServer_Click(); });
    cmdChangeTheme.Click.connect([this] {
        if (program_.platform.processes.CreateProcessA("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,,2", 1))
            return;
        (void)program_.MsgBox(sentence(program_, Sentence::ProgramCannotStart, {"rundll32.exe"}),
                              forms::msgbox::Exclamation, "Tidvane");
    });
    cmdCustomApp.Click.connect([this] { cmdCustomApp_Click(); });
    lblReset3.Click.connect([this] { txtInfoServer.setText(address::kNews); });
    ImgOK.Click.connect([this] {
        tellOfEmptiedBoxes(program_, *this);
        if (cboChangelogServer.ListIndex() < 0) {
            program_.display.warn(sentence(program_, Sentence::NoPageOfTheList, {cboChangelogServer.Text()}));
        }
        SaveFormINI(program_, *this);
        program_.windows.unload(*this);
    });
    Timer1.Tick.connect([this] { Timer1_Timer(); });
}

void frmMoreToConfigure::Form_Load() {
    const LangTable& text = program_.LangText;
    cboChangelogServer.setText(address::kChangelogs.front());
    for (const char* changelog : address::kChangelogs) cboChangelogServer.AddItem(changelog);
    for (const std::string& row : {text(159), std::string("Homepage"), text(172), text(171)}) {
        cboCommunityMenu.AddItem(row);
    }
    cboCommunityMenu.setListIndex(0);
    txtCustomAppPath.setText(program_.programDirectory());

    Caption = text(389);
    captionWindow(program_, *this);

    cboTheme.setText("Default");
    for (const char* theme : kThemeNames) cboTheme.AddItem(theme);

    if (!LoadFormINISkippingErrors(program_, *this)) setFirstStart();
    // Stored by position: of a typed page nothing is left.
    if (cboChangelogServer.ListIndex() < 0) cboChangelogServer.setListIndex(0);
}

void frmMoreToConfigure::setFirstStart() {
    cboTheme.setText("Default");
    CustomThemeR.setText("R");
    CustomThemeG.setText("G");
    CustomThemeB.setText("B");
    chkOpenOneGroupOnly.Value = 0;
    chkDisksizeInfo.Value = 1;
    chkEnableCustomApp.Value = 0;
    txtCustomAppPath.setText(program_.programDirectory());
    txtCustomAppCommandlineParameter.setText("/");
    chkRunCustomAppAfterTidvane.Value = 0;
    chkEnableAutoUpdate.Value = 0;
    txtUpdateLocation.setText(address::kSetup);
    txtUpdateIntDelay.setText("2000");
    chkOpenChangelogAfterUpdate.Value = 0;
    cboChangelogServer.setListIndex(0);
    chkInfoServer.Value = 0;
    txtInfoServer.setText(address::kNews);
    chkAutoStartInfoServer.Value = 0;
    cboCommunityMenu.setListIndex(0);
}

void frmMoreToConfigure::cboTheme_Change() {
    const std::string& theme = cboTheme.Text();
    cmdChangeTheme.Enabled = theme == "Desktop" || theme == "Windows";
    const bool custom = theme == "Custom";
    for (forms::TextBox* box : {&CustomThemeR, &CustomThemeG, &CustomThemeB}) {
        box->Visible = custom;
        box->Enabled = custom;
    }
    for (forms::Label* label : {&lblThemeR, &lblThemeG, &lblThemeB}) label->Visible = custom;
    PicRGBThemeMix.Visible = custom;
}

void frmMoreToConfigure::chkEnableCustomApp_Click() {
    const bool on = chkEnableCustomApp.ticked();
    txtCustomAppPath.Enabled = on;
    cmdCustomApp.Enabled = on;
    txtCustomAppCommandlineParameter.Enabled = on;
    chkRunCustomAppAfterTidvane.Enabled = on;
}

void frmMoreToConfigure::chkEnableAutoUpdate_Click() {
    const bool on = chkEnableAutoUpdate.ticked();
    txtUpdateLocation.Enabled = on;
    txtUpdateIntDelay.Enabled = on;
    chkOpenChangelogAfterUpdate.Enabled = on;
    if (on) return;
    chkOpenChangelogAfterUpdate.Value = 0;
    cboChangelogServer.Enabled = false;
}

void frmMoreToConfigure::chkInfoServer_Click() {
    const bool on = chkInfoServer.ticked();
    if (!on) chkAutoStartInfoServer.Value = 0;
    chkAutoStartInfoServer.Enabled = on;
    txtInfoServer.Enabled = on;
    txtInfoServer.BackColor = on ? kInfoColour : kWindowColour;
}

void frmMoreToConfigure::cmdCustomApp_Click() {
    forms::FileQuestion question;
    question.filter = "Alle Dateien (*.*)|*.*";
    question.initialFolder = program_.programFolder().substr(0, 3);  // "C:\"
    const std::string file = program_.display.askFile(question);
    if (file.empty()) return;
    txtCustomAppPath.setText(file);
    txtCustomAppCommandlineParameter.setText("/");
}

void frmMoreToConfigure::Form_MouseMove(forms::Control& over) {
    if (&over == &txtCustomAppPath) {
        over.ToolTipText = txtCustomAppPath.Text();
    } else if (&over == &txtCustomAppCommandlineParameter) {
        over.ToolTipText = program_.LangText(990) + " " + txtCustomAppCommandlineParameter.Text();
    } else if (&over == &txtUpdateLocation) {
        over.ToolTipText = "Update Location (Direct link to Setup/Portable/EXE)";
    }
}

void frmMoreToConfigure::Timer1_Timer() {
    const std::string& path = txtCustomAppPath.Text();
    const bool trusted = std::any_of(kTrustedCleaners.begin(), kTrustedCleaners.end(),
                                     [&](const char* name) { return path.find(name) != std::string::npos; });
    txtCustomAppPath.BackColor = trusted ? kTrustedColour : kWhite;
    if (trusted) {
        txtCustomAppPath.ToolTipText = kTrustedTip;
    } else if (txtCustomAppPath.ToolTipText.get() == kTrustedTip) {
        txtCustomAppPath.ToolTipText = path;  // of another path by now
    }

    const auto& pages = cboChangelogServer.rows();
    const auto page = std::find(pages.begin(), pages.end(), cboChangelogServer.Text());
    if (page != pages.end()) {  // a typed address leaves the flags as they are
        ImgUpdateGerman.Visible = page == pages.begin();
        ImgUpdateEnglish.Visible = page != pages.begin();
    }

    const auto colour = mixedColour(CustomThemeR.Text(), CustomThemeG.Text(), CustomThemeB.Text(), program_.locale());
    if (colour) PicRGBThemeMix.BackColor = *colour;
}

void applyChosenTheme(Program& program, controls::ExplorerBar& pane, bool mainPane) {
    const auto& window = program.get<frmMoreToConfigure>();
    const auto number = [&](const forms::TextBox& box) -> int {
        return base::toInt16(box.Text(), program.locale()).value_or(-1);
    };
    applyTheme(pane, window.cboTheme.Text(), mainPane, number(window.CustomThemeR), number(window.CustomThemeG),
               number(window.CustomThemeB));
}

}  // namespace tidvane::settings
