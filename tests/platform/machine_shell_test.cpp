// The special folders and recycle bins of a machine in a directory, and what it says about itself.
#include "platform/machine/machine_shell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <set>

#include "base/text.h"
#include "platform/machine/machine_platform.h"
#include "platform/machine/recycle_record.h"
#include "support/host_directory.h"
#include "support/reference.h"

namespace tidvane::platform::machine {
namespace {

constexpr const char* kSid = "S-1-5-21-0-0-0-1000";
constexpr const char* kNt = "Machine\\Software\\Microsoft\\Windows NT\\CurrentVersion";

class MachineShellTest : public ::testing::Test {
protected:
    void SetUp() override {
        host.folder("program");
        std::string error;
        ASSERT_TRUE(Machine::create(host / "m", error)) << error;
        machine = Machine::open(host / "m", Machine::Access::Write, error);
        ASSERT_NE(machine, nullptr) << error;
        user = "User\\" + std::string(kSid) + "\\";
    }

    void start() {
        MachineOptions options;
        options.programFolder = host / "program";
        options.arguments = " /AUTO ";
        options.preview = preview;
        std::string error;
        made = MachinePlatform::make(std::move(machine), options, error);
        ASSERT_NE(made, nullptr) << error;
    }

    RegistryKeyPtr key(const std::string& path) { return machine->registry().tree().make(path); }
    Shell& shell() { return made->platform().shell; }

    int recycle(const std::string& path) {
        ShFileOp operation;
        operation.wFunc = kFoDelete;
        operation.pFrom = path + std::string(2, '\0');
        operation.fFlags = kFofAllowUndo | kFofNoConfirmation | kFofSilent;
        return shell().SHFileOperationA(operation);
    }
    RecycleBinInfo bins() {
        RecycleBinInfo info;
        EXPECT_EQ(shell().SHQueryRecycleBinA("", info), 0);
        return info;
    }
    // The names in the user's bin by their first two signs.
    std::map<std::string, std::string> binNames() {
        std::map<std::string, std::string> names;
        for (const auto& entry :
             std::filesystem::directory_iterator(host / ("m/drive_c/$Recycle.Bin/" + std::string(kSid)))) {
            const std::string name = entry.path().filename();
            names[name.substr(0, 2)] = name;
        }
        return names;
    }
    std::string inBin(const std::string& name) { return "m/drive_c/$Recycle.Bin/" + std::string(kSid) + "/" + name; }

