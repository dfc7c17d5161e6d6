// The folders of Firefox.
#pragma once

#include "settings/browser_dir_form.h"

namespace tidvane::settings {

class frmMozillaDir : public BrowserDirForm {
public:
    static constexpr const char* kName = "frmMozillaDir";

    explicit frmMozillaDir(settings::Program& program);

    forms::TextBox& txtMozillaFileDir = fileDir;
    forms::TextBox& txtMozillaFileLocalDir = secondDir;
    forms::TextBox& txtMozillaCacheDir = cacheDir;
    forms::CheckBox& chkMozillaDir = usable;
    forms::CheckBox& chkMozillaDisableAutoDetect = disableAutoDetect;
};

}  // namespace tidvane::settings
