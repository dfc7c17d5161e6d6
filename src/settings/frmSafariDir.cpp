#include "settings/frmSafariDir.h"

namespace tidvane::settings {

frmSafariDir::frmSafariDir(settings::Program& program)
    : BrowserDirForm(program, {.window = kName,
                               .browser = "Safari",
                               .page = TaskPage::Safari,
                               .browserText = 310,
                               .profileText = 823,
                               .fileDir = "txtSafariFileDir",
                               .secondDir = "txtSafariFileLocalDir",
                               .cmdSecondDir = "cmdFileFolderLocalPath",
                               .cacheDir = "txtSafariCacheDir",
                               .usable = "chkSafariDir",
                               .disableAutoDetect = "chkSafariDisableAutoDetect",
                               .fileDirEndsInBackslash = true,
                               .cacheDirEndsInBackslash = true}) {}

}  // namespace tidvane::settings
