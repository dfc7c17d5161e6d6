#include "app/frmMain.h"

#include <wx/bookctrl.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmMain(FormWindow& window) {
    auto& form = static_cast<app::frmMain&>(window.form());
    wxPanel* body = window.body();
    wxWindow* pane = window.pane(body, form.ExplorerBar1);
    wxBookCtrlBase* book = window.tabs(body, form.SSTab1, false);
    wxPanel* cleaning = window.page(book);
    wxWindow* list = window.listView(cleaning, form.lstTasks, false, true);
    wxWindow* log = window.lines(cleaning, form.txtLog, {.readOnly = true, .selection = true});
    log->SetMinSize(cleaning->FromDIP(wxSize(200, 180)));
    fillWindow(cleaning,
               column(cleaning, {fill(list), wide(log),
                                 cell(row(cleaning, {cell(window.button(cleaning, form.cmdClean, "clean")),
                                                     cell(window.button(cleaning, form.cmdStop, "stop"))}))}));
    window.page(book);
    window.page(book);
    window.page(book);
    auto* split = row(body, {fill(pane, 0), fill(book)}, 0);
    fillWindow(body, split, 0);
    window.statusBar(form.StatusBar1, {-1, 100, 100});
}

}  // namespace tidvane::view
