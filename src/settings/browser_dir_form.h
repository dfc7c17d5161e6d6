// What the four windows with a browser's folders have in common.
#pragma once

#include <string>

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/frmOptions.h"
#include "settings/program.h"

namespace tidvane::settings {

// The three boxes: the profile (the roaming one where there are two), the local profile (Chrome: the folder of all
// profiles), and the cache.
enum class BrowserBox { Profile, Second, Cache };

// The paths that the tasks of a browser read. Found by the options window at its load, or set here by the user.
class BrowserDirForm : public forms::Form {
public:
    void Form_Load() override;

    TaskPage page() const { return names_.page; }
    const char* browser() const { return names_.browser; }
    forms::TextBox& box(BrowserBox which);

protected:
    // Names of the controls, and what differs between the browsers.
    struct Names {
        const char* window;
        const char* browser;
        TaskPage page;
        int browserText;  // the browser's entry in the language table
        int profileText;  // the caption of lblProfile
        const char* fileDir;
        const char* secondDir;
        const char* cmdSecondDir;
        const char* cacheDir;
        const char* usable;
        const char* disableAutoDetect;
        // The tasks join a file name to the box without a separator: its folder gets a backslash.
        bool fileDirEndsInBackslash;
        bool cacheDirEndsInBackslash;
    };

    BrowserDirForm(settings::Program& program, const Names& names);

private:
    const Names names_;
    settings::Program& program_;

public:
    forms::Frame frmFolders;
    forms::Label lblProfile{*this, "lblProfile", "Profilordner"};
    forms::TextBox fileDir;
    controls::isButton cmdFileFolderPath{*this, "cmdFileFolderPath", "..."};
    forms::TextBox secondDir;
    controls::isButton cmdSecondFolderPath;
    forms::Label lblCache{*this, "lblCache", "Cacheordner"};
    forms::TextBox cacheDir;
    controls::isButton cmdCacheFolderPath{*this, "cmdCacheFolderPath", "..."};
    forms::CheckBox usable;  // the folders are known: the browser's tasks are on offer
    forms::CheckBox disableAutoDetect;
    controls::isButton cmdOK{*this, "cmdOK", "OK"};  // on from the start, or nobody could set folders by hand: intended
    controls::isButton cmdAbort{*this, "cmdAbort", "Abbrechen"};

private:
    void browse(forms::TextBox& box, bool endsInBackslash);
    void completeTypedFolders();
    void cmdOK_Click();
};

}  // namespace tidvane::settings
