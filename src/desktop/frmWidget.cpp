#include "desktop/frmWidget.h"

#include <algorithm>

#include "settings/modFormINI.h"

namespace tidvane::desktop {

namespace {

constexpr const char* kSection = "WindowStateWidget";
constexpr int kOpaque = 255;
constexpr int kHalfTransparent = 128;

}  // namespace

frmWidget::frmWidget(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Tidvane");
    Width.design(2400);
    Height.design(900);
    chkForeground.Click.connect([this] { program_.display.setTopmost(*this, chkForeground.ticked()); });
    chkTransparency.Click.connect([this] { SetOpacity(chkTransparency.ticked() ? kHalfTransparent : kOpaque); });
    cmdClean.Click.connect([this] { cmdClean_Click(); });
    cmdClose.Click.connect([this] {
        settings::SaveFormINI(program_, *this);
        program_.windows.unload(*this);
    });
}

void frmWidget::Form_Load() {
    cmdClean.Caption = program_.LangText(119);
    chkAutostart.Caption = program_.LangText(440);
    chkForeground.Caption = program_.LangText(441);
    chkTransparency.Caption = program_.LangText(442);
    settings::loadWindowNumbers(program_, kSection, settings::positionOf(*this),
                                State == forms::WindowState::Minimized);
    (void)settings::LoadFormINI(program_, *this);
}

void frmWidget::Form_Unload() {
    settings::saveWindowNumbers(program_, kSection, settings::positionOf(*this));
}

frmWidget::Outline frmWidget::outline(int twipsPerPixelX, int twipsPerPixelY) const {
    return {Width / twipsPerPixelX, Height / twipsPerPixelY};
}

// The layered bit is left set for an opaque window too: intended.
void frmWidget::SetOpacity(int alpha) {
    Layered = true;
    Opacity = std::min(alpha, kOpaque);
}

void frmWidget::mouseDown(int x, int y) {
    grab_ = Place{x, y};
}

void frmWidget::mouseMove(bool buttonDown, int x, int y, int screenWidth, int screenHeight) {
    if (!buttonDown) grab_.reset();
    if (!grab_) return;
    Left = Left + x - grab_->x;
    Top = Top + y - grab_->y;
    dock(screenWidth, screenHeight);
}

void frmWidget::dock(int screenWidth, int screenHeight) {
    if (Left < kDockDistance) {
        Left = 0;
    } else if (Left + Width > screenWidth - kDockDistance) {
        Left = screenWidth - Width;
    }
    if (Top < kDockDistance) {
        Top = 0;
    } else if (Top + Height > screenHeight - kDockDistance) {
        Top = screenHeight - Height;
    }
}

// The main window's timer starts the run a second later.
void frmWidget::cmdClean_Click() {
    program_.windows.show("frmMain", nullptr, false);
    forms::Form* main = program_.windows.ifLoaded("frmMain");
    forms::Control* timer = main == nullptr ? nullptr : main->control("tmrCleanButton");
    if (timer != nullptr) timer->Enabled = true;
}

}  // namespace tidvane::desktop
