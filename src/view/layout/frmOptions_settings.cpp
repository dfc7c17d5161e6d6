// The pages of the options window about the program itself.
#include <wx/bookctrl.h>

#include "view/layout/frmOptions_pages.h"

namespace tidvane::view {

namespace {

using settings::frmOptions;

const wxSize kNumberBox(80, -1);

// A number, the label in front of it and the link that puts the usual number back.
wxSizer* number(FormWindow& window, wxWindow* panel, forms::Label& label, forms::TextBox& box, forms::Label& reset) {
    wxWindow* text = window.label(panel, label);
    wxWindow* entry = window.entry(panel, box, &label);
    entry->SetInitialSize(panel->FromDIP(kNumberBox));
    return row(panel, {cell(text), cell(entry), cell(window.link(panel, reset))});
}

void layStart(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmProgStart);
    wxPanel* panel = section.panel;
    wxWindow* withWindows = window.check(panel, form.chkStartWindows);
    wxWindow* root = window.combo(panel, form.cboAutoStart, false, &form.chkStartWindows);
    auto* left =
        column(panel, {cell(withWindows), indented(root), cell(window.check(panel, form.chkStartMinimized)),
                       cell(window.check(panel, form.chkLogBarOff)), cell(window.check(panel, form.chkStartClean)),
                       cell(window.check(panel, form.chkAutoUpdate))});
    auto* right =
        column(panel, {cell(window.check(panel, form.chkEndClean)), cell(window.check(panel, form.chkCloseAfterClean)),
                       cell(window.check(panel, form.chkMinimizeSystray)),
                       cell(window.check(panel, form.chkHideColumnHeaders)),
                       cell(window.check(panel, form.chkSmallAppsFontSize))});
    wxWindow* withSound = window.check(panel, form.chkPurgeSound);
    wxWindow* sound = window.entry(panel, form.txtPurgeSound, &form.chkPurgeSound);
    wxWindow* browse = signButton(window, panel, form.cmdPurgeSound);
    wxWindow* play = signButton(window, panel, form.cmdPurgeSoundTest);
    auto* columns = new wxFlexGridSizer(2, 0, panel->FromDIP(3 * kGap));
    columns->Add(left);
    columns->Add(right);
    section.content->Add(
        column(panel, {cell(columns), gap(kGap), cell(withSound),
                       Cell{nullptr, row(panel, {fill(sound), cell(browse), cell(play)}), 0, true, 0, 22}, gap(kGap),
                       cell(number(window, panel, form.lblPurgeSpeed, form.txtPurgeSpeed, form.lblReset2))}),
        1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layLog(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmLog);
    wxPanel* panel = section.panel;
    wxWindow* folderLabel = window.label(panel, form.lblLog);
    wxWindow* folder = window.entry(panel, form.txtTidvaneLog, &form.lblLog);
    wxWindow* browse = window.button(panel, form.cmdFolderScan, "folder");
    auto* boxes = new wxBoxSizer(wxVERTICAL);
    for (forms::CheckBox* box : {&form.chkAskLogLocation, &form.chkAutoLog, &form.chkDeleteLog,
                                 &form.chkReplaceGerUmlaut, &form.chkLogTimestamp, &form.chkMoreLogDetails}) {
        boxes->Add(window.check(panel, *box), 0, wxBOTTOM, panel->FromDIP(kGap));
    }
    auto* limit = number(window, panel, form.lblTruncation, form.txtLogAutoTruncated, form.lblReset);
    wxWindow* fontLabel = window.label(panel, form.lblLog3);
    wxWindow* font = window.button(panel, form.cmdLogBarFont, "font");
    section.content->Add(column(panel, {cell(folderLabel), cell(row(panel, {fill(folder), cell(browse)})), gap(kGap),
                                        cell(boxes), cell(limit), cell(row(panel, {cell(fontLabel), cell(font)}))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layUpdate(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmUpdateServer);
    wxPanel* panel = section.panel;
    wxWindow* label = window.label(panel, form.lblUpdate, kTextWidth);
    wxWindow* server = window.entry(panel, form.txtUpdateServer, &form.lblUpdate);
    wxWindow* save = window.button(panel, form.cmdRecentServer, "save");
    wxWindow* standard = window.label(panel, form.lblUpdate2);
    wxWindow* first = window.option(panel, form.optGerUpdateServer);
    wxWindow* second = window.option(panel, form.optEngUpdateServer);
    wxWindow* use = window.button(panel, form.cmdStandardServer, "reset");
    wxWindow* note = window.label(panel, form.lblUpdate3, 0, true);
    wxWindow* noteText = window.label(panel, form.lblUpdate4, kTextWidth);
    section.content->Add(column(panel, {cell(label), cell(row(panel, {fill(server), cell(save)})), gap(kGap),
                                        cell(row(panel, {cell(standard), cell(first), cell(second), cell(use)})),
                                        gap(kGap), cell(note), cell(noteText)}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layMethod(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmCleanMethod);
    wxPanel* panel = section.panel;
    wxWindow* label = window.label(panel, form.lblCleanMethod);
    wxWindow* method = window.combo(panel, form.cboKillMethod, false, &form.lblCleanMethod);
    section.content->Add(column(panel, {cell(row(panel, {cell(label), cell(method)})),
                                        cell(window.label(panel, form.lblKillMethodInfo, kTextWidth)),
                                        cell(window.check(panel, form.chkOpenRecycleBinAsPreview)), gap(kGap),
                                        cell(window.label(panel, form.lblCleanMethod2, kTextWidth)), gap(kGap),
                                        cell(window.check(panel, form.chkCreateRestorePoint))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

void layAdvanced(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmAdvanced);
    wxPanel* panel = section.panel;
    section.content->Add(column(panel, {cell(window.label(panel, form.lblAdvanced, kTextWidth)),
                                        cell(window.check(panel, form.chkHideAlertMessage)), gap(kGap),
                                        cell(window.button(panel, form.cmdMoreToConfigure, "tuneup"))}),
                         1, wxEXPAND);
    fillPage(page, column(page, {fill(panel)}));
}

}  // namespace

void laySettings(FormWindow& window, frmOptions& form, wxPanel* page) {
    wxBookCtrlBase* book = window.tabs(page, form.SSTab4);
    layStart(window, form, window.page(book));
    layLog(window, form, window.page(book));
    layUpdate(window, form, window.page(book));
    layMethod(window, form, window.page(book));
    layAdvanced(window, form, window.page(book));
    fillPage(page, column(page, {fill(book)}));
}

}  // namespace tidvane::view
