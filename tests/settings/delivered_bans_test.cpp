// The delivered td_ban.dat at the door of the own lists.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <set>

#include "base/text.h"
#include "options_fixture.h"
#include "settings/bans.h"
#include "settings/built_in_masks.h"

namespace tidvane::settings {
namespace {

// --- what a user should be able to add

constexpr std::array kWantedFolders{
    R"(C:\Temp)",
    R"(C:\Tmp)",
    R"(C:\Windows\Temp)",
    R"(C:\Windows\Prefetch)",
    R"(C:\Windows\Minidump)",
    R"(C:\Windows\Logs)",
    R"(C:\Windows\Logs\CBS)",
    R"(C:\Windows\SoftwareDistribution\Download)",
    R"(C:\Windows\Downloaded Program Files)",
    R"(C:\Windows\Offline Web Pages)",
    R"(C:\Windows\System32\LogFiles)",
    R"(C:\Windows\System32\config\Temp)",
    R"(C:\Windows\ServiceProfiles\LocalService\AppData\Local\Temp)",
    R"(C:\WINNT\Temp)",
    R"(C:\WINDOWS\Recent)",
    R"(C:\Windows.old)",
    R"(C:\$GetCurrent)",
    R"(C:\Users\Anna\AppData\Local\Temp)",
    R"(C:\Users\Anna\AppData\Local\CrashDumps)",
    R"(C:\Users\Anna\AppData\Local\Microsoft\Windows\Explorer)",
    R"(C:\Users\Anna\AppData\Roaming\Microsoft\Windows\Recent)",
    R"(C:\Users\Anna\Downloads)",
    R"(C:\Users\Anna\Downloads\)",
    R"(C:\Users\Anna\Documents\Old)",
    R"(C:\Users\Anna\Documents\Windows)",
    R"(C:\Users\Anna\Documents\System)",
    R"(C:\Users\Anna\Users)",
    R"(C:\Users\Anna\Program Files)",
    R"(C:\Users\Public\Documents\Temp)",
    R"(C:\Documents and Settings\Anna\Local Settings\Temp)",
    R"(C:\Documents and Settings\Anna\Lokale Einstellungen\Temp)",
    R"(C:\Dokumente und Einstellungen\Anna\Lokale Einstellungen\Temp)",
    R"(C:\Dokumente und Einstellungen\Anna\Eigene Dateien\Alt)",
    R"(C:\ProgramData\Microsoft\Windows\WER)",
    R"(C:\ProgramData\Vendor\Logs)",
    R"(C:\ProgramData\Temp)",
    R"(C:\Program Files\Game\Logs)",
    R"(C:\Program Files\Game\Cache\)",
    R"(C:\Program Files (x86)\Game\crashes)",
    R"(C:\Programme\Spiel\Protokolle)",
    R"(C:\AMD)",
    R"(C:\NVIDIA)",
    R"(C:\Intel\Logs)",
    R"(C:\Drivers)",
    R"(C:\Driver)",
    R"(C:\Data)",
    R"(C:\Data\System)",
    R"(C:\Data\System32)",
    R"(C:\Data\Boot)",
    R"(C:\Backup\Windows)",
    R"(C:\Backup\Users)",
    R"(C:\Games\Config)",
    R"(C:\Games\Fonts)",
    R"(C:\W)",
    R"(C:\Win)",
    R"(C:\Winter)",
    R"(C:\Window)",
    R"(C:\User)",
    R"(C:\Prog)",
    R"(C:\Program Files2)",
    R"(C:\System)",
    R"(C:\System Volume)",
    R"(C:\Recycle)",
    R"(C:\Booth)",
    R"(C:\Fonts)",
    R"(C:\Users2)",
    R"(C:\Web)",
    R"(C:\Media)",
    R"(C:\Config)",
    R"(C:\Tasks)",
    R"(D:\Downloads)",
    R"(D:\Temp)",
    R"(D:\Data)",
    R"(D:\Windows\Temp)",
    R"(D:\Users\Anna\AppData\Local\Temp)",
    R"(D:\Games)",
    R"(D:\Boot)",
    R"(D:\Fonts)",
    R"(E:\Cache)",
    R"(E:\Program Files\Game\Logs)",
    R"(Z:\Scratch)",
    R"(\\server\share\Temp)",
    R"(\\nas\public\incoming)",
};

constexpr std::array kWantedFilesAndKeys{
    R"(C:\Windows\setuplog.txt)",
    R"(C:\Windows\ntbtlog.txt)",
    R"(C:\Windows\WindowsUpdate.log)",
    R"(C:\Windows\MEMORY.DMP)",
    R"(C:\Windows\*.log)",
    R"(C:\Windows\Temp\*)",
    R"(C:\Windows\Temp\*.*)",
    R"(C:\Windows\System32\LogFiles\*.log)",
    R"(C:\Windows\Minidump\*.dmp)",
    R"(C:\Users\Anna\Desktop\note.txt)",
    R"(C:\Users\Anna\AppData\Local\IconCache.db)",
    R"(C:\Users\Anna\AppData\Local\Microsoft\Windows\Explorer\thumbcache_*.db)",
    R"(C:\Data\report.doc)",
    R"(C:\Data\*.exe)",
    R"(C:\Data\a.dll)",
    R"(C:\bootlog.txt)",
    R"(C:\setup.log)",
    R"(C:\Temp\boot.ini)",
    R"(D:\boot.log)",
    R"(D:\Downloads\*.exe)",
    R"(HKEY_CURRENT_USER\Software\Vendor)",
    R"(HKEY_CURRENT_USER\Software\Vendor\Program\Recent)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Explorer\RunMRU)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Explorer\RecentDocs)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Applets\Paint\Recent File List)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Internet Explorer\TypedURLs)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Office\11.0\Word\Data)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Vendor)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Vendor)",
    R"(HKEY_USERS\S-1-5-21-1-2-3-1000\Software\Vendor)",
};

constexpr std::array kWantedMasks{
    "*.cache",    "*.crdownload", "*.part",      "*.partial", "*.bak2",
    "*.dmp*",     "*.log.1",      "*.tmp.*",     "*.temp",    "*~",
    "~$*",        "$*.tmp",       "*.old.*",     "*.exe.bak", "*.dll.old",
    "*.docx.tmp", "thumbs.db",    "desktop.ini", ".DS_Store", "hs_err_pid*.log",
    "*.etl",      "*.wer",        "*.hdmp",      "*.chk?",    "nohup.out",
    "setup*.log", "*.i",          "*.e",         "*.s",       "*a.exe",
    "*.txt",      "*.htm",        "*.html",      "*.jpg",     "*.jpeg",
    "*.gif",      "*.png",        "*.zip",       "*.rar",     "*.7z",
    "*.iso",      "*.mp3",        "*.csv",       "*.json",    "*.xml",
    "*.js",       "*.css",        "*.c",         "*.h",       "*.db",
    "*.bmp",      "*.tif",        "*.wav",       "*.wma",     "*.avi",
    "*.mp4",      "*.mpg",        "*.cpp",       "*.py",      "*.mp?",
};

// --- what nobody should ever add

constexpr std::array kDearFolders{
    "A:",
    R"(A:\)",
    "B:",
    R"(b:\)",
    "C:",
    R"(C:\)",
    R"(c:\)",
    "D:",
    R"(D:\)",
    "M:",
    R"(M:\)",
    "Z:",
    R"(z:\)",
    "C:/",
    "D:/",
    R"(C:\.)",
    R"(\\?\C:\)",
    R"(\\?\D:\)",
    R"(\\?\C:)",
    R"(\\localhost\c$)",
    R"(\\127.0.0.1\C$\)",
    R"(C:\*)",
    R"(C:\*.*)",
    R"(E:\*.*)",
    R"(C:\Windows)",
    R"(c:\windows)",
    R"( C:\Windows )",
    R"(C:\Windows\)",
    R"(D:\Windows)",
    R"(Z:\Windows\)",
    "C:/Windows",
    R"(\\?\C:\Windows)",
    R"(\\?\C:\Windows\System32)",
    R"(C:\Windows\System)",
    R"(C:\Windows\System32)",
    R"(C:\Windows\System32\)",
    R"(D:\Windows\System32)",
    R"(C:\Windows\System32\config)",
    R"(C:\Windows\System32\drivers)",
    R"(C:\Windows\System32\drivers\etc\)",
    R"(C:\Windows\System32\dllcache)",
    R"(C:\Windows\System32\DriverStore)",
    R"(C:\Windows\System32\spool)",
    R"(C:\Windows\System32\wbem)",
    R"(C:\Windows\System32\winevt\Logs)",
    R"(C:\Windows\SysWOW64)",
    R"(C:\Windows\SysWOW64\)",
    R"(E:\Windows\SysWOW64)",
    R"(C:\Windows\WinSxS)",
    R"(C:\Windows\servicing)",
    R"(C:\Windows\Boot)",
    R"(C:\Windows\Fonts)",
    R"(C:\Windows\inf)",
    R"(C:\Windows\Installer)",
    R"(C:\Windows\assembly)",
    R"(C:\Windows\Microsoft.NET)",
    R"(C:\Windows\SystemApps)",
    R"(C:\Windows\Command)",
    R"(C:\Windows\Sysbckup)",
    R"(C:\Windows\Start Menu)",
    R"(C:\Windows\Startmenü)",
    R"(C:\WINDOWS\STARTMENÜ\)",
    R"(C:\Windows\Profiles)",
    R"(C:\Windows\*)",
    R"(C:\Windows\*.*)",
    R"(C:\Windows\System32\*.dll)",
    R"(C:\WINNT)",
    R"(C:\WINNT\)",
    R"(D:\WINNT)",
    R"(C:\WINNT\System32)",
    R"(C:\WINNT\System32\config)",
    R"(C:\WINNT\Profiles)",
    R"(C:\WINNT\Profiles\All Users)",
    R"(C:\Program Files)",
    R"(C:\Program Files\)",
    R"(D:\Program Files)",
    R"(\\?\C:\Program Files)",
    R"(C:\Program Files (x86))",
    R"(C:\Program Files (x86)\)",
    R"(C:\Program Files\Common Files)",
    R"(C:\Program Files\Tidvane)",
    R"(C:\Program Files (x86)\Tidvane\)",
    R"(C:\Program Files\WindowsApps)",
    R"(C:\Programme)",
    R"(D:\Programme\)",
    R"(C:\Programme (x86))",
    R"(C:\Programme\Gemeinsame Dateien)",
    R"(C:\Archivos de programa)",
    R"(C:\Arquivos de programas)",
    R"(C:\Programmi)",
    R"(C:\Programfiler)",
    R"(C:\Program Files\Fichiers communs)",
    R"(C:\ProgramData)",
    R"(C:\ProgramData\)",
    R"(C:\ProgramData\Microsoft)",
    R"(C:\ProgramData\Package Cache)",
    R"(C:\Users)",
    R"(C:\Users\)",
    R"(D:\Users)",
    R"(C:\Users\Public)",
    R"(C:\Users\Default)",
    R"(C:\Users\All Users)",
    R"(C:\Users\*)",
    R"(C:\Benutzer)",
    R"(C:\Utilisateurs)",
    R"(C:\Usuários)",
    R"(C:\Användare\)",
    R"(C:\Käyttäjät)",
    R"(C:\Documents and Settings)",
    R"(C:\Documents and Settings\)",
    R"(D:\Documents and Settings)",
    R"(C:\Documents and Settings\All Users)",
    R"(C:\Documents and Settings\Default User)",
    R"(C:\Documents and Settings\NetworkService)",
    R"(C:\Dokumente und Einstellungen)",
    R"(C:\Dokumente und Einstellungen\)",
    R"(C:\Dokumente und Einstellungen\All Users)",
    R"(C:\Dokument och inställningar)",
    R"(C:\Documents et paramètres)",
    R"(C:\Boot)",
    R"(C:\Boot\)",
    R"(C:\EFI)",
    R"(C:\EFI\Microsoft\Boot)",
    R"(C:\Recovery)",
    R"(C:\Recovery\)",
    R"(C:\System Volume Information)",
    R"(D:\System Volume Information)",
    R"(C:\$Recycle.Bin)",
    R"(D:\$Recycle.Bin\)",
    R"(C:\RECYCLER)",
    R"(C:\RECYCLED)",
    R"(C:\MSOCache)",
    R"(C:\My Documents)",
    R"(C:\Eigene Dateien)",
    R"(C:\Windows\?*)",
    R"(C:\Windows\System32\?*)",
    R"(C:\Windows\System32\drivers\*.*)",
    R"(C:\Users\*.*)",
    R"(C:\Users\?*)",
    R"(C:\Program Files\?*)",
    R"(D:\?*)",
    R"(D:\Windows\*)",
    R"(D:\Windows\*.*)",
    R"(K:\Windows\?*)",
    R"(Z:\Windows\System32\*)",
    R"(Z:\WINNT\System32\*.exe)",
    R"(C:\PROGRA~1)",
    R"(c:\progra~2\)",
    R"(C:\DOCUME~1)",
    R"(D:\PROGRA~1\*)",
    R"(C:\progra~3)",
    R"(C:\DOKUME~1\)",
    R"(C:\PROGRA~1\COMMON~1)",
    R"(C:\Windows\System\*)",
    R"(C:\Windows\SysWOW64\*)",
    R"(D:\Windows\SysWOW64\?*)",
    R"(D:\Program Files\*.*)",
    R"(E:\Users\*)",
    R"(C:\Programme\*)",
    R"(D:\Windows\System32\drivers\*.sys)",
    R"(D:\Windows\System32\config)",
    // other spellings of the same
    "c:/windows/system32",
    R"(C:\\Windows)",
    R"(C:\Windows\\System32\)",
    R"(C:\.\Windows)",
    R"(C:\Windows\.)",
    R"(C:\Windows.)",
    R"(C:\Windows. )",
    R"(C:\Windows\*.)",
    R"(C:\Temp\..\Windows)",
    R"(C:\Windows\Temp\..)",
    R"(C:\Windows\System32\..\*)",
    R"(C:\..\Users)",
    R"(C:\Windows.\System32)",
    "C:/Users/*",
    "//?/C:/Windows",
    "Windows",
    "S",
    R"(\)",
    ":",
};

constexpr std::array kDearFilesAndKeys{
    R"(C:\bootmgr)",
    R"(C:\boot.ini)",
    R"(C:\ntldr)",
    R"(C:\NTDETECT.COM)",
    R"(C:\IO.SYS)",
    R"(C:\MSDOS.SYS)",
    R"(C:\COMMAND.COM)",
    R"(C:\AUTOEXEC.BAT)",
    R"(C:\pagefile.sys)",
    R"(C:\hiberfil.sys)",
    R"(C:\Windows\explorer.exe)",
    R"(C:\Windows\win.ini)",
    R"(C:\Windows\SYSTEM.DAT)",
    R"(C:\Windows\USER.DAT)",
    R"(C:\Windows\*.exe)",
    R"(C:\Windows\System32\kernel32.dll)",
    R"(C:\Windows\System32\ntoskrnl.exe)",
    R"(C:\Windows\System32\drivers\etc\hosts)",
    R"(C:\Windows\System32\config\SYSTEM)",
    R"(C:\Windows\System32\config\*)",
    R"(C:\Windows\System32\*.*)",
    R"(C:\Windows\SysWOW64\*.dll)",
    R"(C:\Windows\System\*.drv)",
    R"(D:\Windows\System32\drivers\*)",
    R"(C:\Windows\Temp\..\explorer.exe)",
    R"(C:\WINNT\System32\ntdll.dll)",
    "HKEY_CLASSES_ROOT",
    "HKEY_CURRENT_USER",
    R"(HKEY_CURRENT_USER\)",
    "HKEY_LOCAL_MACHINE",
    R"(HKEY_USERS\)",
    "HKEY_CURRENT_CONFIG",
    R"(HKEY_CLASSES_ROOT\CLSID)",
    R"(HKEY_CLASSES_ROOT\exefile)",
    R"(HKEY_CLASSES_ROOT\.exe)",
    R"(HKEY_CURRENT_USER\Software)",
    R"(hkey_current_user\software\)",
    R"(HKEY_CURRENT_USER\Control Panel)",
    R"(HKEY_CURRENT_USER\Environment)",
    R"(HKEY_CURRENT_USER\Software\Classes)",
    R"(HKEY_CURRENT_USER\Software\Microsoft)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion)",
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Explorer)",
    R"(HKEY_LOCAL_MACHINE\SAM)",
    R"(HKEY_LOCAL_MACHINE\SECURITY)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Classes)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion)",
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node)",
    R"(HKEY_LOCAL_MACHINE\SYSTEM)",
    R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet)",
    R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Services\)",
    R"(HKEY_LOCAL_MACHINE\SYSTEM\ControlSet001)",
    R"(HKEY_LOCAL_MACHINE\HARDWARE)",
    R"(HKEY_USERS\.DEFAULT)",
    R"(HKEY_USERS\S-1-5-18)",
    R"(HKEY_USERS\S-1-5-21-1-2-3-1000)",
    R"(HKEY_USERS\S-1-5-21-1-2-3-1000\Software)",
    R"(HKEY_USERS\S-1-5-21-1-2-3-1000\Software\Classes\)",
    R"(HKEY_CURRENT_USER\\Software)",
    R"(HKEY_CURRENT_USER\Software\\Microsoft)",
    R"(HKEY_LOCAL_MACHINE\Software\Wow6432Node\Classes)",
};

