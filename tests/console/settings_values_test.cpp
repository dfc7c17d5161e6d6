// What the command "settings" shows of values that no file could hold whole.
#include <gtest/gtest.h>

#include "console/memory_session.h"

namespace tidvane::tests {
namespace {

TEST(SettingsValues, EndAtTheFirstNul) {
    MemorySession machine;
    // Without its profiles.ini the boxes of this browser hold NULs.
    machine.memory.files.putFolder("C:\\Users\\Anna\\AppData\\Roaming\\Mozilla\\Firefox");
    EXPECT_EQ(console::settingsCommand(machine.session, {}), console::exit_status::Done);
    EXPECT_TRUE(contains(machine.log(),
                         "frmMozillaDir.txtMozillaFileDir=C:\\Users\\Anna\\AppData\\Roaming\\Mozilla\\FireFox\\\n"));
    EXPECT_FALSE(contains(machine.log(), std::string(1, '\0')));
}

}  // namespace
}  // namespace tidvane::tests
