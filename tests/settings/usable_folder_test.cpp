// Which folders of a browser's boxes tasks may work in.
#include "settings/usable_folder.h"

#include <gtest/gtest.h>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

const std::string kRoaming = "C:\\Users\\Anna\\AppData\\Roaming\\";
const std::string kLocal = "C:\\Users\\Anna\\AppData\\Local\\";

struct Folders : OptionsFixture {
    BrowserDirForm& window(const char* name) { return dynamic_cast<BrowserDirForm&>(*program.windows.get(name)); }
    bool usable(const char* name, BrowserBox box, const std::string& text) {
        window(name).box(box).setText(text);
        const std::string answer = usableFolder(program, window(name), box);
        EXPECT_TRUE(answer.empty() || answer == text) << answer;
        return !answer.empty();
    }
};

TEST(UsableFolder, IsAFullPlainPath) {
    Folders machine;
    for (const char* window : {"frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir"}) {
        for (const BrowserBox box : {BrowserBox::Profile, BrowserBox::Second, BrowserBox::Cache}) {
            for (const char* text : {"D:\\Mine", "D:\\Mine\\", "\\\\server\\share\\Mine", "D:\\Größe & Co\\x.y\\"}) {
                EXPECT_TRUE(machine.usable(window, box, text)) << window << " " << text;
            }
            for (const std::string& text : {std::string(),
                                            std::string("Mine"),
                                            std::string("\\Mine"),
                                            std::string("D:"),
                                            std::string("D:\\"),
                                            std::string("D:Mine"),
                                            std::string("\\\\server\\share"),
                                            std::string("\\\\?\\D:\\Mine"),
                                            std::string("D:\\Mine\\.."),
                                            std::string("D:\\..\\Mine"),
                                            std::string("D:\\Mine\\.\\x"),
                                            std::string("D:\\Mine\\ \\x"),
                                            std::string("D:\\Mine\\...\\x"),
                                            std::string("D:\\Mine/../x"),
                                            std::string("D:\\Mi*"),
                                            std::string("D:\\M?ne\\x"),
                                            std::string("D:\\Mine\\E:\\x"),
                                            std::string("D:\\a\"b"),
                                            std::string("D:\\Mine\r\n"),
                                            std::string("D:\\Mine\\\0", 9),
                                            std::string("D:\\Mine\\") + std::string(255, '\0') + "\\Cache"}) {
                EXPECT_FALSE(machine.usable(window, box, text)) << window << " " << text;
            }
            machine.window(window).box(box).setText({});
        }
    }
}

TEST(UsableFolder, IsNoneThatTheBrowserKeepsItsProfilesIn) {
    Folders machine;
    using enum BrowserBox;
    struct Row {
        const char* window;
        BrowserBox box;
        std::string folder;
        bool usable;
    };
    for (const std::string& data : {kRoaming, kLocal}) {
        for (const Row& row : {
                 Row{"frmMozillaDir", Profile, "Mozilla\\Firefox\\Profiles\\abc.default", true},
                 Row{"frmMozillaDir", Profile, "Mozilla\\Firefox\\Profiles", false},
                 Row{"frmMozillaDir", Profile, "Mozilla\\Firefox", false},
                 Row{"frmMozillaDir", Profile, "Mozilla\\FIREFOX.", false},
                 Row{"frmMozillaDir", Profile, "Mozilla", false},
                 Row{"frmMozillaDir", Second, "Mozilla\\Firefox\\Profiles\\abc.default", true},
                 Row{"frmMozillaDir", Second, "Mozilla\\Firefox", false},
                 Row{"frmMozillaDir", Cache, "Mozilla\\Firefox\\Profiles\\abc.default\\Cache", true},
                 Row{"frmMozillaDir", Cache, "Mozilla\\Firefox\\Profiles", false},
                 Row{"frmMozillaDir", Cache, "Mozilla\\Firefox", false},
                 Row{"frmMozillaDir", Cache, "Mozilla", false},
                 Row{"frmOperaDir", Profile, "Opera\\Opera", true},
                 Row{"frmOperaDir", Profile, "Opera", false},
                 Row{"frmOperaDir", Second, "Opera\\Opera", true},
                 Row{"frmOperaDir", Second, "Opera", false},
                 Row{"frmOperaDir", Cache, "Opera\\Opera\\cache", true},
                 Row{"frmOperaDir", Cache, "Opera\\Opera", false},
                 Row{"frmChromeDir", Profile, "Google\\Chrome\\User Data\\Default", true},
                 Row{"frmChromeDir", Profile, "Google\\Chrome\\User Data", false},
                 Row{"frmChromeDir", Second, "Google\\Chrome\\User Data", true},
                 Row{"frmChromeDir", Second, "Google\\Chrome", false},
                 Row{"frmChromeDir", Cache, "Google\\Chrome\\User Data\\Default\\Cache", true},
                 Row{"frmChromeDir", Cache, "Google\\Chrome\\User Data\\Default", false},
                 Row{"frmChromeDir", Cache, "Google", false},
                 Row{"frmSafariDir", Profile, "Apple Computer\\Safari", true},
                 Row{"frmSafariDir", Profile, "Apple Computer", false},
                 Row{"frmSafariDir", Second, "Apple Computer\\Safari", true},
                 Row{"frmSafariDir", Cache, "Apple Computer\\Safari", true},
                 Row{"frmSafariDir", Cache, "Apple Computer", false},
             }) {
            for (const char* end : {"", "\\"}) {
                EXPECT_EQ(machine.usable(row.window, row.box, data + row.folder + end), row.usable)
                    << row.window << " " << data << row.folder << end;
            }
            machine.window(row.window).box(row.box).setText({});
        }
    }
    for (const char* above :
         {"C:\\Users\\Anna\\AppData\\Roaming", "C:\\Users\\Anna\\AppData", "C:\\Users\\Anna", "C:\\Users"}) {
        for (const char* window : {"frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir"}) {
            for (const BrowserBox box : {Profile, Second, Cache}) EXPECT_FALSE(machine.usable(window, box, above));
        }
    }
}

