#include "tools/frmIECookies.h"

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmIECookies(FormWindow& window) {
    auto& form = static_cast<tools::frmIECookies&>(window.form());
    wxPanel* body = window.body();
    wxWindow* title = window.label(body, form.lblCookies, 0, true);
    wxWindow* found = window.label(body, form.lblfoundCookies);
    wxWindow* folder = window.label(body, form.lblCookieDir, 480);
    wxWindow* list = window.listView(body, form.lstCookies, true, false, &form.lblCookies);
    list->SetMinSize(body->FromDIP(wxSize(480, 220)));
    wxWindow* refresh = window.button(body, form.mnurefreshcookies, "reset");
    wxWindow* save = window.button(body, form.mnusavecookiefile, "save");
    wxWindow* deleteSome = window.button(body, form.mnudeleteselected, "remove");
    wxWindow* deleteAll = window.button(body, form.mnudeleteall, "delete");
    fillWindow(body,
               column(body, {cell(row(body, {cell(title), rest(), cell(found)})), wide(folder), fill(list), gap(kGap),
                             cell(row(body, {cell(refresh), cell(save), gap(2 * kGap), rest(), cell(deleteSome),
                                             cell(deleteAll)}))}));

    window.popup("mnBar", [&window, &form](wxMenu* menu) {
        for (forms::Menu* entry : {&form.mnuselectall, &form.mnudeselectall, &form.mnudeleteall,
                                   &form.mnudeleteselected, &form.mnurefreshcookies, &form.mnusavecookiefile}) {
            window.menuItem(menu, *entry);
        }
    });
    window.rowMenu(form.lstCookies, [&form] { form.listRightClick(); });
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
