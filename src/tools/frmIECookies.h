// The files of Internet Explorer's cookie folder, one by one.
#pragma once

#include <string>

#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::tools {

// Works on files, where the cache manager works on the browser's index. Both deletes are plain ones, whatever
// cboKillMethod says.
class frmIECookies : public forms::Form {
public:
    static constexpr const char* kName = "frmIECookies";

    explicit frmIECookies(settings::Program& program);

    void Form_Load() override;

    // Adds a row for each name in the folder behind the first one that its listing delivers, files of every kind of
    // attribute; lets events in before each name; then selects the last row. "" counts as "\", the root of the drive of
    // the program.
    void EnumCookies(const std::string& folder);

    void listRightClick();

    forms::Label lblCookies{*this, "lblCookies", "Cookie-Ordner:"};
    forms::Label lblCookieDir{*this, "lblCookieDir"};
    // Key: full path; text: name of the file. Several rows may be selected.
    forms::ListView lstCookies{*this, "lstCookies"};
    forms::Label lblfoundCookies{*this, "lblfoundCookies"};

    forms::Menu mnBar{*this, "mnBar"};
    forms::Menu mnuselectall{*this, "mnuselectall", "Alle markieren"};
    forms::Menu mnudeselectall{*this, "mnudeselectall", "Markierung aufheben"};
    forms::Menu mnudeleteall{*this, "mnudeleteall", "Alle löschen"};
    forms::Menu mnudeleteselected{*this, "mnudeleteselected", "Auswahl löschen"};
    forms::Menu mnurefreshcookies{*this, "mnurefreshcookies", "Aktualisieren"};
    forms::Menu mnusavecookiefile{*this, "mnusavecookiefile", "Liste speichern"};
    forms::Timer tmrCookies{*this, "tmrCookies", 100, true};

private:
    void deleteAll();
    void deleteSelected();
    void refresh();
    void save();
    void tmrCookies_Timer();
    bool killed(const std::string& file);
    // The listed folder is one whose files may go: no root of a drive, and not unknown.
    bool folderIsCookies() const;
    // The same, asked of the guard of protected places too, which tells the user when it refuses.
    bool mayDelete();

    settings::Program& program_;
};

}  // namespace tidvane::tools
