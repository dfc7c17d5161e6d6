#include "view/painters/scroll_bar_painter.h"

#include <wx/settings.h>

#include <array>

#include "view/painters/painting.h"

namespace tidvane::view {

using controls::ScrollPart;

void paintScrollBar(wxGraphicsContext& context, const wxWindow* window, wxPoint at,
                    const controls::ThemedScrollBar& bar) {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_SCROLLBAR);
    const wxColour face = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    const auto placed = [&](ScrollPart part) {
        wxRect box = toWindow(bar.rectangle(part), window);
        box.Offset(at);
        return box;
    };
    const auto tone = [&](ScrollPart part, double rest) {
        return bar.pressed(part) ? rest + 0.30 : bar.hot(part) ? rest + 0.15 : rest;
    };
    context.SetPen(*wxTRANSPARENT_PEN);
    for (const ScrollPart part : {ScrollPart::TrackBefore, ScrollPart::TrackAfter}) {
        const wxRect box = placed(part);
        if (box.IsEmpty()) continue;
        context.SetBrush(mixed(ground, text, tone(part, 0.03)));
        context.DrawRectangle(box.x, box.y, box.width, box.height);
    }
    wxRect track = toWindow(bar.track(), window);
    track.Offset(at);
    const wxRect thumb = placed(ScrollPart::Thumb);
    if (thumb.IsEmpty() && !track.IsEmpty()) {
        context.SetBrush(mixed(ground, text, 0.03));
        context.DrawRectangle(track.x, track.y, track.width, track.height);
    }
    const bool vertical = bar.Orientation.get() != 0;
    for (const ScrollPart part : {ScrollPart::FirstButton, ScrollPart::SecondButton}) {
        const wxRect box = placed(part);
        if (box.IsEmpty()) continue;
        context.SetPen(*wxTRANSPARENT_PEN);
        context.SetBrush(mixed(face, text, tone(part, 0.05)));
        context.DrawRectangle(box.x, box.y, box.width, box.height);
        const wxColour arrow = bar.Enabled ? mixed(face, text, 0.75) : mixed(face, text, 0.3);
        const double size = window->FromDIP(3);
        if (vertical) {
            arrowHead(context, box, arrow, part == ScrollPart::FirstButton, size);
        } else {
            context.PushState();
            context.Translate(box.x + box.width / 2.0, box.y + box.height / 2.0);
            context.Rotate(-1.5707963267948966);
            arrowHead(context, wxRect(-box.width / 2, -box.height / 2, box.width, box.height), arrow,
                      part == ScrollPart::FirstButton, size);
            context.PopState();
        }
    }
    if (!thumb.IsEmpty()) {
        context.SetPen(*wxTRANSPARENT_PEN);
        context.SetBrush(mixed(face, text, tone(ScrollPart::Thumb, 0.35)));
        const wxRect inner = vertical ? thumb.Deflate(window->FromDIP(3), 0) : thumb.Deflate(0, window->FromDIP(3));
        context.DrawRoundedRectangle(inner.x, inner.y, inner.width, inner.height, window->FromDIP(4));
    }
}

}  // namespace tidvane::view
