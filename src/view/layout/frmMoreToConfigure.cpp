#include "settings/frmMoreToConfigure.h"

#include <wx/bookctrl.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>
#include <wx/statbmp.h>

#include <array>

#include "view/binding/bindings.h"
#include "view/form_window.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {

using settings::frmMoreToConfigure;

constexpr int kWide = 360;  // device-independent pixels
constexpr int kNarrow = 70;
constexpr int kColourSide = 24;
constexpr int kIndent = 22;

wxWindow* entry(FormWindow& window, wxWindow* page, forms::TextBox& box, const forms::Control& label, int width) {
    wxWindow* made = window.entry(page, box, &label);
    made->SetMinSize(page->FromDIP(wxSize(width, -1)));
    return made;
}

// Some boxes show in their tool tip what they hold, as it is under the moving pointer.
void tipUnderPointer(FormWindow& window, frmMoreToConfigure& form, wxWindow* widget, forms::Control& control) {
    for (const auto& moves : {wxEVT_ENTER_WINDOW, wxEVT_MOTION}) {
        window.on(widget, moves, [&form, &control](wxMouseEvent& event) {
            event.Skip();
            form.Form_MouseMove(control);
        });
    }
}

// The picture of a colour, with a thin edge so that it is seen on a background like it.
wxWindow* colourPicture(FormWindow& window, wxWindow* page, forms::Image& picture) {
    auto* widget = static_cast<wxStaticBitmap*>(
        window.image(page, picture, picture.Name, page->FromDIP(wxSize(kColourSide, kColourSide))));
    window.whenever(picture, [widget, &picture] {
        wxBitmap bitmap;
        bitmap.CreateWithDIPSize(wxSize(kColourSide, kColourSide), widget->GetDPIScaleFactor());
        wxMemoryDC dc(bitmap);
        dc.SetBrush(wxBrush(toColour(picture.BackColor)));
        dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT)));
        dc.DrawRectangle(0, 0, kColourSide, kColourSide);
        dc.SelectObject(wxNullBitmap);
        widget->SetBitmap(bitmap);
    });
    return widget;
}

wxSizer* theme(FormWindow& window, frmMoreToConfigure& form, wxPanel* page) {
    wxWindow* label = window.label(page, form.lblTheme);
    wxWindow* choice = window.combo(page, form.cboTheme, false, &form.lblTheme);
    auto* first = row(page, {cell(label), cell(choice), cell(window.button(page, form.cmdChangeTheme, "settings"))});
    struct Part {
        forms::Label& label;
        forms::TextBox& box;
    };
    auto* parts = new wxBoxSizer(wxHORIZONTAL);
    parts->AddSpacer(page->FromDIP(kIndent));
    for (const Part& part : {Part{form.lblThemeR, form.CustomThemeR}, Part{form.lblThemeG, form.CustomThemeG},
                             Part{form.lblThemeB, form.CustomThemeB}}) {
        parts->Add(window.label(page, part.label), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, page->FromDIP(kGap));
        parts->Add(entry(window, page, part.box, part.label, kNarrow), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT,
                   page->FromDIP(2 * kGap));
    }
    parts->Add(colourPicture(window, page, form.PicRGBThemeMix), 0, wxALIGN_CENTRE_VERTICAL);
    return column(page, {cell(first), cell(parts)});
}

// Labels in front of boxes, all boxes of one width.
class Grid {
public:
    explicit Grid(wxWindow* page) : page_(page), sizer_(new wxFlexGridSizer(2, page->FromDIP(wxSize(kGap, kGap)))) {
        sizer_->AddGrowableCol(1);
    }
    void add(wxWindow* label, wxWindow* box) {
        sizer_->Add(label, 0, wxALIGN_CENTRE_VERTICAL);
        sizer_->Add(box, 1, wxEXPAND | wxALIGN_CENTRE_VERTICAL);
    }
    void add(wxWindow* label, wxSizer* line) {
        sizer_->Add(label, 0, wxALIGN_CENTRE_VERTICAL);
        sizer_->Add(line, 1, wxEXPAND | wxALIGN_CENTRE_VERTICAL);
    }
    Cell indented() { return {nullptr, sizer_, 0, true, 0, kIndent}; }
    [[nodiscard]] wxWindow* page() const { return page_; }

private:
    wxWindow* page_;
    wxFlexGridSizer* sizer_;
};

