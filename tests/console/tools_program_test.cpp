// The built program from outside: previews, lists, plug-ins, search, cookies, cache.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "console_process.h"

namespace tidvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTemp = "drive_c/Windows/Temp/TMP0001.tmp";

class ToolsProgram : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(std::string(TIDVANE_CONSOLE), "") << "the program was not built";
        const tests::Ended made = console.run({"machine", "create", machine(), "--sample"});
        ASSERT_EQ(made.status, 0) << made.err;
        ASSERT_EQ(run({"settings", "--set", "txtPurgeSpeed=0", "--save"}).status, 0);
    }

    std::string machine() const { return console.home() / "machine"; }
    tests::Ended run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--machine", machine()});
        return console.run(arguments);
    }
    bool has(const std::string& below) const { return console.home().has("machine/" + below); }
    // Names, lengths and times of everything in the machine and in the program folder.
    std::string everything() const {
        std::vector<std::string> lines;
        for (const std::string& top : {machine(), console.home() / "data"}) {
            for (const auto& entry : fs::recursive_directory_iterator(top)) {
                struct stat status {};
                if (::lstat(entry.path().c_str(), &status) != 0) continue;
                lines.push_back(entry.path().string() + " " + std::to_string(status.st_size) + " " +
                                std::to_string(status.st_mtim.tv_sec) + "." + std::to_string(status.st_mtim.tv_nsec) +
                                " " + std::to_string(status.st_ino));
            }
        }
        std::sort(lines.begin(), lines.end());
        std::string all;
        for (const std::string& line : lines) all += line + "\n";
        return all;
    }

    tests::ConsoleProcess console;
};

TEST_F(ToolsProgram, APreviewChangesNothingAtAll) {
    const std::string before = everything();
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"run", "--preview", "--tick", "all"},
             {"run", "--preview", "--details", "--method", "recycle", "--tick", "windows", "--untick", "chkTrash"},
             {"run", "--preview", "--log", "--method", "overwrite", "--tick", "all", "--set", "chkAutoLog=1"},
             {"search", "*.*", "--in", "C:\\Users", "--preview", "--details"}}) {
        const tests::Ended ended = run(words);
        EXPECT_EQ(ended.status, 0) << ended.err;
        EXPECT_TRUE(ended.out.ends_with("This was a preview: nothing was removed, and nothing was stored.\n"));
        EXPECT_EQ(everything(), before);
    }
}

