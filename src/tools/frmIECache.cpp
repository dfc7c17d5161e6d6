#include "tools/frmIECache.h"

#include <cstdio>
#include <vector>

#include "base/date_time.h"
#include "base/numbers.h"
#include "settings/modFormINI.h"
#include "tools/save_rows.h"

namespace tidvane::tools {

namespace {

constexpr std::uint32_t kNormalEntry = 1;

std::string timeOf(std::uint64_t lastAccess) {
    const base::DateTime at = base::fromFileTime(lastAccess);
    char text[64];
    std::snprintf(text, sizeof text, "%02d.%02d.%d %02d:%02d:%02d", at.day, at.month, at.year, at.hour, at.minute,
                  at.second);
    return text;
}

}  // namespace

frmIECache::frmIECache(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Internet Explorer Browser Cache Manager");
    mnudeleteall.isDefault.design(true);
    mnBar.Visible.design(false);  // a pop-up
    for (forms::Menu* entry :
         {&mnuselectall, &mnudeselectall, &mnudeleteall, &mnudeleteselected, &mnurefreshcache, &mnusavecachefile}) {
        entry->parent = mnBar.Name;
    }
    cmdDeleteAll.Click.connect([this] { deleteAll(); });
    mnuselectall.Click.connect([this] { lstCache.selectAll(true); });
    mnudeselectall.Click.connect([this] { lstCache.selectAll(false); });
    mnudeleteall.Click.connect([this] { deleteAll(); });
    mnudeleteselected.Click.connect([this] { deleteSelected(); });
    mnurefreshcache.Click.connect([this] { FillCacheList(); });
    mnusavecachefile.Click.connect([this] { saveRows(program_, lstCache.rows()); });
    tmrCache.Tick.connect([this] { tmrCache_Timer(); });
}

void frmIECache::Form_Load() {
    const settings::LangTable& text = program_.LangText;
    mnurefreshcache.Caption = text(810);
    mnuselectall.Caption = text(811);
    mnudeselectall.Caption = text(812);
    mnudeleteall.Caption = text(813);
    cmdDeleteAll.Caption = text(813);
    mnudeleteselected.Caption = text(814);
    mnusavecachefile.Caption = text(815);
    chkAllCookies.Caption = text(816);
    if (!settings::LoadFormINI(program_, *this)) chkAllCookies.Value = 0;
    FillCacheList();
}

void frmIECache::Form_Unload() {
    settings::SaveFormINI(program_, *this);
}

void frmIECache::FillCacheList() {
    lstCache.Clear();
    for (const platform::UrlCacheEntry& entry : program_.platform.browserCache.entries()) {
        if ((entry.type & kNormalEntry) != 0) lstCache.AddItem(timeOf(entry.lastAccess) + "|" + entry.sourceUrlName);
    }
}

std::string frmIECache::addressOf(int row) const {
    const std::string& text = lstCache.List(row);
    return text.substr(text.find('|') + 1);
}

bool frmIECache::goesWithAll(int row) const {
    return chkAllCookies.ticked() || lstCache.List(row).find("Cookie") == std::string::npos;
}

void frmIECache::listMouseMove(int y, int rowHeight, int topRow) {
    const int row = rowHeight > 0 && y >= 0 ? y / rowHeight + topRow : -1;
    lstCache.ToolTipText = row >= 0 && row < lstCache.ListCount() ? lstCache.List(row) : std::string();
}

void frmIECache::listRightClick() {
    program_.display.popUpMenu(*this, "mnBar");
}

void frmIECache::deleteAll() {
    if (!program_.allowsRemoval(settings::Removal::Manager)) return;
    {
        const platform::ManyDeletes together(program_.platform.browserCache);
        for (int row = 0; row < lstCache.ListCount(); ++row) {
            if (goesWithAll(row)) (void)program_.platform.browserCache.DeleteUrlCacheEntry(addressOf(row));
        }
    }
    FillCacheList();
}

void frmIECache::deleteSelected() {
    if (!program_.allowsRemoval(settings::Removal::Manager)) return;
    // The current row alone, a cookie too: the marks of "select all" play no part. Intended.
    const int row = lstCache.ListIndex();
    if (row >= 0) (void)program_.platform.browserCache.DeleteUrlCacheEntry(addressOf(row));
    FillCacheList();
}

void frmIECache::tmrCache_Timer() {
    lblfoundCache.Caption = base::numberText(std::int64_t{lstCache.ListCount()}) + " " + program_.LangText(500);
    const bool any = lstCache.ListCount() > 0;
    for (forms::Menu* menu : {&mnudeselectall, &mnudeleteall, &mnudeleteselected, &mnusavecachefile}) {
        menu->Enabled = any;
    }
}

}  // namespace tidvane::tools