void layProgram(FormWindow& window, frmMoreToConfigure& form, wxPanel* page) {
    auto* colours = theme(window, form, page);
    wxWindow* oneGroup = window.check(page, form.chkOpenOneGroupOnly);
    wxWindow* statistics = window.check(page, form.chkDisksizeInfo);
    wxWindow* custom = window.check(page, form.chkEnableCustomApp);
    Grid grid(page);
    wxWindow* pathLabel = window.label(page, form.lblCustomAppPath);
    wxWindow* path = entry(window, page, form.txtCustomAppPath, form.lblCustomAppPath, kWide);
    tipUnderPointer(window, form, path, form.txtCustomAppPath);
    grid.add(pathLabel, row(page, {fill(path), cell(window.button(page, form.cmdCustomApp, "file"))}));
    wxWindow* parameterLabel = window.label(page, form.lblCustomAppParameter);
    wxWindow* parameter = entry(window, page, form.txtCustomAppCommandlineParameter, form.lblCustomAppParameter, kWide);
    tipUnderPointer(window, form, parameter, form.txtCustomAppCommandlineParameter);
    grid.add(parameterLabel, parameter);
    wxWindow* after = window.check(page, form.chkRunCustomAppAfterTidvane);
    fillWindow(page, column(page, {cell(colours), gap(kGap), cell(oneGroup), cell(statistics), gap(kGap), cell(custom),
                                   grid.indented(), indented(after)}));
}

void layUpdate(FormWindow& window, frmMoreToConfigure& form, wxPanel* page) {
    wxWindow* offer = window.check(page, form.chkEnableAutoUpdate);
    Grid grid(page);
    wxWindow* addressLabel = window.label(page, form.lblUpdateLocation);
    wxWindow* address = entry(window, page, form.txtUpdateLocation, form.lblUpdateLocation, kWide);
    tipUnderPointer(window, form, address, form.txtUpdateLocation);
    grid.add(addressLabel, address);
    wxWindow* delayLabel = window.label(page, form.lblUpdateIntDelay);
    grid.add(delayLabel,
             row(page, {cell(entry(window, page, form.txtUpdateIntDelay, form.lblUpdateIntDelay, kNarrow)), rest()}));
    wxWindow* changes = window.check(page, form.chkOpenChangelogAfterUpdate);
    Grid pages(page);
    wxWindow* pageLabel = window.label(page, form.lblChangelogServer);
    wxWindow* choice = window.combo(page, form.cboChangelogServer, true, &form.lblChangelogServer);
    const wxSize flag(kColourSide, kColourSide);
    pages.add(pageLabel,
              row(page, {fill(choice), cell(window.image(page, form.ImgUpdateGerman, "ImgUpdateGerman", flag)),
                         cell(window.image(page, form.ImgUpdateEnglish, "ImgUpdateEnglish", flag))}));
    fillWindow(page, column(page, {cell(offer), grid.indented(), indented(changes), pages.indented()}));
}

void layInformation(FormWindow& window, frmMoreToConfigure& form, wxPanel* page) {
    wxWindow* use = window.check(page, form.chkInfoServer);
    Grid grid(page);
    wxWindow* label = window.label(page, form.lblInfoServer);
    wxWindow* address = entry(window, page, form.txtInfoServer, form.lblInfoServer, kWide);
    grid.add(label, row(page, {fill(address), cell(window.link(page, form.lblReset3))}));
    wxWindow* always = window.check(page, form.chkAutoStartInfoServer);
    wxWindow* menuLabel = window.label(page, form.lblCommunityMenu);
    wxWindow* menu = window.combo(page, form.cboCommunityMenu, false, &form.lblCommunityMenu);
    fillWindow(page, column(page, {cell(use), grid.indented(), indented(always), gap(kGap),
                                   cell(row(page, {cell(menuLabel), cell(menu)}))}));
}

constexpr std::array kPages{layProgram, layUpdate, layInformation};

}  // namespace

void layoutFrmMoreToConfigure(FormWindow& window) {
    auto& form = static_cast<frmMoreToConfigure&>(window.form());
    wxPanel* body = window.body();
    wxWindow* heading = window.label(body, form.lblTuneUp, 0, true);
    wxBookCtrlBase* tabs = window.tabs(body, form.SSTab1);
    for (const auto& lay : kPages) lay(window, form, window.page(tabs));
    wxWindow* ok = window.imageButton(body, form.ImgOK, "ok", "OK");
    fillWindow(body, column(body, {cell(heading), fill(tabs), cell(row(body, {rest(), cell(ok)}))}, kEdge));
    window.defaultButton(ok);
    window.onEscape([&window] { window.onClose(); });
}

}  // namespace tidvane::view
