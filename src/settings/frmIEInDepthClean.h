// How thoroughly the tasks of Internet Explorer clean.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::settings {

class frmIEInDepthClean : public forms::Form {
public:
    static constexpr const char* kName = "frmIEInDepthClean";

    explicit frmIEInDepthClean(settings::Program& program);

    void Form_Load() override;

    // What OK asks while the one step for everything is ticked: whether that is really wanted. A no unticks it and
    // ticks the browser's own cleaner in its place. False: the answer was no.
    bool confirmAll();

    forms::Frame frmIEAdvancedOpt{*this, "frmIEAdvancedOpt", "Gründlich reinigen"};
    // Each task adds the browser's own cleaner.
    forms::CheckBox chkIEINDepthClean{*this, "chkIEINDepthClean", "Browser selbst reinigen lassen"};
    // One step clears everything.
    forms::CheckBox chkIEINDepthCleanAll{*this, "chkIEINDepthCleanAll", "Alles auf einmal"};
    controls::isButton cmdOK{*this, "cmdOK", "OK"};

private:
    void chkIEINDepthCleanAll_Click();
    void cmdOK_Click();

    settings::Program& program_;
};

}  // namespace tidvane::settings
