#include "desktop/frmWidget.h"

#include <wx/dcbuffer.h>
#include <wx/display.h>
#include <wx/graphics.h>
#include <wx/settings.h>
#include <wx/statbmp.h>

#include <memory>

#include "view/form_window.h"
#include "view/icons.h"
#include "view/layout/all.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// The whole of what the screens show, as one rectangle from the origin.
wxSize screenInTwips(const wxWindow* window) {
    wxRect all;
    for (unsigned screen = 0; screen < wxDisplay::GetCount(); ++screen) all.Union(wxDisplay(screen).GetGeometry());
    return {toTwips(all.GetRight() + 1, window), toTwips(all.GetBottom() + 1, window)};
}

wxGraphicsPath outlineOf(wxGraphicsRenderer& renderer, wxSize size, int corner, double inset) {
    wxGraphicsPath path = renderer.CreatePath();
    path.AddRoundedRectangle(inset, inset, size.x - 2 * inset, size.y - 2 * inset, corner / 2.0 - inset);
    return path;
}

void paint(wxWindow* body, int corner) {
    wxAutoBufferedPaintDC dc(body);
    dc.SetBackground(body->GetBackgroundColour());
    dc.Clear();
    const std::unique_ptr<wxGraphicsContext> drawing(wxGraphicsContext::CreateFromUnknownDC(dc));
    if (drawing == nullptr) return;
    const double line = body->FromDIP(1);
    drawing->SetPen(
        drawing->CreatePen(wxGraphicsPenInfo(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)).Width(line)));
    drawing->StrokePath(outlineOf(*drawing->GetRenderer(), body->GetClientSize(), corner, line / 2));
}

void cutOut(wxTopLevelWindow* native, int corner) {
    native->SetShape(outlineOf(*wxGraphicsRenderer::GetDefaultRenderer(), native->GetSize(), corner, 0));
}

}  // namespace

void layoutFrmWidget(FormWindow& window) {
    auto& form = static_cast<desktop::frmWidget&>(window.form());
    wxPanel* body = window.body();
    wxTopLevelWindow* native = window.native();
    auto* mark = new wxStaticBitmap(body, wxID_ANY, icon("program", wxSize(32, 32)));
    auto* name = new wxStaticText(body, wxID_ANY, toNative(form.Caption.get()));
    name->SetFont(name->GetFont().Bold());
    wxWindow* clean = window.button(body, form.cmdClean, "clean");
    wxWindow* autostart = window.check(body, form.chkAutostart);
    wxWindow* foreground = window.check(body, form.chkForeground);
    wxWindow* transparency = window.check(body, form.chkTransparency);
    wxWindow* close = window.button(body, form.cmdClose);
    close->SetMinSize(wxSize(clean->GetBestSize().y, -1));
    fillWindow(body, column(body, {cell(row(body, {cell(mark), cell(name), gap(kGap), rest(), cell(close)})),
                                   wide(clean), cell(autostart), cell(foreground), cell(transparency)}));

    const auto corner = [&form, native] {
        return native->FromDIP(form.outline(kTwipsPerPixel, kTwipsPerPixel).corner);
    };
    body->SetBackgroundStyle(wxBG_STYLE_PAINT);
    body->Bind(wxEVT_PAINT, [body, corner](wxPaintEvent&) { paint(body, corner()); });
    native->Bind(wxEVT_SIZE, [native, corner](wxSizeEvent& event) {
        event.Skip();
        cutOut(native, corner());
    });
    native->Bind(wxEVT_CREATE, [native, corner](wxWindowCreateEvent& event) {
        event.Skip();
        cutOut(native, corner());
    });
    window.whenever(form.viewChanged,
                    [native, &form] { native->SetTransparent(static_cast<wxByte>(form.Opacity.get())); });

    // Wherever nothing else is clicked the window is taken and moved. The window itself moves a moment later than it is
    // told to; so the pointer is told from the place that the form has.
    const auto pointer = [native, &form](wxWindow* part, const wxMouseEvent& event) {
        const wxPoint at = part->ClientToScreen(event.GetPosition());
        return wxPoint(toTwips(at.x, native) - form.Left, toTwips(at.y, native) - form.Top);
    };
    for (wxWindow* part : std::initializer_list<wxWindow*>{body, mark, name}) {
        window.on(part, wxEVT_LEFT_DOWN, [part, pointer, native, &form](wxMouseEvent& event) {
            event.Skip();
            // Nobody has told the form where the window manager has put the window.
            form.Left = toTwips(native->GetPosition().x, native);
            form.Top = toTwips(native->GetPosition().y, native);
            const wxPoint at = pointer(part, event);
            form.mouseDown(at.x, at.y);
        });
        window.on(part, wxEVT_MOTION, [part, pointer, native, &form](wxMouseEvent& event) {
            const wxPoint at = pointer(part, event);
            const wxSize screen = screenInTwips(native);
            form.mouseMove(event.LeftIsDown(), at.x, at.y, screen.x, screen.y);
        });
    }
    window.onEscape([&form] { form.cmdClose.press(); });
}

}  // namespace tidvane::view
