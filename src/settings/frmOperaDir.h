// The folders of Opera.
#pragma once

#include "settings/browser_dir_form.h"

namespace tidvane::settings {

class frmOperaDir : public BrowserDirForm {
public:
    static constexpr const char* kName = "frmOperaDir";

    explicit frmOperaDir(settings::Program& program);

    forms::TextBox& txtOperaFileDir = fileDir;
    forms::TextBox& txtOperaFileLocalDir = secondDir;
    forms::TextBox& txtOperaCacheDir = cacheDir;
    forms::CheckBox& chkOperaDir = usable;
    forms::CheckBox& chkOperaDisableAutoDetect = disableAutoDetect;
};

}  // namespace tidvane::settings