    tests::HostDirectory host;
    std::unique_ptr<Machine> machine;
    std::unique_ptr<MachinePlatform> made;
    std::string user;
    bool preview = false;
};

// --- special folders
// ---------------------------------------------------------------------------------------------------

TEST_F(MachineShellTest, SpecialFoldersComeFromTheUsersRegistry) {
    key(user + "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders")
        ->setText("Cookies", "%USERPROFILE%\\My %OS% Cookies\\", 2);
    start();
    EXPECT_EQ(shell().SpecialFolder(csidl::Cookies), "C:\\Users\\User\\My Windows_NT Cookies");
    EXPECT_EQ(shell().SpecialFolder(csidl::LocalAppData), "C:\\Users\\User\\AppData\\Local");
    EXPECT_EQ(shell().SpecialFolder(csidl::Profile), "C:\\Users\\User");
    EXPECT_EQ(shell().SpecialFolder(csidl::System), "C:\\Windows\\System32");
    EXPECT_EQ(shell().SpecialFolder(25), "C:\\Users\\Public\\Desktop");
    EXPECT_EQ(shell().SpecialFolder(1), "");
    EXPECT_EQ(shell().SpecialFolder(-1), "");
}

TEST_F(MachineShellTest, AShellFolderWithAnUnknownVariableIsNotBelieved) {
    const char* const kKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
    key(user + kKey + "User Shell Folders")->setText("Recent", "%NOWHERE%\\Recent", 2);
    key(user + kKey + "Shell Folders")->setText("Recent", "relative");
    start();
    EXPECT_EQ(shell().SpecialFolder(csidl::Recent), "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Recent");
}

TEST_F(MachineShellTest, ASilentRegistryGivesTheDocumentedPlacesOfWindows7) {
    key(user + "Software")->remove();
    start();
    EXPECT_EQ(shell().SpecialFolder(csidl::InternetCache),
              "C:\\Users\\User\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files");
    EXPECT_EQ(shell().SpecialFolder(csidl::Cookies), "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Cookies");
    EXPECT_EQ(shell().SpecialFolder(csidl::Personal), "C:\\Users\\User\\Documents");
    EXPECT_EQ(shell().SpecialFolder(35), "C:\\ProgramData");
}

TEST_F(MachineShellTest, ASilentRegistryGivesTheDocumentedPlacesOfWindowsXp) {
    key(user + "Software")->remove();
    key(user + "Volatile Environment")->remove();
    key(std::string(kNt) + "\\ProfileList")->remove();
    key(kNt)->setText("CurrentVersion", "5.1");
    key(user + "Volatile Environment")->setText("USERNAME", "anna");
    start();
    EXPECT_EQ(shell().SpecialFolder(csidl::InternetCache),
              "C:\\Documents and Settings\\anna\\Local Settings\\Temporary Internet Files");
    EXPECT_EQ(shell().SpecialFolder(csidl::AppData), "C:\\Documents and Settings\\anna\\Application Data");
    EXPECT_EQ(shell().SpecialFolder(csidl::MyPictures), "C:\\Documents and Settings\\anna\\My Documents\\My Pictures");
    EXPECT_EQ(shell().SpecialFolder(25), "C:\\Documents and Settings\\All Users\\Desktop");
    EXPECT_EQ(shell().SpecialFolder(35), "C:\\Documents and Settings\\All Users\\Application Data");
}

class DocumentedFoldersTest : public MachineShellTest {
protected:
    // Compares the places of a machine whose registry says nothing with those documented in this column.
    void compareWithColumn(const std::string& column, const std::string& userName) {
        std::size_t compared = 0;
        for (const auto& row : tests::readReference("shfile.tsv", TIDVANE_REFERENCE_DIR)) {
            if (!row["op"].starts_with("SHGet")) continue;
            const std::string documented = base::replaceAll(row[column], "<user>", userName);
            const std::string found = shell().SpecialFolder(std::stoi(row["input"]));
            if (documented == "-") {
                EXPECT_EQ(found, "") << row["input"];
            } else {
                EXPECT_TRUE(base::equalNoCase(found, documented))
                    << row.id() << ": " << found << ", not " << documented;
            }
            ++compared;
        }
        EXPECT_TRUE(compared == 42 || tests::otherReferenceInUse()) << compared;
    }
};

TEST_F(DocumentedFoldersTest, AreThoseOfWindowsXp) {
    key(user + "Software")->remove();
    key(user + "Volatile Environment")->remove();
    key(std::string(kNt) + "\\ProfileList")->remove();
    key(kNt)->setText("CurrentVersion", "5.1");
    key(user + "Volatile Environment")->setText("USERNAME", "anna");
    start();
    compareWithColumn("xp_documented", "anna");
}

TEST_F(DocumentedFoldersTest, AreThoseOfWindows7) {
    key(user + "Software")->remove();
    start();
    compareWithColumn("win7_documented", "User");
}

TEST_F(MachineShellTest, TheTemporaryFolderIsTheUsers) {
    start();
    EXPECT_EQ(shell().TemporaryFolder(), "C:\\Users\\User\\AppData\\Local\\Temp");
    made->platform().environment.set("TMP", "D:\\Other\\");
    EXPECT_EQ(shell().TemporaryFolder(), "D:\\Other");
}

// --- the machine about itself
// ------------------------------------------------------------------------------------------

TEST_F(MachineShellTest, TheEnvironmentIsTheMachinesAndNotTheHosts) {
    ASSERT_EQ(::setenv("TIDVANE_HOST_VARIABLE", "1", 1), 0);
    key(user + "Environment")->setText("USERNAME", "somebody else");
    key(user + "Environment")->setText("PATH", "C:\\Mine");
    start();
    Environment& environment = made->platform().environment;
    EXPECT_EQ(environment.get("TIDVANE_HOST_VARIABLE"), std::nullopt);
    EXPECT_EQ(environment.get("username"), "User");
    EXPECT_EQ(environment.get("WINDIR"), "C:\\Windows");
    EXPECT_EQ(environment.get("programfiles"), "C:\\Program Files");
    EXPECT_EQ(environment.get("Temp"), "C:\\Users\\User\\AppData\\Local\\Temp");
    EXPECT_EQ(environment.get("Path"), "C:\\Windows\\system32;C:\\Windows;C:\\Mine");
    EXPECT_EQ(environment.get("HOME"), std::nullopt);
}

TEST_F(MachineShellTest, TheVersionIsWhatAProgramWithoutManifestIsTold) {
    start();
    WindowsVersion version = made->platform().system.GetVersionExA();
    EXPECT_EQ(version.major, 6);
    EXPECT_EQ(version.minor, 1);
    EXPECT_EQ(version.build, 7601);
    EXPECT_EQ(version.servicePack, "Service Pack 1");
    EXPECT_EQ(version.platformId, 2);
}

TEST_F(MachineShellTest, NewerVersionsAreToldAsWindows8) {
    key(kNt)->setText("CurrentVersion", "6.3");
    key(kNt)->set("CurrentMajorVersionNumber", kRegDword, std::string("\x0A\0\0\0", 4));
    key(kNt)->setText("CurrentBuildNumber", "19045");
    start();
    const WindowsVersion version = made->platform().system.GetVersionExA();
    EXPECT_EQ(version.major, 6);
    EXPECT_EQ(version.minor, 2);
    EXPECT_EQ(version.build, 9200);
}

TEST_F(MachineShellTest, Windows98IsToldByItsOwnNumber) {
    key(kNt)->removeValue("CurrentVersion");
    key("Machine\\Software\\Microsoft\\Windows\\CurrentVersion")->setText("VersionNumber", "4.10.2222");
    start();
    const WindowsVersion version = made->platform().system.GetVersionExA();
    EXPECT_EQ(version.platformId, 1);
    EXPECT_EQ(version.major, 4);
    EXPECT_EQ(version.minor, 10);
    EXPECT_EQ(version.build, 2222);
}

TEST_F(MachineShellTest, LocaleAndCodePageComeFromTheRegistry) {
    key(user + "Control Panel\\International")->setText("LocaleName", "de-DE");
    key(user + "Control Panel\\International")->setText("sDecimal", "'");
    key("Machine\\System\\CurrentControlSet\\Control\\Nls\\CodePage")->setText("ACP", "1251");
    start();
    SystemInfo& system = made->platform().system;
    EXPECT_EQ(system.locale().name, "de-DE");
    EXPECT_EQ(system.locale().decimal, '\'');
    EXPECT_EQ(system.codePage(), 1251);
    EXPECT_EQ(system.CommandArguments(), " /AUTO ");
    EXPECT_EQ(system.ApplicationPath(), "C:\\Program Files\\Tidvane");
    std::vector<std::string> members{"left over"};
    EXPECT_FALSE(system.groupMembers("Administratoren", members));
    EXPECT_TRUE(members.empty());
}

TEST_F(MachineShellTest, NothingIsStartedAndNothingFetched) {
    start();
    const Platform platform = made->platform();
    EXPECT_LE(platform.shell.ShellExecuteA("open", "C:\\Windows\\notepad.exe", "", "", 1), 32);
    EXPECT_FALSE(platform.shell.ShellExecuteExAndWait("open", "C:\\Windows\\notepad.exe", "", "", 1));
    EXPECT_EQ(platform.processes.CreateProcessA("C:\\Windows\\notepad.exe", 1), nullptr);
    EXPECT_FALSE(platform.session.ExitWindowsEx(1));
    EXPECT_NE(platform.network.URLDownloadToFileA("http://localhost/", "C:\\x", nullptr), 0);
    long result = -1;
    platform.restorePoints.createRestorePoint("x", 0, 100, result);
    EXPECT_EQ(result, -1);
    EXPECT_TRUE(platform.browserCache.entries().empty());
}

TEST_F(MachineShellTest, TheCallOfTheBrowsersCleanerIsAnsweredHere) {
    start();
    const Platform platform = made->platform();
    const std::string cookies = platform.shell.SpecialFolder(csidl::Cookies);
    host.file("m/drive_c/Users/User/AppData/Roaming/Microsoft/Windows/Cookies/user@site[1].txt");
    ASSERT_TRUE(platform.files.FileExists(cookies + "\\user@site[1].txt")) << cookies;
    const auto process = platform.processes.CreateProcessA("RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 2", 1);
    ASSERT_NE(process, nullptr);
    EXPECT_TRUE(process->wait(0));
    EXPECT_FALSE(platform.files.FileExists(cookies + "\\user@site[1].txt"));
}

TEST_F(MachineShellTest, TheInstanceLockKeepsASecondProcessOut) {
    start();
    MachineProcesses other(host / "program", made->platform().browserCache);
    EXPECT_TRUE(made->platform().processes.takeInstanceLock());
    EXPECT_TRUE(made->platform().processes.takeInstanceLock());
    EXPECT_FALSE(other.takeInstanceLock());
    made->platform().processes.releaseInstanceLock();
    EXPECT_TRUE(other.takeInstanceLock());
}

TEST_F(MachineShellTest, ThePumpCallsItsHook) {
    start();
    int pumped = 0;
    made->platform().events.DoEvents();
    made->events().onPump([&] { ++pumped; });
    made->platform().events.DoEvents();
    EXPECT_EQ(pumped, 1);
}

// --- recycle bin
// -------------------------------------------------------------------------------------------------------

TEST(RecycleRecord, OfVersion1HasAFixedLength) {
    const std::string bytes = encodeRecycleRecord({0x1234, 0x01CA5C8000000000u, "C:\\\xC3\xA4.txt"}, 1);
    ASSERT_EQ(bytes.size(), 544u);
    EXPECT_EQ(bytes.substr(0, 16), std::string("\1\0\0\0\0\0\0\0\x34\x12\0\0\0\0\0\0", 16));
    EXPECT_EQ(bytes.substr(24, 10), std::string("C\0:\0\\\0\xE4\0.\0", 10));
    const auto record = decodeRecycleRecord(bytes);
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->bytes, 0x1234u);
    EXPECT_EQ(record->removed, 0x01CA5C8000000000u);
    EXPECT_EQ(record->path, "C:\\\xC3\xA4.txt");
}

TEST(RecycleRecord, OfVersion2TellsTheLengthOfItsPath) {
    const std::string bytes = encodeRecycleRecord({1, 2, "C:\\a"}, 2);
    ASSERT_EQ(bytes.size(), 24u + 4u + 10u);
    EXPECT_EQ(bytes.substr(24, 4), std::string("\5\0\0\0", 4));
    EXPECT_EQ(decodeRecycleRecord(bytes)->path, "C:\\a");
}

TEST(RecycleRecord, ALongPathTakesVersion2) {
    const std::string path = "C:\\" + std::string(300, 'x');
    const std::string bytes = encodeRecycleRecord({1, 2, path}, 1);
    EXPECT_EQ(bytes[0], 2);
    EXPECT_EQ(decodeRecycleRecord(bytes)->path, path);
}

TEST(RecycleRecord, DamagedBytesAreNone) {
    const std::string whole = encodeRecycleRecord({1, 2, "C:\\a"}, 2);
    EXPECT_FALSE(decodeRecycleRecord("").has_value());
    EXPECT_FALSE(decodeRecycleRecord(whole.substr(0, 20)).has_value());
    EXPECT_FALSE(decodeRecycleRecord(whole.substr(0, 30)).has_value());
    EXPECT_FALSE(decodeRecycleRecord(std::string(544, '\x7F')).has_value());
}

TEST_F(MachineShellTest, RecyclingMovesTheUnitAndWritesItsRecord) {
    start();
    host.file("m/drive_c/Data/Photo.JPEG", "12345");
    ::chmod((host / "m/drive_c/Data/Photo.JPEG").c_str(), 0444);
    EXPECT_EQ(recycle("C:\\data\\photo.jpeg"), 0);
    const auto names = binNames();
    ASSERT_EQ(names.count("$R"), 1u);
    ASSERT_EQ(names.count("$I"), 1u);
    EXPECT_EQ(names.at("$R").size(), 8u + 5u);
    EXPECT_EQ(names.at("$R").substr(2), names.at("$I").substr(2));
    EXPECT_EQ(host.content(inBin(names.at("$R"))), "12345");
    const auto record = decodeRecycleRecord(host.content(inBin(names.at("$I"))));
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->bytes, 5u);
    EXPECT_EQ(record->path, "C:\\data\\photo.jpeg");
    EXPECT_EQ(host.content(inBin(names.at("$I")))[0], 1);
    EXPECT_TRUE(host.has(inBin("desktop.ini")));
}

