// The tasks that remove registry keys.
#include <map>

#include "tasks/task_fixture.h"
#include "tasks/windows_tasks.h"

namespace tidvane::tests {

namespace {
const std::string kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
const std::string kApplets = "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\";
const std::string kAssistant = "Software\\Microsoft\\Search Assistant\\ACMru";
const std::string kPlayer = "Software\\Microsoft\\MediaPlayer\\";

// Keys of each task, in the order of removal.
const std::map<int, std::vector<std::string>> kKeys{
    {4, {kExplorer + "RecentDocs"}},
    {5, {kExplorer + "Doc Find Spec MRU", kAssistant + "\\5603", kAssistant + "\\5604"}},
    {6, {kExplorer + "FindComputerMRU", kAssistant + "\\5647"}},
    {7, {kExplorer + "RunMRU"}},
    {8, {kApplets + "Regedit"}},
    {9,
     {kExplorer + "ComDlg32\\OpenSaveMRU", kExplorer + "ComDlg32\\OpenSavePidlMRU", kExplorer + "ComDlg32\\FirstFolder",
      kExplorer + "ComDlg32\\CIDSizeMRU", kExplorer + "ComDlg32\\LastVisitedMRU",
      kExplorer + "ComDlg32\\LastVisitedPidlMRU", kExplorer + "ComDlg32\\LastVisitedPidlMRULegacy"}},
    {10, {kExplorer + "UserAssist"}},
    {12, {kAssistant}},
    {19, {kApplets + "Wordpad\\Recent File List"}},
    {20, {kApplets + "Paint\\Recent File List"}},
    {21,
     {kPlayer + "Player\\RecentFileList", kPlayer + "Player\\RecentURLList", kPlayer + "AutoComplete\\MediaEdit",
      kPlayer + "Radio\\MRUList"}},
    {22, {kExplorer + "MenuOrder\\Start Menu"}},
    {23, {kExplorer + "MenuOrder\\Favorites"}},
};
constexpr const char* kDialUp = "Machine\\Software\\Microsoft\\RAS AutoDial\\Addresses";

bool sorts(int step) {
    return step == 22 || step == 23;
}
}  // namespace

struct RegistryTasks : TaskFixture {};

TEST_F(RegistryTasks, HaveTheKeysOfTheirRowsInOrder) {
    std::map<int, std::vector<std::string>> actual;
    for (const tasks::RegistryTarget& target : tasks::windowsRegistryTargets()) {
        EXPECT_STREQ(target.subKey, "");
        if (target.step == 13) {
            EXPECT_EQ(target.root, platform::HKEY_LOCAL_MACHINE_);
            EXPECT_STREQ(target.key, "SOFTWARE\\Microsoft\\RAS AutoDial\\Addresses");
            continue;
        }
        EXPECT_EQ(target.root, platform::HKEY_CURRENT_USER_) << target.step;
        actual[target.step].push_back(target.key);
    }
    EXPECT_EQ(actual, kKeys);
}

TEST_F(RegistryTasks, RemoveAllTheirKeysWithWhatIsBelow) {
    for (const auto& [step, keys] : kKeys) {
        for (const std::string& key : keys) putKey(key + "\\below");
        putKey(keys.front() + "Other");
        const std::vector<std::string> lines = run(step);
        if (!sorts(step)) {
            EXPECT_EQ(lines, cleaned(step)) << step;
        }
        for (const std::string& key : keys) EXPECT_FALSE(hasKey(key)) << key;
        EXPECT_TRUE(hasKey(keys.front() + "Other")) << step;
        EXPECT_EQ(statusOf(step), text(507)) << step;
        EXPECT_EQ(iconOf(step), 9) << step;
    }
}

TEST_F(RegistryTasks, TellThatNothingWasThere) {
    for (const auto& [step, keys] : kKeys) {
        if (sorts(step)) continue;
        EXPECT_EQ(run(step), notFound(step)) << step;
        EXPECT_EQ(statusOf(step), text(508)) << step;
        EXPECT_EQ(iconOf(step), 10) << step;
        EXPECT_EQ(panels.front(), text(503) + " " + name(step) + " ...") << step;
    }
}

TEST_F(RegistryTasks, ReportByTheLastKeyAlone) {
    for (const auto& [step, keys] : kKeys) {
        if (keys.size() < 2) continue;
        // All but the last: gone, and yet "not found".
        for (std::size_t i = 0; i + 1 < keys.size(); ++i) putKey(keys[i]);
        EXPECT_EQ(run(step), notFound(step)) << step;
        for (const std::string& key : keys) EXPECT_FALSE(hasKey(key)) << key;
        EXPECT_EQ(iconOf(step), 10) << step;
        // The last alone: "cleaned".
        putKey(keys.back());
        EXPECT_EQ(run(step), cleaned(step)) << step;
    }
}

TEST_F(RegistryTasks, RemoveTheDialUpAddressesOfTheMachine) {
    machine.registryTree.make(kDialUp)->setText("a", "b");
    EXPECT_EQ(run(13), cleaned(13));
    EXPECT_EQ(machine.registryTree.find(kDialUp), nullptr);
    EXPECT_EQ(run(13), notFound(13));
}

TEST_F(RegistryTasks, RecentDocumentsLeavesTheShortcutsAlone) {
    const std::string shortcut = machine.shell.SpecialFolder(8) + "\\a.lnk";
    machine.files.putFile(shortcut);
    putKey(kKeys.at(4).front());
    EXPECT_EQ(run(4), cleaned(4));
    EXPECT_TRUE(machine.files.has(shortcut));
}

TEST_F(RegistryTasks, ThatSortHaveWordsOfTheirOwn) {
    for (const int step : {22, 23}) {
        EXPECT_EQ(run(step), std::vector<std::string>{name(step) + " " + text(497)}) << step;
        EXPECT_EQ(panels, std::vector<std::string>{name(step) + " ..."}) << step;
        EXPECT_EQ(statusOf(step), text(495)) << step;
        EXPECT_EQ(iconOf(step), 10) << step;
        putKey(kKeys.at(step).front());
        EXPECT_EQ(run(step), std::vector<std::string>{name(step) + " <OK>"}) << step;
        EXPECT_EQ(statusOf(step), text(507)) << step;
        EXPECT_EQ(iconOf(step), 9) << step;
    }
}

}  // namespace tidvane::tests
