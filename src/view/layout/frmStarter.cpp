#include "settings/frmStarter.h"

#include <wx/bookctrl.h>
#include <wx/statbmp.h>

#include <array>

#include "view/form_window.h"
#include "view/icons.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {

using settings::frmStarter;

constexpr int kTextWidth = 460;  // device-independent pixels
constexpr int kMark = 64;
constexpr int kSmallMark = 24;

wxWindow* longText(FormWindow& window, wxWindow* page, forms::TextBox& box, const forms::Control& label) {
    wxWindow* text = window.lines(page, box, {.readOnly = true, .wrap = true}, &label);
    text->SetMinSize(page->FromDIP(wxSize(kTextWidth, 200)));
    return text;
}

void layWelcome(FormWindow& window, frmStarter& form, wxPanel* page) {
    auto* mark = new wxStaticBitmap(page, wxID_ANY, icon("program", wxSize(kMark, kMark)));
    auto* title = window.label(page, form.lblWelcome);
    title->SetFont(title->GetFont().Bold().Scaled(1.4F));
    wxWindow* text = window.label(page, form.lblWelcomeInfo, kTextWidth);
    wxWindow* support = window.label(page, form.lblOSInfo);
    wxWindow* system = window.label(page, form.lblWinSystem, 0, true);
    auto* right =
        column(page, {cell(title), cell(text), gap(kGap), cell(row(page, {cell(support), cell(system)}, kGap / 2))});
    auto* both = new wxBoxSizer(wxHORIZONTAL);
    both->Add(mark, 0, wxRIGHT, page->FromDIP(2 * kGap));
    both->Add(right, 1);
    fillWindow(page, both);
}

void layNews(FormWindow& window, frmStarter& form, wxPanel* page) {
    const wxSize size(32, 32);
    wxWindow* idle = window.image(page, form.ImgNewsIdle, "ImgNewsIdle", size);
    wxWindow* busy = window.image(page, form.ImgNewsBusy, "ImgNewsBusy", size);
    wxWindow* heading = window.label(page, form.lblCleanerNews, 0, true);
    wxWindow* text = longText(window, page, form.txtInfoServer, form.lblCleanerNews);
    wxWindow* again = window.button(page, form.cmdInfoServer, "reset");
    fillWindow(page, column(page, {cell(row(page, {cell(idle), cell(busy), cell(heading)})), fill(text),
                                   cell(row(page, {rest(), cell(again)}))}));
}

void layCommunity(FormWindow& window, frmStarter& form, wxPanel* page) {
    wxWindow* heading = window.label(page, form.lblCleanerCommunity, 0, true);
    wxWindow* join = window.label(page, form.lblJoinCommunity);
    // Pages of the project, three abreast.
    constexpr int kAbreast = 3;
    auto* grid = new wxFlexGridSizer(kAbreast, page->FromDIP(wxSize(kGap, kGap)));
    for (int at = 0; at < kAbreast; ++at) grid->AddGrowableCol(static_cast<std::size_t>(at), 1);
    for (controls::isButton* button : {&form.cmdAppsCommunity, &form.cmdAddOnsCommunity, &form.cmdLanguageCommunity,
                                       &form.cmdCreateAccount, &form.cmdSupportForum, &form.cmdContactUs,
                                       &form.cmdTellFriends, &form.cmdLikeTidvane, &form.cmdFollowTidvane}) {
        grid->Add(window.button(page, *button), 0, wxEXPAND);
    }
    wxWindow* rateLabel = window.label(page, form.lblRateTidvane);
    wxWindow* rate = window.combo(page, form.cboRateTidvane, false, &form.lblRateTidvane);
    wxWindow* now = window.button(page, form.cmdRateNow);
    wxWindow* home = window.link(page, form.lblHomepage);
    fillWindow(page, column(page, {cell(heading), cell(join), cell(grid), gap(kGap),
                                   cell(row(page, {cell(rateLabel), fill(rate), cell(now)})), gap(kGap), cell(home)}));
}

