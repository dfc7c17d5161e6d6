#include "frontend/sample/sample_machine.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "app/all_windows.h"
#include "base/text.h"
#include "console/console_display.h"
#include "console/sample_fixture.h"
#include "settings/frmOptions.h"
#include "settings/own_entries.h"
#include "tasks/internet_explorer_tasks.h"
#include "tasks/office_tasks.h"
#include "tasks/profile_file_task.h"
#include "tasks/windows_tasks.h"
#include "tools/frmIECache.h"

namespace tidvane::console {
namespace {

namespace fs = std::filesystem;

class SampleMachine : public SampleFixture {
protected:
    bool hasKey(platform::HKey root, const std::string& key, const std::string& subKey = {}) {
        platform::RegistryTree& tree = platform->machine().registry().tree();
        std::string path = root == platform::HKEY_CURRENT_USER_ ? "User\\" + tree.userSid() + "\\" : "Machine\\";
        path += key;
        if (!subKey.empty()) path += "\\" + subKey;
        const auto found = tree.find(path);
        return found != nullptr && (!found->values().empty() || !found->children().empty());
    }
    bool hasEntryEndingIn(const SampleState& all, const std::string& end) const {
        return std::any_of(all.begin(), all.end(), [&](const auto& entry) { return entry.first.ends_with(end); });
    }
};

TEST_F(SampleMachine, HoldsTracesForEveryRegistryTask) {
    open();
    for (const auto targets : {tasks::windowsRegistryTargets(), tasks::ieRegistryTargets()}) {
        for (const tasks::RegistryTarget& target : targets) {
            EXPECT_TRUE(hasKey(target.root, target.key, target.subKey)) << target.key << " " << target.subKey;
        }
    }
    for (const tasks::OfficeBlock& block : tasks::officeBlocks()) {
        for (const tasks::OfficeKey& key : block.keys) {
            if (key.key == nullptr) break;
            EXPECT_TRUE(hasKey(platform::HKEY_CURRENT_USER_, key.key, key.subKey)) << block.label << key.key;
        }
    }
}

TEST_F(SampleMachine, HoldsEveryFileThatTheBrowserTasksLookFor) {
    const SampleState all = state();
    for (const tasks::ProfileTarget& target : tasks::profileTargets()) {
        std::string end = base::lowerCase(base::replaceAll(target.name, "\\", "/"));
        while (end.ends_with('/') || end.ends_with('*')) end.pop_back();
        const bool mask = std::string(target.name).ends_with('*');
        const bool found =
            mask ? std::any_of(all.begin(), all.end(),
                               [&](const auto& entry) { return entry.first.find("/" + end) != std::string::npos; })
                 : hasEntryEndingIn(all, end);
        EXPECT_TRUE(found) << "step " << target.step << ": " << target.name;
    }
}

TEST_F(SampleMachine, HoldsEverythingThatItsTablesName) {
    const SampleState all = state();
    for (const frontend::SampleFile& file : frontend::sampleFiles())
        EXPECT_EQ(all.count(onDisk(file.path)), 1U) << file.path;
    for (const frontend::SampleText& file : frontend::sampleTexts())
        EXPECT_EQ(all.at(onDisk(file.path)), file.text) << file.path;
    for (const frontend::SampleFolder& folder : frontend::sampleFolders())
        EXPECT_EQ(all.at(onDisk(folder.path)), "folder") << folder.path;
    for (const frontend::SampleLink& link : frontend::sampleLinks()) EXPECT_TRUE(there(link.path)) << link.path;
    for (const frontend::SampleUnit& unit : frontend::sampleUnits())
        EXPECT_TRUE(there(std::string(unit.folder) + "/" + unit.name));
    for (const frontend::SampleUrl& url : frontend::sampleUrls())
        EXPECT_TRUE(there(std::string(url.store) + "/" + url.file)) << url.url;
    for (const frontend::SampleValue& value : frontend::sampleValues())
        EXPECT_EQ(all.count(inRegistry(value)), 1U) << inRegistry(value);
}

TEST_F(SampleMachine, NamesNothingTwice) {
    std::map<std::string, int> names;
    for (const frontend::SampleFile& file : frontend::sampleFiles()) ++names[onDisk(file.path)];
    for (const frontend::SampleText& file : frontend::sampleTexts()) ++names[onDisk(file.path)];
    for (const frontend::SampleFolder& folder : frontend::sampleFolders()) ++names[onDisk(folder.path)];
    for (const frontend::SampleValue& value : frontend::sampleValues()) ++names[inRegistry(value)];
    for (const auto& [name, count] : names) EXPECT_EQ(count, 1) << name;
}

TEST_F(SampleMachine, CountsItsTimesBackFromNow) {
    const std::time_t now = std::time(nullptr);
    for (const frontend::SampleFile& file : frontend::sampleFiles()) {
        struct stat info {};
        ASSERT_EQ(::lstat(place(file.path).c_str(), &info), 0) << file.path;
        EXPECT_NEAR(static_cast<double>(now - info.st_mtime), file.ageDays * 86400.0, 120) << file.path;
        EXPECT_EQ(static_cast<unsigned>(info.st_size), file.bytes) << file.path;
    }
}

TEST_F(SampleMachine, HasNoDriveForTheHost) {
    ASSERT_TRUE(there("dosdevices/z:"));
    open();
    std::string letters;
    for (const platform::Drive& drive : platform->platform().files.Drives()) letters += drive.letter;
    EXPECT_EQ(letters, "C");
    EXPECT_FALSE(platform->platform().files.FolderExists("Z:\\proc"));
    EXPECT_FALSE(platform->platform().files.FolderExists("C:\\Windows\\Temp\\host\\kernel"));
}

TEST_F(SampleMachine, ShowsTheUnitsOfEveryBin) {
    open();
    platform::RecycleBinInfo bin;
    ASSERT_EQ(platform->platform().shell.SHQueryRecycleBinA("", bin), 0);
    std::uint64_t bytes = 0;
    for (const frontend::SampleUnit& unit : frontend::sampleUnits()) bytes += unit.bytes;
    EXPECT_EQ(bin.items, frontend::sampleUnits().size());
    EXPECT_EQ(bin.bytes, bytes);
}

TEST_F(SampleMachine, ShowsTheEntriesOfTheBrowsersCacheWithTheirFiles) {
    open();
    platform::Platform services = platform->platform();
    std::map<std::string, platform::UrlCacheEntry> entries;
    for (const platform::UrlCacheEntry& entry : services.browserCache.entries()) entries[entry.sourceUrlName] = entry;
    EXPECT_EQ(entries.size(), frontend::sampleUrls().size());
    for (const frontend::SampleUrl& url : frontend::sampleUrls()) {
        ASSERT_EQ(entries.count(url.url), 1U) << url.url;
        const std::string& local = entries[url.url].localFileName;
        EXPECT_EQ(local.empty(), *url.file == '\0') << url.url;
        if (!local.empty()) {
            EXPECT_TRUE(services.files.FileExists(local)) << local;
        }
    }
}

// Every group has something to do, alone too, and something to leave.
TEST_F(SampleMachine, HasTracesForEveryGroup) {
    for (const frontend::SampleGroup& group : frontend::sampleGroups()) {
        const auto has = [&](const auto& rows) {
            return std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.takenBy == group.bit; });
        };
        EXPECT_TRUE(has(frontend::sampleFiles()) || has(frontend::sampleValues())) << group.bit;
    }
}

