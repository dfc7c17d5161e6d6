// The pages of the options window about programs that run beside a cleaning: registry, memory, drive.
#include <wx/bookctrl.h>

#include "view/layout/frmOptions_pages.h"

namespace tidvane::view {

namespace {

using settings::frmOptions;

// A remark: its heading, and what it says.
wxSizer* remark(FormWindow& window, wxWindow* panel, forms::Label& heading, forms::Label& text) {
    return column(panel, {cell(window.label(panel, heading, 0, true)), cell(window.label(panel, text, kTextWidth))},
                  kGap / 2);
}

void layRegistry(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmRegistry);
    wxPanel* panel = section.panel;
    wxWindow* about = window.label(panel, form.lblReg, kTextWidth);
    wxWindow* run = window.check(panel, form.chkAddInRegClean);
    wxWindow* pathLabel = window.label(panel, form.lblRegInfoPath);
    wxWindow* path = window.entry(panel, form.txtAddInRegCleanPath, &form.lblRegInfoPath);
    wxWindow* browse = window.button(panel, form.cmdAddInRegCleanBrowse, "file");
    auto* line = row(panel, {cell(pathLabel), fill(path), cell(browse)});
    section.content->Add(column(panel, {cell(about), gap(kGap), cell(run), cell(line), gap(kGap),
                                        cell(remark(window, panel, form.lblRegAdvice, form.lblReg2))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layMemory(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmRAM);
    wxPanel* panel = section.panel;
    section.content->Add(column(panel, {cell(window.label(panel, form.lblRAM, kTextWidth)),
                                        cell(window.label(panel, form.lblRAM2, kTextWidth)), gap(kGap),
                                        cell(window.check(panel, form.chkCleanRAM)), gap(kGap),
                                        cell(window.button(panel, form.cmdCleanRAM, "memory"))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layVolume(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmVolume);
    wxPanel* panel = section.panel;
    wxWindow* about = window.label(panel, form.lblVolumeInfo, kTextWidth);
    wxWindow* run = window.check(panel, form.chkVolumeCheck);
    auto* grid = new wxFlexGridSizer(2, panel->FromDIP(kGap), panel->FromDIP(kGap));
    const auto line = [&](forms::Label& label, forms::TextBox& box) {
        grid->Add(window.label(panel, label), 0, wxALIGN_CENTRE_VERTICAL);
        wxWindow* entry = window.entry(panel, box, &label);
        entry->SetInitialSize(panel->FromDIP(wxSize(120, -1)));
        grid->Add(entry, 0, wxALIGN_CENTRE_VERTICAL);
    };
    line(form.lblVolumeHD, form.txtVolumeCheckHD);
    line(form.lblVolumeParameter, form.txtVolumeCheckParameter);
    section.content->Add(column(panel, {cell(about), gap(kGap), cell(run), cell(grid), gap(kGap),
                                        cell(window.button(panel, form.cmdVolumeCheck, "volume")), gap(kGap),
                                        cell(remark(window, panel, form.lblVolumeAlert, form.lblVolumeAlertInfo))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

}  // namespace

void layAddOns(FormWindow& window, frmOptions& form, wxPanel* page) {
    wxBookCtrlBase* book = window.tabs(page, form.SSTab2);
    layRegistry(window, form, window.page(book));
    layMemory(window, form, window.page(book));
    layVolume(window, form, window.page(book));
    fillPage(page, column(page, {fill(book)}));
}

}  // namespace tidvane::view
