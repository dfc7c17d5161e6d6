// The extended settings: theme, custom application, direct update, information server.
#pragma once

#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/addresses.h"
#include "settings/program.h"

namespace tidvane::settings {

// Read directly by the other windows. What is switched off here is what each box switches off when it is not ticked.
class frmMoreToConfigure : public forms::Form {
public:
    static constexpr const char* kName = "frmMoreToConfigure";

    explicit frmMoreToConfigure(settings::Program& program);

    void Form_Load() override;

    // The pointer moves over a control: some show what they hold.
    void Form_MouseMove(forms::Control& over);

    forms::TabStrip SSTab1{*this, "SSTab1", {"Tidvane", "Update", "Information"}};
    forms::Label lblTuneUp{*this, "lblTuneUp", "Erweiterte Einstellungen"};
    controls::isButton cmdMoreToConfigure{*this, "cmdMoreToConfigure", "Erweiterte Einstellungen"};

    forms::Label lblTheme{*this, "lblTheme", "Farben:"};
    forms::ComboBox cboTheme{*this, "cboTheme"};
    controls::isButton cmdChangeTheme{*this, "cmdChangeTheme", "Design ändern"};
    forms::Label lblThemeR{*this, "lblThemeR", "R"};
    forms::TextBox CustomThemeR{*this, "CustomThemeR", "R"};
    forms::Label lblThemeG{*this, "lblThemeG", "G"};
    forms::TextBox CustomThemeG{*this, "CustomThemeG", "G"};
    forms::Label lblThemeB{*this, "lblThemeB", "B"};
    forms::TextBox CustomThemeB{*this, "CustomThemeB", "B"};
    forms::Image PicRGBThemeMix{*this, "PicRGBThemeMix", false};
    forms::CheckBox chkOpenOneGroupOnly{*this, "chkOpenOneGroupOnly", "Immer nur eine Gruppe öffnen"};
    forms::CheckBox chkDisksizeInfo{*this, "chkDisksizeInfo", "Ergebnis nach dem Reinigen zeigen"};

    forms::CheckBox chkEnableCustomApp{*this, "chkEnableCustomApp", "Eigene Anwendung verwenden"};
    forms::Label lblCustomAppPath{*this, "lblCustomAppPath", "Programm:"};
    forms::TextBox txtCustomAppPath{*this, "txtCustomAppPath"};
    controls::isButton cmdCustomApp{*this, "cmdCustomApp", "..."};
    forms::Label lblCustomAppParameter{*this, "lblCustomAppParameter", "Parameter:"};
    forms::TextBox txtCustomAppCommandlineParameter{*this, "txtCustomAppCommandlineParameter", "/"};
    forms::CheckBox chkRunCustomAppAfterTidvane{*this, "chkRunCustomAppAfterTidvane", "Nach dem Reinigen starten"};

    forms::CheckBox chkEnableAutoUpdate{*this, "chkEnableAutoUpdate", "Aktualisierung direkt herunterladen"};
    forms::Label lblUpdateLocation{*this, "lblUpdateLocation", "Adresse:"};
    forms::TextBox txtUpdateLocation{*this, "txtUpdateLocation", address::kSetup};
    forms::Label lblUpdateIntDelay{*this, "lblUpdateIntDelay", "ms"};
    forms::TextBox txtUpdateIntDelay{*this, "txtUpdateIntDelay", "2000"};
    forms::CheckBox chkOpenChangelogAfterUpdate{*this, "chkOpenChangelogAfterUpdate", "Danach die Änderungen zeigen"};
    forms::Label lblChangelogServer{*this, "lblChangelogServer", "Änderungen:"};
    forms::ComboBox cboChangelogServer{*this, "cboChangelogServer"};
    forms::Image ImgUpdateGerman{*this, "ImgUpdateGerman"};
    forms::Image ImgUpdateEnglish{*this, "ImgUpdateEnglish", false};

    forms::CheckBox chkInfoServer{*this, "chkInfoServer", "Informationsserver verwenden"};
    forms::Label lblInfoServer{*this, "lblInfoServer", "Adresse:"};
    forms::TextBox txtInfoServer{*this, "txtInfoServer", address::kNews};
    forms::Label lblReset3{*this, "lblReset3", "Reset"};
    forms::CheckBox chkAutoStartInfoServer{*this, "chkAutoStartInfoServer", "Neuigkeiten bei jedem Start zeigen"};
    forms::Label lblCommunityMenu{*this, "lblCommunityMenu", "Menüeintrag"};
    forms::ComboBox cboCommunityMenu{*this, "cboCommunityMenu"};

    forms::Image ImgOK{*this, "ImgOK"};
    forms::Timer Timer1{*this, "Timer1", 100, true};

private:
    void cboTheme_Change();
    void chkEnableCustomApp_Click();
    void chkEnableAutoUpdate_Click();
    void chkInfoServer_Click();
    void cmdCustomApp_Click();
    void Timer1_Timer();
    void setFirstStart();

    settings::Program& program_;
};

// Gives a pane that is being built the theme that is chosen here.
void applyChosenTheme(Program& program, controls::ExplorerBar& pane, bool mainPane);

}  // namespace tidvane::settings