TEST_F(SampleMachine, IsRefusedWhereSomethingIsAlready) {
    EXPECT_FALSE(frontend::createSampleMachine(here / "machine", error));
    EXPECT_NE(error, "");
    EXPECT_TRUE(there("drive_c/Windows/win.ini"));
}

class SampleProgram : public SampleFixture {};

TEST_F(SampleProgram, BringsListsThatNobodyIsRefused) {
    open();
    std::ostringstream nowhere;
    ConsoleDisplay display(nowhere, false);
    settings::Program program(platform->platform(), display);
    app::offerAllWindows(program);
    auto& options = program.get<settings::frmOptions>();
    // Read as they are written, and added once more as a user would.
    const auto expectList = [&](forms::ListBox& list, std::span<const char* const> entries, forms::CheckBox& active,
                                forms::TextBox& box, controls::isButton& add) {
        ASSERT_EQ(list.ListCount(), static_cast<int>(entries.size())) << list.Name;
        active.Value = 1;
        for (const char* text : entries) {
            const int row = list.ListCount() - static_cast<int>(entries.size());
            EXPECT_EQ(list.List(row), filled(text));
            box.setText(filled(text));
            add.press();
            EXPECT_EQ(box.Text(), "") << "refused: " << text;
        }
        EXPECT_EQ(list.ListCount(), 2 * static_cast<int>(entries.size()));
    };
    expectList(options.lstFolders, frontend::sampleOwnFolders(), options.chkActivateOwnFolder, options.txtAddFolderPath,
               options.cmdAddFolderPath);
    expectList(options.lstFiles, frontend::sampleOwnFiles(), options.chkActivateOwnFiles, options.txtAddFilePath,
               options.cmdAddFilePath);
    expectList(options.lstSearchMasks, frontend::sampleMasks(), options.chkSearchTasks, options.txtSearchMask,
               options.cmdAddSearchMask);
    EXPECT_TRUE(settings::masksThatMatchEveryName(program).empty());
    EXPECT_TRUE(settings::splitLinesOfLists(program).empty());
}

TEST_F(SampleProgram, TicksPlugInsThatAreDelivered) {
    for (const char* name : frontend::samplePlugIns()) {
        EXPECT_TRUE(fs::exists(here / ("program/PlugIns/" + std::string(name) + ".tdp"))) << name;
    }
    const std::string ticks = here.content("program/td_apps.ini");
    EXPECT_EQ(ticks.find("[PlugIns]\r\n7-Zip history=1\r\n"), 0U) << ticks;
}

TEST_F(SampleProgram, NeverTouchesAFolderWithSettings) {
    here.file("mine/td_folders.dat", "C:\\Mine\r\n");
    EXPECT_FALSE(frontend::createSample(here / "another", here / "mine", error));
    EXPECT_NE(error.find("mine"), std::string::npos) << error;
    EXPECT_FALSE(here.has("another")) << "no machine either";
    EXPECT_EQ(here.content("mine/td_folders.dat"), "C:\\Mine\r\n");
    EXPECT_FALSE(here.has("mine/td_apps.ini"));

    here.file("a file");
    EXPECT_FALSE(frontend::createSample(here / "another", here / "a file", error));
    EXPECT_FALSE(here.has("another"));

    // The machine's own directory is no longer empty when its turn comes.
    EXPECT_FALSE(frontend::createSample(here / "both", here / "both", error));
    EXPECT_FALSE(here.has("both/td_apps.ini"));
}

TEST_F(SampleProgram, FillsAnEmptyFolderAndIsNoMust) {
    here.folder("empty");
    EXPECT_TRUE(frontend::createSample(here / "second", here / "empty", error)) << error;
    EXPECT_TRUE(here.has("empty/td_ftypes.dat"));
    EXPECT_TRUE(here.has("empty/td_ban.dat"));
    EXPECT_TRUE(frontend::createSample(here / "third", "", error)) << error;
    EXPECT_TRUE(here.has("third/drive_c"));
}

}  // namespace
}  // namespace tidvane::console
