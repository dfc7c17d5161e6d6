// Cleans a real Windows system, and asks that system what is left.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "base/text.h"
#include "e2e/console_run.h"
#include "e2e/registry_sections.h"
#include "e2e/wine_prefix.h"
#include "platform/common/utf16.h"
#include "support/tree_state.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

#define EXPLORER "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
#define APPLETS "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\"

// Keys of the user that go when the tasks of Windows are ticked, with everything below them.
constexpr std::array kTraces{
    EXPLORER "RecentDocs",
    EXPLORER "RunMRU",
    EXPLORER "Doc Find Spec MRU",
    EXPLORER "FindComputerMRU",
    EXPLORER "ComDlg32\\OpenSavePidlMRU",
    EXPLORER "ComDlg32\\LastVisitedMRU",
    EXPLORER "UserAssist",
    EXPLORER "MenuOrder\\Start Menu",
    "Software\\Microsoft\\Search Assistant\\ACMru",
    APPLETS "Regedit",
    APPLETS "Wordpad\\Recent File List",
    "Software\\Microsoft\\MediaPlayer\\Player\\RecentFileList",
    "Software\\Microsoft\\MediaPlayer\\AutoComplete\\MediaEdit",
};

// Keys beside them, or with nearly their names, that stay; the last two belong to tasks that the test unticks.
constexpr std::array kNeighbours{
    EXPLORER "RecentDocs2",
    EXPLORER "RunMR",
    EXPLORER "ComDlg32\\Placement",
    EXPLORER "MenuOrder\\Start",
    "Software\\Microsoft\\Search Assistant\\Other",
    APPLETS "Wordpad\\Options",
    "Software\\Microsoft\\MediaPlayer\\Player\\Settings",
    "Software\\Elsewhere\\RecentDocs",
    EXPLORER "MenuOrder\\Favorites",
    APPLETS "Paint\\Recent File List",
};

// Of the machine: one goes, one stays.
constexpr const char* kMachineTrace = "Software\\Microsoft\\RAS AutoDial\\Addresses";
constexpr const char* kMachineNeighbour = "Software\\Microsoft\\RAS AutoDial\\Control";

#undef EXPLORER
#undef APPLETS

// A key with a value of each type, and a subkey with a name beyond ASCII.
std::string importOf(const std::string& root, const std::string& key) {
    const std::string path = root + "\\" + key;
    return "[" + path + "]\r\n@=\"default of " + base::replaceAll(key, "\\", "/") +
           "\"\r\n"
           "\"a\"=\"notepad.exe\\\\1\"\r\n"
           "\"MRUListEx\"=hex:00,00,00,00,01,00,00,00,ff,ff,ff,ff\r\n"
           "\"Zähler\"=dword:0000002a\r\n"
           "\"Pfad\"=hex(2):25,00,54,00,45,00,4d,00,50,00,25,00,00,00\r\n"
           "\"Liste\"=hex(7):41,00,00,00,42,00,00,00,00,00\r\n"
           "\"quad\"=hex(b):08,07,06,05,04,03,02,01\r\n"
           "\"nothing\"=hex(0):\r\n"
           "\"big\"=hex(5):00,00,01,02\r\n\r\n"
           "[" +
           path +
           "\\Größe (日本)]\r\n\"0\"=\"Übung \\\"in\\\" Tübingen.txt\"\r\n\r\n"
           "[" +
           path + "\\.txt\\deep\\deeper]\r\n\"0\"=hex:14,00\r\n\r\n";
}

std::string importFile() {
    std::string text = "Windows Registry Editor Version 5.00\r\n\r\n";
    for (const char* key : kTraces) text += importOf("HKEY_CURRENT_USER", key);
    for (const char* key : kNeighbours) text += importOf("HKEY_CURRENT_USER", key);
    for (const char* key : {kMachineTrace, kMachineNeighbour}) text += importOf("HKEY_LOCAL_MACHINE", key);
    return "\xFF\xFE" + platform::utf16leFromUtf8(text);
}

