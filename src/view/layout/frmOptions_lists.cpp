// The user's own lists in the options window.
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/textctrl.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "view/layout/frmOptions_pages.h"

namespace tidvane::view {

namespace {

using settings::frmOptions;

const wxSize kLeastList(300, 110);
constexpr char32_t kEnter = 13;

// The list, and to its right the buttons that act on its rows.
wxSizer* listWithButtons(FormWindow& window, wxWindow* panel, forms::ListBox& list, const forms::Control& name,
                         controls::isButton& removeSelected, controls::isButton& removeAll, controls::isButton* edit) {
    wxWindow* rows = window.list(panel, list, true, &name);
    rows->SetMinSize(panel->FromDIP(kLeastList));
    rows->Bind(wxEVT_KEY_DOWN, [&window, &removeSelected](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_DELETE && !event.HasAnyModifiers()) {
            window.act([&removeSelected] { removeSelected.press(); });
        } else {
            event.Skip();
        }
    });
    auto* buttons = new wxBoxSizer(wxVERTICAL);
    const auto add = [&](controls::isButton& button, const char* icon) {
        buttons->Add(window.button(panel, button, icon), 0, wxEXPAND | wxBOTTOM, panel->FromDIP(kGap));
    };
    add(removeSelected, "remove");
    add(removeAll, "delete");
    if (edit != nullptr) add(*edit, "edit");
    return row(panel, {fill(rows), cell(buttons)});
}

// The line that becomes a row, and its buttons. `enter` runs for Enter in the line, which would otherwise press the
// window's own button and close it.
wxSizer* entryWithButtons(FormWindow& window, wxWindow* panel, forms::TextBox& entry, const forms::Control& name,
                          controls::isButton& add, controls::isButton& browse, const char* browseIcon,
                          std::function<void()> enter) {
    wxWindow* line = window.entry(panel, entry, &name);
    line->Bind(wxEVT_TEXT_ENTER, [&window, enter = std::move(enter)](wxCommandEvent&) { window.act(enter); });
    return row(panel,
               {fill(line), cell(window.button(panel, add, "add")), cell(window.button(panel, browse, browseIcon))});
}

struct PathList {
    forms::Frame& frame;
    forms::CheckBox& gate;
    forms::CheckBox& known;
    forms::ListBox& list;
    controls::isButton& removeSelected;
    controls::isButton& removeAll;
    controls::isButton& edit;
    std::vector<forms::OptionButton*> options;
    forms::TextBox& entry;
    controls::isButton& add;
    controls::isButton& browse;
    const char* browseIcon;
    void (frmOptions::*drop)(const std::vector<std::string>& paths);
};

void layPathList(FormWindow& window, frmOptions& form, wxPanel* page, const PathList& paths) {
    const FormWindow::Section section = window.section(page, paths.frame);
    wxPanel* panel = section.panel;
    const auto add = [&](wxSizer* line, int grow = 0) {
        section.content->Add(line, grow, wxEXPAND | wxTOP, panel->FromDIP(kGap));
    };
    section.content->Add(window.check(panel, paths.gate));
    add(row(panel, {indented(window.check(panel, paths.known))}));
    add(listWithButtons(window, panel, paths.list, paths.frame, paths.removeSelected, paths.removeAll, &paths.edit), 1);
    window.onFilesDropped(
        window.widgetOf(paths.list),
        [&form, drop = paths.drop](const std::vector<std::string>& dropped) { (form.*drop)(dropped); });
    add(entryWithButtons(window, panel, paths.entry, paths.frame, paths.add, paths.browse, paths.browseIcon,
                         [&button = paths.add] { button.press(); }));
    for (forms::OptionButton* option : paths.options) add(row(panel, {cell(window.option(panel, *option))}));
    fillPage(page, column(page, {fill(panel)}));
}

void layMasks(FormWindow& window, frmOptions& form, wxPanel* page) {
    const FormWindow::Section section = window.section(page, form.frmDefineSearchMasks);
    wxPanel* panel = section.panel;
    const auto add = [&](wxSizer* line, int grow = 0) {
        section.content->Add(line, grow, wxEXPAND | wxTOP, panel->FromDIP(kGap));
    };
    section.content->Add(window.check(panel, form.chkSearchTasks));
    wxWindow* driveLabel = window.label(panel, form.lblSearchMasks3);
    wxWindow* drive = window.combo(panel, form.cboDrives, false, &form.lblSearchMasks3);
    wxWindow* all = window.check(panel, form.chkAllFixedDrives);
    add(row(panel, {cell(driveLabel), cell(drive), cell(all)}));
    add(row(panel, {cell(window.label(panel, form.lblSearchMasks))}));
    add(listWithButtons(window, panel, form.lstSearchMasks, form.lblSearchMasks, form.cmdRemoveSearchMask,
                        form.cmdRemoveAllSearchMasks, nullptr),
        1);
    add(row(panel, {cell(window.label(panel, form.lblSearchMasks2))}));
    // Enter adds, also where the button beside the line is off.
    add(entryWithButtons(window, panel, form.txtSearchMask, form.lblSearchMasks2, form.cmdAddSearchMask,
                         form.cmdLoadSearchMasks, "lists",
                         [&form] { form.keyPress(kEnter, form.txtSearchMask.Name); }));
    add(row(panel, {cell(window.label(panel, form.lblSearchMasks4, kTextWidth))}));
    fillPage(page, column(page, {fill(panel)}));
}

}  // namespace

void layOwnLists(FormWindow& window, frmOptions& form, wxPanel* page) {
    wxBookCtrlBase* book = window.tabs(page, form.SSTab3);
    // clang-format off
    const std::array lists{
        PathList{form.frmCustomFolder, form.chkActivateOwnFolder, form.chkAutoSearchJunkFolders, form.lstFolders,
                 form.cmdDeleteSelected, form.cmdDeleteAll, form.cmdEditFolders,
                 {&form.optDeleteFolder, &form.optDeleteFolderContent},
                 form.txtAddFolderPath, form.cmdAddFolderPath, form.cmdAddFolder, "folder",
                 &frmOptions::dropOnFolders},
        PathList{form.frmCustomFile, form.chkActivateOwnFiles, form.chkAutoSearchJunkFiles, form.lstFiles,
                 form.cmdDeleteSelected2, form.cmdDeleteAll2, form.cmdEditFiles, {},
                 form.txtAddFilePath, form.cmdAddFilePath, form.cmdAddFile, "file",
                 &frmOptions::dropOnFiles},
    };
    // clang-format on
    for (const PathList& paths : lists) layPathList(window, form, window.page(book), paths);
    layMasks(window, form, window.page(book));
    fillPage(page, column(page, {fill(book)}));
}

}  // namespace tidvane::view
