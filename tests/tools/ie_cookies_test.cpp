#include <gtest/gtest.h>

#include "settings/frmOptions.h"
#include "support/program_fixture.h"
#include "tools/frmIECookies.h"

namespace tidvane::tests {
namespace {

namespace attribute = platform::attribute;

const std::string kCookies = "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Cookies";
const std::string kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

class IECookies : public ::testing::Test, protected ProgramFixture {
protected:
    void storeFolder(const std::string& folder) {
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(kShellFolders, "\\")) key = key->findOrAdd(part);
        key->setText("Cookies", folder);
    }
    // Three cookies in the folder that the registry names.
    void furnish() {
        storeFolder(kCookies);
        for (const char* name : {"anna@b[1].txt", "anna@a[1].txt", "index.dat"}) put(name);
    }
    void put(const std::string& name) { machine.files.putFile(kCookies + "\\" + name, "1"); }
    bool has(const std::string& name) { return machine.files.has(kCookies + "\\" + name); }

    tools::frmIECookies& window() { return program.get<tools::frmIECookies>(); }
    std::vector<std::string> names() {
        std::vector<std::string> texts;
        for (const forms::ListItem& item : window().lstCookies.items()) texts.push_back(item.text);
        return texts;
    }
    std::vector<std::string> selected() {
        std::vector<std::string> texts;
        for (const forms::ListItem& item : window().lstCookies.items()) {
            if (item.selected) texts.push_back(item.text);
        }
        return texts;
    }
    void select(const std::string& name) {
        for (int row = 1; row <= window().lstCookies.Count(); ++row) {
            if (window().lstCookies.item(row)->text == name) window().lstCookies.mark(row, true);
        }
    }
    using Names = std::vector<std::string>;
};

// --- the list

TEST_F(IECookies, ListsTheFilesOfTheFolderThatTheRegistryNames) {
    furnish();
    EXPECT_EQ(window().lblCookieDir.Caption, kCookies);
    EXPECT_EQ(names(), (Names{"anna@a[1].txt", "anna@b[1].txt", "index.dat"}));
    EXPECT_EQ(window().lstCookies.item(1)->key, kCookies + "\\anna@a[1].txt");
    ASSERT_EQ(window().lstCookies.ColumnHeaders.size(), 1u);
    EXPECT_EQ(window().lstCookies.ColumnHeaders[0].text, "Cookie Name");
}

TEST_F(IECookies, SelectsTheLastRow) {
    furnish();
    EXPECT_EQ(selected(), Names{"index.dat"});
}

TEST_F(IECookies, ListsHiddenAndSystemFilesAndNoFolderAndNeverTheFolderAbove) {
    furnish();
    machine.files.setAttributes(kCookies + "\\anna@a[1].txt", attribute::Hidden);
    machine.files.setAttributes(kCookies + "\\anna@b[1].txt", attribute::ReadOnly);
    machine.files.setAttributes(kCookies + "\\index.dat", attribute::System | attribute::Hidden);
    machine.files.putFile(kCookies + "\\Low\\anna@c[1].txt", "1");
    EXPECT_EQ(names(), (Names{"anna@a[1].txt", "anna@b[1].txt", "index.dat"}));
}

// In a folder the first name delivered is the folder itself, ".": the one cookie there is listed.
TEST_F(IECookies, LosesNoCookieOfAFolderToTheNameThatIsNotUsed) {
    storeFolder(kCookies);
    put("anna@a[1].txt");
    EXPECT_EQ(names(), Names{"anna@a[1].txt"});
}

// The root of a drive has no such name: its first entry is not used, whatever it is.
TEST_F(IECookies, StaysEmptyInARootWithOneEntry) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 1000000, 2000000);
    storeFolder("D:\\");
    machine.files.putFile("D:\\only.txt", "1");
    EXPECT_EQ(names(), Names{});
    machine.files.putFile("D:\\second.txt", "1");
    window().mnurefreshcookies.Click();
    EXPECT_EQ(names(), Names{"second.txt"});
    EXPECT_EQ(window().lstCookies.item(1)->key, "D:\\second.txt");
}

