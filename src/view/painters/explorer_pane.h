// The task pane on the screen.
#pragma once

#include <wx/bitmap.h>
#include <wx/control.h>
#include <wx/timer.h>

#include "controls/explorer_bar.h"
#include "view/painters/painting.h"

class wxGraphicsContext;

namespace tidvane::view {

// Mouse, wheel and keys go to the model; places, states and colours come from it. Nothing runs while nothing moves.
class ExplorerPane final : public wxControl {
public:
    ExplorerPane(wxWindow* parent, controls::ExplorerBar& bar, Act act);
    // The pane becomes what the model is.
    void update();

private:
    void bindMouse();
    void bindKeys();
    void sized();
    [[nodiscard]] int textHeight(const std::string& text, bool bold, int width) const;
    [[nodiscard]] wxString wrapped(const std::string& text, bool bold, int width) const;
    [[nodiscard]] wxFont font(bool bold) const;
    void tellReaders();
    void repeatLater();

    void paint();
    void paintGround(wxGraphicsContext& context);
    void paintHeader(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintArrow(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintBody(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintContent(wxGraphicsContext& context, const controls::GroupPlace& place, const wxColour& ground);
    void paintIcon(wxGraphicsContext& context, const std::string& name, const controls::Rect& place);
    void paintText(wxGraphicsContext& context, const std::string& text, const controls::Rect& place, bool bold,
                   const wxColour& colour, bool underlined = false);
    // The desktop's own look in the place of the theme's colours.
    [[nodiscard]] bool plain() const { return bar_.usesVisualStyle(); }

    controls::ExplorerBar& bar_;
    const Act act_;
    wxTimer motion_;
    wxTimer repeat_;
    std::string spoken_;
};

}  // namespace tidvane::view
