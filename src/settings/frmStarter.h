// The start page: welcome, news, community, maintenance of the settings, tips, licence, translator.
#pragma once

#include <string>

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::settings {

// Its controls are never stored, only its rectangle.
class frmStarter : public forms::Form {
public:
    static constexpr const char* kName = "frmStarter";

    explicit frmStarter(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    void ShowLangLine(const std::string& text);
    void ShowInfoLine(const std::string& text);

    // Full path of td_apps.ini, set at load.
    std::string appsFile;

    forms::TabStrip SSTab2{
        *this, "SSTab2", {"Willkommen", "Neuigkeiten", "Community", "Wartung", "Tipps", "Lizenz", "Übersetzer"}};

    // --- welcome
    forms::Label lblWelcome{*this, "lblWelcome", "Willkommen"};
    forms::Label lblWelcomeInfo{*this, "lblWelcomeInfo"};
    forms::Label lblOSInfo{*this, "lblOSInfo"};
    forms::Label lblWinSystem{*this, "lblWinSystem"};

    // --- news
    forms::Label lblCleanerNews{*this, "lblCleanerNews", "Neuigkeiten"};
    forms::TextBox txtInfoServer{*this, "txtInfoServer"};
    controls::isButton cmdInfoServer{*this, "cmdInfoServer", "Aktualisieren"};
    forms::Image ImgNewsIdle{*this, "ImgNewsIdle"};
    forms::Image ImgNewsBusy{*this, "ImgNewsBusy", false};

    // --- community
    forms::Label lblCleanerCommunity{*this, "lblCleanerCommunity", "Community"};
    forms::Label lblJoinCommunity{*this, "lblJoinCommunity", "Mitmachen"};
    controls::isButton cmdAppsCommunity{*this, "cmdAppsCommunity", "Anwendungen"};
    controls::isButton cmdAddOnsCommunity{*this, "cmdAddOnsCommunity", "Erweiterungen"};
    controls::isButton cmdLanguageCommunity{*this, "cmdLanguageCommunity", "*.lng"};
    controls::isButton cmdCreateAccount{*this, "cmdCreateAccount", "Konto anlegen"};
    forms::Label lblRateTidvane{*this, "lblRateTidvane", "Tidvane bewerten"};
    forms::ComboBox cboRateTidvane{*this, "cboRateTidvane"};
    controls::isButton cmdRateNow{*this, "cmdRateNow", "Jetzt bewerten"};
    controls::isButton cmdContactUs{*this, "cmdContactUs", "Kontakt"};
    controls::isButton cmdSupportForum{*this, "cmdSupportForum", "Forum"};
    controls::isButton cmdTellFriends{*this, "cmdTellFriends", "Weiterempfehlen"};
    controls::isButton cmdLikeTidvane{*this, "cmdLikeTidvane", "Gefällt mir"};
    controls::isButton cmdFollowTidvane{*this, "cmdFollowTidvane", "Folgen"};
    forms::Label lblHomepage{*this, "lblHomepage", "Homepage"};

    // --- maintenance
    forms::Label lblCleanerSpecial{*this, "lblCleanerSpecial", "Wartung"};
    forms::Label lblBackUpSettings{*this, "lblBackUpSettings", "Einstellungen sichern"};
    forms::OptionButton optCompleteBackUpSettings{*this, "optCompleteBackUpSettings", "backup", "Vollständig"};
    forms::OptionButton optPartialBackUpSettings{*this, "optPartialBackUpSettings", "backup", "Teilweise"};
    forms::CheckBox chkForceBackup{*this, "chkForceBackup", "In jedem Fall sichern"};
    forms::Label lblBackUpFolder{*this, "lblBackUpFolder", "Ordner:"};
    forms::TextBox txtBackUpSettingsPath{*this, "txtBackUpSettingsPath"};
    controls::isButton cmdBackUpFolderPath{*this, "cmdBackUpFolderPath", "..."};
    controls::isButton cmdBackUpSettings{*this, "cmdBackUpSettings", "Sichern"};
    forms::Image ImgBackedUp{*this, "ImgBackedUp", false};
    forms::Label lblOptimizeSettings{*this, "lblOptimizeSettings", "Einstellungen optimieren"};
    controls::isButton cmdOptimizeSettings{*this, "cmdOptimizeSettings", "Optimieren"};
    forms::Image ImgSettingsOptimized{*this, "ImgSettingsOptimized", false};
    forms::Label lblResetSettings{*this, "lblResetSettings", "Einstellungen zurücksetzen"};
    controls::isButton cmdResetSettings{*this, "cmdResetSettings", "Zurücksetzen"};
    forms::Label lblResetVersion{*this, "lblResetVersion", "Version:"};
    forms::TextBox txtResetSettingsPW{*this, "txtResetSettingsPW"};
    forms::Label lblResetSettingsInfo{*this, "lblResetSettingsInfo", "?"};
    controls::isButton cmdResetSettingsOK{*this, "cmdResetSettingsOK", "OK"};
    controls::isButton cmdResetSettingsCancel{*this, "cmdResetSettingsCancel", "X"};
    forms::Image ImgReseted{*this, "ImgReseted", false};

    // --- tips, licence, translator
    forms::Label lblCleanerTips{*this, "lblCleanerTips", "Tipps"};
    forms::Label lblGiveAccess{*this, "lblGiveAccess", "Zugriff geben"};
    forms::Label lblGiveAccessTip{*this, "lblGiveAccessTip"};
    forms::Label lblCleanerLicense{*this, "lblCleanerLicense", "Lizenz"};
    forms::TextBox txtLicense{*this, "txtLicense"};
    forms::Label lblCleanerTranslator{*this, "lblCleanerTranslator", "Übersetzer"};
    forms::TextBox txtLang{*this, "txtLang"};
    forms::Label lblTranslatorHomepage{*this, "lblTranslatorHomepage"};

    forms::Timer Timer2{*this, "Timer2", 500, true};

private:
    void open(const std::string& page);
    void loadLicense();
    void Timer2_Timer();

    settings::Program& program_;
    bool languageNamed_ = false;
};

}  // namespace tidvane::settings
