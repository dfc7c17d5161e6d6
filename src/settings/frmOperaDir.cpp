#include "settings/frmOperaDir.h"

namespace tidvane::settings {

frmOperaDir::frmOperaDir(settings::Program& program)
    : BrowserDirForm(program, {.window = kName,
                               .browser = "Opera",
                               .page = TaskPage::Opera,
                               .browserText = 308,
                               .profileText = 823,
                               .fileDir = "txtOperaFileDir",
                               .secondDir = "txtOperaFileLocalDir",
                               .cmdSecondDir = "cmdFileFolderLocalPath",
                               .cacheDir = "txtOperaCacheDir",
                               .usable = "chkOperaDir",
                               .disableAutoDetect = "chkOperaDisableAutoDetect",
                               .fileDirEndsInBackslash = true,
                               .cacheDirEndsInBackslash = true}) {}

}  // namespace tidvane::settings
