// What no one may do, on every platform.
#include "contract/contract_platform.h"

namespace tidvane::contract {
namespace {

using namespace std::string_literals;
using platform::FolderEntry;
using platform::OverwriteHandle;
using platform::ShFileOp;
using platform::Status;
using platform::WarningKind;

int recycle(platform::Shell& shell, const std::string& path) {
    ShFileOp operation;
    operation.wFunc = platform::kFoDelete;
    operation.pFrom = path + std::string(2, '\0');
    operation.fFlags = platform::kFofAllowUndo | platform::kFofNoConfirmation | platform::kFofSilent;
    return shell.SHFileOperationA(operation);
}

// Protected places of this machine, in the spellings that could get around a comparison of texts.
std::vector<std::string> protectedSpellings(platform::Platform& services) {
    const std::string windows = services.system.WindowsFolder();
    const std::string profile = services.shell.SpecialFolder(platform::csidl::Profile);
    const std::string users = profile.substr(0, profile.rfind('\\'));
    return {
        "C:\\",
        "c:\\",
        "C:/",
        "C:\\\\",
        "C:\\.",
        "C:\\..",
        "C:\\Scratch\\..",
        windows,
        base::upperCase(windows),
        base::lowerCase(windows),
        base::replaceAll(windows, "\\", "/"),
        base::replaceAll(windows, "\\", "\\\\"),
        windows + ".",
        windows + " ",
        windows + ". . ",
        windows + "\\Temp\\..",
        windows + "\\.",
        services.system.SystemFolder(),
        services.system.SystemFolder() + "\\drivers",
        windows + "\\WinSxS",
        "C:\\Program Files",
        "C:\\PROGRA~1",
        "C:\\progra~2",
        "C:\\PR4F1C~1",
        "C:\\Program Files (x86)",
        "C:\\ProgramData",
        services.system.ApplicationPath(),
        users,
        profile,
        profile + "\\Documents\\..",
        users + "\\somebody else",
        "C:\\Documents and Settings\\somebody",
        "D:\\",
        "D:\\Windows",
        "\\\\server\\share",
        "\\\\server\\share\\",
    };
}

TEST_P(GuardContract, ProtectedPlacesKeepTheirNames) {
    const std::string profile = services.shell.SpecialFolder(platform::csidl::Profile);
    for (const std::string& place :
         {services.system.WindowsFolder(), profile, profile.substr(0, profile.rfind('\\'))}) {
        ASSERT_TRUE(files.FolderExists(place)) << place;
        EXPECT_EQ(files.RenameEntry(place, "C:\\Scratch\\renamed"), Status::Denied) << place;
        EXPECT_TRUE(files.FolderExists(place)) << place;
    }
    EXPECT_TRUE(warnedOf(WarningKind::ProtectedPlace));
}

TEST_P(GuardContract, ProtectedPlacesAreNotListedForEmptying) {
    for (const std::string& place : protectedSpellings(services)) {
        std::vector<FolderEntry> entries{{"left over", platform::EntryKind::File}};
        EXPECT_EQ(files.ReadFolderToEmpty(place, entries), Status::Denied) << place;
        EXPECT_TRUE(entries.empty()) << place;
    }
    EXPECT_TRUE(warnedOf(WarningKind::ProtectedPlace));
}

TEST_P(GuardContract, ProtectedPlacesAreNotRemoved) {
    machine->putFile("C:\\Windows\\keep.txt", "1");
    for (const std::string& place : protectedSpellings(services)) {
        EXPECT_EQ(files.DeleteFolder(place, true), Status::Denied) << place;
        EXPECT_EQ(files.RemoveFolder(place), Status::Denied) << place;
        EXPECT_EQ(recycle(services.shell, place), 5) << place;
    }
    EXPECT_TRUE(machine->has("C:\\Windows\\keep.txt"));
    EXPECT_TRUE(machine->has("C:\\Program Files"));
    EXPECT_EQ(machine->warnings().size(), 3 * protectedSpellings(services).size());
}

TEST_P(GuardContract, AFileWhereEveryFolderIsAProtectedPlaceGoesToTheBin) {
    machine->putFile("C:\\Users\\desktop.ini", "1");
    machine->putFile("C:\\Users\\Somebody\\keep.txt", "1");
    EXPECT_NE(recycle(services.shell, "C:\\Users\\desktop.ini\\"), 0);
    EXPECT_TRUE(machine->has("C:\\Users\\desktop.ini"));
    EXPECT_EQ(recycle(services.shell, "C:\\Users\\desktop.ini"), 0);
    EXPECT_FALSE(machine->has("C:\\Users\\desktop.ini"));
    EXPECT_EQ(recycle(services.shell, "C:\\Users\\Somebody"), 5);
    EXPECT_TRUE(machine->has("C:\\Users\\Somebody\\keep.txt"));
}

TEST_P(GuardContract, MasksThatMatchAProtectedPlaceRemoveNothing) {
    machine->putFile("C:\\Scratch\\keep.txt", "1");
    for (const char* mask : {"C:\\*", "C:\\*.*", "C:\\Win*", "C:\\?indows", "C:\\Users\\*", "C:\\Windows\\S*"}) {
        EXPECT_EQ(files.DeleteFolder(mask, true), Status::Denied) << mask;
    }
    EXPECT_TRUE(machine->has("C:\\Scratch\\keep.txt"));
    EXPECT_TRUE(machine->has("C:\\Windows"));
    EXPECT_EQ(files.DeleteFolder("C:\\Scra*", true), Status::Ok);
    EXPECT_FALSE(machine->has("C:\\Scratch"));
}

// As a folder to remove or for the bin such a mask means all that the place holds; the plain delete takes files alone,
// and no hidden ones.
TEST_P(GuardContract, MasksThatLeaveNoNameOutAreThePlaceThatTheyStandIn) {
    const std::string windows = services.system.WindowsFolder();
    const std::string profile = services.shell.SpecialFolder(platform::csidl::Profile);
    machine->putFile(windows + "\\keep.txt", "1");
    machine->putFile(windows + "\\Quite Other\\keep.txt", "1");
    machine->putFile(profile + "\\Quite Other\\keep.txt", "1");
    for (const std::string& place :
         {std::string("C:"), windows, profile, profile + "\\AppData", profile + "\\AppData\\Local",
          std::string("C:\\Program Files"), windows + "\\System32", std::string("\\\\server\\share")}) {
        for (const char* mask :
             {"\\*", "\\*.*", "\\?*", "\\*?", "\\**", "\\*.", "\\* ", "\\*.?", "\\?*.*", "/*", "\\.\\*"}) {
            const std::string path = place + mask;
            std::vector<FolderEntry> entries;
            EXPECT_EQ(files.ReadFolderToEmpty(path, entries), Status::Denied) << path;
            EXPECT_EQ(files.ReadFolderToEmpty(path + "\\", entries), Status::Denied) << path;
            EXPECT_FALSE(files.mayEmpty(path)) << path;
            EXPECT_EQ(files.DeleteFolder(path, true), Status::Denied) << path;
            // A list of files may mean the names without an extension, a folder has none.
            if (mask != std::string_view("\\*.")) {
                EXPECT_EQ(recycle(services.shell, path), 5) << path;
            }
        }
    }
    EXPECT_TRUE(machine->has(windows + "\\keep.txt"));
    EXPECT_TRUE(machine->has(windows + "\\Quite Other\\keep.txt"));
    EXPECT_TRUE(machine->has(profile + "\\Quite Other\\keep.txt"));
    machine->putFile(windows + "\\Temp\\sub\\a.txt", "1");
    EXPECT_TRUE(files.mayEmpty(windows + "\\Temp\\*"));
    EXPECT_EQ(files.DeleteFolder(windows + "\\Temp\\*", true), Status::Ok);
    EXPECT_FALSE(machine->has(windows + "\\Temp\\sub"));
    machine->putFile(windows + "\\Temp\\a.txt", "1");
    EXPECT_EQ(recycle(services.shell, windows + "\\Temp\\*"), 0);
    EXPECT_FALSE(machine->has(windows + "\\Temp\\a.txt"));
    machine->putFile(windows + "\\a.tmp", "1");
    machine->putFile(windows + "\\b.tmp", "1");
    EXPECT_EQ(files.KillFiles(windows + "\\a*.tmp"), Status::Ok);
    EXPECT_EQ(recycle(services.shell, windows + "\\b*.tmp"), 0);
    EXPECT_FALSE(machine->has(windows + "\\a.tmp"));
    EXPECT_FALSE(machine->has(windows + "\\b.tmp"));
}

TEST_P(GuardContract, ApplicationDataOfEveryProfileIsProtectedAndWhatLiesInItIsNot) {
    const std::string profile = services.shell.SpecialFolder(platform::csidl::Profile);
    const std::string local = profile + "\\AppData\\Local";
    machine->putFile(local + "\\Vendor\\Cache\\a.tmp", "1");
    machine->putFile(profile + "\\AppData\\LocalLow\\keep.txt", "1");
    for (const std::string& place :
         {services.shell.SpecialFolder(platform::csidl::AppData),
          services.shell.SpecialFolder(platform::csidl::LocalAppData), profile + "\\AppData", local,
          profile + "\\AppData\\LocalLow", std::string("D:\\Users\\Bert\\AppData\\Roaming"),
          std::string("C:\\Documents and Settings\\Bert\\Application Data"),
          std::string("C:\\DOCUME~1\\BERT\\LOCALS~1"), std::string("C:\\DOCUME~1\\BERT\\LOCALS~1\\APPLIC~1"),
          std::string("C:\\Documents and Settings\\Bert\\Anwendungsdaten"),
          std::string("C:\\Documents and Settings\\Bert\\Lokale Einstellungen"),
          std::string("C:\\Documents and Settings\\Bert\\Lokale Einstellungen\\Anwendungsdaten"),
          std::string("C:\\Dokumente und Einstellungen\\Bert\\Anwendungsdaten"),
          std::string("C:\\Dokumente und Einstellungen\\Bert\\Lokale Einstellungen")}) {
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.ReadFolderToEmpty(place, entries), Status::Denied) << place;
        EXPECT_EQ(files.DeleteFolder(place, true), Status::Denied) << place;
        EXPECT_EQ(recycle(services.shell, place), 5) << place;
    }
    EXPECT_TRUE(machine->has(profile + "\\AppData\\LocalLow\\keep.txt"));
    std::vector<FolderEntry> entries;
    EXPECT_EQ(files.ReadFolderToEmpty(local + "\\Vendor", entries), Status::Ok);
    EXPECT_EQ(files.DeleteFolder(local + "\\Vendor\\C*", true), Status::Ok);
    EXPECT_FALSE(machine->has(local + "\\Vendor\\Cache"));
}

TEST_P(GuardContract, APathThatHoldsANulIsNotCutForTheBin) {
    machine->putFile("C:\\Scratch\\a", "1");
    machine->putFile("C:\\Scratch\\b", "1");
    ShFileOp operation;
    operation.wFunc = platform::kFoDelete;
    operation.fFlags = platform::kFofAllowUndo | platform::kFofNoConfirmation | platform::kFofSilent;
    for (const std::string& from : {"C:\\Scratch\\a\0b\0\0"s, "C:\\Scratch\\a\0C:\\Scratch\\b\0\0"s,
                                    "C:\\Scratch\\a\0\0\0"s, "C:\\Scratch\\a\0"s, "C:\\Scratch\\a"s}) {
        operation.pFrom = from;
        EXPECT_EQ(services.shell.SHFileOperationA(operation), 123);
    }
    EXPECT_EQ(listing("C:\\Scratch"), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(warnedOf(WarningKind::NotAbsolute));
}

TEST_P(GuardContract, WhatLiesInAProtectedPlaceCanBeCleaned) {
    const std::string windows = services.system.WindowsFolder();
    const std::string profile = services.shell.SpecialFolder(platform::csidl::Profile);
    for (const std::string& folder : {windows + "\\Temp", windows + "\\Prefetch", profile + "\\AppData\\Local\\Temp",
                                      std::string("C:\\Program Files\\Opera\\cache"), windows + "\\Temporary"}) {
        machine->putFile(folder + "\\a.tmp", "1");
        machine->putFile(folder + "\\sub\\b.tmp", "1");
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.ReadFolderToEmpty(folder, entries), Status::Ok) << folder;
        EXPECT_EQ(files.ReadFolderToEmpty(folder + "\\", entries), Status::Ok) << folder;
        EXPECT_EQ(files.RemoveFile(folder + "\\a.tmp"), Status::Ok) << folder;
        EXPECT_EQ(files.DeleteFolder(folder + "\\sub", true), Status::Ok) << folder;
        EXPECT_EQ(files.DeleteFolder(folder, true), Status::Ok) << folder;
    }
    EXPECT_TRUE(machine->warnings().empty());
}

TEST_P(GuardContract, FilesInAProtectedPlaceCanBeRemoved) {
    machine->putFile("C:\\Windows\\a.tmp", "1");
    machine->putFile("C:\\Windows\\b.tmp", "1");
    machine->putFile("C:\\Windows\\c.tmp", "1");
    EXPECT_EQ(files.RemoveFile("C:\\Windows\\a.tmp"), Status::Ok);
    EXPECT_EQ(files.KillFiles("C:\\Windows\\b*.tmp"), Status::Ok);
    EXPECT_EQ(recycle(services.shell, "C:\\Windows\\c.tmp"), 0);
    EXPECT_TRUE(machine->warnings().empty());
}

TEST_P(GuardContract, PathsThatAreNotAbsoluteChangeNothing) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    for (const std::string path :
         {"", "a.txt", "Scratch\\a.txt", "\\Scratch\\a.txt", "C:a.txt", "C:", ".\\a.txt", "..", "\\", "*", "\\*.txt",
          "\\\\server", "\\\\?\\C:\\Scratch\\a.txt", "\\\\.\\C:\\Scratch"}) {
        std::unique_ptr<OverwriteHandle> handle;
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.RemoveFile(path), Status::PathNotFound) << path;
        EXPECT_EQ(files.KillFiles(path), Status::PathNotFound) << path;
        EXPECT_EQ(files.RemoveFolder(path), Status::PathNotFound) << path;
        EXPECT_EQ(files.DeleteFolder(path, true), Status::PathNotFound) << path;
        EXPECT_EQ(files.OpenForOverwrite(path, handle), Status::PathNotFound) << path;
        EXPECT_EQ(files.SetAttributes(path, 0), Status::PathNotFound) << path;
        EXPECT_EQ(files.RenameEntry(path, "C:\\Scratch\\b.txt"), Status::PathNotFound) << path;
        EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", path), Status::PathNotFound) << path;
        EXPECT_EQ(files.WriteFileBytes(path, "2"), Status::PathNotFound) << path;
        EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", path), Status::PathNotFound) << path;
        EXPECT_EQ(files.ReadFolderToEmpty(path, entries), Status::PathNotFound) << path;
        EXPECT_EQ(recycle(services.shell, path), 123) << path;
    }
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "1");
    EXPECT_TRUE(warnedOf(WarningKind::NotAbsolute));
}

