#include "app/all_windows.h"

#include <memory>

#include "app/frmDiskSizeStats.h"
#include "app/frmMain.h"
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

template <class... Forms>
void offer(settings::Program& program) {
    (program.windows.offer(Forms::kName, [&program] { return std::make_unique<Forms>(program); }), ...);
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
