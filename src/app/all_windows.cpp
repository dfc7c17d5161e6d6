#include "app/all_windows.h"

#include <memory>

#include "app/frmDiskSizeStats.h"
#include "app/frmMain.h"
#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "desktop/frmWidget.h"
#include "plugins/frmPlugsInfo.h"
#include "settings/frmChromeDir.h"
#include "settings/frmIEInDepthClean.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmOptions.h"
#include "settings/frmResources.h"
#include "settings/frmSafariDir.h"
#include "settings/frmStarter.h"
#include "tools/frmIECache.h"
#include "tools/frmIECookies.h"
#include "tools/frmManualSearch.h"
#include "tools/frmSearchMasks.h"
#include "tools/frmTempAge.h"

namespace tidvane::app {

namespace {

// What panes and buttons open, the shell opens, in a normal window.
std::unique_ptr<forms::Form> withShell(std::unique_ptr<forms::Form> form, settings::Program& program) {
    constexpr int kNormalWindow = 1;
    constexpr int kLastFailure = 32;  // of ShellExecuteA
    const auto open = [&shell = program.platform.shell](const std::string& target) {
        return shell.ShellExecuteA("open", target, "", "", kNormalWindow) > kLastFailure;
    };
    for (forms::Control* control : form->Controls()) {
        if (auto* pane = dynamic_cast<controls::ExplorerBar*>(control)) pane->openFile = open;
        if (auto* button = dynamic_cast<controls::isButton*>(control)) button->openLink = open;
    }
    return form;
}

template <class... Forms>
void offer(settings::Program& program) {
    (program.windows.offer(Forms::kName, [&program] { return withShell(std::make_unique<Forms>(program), program); }),
     ...);
}

}  // namespace

void offerAllWindows(settings::Program& program) {
    offer<frmMain>(program);
    offerWindowsWithoutMain(program);
}

void offerWindowsWithoutMain(settings::Program& program) {
    offer<frmDiskSizeStats,                                                                                  //
          settings::frmOptions, settings::frmMoreToConfigure, settings::frmStarter, settings::frmResources,  //
          settings::frmMozillaDir, settings::frmOperaDir, settings::frmChromeDir, settings::frmSafariDir,    //
          settings::frmIEInDepthClean, tools::frmTempAge, tools::frmManualSearch, tools::frmSearchMasks,
          tools::frmIECache, tools::frmIECookies, plugins::frmPlugsInfo, desktop::frmWidget>(program);
}

}  // namespace tidvane::app