// The batch file that leaves the file traces; %1 is the folder of recent Office files.
constexpr const char* kBatch =
    "@echo off\r\n"
    "echo one> \"C:\\windows\\temp\\set up.log\"\r\n"
    "echo two> %TEMP%\\~DF1.tmp\r\n"
    "mkdir C:\\windows\\temp\\sub\\deeper\r\n"
    "copy C:\\windows\\temp\\*.log C:\\windows\\temp\\sub\\deeper\\\r\n"
    "attrib +r C:\\windows\\temp\\sub\\deeper\\*.log\r\n"
    "mkdir C:\\windows\\prefetch\r\n"
    "echo three> C:\\windows\\prefetch\\NOTEPAD.EXE-D8414F97.pf\r\n"
    "mkdir %APPDATA%\\Microsoft\\Office\\Recent\r\n"
    "echo four> %APPDATA%\\Microsoft\\Office\\Recent\\letter.LNK\r\n"
    "echo kept> %APPDATA%\\Microsoft\\Office\\settings.pip\r\n"
    "echo kept> C:\\windows\\temp.txt\r\n"
    "mkdir C:\\windows\\temporary\r\n"
    "echo kept> C:\\windows\\temporary\\a.log\r\n"
    "echo kept> %USERPROFILE%\\Documents\\letter.txt\r\n";

// What the batch file and the commands behind it leave, below drive_c; %U% is the folder of the user.
const std::set<std::string> kFileTraces{
    "windows/temp/set up.log", "windows/temp/sub",
    "windows/temp/sub/deeper", "windows/temp/sub/deeper/set up.log",
    "windows/temp/Übung.tmp",  "windows/prefetch/NOTEPAD.EXE-D8414F97.pf",
    "%U%/Temp/~DF1.tmp",       "%U%/AppData/Roaming/Microsoft/Office/Recent/letter.LNK",
};

class WinePrefixTest : public testing::Test {
protected:
    void SetUp() override {
        if (WinePrefix::isDispensed()) GTEST_SKIP() << "TIDVANE_NO_WINE=1: no Windows system was cleaned";
        prefix_ = std::make_unique<WinePrefix>();
        run_ = std::make_unique<ConsoleRun>(prefix_->path());
    }

    // Puts all traces down with Wine's own programs and stops Wine.
    void leaveTraces() {
        putFile(prefix_->drive() + "/import.reg", importFile());
        putFile(prefix_->drive() + "/traces.bat", kBatch);
        expectDone({"reg", "import", "C:\\import.reg"});
        // One through the command line, with a name beyond ASCII.
        expectDone({"reg", "add", std::string("HKCU\\") + kTraces[0] + "\\Ümläut", "/v", "Straße", "/t",
                    "REG_EXPAND_SZ", "/d", "%TEMP%\\Grüße.txt", "/f"});
        expectDone({"cmd", "/c", "C:\\traces.bat"});
        expectDone({"cmd", "/c", "copy", "C:\\import.reg", "C:\\windows\\temp\\Übung.tmp"});
        user_ = base::replaceAll(trimmed(prefix_->wine({"cmd", "/c", "echo %USERPROFILE%"}).out).substr(3), "\\", "/");
        prefix_->stop();
        for (const std::string& trace : fileTraces()) {
            ASSERT_TRUE(fs::exists(prefix_->drive() + "/" + trace)) << trace << " was not made";
        }
    }

    void expectDone(const std::vector<std::string>& arguments) const {
        const ProcessResult result = prefix_->wine(arguments);
        EXPECT_EQ(result.status, 0) << arguments[0] << " " << arguments[1] << ": " << result.out << result.err;
    }
    [[nodiscard]] bool wineHasKey(const std::string& key) const {
        return prefix_->wine({"reg", "query", key}).status == 0;
    }
    [[nodiscard]] bool isInUse() const {
        return run_->console({"machine", "info"}).out.find("in use by a running Wine server") != std::string::npos;
    }
    static std::string trimmed(std::string text) {
        text.erase(text.find_last_not_of(" \r\n") + 1);
        return text;
    }
    [[nodiscard]] std::set<std::string> fileTraces() const {
        std::set<std::string> result;
        for (const std::string& trace : kFileTraces) result.insert(base::replaceAll(trace, "%U%", user_));
        return result;
    }
    [[nodiscard]] std::set<std::string> files() const {
        std::set<std::string> result;
        for (const auto& entry : fs::recursive_directory_iterator(prefix_->drive())) {
            result.insert(entry.path().string().substr(prefix_->drive().size() + 1));
        }
        return result;
    }
    // A branch as Wine writes it to a file.
    [[nodiscard]] std::string exported(const std::string& key) const {
        expectDone({"reg", "export", key, "C:\\export.reg", "/y"});
        std::string text = prefix_->content("drive_c/export.reg");
        fs::remove(prefix_->drive() + "/export.reg");
        return text;
    }

