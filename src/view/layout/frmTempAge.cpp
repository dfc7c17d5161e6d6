#include "tools/frmTempAge.h"

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmTempAge(FormWindow& window) {
    auto& form = static_cast<tools::frmTempAge&>(window.form());
    wxPanel* body = window.body();
    const auto interval = window.section(body, form.frmTempInterval);
    wxWindow* panel = interval.panel;
    wxWindow* age = window.entry(panel, form.txtAge, &form.chkActivite);
    age->SetInitialSize(panel->FromDIP(wxSize(70, -1)));
    interval.content->Add(
        column(panel, {cell(window.check(panel, form.chkActivite)),
                       Cell{nullptr, row(panel, {cell(age), cell(window.label(panel, form.lblDays))}), 0, false, 0, 22},
                       cell(window.label(panel, form.lblTemp, 380))}),
        1, wxEXPAND);
    wxWindow* ok = window.button(body, form.cmdOK, "ok");
    fillWindow(body, column(body, {fill(interval.panel), cell(row(body, {rest(), cell(ok)}))}, 2 * kGap));
    window.defaultButton(ok);
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