// A command with what it does above it, and a mark once it is done.
wxSizer* command(FormWindow& window, wxWindow* page, forms::Label& about, controls::isButton& button, const char* icon,
                 forms::Image& done) {
    wxWindow* text = window.label(page, about, kTextWidth);
    wxWindow* press = window.button(page, button, icon);
    return column(
        page,
        {cell(text),
         cell(row(page, {cell(press), cell(window.image(page, done, done.Name, wxSize(kSmallMark, kSmallMark)))}))});
}

void layMaintenance(FormWindow& window, frmStarter& form, wxPanel* page) {
    wxWindow* heading = window.label(page, form.lblCleanerSpecial, 0, true);
    wxWindow* about = window.label(page, form.lblBackUpSettings, kTextWidth);
    wxWindow* complete = window.option(page, form.optCompleteBackUpSettings);
    wxWindow* partial = window.option(page, form.optPartialBackUpSettings);
    wxWindow* folderLabel = window.label(page, form.lblBackUpFolder);
    wxWindow* folder = window.entry(page, form.txtBackUpSettingsPath, &form.lblBackUpFolder);
    wxWindow* browse = window.button(page, form.cmdBackUpFolderPath, "folder");
    wxWindow* force = window.check(page, form.chkForceBackup);
    wxWindow* backUp = window.button(page, form.cmdBackUpSettings, "save");
    wxWindow* backedUp = window.image(page, form.ImgBackedUp, "ImgBackedUp", wxSize(kSmallMark, kSmallMark));
    auto* copy = column(page, {cell(about), cell(complete), cell(partial),
                               cell(row(page, {cell(folderLabel), fill(folder), cell(browse)})), cell(force),
                               cell(row(page, {cell(backUp), cell(backedUp)}))});
    auto* renew = command(window, page, form.lblOptimizeSettings, form.cmdOptimizeSettings, "settings",
                          form.ImgSettingsOptimized);
    auto* reset = command(window, page, form.lblResetSettings, form.cmdResetSettings, "reset", form.ImgReseted);
    // The confirmation of the reset, while it is asked for.
    wxWindow* versionLabel = window.label(page, form.lblResetVersion);
    wxWindow* version = window.entry(page, form.txtResetSettingsPW, &form.lblResetVersion);
    auto* confirm =
        row(page, {cell(versionLabel), cell(version), cell(window.button(page, form.cmdResetSettingsOK, "ok")),
                   cell(window.button(page, form.cmdResetSettingsCancel, "cancel")),
                   cell(window.link(page, form.lblResetSettingsInfo))});
    fillWindow(
        page, column(page, {cell(heading), cell(copy), gap(kGap), cell(renew), gap(kGap), cell(reset), cell(confirm)}));
}

void layTips(FormWindow& window, frmStarter& form, wxPanel* page) {
    wxWindow* heading = window.label(page, form.lblCleanerTips, 0, true);
    wxWindow* access = window.label(page, form.lblGiveAccess, 0, true);
    wxWindow* tip = window.label(page, form.lblGiveAccessTip, kTextWidth);
    fillWindow(page, column(page, {cell(heading), gap(kGap), cell(access), cell(tip)}));
}

void layLicense(FormWindow& window, frmStarter& form, wxPanel* page) {
    wxWindow* heading = window.label(page, form.lblCleanerLicense, 0, true);
    fillWindow(page,
               column(page, {cell(heading), fill(longText(window, page, form.txtLicense, form.lblCleanerLicense))}));
}

void layTranslator(FormWindow& window, frmStarter& form, wxPanel* page) {
    wxWindow* heading = window.label(page, form.lblCleanerTranslator, 0, true);
    wxWindow* text = longText(window, page, form.txtLang, form.lblCleanerTranslator);
    wxWindow* home = window.link(page, form.lblTranslatorHomepage);
    fillWindow(page, column(page, {cell(heading), fill(text), cell(home)}));
}

constexpr std::array kPages{layWelcome, layNews, layCommunity, layMaintenance, layTips, layLicense, layTranslator};

}  // namespace

void layoutFrmStarter(FormWindow& window) {
    auto& form = static_cast<frmStarter&>(window.form());
    wxPanel* body = window.body();
    wxBookCtrlBase* tabs = window.tabs(body, form.SSTab2);
    for (const auto& lay : kPages) lay(window, form, window.page(tabs));
    fillWindow(body, column(body, {fill(tabs)}));
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
