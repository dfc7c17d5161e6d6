// The task pane on the screen.
#pragma once

#include <wx/bitmap.h>
#include <wx/control.h>
#include <wx/graphics.h>
#include <wx/timer.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "controls/explorer_bar.h"
#include "view/painters/painting.h"

class wxGraphicsContext;

namespace tidvane::view {

// Mouse, wheel and keys go to the model; places, states and colours come from it. Nothing runs while nothing moves.
//
// Of what a group may hold, Container and ItemsBackgroundPicture are not drawn: no pane of the program sets them, and a
// group with a container shows its title bar alone.
class ExplorerPane final : public wxControl {
public:
    ExplorerPane(wxWindow* parent, controls::ExplorerBar& bar, Act act);
    // The pane becomes what the model is.
    void update();
    // How often the content of a group in motion was drawn: once a motion as long as its look stays.
    [[nodiscard]] int picturesMade() const { return picturesMade_; }
    [[nodiscard]] bool moves() const { return motion_.IsRunning(); }

private:
    void bindMouse();
    void bindKeys();
    void sized();
    void styled();
    void showHot();
    struct Lines {
        std::vector<wxString> texts;
        int height = 0;  // of each
    };
    [[nodiscard]] int textHeight(const std::string& text, bool bold, int width) const;
    [[nodiscard]] const Lines& broken(const std::string& text, bool bold, int width) const;
    [[nodiscard]] wxFont font(bool bold) const;
    void tellReaders();
    void repeatLater();

    void paint();
    void paintGround(wxGraphicsContext& context);
    void paintHeader(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintArrow(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintBody(wxGraphicsContext& context, const controls::GroupPlace& place);
    void paintContent(wxGraphicsContext& context, const controls::GroupPlace& place, const wxColour& ground);
    [[nodiscard]] std::string lookOf(const controls::GroupPlace& place) const;
    const wxGraphicsBitmap& picture(wxGraphicsContext& screen, const controls::GroupPlace& place,
                                    const wxColour& ground);
    void paintIcon(wxGraphicsContext& context, const std::string& name, const controls::Rect& place, bool grey = false);
    void paintText(wxGraphicsContext& context, const std::string& text, const controls::Rect& place, bool bold,
                   const wxColour& colour, bool underlined = false);
    // The desktop's own look in the place of the theme's colours.
    [[nodiscard]] bool plain() const { return bar_.usesVisualStyle(); }
    // Whether texts have the theme's colours all the same.
    [[nodiscard]] bool ownTexts() const { return !plain() || bar_.UseUserForeColors; }

    controls::ExplorerBar& bar_;
    const Act act_;
    wxTimer motion_;
    wxTimer repeat_;
    std::string spoken_;
    controls::PaneTarget shownHot_;
    // What texts were broken into, by text, boldness and width. Emptied when the size or the font changes.
    mutable std::map<std::tuple<std::string, bool, int>, Lines> lines_;
    struct Picture {
        wxSize size;
        std::string look;
        wxGraphicsBitmap bitmap;
    };
    std::map<int, Picture> pictures_;  // of groups in motion
    int picturesMade_ = 0;
};

}  // namespace tidvane::view
