#include "view/painters/banner.h"

#include <wx/dcbuffer.h>

#include <utility>

#include "view/icons.h"
#include "view/measures.h"

namespace tidvane::view {

namespace {
constexpr double kTextSize = 1.4;  // of the usual one
}

Banner::Banner(wxWindow* parent, std::string picture, wxSize least) : picture_(std::move(picture)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, FromDIP(least), wxBORDER_NONE);
    SetMinSize(FromDIP(least));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { paint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        Refresh();
    });
}

void Banner::setText(const wxString& text) {
    if (text_ == text) return;
    text_ = text;
    Refresh();
}

void Banner::paint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(GetParent()->GetBackgroundColour());
    dc.Clear();
    const wxSize size = GetClientSize();
    if (size.x <= 0 || size.y <= 0) return;
    const wxSize logical = ToDIP(size);
    const wxBitmapBundle picture = icon(picture_, logical);
    if (picture.IsOk()) dc.DrawBitmap(picture.GetBitmapFor(this), 0, 0, true);
    if (text_.empty()) return;
    dc.SetFont(GetFont().Bold().Scaled(kTextSize));
    dc.SetTextForeground(*wxWHITE);
    dc.DrawText(text_, FromDIP(kEdge), FromDIP(kEdge));
}

}  // namespace tidvane::view