    std::unique_ptr<WinePrefix> prefix_;
    std::unique_ptr<ConsoleRun> run_;
    std::string user_;  // "users/root"
};

bool isTrace(const std::string& section, bool ofMachine) {
    if (ofMachine) return isAtOrBelow(section, sectionPath(kMachineTrace));
    return std::any_of(kTraces.begin(), kTraces.end(),
                       [&](const char* key) { return isAtOrBelow(section, sectionPath(key)); });
}

bool isParentOfTrace(const std::string& section, bool ofMachine) {
    if (ofMachine) return isAtOrBelow(sectionPath(kMachineTrace), section);
    return std::any_of(kTraces.begin(), kTraces.end(),
                       [&](const char* key) { return isAtOrBelow(sectionPath(key), section); });
}

// Every key that is no trace has to be there as it was, in its place and to the byte; of a key that lost a subkey the
// time may be another. A key without values is written to the file only while it has no subkeys, so that
// the parent of a trace may come into it.
void expectTracesAloneWent(const std::string& beforeText, const std::string& afterText, bool ofMachine) {
    const RegistrySections before = registrySections(beforeText);
    const RegistrySections after = registrySections(afterText);
    EXPECT_EQ(before.beginning, after.beginning);
    std::vector<std::string> expectedOrder;
    for (const std::string& path : before.order) {
        if (!isTrace(path, ofMachine)) expectedOrder.push_back(path);
    }
    EXPECT_LT(expectedOrder.size(), before.order.size()) << "there was no trace to lose";
    std::vector<std::string> order;
    for (const std::string& path : after.order) {
        const bool emptyParent = !before.sections.contains(path) && isParentOfTrace(path, ofMachine) &&
                                 after.sections.at(path).valueLines().empty();
        if (!emptyParent) order.push_back(path);
    }
    EXPECT_EQ(expectedOrder, order);
    for (const std::string& path : expectedOrder) {
        const auto found = after.sections.find(path);
        if (found == after.sections.end()) continue;  // told by the order
        const RegistrySection& old = before.sections.at(path);
        if (isParentOfTrace(path, ofMachine)) {
            EXPECT_EQ(old.valueLines(), found->second.valueLines()) << path;
        } else {
            EXPECT_EQ(old.header, found->second.header);
            EXPECT_EQ(old.lines, found->second.lines) << path;
        }
    }
}

// Puts lines that only a later Wine would write into a key that stays.
std::string withUnknownLines(const std::string& text, const std::string& key) {
    const std::string header = "[" + sectionPath(key) + "] ";
    const std::size_t at = text.find(header);
    EXPECT_NE(at, std::string::npos);
    const std::size_t lineEnd = text.find('\n', at) + 1;
    return text.substr(0, lineEnd) + "#future=1dd7995e1f6e850\n" + text.substr(lineEnd);
}

const std::vector<std::string> kCleanAll{
    "run",      "--tick",         "windows", "--untick",       "chkAlphabetizeFavorites",
    "--untick", "chkRecentPaint", "--set",   "txtPurgeSpeed=0"};

std::vector<std::string> with(std::vector<std::string> arguments, const std::vector<std::string>& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

}  // namespace