TEST(UsableFolder, OfTheCacheHoldsNoProfile) {
    Folders machine;
    for (const char* window : {"frmMozillaDir", "frmOperaDir", "frmChromeDir"}) {
        machine.window(window).fileDir.setText("D:\\Portable\\Profile\\");
        EXPECT_FALSE(machine.usable(window, BrowserBox::Cache, "D:\\Portable\\profile"));
        EXPECT_FALSE(machine.usable(window, BrowserBox::Cache, "D:\\Portable\\"));
        EXPECT_TRUE(machine.usable(window, BrowserBox::Cache, "D:\\Portable\\Profile\\Cache"));
        EXPECT_TRUE(machine.usable(window, BrowserBox::Cache, "D:\\Portable\\Prof"));
        EXPECT_TRUE(machine.usable(window, BrowserBox::Cache, "E:\\Portable\\"));
    }
}

TEST(UsableFolder, OfTheCacheDoesNotLieDirectlyInARefusedFolder) {
    Folders machine;
    const std::string firefox = kLocal + "Mozilla\\FireFox\\";
    for (const std::string& refused : {firefox, firefox + "Profiles", firefox + "\\Profiles\\"}) {
        machine.window("frmMozillaDir").secondDir.setText(refused);
        EXPECT_FALSE(machine.usable("frmMozillaDir", BrowserBox::Cache, refused + "\\Cache"));
        EXPECT_TRUE(machine.usable("frmMozillaDir", BrowserBox::Cache, firefox + "Profiles\\a\\Cache"));
        EXPECT_TRUE(machine.usable("frmMozillaDir", BrowserBox::Cache, "D:\\Cache"));
    }
    machine.window("frmMozillaDir").secondDir.setText("D:\\");
    EXPECT_FALSE(machine.usable("frmMozillaDir", BrowserBox::Cache, "D:\\Cache"));
    machine.window("frmMozillaDir").secondDir.setText(firefox + "Profiles\\a");
    EXPECT_TRUE(machine.usable("frmMozillaDir", BrowserBox::Cache, firefox + "Profiles\\a\\Cache"));
}

TEST(UsableFolder, OfTheCacheIsNoProfileOfAnyBrowser) {
    Folders machine;
    struct Row {
        std::string folder;
        bool usable;
    };
    for (const Row& row : {
             Row{kRoaming + "Mozilla\\FireFox\\Profiles", false},
             Row{kRoaming + "Mozilla\\FireFox\\Profiles\\second.default", false},
             Row{kRoaming + "mozilla\\firefox\\PROFILES\\second.default\\", false},
             Row{kRoaming + "Mozilla\\FireFox\\Profiles\\second.default\\Cache", true},
             Row{kLocal + "Mozilla\\FireFox\\Profiles\\second.default", true},  // cached things alone
             Row{kLocal + "Mozilla\\FireFox", false},
             Row{kRoaming + "Opera\\", false},
             Row{kRoaming + "Opera\\Opera\\", false},
             Row{kRoaming + "Opera\\Opera 9", false},
             Row{kRoaming + "Opera\\Opera 9\\cache4", true},
             Row{kLocal + "Opera\\Opera", false},
             Row{kLocal + "Opera\\Opera\\cache", true},
             Row{kLocal + "Google\\Chrome\\User Data", false},
             Row{kLocal + "Google\\Chrome\\User Data\\Default", false},
             Row{kLocal + "Google\\Chrome\\User Data\\Profile 1\\", false},
             Row{kRoaming + "Google\\Chrome\\User Data\\Profile 1", false},
             Row{kLocal + "Google\\Chrome\\User Data\\Profile 1\\Cache", true},
             Row{kRoaming + "Apple Computer", false},
             Row{kRoaming + "Apple Computer\\Safari", false},
             Row{kLocal + "Apple Computer\\Safari\\", false},
             Row{kLocal + "Apple Computer\\Safari\\Webpage Previews", true},
         }) {
        for (const char* window : {"frmMozillaDir", "frmOperaDir", "frmChromeDir"}) {
            EXPECT_EQ(machine.usable(window, BrowserBox::Cache, row.folder), row.usable) << window << row.folder;
        }
    }
    // The other boxes hold profiles, also those of a second browser: only single files go there.
    EXPECT_TRUE(machine.usable("frmMozillaDir", BrowserBox::Profile, kRoaming + "Opera\\Opera"));
}

