#include "console/sample_machine.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>

#include "base/text.h"
#include "console/commands.h"
#include "console/sample_traces.h"
#include "platform/machine/machine_platform.h"
#include "support/host_directory.h"
#include "tasks/windows_tasks.h"

namespace tidvane::console {
namespace {

namespace fs = std::filesystem;
namespace machine = platform::machine;

class SampleMachine : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(createSampleMachine(here / "machine", error)) << error;
        fs::copy(TIDVANE_SOURCE_DIR "/data", here / "program", fs::copy_options::recursive);
    }

    void open() {
        auto opened = machine::Machine::open(here / "machine", machine::Machine::Access::Write, error);
        ASSERT_NE(opened, nullptr) << error;
        platform = machine::MachinePlatform::make(std::move(opened), {here / "program", "", {}}, error);
        ASSERT_NE(platform, nullptr) << error;
    }
    void clean(int method) {
        open();
        std::ostringstream out;
        std::ostringstream err;
        Session session{
            platform->platform(), "sample", out, err, [&](std::string& e) { return ok(platform->commit(e)); }, {}};
        Options options;
        options.method = method;
        options.tick = {"windows"};
        options.set = {"txtPurgeSpeed=0"};
        ASSERT_EQ(runCommand(session, options), exit_status::Done) << err.str();
        platform.reset();
        open();
    }
    bool there(const std::string& path) const {
        return fs::symlink_status(here / ("machine/" + filled(path))).type() != fs::file_type::not_found;
    }
    std::string filled(const std::string& path) const {
        return base::replaceAll(base::replaceAll(path, "<user>", "Anna"), "<sid>", "S-1-5-21-0-0-0-1000");
    }
    bool hasValue(const SampleValue& value) {
        platform::RegistryTree& tree = platform->machine().registry().tree();
        const std::string root = value.hive == SampleHive::User ? "User\\" + tree.userSid() + "\\" : "Machine\\";
        const auto key = tree.find(root + value.key);
        return key != nullptr && key->findValue(value.name) != nullptr;
    }
    // Hidden files can be told from others only where the host keeps the bits of Windows.
    bool keepsAttributes() {
        unsigned bits = 0;
        (void)platform->files().GetAttributes("C:\\Windows\\Temp\\keep-hidden.txt", bits);
        return (bits & platform::attribute::Hidden) != 0;
    }

    tests::HostDirectory here;
    std::string error;
    std::unique_ptr<machine::MachinePlatform> platform;
};

TEST_F(SampleMachine, HoldsTracesForEveryRegistryTask) {
    open();
    platform::RegistryTree& tree = platform->machine().registry().tree();
    for (const tasks::RegistryTarget& target : tasks::windowsRegistryTargets()) {
        const std::string root =
            target.root == platform::HKEY_CURRENT_USER_ ? "User\\" + tree.userSid() + "\\" : "Machine\\";
        const auto key = tree.find(root + target.key);
        ASSERT_NE(key, nullptr) << target.key;
        EXPECT_TRUE(!key->values().empty() || !key->children().empty()) << target.key;
    }
}

TEST_F(SampleMachine, HoldsEverythingThatItsTablesName) {
    open();
    for (const SampleFile& file : sampleFiles()) EXPECT_TRUE(there(file.path)) << file.path;
    for (const SampleLink& link : sampleLinks()) EXPECT_TRUE(there(link.path)) << link.path;
    for (const SampleUnit& unit : sampleUnits()) EXPECT_TRUE(there(std::string(unit.folder) + "/" + unit.name));
    for (const SampleValue& value : sampleValues()) EXPECT_TRUE(hasValue(value)) << value.key;
}

TEST_F(SampleMachine, CountsItsTimesBackFromNow) {
    const std::time_t now = std::time(nullptr);
    for (const SampleFile& file : sampleFiles()) {
        struct stat info {};
        ASSERT_EQ(::lstat((here / ("machine/" + filled(file.path))).c_str(), &info), 0) << file.path;
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
    for (const SampleUnit& unit : sampleUnits()) bytes += unit.bytes;
    EXPECT_EQ(bin.items, sampleUnits().size());
    EXPECT_EQ(bin.bytes, bytes);
}

TEST_F(SampleMachine, IsRefusedWhereSomethingIsAlready) {
    EXPECT_FALSE(createSampleMachine(here / "machine", error));
    EXPECT_NE(error, "");
    EXPECT_TRUE(there("drive_c/Windows/win.ini"));
}

class CleanedSample : public SampleMachine, public ::testing::WithParamInterface<int> {};

TEST_P(CleanedSample, WhatMustGoGoesAndWhatMustStayStays) {
    clean(GetParam());
    const bool recycled = GetParam() == 1;
    for (const SampleFile& file : sampleFiles()) {
        const bool hidden = (file.attributes & platform::attribute::Hidden) != 0;
        const bool readOnly = (file.attributes & platform::attribute::ReadOnly) != 0;
        // A bin takes what lies in a folder whole, read-only or not: only the plain ways leave such files.
        if (file.fate == Fate::Stays && (readOnly || hidden) && (recycled || !keepsAttributes())) continue;
        EXPECT_EQ(there(file.path), file.fate == Fate::Stays) << file.path;
    }
    for (const SampleLink& link : sampleLinks()) {
        if (recycled) continue;
        EXPECT_EQ(there(link.path), link.fate == Fate::Stays) << link.path;
    }
    for (const SampleUnit& unit : sampleUnits()) {
        // Recycling takes the tick off the task that would empty the bin.
        EXPECT_EQ(there(std::string(unit.folder) + "/" + unit.name), recycled) << unit.name;
    }
    for (const SampleValue& value : sampleValues()) EXPECT_EQ(hasValue(value), value.fate == Fate::Stays) << value.key;
    EXPECT_EQ(here.content("machine/outside/keep.txt").size(), 2048U);
    EXPECT_EQ(here.content("machine/outside/keep.txt").compare(0, 8, "A sample"), 0) << "never overwritten by a link";
}

INSTANTIATE_TEST_SUITE_P(EveryMethod, CleanedSample, ::testing::Values(0, 1, 2));

}  // namespace
}  // namespace tidvane::console