constexpr std::array kDearMasks{
    "*",        "*.*",          "?*",      "*?",     "**",     "*.?*",   "????????.???", "*.",          "..",
    "*.exe",    "*.EXE",        " *.exe ", "*.dll",  "*.sys",  "*.com",  "*.bat",        "*.cmd",       "*.ocx",
    "*.drv",    "*.ini",        "*.inf",   "*.cat",  "*.dat",  "*.lnk",  "*.ttf",        "*.msi",       "*.cpl",
    "*.pst",    "*.doc",        "*.docx",  "*.xls",  "*.pdf",  "*.kdbx", "ntuser*",      "ntuser.dat*", "exe",
    "boot.ini", "kernel32.dll", "*.ex*",   "?*.exe", "*.exe*", "*.dll*", "*.sys*",       "**.exe",      "*.dl*",
    "?*.dll",   "**.dll",       "*.sy*",   "?*.sys", "**.sys",
};

struct DeliveredBans : testing::Test {
    OptionsFixture machine;
    std::string content;

    void SetUp() override {
        std::ifstream file(TIDVANE_SOURCE_DIR "/data/td_ban.dat", std::ios::binary);
        content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        ASSERT_FALSE(content.empty());
        machine.putBeside("td_ban.dat", content);
        for (forms::CheckBox* box : {&machine.options().chkActivateOwnFolder, &machine.options().chkActivateOwnFiles,
                                     &machine.options().chkSearchTasks}) {
            box->Value = 1;
        }
    }

