// What a command does with damaged settings, a program folder that takes nothing, and failures nobody foresaw.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/runtime_error.h"
#include "console/last_catch.h"
#include "memory_session.h"
#include "platform/machine/machine_platform.h"
#include "support/host_directory.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

constexpr const char* kTempFile = "C:\\Windows\\Temp\\a.tmp";
constexpr const char* kConfig = "td_config.ini";

struct BadNumber {
    const char* window;
    const char* control;
};

class ABadNumberIn : public ::testing::TestWithParam<BadNumber> {
protected:
    ABadNumberIn() {
        machine.memory.files.putFile(kProgramFolder + kConfig,
                                     std::string("[") + GetParam().window + "]\r\n" + GetParam().control + "=bad\r\n");
        machine.memory.files.putFile(kTempFile, "12345");
    }
    tests::MemorySession machine;
    Options options;
};

TEST_P(ABadNumberIn, DoesNotEndARun) {
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done) << machine.messages();
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
}

TEST_P(ABadNumberIn, DoesNotEndTheListOfTasks) {
    EXPECT_EQ(tasksCommand(machine.session, options), exit_status::Done);
    const std::string list = machine.log();
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 63);
    EXPECT_TRUE(contains(list, "Temporary folder of Windows")) << "the texts are there";
}

TEST_P(ABadNumberIn, DoesNotEndTheListOfSettings) {
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), std::string(GetParam().window) + "." + GetParam().control + "="));
    EXPECT_TRUE(contains(machine.log(), "frmWidget."));
}

TEST_P(ABadNumberIn, CanBeMendedBySettingIt) {
    options.set = {std::string(GetParam().window) + "." + GetParam().control + "=1"};
    options.save = true;
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done) << machine.messages();
    EXPECT_TRUE(contains(machine.storedSettings(), std::string(GetParam().control) + "=1\r\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Windows, ABadNumberIn,
    ::testing::Values(BadNumber{"frmIEInDepthClean", "chkIEINDepthClean"}, BadNumber{"frmTempAge", "chkActivite"},
                      BadNumber{"frmIECache", "chkAllCookies"}, BadNumber{"frmMozillaDir", "chkMozillaDir"},
                      BadNumber{"frmOperaDir", "chkOperaDir"}, BadNumber{"frmChromeDir", "chkChromeDir"},
                      BadNumber{"frmSafariDir", "chkSafariDir"}),
    [](const auto& window) { return std::string(window.param.window); });

class StoringFails : public ::testing::Test {
protected:
    StoringFails() {
        machine.memory.files.putFile(kProgramFolder + kConfig, "[frmOptions]\r\nchkRunList=0\r\n");
        machine.memory.files.putFile(kTempFile, "12345");
        machine.memory.files.lock(kProgramFolder + kConfig);
        options.save = true;
    }
    tests::MemorySession machine;
    Options options;
};

TEST_F(StoringFails, EndsTheCommandSettingsWith4AndASentence) {
    options.set = {"txtPurgeSpeed=3"};
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "The settings could not be stored"));
}

TEST_F(StoringFails, EndsARunWith4BehindItsWork) {
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::MachineUnusable);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(contains(machine.messages(), "The settings could not be stored"));
}

TEST_F(StoringFails, IsNoMatterWhereNothingWasToBeStored) {
    options.save = false;
    options.set = {"txtPurgeSpeed=3"};
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_EQ(machine.messages(), "");
}

TEST(Saving, TellsThatAnEmptiedTextComesBack) {
    tests::MemorySession machine;
    Options options;
    options.set = {"txtTidvaneLog=C:\\Logs"};
    options.save = true;
    ASSERT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_EQ(machine.messages(), "");
    options.set = {"txtTidvaneLog="};
    ASSERT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "keeps its last value: C:\\Logs")) << machine.messages();
}