TEST_F(IECookies, TheNameNotUsedInARootMayBeAFolder) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 1000000, 2000000);
    storeFolder("D:");
    machine.files.putFolder("D:\\Apples");
    machine.files.putFile("D:\\pears.txt", "1");
    EXPECT_EQ(names(), Names{"pears.txt"});
    machine.files.putFile("D:\\$hidden", "1");
    machine.files.setAttributes("D:\\$hidden", attribute::Hidden);
    // Passed over on the way to the first name, which is asked for without hidden files.
    window().mnurefreshcookies.Click();
    EXPECT_EQ(names(), Names{"pears.txt"});
}

TEST_F(IECookies, AnEmptyValueListsTheRootOfTheCurrentDrive) {
    machine.files.putFile("C:\\a first.txt", "1");
    machine.files.putFile("C:\\a second.txt", "1");
    EXPECT_EQ(window().lblCookieDir.Caption, std::string());
    EXPECT_EQ(names(), Names{"a second.txt"});
    EXPECT_EQ(window().lstCookies.item(1)->key, "\\a second.txt");
    storeFolder("\\");
    program.windows.unload(window());
    EXPECT_EQ(names(), Names{"a second.txt"});
}

TEST_F(IECookies, AMissingFolderLeavesTheListEmpty) {
    storeFolder("C:\\Nowhere");
    EXPECT_EQ(names(), Names{});
    storeFolder(kCookies);
    program.windows.unload(window());
    machine.files.take(kCookies);
    EXPECT_EQ(names(), Names{});
}

TEST_F(IECookies, AnEmptyFolderLeavesTheListEmpty) {
    storeFolder(kCookies);
    EXPECT_EQ(names(), Names{});
    window().mnudeleteall.Click();
    window().mnudeleteselected.Click();
    window().mnuselectall.Click();
    EXPECT_EQ(names(), Names{});
}

TEST_F(IECookies, AValueThatIsNoTextIsNoFolder) {
    platform::RegistryKeyPtr key = machine.registryTree.currentUser();
    for (const std::string& part : base::split(kShellFolders, "\\")) key = key->findOrAdd(part);
    key->set("Cookies", platform::kRegDword, std::string("\x07\0\0\0", 4));
    EXPECT_EQ(window().lblCookieDir.Caption, std::string());
}

TEST_F(IECookies, LetsEventsInForEveryName) {
    furnish();
    const std::uint64_t pumps = machine.events.pumps;
    window();
    EXPECT_EQ(machine.events.pumps - pumps, 4u);  // three names and the end
}

TEST_F(IECookies, AWindowClosedWhileItListsStopsListing) {
    furnish();
    window().lstCookies.Clear();
    tools::frmIECookies& closing = window();
    machine.events.onPump(2, [&] { program.windows.unload(closing); });
    closing.EnumCookies(kCookies);
    EXPECT_EQ(closing.lstCookies.Count(), 1);
    EXPECT_EQ(program.windows.ifLoaded("frmIECookies"), nullptr);
}

TEST_F(IECookies, ListsAFolderWithAndWithoutItsBackslashAlike) {
    storeFolder("C:\\Nowhere");
    put("a.txt");
    window().EnumCookies(kCookies);
    window().EnumCookies(kCookies + "\\");  // the same keys: no row comes twice
    EXPECT_EQ(names(), Names{"a.txt"});
}

// --- deleting

TEST_F(IECookies, DeleteAllRemovesEveryFileAndItsRowFromTheLastToTheFirst) {
    furnish();
    std::vector<std::string> order;
    window().lstCookies.viewChanged.connect([&] { order.push_back(std::to_string(window().lstCookies.Count())); });
    window().mnudeleteall.Click();
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(machine.files.everythingBelow(kCookies).empty());
    EXPECT_EQ(order, (std::vector<std::string>{"2", "1", "0"}));
}

