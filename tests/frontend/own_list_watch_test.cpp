// Entries that are added to the own lists while the windows watch.
#include "frontend/own_list_watch.h"

#include <algorithm>

#include "support/app_fixture.h"

namespace tidvane::frontend {
namespace {

class OwnListWatch : public tests::AppFixture {
protected:
    OwnListWatch() {
        machine.files.putFile(inFolder("td_folders.dat"), "relative\r\n");
        machine.files.putFile(inFolder("td_ftypes.dat"), "..\r\n");
        machine.files.putFile(inFolder("td_ban.dat"), "X:\\Banned\r\n");
        watchOwnLists(program);
    }
    settings::frmOptions& options() { return program.get<settings::frmOptions>(); }
    void add(forms::TextBox& entry, controls::isButton& button, const std::string& text) {
        display.warnings.clear();
        machine.warnings.clear();
        entry.setText(text);
        button.press();
    }
};

TEST_F(OwnListWatch, WhatTheFilesHeldIsNotWarnedOf) {
    ASSERT_EQ(options().lstFolders.ListCount(), 1);
    const bool any = std::any_of(display.warnings.begin(), display.warnings.end(), [](const std::string& line) {
        return line.find("does nothing with it") != std::string::npos || line.find("no file") != std::string::npos;
    });
    EXPECT_FALSE(any);
}

TEST_F(OwnListWatch, WarnsOfAnEntryThatARunPassesOver) {
    options().chkActivateOwnFolder.Value = 1;
    options().chkActivateOwnFiles.Value = 1;
    options().chkSearchTasks.Value = 1;
    add(options().txtAddFolderPath, options().cmdAddFolderPath, "Data");
    EXPECT_EQ(display.warnings.size(), 1U);
    add(options().txtAddFolderPath, options().cmdAddFolderPath, "C:\\Data");
    EXPECT_TRUE(display.warnings.empty());
    add(options().txtAddFilePath, options().cmdAddFilePath, "HKCU\\Software\\X");
    EXPECT_EQ(display.warnings.size(), 1U);
    add(options().txtSearchMask, options().cmdAddSearchMask, "a\\b*");
    EXPECT_EQ(display.warnings.size(), 1U);
    add(options().txtSearchMask, options().cmdAddSearchMask, "*.tmp");
    EXPECT_TRUE(display.warnings.empty());
    EXPECT_EQ(options().lstFolders.ListCount(), 3);
    options().lstFolders.setSelected(0, true);
    options().cmdDeleteSelected.press();
    add(options().txtAddFolderPath, options().cmdAddFolderPath, "More");
    EXPECT_EQ(display.warnings.size(), 1U) << "behind a removal too";
}

TEST_F(OwnListWatch, WarnsOfAFolderThatNoRunMayEmptyAlsoWhenItIsDropped) {
    machine.files.putFolder("D:\\Windows\\System32");
    options().chkActivateOwnFolder.Value = 1;
    options().dropOnFolders({"D:\\Windows\\System32"});
    ASSERT_EQ(options().lstFolders.ListCount(), 2) << "no ban stands against it";
    EXPECT_EQ(machine.warnings.size(), 1U);
}

TEST_F(OwnListWatch, HoldsForAWindowThatIsLoadedAnew) {
    program.windows.unload(options());
    options().chkActivateOwnFolder.Value = 1;
    add(options().txtAddFolderPath, options().cmdAddFolderPath, "Data");
    EXPECT_EQ(display.warnings.size(), 1U);
}

}  // namespace
}  // namespace tidvane::frontend
