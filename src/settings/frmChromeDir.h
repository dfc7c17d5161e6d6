// The folders of Chrome.
#pragma once

#include "settings/browser_dir_form.h"

namespace tidvane::settings {

class frmChromeDir : public BrowserDirForm {
public:
    static constexpr const char* kName = "frmChromeDir";

    explicit frmChromeDir(settings::Program& program);

    forms::TextBox& txtChromeFileDir = fileDir;
    forms::TextBox& txtChromeFileDirRoot = secondDir;
    forms::TextBox& txtChromeCacheDir = cacheDir;
    forms::CheckBox& chkChromeDir = usable;
    forms::CheckBox& chkChromeDisableAutoDetect = disableAutoDetect;
};

}  // namespace tidvane::settings
