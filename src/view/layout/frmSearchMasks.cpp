#include "tools/frmSearchMasks.h"

#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

void layoutFrmSearchMasks(FormWindow& window) {
    auto& form = static_cast<tools::frmSearchMasks&>(window.form());
    wxPanel* body = window.body();
    wxWindow* hint = window.label(body, form.lblHint, 420);
    wxWindow* searchLabel = window.label(body, form.lblSearch);
    wxWindow* search = window.entry(body, form.txtSearchMasks, &form.lblSearch);
    wxWindow* list = window.list(body, form.lstSearchMasks, true, &form.lblHint);
    list->SetMinSize(body->FromDIP(wxSize(260, 260)));
    wxWindow* selected = window.label(body, form.lblSelected);
    wxWindow* all = window.button(body, form.cmdSelectAll, "select-all");
    wxWindow* none = window.button(body, form.cmdDeselectAll, "select-none");
    wxWindow* cancel = window.button(body, form.cmdCancel, "cancel");
    wxWindow* add = window.button(body, form.cmdAdd, "add");
    fillWindow(body, column(body, {cell(hint), cell(row(body, {cell(searchLabel), fill(search)})), fill(list),
                                   cell(row(body, {cell(all), cell(none), rest(), cell(selected)})), gap(kGap),
                                   cell(row(body, {rest(), cell(cancel), cell(add)}))}));
    window.defaultButton(add);
    const auto onEnter = [](wxWindow* widget, const wxEventTypeTag<wxKeyEvent>& type,
                            const std::function<void()>& what) {
        widget->Bind(type, [what](wxKeyEvent& event) {
            const bool enter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
            if (enter && !event.HasAnyModifiers()) {
                what();
            } else {
                event.Skip();
            }
        });
    };
    // What is searched for is not marked yet.
    onEnter(search, wxEVT_CHAR_HOOK, [list] { list->SetFocus(); });
    // Ahead of the list's own meaning, the double click that nobody hears here.
    onEnter(list, wxEVT_KEY_DOWN, [&window, &form] { window.act([&form] { form.cmdAdd.press(); }); });
    window.onEscape([&form] { form.cmdCancel.press(); });
}

}  // namespace tidvane::view