    std::vector<std::string> lines() {
        std::vector<std::string> all = base::split(machine.program.codePage().toUtf8(content), "\r\n");
        EXPECT_EQ(all.back(), "") << "the last line is ended too";
        all.pop_back();
        return all;
    }
    // As the user does it: type, press the button, look.
    bool gotIn(const std::string& text, forms::TextBox& entry, controls::isButton& add, forms::ListBox& list) {
        machine.display.boxes.clear();
        list.Clear();
        entry.setText(text);
        add.press();
        const bool in = list.ListCount() == 1;
        EXPECT_EQ(entry.Text(), in ? "" : text);
        EXPECT_EQ(machine.display.boxes.size(), in ? 0U : 1U) << text;
        for (const auto& box : machine.display.boxes) EXPECT_EQ(box.text, kBanMessage) << text;
        return in;
    }
    bool folderGotIn(const std::string& text) {
        frmOptions& options = machine.options();
        return gotIn(text, options.txtAddFolderPath, options.cmdAddFolderPath, options.lstFolders);
    }
    bool fileGotIn(const std::string& text) {
        frmOptions& options = machine.options();
        return gotIn(text, options.txtAddFilePath, options.cmdAddFilePath, options.lstFiles);
    }
    bool maskGotIn(const std::string& text) {
        frmOptions& options = machine.options();
        return gotIn(text, options.txtSearchMask, options.cmdAddSearchMask, options.lstSearchMasks);
    }
};