TEST_F(IECookies, DeleteAllLeavesAReadOnlyCookieInTheFolderAndInTheList) {
    furnish();
    machine.files.setAttributes(kCookies + "\\anna@b[1].txt", attribute::ReadOnly);
    window().mnudeleteall.Click();
    EXPECT_EQ(names(), Names{"anna@b[1].txt"});
    EXPECT_TRUE(has("anna@b[1].txt"));
    EXPECT_EQ(machine.files.attributesOf(kCookies + "\\anna@b[1].txt"), attribute::ReadOnly);
    EXPECT_FALSE(has("anna@a[1].txt"));
    EXPECT_FALSE(has("index.dat"));
}

TEST_F(IECookies, DeleteSelectedRemovesAReadOnlyCookieOnItsSecondTry) {
    furnish();
    machine.files.setAttributes(kCookies + "\\anna@b[1].txt", attribute::ReadOnly);
    window().mnudeselectall.Click();
    select("anna@b[1].txt");
    window().mnudeleteselected.Click();
    EXPECT_EQ(names(), (Names{"anna@a[1].txt", "index.dat"}));
    EXPECT_FALSE(has("anna@b[1].txt"));
    EXPECT_TRUE(has("anna@a[1].txt"));
}

TEST_F(IECookies, DeleteSelectedRemovesAHiddenCookieAndDeleteAllDoesNot) {
    furnish();
    machine.files.setAttributes(kCookies + "\\index.dat", attribute::Hidden | attribute::System);
    window().mnudeleteall.Click();
    EXPECT_EQ(names(), Names{"index.dat"});
    EXPECT_TRUE(has("index.dat"));
    window().mnuselectall.Click();
    window().mnudeleteselected.Click();
    EXPECT_EQ(names(), Names{});
    EXPECT_FALSE(has("index.dat"));
}

TEST_F(IECookies, DeleteSelectedTakesEverySelectedRowAndNoOther) {
    furnish();
    select("anna@a[1].txt");  // beside the last row, which is selected from the start
    EXPECT_EQ(selected(), (Names{"anna@a[1].txt", "index.dat"}));
    window().mnudeleteselected.Click();
    EXPECT_EQ(names(), Names{"anna@b[1].txt"});
    EXPECT_EQ(machine.files.everythingBelow(kCookies), std::vector<std::string>{kCookies + "\\anna@b[1].txt"});
}

TEST_F(IECookies, ALockedCookieStaysInTheListAndTheOthersGo) {
    furnish();
    machine.files.lock(kCookies + "\\anna@b[1].txt");
    window().mnuselectall.Click();
    window().mnudeleteselected.Click();
    EXPECT_EQ(names(), Names{"anna@b[1].txt"});
    window().mnudeleteall.Click();
    EXPECT_EQ(names(), Names{"anna@b[1].txt"});
    machine.files.allow(kCookies + "\\anna@b[1].txt");
    window().mnudeleteall.Click();
    EXPECT_EQ(names(), Names{});
}

TEST_F(IECookies, ACookieThatIsGoneMeanwhileKeepsItsRow) {
    furnish();
    window();
    machine.files.take(kCookies + "\\anna@b[1].txt");
    window().mnuselectall.Click();
    window().mnudeleteselected.Click();
    // Its delete leaves an error behind, and that alone decides.
    EXPECT_EQ(names(), Names{"anna@b[1].txt"});
    window().mnurefreshcookies.Click();
    EXPECT_EQ(names(), Names{});
}

TEST_F(IECookies, DeletesPlainlyWhateverTheMethodOfTheOptionsIs) {
    furnish();
    for (const int method : {1, 2}) {
        program.get<settings::frmOptions>().cboKillMethod.setListIndex(method);
        put("again.txt");
        window().mnurefreshcookies.Click();
        window().mnudeleteall.Click();
        EXPECT_EQ(names(), Names{});
    }
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_TRUE(machine.files.overwritten.empty());
}

