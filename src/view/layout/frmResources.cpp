#include "settings/frmResources.h"

#include <array>

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {
constexpr int kAddressWidth = 380;  // device-independent pixels
}  // namespace

void layoutFrmResources(FormWindow& window) {
    auto& form = static_cast<settings::frmResources&>(window.form());
    struct Line {
        forms::Label& label;
        forms::TextBox& box;
    };
    const std::array lines{Line{form.lblApps, form.txtApps},       Line{form.lblAddOns, form.txtAddOns},
                           Line{form.lblLang, form.txtLang},       Line{form.lblOnlineHelp, form.txtOnlineHelp},
                           Line{form.lblForum, form.txtForum},     Line{form.lblFacebook, form.txtFacebook},
                           Line{form.lblTwitter, form.txtTwitter}, Line{form.lblRegister, form.txtRegister}};
    wxPanel* body = window.body();
    auto* grid = new wxFlexGridSizer(2, body->FromDIP(wxSize(2 * kGap, kGap)));
    grid->AddGrowableCol(1);
    for (const Line& line : lines) {
        grid->Add(window.label(body, line.label), 0, wxALIGN_CENTRE_VERTICAL);
        wxWindow* address = window.entry(body, line.box, &line.label);
        address->SetMinSize(body->FromDIP(wxSize(kAddressWidth, -1)));
        grid->Add(address, 1, wxEXPAND | wxALIGN_CENTRE_VERTICAL);
    }
    wxWindow* manager = window.label(body, form.lblAddOnManager);
    wxWindow* standard = window.button(body, form.cmdStandardServer, "reset");
    wxWindow* ok = window.imageButton(body, form.ImgOK, "ok", "OK");
    fillWindow(body, column(body, {cell(grid), cell(manager), gap(kGap),
                                   cell(row(body, {cell(standard), rest(), cell(ok)}))}));
    window.defaultButton(ok);
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
