// The cache of Internet Explorer, entry by entry.
#pragma once

#include <string>

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::tools {

class frmIECache : public forms::Form {
public:
    static constexpr const char* kName = "frmIECache";

    explicit frmIECache(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    // Fills the list anew: one row for each normal entry, "DD.MM.YYYY hh:mm:ss|URL", the time of the last access in
    // UTC.
    void FillCacheList();
    // The URL of a row: what stands behind its first bar; the URL may have bars of its own.
    std::string addressOf(int row) const;
    // Whether a full delete takes the row: all of them with chkAllCookies ticked, otherwise those without "Cookie"
    // anywhere, in this case of letters.
    bool goesWithAll(int row) const;

    // The pointer over the list, `y` pixels below its upper edge; height of a row and number of the uppermost row in
    // view as the list on the screen tells them. The tip becomes the row below the pointer, empty where there is none.
    void listMouseMove(int y, int rowHeight, int topRow);
    void listRightClick();

    forms::Label lblCache{*this, "lblCache", "Cache"};
    forms::ListBox lstCache{*this, "lstCache"};
    forms::Label lblfoundCache{*this, "lblfoundCache"};
    // A full delete includes the entries of cookies.
    forms::CheckBox chkAllCookies{*this, "chkAllCookies", "Auch Cookies löschen"};
    // A plain button: the task of the cache presses it by setting its value.
    forms::CommandButton cmdDeleteAll{*this, "cmdDeleteAll", "Alle löschen"};

    forms::Menu mnBar{*this, "mnBar"};
    forms::Menu mnuselectall{*this, "mnuselectall", "Alle markieren"};
    forms::Menu mnudeselectall{*this, "mnudeselectall", "Markierung aufheben"};
    forms::Menu mnudeleteall{*this, "mnudeleteall", "Alle löschen"};
    forms::Menu mnudeleteselected{*this, "mnudeleteselected", "Auswahl löschen"};
    forms::Menu mnurefreshcache{*this, "mnurefreshcache", "Aktualisieren"};
    forms::Menu mnusavecachefile{*this, "mnusavecachefile", "Liste speichern"};
    forms::Timer tmrCache{*this, "tmrCache", 100, true};

private:
    void deleteAll();
    void deleteSelected();
    void tmrCache_Timer();

    settings::Program& program_;
};

}  // namespace tidvane::tools
