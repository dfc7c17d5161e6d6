// The search wizard on a real tree of the host, with names and entries that no Windows has.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/all_windows.h"
#include "platform/machine/machine_platform.h"
#include "settings/frmOptions.h"
#include "support/host_directory.h"
#include "support/scripted_display.h"
#include "tools/frmManualSearch.h"

namespace tidvane::tools {
namespace {

namespace machine = platform::machine;

class ManualSearchOnAMachine : public testing::Test {
protected:
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
        app::offerWindowsWithoutMain(*program);
        program->LangText.set(732, "Delete");
        program->LangText.set(733, "Recycle");
        program->LangText.set(734, "Overwrite");
        program->get<settings::frmOptions>().txtPurgeSpeed.setText("0");
    }

    static constexpr const char* kTop = "m/drive_c/D";

    std::string search(const std::string& mask, const std::string& folder = "C:\\D") {
        auto& wizard = program->get<frmManualSearch>();
        wizard.txtSearchMask.setText(mask);
        wizard.tmrManualSearch.fire();
        wizard.cmdNext.press();
        wizard.txtFolderScanPath.setText(folder);
        wizard.cmdSearch.press();
        return wizard.txtLog.Text();
    }

    tests::HostDirectory host;
    tests::ScriptedDisplay display;
    std::vector<std::string> warnings;
    std::unique_ptr<machine::MachinePlatform> made;
    std::unique_ptr<settings::Program> program;
};

TEST_F(ManualSearchOnAMachine, DeletesMatchesInAnyCaseAtAllDepths) {
    const std::string top = kTop;
    for (const char* name : {"/a.tmp", "/B.TMP", "/Sub/c.Tmp", "/sub/d.tmp", "/keep.txt", "/Sub/tmp"})
        host.file(top + name);
    search("*.tmp");
    for (const char* name : {"/a.tmp", "/B.TMP", "/Sub/c.Tmp"}) EXPECT_FALSE(host.has(top + name)) << name;
    EXPECT_TRUE(host.has(top + "/keep.txt"));
    EXPECT_TRUE(host.has(top + "/Sub/tmp"));
}

TEST_F(ManualSearchOnAMachine, TakesNamesThatAreNotUtf8) {
    const std::string top = kTop;
    host.file(top + "/caf\xE9\xFF.tmp");
    host.file(top + "/f\xF6ld\x80r/inner\xC3.tmp");
    host.file(top + "/caf\xE9.txt");
    search("*.tmp");
    EXPECT_FALSE(host.has(top + "/caf\xE9\xFF.tmp"));
    EXPECT_FALSE(host.has(top + "/f\xF6ld\x80r/inner\xC3.tmp"));
    EXPECT_TRUE(host.has(top + "/caf\xE9.txt"));
}

TEST_F(ManualSearchOnAMachine, FollowsNoLinkOutOfTheTreeAndLeavesNoFifoHanging) {
    const std::string top = kTop;
    host.file("outside/precious.tmp");
    host.file("m/drive_c/elsewhere/wanted.tmp");
    host.folder(top);
    host.link(host / "outside", top + "/folderLink");
    host.link("../elsewhere", top + "/inside");
    host.link("/", top + "/root");
    host.link(".", top + "/self");
    host.link(host / "outside/precious.tmp", top + "/fileLink.tmp");
    ASSERT_EQ(::mkfifo((host / (top + "/fifo.tmp")).c_str(), 0666), 0);
    for (int method = 0; method < 3; ++method) {
        program->get<settings::frmOptions>().cboKillMethod.setListIndex(method);
        search("*.tmp");
        auto& wizard = program->get<frmManualSearch>();
        wizard.cmdBack.press();
        wizard.cmdBack.press();
    }
    EXPECT_EQ(host.content("outside/precious.tmp"), "x");
    EXPECT_EQ(host.content("m/drive_c/elsewhere/wanted.tmp"), "x");
    EXPECT_TRUE(host.has(top + "/self"));
}

// Such names cannot be told in a path: one with a backslash would mean another file.
TEST_F(ManualSearchOnAMachine, LeavesNamesThatNoPathCanTell) {
    const std::string top = kTop;
    host.file(top + "/sub\\b.tmp");
    host.file(top + "/sub/b.tmp");
    host.file(top + "/what*.tmp");
    host.file(top + "/what1.txt");
    search("*.tmp");
    EXPECT_TRUE(host.has(top + "/sub\\b.tmp"));
    EXPECT_FALSE(host.has(top + "/sub/b.tmp"));
    EXPECT_TRUE(host.has(top + "/what1.txt"));
}

TEST_F(ManualSearchOnAMachine, DoesNotLeaveTheMachineByTheFolderThatWasTyped) {
    host.file("outside.tmp");
    host.file("m/outside.tmp");
    host.file(std::string(kTop) + "/a.tmp");
    for (const char* folder : {"C:\\..\\..", "C:\\D\\..\\..\\..", "..\\..", "/", "Z:\\", "\\\\?\\C:\\.."}) {
        search("*.tmp", folder);
        auto& wizard = program->get<frmManualSearch>();
        wizard.cmdBack.press();
        wizard.cmdBack.press();
    }
    EXPECT_TRUE(host.has("outside.tmp"));
    EXPECT_TRUE(host.has("m/outside.tmp"));
}

TEST_F(ManualSearchOnAMachine, RecyclesWhereTheUserCanFindIt) {
    const std::string top = kTop;
    host.file(top + "/a.tmp", "content");
    program->get<settings::frmOptions>().cboKillMethod.setListIndex(1);
    search("*.tmp", "C:\\");
    EXPECT_FALSE(host.has(top + "/a.tmp"));
    platform::RecycleBinInfo bin;
    EXPECT_EQ(made->platform().shell.SHQueryRecycleBinA("C:\\", bin), 0);
    EXPECT_EQ(bin.items, 1u);
    EXPECT_EQ(bin.bytes, 7u);
    EXPECT_EQ(program->removedForGood, 0u);
}

TEST_F(ManualSearchOnAMachine, GoesDownADeepTree) {
    std::string below = kTop;
    for (int i = 0; i < 300; ++i) below += "/dddddddd";
    host.file(below + "/a.tmp");
    host.file(below + "/b.txt");
    search("*.tmp");
    EXPECT_FALSE(host.has(below + "/a.tmp"));
    EXPECT_TRUE(host.has(below + "/b.txt"));
}

}  // namespace
}  // namespace tidvane::tools
