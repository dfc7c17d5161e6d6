#include <gtest/gtest.h>

#include "base/date_time.h"
#include "support/program_fixture.h"
#include "tools/frmIECache.h"

namespace tidvane::tests {
namespace {

class IECache : public ::testing::Test, protected ProgramFixture {
protected:
    IECache() {
        add("http://a.example/x", 1, {2009, 11, 3, 7, 5, 9});
        add("Cookie:anna@b.example/", 0x100001, {2011, 1, 2, 23, 0, 0});
        add("visited", 0x200000, {2010, 1, 1, 0, 0, 0});
        add("http://c.example/?a|b", 1, {2010, 12, 31, 12, 30, 1});
    }
    void add(const std::string& url, std::uint32_t type, const base::DateTime& lastAccess) {
        platform::UrlCacheEntry entry;
        entry.sourceUrlName = url;
        entry.type = type;
        entry.lastAccess = base::toFileTime(lastAccess);
        machine.browserCache.cached.push_back(entry);
    }
    tools::frmIECache& window() { return program.get<tools::frmIECache>(); }
};

TEST_F(IECache, ListsNormalEntriesWithTheirTime) {
    ASSERT_EQ(window().lstCache.ListCount(), 3);
    EXPECT_EQ(window().lstCache.List(0), "03.11.2009 07:05:09|http://a.example/x");
    EXPECT_EQ(window().lstCache.List(2), "31.12.2010 12:30:01|http://c.example/?a|b");
}

TEST_F(IECache, DeleteAllSparesCookiesUnlessTheBoxIsTicked) {
    window().cmdDeleteAll.setValue(true);
    EXPECT_EQ(machine.browserCache.deleteCalls,
              (std::vector<std::string>{"http://a.example/x", "http://c.example/?a|b"}));
    EXPECT_EQ(window().lstCache.ListCount(), 1);
    window().chkAllCookies.Value = 1;
    window().mnudeleteall.Click();
    EXPECT_EQ(machine.browserCache.deleteCalls.back(), "Cookie:anna@b.example/");
    EXPECT_EQ(window().lstCache.ListCount(), 0);
}

TEST_F(IECache, DeleteSelectedTakesTheCurrentRowWhateverItIs) {
    window().mnuselectall.Click();
    EXPECT_EQ(window().lstCache.SelCount(), 3);
    window().lstCache.setListIndex(1);
    window().mnudeleteselected.Click();
    EXPECT_EQ(machine.browserCache.deleteCalls, (std::vector<std::string>{"Cookie:anna@b.example/"}));
    EXPECT_EQ(window().lstCache.ListCount(), 2);
}

TEST_F(IECache, DeleteSelectedWithoutARowDeletesNothing) {
    window().mnudeleteselected.Click();
    EXPECT_TRUE(machine.browserCache.deleteCalls.empty());
}

TEST_F(IECache, TheTimerCountsAndSwitchesTheCommands) {
    program.LangText.set(500, "entries");
    window().tmrCache.fire();
    EXPECT_EQ(window().lblfoundCache.Caption, std::string("3 entries"));
    EXPECT_TRUE(window().mnudeleteall.Enabled);
    machine.browserCache.cached.clear();
    window().mnurefreshcache.Click();
    window().tmrCache.fire();
    EXPECT_EQ(window().lblfoundCache.Caption, std::string("0 entries"));
    EXPECT_FALSE(window().mnudeleteall.Enabled);
    EXPECT_FALSE(window().mnudeleteselected.Enabled);
    EXPECT_FALSE(window().mnudeselectall.Enabled);
    EXPECT_FALSE(window().mnusavecachefile.Enabled);
    EXPECT_TRUE(window().mnurefreshcache.Enabled);
}

TEST_F(IECache, AnEmptyCacheLeavesTheListEmptyAndItsCommandsDoNothing) {
    machine.browserCache.cached.clear();
    window().tmrCache.fire();
    EXPECT_EQ(window().lstCache.ListCount(), 0);
    EXPECT_FALSE(window().mnudeleteall.Enabled);
    window().cmdDeleteAll.setValue(true);
    window().mnudeleteselected.Click();
    window().mnuselectall.Click();
    EXPECT_TRUE(machine.browserCache.deleteCalls.empty());
}

TEST_F(IECache, ANormalEntryWithTheWordCookieInItsPathCountsAsOne) {
    machine.browserCache.cached.clear();
    add("http://d.example/Cookies/recipe.htm", 1, {2009, 11, 3, 7, 5, 9});
    add("http://d.example/cookies/recipe.htm", 1, {2009, 11, 3, 7, 5, 9});  // another case: no cookie
    window().mnudeleteall.Click();
    EXPECT_EQ(machine.browserCache.deleteCalls, (std::vector<std::string>{"http://d.example/cookies/recipe.htm"}));
    ASSERT_EQ(window().lstCache.ListCount(), 1);
    EXPECT_EQ(window().addressOf(0), "http://d.example/Cookies/recipe.htm");
}

TEST_F(IECache, AGreyedBoxSparesCookies) {
    window().chkAllCookies.Value = 2;
    window().mnudeleteall.Click();
    EXPECT_EQ(window().lstCache.ListCount(), 1);
}

TEST_F(IECache, AddressesKeepTheirOwnBars) {
    EXPECT_EQ(window().addressOf(2), "http://c.example/?a|b");
    window().lstCache.setListIndex(2);
    window().mnudeleteselected.Click();
    EXPECT_EQ(machine.browserCache.deleteCalls, (std::vector<std::string>{"http://c.example/?a|b"}));
}

TEST_F(IECache, SelectionPlaysNoPartInDeleteAll) {
    window().mnuselectall.Click();
    window().mnudeselectall.Click();
    EXPECT_EQ(window().lstCache.SelCount(), 0);
    window().mnudeleteall.Click();
    EXPECT_EQ(machine.browserCache.deleteCalls.size(), 2u);
}

TEST_F(IECache, TheTipIsTheRowBelowThePointer) {
    const auto tipAt = [this](int y, int rowHeight, int topRow) {
        window().listMouseMove(y, rowHeight, topRow);
        return window().lstCache.ToolTipText.get();
    };
    EXPECT_EQ(tipAt(0, 13, 0), window().lstCache.List(0));
    EXPECT_EQ(tipAt(12, 13, 0), window().lstCache.List(0));
    EXPECT_EQ(tipAt(13, 13, 0), window().lstCache.List(1));
    EXPECT_EQ(tipAt(13, 13, 1), window().lstCache.List(2));  // scrolled down by one row
    EXPECT_EQ(tipAt(13, 13, 2), "");                         // below the last row
    EXPECT_EQ(tipAt(-1, 13, 0), "");
    EXPECT_EQ(tipAt(5, 0, 0), "");
}

TEST_F(IECache, TheRightButtonOffersToDeleteAll) {
    window().listRightClick();
    EXPECT_EQ(display.menus, (std::vector<std::pair<std::string, std::string>>{{"frmIECache", "mnBar"}}));
    for (const forms::Control* control : window().Controls()) {
        if (control->kind != forms::ControlKind::Menu) continue;
        EXPECT_EQ(static_cast<const forms::Menu*>(control)->isDefault, control->Name == "mnudeleteall")
            << control->Name;
    }
}

TEST_F(IECache, ThePopUpHoldsItsCommandsAndNeverStandsInABar) {
    std::string entries;
    for (const forms::Control* control : window().Controls()) {
        if (control->kind != forms::ControlKind::Menu) continue;
        if (static_cast<const forms::Menu*>(control)->parent == "mnBar") entries += control->Name + " ";
    }
    EXPECT_EQ(entries, "mnuselectall mnudeselectall mnudeleteall mnudeleteselected mnurefreshcache mnusavecachefile ");
    EXPECT_FALSE(window().mnBar.Visible);
}

TEST_F(IECache, TakesItsCaptionsAndKeepsItsTitle) {
    for (int entry = 810; entry <= 816; ++entry) program.LangText.set(entry, "L" + std::to_string(entry));
    EXPECT_EQ(window().Caption, std::string("Internet Explorer Browser Cache Manager"));
    EXPECT_EQ(window().mnurefreshcache.Caption, std::string("L810"));
    EXPECT_EQ(window().mnuselectall.Caption, std::string("L811"));
    EXPECT_EQ(window().mnudeselectall.Caption, std::string("L812"));
    EXPECT_EQ(window().mnudeleteall.Caption, std::string("L813"));
    EXPECT_EQ(window().cmdDeleteAll.Caption, std::string("L813"));
    EXPECT_EQ(window().mnudeleteselected.Caption, std::string("L814"));
    EXPECT_EQ(window().mnusavecachefile.Caption, std::string("L815"));
    EXPECT_EQ(window().chkAllCookies.Caption, std::string("L816"));
}

TEST_F(IECache, SavesTheListAsItStands) {
    window().mnusavecachefile.Click();  // cancelled
    display.files = {"C:\\list.txt"};
    window().mnusavecachefile.Click();
    EXPECT_EQ(machine.files.bytesOf("C:\\list.txt"),
              "03.11.2009 07:05:09|http://a.example/x\r\n02.01.2011 23:00:00|Cookie:anna@b.example/\r\n"
              "31.12.2010 12:30:01|http://c.example/?a|b\r\n");
}

TEST_F(IECache, AListThatCannotBeSavedShowsNoError) {
    display.files = {"C:\\list.txt"};
    machine.files.putFile("C:\\list.txt", "before");
    machine.files.refuse("C:\\list.txt", platform::operation::Write, platform::Status::Denied);
    window().mnusavecachefile.Click();
    EXPECT_EQ(machine.files.bytesOf("C:\\list.txt"), "before");
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(IECache, TheBoxIsStoredWhenTheWindowGoes) {
    EXPECT_EQ(window().chkAllCookies.Value, 0);
    window().chkAllCookies.Value = 1;
    program.windows.unload(window());
    EXPECT_EQ(storedValue("frmIECache", "chkAllCookies"), "1");
    EXPECT_EQ(storedValue("frmIECache", "lstCache"), "<none>");
    EXPECT_EQ(window().chkAllCookies.Value, 1);
}

}  // namespace
}  // namespace tidvane::tests
