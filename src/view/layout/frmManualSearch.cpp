#include "tools/frmManualSearch.h"

#include <utility>

#include "view/form_window.h"
#include "view/layout/all.h"
#include "view/painters/banner.h"

namespace tidvane::view {

namespace {
constexpr int kTextWidth = 400;
}

void layoutFrmManualSearch(FormWindow& window) {
    auto& form = static_cast<tools::frmManualSearch&>(window.form());
    wxPanel* body = window.body();
    auto* side = new Banner(body, "wizard-side", wxSize(128, 320));

    // The three pages lie in one place; the form shows one of them at a time.
    const auto wizard = window.section(body, form.frmWizard);
    wxWindow* pages = wizard.panel;
    const auto type = window.section(pages, form.frmWizardStep1, false);
    wxWindow* panel = type.panel;
    type.content->Add(column(panel, {cell(window.label(panel, form.lblStep1, kTextWidth, true)),
                                     cell(window.label(panel, form.lblInfo1, kTextWidth)),
                                     wide(window.entry(panel, form.txtSearchMask, &form.lblInfo1)),
                                     cell(window.label(panel, form.lblDetails1, kTextWidth))}),
                      1, wxEXPAND);

    const auto place = window.section(pages, form.frmWizardStep2, false);
    panel = place.panel;
    wxWindow* stepTwo = window.label(panel, form.lblStep2, kTextWidth, true);
    wxWindow* where = window.label(panel, form.lblInfo2, kTextWidth);
    wxWindow* all = window.check(panel, form.chkScanAllFixedDrives);
    wxWindow* folder = window.entry(panel, form.txtFolderScanPath, &form.lblInfo2);
    wxWindow* browse = window.button(panel, form.cmdFolderScan, "folder");
    place.content->Add(
        column(panel, {cell(stepTwo), cell(where), cell(all), cell(row(panel, {fill(folder), cell(browse)})),
                       cell(window.label(panel, form.lblDetails2, kTextWidth))}),
        1, wxEXPAND);

    const auto result = window.section(pages, form.frmWizardStepFinal);
    wxWindow* log =
        window.lines(result.panel, form.txtLog, {.readOnly = true, .selection = true}, &form.frmWizardStepFinal);
    log->SetMinSize(body->FromDIP(wxSize(kTextWidth, 200)));
    result.content->Add(log, 1, wxEXPAND);

    wizard.content->Add(type.panel, 1, wxEXPAND);
    wizard.content->Add(place.panel, 1, wxEXPAND);
    wizard.content->Add(result.panel, 1, wxEXPAND);

    wxWindow* stop = window.button(body, form.cmdStop, "stop");
    wxWindow* back = window.button(body, form.cmdBack, "back");
    wxWindow* next = window.button(body, form.cmdNext, "next");
    wxWindow* search = window.button(body, form.cmdSearch, "search");
    wxWindow* close = window.button(body, form.cmdOK, "ok");
    wxWindow* cancel = window.button(body, form.cmdCancel, "cancel");
    wxBoxSizer* foot =
        row(body, {cell(stop), gap(2 * kGap), rest(), cell(back), cell(next), cell(search), cell(close), cell(cancel)});
    auto* page = new wxBoxSizer(wxVERTICAL);
    page->Add(column(body, {fill(pages), cell(foot)}, 2 * kGap), 1, wxEXPAND | wxALL, body->FromDIP(kEdge));
    body->SetSizer(row(body, {wide(side), fill(page)}, 0));
    window.statusBar(form.StatusBar1, {-1, 80, 150});

    // Enter goes on: to the next page, to the search, and behind it to the end.
    const auto usual = [&window, &form, next, search, close] {
        window.defaultButton(form.cmdNext.Visible ? next : form.cmdSearch.Enabled ? search : close);
    };
    window.whenever(form.cmdNext, usual);
    window.whenever(form.cmdSearch, usual);
    // A new page begins where its user goes on: in the folder, and at the button that stops the walk.
    window.whenever(form.frmWizardStep2, [&form, folder, all, seen = false]() mutable {
        if (std::exchange(seen, form.frmWizardStep2.Visible.get()) || !seen) return;
        (form.txtFolderScanPath.Enabled ? folder : all)->SetFocus();
    });
    window.whenever(form.cmdStop, [&form, stop, seen = false]() mutable {
        if (std::exchange(seen, form.cmdStop.Enabled.get()) || !seen) return;
        stop->Enable();
        stop->SetFocus();
    });
    window.whenever(form.cmdOK, [&form, close, seen = false]() mutable {
        if (std::exchange(seen, form.cmdOK.Enabled.get()) || !seen) return;
        close->Enable();
        close->SetFocus();
    });
    // A walk under way is stopped first; the window stays to show what it did.
    window.onEscape([&window, &form] {
        if (form.isSearching()) {
            form.cmdStop.press();
        } else {
            window.onClose();
        }
    });
}

}  // namespace tidvane::view