TEST_F(MachineShellTest, TheFoldersOfTheBinsAreThoseThatAreThere) {
    start();
    EXPECT_TRUE(made->recycleBins().empty());
    host.file("m/drive_c/a.txt", "1");
    EXPECT_EQ(recycle("C:\\a.txt"), 0);
    const std::vector<std::string> folders = made->recycleBins();
    ASSERT_EQ(folders.size(), 1u);
    EXPECT_TRUE(folders[0].starts_with("C:\\$Recycle.Bin\\S-1-")) << folders[0];
    host.folder("m/drive_c/RECYCLED");
    EXPECT_EQ(made->recycleBins(), (std::vector<std::string>{folders[0], "C:\\RECYCLED"}));
}

TEST_F(MachineShellTest, Windows10GetsRecordsOfVersion2) {
    key(kNt)->set("CurrentMajorVersionNumber", kRegDword, std::string("\x0A\0\0\0", 4));
    start();
    host.file("m/drive_c/a.txt", "1");
    EXPECT_EQ(recycle("C:\\a.txt"), 0);
    EXPECT_EQ(host.content(inBin(binNames().at("$I")))[0], 2);
}

TEST_F(MachineShellTest, RecyclingTakesALinkAndNotItsTarget) {
    start();
    host.file("outside/precious.txt", "precious");
    host.link(host / "outside", "m/drive_c/link.d");
    EXPECT_EQ(recycle("C:\\link.d"), 0);
    EXPECT_FALSE(host.has("m/drive_c/link.d"));
    EXPECT_EQ(shell().SHEmptyRecycleBinA(0, "", kSherbNoConfirmation), 0);
    EXPECT_EQ(bins().items, 0u);
    EXPECT_EQ(host.content("outside/precious.txt"), "precious");
}

