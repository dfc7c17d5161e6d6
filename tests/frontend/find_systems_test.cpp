// The Windows systems of a host, found in homes made for it.
#include "frontend/find_systems.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/machine/machine.h"
#include "support/host_directory.h"
#include "support/wine_server_stand_in.h"

namespace tidvane::frontend {
namespace {

class FindSystems : public ::testing::Test {
protected:
    FindSystems() {
        here.folder("home");
        places = {here / "home", here / "home/.local/share/tidvane", "", here / "mountinfo"};
    }
    // Only the shape: nothing that can be opened.
    void prefix(const std::string& below) const {
        here.folder(below + "/dosdevices");
        here.file(below + "/system.reg", "");
        here.file(below + "/user.reg", "");
    }
    // "kind: name", in the order found.
    std::vector<std::string> found() {
        std::vector<std::string> texts;
        for (const FoundSystem& system : findSystems(places)) {
            texts.push_back(std::string(kindName(system.kind)) + ": " + system.name);
        }
        return texts;
    }
    void mount(const std::string& place, const std::string& type, const std::string& source) {
        table += "36 35 98:0 / " + place + " rw,noatime master:1 - " + type + " " + source + " rw\n";
        here.file("mountinfo", table);
    }
    using Texts = std::vector<std::string>;