TEST_F(DeliveredBans, LetWantedEntriesIn) {
    static_assert(kWantedFolders.size() + kWantedFilesAndKeys.size() + kWantedMasks.size() >= 100);
    for (const char* text : kWantedFolders) EXPECT_TRUE(folderGotIn(text)) << text;
    for (const char* text : kWantedFilesAndKeys) EXPECT_TRUE(fileGotIn(text)) << text;
    for (const char* text : kWantedMasks) EXPECT_TRUE(maskGotIn(text)) << text;
}

TEST_F(DeliveredBans, LetEveryReadyMadeMaskIn) {
    for (const char* mask : kBuiltInMasks) EXPECT_TRUE(maskGotIn(mask)) << mask;
}

TEST_F(DeliveredBans, RefuseDearPlaces) {
    static_assert(kDearFolders.size() + kDearFilesAndKeys.size() + kDearMasks.size() >= 100);
    for (const char* text : kDearFolders) EXPECT_FALSE(folderGotIn(text)) << text;
    for (const char* text : kDearFilesAndKeys) EXPECT_FALSE(fileGotIn(text)) << text;
    for (const char* text : kDearMasks) EXPECT_FALSE(maskGotIn(text)) << text;
}

TEST_F(DeliveredBans, RefuseTheRootOfEveryDriveInBothSpellings) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const std::string drive{letter, ':'};
        for (const std::string& text : {drive, drive + "\\", base::lowerCase(drive), base::lowerCase(drive) + "\\"}) {
            EXPECT_FALSE(folderGotIn(text)) << text;
            EXPECT_FALSE(fileGotIn(text)) << text;
        }
        // A folder right below it is a matter of its name alone.
        EXPECT_TRUE(folderGotIn(drive + "\\Temp")) << letter;
    }
}

