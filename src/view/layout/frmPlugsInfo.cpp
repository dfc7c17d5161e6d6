#include "plugins/frmPlugsInfo.h"

#include <wx/textctrl.h>

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmPlugsInfo(FormWindow& window) {
    auto& form = static_cast<plugins::frmPlugsInfo&>(window.form());
    wxPanel* body = window.body();
    auto* grid = new wxFlexGridSizer(3, body->FromDIP(wxSize(kGap, kGap)));
    grid->AddGrowableCol(1);
    const auto line = [&](forms::Label& label, forms::TextBox& box, controls::isButton& button, const char* picture) {
        grid->Add(window.label(body, label), 0, wxALIGN_CENTRE_VERTICAL);
        auto* entry = static_cast<wxTextCtrl*>(window.entry(body, box, &label));
        entry->SetEditable(false);
        grid->Add(entry, 1, wxEXPAND | wxALIGN_CENTRE_VERTICAL);
        grid->Add(window.button(body, button, picture), 0, wxEXPAND);
    };
    line(form.lblTitle, form.txtTitle, form.cmdPlugInfo, "search");
    line(form.lblAuthor, form.txtAuthor, form.cmdAuthorsWebsite, "link");
    wxWindow* heading = window.label(body, form.lblDesc);
    wxWindow* text = window.lines(body, form.txtDesc, {.readOnly = true, .wrap = true}, &form.lblDesc);
    text->SetMinSize(body->FromDIP(wxSize(480, 140)));
    wxStaticText* warning = window.label(body, form.lblWarning, 480, true);
    wxWindow* english = window.check(body, form.chkEnableEnglishPlugsDesc);
    wxWindow* ok = window.imageButton(body, form.ImgOK, "ok", "OK");
    fillWindow(body, column(body, {cell(grid), cell(heading), fill(text), wide(warning), gap(kGap),
                                   cell(row(body, {cell(english), rest(), cell(ok)}))}));
    window.defaultButton(ok);
    ok->SetFocus();  // nothing here is typed
    window.onEscape([&form] { form.escape(); });
}

}  // namespace tidvane::view