TEST_F(MachineShellTest, ABinThatIsALinkTakesNothing) {
    start();
    host.folder("outside");
    host.link(host / "outside", "m/drive_c/$Recycle.Bin");
    host.file("m/drive_c/a.txt", "1");
    EXPECT_NE(recycle("C:\\a.txt"), 0);
    EXPECT_TRUE(host.has("m/drive_c/a.txt"));
    EXPECT_TRUE(std::filesystem::is_empty(host / "outside"));
}

TEST_F(MachineShellTest, ASidThatIsAWayIsNotBelieved) {
    machine.reset();
    const std::string whole = host.content("m/user.reg");
    for (const char* sid : {"..", "S-1-5\\..\\..", "S-1-..", "S-1-", "*"}) {
        std::string bytes = whole;
        std::string escaped = base::replaceAll(sid, "\\", "\\\\");
        const std::size_t at = bytes.find(kSid);
        ASSERT_NE(at, std::string::npos);
        bytes.replace(at, std::string(kSid).size(), escaped);
        host.file("m/user.reg", bytes);
        std::string error;
        const auto opened = Machine::open(host / "m", Machine::Access::Read, error);
        ASSERT_NE(opened, nullptr) << error;
        EXPECT_EQ(opened->registry().userSid(), kSid) << sid;
    }
    host.file("m/user.reg", base::replaceAll(whole, kSid, "S-1-5-21-7-8-9-1001"));
    std::string error;
    const auto opened = Machine::open(host / "m", Machine::Access::Read, error);
    ASSERT_NE(opened, nullptr) << error;
    EXPECT_EQ(opened->registry().userSid(), "S-1-5-21-7-8-9-1001");
}