TEST_F(DeliveredBans, RefuseDroppedPathsToo) {
    machine.files().putFolder("C:\\Windows\\System32");
    machine.files().putFolder("C:\\Temp");
    machine.files().putFile("C:\\boot.ini");
    machine.files().putFile("C:\\Temp\\a.txt");
    frmOptions& options = machine.options();
    options.dropOnFolders({"C:\\", "C:\\Windows", "C:\\Windows\\System32", "C:\\Users", "C:\\Temp"});
    EXPECT_EQ(rows(options.lstFolders), (std::vector<std::string>{"C:\\Temp"}));
    options.dropOnFiles({"C:\\boot.ini", "C:\\Temp\\a.txt"});
    EXPECT_EQ(rows(options.lstFiles), (std::vector<std::string>{"C:\\Temp\\a.txt"}));
    EXPECT_EQ(machine.display.boxes.size(), 5U);
}

TEST_F(DeliveredBans, RefuseTheirOwnLinesInAnyCase) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    ASSERT_GT(content.size(), 3 * kBanBlockSize);
    const std::vector<std::string> all = lines();
    // Each look reads up to the whole file: every eleventh, so that all drives and all kinds of lines have their turn.
    for (std::size_t number = 0; number < all.size(); number += 11) {
        EXPECT_TRUE(FindInFile(machine.program, file, all[number], kBanBlockSize)) << all[number];
        // A lower-case needle is put into capitals like the file.
        EXPECT_TRUE(FindInFile(machine.program, file, base::lowerCase(all[number]), kBanBlockSize)) << all[number];
    }
}

