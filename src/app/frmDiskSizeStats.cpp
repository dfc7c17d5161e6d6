#include "app/frmDiskSizeStats.h"

#include "app/frmMain.h"
#include "app/log_font.h"
#include "settings/addresses.h"
#include "settings/log_font_file.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"

namespace tidvane::app {

namespace {
constexpr const char* kSection = "WindowStateDiskSize";
constexpr int kLogHeight = 3600;               // twips that the window grows by when the log is shown
constexpr unsigned kLinkColour = 0x00C8661Bu;  // blue, green, red
constexpr unsigned kHoverColour = 0x00A0890Fu;
}  // namespace

frmDiskSizeStats::frmDiskSizeStats(settings::Program& program) : forms::Form(kName), program_(program) {
    Width.design(kMinWidth);
    Height.design(kMinHeight);
    txtLog.Visible.design(false);
    lblFacebook.ForeColor.design(kLinkColour);

    cmdOK.Click.connect([this] { program_.windows.unload(*this); });
    cmdReclean.Click.connect([this] {
        program_.windows.unload(*this);
        auto& main = program_.get<frmMain>();
        program_.display.Show(main, nullptr, false);
        main.tmrCleanButton.Enabled = true;
    });
    cmdBackground.Click.connect([this] {
        program_.get<frmMain>().toBackground();
        program_.windows.unload(*this);
    });
    cmdExit.Click.connect([this] {
        program_.get<frmMain>().RemoveTrayIcon();
        program_.UnloadAllForms();
    });
    lblFreedSpace.Click.connect([this] { toggleLog(); });
    lblFacebook.Click.connect([this] { openCommunity(); });
    ImgFB.Click.connect([this] { openCommunity(); });
}

void frmDiskSizeStats::Form_Load() {
    Caption = "Tidvane - " + program_.LangText(432);
    settings::captionWindow(program_, *this);
    settings::loadWindowNumbers(program_, kSection, settings::rectangleOf(*this),
                                State == forms::WindowState::Minimized);
    if (const auto font = settings::readLogFont(program_, program_.report().logFont())) applyFont(txtLog, *font);
}

void frmDiskSizeStats::Form_Unload() {
    // The log is shown by enlarging the window; the size that is stored is that without it.
    if (txtLog.Visible) toggleLog();
    settings::saveWindowNumbers(program_, kSection, settings::rectangleOf(*this));
}

void frmDiskSizeStats::toggleLog() {
    const bool show = !txtLog.Visible;
    if (show) txtLog.setText(program_.get<frmMain>().txtLog.Text());
    txtLog.Visible = show;
    Height = Height + (show ? kLogHeight : -kLogHeight);
    resized();
}

void frmDiskSizeStats::resized() {
    if (State.get() == forms::WindowState::Minimized) return;
    const int minHeight = kMinHeight + (txtLog.Visible ? kLogHeight : 0);
    if (Width < kMinWidth) Width = kMinWidth;
    if (Height < minHeight) Height = minHeight;
}

void frmDiskSizeStats::openCommunity() {
    program_.platform.shell.ShellExecuteA("open", settings::address::kCommunity, "", "", 1);
}

void frmDiskSizeStats::hoverCommunity(bool inside) {
    lblFacebook.ForeColor = inside ? kHoverColour : kLinkColour;
}

}  // namespace tidvane::app
