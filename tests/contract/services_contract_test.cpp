// The services that stand on the others, on every platform: that they are there and hang together. Their rules have
// tests of their own.
#include "contract/contract_platform.h"

namespace tidvane::contract {
namespace {

TEST_P(ServicesContract, ProfileFilesLieInTheFileSystem) {
    const std::string file = "C:\\Scratch\\settings.ini";
    ASSERT_TRUE(services.profiles.WritePrivateProfileStringA("window", "Left", "120", file));
    ASSERT_TRUE(services.profiles.WritePrivateProfileStringA("window", "Name",
                                                             "Gr\xC3\xBC\xC3\x9F"
                                                             "e",
                                                             file));
    EXPECT_EQ(machine->bytesOf(file),
              "[window]\r\nLeft=120\r\nName=Gr\xFC\xDF"
              "e\r\n");
    EXPECT_EQ(services.profiles.GetPrivateProfileStringA("WINDOW", "left", "", 255, file), "120");
    EXPECT_EQ(services.profiles.GetPrivateProfileStringA("window", "Name", "", 255, file),
              "Gr\xC3\xBC\xC3\x9F"
              "e");
    EXPECT_EQ(services.profiles.GetPrivateProfileStringA("window", "Top", "7", 255, file), "7");
    EXPECT_FALSE(services.profiles.WritePrivateProfileStringA("window", "Left", "1", "C:\\none\\settings.ini"));
    EXPECT_TRUE(services.profiles.WriteValues("window", {{"Left", "7"}, {"Top", "8"}, {"Left", "9"}}, file));
    EXPECT_EQ(machine->bytesOf(file),
              "[window]\r\nLeft=9\r\nName=Gr\xFC\xDF"
              "e\r\nTop=8\r\n");
    EXPECT_FALSE(services.profiles.WriteValues("window", {{"Left", "1"}}, "C:\\none\\settings.ini"));
}

TEST_P(ServicesContract, RegistryKeepsWhatIsSet) {
    platform::HKey key = 0;
    bool created = false;
    ASSERT_EQ(services.registry.RegCreateKeyExA(platform::HKEY_CURRENT_USER_, "Software\\Scratch",
                                                platform::kKeyAllAccess, key, created),
              0);
    EXPECT_TRUE(created);
    const std::string data("text\0", 5);
    EXPECT_EQ(services.registry.RegSetValueExA(key, "Name", platform::kRegSz, data), 0);
    std::uint32_t type = 0;
    std::uint32_t size = 100;
    std::string read;
    EXPECT_EQ(services.registry.RegQueryValueExA(key, "NAME", type, &read, size), 0);
    EXPECT_EQ(type, platform::kRegSz);
    EXPECT_EQ(read.substr(0, size), data);
    EXPECT_EQ(services.registry.RegDeleteValueA(key, "name"), 0);
    EXPECT_EQ(services.registry.RegDeleteValueA(key, "name"), 2);
    EXPECT_EQ(services.registry.RegCloseKey(key), 0);
    EXPECT_EQ(services.registry.RegDeleteKeyA(platform::HKEY_CURRENT_USER_, "Software\\Scratch"), 0);
    EXPECT_EQ(services.registry.RegDeleteKeyA(platform::HKEY_CURRENT_USER_, "Software\\Scratch"), 2);
}

TEST_P(ServicesContract, ScriptHostWritesIntoTheSameRegistry) {
    ASSERT_TRUE(services.scriptHost.RegWrite("HKEY_CURRENT_USER\\Software\\Scratch\\Name", "text"));
    platform::HKey key = 0;
    ASSERT_EQ(services.registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, "Software\\Scratch",
                                              platform::kKeyQueryValue, key),
              0);
    services.registry.RegCloseKey(key);
    EXPECT_TRUE(services.scriptHost.RegDelete("HKEY_CURRENT_USER\\Software\\Scratch\\Name"));
    EXPECT_FALSE(services.scriptHost.RegDelete("HKEY_CURRENT_USER\\Software\\Scratch\\Name"));
}

TEST_P(ServicesContract, EnvironmentComparesNamesWithoutCase) {
    services.environment.set("Scratch_Variable", "one");
    EXPECT_EQ(services.environment.get("SCRATCH_VARIABLE"), "one");
    std::string expanded;
    EXPECT_EQ(services.environment.ExpandEnvironmentStringsA("%scratch_variable%!", 100, expanded), 5u);
    EXPECT_EQ(expanded, "one!");
    services.environment.remove("scratch_variable");
    EXPECT_EQ(services.environment.get("Scratch_Variable"), std::nullopt);
    EXPECT_TRUE(services.environment.get("windir").has_value() || services.environment.get("SystemRoot").has_value());
}

TEST_P(ServicesContract, TheMachineKnowsItself) {
    EXPECT_TRUE(base::equalNoCase(services.system.WindowsFolder(), "C:\\Windows"));
    EXPECT_TRUE(base::startsWithNoCase(services.system.SystemFolder(), services.system.WindowsFolder() + "\\"));
    EXPECT_TRUE(base::isAbsolutePath(services.system.ApplicationPath()));
    EXPECT_FALSE(services.system.ExecutableName().empty());
    EXPECT_FALSE(services.system.GetUserNameA().empty());
    EXPECT_GT(services.system.GetVersionExA().major, 3);
    EXPECT_GT(services.system.codePage(), 0);
}

TEST_P(ServicesContract, TheProgramsOwnFolderCanBeWritten) {
    const std::string file = services.system.ApplicationPath() + "\\scratch.dat";
    EXPECT_EQ(files.WriteFileBytes(file, "1"), platform::Status::Ok);
    EXPECT_TRUE(files.FileExists(file));
    EXPECT_EQ(files.RemoveFile(file), platform::Status::Ok);
}

TEST_P(ServicesContract, TheInstanceLockIsHeldUntilItIsReleased) {
    EXPECT_TRUE(services.processes.takeInstanceLock());
    services.processes.releaseInstanceLock();
    EXPECT_TRUE(services.processes.takeInstanceLock());
    services.processes.releaseInstanceLock();
}

}  // namespace
}  // namespace tidvane::contract
