// The own lists and the junk search on a real tree of the host.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "app/task_catalogue.h"
#include "platform/machine/machine_platform.h"
#include "settings/frmOptions.h"
#include "support/host_directory.h"
#include "support/scripted_display.h"

namespace tidvane::tests {
namespace {

namespace machine = platform::machine;
using Lines = std::vector<std::string>;

constexpr int kSearch = 1;
constexpr int kFolders = 2;
constexpr int kFiles = 3;

struct ListsOnAMachine : testing::Test {
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(machine::Machine::create(host / "m", error)) << error;
        host.folder("program");
        machine::MachineOptions options;
        options.programFolder = host / "program";
        options.warn = [this](const platform::Warning& warning) { warnings.push_back(warning.text); };
        auto opened = machine::Machine::open(host / "m", machine::Machine::Access::Write, error);
        made = machine::MachinePlatform::make(std::move(opened), options, error);
        ASSERT_NE(made, nullptr) << error;
        program = std::make_unique<settings::Program>(made->platform(), display);
        app::offerAllWindows(*program);
        (void)program->get<app::frmMain>();
        program->LangText.set(732, "Delete");
        program->LangText.set(733, "Recycle");
        program->LangText.set(734, "Overwrite");
        lists().txtPurgeSpeed.setText("0");
        lists().cboKillMethod.Clear();
        for (const int entry : {732, 733, 734}) lists().cboKillMethod.AddItem(program->LangText(entry));
        lists().cboKillMethod.setListIndex(0);
    }

    settings::frmOptions& lists() { return program->get<settings::frmOptions>(); }
    void run(int step) {
        lists().chkSearchTasks.Value = 1;
        lists().chkActivateOwnFolder.Value = 1;
        lists().chkActivateOwnFiles.Value = 1;
        const tasks::CleaningTask& task = app::taskCatalogue()[static_cast<std::size_t>(step - 1)];
        task.worker(*program, task);
    }
    void runUnderEveryMethod(int step) {
        for (int method = 0; method < 3; ++method) {
            lists().cboKillMethod.setListIndex(method);
            run(step);
        }
    }
    void fill(forms::ListBox& list, const Lines& rows) {
        list.Clear();
        for (const std::string& row : rows) list.AddItem(row);
    }
    void onDrive(const std::string& path, const std::string& content = "x") { host.file("m/drive_c/" + path, content); }
    bool hasOnDrive(const std::string& path) { return host.has("m/drive_c/" + path); }

