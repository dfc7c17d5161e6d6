#include "view/painters/explorer_pane.h"

#include <wx/dcbuffer.h>

#include <utility>

#include "view/text.h"

namespace tidvane::view {

ExplorerPane::ExplorerPane(wxWindow* parent, controls::ExplorerBar& bar,
                           std::function<void(const std::function<void()>&)> act)
    : bar_(bar), act_(std::move(act)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS);
    SetMinSize(FromDIP(wxSize(200, 100)));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        dc.Clear();
        int y = FromDIP(8);
        for (const auto& group : bar_.groups()) {
            dc.DrawText(toNative(group.Title), FromDIP(8), y);
            y += FromDIP(22);
        }
    });
}

void ExplorerPane::update() {
    Refresh();
}

}  // namespace tidvane::view