TEST_F(ToolsProgram, APreviewLooksAtAMachineThatAnotherHasOpen) {
    const int held = ::open(machine().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    const tests::Ended ended = run({"run", "--preview", "--tick", "chkTempFolder"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_NE(ended.out.find("Temporary folder of Windows"), std::string::npos);
    EXPECT_EQ(run({"search", "*.tmp", "--in", "C:\\"}).status, 4);
    EXPECT_EQ(run({"cookies", "delete", "--all"}).status, 4);
    EXPECT_EQ(run({"cache", "delete", "--all"}).status, 4);
    for (const std::vector<std::string>& look : std::vector<std::vector<std::string>>{
             {"lists", "show"}, {"plugins"}, {"cookies", "list"}, {"cache", "list"}}) {
        EXPECT_EQ(run(look).status, 0) << look[0];
    }
    EXPECT_TRUE(has(kTemp));
    ::close(held);
}

TEST_F(ToolsProgram, APreviewBesideAWineServerWarns) {
    struct stat info {};
    ASSERT_EQ(::stat(machine().c_str(), &info), 0);
    const fs::path place = fs::path("/tmp") / fs::path(console.home().path()).filename().concat("-server");
    char folder[64];
    std::snprintf(folder, sizeof folder, "server-%llx-%llx", static_cast<unsigned long long>(info.st_dev),
                  static_cast<unsigned long long>(info.st_ino));
    fs::create_directories(place / folder);
    console.home().file("machine/wineserver", place.filename().string() + "\n");
    const int file = ::open((place / folder / "lock").c_str(), O_RDWR | O_CREAT, 0600);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    ASSERT_EQ(::fcntl(file, F_SETLK, &lock), 0);

    const std::string before = everything();
    const tests::Ended ended = run({"run", "--preview", "--tick", "chkRunList"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_NE(ended.err.find("a running Wine server has the registry open"), std::string::npos);
    EXPECT_NE(ended.out.find("Run dialog history"), std::string::npos);
    EXPECT_EQ(run({"run", "--tick", "chkRunList"}).status, 4);
    EXPECT_EQ(everything(), before);
    ::close(file);
    fs::remove_all(place);
    EXPECT_EQ(run({"run", "--preview", "--tick", "chkRunList"}).err, "");
}

TEST_F(ToolsProgram, OwnListsHoldFromTheCommandToTheRun) {
    console.home().file("machine/drive_c/Mine/a.txt");
    console.home().file("machine/drive_c/Other/a.old_junk");
    EXPECT_EQ(run({"lists", "add", "folders", "C:\\Mine"}).status, 0);
    EXPECT_EQ(run({"lists", "add", "masks", "*.old_junk"}).status, 0);
    EXPECT_EQ(run({"lists", "show"}).out, "folders  C:\\Mine\nmasks    *.old_junk\n");
    EXPECT_EQ(run({"run"}).status, 0);
    EXPECT_TRUE(has("drive_c/Mine/a.txt")) << "the steps are off";
    EXPECT_EQ(run({"run", "--tick", "custom", "--tick", "search", "--set", "cboDrives=C:"}).status, 0);
    EXPECT_FALSE(has("drive_c/Mine"));
    EXPECT_FALSE(has("drive_c/Other/a.old_junk"));
    EXPECT_EQ(run({"lists", "remove", "folders", "c:\\mine"}).status, 0);
    EXPECT_EQ(run({"lists", "show", "folders"}).out, "");
    EXPECT_NE(run({"settings"}).out.find("frmOptions.chkActivateOwnFolder=0\n"), std::string::npos);
}

TEST_F(ToolsProgram, WarnsOfAFolderThatNoRunEmptiesWhenItIsAdded) {
    const std::vector<std::string> never{"C:\\Users\\User", "C:\\Users\\User\\AppData\\Local",
                                         "C:\\Users\\User\\AppData\\Roaming\\*", "\\\\server\\share",
                                         "C:\\Documents and Settings\\Anna\\Local Settings"};
    std::vector<std::string> words{"lists", "add", "folders", "C:\\Scratch", "relative"};
    words.insert(words.end(), never.begin(), never.end());
    const tests::Ended ended = run(words);
    EXPECT_EQ(ended.status, 0) << ended.err;
    for (const std::string& folder : never) {
        EXPECT_NE(ended.err.find("Warning: \"" + folder + "\" is a place that is never emptied"), std::string::npos)
            << ended.err;
        EXPECT_NE(ended.out.find("Added: " + folder + "\n"), std::string::npos) << "as the window does";
    }
    EXPECT_EQ(ended.err.find("Scratch"), std::string::npos);
    const std::size_t relative = ended.err.find("\"relative\"");
    ASSERT_NE(relative, std::string::npos);
    EXPECT_EQ(ended.err.find("\"relative\"", relative + 1), std::string::npos) << "told once";
    EXPECT_EQ(run({"lists", "remove", "folders", "C:\\Users\\User"}).err, "");
    EXPECT_EQ(run({"lists", "add", "files", "C:\\Scratch\\a.txt"}).err, "");
}

TEST_F(ToolsProgram, LosesNoEntryThatOneOfManyAtOnceHasStored) {
    constexpr int kAtOnce = 8;
    std::vector<pid_t> processes;
    for (int at = 0; at < kAtOnce; ++at) {
        processes.push_back(
            console.start({"--machine", machine(), "lists", "add", "folders", "C:\\Folder" + std::to_string(at)}));
    }
    std::vector<std::string> stored;
    for (int at = 0; at < kAtOnce; ++at) {
        const int status = console.end(processes[static_cast<std::size_t>(at)]).status;
        EXPECT_TRUE(status == 0 || status == 4) << status;
        if (status == 0) stored.push_back("C:\\Folder" + std::to_string(at));
    }
    EXPECT_FALSE(stored.empty());
    const std::string list = run({"lists", "show", "folders"}).out;
    for (const std::string& entry : stored) EXPECT_NE(list.find(entry + "\n"), std::string::npos) << entry;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), static_cast<std::ptrdiff_t>(stored.size()));
}

TEST_F(ToolsProgram, StoresNothingWhileAnotherOneWorksWithTheProgramFolder) {
    const int held = ::open((console.home() / "data/tidvane/program").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    const std::string before = everything();
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"lists", "add", "folders", "C:\\Mine"},
                                               {"lists", "remove", "folders", "C:\\Mine"},
                                               {"plugins", "--tick", "Windows crash dumps"},
                                               {"settings", "--set", "txtPurgeSpeed=3", "--save"},
                                               {"run", "--tick", "chkTempFolder"},
                                               {"search", "*.tmp", "--in", "C:\\Windows\\Temp"}}) {
        const tests::Ended ended = run(words);
        EXPECT_EQ(ended.status, 4) << words[0];
        EXPECT_EQ(ended.out, "");
        EXPECT_NE(ended.err.find("already running"), std::string::npos) << ended.err;
    }
    EXPECT_EQ(run({"run", "--preview", "--tick", "chkTempFolder"}).status, 0) << "looking is allowed";
    EXPECT_EQ(everything(), before);
    ::close(held);
}

TEST_F(ToolsProgram, AnswersWrongUseOfTheToolsWith2AndASentence) {
    const std::string before = everything();
    for (const std::vector<std::string>& wrong :
         std::vector<std::vector<std::string>>{{"search", "*.tmp"},
                                               {"search", "tmp", "--in", "C:\\"},
                                               {"search", "*", "--in", "C:\\"},
                                               {"search", "*.*", "--in", "C:\\Users"},
                                               {"search", "*.tmp", "--in", ""},
                                               {"search", "*.tmp", "--in", "\\"},
                                               {"search", "", "--in", "C:\\"},
                                               {"search", "*.a\\b", "--in", "C:\\"},
                                               {"lists", "add", "folders", "C:\\"},
                                               {"lists", "add", "folders", "C:\\Windows"},
                                               {"lists", "add", "files", ""},
                                               {"lists", "add", "masks", "*"},
                                               {"lists", "add", "masks", ".."},
                                               {"lists", "add", "masks", "a\\b"},
                                               {"lists", "remove", "masks", "*.nothing"},
                                               {"plugins", "--tick", "No such plug-in"},
                                               {"plugins", "--info", ""},
                                               {"run", "--plugin", "No such plug-in"},
                                               {"run", "--preview", "--save"},
                                               {"cookies", "delete"},
                                               {"cache", "delete", "http://nowhere.example/"}}) {
        const tests::Ended ended = run(wrong);
        EXPECT_EQ(ended.status, 2) << wrong[0] << " " << wrong[1] << ended.err;
        EXPECT_EQ(ended.out, "");
        EXPECT_NE(ended.err, "");
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(ToolsProgram, TicksAPlugInForGood) {
    const tests::Ended list = run({"plugins"});
    EXPECT_EQ(list.status, 0);
    EXPECT_GT(std::count(list.out.begin(), list.out.end(), '\n'), 25);
    EXPECT_EQ(list.out.find("yes "), std::string::npos) << "none is ticked as delivered";
    EXPECT_EQ(run({"plugins", "--tick", "Windows crash dumps"}).status, 0);
    EXPECT_NE(run({"plugins"}).out.find("yes     Windows crash dumps"), std::string::npos);
    console.home().file("machine/drive_c/Windows/Minidump/a.dmp");
    EXPECT_EQ(run({"run"}).status, 0);
    EXPECT_FALSE(has("drive_c/Windows/Minidump/a.dmp"));
    EXPECT_NE(run({"plugins"}).out.find("yes     Windows crash dumps"), std::string::npos) << "a run keeps the ticks";
}

}  // namespace
}  // namespace tidvane