TEST_F(WinePrefixTest, LosesWhatIsTickedAndNothingElse) {
    leaveTraces();
    ASSERT_FALSE(HasFailure());
    // Wine itself writes to the branches of its own at every start; these it leaves alone.
    const std::array branches{"HKLM\\Software\\Classes", "HKLM\\Software\\Microsoft\\Windows NT",
                              "HKLM\\System\\CurrentControlSet\\Control\\Nls", "HKCU\\Control Panel",
                              "HKCU\\Software\\Elsewhere"};
    std::vector<std::string> branchesBefore;
    branchesBefore.reserve(branches.size());
    for (const char* branch : branches) branchesBefore.push_back(exported(branch));
    const std::string saidBefore = prefix_->wine({"cmd", "/c", "ver"}).err;
    prefix_->stop();
    putFile(prefix_->path() + "/user.reg", withUnknownLines(prefix_->content("user.reg"), kNeighbours[0]));
    const std::string userBefore = prefix_->content("user.reg");
    const std::string systemBefore = prefix_->content("system.reg");
    const std::string defaultBefore = prefix_->content("userdef.reg");
    const std::set<std::string> filesBefore = files();
    const TreeState stateBefore = treeState(prefix_->drive());

    const std::string report = run_->directory() / "report.json";
    const ProcessResult result = run_->console(with(kCleanAll, {"--json", report}));

    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_EQ(result.err, "");
    // The files of the registry.
    expectTracesAloneWent(userBefore, prefix_->content("user.reg"), false);
    expectTracesAloneWent(systemBefore, prefix_->content("system.reg"), true);
    EXPECT_EQ(defaultBefore, prefix_->content("userdef.reg"));
    // The files of the drive: the folders above what went have new times, all others are untouched.
    std::set<std::string> went;
    const std::set<std::string> filesAfter = files();
    std::set_difference(filesBefore.begin(), filesBefore.end(), filesAfter.begin(), filesAfter.end(),
                        std::inserter(went, went.end()));
    EXPECT_EQ(went, fileTraces());
    const TreeState stateAfter = treeState(prefix_->drive());
    for (const auto& entry : stateAfter) {
        const std::string& path = entry.first;
        const std::string& state = entry.second;
        const auto old = stateBefore.find(path);
        const bool isAbove = std::any_of(went.begin(), went.end(), [&](const std::string& gone) {
            return fs::path(gone).parent_path().string() == path;
        });
        if (old == stateBefore.end()) {
            ADD_FAILURE() << path << " came";
        } else if (!isAbove) {
            EXPECT_EQ(old->second, state) << path;
        }
    }
    // The report counts what the test counted.
    const nlohmann::json json = nlohmann::json::parse(contentOfFile(report));
    EXPECT_EQ(json.at("steps").size(), 62u);
    std::size_t removed = 0;
    std::size_t keys = 0;
    for (const auto& step : json.at("steps")) {
        removed += step.at("files").get<std::size_t>() + step.at("folders").get<std::size_t>();
        keys += step.at("keys").get<std::size_t>();
        EXPECT_EQ(step.at("failed").get<int>(), 0) << step.dump();
    }
    EXPECT_EQ(removed, fileTraces().size());
    constexpr std::size_t kKeysOfTrace = 5;  // as imported: itself, one beside and three below one another
    EXPECT_EQ(keys, (kTraces.size() + 1) * kKeysOfTrace + 1);

    // Wine's own answers.
    EXPECT_EQ(prefix_->wine({"cmd", "/c", "ver"}).err, saidBefore);
    for (const char* key : kTraces) EXPECT_FALSE(wineHasKey(std::string("HKCU\\") + key)) << key;
    for (const char* key : kNeighbours) {
        EXPECT_TRUE(wineHasKey(std::string("HKCU\\") + key + "\\Größe (日本)")) << key;
        EXPECT_TRUE(wineHasKey(std::string("HKCU\\") + key + "\\.txt\\deep\\deeper")) << key;
    }
    EXPECT_FALSE(wineHasKey(std::string("HKLM\\") + kMachineTrace));
    EXPECT_TRUE(wineHasKey(std::string("HKLM\\") + kMachineNeighbour));
    for (std::size_t i = 0; i < branches.size(); ++i)
        EXPECT_EQ(exported(branches[i]), branchesBefore[i]) << branches[i];
    EXPECT_EQ(trimmed(prefix_->wine({"cmd", "/c", "dir", "/b", "/s", "C:\\windows\\prefetch"}).out), "");
    const std::string documents = prefix_->wine({"cmd", "/c", "type", "%USERPROFILE%\\Documents\\letter.txt"}).out;
    EXPECT_EQ(trimmed(documents), "kept");
}

