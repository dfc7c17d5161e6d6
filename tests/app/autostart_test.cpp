// The registry value that starts the program with Windows.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct Autostart : AppFixture {
    static constexpr const char* kRun = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    Autostart() { store({"chkLogTimestamp=1"}); }

    platform::RegistryKeyPtr runOfUser() {
        putKey(kRun, 0);
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(kRun, "\\")) key = key->find(part);
        return key;
    }
    platform::RegistryKeyPtr runOfMachine() { return machine.registryTree.make(std::string("Machine\\") + kRun); }
};

TEST_F(Autostart, IsTakenFromBothRootsWhileItIsOff) {
    runOfUser()->setText("Tidvane", "C:\\old.exe");
    runOfMachine()->setText("Tidvane", "C:\\old.exe");
    runOfMachine()->setText("Other", "stays");
    main();
    EXPECT_EQ(runOfUser()->findValue("Tidvane"), nullptr);
    EXPECT_EQ(runOfMachine()->findValue("Tidvane"), nullptr);
    EXPECT_NE(runOfMachine()->findValue("Other"), nullptr);
    EXPECT_FALSE(logHas(text(581) + " " + text(510)));
}

TEST_F(Autostart, IsWrittenUnderTheMachineAndTakenFromTheUser) {
    store({"chkStartWindows=1", "cboAutoStart=0"});
    runOfUser()->setText("Tidvane", "C:\\old.exe");
    runOfMachine();
    options();
    ASSERT_EQ(options().cboAutoStart.Text(), "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(runOfUser()->findValue("Tidvane"), nullptr);
    ASSERT_NE(runOfMachine()->findValue("Tidvane"), nullptr);
    EXPECT_TRUE(logHas(text(581) + " " + text(510)));
    EXPECT_TRUE(logHas(text(582) + ": HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Run <OK>"));
}

TEST_F(Autostart, IsWrittenUnderTheUserAndTakenFromTheMachine) {
    store({"chkStartWindows=1", "cboAutoStart=1"});
    runOfMachine()->setText("Tidvane", "C:\\old.exe");
    main();
    ASSERT_EQ(options().cboAutoStart.Text(), "HKEY_CURRENT_USER");
    EXPECT_EQ(runOfMachine()->findValue("Tidvane"), nullptr);
    platform::HKey key = 0;
    ASSERT_EQ(machine.registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, kRun, 1, key), 0);
    std::uint32_t type = 0;
    std::uint32_t size = 260;
    std::string data;
    ASSERT_EQ(machine.registry.RegQueryValueExA(key, "Tidvane", type, &data, size), 0);
    EXPECT_STREQ(data.c_str(), "C:\\Program Files\\Tidvane\\Tidvane.exe");
    EXPECT_EQ(type, platform::kRegSz);
    EXPECT_TRUE(logHas(text(582) + ": HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run <OK>"));
}

TEST_F(Autostart, LineStandsBetweenThePlugInsAndTheBans) {
    store({"chkStartWindows=1", "cboAutoStart=1"});
    machine.files.putFile(inFolder("td_ban.dat"));
    const std::vector<std::string> lines = logFrom(text(576));
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[1], text(581) + " " + text(510));
    EXPECT_TRUE(lines[2].starts_with(text(582) + ": HKCU"));
    EXPECT_TRUE(lines[3].starts_with("Protecting"));
}

}  // namespace tidvane::tests