TEST_P(GuardContract, AnEmptyLastPartChangesNothing) {
    machine->putFile("C:\\Scratch\\sub\\a.txt", "1");
    for (const std::string path : {"C:\\Scratch\\sub\\", "C:\\Scratch\\sub/", "C:\\Scratch\\sub\\\\",
                                   "C:\\Scratch\\sub\\ ", "C:\\Scratch\\sub\\...", "C:\\Scratch\\sub\\.. "}) {
        std::unique_ptr<OverwriteHandle> handle;
        EXPECT_EQ(files.RemoveFile(path), Status::InvalidName) << path;
        EXPECT_EQ(files.KillFiles(path), Status::InvalidName) << path;
        EXPECT_EQ(files.RemoveFolder(path), Status::InvalidName) << path;
        EXPECT_EQ(files.DeleteFolder(path, true), Status::InvalidName) << path;
        EXPECT_EQ(files.OpenForOverwrite(path, handle), Status::InvalidName) << path;
        EXPECT_EQ(files.SetAttributes(path, 0), Status::InvalidName) << path;
        EXPECT_EQ(files.RenameEntry(path, "C:\\Scratch\\b"), Status::InvalidName) << path;
        EXPECT_EQ(files.WriteFileBytes(path, "2"), Status::InvalidName) << path;
        EXPECT_EQ(recycle(services.shell, path), 123) << path;
    }
    EXPECT_TRUE(machine->has("C:\\Scratch\\sub\\a.txt"));
    EXPECT_TRUE(warnedOf(WarningKind::NotAbsolute));
}

