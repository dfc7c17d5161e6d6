// The folders of Safari.
#pragma once

#include "settings/browser_dir_form.h"

namespace tidvane::settings {

class frmSafariDir : public BrowserDirForm {
public:
    static constexpr const char* kName = "frmSafariDir";

    explicit frmSafariDir(settings::Program& program);

    forms::TextBox& txtSafariFileDir = fileDir;
    forms::TextBox& txtSafariFileLocalDir = secondDir;
    forms::TextBox& txtSafariCacheDir = cacheDir;
    forms::CheckBox& chkSafariDir = usable;
    forms::CheckBox& chkSafariDisableAutoDetect = disableAutoDetect;
};

}  // namespace tidvane::settings