class LastCatch : public ::testing::Test {
protected:
    LastCatch() {
        machine.session.commit = [this](std::string&) {
            ++commits;
            return true;
        };
    }
    tests::MemorySession machine;
    int commits = 0;
};

TEST_F(LastCatch, AnswersWithTheCommandsStatusWhereNothingFails) {
    EXPECT_EQ(withLastCatch(machine.session, [] { return exit_status::Stopped; }), exit_status::Stopped);
    EXPECT_EQ(commits, 0);
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(LastCatch, SaysOneSentenceAndStoresNothingWhereNothingWasRemoved) {
    const int status =
        withLastCatch(machine.session, []() -> int { throw base::RuntimeError(13, "x", "Type mismatch"); });
    EXPECT_EQ(status, exit_status::MachineUnusable);
    EXPECT_EQ(machine.messages(), "The program failed (Type mismatch); nothing was removed.\n");
    EXPECT_EQ(commits, 0);
}

TEST_F(LastCatch, StoresTheRegistryWhereSomethingWasRemoved) {
    const int status = withLastCatch(machine.session, [this]() -> int {
        ++machine.memory.removed.totals.keys;
        throw std::bad_alloc();
    });
    EXPECT_EQ(status, exit_status::MachineUnusable);
    EXPECT_EQ(commits, 1);
    EXPECT_FALSE(contains(machine.messages(), "nothing was removed"));
}

TEST_F(LastCatch, StoresNothingOfAPreview) {
    machine.session.preview = true;
    const int status = withLastCatch(machine.session, [this]() -> int {
        ++machine.memory.removed.totals.keys;
        throw std::bad_alloc();
    });
    EXPECT_EQ(status, exit_status::MachineUnusable);
    EXPECT_EQ(commits, 0);
    EXPECT_TRUE(contains(machine.messages(), "nothing was removed"));
}

TEST(AProgramFolderThatCannotBeOpened, IsToldAsWhatItIs) {
    namespace host = platform::machine;
    tests::HostDirectory directory;
    directory.folder("program");
    std::string error;
    ASSERT_TRUE(host::Machine::create(directory / "m", error)) << error;
    auto opened = host::Machine::open(directory / "m", host::Machine::Access::Write, error);
    ASSERT_NE(opened, nullptr) << error;
    const auto machine = host::MachinePlatform::make(std::move(opened), {directory / "program", "", {}}, error);
    ASSERT_NE(machine, nullptr) << error;
    std::filesystem::remove_all(directory / "program");
    std::ostringstream out;
    std::ostringstream err;
    Session session{machine->platform(), "m", out, err, [](std::string&) { return true; }, {}};
    Options options;
    options.save = true;
    for (const auto& command : {&runCommand, &settingsCommand}) {
        err.str({});
        EXPECT_EQ(command(session, options), exit_status::MachineUnusable);
        EXPECT_EQ(err.str(), "The program folder \"" + (directory / "program") +
                                 "\" cannot be opened: No such file or directory; name another one with --program.\n");
    }
    EXPECT_EQ(out.str(), "");
}

TEST(Warnings, AreSilentWhereNothingIsMissing) {
    tests::MemorySession machine;
    Options options;
    options.tick = {"all"};
    options.untick = {"chkIEINDepthCleanAll"};  // which would be asked about
    machine.run(options);
    EXPECT_EQ(machine.messages(), "");
}

TEST(Warnings, TellOnceThatNoLanguageFileIsThere) {
    for (const auto& command : {&runCommand, &tasksCommand, &settingsCommand}) {
        tests::MemorySession machine;
        machine.memory.files.take(kProgramFolder + "English.lng");
        EXPECT_EQ(command(machine.session, {}), exit_status::Done);
        const std::string messages = machine.messages();
        const std::size_t at = messages.find("*.lng");
        ASSERT_NE(at, std::string::npos);
        EXPECT_EQ(messages.find("*.lng", at + 1), std::string::npos);
    }
}

}  // namespace
}  // namespace tidvane::console
