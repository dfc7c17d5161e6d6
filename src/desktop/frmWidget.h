// The small window that stays in sight and starts a run.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::desktop {

class frmWidget : public forms::Form {
public:
    static constexpr const char* kName = "frmWidget";
    static constexpr int kCornerPixels = 20;   // how round the display makes its corners
    static constexpr int kDockDistance = 350;  // twips

    explicit frmWidget(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    // After the user has moved it: near an edge of the screen it goes to that edge. Twips.
    void dock(int screenWidth, int screenHeight);

    // 255: not transparent.
    forms::Property<int> Opacity{255, &viewChanged};

    forms::CheckBox chkAutostart{*this, "chkAutostart", "Autostart"};
    forms::CheckBox chkForeground{*this, "chkForeground", "Always on top"};
    forms::CheckBox chkTransparency{*this, "chkTransparency", "Transparent"};
    controls::isButton cmdClean{*this, "cmdClean", "Reinigen"};
    controls::isButton cmdClose{*this, "cmdClose", "X"};

private:
    void cmdClean_Click();

    settings::Program& program_;
};

}  // namespace tidvane::desktop
