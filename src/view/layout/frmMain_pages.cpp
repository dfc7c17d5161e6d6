// The pages of plug-ins, of extensions and about the program.
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checklst.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include "forms/system_colours.h"
#include "view/binding/bindings.h"
#include "view/icons.h"
#include "view/layout/frmMain_parts.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr int kWrap = 460;  // device-independent pixels: what fits into the smallest window
constexpr int kLanguageFile = 998;
constexpr int kNoExtensions = 850;

// A click into the box takes the hint away. Who comes with the keyboard has no mouse to click with: coming to the hint
// counts as one.
void bindSearchBox(FormWindow& window, app::frmMain& form, wxWindow* box) {
    window.on(box, wxEVT_LEFT_UP, [&form](wxMouseEvent& event) {
        event.Skip();
        form.searchBoxClick();
    });
    window.on(box, wxEVT_SET_FOCUS, [&form](wxFocusEvent& event) {
        event.Skip();
        if (form.txtSearchPlugs.ForeColor == forms::kWindowText && wxGetKeyState(WXK_TAB)) form.searchBoxClick();
    });
    window.on(box, wxEVT_TEXT_ENTER, [&form](wxCommandEvent&) {
        constexpr char32_t kEnter = 13;
        form.searchBoxKeyPress(kEnter);
    });
    window.whenever(form.txtSearchPlugs, [&form, box] {
        const bool hint = form.txtSearchPlugs.ForeColor == forms::kWindowText;
        const wxColour wanted = hint ? wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT) : wxNullColour;
        if (box->GetForegroundColour() != wanted) box->SetForegroundColour(wanted);
    });
}

void bindPlugList(FormWindow& window, app::frmMain& form, wxWindow* widget) {
    window.rowMenu(form.LstPlugs, [&form] { form.plugListRightClick(); });
    window.on(widget, wxEVT_MOTION, [&form](wxMouseEvent& event) {
        event.Skip();
        form.plugListMouseMove();
    });
}

}  // namespace

void makePlugInsPage(FormWindow& window, app::frmMain& form, wxPanel* page) {
    wxWindow* heading = makePageHeading(window, page, form.menu("mnuApps"));
    wxWindow* box = window.entry(page, form.txtSearchPlugs, &form.cmdSearch);
    wxWindow* search = window.button(page, form.cmdSearch, "search");
    wxWindow* list = window.list(page, form.LstPlugs, false, &form.menu("mnuApps"));
    list->SetMinSize(page->FromDIP(wxSize(200, 80)));
    bindSearchBox(window, form, box);
    bindPlugList(window, form, list);
    wxWindow* run = window.button(page, form.menu("mnuCleanPlugNow"), "play");
    wxWindow* info = window.button(page, form.menu("mnuPlugInfo"), "info");
    fillWindow(page, column(page, {cell(heading), cell(row(page, {fill(box), cell(search)})), fill(list),
                                   cell(row(page, {cell(run), rest(), cell(info)}))}));
}

void makeExtensionsPage(FormWindow& window, app::frmMain& form, wxPanel* page) {
    wxWindow* heading = makePageHeading(window, page, form.menu("mnuAddOns"));
    wxStaticText* nothing = makeText(window, page, form, kNoExtensions, form.menu("mnuAddOns"));
    wxWindow* categories = window.combo(page, form.cboExtensionsCat, false, &form.menu("mnuAddOns"));
    categories->SetMinSize(page->FromDIP(wxSize(180, -1)));
    wxWindow* list = window.listView(page, form.lstExtensions, false, false, &form.menu("mnuAddOns"));
    list->SetMinSize(page->FromDIP(wxSize(200, 80)));
    fillWindow(page,
               column(page, {cell(row(page, {cell(heading), rest(), cell(categories)})), fill(list), cell(nothing)}));
}

void makeAboutPage(FormWindow& window, app::frmMain& form, wxPanel* page) {
    auto* about = new wxScrolledWindow(page, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL);
    about->SetScrollRate(0, page->FromDIP(12));
    auto* mark = new wxStaticBitmap(about, wxID_ANY, icon("program"));
    wxStaticText* product = window.label(about, form.lblProductName, 0, true);
    product->SetFont(product->GetFont().Scaled(1.8F));
    wxStaticText* version = window.label(about, form.lblVersion);
    wxStaticText* language = makeText(window, about, form, kLanguageFile, form.lblLangVersion, ":");
    wxStaticText* languageVersion = window.label(about, form.lblLangVersion);
    wxWindow* homepage = window.link(about, form.lblTranslatorHomepage);
    wxStaticText* commandLine = window.label(about, form.lblCommandLine, 0, true);
    wxStaticText* automatic = window.label(about, form.lblCommandLineAuto, kWrap);
    wxStaticText* silent = window.label(about, form.lblCommandLineSilent, kWrap);
    wxWindow* licence = window.button(about, form.cmdLicense, "info");
    constexpr int kIconGap = 16;
    fillWindow(
        about,
        column(about, {cell(row(about, {cell(mark), cell(column(about, {cell(product), cell(version)}, 2))}, kIconGap)),
                       gap(kGap), cell(row(about, {cell(language), cell(languageVersion)})), cell(homepage), gap(kGap),
                       cell(commandLine), cell(automatic), cell(silent), gap(kGap), cell(licence)}));
    fillWindow(page, column(page, {fill(about)}), 0);
}

}  // namespace tidvane::view
