#include "settings/frmOptions.h"

#include <wx/bookctrl.h>

#include <array>

#include "view/form_window.h"
#include "view/layout/all.h"
#include "view/layout/frmOptions_pages.h"

namespace tidvane::view {

namespace {

constexpr int kSignButton = 40;  // width, device-independent pixels

constexpr std::array kPages{layWindowsTasks, layBrowserTasks, layOfficeTasks, layOwnLists, layAddOns, laySettings};

}  // namespace

void fillPage(wxWindow* page, wxSizer* content) {
    fillWindow(page, content, kEdge);
}

wxWindow* signButton(FormWindow& window, wxWindow* parent, controls::isButton& button) {
    wxWindow* made = window.button(parent, button);
    made->SetInitialSize(parent->FromDIP(wxSize(kSignButton, -1)));
    return made;
}

void layoutFrmOptions(FormWindow& window) {
    auto& form = static_cast<settings::frmOptions&>(window.form());
    wxPanel* body = window.body();
    wxWindow* pane = window.pane(body, form.ExplorerBar2);
    wxBookCtrlBase* tabs = window.tabs(body, form.SSTab1);
    for (const auto& lay : kPages) lay(window, form, window.page(tabs));
    wxWindow* cancel = window.button(body, form.cmdCancel, "cancel");
    wxWindow* ok = window.button(body, form.cmdOK, "ok");
    auto* right = column(body, {fill(tabs), cell(row(body, {rest(), cell(cancel), cell(ok)}))}, kEdge);
    auto* rightEdge = new wxBoxSizer(wxVERTICAL);
    rightEdge->Add(right, 1, wxEXPAND | wxALL, body->FromDIP(kEdge));
    fillWindow(body, row(body, {fill(pane, 0), fill(rightEdge)}, 0), 0);
    window.defaultButton(ok);
    window.onEscape([&form] { form.keyPress(WXK_ESCAPE, {}); });
}

}  // namespace tidvane::view
