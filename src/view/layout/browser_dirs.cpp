// The windows with the folders of a browser: four forms of one shape.
#include "settings/browser_dir_form.h"
#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {
constexpr int kPathWidth = 540;  // device-independent pixels
}  // namespace

void layoutBrowserDirs(FormWindow& window) {
    auto& form = static_cast<settings::BrowserDirForm&>(window.form());
    wxPanel* body = window.body();
    const FormWindow::Section folders = window.section(body, form.frmFolders);
    wxWindow* panel = folders.panel;
    const auto line = [&](forms::TextBox& box, controls::isButton& browse, forms::Label& label) {
        wxWindow* path = window.entry(panel, box, &label);
        path->SetMinSize(panel->FromDIP(wxSize(kPathWidth, -1)));
        return row(panel, {fill(path), cell(window.button(panel, browse, "folder"))});
    };
    wxWindow* profileLabel = window.label(panel, form.lblProfile);
    auto* profile = line(form.fileDir, form.cmdFileFolderPath, form.lblProfile);
    auto* second = line(form.secondDir, form.cmdSecondFolderPath, form.lblProfile);
    wxWindow* cacheLabel = window.label(panel, form.lblCache);
    auto* cache = line(form.cacheDir, form.cmdCacheFolderPath, form.lblCache);
    folders.content->Add(column(panel, {cell(profileLabel), cell(profile), cell(second), gap(kGap), cell(cacheLabel),
                                        cell(cache), gap(kGap), cell(window.check(panel, form.usable)),
                                        cell(window.check(panel, form.disableAutoDetect))}),
                         1, wxEXPAND);
    wxWindow* cancel = window.button(body, form.cmdAbort, "cancel");
    wxWindow* ok = window.button(body, form.cmdOK, "ok");
    fillWindow(body, column(body, {fill(folders.panel), cell(row(body, {rest(), cell(cancel), cell(ok)}))}, 2 * kGap));
    window.defaultButton(ok);
    window.onEscape([&form] { form.cmdAbort.press(); });
}

}  // namespace tidvane::view