// --- what must not be deleted from

TEST_F(IECookies, TheDeleteCommandsStayDisabledWithoutAFolder) {
    for (const char* folder : {"", "\\", "C:\\", "C:"}) {
        storeFolder(folder);
        machine.files.putFile("C:\\a first.txt", "1");
        machine.files.putFile("C:\\a second.txt", "1");
        program.windows.unload(window());
        window().tmrCookies.fire();
        EXPECT_EQ(names(), Names{"a second.txt"}) << folder;
        EXPECT_FALSE(window().mnudeleteall.Enabled) << folder;
        EXPECT_FALSE(window().mnudeleteselected.Enabled) << folder;
        EXPECT_TRUE(window().mnudeselectall.Enabled) << folder;
        EXPECT_TRUE(window().mnusavecookiefile.Enabled) << folder;
        // And they do nothing where somebody calls them all the same, before the timer's first tick too.
        machine.files.setAttributes("C:\\a second.txt", attribute::ReadOnly);
        window().mnuselectall.Click();
        window().mnudeleteall.Click();
        window().mnudeleteselected.Click();
        EXPECT_TRUE(machine.files.has("C:\\a second.txt")) << folder;
        EXPECT_EQ(machine.files.attributesOf("C:\\a second.txt"), attribute::ReadOnly) << folder;
        EXPECT_EQ(names(), Names{"a second.txt"}) << folder;
    }
}

TEST_F(IECookies, AProtectedFolderIsListedAndKeepsItsFiles) {
    storeFolder("C:\\Windows\\System32");
    machine.files.putFile("C:\\Windows\\System32\\kernel32.dll", "1");
    EXPECT_EQ(names(), Names{"kernel32.dll"});
    EXPECT_TRUE(machine.warnings.empty());
    window().mnudeleteall.Click();
    window().mnuselectall.Click();
    window().mnudeleteselected.Click();
    EXPECT_EQ(names(), Names{"kernel32.dll"});
    EXPECT_TRUE(machine.files.has("C:\\Windows\\System32\\kernel32.dll"));
    EXPECT_FALSE(machine.warnings.empty());
}

// --- the other commands

TEST_F(IECookies, SelectAndDeselectMarkEveryRow) {
    furnish();
    window().mnuselectall.Click();
    EXPECT_EQ(selected(), names());
    window().mnudeselectall.Click();
    EXPECT_EQ(selected(), Names{});
}

TEST_F(IECookies, RefreshReadsTheFolderOfTheLabelAnew) {
    furnish();
    window();
    put("anna@c[1].txt");
    machine.files.take(kCookies + "\\anna@a[1].txt");
    storeFolder("C:\\Nowhere");  // read once, at the load
    window().mnurefreshcookies.Click();
    EXPECT_EQ(names(), (Names{"anna@b[1].txt", "anna@c[1].txt", "index.dat"}));
    EXPECT_EQ(selected(), Names{"index.dat"});
}

TEST_F(IECookies, SavesTheNamesAsALineEach) {
    furnish();
    window().mnusavecookiefile.Click();  // cancelled
    display.files = {"C:\\list.txt"};
    window().mnusavecookiefile.Click();
    EXPECT_EQ(machine.files.bytesOf("C:\\list.txt"), "anna@a[1].txt\r\nanna@b[1].txt\r\nindex.dat\r\n");
    ASSERT_EQ(display.fileQuestions.size(), 2u);
    EXPECT_TRUE(display.fileQuestions[0].save);
}

