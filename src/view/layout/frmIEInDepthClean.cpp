#include "settings/frmIEInDepthClean.h"

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmIEInDepthClean(FormWindow& window) {
    auto& form = static_cast<settings::frmIEInDepthClean&>(window.form());
    wxPanel* body = window.body();
    const FormWindow::Section section = window.section(body, form.frmIEAdvancedOpt);
    section.content->Add(column(section.panel, {cell(window.check(section.panel, form.chkIEINDepthClean)),
                                                cell(window.check(section.panel, form.chkIEINDepthCleanAll))}),
                         1, wxEXPAND);
    wxWindow* ok = window.button(body, form.cmdOK, "ok");
    fillWindow(body, column(body, {fill(section.panel), cell(row(body, {rest(), cell(ok)}))}, 2 * kGap));
    window.defaultButton(ok);
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
