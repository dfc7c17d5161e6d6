// The window in which a plug-in tells of itself.
#include "plugins/frmPlugsInfo.h"
#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

struct PlugInInfo : tests::AppFixture {
    PlugInInfo() {
        put("[Info]\r\nTitle=Caches & more\r\nDescription=deutsch, Not specified\r\nDescription2=english, Not "
            "specified\r\n"
            "Author=Not specified\r\nWarning=Achtung: Not specified\r\nWarning2=Mind\r\n");
    }
    void put(const std::string& bytes) { machine.files.putFile(inFolder("PlugIns\\a.tdp"), bytes); }
    void open() {
        main().LstPlugs.setListIndex(0);
        main().menu("mnuPlugInfo").Click();
    }
    plugins::frmPlugsInfo& window() { return program.get<plugins::frmPlugsInfo>(); }
};

TEST_F(PlugInInfo, ShowsTheGermanTextsByDefault) {
    open();
    ASSERT_TRUE(display.wasShown("frmPlugsInfo"));
    EXPECT_EQ(display.shown.back().owner, "frmMain");
    EXPECT_FALSE(display.shown.back().modal);
    EXPECT_EQ(window().Caption, "Caches & more");
    EXPECT_EQ(window().txtTitle.Text(), "Caches & more");
    EXPECT_EQ(window().txtAuthor.Text(), "Keine Angabe");
    EXPECT_EQ(window().txtDesc.Text(), "deutsch, Keine Angabe");
    EXPECT_EQ(window().lblWarning.Caption, "Achtung: Not specified") << "author and description alone";
}

TEST_F(PlugInInfo, ReplacesByExactCase) {
    put("[Info]\r\nTitle=Not specified\r\nDescription=not specified, Not specified, Not specified\r\nAuthor=NOT "
        "SPECIFIED\r\n");
    open();
    EXPECT_EQ(window().txtTitle.Text(), "Not specified");
    EXPECT_EQ(window().txtAuthor.Text(), "NOT SPECIFIED");
    EXPECT_EQ(window().txtDesc.Text(), "not specified, Keine Angabe, Keine Angabe");
}

TEST_F(PlugInInfo, ShowsTheEnglishTextsUnchanged) {
    store({"chkEnableEnglishPlugsDesc=1"}, "frmPlugsInfo");
    open();
    EXPECT_EQ(window().txtAuthor.Text(), "Not specified");
    EXPECT_EQ(window().txtDesc.Text(), "english, Not specified");
    EXPECT_EQ(window().lblWarning.Caption, "Mind");
    EXPECT_EQ(window().chkEnableEnglishPlugsDesc.Caption, "Disable English Description");
}

TEST_F(PlugInInfo, AClickOnTheSwitchChangesItsCaptionAlone) {
    open();
    EXPECT_EQ(window().chkEnableEnglishPlugsDesc.Caption, "Enable English Description");
    window().chkEnableEnglishPlugsDesc.Value = 1;
    EXPECT_EQ(window().chkEnableEnglishPlugsDesc.Caption, "Disable English Description");
    EXPECT_EQ(window().txtDesc.Text(), "deutsch, Keine Angabe");
    open();
    EXPECT_EQ(window().txtDesc.Text(), "english, Not specified");
    window().chkEnableEnglishPlugsDesc.Value = 0;
    EXPECT_EQ(window().chkEnableEnglishPlugsDesc.Caption, "Enable English Description");
}

TEST_F(PlugInInfo, MissingTextsAreEmpty) {
    put("[FILES]\r\n1=x\r\n");
    open();
    EXPECT_EQ(window().Caption, "");
    EXPECT_EQ(window().txtAuthor.Text(), "");
    EXPECT_EQ(window().txtDesc.Text(), "");
}

TEST_F(PlugInInfo, TheAuthorOpensAsALink) {
    put("[Info]\r\nTitle=x\r\nAuthor=https://tidvane.example/me\r\n");
    open();
    window().cmdAuthorsWebsite.press();
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "Open");
    EXPECT_EQ(machine.shell.started[0].file, "https://tidvane.example/me");
}

TEST_F(PlugInInfo, AnEmptyAuthorOpensNothing) {
    put("[Info]\r\nTitle=x\r\n");
    open();
    window().cmdAuthorsWebsite.press();
    EXPECT_TRUE(machine.shell.started.empty());
}

TEST_F(PlugInInfo, TheTitleIsSearchedForAsItIs) {
    open();
    window().cmdPlugInfo.press();
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].file, "https://search.example/search?hl=en&lr=&ie=ISO-8859-1&q=Caches & more");
}

TEST_F(PlugInInfo, OkStoresAndClosesAndEscapeOnlyCloses) {
    open();
    window().chkEnableEnglishPlugsDesc.Value = 1;
    window().escape();
    EXPECT_EQ(program.windows.ifLoaded("frmPlugsInfo"), nullptr);
    EXPECT_EQ(storedValue("frmPlugsInfo", "chkEnableEnglishPlugsDesc"), "<none>");
    open();
    EXPECT_FALSE(window().chkEnableEnglishPlugsDesc.ticked());
    window().chkEnableEnglishPlugsDesc.Value = 1;
    window().ImgOK.Click();
    EXPECT_EQ(program.windows.ifLoaded("frmPlugsInfo"), nullptr);
    EXPECT_EQ(storedValue("frmPlugsInfo", "chkEnableEnglishPlugsDesc"), "1");
    EXPECT_EQ(storedValue("frmPlugsInfo", "txtPlugEditor_g"), "notepad.exe");
    EXPECT_TRUE(window().chkEnableEnglishPlugsDesc.ticked());
    EXPECT_FALSE(window().txtPlugEditor_g.Visible);
}

TEST_F(PlugInInfo, ADamagedStoreStillShowsTheWindow) {
    store({"chkEnableEnglishPlugsDesc=bad"}, "frmPlugsInfo");
    open();
    EXPECT_TRUE(display.wasShown("frmPlugsInfo"));
    EXPECT_EQ(window().txtTitle.Text(), "Caches & more");
}

}  // namespace
}  // namespace tidvane::app
