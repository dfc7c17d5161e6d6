#include "settings/browser_dir_form.h"

#include "base/text.h"
#include "settings/modFormINI.h"

namespace tidvane::settings {

BrowserDirForm::BrowserDirForm(settings::Program& program, const Names& names)
    : Form(names.window),
      names_(names),
      program_(program),
      frmFolders(*this, "frmFolders", "Ordner"),
      fileDir(*this, names.fileDir),
      secondDir(*this, names.secondDir),
      cmdSecondFolderPath(*this, names.cmdSecondDir, "..."),
      cacheDir(*this, names.cacheDir),
      usable(*this, names.usable, "Ordner verwenden"),
      disableAutoDetect(*this, names.disableAutoDetect, "Nicht automatisch suchen") {
    Caption.design(std::string("Ordner [") + names.browser + "]");
    cmdFileFolderPath.Click.connect([this] { browse(fileDir, names_.fileDirEndsInBackslash); });
    cmdSecondFolderPath.Click.connect([this] { browse(secondDir, true); });
    cmdCacheFolderPath.Click.connect([this] { browse(cacheDir, names_.cacheDirEndsInBackslash); });
    // A tick that the search has set is lost, since the next load knows only what was stored; the page of the options
    // window stays on offer: intended.
    cmdAbort.Click.connect([this] { program_.windows.unload(*this); });
    cmdOK.Click.connect([this] { cmdOK_Click(); });
}

void BrowserDirForm::Form_Load() {
    const LangTable& text = program_.LangText;
    Caption = text(819) + " [" + text(names_.browserText) + "]";
    frmFolders.Caption = text(819);
    lblProfile.Caption = text(names_.profileText);
    lblCache.Caption = text(821);
    for (controls::isButton* button : {&cmdFileFolderPath, &cmdSecondFolderPath, &cmdCacheFolderPath}) {
        button->Caption = text(352);
    }
    usable.Caption = text(822);
    cmdAbort.Caption = text(301);
    disableAutoDetect.Caption = text(846);
    if (LoadFormINI(program_, *this)) return;
    // The two main folder boxes are the profile and the cache; the second box keeps its text: intended.
    fileDir.setText({});
    cacheDir.setText({});
    usable.Value = 0;
    disableAutoDetect.Value = 0;
}

void BrowserDirForm::browse(forms::TextBox& box, bool endsInBackslash) {
    const std::string folder = program_.display.askFolder(this, program_.LangText(825));
    if (!folder.empty()) box.setText(endsInBackslash ? base::withBackslash(folder) : folder);
}

forms::TextBox& BrowserDirForm::box(BrowserBox which) {
    return which == BrowserBox::Profile ? fileDir : which == BrowserBox::Second ? secondDir : cacheDir;
}

// A folder that was typed gets what a chosen one gets, or the tasks would find nothing.
void BrowserDirForm::completeTypedFolders() {
    const auto complete = [](forms::TextBox& box) {
        if (!box.Text().empty()) box.setText(base::withBackslash(box.Text()));
    };
    if (names_.fileDirEndsInBackslash) {
        complete(fileDir);
        complete(secondDir);
    }
    if (names_.cacheDirEndsInBackslash) complete(cacheDir);
}

void BrowserDirForm::cmdOK_Click() {
    completeTypedFolders();
    tellOfEmptiedBoxes(program_, *this);
    SaveFormINI(program_, *this);
    // Asked first: an options window that loads only now searches anew and may tick this box again.
    const bool known = usable.ticked();
    program_.get<frmOptions>().enableTaskPage(names_.page, known);
    program_.windows.unload(*this);
}

}  // namespace tidvane::settings