    tests::HostDirectory here;
    SearchPlaces places;
    std::string table;
};

TEST_F(FindSystems, NothingOnAnEmptyHost) {
    EXPECT_EQ(found(), Texts{});
    places = {};
    EXPECT_EQ(found(), Texts{});
    places = {"/nowhere", "/nowhere", "/nowhere", "/nowhere"};
    EXPECT_EQ(found(), Texts{});
}

TEST_F(FindSystems, TheEmbeddedMachineFirstAndWinesOwnPrefix) {
    prefix("home/.wine");
    prefix("home/.local/share/tidvane/machine");
    prefix("elsewhere/prefix");
    places.winePrefix = here / "elsewhere/prefix";
    EXPECT_EQ(found(), (Texts{"Tidvane: Tidvane", "Wine: .wine", "Wine: prefix"}));
    EXPECT_EQ(findSystems(places).front().directory, here / "home/.local/share/tidvane/machine");
}

TEST_F(FindSystems, PrefixesOfOtherStarters) {
    prefix("home/.local/share/wineprefixes/tool");
    prefix("home/Games/Heroic/Prefixes/default/A Game");
    EXPECT_EQ(found(), (Texts{"Wine: A Game", "Wine: tool"}));
}

TEST_F(FindSystems, EachDirectoryOnceWhateverWaysLeadToIt) {
    prefix("home/.wine");
    places.winePrefix = here / "home/.wine/";
    here.link(here / "home/.wine", "home/Games/same");
    EXPECT_EQ(found(), (Texts{"Wine: .wine"}));
}

TEST_F(FindSystems, SteamGamesByTheirNames) {
    prefix("home/.local/share/Steam/steamapps/compatdata/220/pfx");
    prefix("home/.local/share/Steam/steamapps/compatdata/999/pfx");
    here.folder("home/.local/share/Steam/steamapps/compatdata/1000");  // no prefix yet
    here.file("home/.local/share/Steam/steamapps/appmanifest_220.acf",
              "\"AppState\"\n{\n\t\"appid\"\t\t\"220\"\n\t\"name\"\t\t\"A \\\"Game\\\" // 2\"\n}\n");
    here.link("../.local/share/Steam", "home/.steam/steam");
    EXPECT_EQ(found(), (Texts{"Steam: A \"Game\" // 2", "Steam: App 999"}));
}

TEST_F(FindSystems, FurtherLibrariesOfSteamInBothForms) {
    here.folder("home/.steam/steam/steamapps");
    prefix("disk1/steamapps/compatdata/1/pfx");
    prefix("disk2/steamapps/compatdata/2/pfx");
    here.file("home/.steam/steam/steamapps/libraryfolders.vdf",
              "\"libraryfolders\"\n{\n \"0\"\n {\n  \"path\" \"" + (here / "disk1") +
                  "\"\n  \"apps\" { \"1\" \"123\" }\n }\n \"1\" \"" + (here / "disk2") + "\"\n}\n");
    EXPECT_EQ(found(), (Texts{"Steam: App 1", "Steam: App 2"}));
}

TEST_F(FindSystems, SteamInAFlatpak) {
    prefix("home/.var/app/com.valvesoftware.Steam/.local/share/Steam/steamapps/compatdata/7/pfx");
    EXPECT_EQ(found(), (Texts{"Steam: App 7"}));
}

TEST_F(FindSystems, LutrisGamesByTheirFilesAndByTheirFolder) {
    prefix("far/a prefix");
    prefix("home/Games/bare");
    prefix("home/Games/named");
    here.file("home/.config/lutris/games/first-1612345678.yml",
              "game:\n  exe: x.exe\n  prefix: '" + (here / "far/a prefix") + "'\nname: The First\n");
    here.file("home/.local/share/lutris/games/second-one-1612345678.yml", "game:\n  prefix: ~/Games/named # mine\n");
    EXPECT_EQ(found(), (Texts{"Lutris: bare", "Lutris: second-one", "Lutris: The First"}));
}

TEST_F(FindSystems, BottlesPlayOnLinuxAndCrossOver) {
    prefix("home/.local/share/bottles/bottles/One");
    prefix("home/.var/app/com.usebottles.bottles/data/bottles/bottles/Two");
    prefix("home/.PlayOnLinux/wineprefix/Three");
    prefix("home/.cxoffice/Four");
    EXPECT_EQ(found(), (Texts{"Bottles: One", "Bottles: Two", "PlayOnLinux: Three", "CrossOver: Four"}));
}

TEST_F(FindSystems, MountedVolumesThatHoldWindows) {
    here.folder("media/My Disk/WINDOWS/system32/Config");
    here.folder("media/data/Music");
    here.folder("media/ext/Windows/System32/config");
    here.folder("net/Windows/System32/config");
    mount(here / "media/My\\040Disk", "ntfs3", "/dev/sda2");
    mount(here / "media/data", "fuseblk", "/dev/sda3");
    mount(here / "media/ext", "ext4", "/dev/sda4");
    mount(here / "net", "nfs", "server:/windows");
    mount(here / "media/My\\040Disk", "ntfs3", "/dev/sda2");
    EXPECT_EQ(found(), (Texts{"Windows volume: ext", "Windows volume: My Disk"}));
    EXPECT_EQ(findSystems(places)[1].directory, here / "media/My Disk");
}

TEST_F(FindSystems, BrokenFilesYieldLess) {
    prefix("home/.wine");
    const std::string steam = "home/.steam/steam/steamapps/";
    prefix(steam + "compatdata/5/pfx");
    for (const char* content : {"", "\"", "\"libraryfolders\" {", "{{{{}}}}\"path\"", "\"path\" \"relative\"",
                                "\"path\" \"/\\", "//", "path /nowhere }", "\"path\" { \"path\" } \"path\""}) {
        here.file(steam + "libraryfolders.vdf", content);
        here.file(steam + "appmanifest_5.acf", content);
        EXPECT_EQ(found(), (Texts{"Wine: .wine", "Steam: App 5"})) << content;
    }
    for (const char* content : {"prefix", "prefix:", "prefix: ''", "prefix: \"", "prefix: 'x", "prefix: relative",
                                ":\n:::\nprefix : /x", "prefix: /\\0\n", "prefix: {a: b}", "game: [prefix: /tmp"}) {
        here.file("home/.config/lutris/games/a.yml", content);
        here.file("mountinfo",
                  std::string(content) + "\n1 2\n - \n1 2 3 / \\04 - ntfs\n1 2 3 / \\400 rw - ntfs /dev/x\n");
        EXPECT_EQ(found(), (Texts{"Wine: .wine", "Steam: App 5"})) << content;
    }
    here.file("home/.config/lutris/games/a.yml", std::string(3'000'000, 'x') + "\nprefix: " + (here / "home/.wine"));
    EXPECT_EQ(found(), (Texts{"Wine: .wine", "Steam: App 5"}));
}

TEST_F(FindSystems, LinksInACircleAndLinksToNowhereEndTheSearchThere) {
    here.link("steam", "home/.steam/steam");
    here.link("../Games", "home/Games/loop");
    here.link("/nowhere", "home/Games/nowhere");
    here.link("b", "home/.local/share/bottles/a");
    here.link("a", "home/.local/share/bottles/b");
    here.link("a", "home/.local/share/bottles/bottles");
    here.link("/dev/zero", "home/.config/lutris/games/zero.yml");
    prefix("home/Games/mine");
    EXPECT_EQ(found(), (Texts{"Lutris: mine"}));
}

TEST_F(FindSystems, WaitsForNothing) {
    here.folder("home/.config/lutris/games");
    ASSERT_EQ(::mkfifo((here / "home/.config/lutris/games/pipe.yml").c_str(), 0600), 0);
    here.folder("home/.steam/steam/steamapps");
    ASSERT_EQ(::mkfifo((here / "home/.steam/steam/steamapps/libraryfolders.vdf").c_str(), 0600), 0);
    EXPECT_EQ(found(), Texts{});
}

TEST_F(FindSystems, UnreadableFoldersArePassedOver) {
    prefix("home/Games/mine");
    prefix("home/.local/share/bottles/bottles/One");
    ::chmod((here / "home/.local/share/bottles").c_str(), 0);
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const Texts texts = found();
    if (root) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    ::chmod((here / "home/.local/share/bottles").c_str(), 0755);
    EXPECT_EQ(texts, (Texts{"Lutris: mine"}));
}

TEST_F(FindSystems, NamesCanBeShown) {
    prefix(
        "home/.local/share/bottles/bottles/Gr\xC3\xBC\xC3\x9F"
        "e");
    prefix("home/.local/share/bottles/bottles/b\xFC\n\xC2\x85\xED\xA0\x80z");
    EXPECT_EQ(found(), (Texts{"Bottles: b??????z",
                              "Bottles: Gr\xC3\xBC\xC3\x9F"
                              "e"}));
}

TEST_F(FindSystems, DetailsComeFromTheSystemItself) {
    std::string error;
    ASSERT_TRUE(platform::machine::Machine::create(here / "home/.wine", error, {"Anna", "PC"})) << error;
    const auto systems = findSystems(places);
    ASSERT_EQ(systems.size(), 1U);
    const SystemDetails details = describe(systems[0]);
    EXPECT_EQ(details.version, "Windows 7 Service Pack 1");
    EXPECT_EQ(details.user, "Anna");
    EXPECT_GT(details.totalBytes, 0U);
    EXPECT_LE(details.freeBytes, details.totalBytes);
    EXPECT_TRUE(details.canBeOpened);
    EXPECT_TRUE(details.canBeCleaned);
    EXPECT_EQ(details.problem, "");
}

TEST_F(FindSystems, AFolderChosenByHandIsWhatItIs) {
    std::string error;
    ASSERT_TRUE(platform::machine::Machine::create(here / "elsewhere", error)) << error;
    EXPECT_EQ(kindOf(here / "elsewhere"), SystemKind::Embedded);
    // Once Wine has worked in it, it is Wine's.
    here.file("elsewhere/.update-timestamp", "1");
    EXPECT_EQ(kindOf(here / "elsewhere"), SystemKind::Wine);
    prefix("copied");
    here.file("copied/userdef.reg", "");
    EXPECT_EQ(kindOf(here / "copied"), SystemKind::Wine);
    here.folder("volume/Windows/System32/config");
    EXPECT_EQ(kindOf(here / "volume"), SystemKind::Volume);
    EXPECT_EQ(kindOf(here / "home"), SystemKind::Wine) << "it is said of it that it cannot be opened";
    EXPECT_EQ(kindOf("/nowhere"), SystemKind::Wine);
}

TEST_F(FindSystems, DetailsTellWhatStandsAgainstIt) {
    std::string error;
    ASSERT_TRUE(platform::machine::Machine::create(here / "home/.wine", error)) << error;
    const FoundSystem system = findSystems(places).at(0);
    {
        tests::WineServerStandIn server(system.directory);
        server.start();
        const SystemDetails used = describe(system);
        EXPECT_TRUE(used.canBeOpened);
        EXPECT_FALSE(used.canBeCleaned);
        EXPECT_NE(used.problem.find("running Wine server"), std::string::npos) << used.problem;
    }
    here.file("home/.wine/system.reg", "damaged");
    const SystemDetails damaged = describe(system);
    EXPECT_FALSE(damaged.canBeOpened);
    EXPECT_FALSE(damaged.canBeCleaned);
    EXPECT_NE(damaged.problem.find("system.reg is damaged"), std::string::npos) << damaged.problem;
    std::filesystem::remove_all(system.directory);
    EXPECT_FALSE(describe(system).canBeOpened) << "gone since it was found";

    here.folder("volume/Windows/System32/config");
    const SystemDetails volume = describe({SystemKind::Volume, here / "volume", "volume"});
    EXPECT_FALSE(volume.canBeOpened);
    EXPECT_NE(volume.problem, "");
    EXPECT_GT(volume.totalBytes, 0U);
}

}  // namespace
}  // namespace tidvane::frontend
