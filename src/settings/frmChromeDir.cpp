#include "settings/frmChromeDir.h"

namespace tidvane::settings {

frmChromeDir::frmChromeDir(settings::Program& program)
    : BrowserDirForm(program, {.window = kName,
                               .browser = "Chrome",
                               .page = TaskPage::Chrome,
                               .browserText = 309,
                               .profileText = 820,
                               .fileDir = "txtChromeFileDir",
                               .secondDir = "txtChromeFileDirRoot",
                               .cmdSecondDir = "cmdFileFolderPathRoot",
                               .cacheDir = "txtChromeCacheDir",
                               .usable = "chkChromeDir",
                               .disableAutoDetect = "chkChromeDisableAutoDetect",
                               .fileDirEndsInBackslash = true,
                               .cacheDirEndsInBackslash = true}) {}

}  // namespace tidvane::settings