TEST_P(GuardContract, AnEmptyDocumentStartsNothing) {
    for (const char* file : {"", "  "}) {
        EXPECT_LE(services.shell.ShellExecuteA("open", file, "", "", 1), 32);
        EXPECT_FALSE(services.shell.ShellExecuteExAndWait("open", file, "", "", 1));
    }
}

TEST_P(GuardContract, HivesAndTheirFirstKeysAreNotEmptied) {
    platform::HKey key = 0;
    bool created = false;
    ASSERT_EQ(services.registry.RegCreateKeyExA(platform::HKEY_CURRENT_USER_, "Software\\Scratch\\Deep",
                                                platform::kKeyAllAccess, key, created),
              0);
    services.registry.RegCloseKey(key);
    EXPECT_EQ(services.registry.SHDeleteKeyA(platform::HKEY_CURRENT_USER_, ""), 5);
    EXPECT_EQ(services.registry.SHDeleteKeyA(platform::HKEY_CURRENT_USER_, "SOFTWARE"), 5);
    EXPECT_EQ(services.registry.SHDeleteKeyA(platform::HKEY_LOCAL_MACHINE_, "System"), 5);
    EXPECT_TRUE(warnedOf(WarningKind::ProtectedKey));
    EXPECT_EQ(services.registry.SHDeleteKeyA(platform::HKEY_CURRENT_USER_, "Software\\Scratch"), 0);
}

}  // namespace
}  // namespace tidvane::contract
