#include "tools/frmIECache.h"

#include <wx/listbox.h>

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmIECache(FormWindow& window) {
    auto& form = static_cast<tools::frmIECache&>(window.form());
    wxPanel* body = window.body();
    wxWindow* title = window.label(body, form.lblCache, 0, true);
    wxWindow* found = window.label(body, form.lblfoundCache);
    auto* list = static_cast<wxListBox*>(window.list(body, form.lstCache, true, &form.lblCache));
    list->SetMinSize(body->FromDIP(wxSize(480, 220)));
    wxWindow* cookies = window.check(body, form.chkAllCookies);
    wxWindow* refresh = window.button(body, form.mnurefreshcache, "reset");
    wxWindow* save = window.button(body, form.mnusavecachefile, "save");
    wxWindow* deleteOne = window.button(body, form.mnudeleteselected, "remove");
    wxWindow* deleteAll = window.button(body, form.cmdDeleteAll, "delete");
    fillWindow(body,
               column(body, {cell(row(body, {cell(title), rest(), cell(found)})), fill(list), cell(cookies), gap(kGap),
                             cell(row(body, {cell(refresh), cell(save), gap(2 * kGap), rest(), cell(deleteOne),
                                             cell(deleteAll)}))}));

    window.popup("mnBar", [&window, &form](wxMenu* menu) {
        for (forms::Menu* entry : {&form.mnuselectall, &form.mnudeselectall, &form.mnudeleteall,
                                   &form.mnudeleteselected, &form.mnurefreshcache, &form.mnusavecachefile}) {
            window.menuItem(menu, *entry);
        }
    });
    window.rowMenu(form.lstCache, [&form] { form.listRightClick(); });
    // The list knows best which row lies where: a row counts as one pixel high.
    window.on(list, wxEVT_MOTION, [&form, list](wxMouseEvent& event) {
        event.Skip();
        form.listMouseMove(list->HitTest(event.GetPosition()), 1, 0);
    });
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