TEST_F(IECookies, TheTimerCountsAndSwitchesTheCommands) {
    program.LangText.set(500, "files");
    furnish();
    window().tmrCookies.fire();
    EXPECT_EQ(window().lblfoundCookies.Caption, std::string("3 files"));
    const auto commands = [this] {
        return std::vector<bool>{window().mnudeselectall.Enabled, window().mnudeleteall.Enabled,
                                 window().mnudeleteselected.Enabled, window().mnusavecookiefile.Enabled};
    };
    EXPECT_EQ(commands(), (std::vector<bool>{true, true, true, true}));
    window().mnudeleteall.Click();
    window().tmrCookies.fire();
    EXPECT_EQ(window().lblfoundCookies.Caption, std::string("0 files"));
    EXPECT_EQ(commands(), (std::vector<bool>{false, false, false, false}));
    EXPECT_TRUE(window().mnuselectall.Enabled);
    EXPECT_TRUE(window().mnurefreshcookies.Enabled);
}

TEST_F(IECookies, TheRightButtonOffersToDeleteTheSelection) {
    furnish();
    window().listRightClick();
    EXPECT_EQ(display.menus, (std::vector<std::pair<std::string, std::string>>{{"frmIECookies", "mnBar"}}));
    for (const forms::Control* control : window().Controls()) {
        if (control->kind != forms::ControlKind::Menu) continue;
        EXPECT_EQ(static_cast<const forms::Menu*>(control)->isDefault, control->Name == "mnudeleteselected")
            << control->Name;
    }
}

TEST_F(IECookies, ThePopUpHoldsItsCommandsAndNeverStandsInABar) {
    std::string entries;
    for (const forms::Control* control : window().Controls()) {
        if (control->kind != forms::ControlKind::Menu) continue;
        if (static_cast<const forms::Menu*>(control)->parent == "mnBar") entries += control->Name + " ";
    }
    EXPECT_EQ(entries,
              "mnuselectall mnudeselectall mnudeleteall mnudeleteselected mnurefreshcookies mnusavecookiefile ");
    EXPECT_FALSE(window().mnBar.Visible);
}

TEST_F(IECookies, TakesItsCaptions) {
    for (int entry = 810; entry <= 818; ++entry) program.LangText.set(entry, "L" + std::to_string(entry));
    EXPECT_EQ(window().Caption, std::string("L817"));
    EXPECT_EQ(window().lblCookies.Caption, std::string("L818"));
    EXPECT_EQ(window().mnurefreshcookies.Caption, std::string("L810"));
    EXPECT_EQ(window().mnuselectall.Caption, std::string("L811"));
    EXPECT_EQ(window().mnudeselectall.Caption, std::string("L812"));
    EXPECT_EQ(window().mnudeleteall.Caption, std::string("L813"));
    EXPECT_EQ(window().mnudeleteselected.Caption, std::string("L814"));
    EXPECT_EQ(window().mnusavecookiefile.Caption, std::string("L815"));
}

TEST_F(IECookies, StoresNothing) {
    furnish();
    program.windows.unload(window());
    EXPECT_FALSE(machine.files.has(program.inProgramFolder("td_config.ini")));
}

TEST_F(IECookies, TheTaskPaneOfTheOptionsOpensTheThreeManagers) {
    furnish();
    auto& bar = program.get<settings::frmOptions>().ExplorerBar2;
    display.shown.clear();
    Names opened;
    for (const char* name : {"frmTempAge", "frmIECookies", "frmIECache"}) {
        display.inModal[name] = [&opened](forms::Form& form) { opened.push_back(form.Name); };
    }
    for (int item = 0; item < 3; ++item) bar.clickItem(1, item);
    EXPECT_EQ(opened, (Names{"frmTempAge", "frmIECookies", "frmIECache"}));
    ASSERT_EQ(display.shown.size(), 3u);
    for (const ScriptedDisplay::Shown& shown : display.shown) {
        EXPECT_EQ(shown.owner, "frmOptions");
        EXPECT_TRUE(shown.modal);
    }
}

}  // namespace
}  // namespace tidvane::tests