TEST_F(WinePrefixTest, KeepsRecycledFilesInTheFormOfTheBin) {
    leaveTraces();
    ASSERT_FALSE(HasFailure());
    const std::string content = prefix_->content("drive_c/windows/temp/set up.log");

    const ProcessResult result =
        run_->console({"run", "--method", "recycle", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0"});

    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_TRUE(fs::is_empty(prefix_->drive() + "/windows/temp"));
    // Unit by unit: beside "$Rxxxxxx.ext", which holds it, "$Ixxxxxx.ext" tells where it lay.
    std::map<std::string, std::string> origins;
    const std::string bin = prefix_->drive() + "/$Recycle.Bin";
    ASSERT_TRUE(fs::exists(bin));
    for (const auto& entry : fs::recursive_directory_iterator(bin)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with("$I")) continue;
        const std::string record = contentOfFile(entry.path().string());
        ASSERT_EQ(record.size(), 544u) << "a record of version 1 has one length";
        EXPECT_EQ(record.substr(0, 8), std::string("\x01\0\0\0\0\0\0\0", 8));
        std::string path = platform::utf8FromUtf16le(record.substr(24));
        path.resize(path.find('\0'));
        origins[base::upperCase(path)] = entry.path().parent_path().string() + "/$R" + name.substr(2);
    }
    ASSERT_EQ(origins.size(), 3u);
    ASSERT_TRUE(origins.contains("C:\\WINDOWS\\TEMP\\SET UP.LOG"));
    EXPECT_EQ(contentOfFile(origins.at("C:\\WINDOWS\\TEMP\\SET UP.LOG")), content);
    ASSERT_TRUE(origins.contains("C:\\WINDOWS\\TEMP\\SUB"));
    EXPECT_EQ(contentOfFile(origins.at("C:\\WINDOWS\\TEMP\\SUB") + "/deeper/set up.log"), content);
    ASSERT_TRUE(
        origins.contains("C:\\WINDOWS\\TEMP\\\xC3\x9C"
                         "BUNG.TMP"));
    EXPECT_EQ(contentOfFile(origins.at("C:\\WINDOWS\\TEMP\\\xC3\x9C"
                                       "BUNG.TMP")),
              importFile());

    // What is in the bin is emptied by the next run.
    const ProcessResult second = run_->console({"run", "--tick", "chkTrash", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(second.status, console_status::Done) << second.err;
    for (const auto& [origin, unit] : origins) EXPECT_FALSE(fs::exists(unit)) << origin;
    EXPECT_EQ(prefix_->wine({"cmd", "/c", "ver"}).status, 0);
}

TEST_F(WinePrefixTest, IsRefusedWhileItsServerRuns) {
    leaveTraces();
    ASSERT_FALSE(HasFailure());
    const auto expectRefusal = [&] {
        const ProcessResult result = run_->console(kCleanAll);
        EXPECT_EQ(result.status, console_status::MachineUnusable);
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_NE(result.err.find("Wine server"), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
    };

    // A program that waits for a key.
    const auto program = prefix_->startWine({"cmd", "/c", "echo running & pause"});
    ASSERT_TRUE(program->waitForOutput("running"));
    expectRefusal();
    EXPECT_TRUE(program->isRunning());
    for (const std::string& trace : fileTraces()) EXPECT_TRUE(fs::exists(prefix_->drive() + "/" + trace)) << trace;
    for (const char* key : kTraces) EXPECT_TRUE(wineHasKey(std::string("HKCU\\") + key)) << key;
    prefix_->stop();

    // The server alone, held still, so that whatever changes was changed by the console.
    const auto server = prefix_->startServer();
    ASSERT_TRUE(server->waitUntil([&] { return isInUse(); }));
    server->send(SIGSTOP);
    const TreeState before = treeState(prefix_->path());
    expectRefusal();
    EXPECT_EQ(changesBetween(before, treeState(prefix_->path())), "");
    server->send(SIGCONT);
    server->send(SIGTERM);
    server->wait();

    // And once it has ended, the prefix is there to be cleaned.
    EXPECT_EQ(run_->console(kCleanAll).status, console_status::Done);
    EXPECT_FALSE(wineHasKey(std::string("HKCU\\") + kTraces[0]));
}

TEST_F(WinePrefixTest, KeepsItsRegistryWhenAServerStartsDuringTheRun) {
    leaveTraces();
    ASSERT_FALSE(HasFailure());
    const std::string before = prefix_->content("user.reg");

    Process console(run_->command({"run", "--tick", "windows", "--set", "txtPurgeSpeed=50"}), run_->options());
    ASSERT_TRUE(console.waitForOutput("Removal method")) << console.err();
    console.send(SIGSTOP);
    const auto server = prefix_->startServer();
    ASSERT_TRUE(server->waitUntil([&] { return isInUse(); }));
    console.send(SIGCONT);
    const ProcessResult result = console.wait();

    EXPECT_EQ(result.status, console_status::MachineUnusable) << result.err;
    EXPECT_NE(result.err.find("Wine server"), std::string::npos) << result.err;
    for (const char* key : kTraces) {
        EXPECT_NE(prefix_->content("user.reg").find("[" + sectionPath(key) + "]"), std::string::npos) << key;
    }
    prefix_->stop();
    for (const char* key : kTraces) EXPECT_TRUE(wineHasKey(std::string("HKCU\\") + key)) << key;
}

}  // namespace tidvane::tests
