#include "settings/frmMozillaDir.h"

namespace tidvane::settings {

frmMozillaDir::frmMozillaDir(settings::Program& program)
    : BrowserDirForm(program, {.window = kName,
                               .browser = "Firefox",
                               .page = TaskPage::Mozilla,
                               .browserText = 307,
                               .profileText = 823,
                               .fileDir = "txtMozillaFileDir",
                               .secondDir = "txtMozillaFileLocalDir",
                               .cmdSecondDir = "cmdFileFolderLocalPath",
                               .cacheDir = "txtMozillaCacheDir",
                               .usable = "chkMozillaDir",
                               .disableAutoDetect = "chkMozillaDisableAutoDetect",
                               .fileDirEndsInBackslash = false,
                               .cacheDirEndsInBackslash = false}) {}

}  // namespace tidvane::settings