    HostDirectory host;
    ScriptedDisplay display;
    Lines warnings;
    std::unique_ptr<machine::MachinePlatform> made;
    std::unique_ptr<settings::Program> program;
};

TEST_F(ListsOnAMachine, FoldersGoByTheirNameInAnyCase) {
    onDrive("Data/Old/a.txt");
    onDrive("Data/Old/sub/b.txt");
    onDrive("Data/keep.txt");
    onDrive("Empty Me/x");
    fill(lists().lstFolders, {"c:\\DATA\\old"});
    run(kFolders);
    EXPECT_FALSE(hasOnDrive("Data/Old"));
    EXPECT_TRUE(hasOnDrive("Data/keep.txt"));
    lists().optDeleteFolderContent.setValue(-1);
    fill(lists().lstFolders, {"C:\\Empty Me\\"});
    run(kFolders);
    EXPECT_FALSE(hasOnDrive("Empty Me/x"));
    EXPECT_TRUE(hasOnDrive("Empty Me"));
}

TEST_F(ListsOnAMachine, FoldersThatAreLinksLeaveWhatTheyPointTo) {
    host.file("outside/precious.txt");
    onDrive("elsewhere/wanted.txt");
    host.folder("m/drive_c/Data");
    host.link(host / "outside", "m/drive_c/Data/out");
    host.link("../elsewhere", "m/drive_c/Data/inside");
    host.link("/", "m/drive_c/Data/root");
    host.link(".", "m/drive_c/Data/self");
    const Lines links{"C:\\Data\\out",  "C:\\Data\\out\\",      "C:\\Data\\inside",
                      "C:\\Data\\root", "C:\\Data\\root\\home", "C:\\Data\\self\\self\\inside"};
    fill(lists().lstFolders, links);
    lists().optDeleteFolderContent.setValue(-1);
    runUnderEveryMethod(kFolders);
    EXPECT_EQ(host.content("outside/precious.txt"), "x");
    EXPECT_EQ(host.content("m/drive_c/elsewhere/wanted.txt"), "x");
    lists().optDeleteFolder.setValue(-1);
    runUnderEveryMethod(kFolders);
    EXPECT_EQ(host.content("outside/precious.txt"), "x");
    EXPECT_EQ(host.content("m/drive_c/elsewhere/wanted.txt"), "x");
}

TEST_F(ListsOnAMachine, NoEntryLeavesTheMachine) {
    host.file("outside.txt");
    host.file("m/outside.txt");
    onDrive("Data/x");
    const Lines entries{"C:\\..",
                        "C:\\..\\outside.txt",
                        "C:\\Data\\..\\..\\outside.txt",
                        "..\\outside.txt",
                        "/",
                        "\\",
                        "C:",
                        "C:\\",
                        "Z:\\",
                        "\\\\?\\C:\\..\\outside.txt",
                        "C:\\*",
                        "*",
                        ""};
    fill(lists().lstFolders, entries);
    fill(lists().lstFiles, {"C:\\..\\outside.txt", "..\\outside.txt", "C:\\Data\\..\\..\\..\\outside.txt",
                            "/outside.txt", "\\outside.txt", "Z:\\outside.txt"});
    runUnderEveryMethod(kFolders);
    runUnderEveryMethod(kFiles);
    EXPECT_TRUE(host.has("outside.txt"));
    EXPECT_TRUE(host.has("m/outside.txt"));
    EXPECT_TRUE(host.has("m/system.reg"));
    EXPECT_TRUE(hasOnDrive("Data/x"));
    EXPECT_FALSE(warnings.empty());
}

TEST_F(ListsOnAMachine, ProtectedPlacesStayWhateverTheirSpelling) {
    onDrive("Windows/explorer.exe");
    onDrive("Windows/System32/kernel32.dll");
    onDrive("Users/User/letter.txt");
    onDrive("Program Files/P/p.exe");
    fill(lists().lstFolders, {"C:\\", "c:/windows", "C:\\WINDOWS\\", "C:\\Windows.", "C:\\Windows\\SYSTEM32",
                              "C:\\Users", "C:\\Users\\User", "C:\\Users\\User\\..\\..\\Windows", "C:\\PROGRA~1",
                              "C:\\Program Files", "\\\\?\\C:\\Windows", "C:\\Win*"});
    runUnderEveryMethod(kFolders);
    lists().optDeleteFolderContent.setValue(-1);
    runUnderEveryMethod(kFolders);
    for (const char* path :
         {"Windows/explorer.exe", "Windows/System32/kernel32.dll", "Users/User/letter.txt", "Program Files/P/p.exe"}) {
        EXPECT_TRUE(hasOnDrive(path)) << path;
    }
}

TEST_F(ListsOnAMachine, MasksThatLeaveNoNameOutKeepAProtectedPlaceWhole) {
    onDrive("top.txt");
    onDrive("Windows/explorer.exe");
    onDrive("Windows/Other/x");
    onDrive("Users/User/letter.txt");
    onDrive("Users/User/Pictures/p.jpg");
    onDrive("Users/User/AppData/Local/Vendor/v.txt");
    onDrive("Users/User/AppData/Local/v.txt");
    const Lines places{"C:", "C:\\Windows", "C:\\Users\\User", "C:\\Users\\User\\AppData\\Local"};
    const Lines masks{"\\*", "\\?*", "\\*.*", "\\*.", "/*"};
    lists().lstFolders.Clear();
    for (const std::string& place : places) {
        for (const std::string& mask : masks) lists().lstFolders.AddItem(place + mask);
    }
    for (forms::OptionButton* way : {&lists().optDeleteFolder, &lists().optDeleteFolderContent}) {
        way->setValue(-1);
        warnings.clear();
        runUnderEveryMethod(kFolders);
        // Each entry is told once a run.
        EXPECT_EQ(warnings.size(), 3 * places.size() * masks.size());
    }
    for (const char* path :
         {"top.txt", "Windows/explorer.exe", "Windows/Other/x", "Users/User/letter.txt", "Users/User/Pictures/p.jpg",
          "Users/User/AppData/Local/Vendor/v.txt", "Users/User/AppData/Local/v.txt"}) {
        EXPECT_TRUE(hasOnDrive(path)) << path;
    }
    // A mask of some names goes on taking files there.
    onDrive("Windows/a.tmp");
    lists().optDeleteFolder.setValue(-1);
    lists().cboKillMethod.setListIndex(0);
    fill(lists().lstFolders, {"C:\\Windows\\*.tmp"});
    run(kFolders);
    EXPECT_FALSE(hasOnDrive("Windows/a.tmp"));
}

TEST_F(ListsOnAMachine, AFolderWithABackslashBehindItIsEmptiedAndSaidToStay) {
    lists().optDeleteFolder.setValue(-1);
    fill(lists().lstFolders, {"C:\\Data\\Old\\"});
    for (int method = 0; method < 3; ++method) {
        onDrive("Data/Old/a.txt");
        lists().cboKillMethod.setListIndex(method);
        warnings.clear();
        display.warnings.clear();
        run(kFolders);
        EXPECT_FALSE(hasOnDrive("Data/Old/a.txt")) << method;
        EXPECT_TRUE(hasOnDrive("Data/Old")) << method;
        const std::vector<std::string> told{
            "\"C:\\Data\\Old\\\" ends in a backslash: it was emptied, and the folder itself stays."};
        EXPECT_EQ(display.warnings, told) << method;
        EXPECT_EQ(warnings, Lines{}) << method;
    }
}

TEST_F(ListsOnAMachine, ARefusedFolderIsToldOnceARun) {
    for (const char* entry : {"C:\\Windows", "relative", ""}) {
        fill(lists().lstFolders, {entry});
        for (int method = 0; method < 3; ++method) {
            lists().cboKillMethod.setListIndex(method);
            warnings.clear();
            run(kFolders);
            EXPECT_EQ(warnings.size(), 1U) << entry << " " << method;
        }
    }
}

TEST_F(ListsOnAMachine, AnEntryThatHoldsANulTakesNothing) {
    onDrive("Data/a");
    onDrive("Data/b/x");
    fill(lists().lstFiles, {std::string("C:\\Data\\a\0b", 11)});
    fill(lists().lstFolders, {std::string("C:\\Data\\b\0c", 11)});
    runUnderEveryMethod(kFiles);
    runUnderEveryMethod(kFolders);
    EXPECT_TRUE(hasOnDrive("Data/a"));
    EXPECT_TRUE(hasOnDrive("Data/b/x"));
    EXPECT_FALSE(warnings.empty());
}

TEST_F(ListsOnAMachine, FilesAndKeysGoOnTheirOwnWay) {
    onDrive("Data/a.txt");
    onDrive("Data/b.tmp");
    onDrive("Data/keep.txt");
    host.link("keep.txt", "m/drive_c/Data/link.txt");
    platform::RegistryApi& registry = made->platform().registry;
    platform::HKey key = 0;
    bool created = false;
    ASSERT_EQ(registry.RegCreateKeyExA(platform::HKEY_CURRENT_USER_, "Software\\X\\Deep", 0xF003F, key, created), 0);
    (void)registry.RegCloseKey(key);
    fill(lists().lstFiles, {"C:\\Data\\A.TXT", "C:\\Data\\*.tmp", "C:\\Data\\link.txt",
                            "HKEY_CURRENT_USER\\Software\\X", "C:\\Data\\missing"});
    run(kFiles);
    EXPECT_FALSE(hasOnDrive("Data/a.txt"));
    EXPECT_FALSE(hasOnDrive("Data/b.tmp"));
    EXPECT_EQ(host.content("m/drive_c/Data/keep.txt"), "x");
    EXPECT_NE(registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, "Software\\X", 0x20019, key), 0);
    EXPECT_EQ(registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, "Software", 0x20019, key), 0);
}