TEST_F(DeliveredBans, FindLinesAtTheBordersOfTheBlocks) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    int straddling = 0;
    std::size_t start = 0;
    for (const std::string& line : base::split(content, "\r\n")) {
        const std::size_t end = start + line.size() + 2;
        if (!line.empty() && start / kBanBlockSize != (end - 1) / kBanBlockSize) {
            ++straddling;
            const std::string text = machine.program.codePage().toUtf8(line);
            EXPECT_TRUE(FindInFile(machine.program, file, text, kBanBlockSize)) << text;
            // The same file in small letters shows that it is a line of that kind.
            machine.putBeside("small.dat", base::lowerCase(content));
            EXPECT_FALSE(FindInFile(machine.program, OptionsFixture::inFolder("small.dat"), text, kBanBlockSize))
                << text;
        }
        start = end;
    }
    EXPECT_GE(straddling, 3);
}

TEST_F(DeliveredBans, AreInCapitalsWithoutBlanksAroundAndEachOnce) {
    std::set<std::string> seen;
    for (const std::string& line : lines()) {
        EXPECT_FALSE(line.empty());
        EXPECT_EQ(line, base::upperCase(line));
        EXPECT_EQ(line, std::string(base::trimBlanks(line)));
        EXPECT_EQ(line.find_first_of("\r\n,\""), std::string::npos) << line;
        EXPECT_TRUE(seen.insert(line).second) << line;
    }
    // Any start of the first line is refused: it has none that somebody could want.
    EXPECT_EQ(lines()[0], "*");
}

}  // namespace
}  // namespace tidvane::settings