TEST(UsableFolder, MayBeOneForAllThreeBoxesOfSafari) {
    Folders machine;
    BrowserDirForm& window = machine.window("frmSafariDir");
    for (const BrowserBox box : {BrowserBox::Profile, BrowserBox::Second, BrowserBox::Cache}) {
        window.box(box).setText("D:\\Safari\\");
    }
    for (const BrowserBox box : {BrowserBox::Profile, BrowserBox::Second, BrowserBox::Cache}) {
        EXPECT_EQ(usableFolder(machine.program, window, box), "D:\\Safari\\");
    }
    // Only one file goes there. To be emptied it must hold no profile.
    EXPECT_EQ(cacheToEmpty(machine.program, window), "");
    window.fileDir.setText("D:\\Profile\\");
    EXPECT_EQ(cacheToEmpty(machine.program, window), "D:\\Safari\\");
    EXPECT_TRUE(machine.display.warnings.empty());
}

TEST(UsableFolder, OfSafarisProfileDoesNotGetIntoTheOwnList) {
    for (const std::string& profile : {std::string("D:\\Safari\\"), std::string("D:\\Profile\\")}) {
        Folders machine;
        machine.putConfig(
            "[frmSafariDir]\r\nchkSafariDir=1\r\nchkSafariDisableAutoDetect=1\r\n"
            "txtSafariCacheDir=D:\\Safari\\\r\ntxtSafariFileDir=" +
            profile + "\r\n");
        machine.files().putFolder("D:\\Safari");
        frmOptions& options = machine.options();
        options.chkActivateOwnFolder.Value = 1;
        options.chkAutoSearchJunkFolders.Value = 1;
        EXPECT_EQ(rows(options.lstFolders).size(), profile == "D:\\Safari\\" ? 0U : 1U) << profile;
    }
}

TEST(UsableFolder, EachRefusalIsToldOnce) {
    Folders machine;
    for (int times = 0; times < 3; ++times) {
        EXPECT_FALSE(
            machine.usable("frmMozillaDir", BrowserBox::Cache, kLocal + "Mozilla\\FireFox\\" + std::string(255, '\0')));
        EXPECT_FALSE(machine.usable("frmOperaDir", BrowserBox::Profile, ""));
    }
    EXPECT_EQ(
        machine.display.warnings,
        (std::vector<std::string>{"\"" + kLocal +
                                      "Mozilla\\FireFox\\\" in txtMozillaCacheDir is no folder of a "
                                      "profile of Firefox; nothing is cleaned there.",
                                  "\"\" in txtOperaFileDir is no folder of a profile of Opera; nothing is cleaned "
                                  "there."}));
}

TEST(UsableFolder, IsAskedForBeforeAKnownFolderGetsIntoTheOwnList) {
    Folders machine;
    machine.putConfig(
        "[frmMozillaDir]\r\nchkMozillaDir=1\r\nchkMozillaDisableAutoDetect=1\r\n"
        "txtMozillaCacheDir=" +
        kLocal +
        "Mozilla\\FireFox\\\r\n"
        "[frmOperaDir]\r\nchkOperaDir=1\r\nchkOperaDisableAutoDetect=1\r\n"
        "txtOperaCacheDir=" +
        kLocal + "Opera\\Opera\\cache\\\r\n");
    machine.files().putFolder(kLocal + "Mozilla\\FireFox\\Profiles\\abc.default");
    machine.files().putFolder(kLocal + "Opera\\Opera\\cache");
    frmOptions& options = machine.options();
    options.chkActivateOwnFolder.Value = 1;
    options.chkAutoSearchJunkFolders.Value = 1;
    EXPECT_EQ(rows(options.lstFolders), std::vector<std::string>{kLocal + "Opera\\Opera\\cache\\"});
}

}  // namespace
}  // namespace tidvane::settings
