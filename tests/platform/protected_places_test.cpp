#include "platform/guard/protected_places.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_platform.h"

namespace tidvane::platform {
namespace {

class ProtectedPlacesTest : public testing::Test {
protected:
    bool isProtected(const std::string& path) {
        WindowsPath parsed;
        EXPECT_EQ(parseWindowsPath(path, parsed), Status::Ok) << path;
        ProtectedPlaces places(machine.system, machine.shell);
        return places.isProtected(parsed);
    }
    MemoryPlatform machine;
};

TEST_F(ProtectedPlacesTest, FollowTheMachinesOwnAnswers) {
    machine.system.windowsFolder = "E:\\Systems\\XP";
    machine.system.systemFolder = "E:\\Systems\\XP\\System32";
    machine.system.applicationPath = "F:\\Tools\\Tidvane";
    machine.shell.specialFolders[csidl::ProgramFiles] = "E:\\Programme";
    machine.shell.specialFolders[csidl::Profile] = "E:\\Dokumente und Einstellungen\\Anna";
    for (const char* path :
         {"E:\\Systems\\XP", "e:\\systems", "E:\\Systems\\XP\\system32\\DRIVERS", "F:\\Tools\\Tidvane", "F:\\Tools",
          "E:\\Programme", "E:\\DOKUME~1", "E:\\Dokumente und Einstellungen\\Bert"}) {
        EXPECT_TRUE(isProtected(path)) << path;
    }
    for (const char* path : {"D:\\Systems", "D:\\Programme", "E:\\Systems\\XP\\Temp", "F:\\Tools\\Tidvane\\cache",
                             "E:\\Dokumente und Einstellungen\\Anna\\Lokale Einstellungen\\Temp"}) {
        EXPECT_FALSE(isProtected(path)) << path;
    }
}

TEST_F(ProtectedPlacesTest, NearMissesAreNotProtected) {
    for (const char* path :
         {"C:\\Windows2", "C:\\Window", "C:\\Windows.old", "C:\\Windows\\Temp", "C:\\Windows\\Prefetch",
          "C:\\Windows\\System33", "C:\\Program", "C:\\Program Files\\Opera", "C:\\ProgramData\\X", "C:\\User",
          "C:\\Users\\Anna\\Desktop", "C:\\Users\\Anna\\AppData\\Local\\Temp", "C:\\Temp", "C:\\PROGRA~1\\X",
          "C:\\Temp\\Windows", "C:\\Scratch~1", "C:\\~1", "C:\\Windows\\Logs\\System32", "D:\\Backup\\Users\\Anna"}) {
        EXPECT_FALSE(isProtected(path)) << path;
    }
}

TEST_F(ProtectedPlacesTest, ShortNamesCountAsThePlaceTheyMayStandFor) {
    for (const char* path : {"C:\\PROGRA~1", "C:\\progra~4", "C:\\PR1A2B~1", "C:\\DOCUME~1", "C:\\DOCUME~1\\ANNA",
                             "C:\\DOCUME~1\\ALLUSE~1", "C:\\Windows\\MICROS~1.NET", "C:\\PROGRA~1\\COMMON~1"}) {
        EXPECT_TRUE(isProtected(path)) << path;
    }
}

TEST_F(ProtectedPlacesTest, AProfileInTheWindowsFolderDoesNotProtectItsNeighbours) {
    machine.shell.specialFolders[csidl::Profile] = "C:\\Windows\\Anna";
    EXPECT_TRUE(isProtected("C:\\Windows\\Anna"));
    EXPECT_FALSE(isProtected("C:\\Windows\\Temp"));
}

TEST_F(ProtectedPlacesTest, AMachineThatAnswersNothingKeepsTheDocumentedPlaces) {
    machine.system.windowsFolder = machine.system.systemFolder = machine.system.applicationPath = "";
    machine.shell.specialFolders.clear();
    for (const char* path :
         {"C:\\", "C:\\Windows", "C:\\WINNT\\System32", "C:\\Program Files (x86)", "C:\\Users\\Anna"}) {
        EXPECT_TRUE(isProtected(path)) << path;
    }
}

// Counts the questions that reach the machine.
class AskedSystem final : public SystemInfo {
public:
    explicit AskedSystem(SystemInfo& system) : system_(system) {}
    int asked = 0;
    WindowsVersion GetVersionExA() override { return system_.GetVersionExA(); }
    std::string GetUserNameA() override { return system_.GetUserNameA(); }
    bool groupMembers(const std::string& group, std::vector<std::string>& names) override {
        return system_.groupMembers(group, names);
    }
    std::string WindowsFolder() override {
        ++asked;
        return system_.WindowsFolder();
    }
    std::string SystemFolder() override { return system_.SystemFolder(); }
    std::string ApplicationPath() override { return system_.ApplicationPath(); }
    std::string ExecutableName() override { return system_.ExecutableName(); }
    std::string CommandArguments() override { return system_.CommandArguments(); }
    int codePage() override { return system_.codePage(); }
    const base::Locale& locale() override { return system_.locale(); }
    std::string themeName() override { return system_.themeName(); }

private:
    SystemInfo& system_;
};

TEST_F(ProtectedPlacesTest, TheMachineIsAskedAtTheFirstTreeAndNeverForAFile) {
    AskedSystem system(machine.system);
    ProtectedPlaces places(system, machine.shell);
    Guard guard(places, machine.files, machine.removed, {});
    EXPECT_EQ(guard.checkSingle("C:\\Scratch\\a.txt"), Status::Ok);
    EXPECT_EQ(system.asked, 0);
    EXPECT_EQ(guard.checkTree("C:\\Scratch", false), Status::Ok);
    const int once = system.asked;
    EXPECT_GT(once, 0);
    EXPECT_EQ(guard.checkTree("C:\\Windows", false), Status::Denied);
    EXPECT_EQ(system.asked, once);
}

TEST_F(ProtectedPlacesTest, TheGuardOfASingleFileAsksTheFileSystemNothing) {
    machine.files.putFile("C:\\Scratch\\a.txt", "1");
    const std::uint64_t before = machine.files.operations;
    EXPECT_EQ(machine.platform().files.RemoveFile("C:\\Scratch\\a.txt"), Status::Ok);
    EXPECT_EQ(machine.files.operations, before + 1);
}

TEST_F(ProtectedPlacesTest, AGuardWithoutASinkStillRefuses) {
    Guard guard(machine.protectedPlaces, machine.files, machine.removed, {});
    EXPECT_EQ(guard.checkTree("C:\\Users", false), Status::Denied);
    EXPECT_EQ(guard.checkSingle("a"), Status::PathNotFound);
    EXPECT_EQ(machine.removed.totals.failed, 1u);
}

TEST_F(ProtectedPlacesTest, ARefusedPlaceThatIsNotThereIsNoFailure) {
    EXPECT_EQ(machine.platform().files.DeleteFolder("Q:\\Windows", true), Status::Denied);
    EXPECT_EQ(machine.removed.totals.failed, 0u);
}

}  // namespace
}  // namespace tidvane::platform
