#include "settings/modOS.h"

#include <gtest/gtest.h>

#include <set>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

const std::set<std::string> kSearchAndPrefetch{"chkSearchWizard", "chkPrefetchFolder"};
const std::set<std::string> kVolumeBlock{
    "frmVolume",          "lblVolumeInfo",           "chkVolumeCheck", "lblVolumeHD",    "txtVolumeCheckHD",
    "lblVolumeParameter", "txtVolumeCheckParameter", "cmdVolumeCheck", "lblVolumeAlert", "lblVolumeAlertInfo"};
const std::set<std::string> kRegistryBlock{"frmRegistry",          "lblReg",           "lblRegInfoPath",
                                           "txtAddInRegCleanPath", "chkAddInRegClean", "cmdAddInRegCleanBrowse",
                                           "lblRegAdvice",         "lblReg2"};

std::set<std::string> operator+(std::set<std::string> a, const std::set<std::string>& b) {
    a.insert(b.begin(), b.end());
    return a;
}

struct VersionCase {
    int platformId, major, minor;
    int code;
    const char* text;
    std::set<std::string> switchedOff;
    bool inDepthOff;
};

struct VersionTest : testing::TestWithParam<VersionCase> {};

TEST_P(VersionTest, NamesTheVersionAndSwitchesOffWhatItLacks) {
    const VersionCase& row = GetParam();
    OptionsFixture machine;
    // Loaded under a version that has everything, with all boxes on.
    machine.system().version = {2, 6, 1, 0, ""};
    frmOptions& options = machine.options();
    auto& inDepth = machine.program.get<frmIEInDepthClean>();
    for (forms::CheckBox* box : {&options.chkSearchWizard, &options.chkPrefetchFolder, &options.chkUserTemp,
                                 &options.chkVolumeCheck, &options.chkAddInRegClean, &options.chkTempFolder}) {
        box->Value = 1;
    }
    inDepth.chkIEINDepthClean.Value.design(1);
    inDepth.chkIEINDepthCleanAll.Value.design(1);
    std::set<std::string> enabledBefore;
    for (const forms::Control* control : options.Controls()) {
        if (control->Enabled) enabledBefore.insert(control->Name);
    }

    machine.system().version = {row.platformId, row.major, row.minor, 0, ""};
    EXPECT_EQ(DetectWindows(machine.program), row.text);
    EXPECT_EQ(windowsCode(machine.program), row.code);

    std::set<std::string> switchedOff;
    for (const forms::Control* control : options.Controls()) {
        if (!control->Enabled && enabledBefore.contains(control->Name)) switchedOff.insert(control->Name);
    }
    EXPECT_EQ(switchedOff, row.switchedOff);
    EXPECT_EQ(options.chkSearchWizard.ticked(), !row.switchedOff.contains("chkSearchWizard"));
    EXPECT_EQ(options.chkPrefetchFolder.ticked(), !row.switchedOff.contains("chkPrefetchFolder"));
    EXPECT_EQ(options.chkUserTemp.ticked(), !row.switchedOff.contains("chkUserTemp"));
    EXPECT_EQ(options.chkVolumeCheck.ticked(), !row.switchedOff.contains("chkVolumeCheck"));
    EXPECT_EQ(options.chkAddInRegClean.ticked(), !row.switchedOff.contains("chkAddInRegClean"));
    EXPECT_TRUE(options.chkTempFolder.ticked());
    for (const forms::CheckBox* box : {&inDepth.chkIEINDepthClean, &inDepth.chkIEINDepthCleanAll}) {
        EXPECT_EQ(box->ticked(), !row.inDepthOff) << box->Name;
        EXPECT_TRUE(!row.inDepthOff || !box->Enabled) << box->Name;
    }
}

const std::set<std::string> k9x = kSearchAndPrefetch + kVolumeBlock + std::set<std::string>{"chkUserTemp"};

INSTANTIATE_TEST_SUITE_P(
    All, VersionTest,
    testing::Values(
        VersionCase{1, 4, 0, 1, "Windows 95", k9x, true}, VersionCase{1, 4, 10, 2, "Windows 98", k9x, true},
        VersionCase{1, 4, 90, 3, "Windows ME", k9x, true},
        VersionCase{2, 3, 51, 4, "Windows NT 3.51", kSearchAndPrefetch, true},
        VersionCase{2, 4, 0, 5, "Windows NT 4.0", kSearchAndPrefetch, true},
        VersionCase{2, 5, 0, 6, "Windows 2000", kSearchAndPrefetch, true},
        VersionCase{2, 5, 1, 7, "Windows XP", {}, true}, VersionCase{2, 5, 2, 8, "Windows 2003", {}, true},
        VersionCase{2, 5, 3, 8, "Windows 2003", {}, true}, VersionCase{2, 6, 0, 9, "Windows Vista", {}, false},
        VersionCase{2, 6, 1, 10, "Windows 7", {}, false}, VersionCase{2, 6, 2, 11, "Windows 8", kRegistryBlock, false},
        VersionCase{2, 6, 3, 0, "not detected", {}, false}, VersionCase{2, 10, 0, 0, "not detected", {}, false},
        VersionCase{1, 4, 5, 0, "not detected", {}, false}, VersionCase{0, 3, 1, 0, "not detected", {}, false}));

TEST(DetectWindows, PutsTheServicePackBehindTheName) {
    OptionsFixture machine;
    machine.system().version = {2, 5, 1, 2600, "Service Pack 3"};
    EXPECT_EQ(DetectWindows(machine.program), "Windows XP Service Pack 3");
}

TEST(IsWindowsNT, TellsTheFamily) {
    OptionsFixture machine;
    EXPECT_TRUE(IsWindowsNT(machine.program));
    machine.system().version.platformId = 1;
    EXPECT_FALSE(IsWindowsNT(machine.program));
}

TEST(IsUserAdmin, LooksForTheUserInTheGermanGroup) {
    OptionsFixture machine;
    machine.environment().set("USERNAME", "Anna");
    machine.system().groups["Administratoren"] = {"Administrator", "Anna"};
    EXPECT_TRUE(IsUserAdmin(machine.program));
    machine.environment().set("USERNAME", "Otto");
    EXPECT_FALSE(IsUserAdmin(machine.program));
}

TEST(IsUserAdmin, IsFalseWhereTheGroupHasAnotherName) {
    OptionsFixture machine;
    machine.environment().set("USERNAME", "Anna");
    machine.system().groups["Administrators"] = {"Anna"};
    EXPECT_FALSE(IsUserAdmin(machine.program));
}

TEST(IsUserAdmin, IsFalseWithoutAUserName) {
    OptionsFixture machine;
    machine.environment().remove("USERNAME");
    machine.system().groups["Administratoren"] = {"Anna"};
    EXPECT_FALSE(IsUserAdmin(machine.program));
}

TEST(GetBenutzer, CutsAtTheFirstNul) {
    OptionsFixture machine;
    machine.system().userName = std::string("Anna\0rest", 9);
    EXPECT_EQ(GetBenutzer(machine.program), "Anna");
}

}  // namespace
}  // namespace tidvane::settings
