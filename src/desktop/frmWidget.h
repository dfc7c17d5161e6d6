// The small window that stays in sight and starts a run.
#pragma once

#include <optional>

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::desktop {

class frmWidget : public forms::Form {
public:
    static constexpr const char* kName = "frmWidget";
    static constexpr int kCornerPixels = 20;   // how round its corners are
    static constexpr int kDockDistance = 350;  // twips

    explicit frmWidget(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    // The outline that the display cuts the window to: a rectangle with round corners, in pixels.
    struct Outline {
        int width = 0;
        int height = 0;
        int corner = kCornerPixels;  // width and height of the ellipse that rounds a corner
    };
    Outline outline(int twipsPerPixelX, int twipsPerPixelY) const;

    // The user takes the window and moves it. Places of the pointer are told from the window's upper left corner; all
    // in twips. With a button down the window follows the pointer and docks.
    void mouseDown(int x, int y);
    void mouseMove(bool buttonDown, int x, int y, int screenWidth, int screenHeight);
    // After the window was moved, by whatever means: near an edge of the screen it goes to that edge. Twips.
    void dock(int screenWidth, int screenHeight);

    // 255: not transparent. Once it was set, the window stays a layered one, also while it is opaque.
    forms::Property<int> Opacity{255, &viewChanged};
    forms::Property<bool> Layered{false, &viewChanged};

    forms::CheckBox chkAutostart{*this, "chkAutostart", "Autostart"};
    forms::CheckBox chkForeground{*this, "chkForeground", "Always on top"};
    forms::CheckBox chkTransparency{*this, "chkTransparency", "Transparent"};
    controls::isButton cmdClean{*this, "cmdClean", "Reinigen"};
    controls::isButton cmdClose{*this, "cmdClose", "X"};

private:
    struct Place {
        int x = 0;
        int y = 0;
    };

    void cmdClean_Click();
    void SetOpacity(int alpha);

    settings::Program& program_;
    std::optional<Place> grab_;
};

}  // namespace tidvane::desktop