TEST_F(ListsOnAMachine, OverwritingOneNameLeavesTheContentOfItsOther) {
    onDrive("Data/one.txt", "wanted");
    ASSERT_EQ(::link((host / "m/drive_c/Data/one.txt").c_str(), (host / "m/drive_c/Data/two.txt").c_str()), 0);
    fill(lists().lstFiles, {"C:\\Data\\one.txt"});
    lists().cboKillMethod.setListIndex(2);
    run(kFiles);
    EXPECT_FALSE(hasOnDrive("Data/one.txt"));
    EXPECT_EQ(host.content("m/drive_c/Data/two.txt"), "wanted");
}

TEST_F(ListsOnAMachine, TheSearchSweepsTheDriveAndNothingBeyondIt) {
    host.file("outside/precious.tmp");
    onDrive("Data/a.tmp");
    onDrive("Data/OPA12.BAK");
    onDrive("Data/b.bak");
    onDrive("Users/User/deep/er/c.TMP");
    host.link(host / "outside", "m/drive_c/Data/link");
    fill(lists().lstSearchMasks, {"*.tmp", "*.bak", "..", "", "..\\*"});
    lists().chkAllFixedDrives.Value = 1;
    run(kSearch);
    EXPECT_FALSE(hasOnDrive("Data/a.tmp"));
    EXPECT_FALSE(hasOnDrive("Data/b.bak"));
    EXPECT_FALSE(hasOnDrive("Users/User/deep/er/c.TMP"));
    EXPECT_TRUE(hasOnDrive("Data/opa12.bak") || hasOnDrive("Data/OPA12.BAK"));
    EXPECT_TRUE(host.has("outside/precious.tmp"));
    EXPECT_TRUE(hasOnDrive("Data/link"));
}

TEST_F(ListsOnAMachine, ManyMasksAndEntriesOfNoUseComeToAnEnd) {
    onDrive("Data/a.tmp");
    for (int i = 0; i < 20'000; ++i) {
        lists().lstSearchMasks.AddItem("*.m" + std::to_string(i));
        lists().lstFiles.AddItem("C:\\Data\\missing " + std::to_string(i));
        lists().lstFolders.AddItem("C:\\Data\\missing " + std::to_string(i));
    }
    lists().lstSearchMasks.AddItem("*.tmp");
    run(kSearch);
    run(kFolders);
    run(kFiles);
    EXPECT_FALSE(hasOnDrive("Data/a.tmp"));
}

}  // namespace
}  // namespace tidvane::tests
