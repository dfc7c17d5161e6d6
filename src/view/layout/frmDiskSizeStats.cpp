#include "app/frmDiskSizeStats.h"

#include "view/form_window.h"
#include "view/layout/all.h"
#include "view/painters/banner.h"
#include "view/text.h"

namespace tidvane::view {

namespace {
constexpr double kGainSize = 1.25;  // of the usual letters
constexpr int kLogShare = 1000;     // of the room that is left: all of it, while the log is shown
}  // namespace

void layoutFrmDiskSizeStats(FormWindow& window) {
    auto& form = static_cast<app::frmDiskSizeStats&>(window.form());
    wxPanel* body = window.body();
    auto* banner = new Banner(body, "PicStyleDiskSize", wxSize(480, 64));
    window.whenever(form.cmdClean, [banner, &form] {
        banner->setText(toNative(form.cmdClean.Caption.get()));
        nameForReaders(banner, form.cmdClean.Caption);
    });

    const wxSize picture(48, 48);
    wxWindow* gained = window.image(body, form.ImgFreedSpace, "ImgFreedSpace", picture);
    wxWindow* clean = window.image(body, form.ImgSysClean, "ImgSysClean", picture);
    auto* grid = new wxFlexGridSizer(2, body->FromDIP(wxSize(2 * kGap, kGap)));
    grid->AddGrowableCol(1);
    const auto figure = [&](forms::Label& name, forms::Label& value) {
        grid->Add(window.label(body, name), 0, wxALIGN_CENTRE_VERTICAL);
        grid->Add(window.label(body, value, 0, true), 0, wxALIGN_CENTRE_VERTICAL);
    };
    figure(form.lblDiskSizeTotal, form.lblSpaceTotal);
    figure(form.lblDiskSizeFree, form.lblFreeSpace);
    figure(form.lblDiskSizeFreeAfter, form.lblFreeSpaceAfter);
    grid->Add(window.label(body, form.lblDiskSizeFreed), 0, wxALIGN_CENTRE_VERTICAL);
    wxWindow* gain = window.link(body, form.lblFreedSpace);
    // A number is written large; the sentence that there is none would make the window far too wide.
    const wxFont bold = gain->GetFont().Bold();
    window.whenever(form.lblFreedSpace, [gain, bold, &form] {
        const bool number = form.lblFreedSpace.Caption.get().find_first_of("0123456789") != std::string::npos;
        const wxFont wanted = number ? bold.Scaled(kGainSize) : bold;
        if (gain->GetFont() != wanted) gain->SetFont(wanted);
    });
    grid->Add(gain, 0, wxALIGN_CENTRE_VERTICAL);
    // Before the first run it has no words of its own.
    window.whenever(form.lblFreedSpace, [gain, &form] {
        if (form.lblFreedSpace.Caption.get().empty()) nameForReaders(gain, form.lblDiskSizeFreed.Caption);
    });

    wxWindow* log = window.lines(body, form.txtLog, {}, &form.lblDiskSizeFreed);
    log->SetMinSize(body->FromDIP(wxSize(200, 60)));
    wxWindow* mark = window.image(body, form.ImgFB, "ImgFB", wxSize(24, 24));
    wxWindow* community = window.link(body, form.lblFacebook);
    wxWindow* leave = window.button(body, form.cmdExit, "ImgExit");
    wxWindow* background = window.button(body, form.cmdBackground, "background");
    wxWindow* again = window.button(body, form.cmdReclean, "clean");
    wxWindow* ok = window.button(body, form.cmdOK, "ok");

    auto* pictures = column(body, {cell(gained), cell(clean)}, 0);
    auto* content =
        column(body,
               {cell(row(body, {cell(pictures), fill(grid)}, 2 * kGap)), fill(log, kLogShare), rest(),
                cell(row(body, {cell(mark), cell(community)})),
                cell(row(body, {cell(leave), cell(background), gap(2 * kGap), rest(), cell(again), cell(ok)}))},
               2 * kGap);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(banner, 0, wxEXPAND);
    all->Add(content, 1, wxEXPAND | wxALL, body->FromDIP(kEdge));
    body->SetSizer(all);

    window.on(mark, wxEVT_LEFT_UP, [&form](wxMouseEvent&) { form.ImgFB.Click(); });
    for (wxWindow* part : {mark, community}) {
        window.on(part, wxEVT_ENTER_WINDOW, [&form](wxMouseEvent& event) {
            event.Skip();
            form.hoverCommunity(true);
        });
        window.on(part, wxEVT_LEAVE_WINDOW, [&form](wxMouseEvent& event) {
            event.Skip();
            form.hoverCommunity(false);
        });
    }
    window.onResize([&form] { form.resized(); });
    window.defaultButton(ok);
    ok->SetFocus();
    window.onEscape([&form] { form.cmdOK.press(); });
}

}  // namespace tidvane::view
