// The results window: what the drive had before, what it has now, and the gain.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::app {

class frmDiskSizeStats : public forms::Form {
public:
    static constexpr const char* kName = "frmDiskSizeStats";
    // Colours of lblFreeSpace: dark red after a gain, dark green without one.
    static constexpr unsigned kGainColour = 128;
    static constexpr unsigned kCleanColour = 32768;

    explicit frmDiskSizeStats(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    forms::Image PicStyleDiskSize{*this, "PicStyleDiskSize"};
    // The window's heading; it carries the entry that its title is made of and has no command.
    forms::Label cmdClean{*this, "cmdClean"};
    forms::Label lblDiskSizeTotal{*this, "lblDiskSizeTotal", "Gesamt"};
    forms::Label lblSpaceTotal{*this, "lblSpaceTotal"};
    forms::Label lblDiskSizeFree{*this, "lblDiskSizeFree", "Frei vorher"};
    forms::Label lblFreeSpace{*this, "lblFreeSpace"};
    forms::Label lblDiskSizeFreeAfter{*this, "lblDiskSizeFreeAfter", "Frei nachher"};
    forms::Label lblFreeSpaceAfter{*this, "lblFreeSpaceAfter"};
    forms::Label lblDiskSizeFreed{*this, "lblDiskSizeFreed", "Gewonnen"};
    forms::Label lblFreedSpace{*this, "lblFreedSpace"};
    forms::Image ImgFreedSpace{*this, "ImgFreedSpace", false};
    forms::Image ImgSysClean{*this, "ImgSysClean", false};
    forms::Label lblFacebook{*this, "lblFacebook", "Gemeinschaft"};
    forms::Image ImgFB{*this, "ImgFB"};
    forms::TextBox txtLog{*this, "txtLog"};
    controls::isButton cmdOK{*this, "cmdOK", "OK"};
    controls::isButton cmdReclean{*this, "cmdReclean", "Erneut reinigen"};
    controls::isButton cmdBackground{*this, "cmdBackground", "In den Hintergrund"};
    controls::isButton cmdExit{*this, "cmdExit", "Beenden"};

    static constexpr int kMinWidth = 7200;  // twips
    static constexpr int kMinHeight = 4200;
    // Behind a change of Width or Height by the user: both are held at their least, which is more while the log is
    // shown. Nothing while minimised.
    void resized();
    // The link's colours change under the pointer: it has come over the link or its picture, or left them.
    void hoverCommunity(bool inside);

private:
    void toggleLog();
    void openCommunity();

    settings::Program& program_;
};

}  // namespace tidvane::app