TEST_F(MachineShellTest, WhatIsInABinStaysThere) {
    start();
    host.file("m/drive_c/RECYCLED/Dc1.txt", "1");
    EXPECT_EQ(recycle("C:\\RECYCLED\\Dc1.txt"), 5);
    EXPECT_EQ(recycle("C:\\RECYCLED"), 5);
    EXPECT_TRUE(host.has("m/drive_c/RECYCLED/Dc1.txt"));
}

TEST_F(MachineShellTest, AFolderThatHoldsTheProgramStaysWhereItIs) {
    machine.reset();
    std::string error;
    machine = Machine::open(host / "m", Machine::Access::Write, error);
    host.file("m/drive_c/Apps/Tidvane/td_config.ini", "mine");
    MachineOptions options;
    options.programFolder = host / "m/drive_c/Apps/Tidvane";
    made = MachinePlatform::make(std::move(machine), options, error);
    ASSERT_NE(made, nullptr) << error;
    EXPECT_EQ(recycle("C:\\Apps"), 5);
    EXPECT_TRUE(host.has("m/drive_c/Apps/Tidvane/td_config.ini"));
}

TEST_F(MachineShellTest, AllFormatsOfBinsAreCountedAndEmptied) {
    start();
    const std::string bin = "m/drive_c/$RECYCLE.BIN/" + std::string(kSid);
    host.file(bin + "/$RABCDEF.txt", "0123456789");
    host.file(bin + "/$IABCDEF.txt", encodeRecycleRecord({77, 1, "C:\\x.txt"}, 1));
    host.file(bin + "/$RNOREC.txt", "012");
    host.file(bin + "/$RFOLDER/inner/file", "01234");
    host.file(bin + "/$IFOLDER", "damaged");
    host.file(bin + "/$IORPHAN.txt", encodeRecycleRecord({5, 1, "C:\\y.txt"}, 1));
    host.file(bin + "/desktop.ini", "ini");
    host.file("m/drive_c/$RECYCLE.BIN/S-1-5-21-9-9-9-1001/$RAAAAAA.txt", "another user's");
    host.file("m/drive_c/RECYCLER/" + std::string(kSid) + "/Dc1.txt", "01");
    host.file("m/drive_c/RECYCLER/" + std::string(kSid) + "/Dc2/inner", "0");
    host.file("m/drive_c/RECYCLER/" + std::string(kSid) + "/INFO2", "list");
    host.file("m/drive_c/RECYCLER/" + std::string(kSid) + "/desktop.ini", "ini");
    host.file("m/drive_c/RECYCLED/DC7.BAK", "0123");
    host.file("m/drive_c/RECYCLED/notes.txt", "no unit of the bin");
    ::chmod((host / "m/drive_c/RECYCLED/DC7.BAK").c_str(), 0444);

    RecycleBinInfo info = bins();
    EXPECT_EQ(info.items, 6u);
    EXPECT_EQ(info.bytes, 77u + 3u + 5u + 2u + 1u + 4u);

    EXPECT_EQ(shell().SHEmptyRecycleBinA(0, "C:\\", kSherbNoConfirmation), 0);
    info = bins();
    EXPECT_EQ(info.items, 0u);
    EXPECT_EQ(info.bytes, 0u);
    std::set<std::string> left;
    for (const char* name : {"$RECYCLE.BIN", "RECYCLER", "RECYCLED"}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(host / ("m/drive_c/" + std::string(name)))) {
            if (!entry.is_directory()) left.insert(entry.path().filename());
        }
    }
    EXPECT_EQ(left, (std::set<std::string>{"desktop.ini", "$RAAAAAA.txt", "notes.txt"}));
}

TEST_F(MachineShellTest, APreviewTellsWhatWouldLieInTheBinAndWhatWouldGoForGood) {
    host.file("m/drive_c/Data/tree/deep/a.txt", "12");
    host.file("m/drive_c/Data/b.txt", "1");
    host.file("m/drive_c/Data/c.txt", "1");
    preview = true;
    start();
    std::map<std::string, bool> recycled;
    made->platform().removed.each = [&](const RemovedEntry& entry) { recycled[entry.path] = entry.recycled; };
    EXPECT_EQ(recycle("C:\\Data\\tree"), 0);
    EXPECT_EQ(recycle("C:\\Data\\b.txt"), 0);
    EXPECT_TRUE(ok(made->platform().files.DeleteFolder("C:\\Data", true)));
    EXPECT_EQ(recycled, (std::map<std::string, bool>{{"C:\\Data\\tree\\deep\\a.txt", true},
                                                     {"C:\\Data\\tree\\deep", true},
                                                     {"C:\\Data\\tree", true},
                                                     {"C:\\Data\\b.txt", true},
                                                     {"C:\\Data\\c.txt", false},
                                                     {"C:\\Data", false}}));
}

}  // namespace
}  // namespace tidvane::platform::machine
