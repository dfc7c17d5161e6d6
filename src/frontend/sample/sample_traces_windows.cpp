// Traces of Windows itself, and of what people keep.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

namespace attribute = platform::attribute;
using namespace taken_by;
using enum SampleHive;

#define WINDOWS "drive_c/Windows/"
#define PROFILE "drive_c/Users/<user>/"
#define LOCAL PROFILE "AppData/Local/"
#define ROAMING PROFILE "AppData/Roaming/"

// clang-format off
constexpr std::array kFiles{
    // Temporary files of the system. Beside them: what bears a similar name and is none.
    SampleFile{WINDOWS "Temp/TMP0001.tmp",                            48'213,  2, Windows},
    SampleFile{WINDOWS "Temp/TMP0002.tmp",                           131'072, 12, Windows},
    SampleFile{WINDOWS "Temp/~DF3A1C.tmp",                            16'384, 45, Windows | Search},
    SampleFile{WINDOWS "Temp/setup.log",                               7'420, 30, Windows | Search},
    SampleFile{WINDOWS "Temp/MsiInstall/setup.cab",               67'108'864, 31, Windows},
    SampleFile{WINDOWS "Temp/MsiInstall/data/lang/deutsch.ini",          812, 31, Windows},
    SampleFile{WINDOWS "Temp/MsiInstall/data/locked.dll",             22'016, 31, Windows,  attribute::ReadOnly},
    SampleFile{WINDOWS "Temp/MsiInstall/data/state.dat",               1'024, 31, Windows,  attribute::Hidden},
    // A file of its own that is read-only or hidden stays, as it does on Windows, but the bin takes it. Inside a folder
    // it goes with the folder.
    SampleFile{WINDOWS "Temp/keep-readonly.txt",                         120, 90, recycling(Windows), attribute::ReadOnly},
    SampleFile{WINDOWS "Temp/keep-hidden.txt",                           120, 90, recycling(Windows), attribute::Hidden},
    SampleFile{WINDOWS "Temporary.txt",                                   64, 90, Nobody},
    SampleFile{WINDOWS "win.ini",                                        403, 90, Nobody},
    SampleFile{WINDOWS "System32/drivers/etc/hosts",                     824, 90, Nobody},

    // Temporary files of the user.
    SampleFile{LOCAL "Temp/~WRS0001.tmp",                             24'576,  1, Windows | Search},
    SampleFile{LOCAL "Temp/Größe und Übersicht.tmp",                   9'216,  3, Windows},
    SampleFile{LOCAL "Temp/download.part",                        25'165'824,  8, Windows},
    SampleFile{LOCAL "Temp/7zS4F21/setup.exe",                       393'216, 15, Windows},
    SampleFile{LOCAL "Temp/7zS4F21/readme.txt",                        2'211, 15, Windows},
    SampleFile{LOCAL "Temp/Rar$DIa0.417/Bewerbung.doc",               45'056, 60, Windows},
    SampleFile{LOCAL "Temporary Work/thesis.doc",                     88'064,  1, Nobody},

    // What programs were started, and when.
    SampleFile{WINDOWS "Prefetch/NOTEPAD.EXE-336351A9.pf",            14'226,  1, Windows},
    SampleFile{WINDOWS "Prefetch/WINWORD.EXE-37F6B2E1.pf",            88'940,  2, Windows},
    SampleFile{WINDOWS "Prefetch/SETUP.EXE-1A2B3C4D.pf",              31'402, 31, Windows},
    SampleFile{WINDOWS "Prefetch/Layout.ini",                        104'448,  4, Windows},
    SampleFile{WINDOWS "Prefetch/ReadyBoot/Trace1.fx",               524'288,  3, Windows},
    SampleFile{WINDOWS "PrefetchNotes.txt",                              200,  3, Nobody},

    // Documents that were opened lately, as an English and a German Office note them.
    SampleFile{ROAMING "Microsoft/Office/Recent/Budget 2009.xls.LNK",    612,  0, Windows},
    SampleFile{ROAMING "Microsoft/Office/Recent/Letter.doc.LNK",         587,  6, Windows},
    SampleFile{ROAMING "Microsoft/Office/Recent/index.dat",            1'204,  0, Windows | Office},
    SampleFile{ROAMING "Microsoft/Office/Zuletzt verwendet/Gehälter.xls.LNK", 640, 40, Windows},
    SampleFile{ROAMING "Microsoft/Office/Zuletzt verwendet/Kündigung.doc.LNK", 655, 400, Windows},
    SampleFile{ROAMING "Microsoft/Office/Word11.pip",                  1'988, 70, Nobody},
    SampleFile{ROAMING "Microsoft/Windows/Recent/Letter.lnk",            702,  6, Nobody},
    SampleFile{ROAMING "Microsoft/Windows/Recent/Holiday.lnk",           711, 90, Nobody},

    // What people keep.
    SampleFile{PROFILE "Documents/Letter.doc",                        31'744,  6, Nobody},
    SampleFile{PROFILE "Documents/Budget 2009.xls",                   54'272,  0, Nobody},
    SampleFile{PROFILE "Documents/Schöne Grüße.txt",                     412, 20, Nobody},
    SampleFile{PROFILE "Pictures/Holiday.jpg",                       921'600, 90, Nobody},
    SampleFile{PROFILE "Desktop/Temp.lnk",                               480, 12, Nobody},
    SampleFile{PROFILE "Favorites/News.url",                             118, 12, Nobody},
    SampleFile{"drive_c/Temp/project.txt",                             1'500, 10, Nobody},
    SampleFile{"drive_c/Program Files/Common Files/readme.txt",          300, 300, Nobody},
    SampleFile{"outside/keep.txt",                                     2'048, 10, Nobody},
    SampleFile{"outside/folder/keep too.txt",                          2'048, 10, Nobody},

    // Bins of other users, and what Windows keeps in a bin for itself.
    SampleFile{"drive_c/$Recycle.Bin/S-1-5-21-9-9-9-1001/$RKEEP01.txt", 4'096, 10, Nobody},
    SampleFile{"drive_c/$Recycle.Bin/<sid>/desktop.ini",                 129, 300, Nobody, attribute::Hidden | attribute::System},
};

constexpr std::array kFolders{
    SampleFolder{WINDOWS "Temp/MsiInstall",           Windows},
    SampleFolder{WINDOWS "Temp/MsiInstall/data",      Windows},
    SampleFolder{WINDOWS "Temp/MsiInstall/data/lang", Windows},
    SampleFolder{WINDOWS "Prefetch/ReadyBoot",        Windows},
    SampleFolder{LOCAL "Temp/7zS4F21",                Windows},
    SampleFolder{LOCAL "Temp/Rar$DIa0.417",           Windows},
};

// Links that lead out of the machine or elsewhere in it: the link goes, what it leads to is never touched.
constexpr std::array kLinks{
    SampleLink{WINDOWS "Temp/outside", "../../../outside", Windows},
    SampleLink{WINDOWS "Temp/outside file.txt", "../../../outside/keep.txt", Windows},
    SampleLink{LOCAL "Temp/MyDocuments", "../../../Documents", Windows},
    SampleLink{LOCAL "Temp/7zS4F21/up", "..", Windows},
    SampleLink{LOCAL "Temp/lost", "nowhere/at all", Windows},
    // Out of the machine's directory, to a part of the host that no one can remove.
    SampleLink{WINDOWS "Temp/host", "/proc/sys", Windows},
    SampleLink{PROFILE "My Documents", "Documents", Nobody},
    // As in most prefixes; no drive of the machine.
    SampleLink{"dosdevices/z:", "/", Nobody},
};

constexpr std::array kUnits{
    // Windows Vista to 8.1, and Windows 10.
    SampleUnit{"drive_c/$Recycle.Bin/<sid>", "$RQ4X7ZL.txt", "C:\\Users\\<user>\\Desktop\\old notes.txt",      18'432,  5, 1},
    SampleUnit{"drive_c/$Recycle.Bin/<sid>", "$R8K2M0V.jpg", "C:\\Users\\<user>\\Pictures\\blurred.jpg",      655'360,  9, 1},
    SampleUnit{"drive_c/$Recycle.Bin/<sid>", "$RT61PAB.doc", "C:\\Users\\<user>\\Documents\\Entwurf für Jörg.doc", 40'960, 2, 2},
    // Windows 2000 and XP on NTFS, and on FAT.
    SampleUnit{"drive_c/RECYCLER/<sid>",     "Dc1.txt",      "C:\\Documents\\list.txt",                         2'048, 700, 0},
    SampleUnit{"drive_c/RECYCLER/<sid>",     "Dc2.bmp",      "C:\\Documents\\drawing.bmp",                    196'662, 690, 0},
    SampleUnit{"drive_c/RECYCLED",           "DC1.DOC",      "C:\\MYDOCU~1\\OLD.DOC",                          25'600, 900, 0},
};

#define EXPLORER "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
#define APPLETS "Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\"
#define ACMRU "Software\\Microsoft\\Search Assistant\\ACMru\\"
#define MEDIAPLAYER "Software\\Microsoft\\MediaPlayer\\"

constexpr std::array kValues{
    // Opened documents
    SampleValue{User, EXPLORER "RecentDocs",            "0", "Letter.doc", Windows | Office},
    SampleValue{User, EXPLORER "RecentDocs",            "MRUListEx", "0", Windows | Office},
    SampleValue{User, EXPLORER "RecentDocs\\.doc",      "0", "Letter.doc", Windows | Office},
    SampleValue{User, EXPLORER "RecentDocs\\.xls",      "0", "Budget 2009.xls", Windows | Office},
    SampleValue{User, EXPLORER "RecentDocs\\Folder",    "0", "Documents", Windows | Office},
    // Searches for files, words and computers
    SampleValue{User, EXPLORER "Doc Find Spec MRU",     "a", "*.mp3", Windows},
    SampleValue{User, ACMRU "5603",                     "000", "letter", Windows},
    SampleValue{User, ACMRU "5603",                     "001", "Kündigung", Windows},
    SampleValue{User, ACMRU "5604",                     "000", "salary", Windows},
    SampleValue{User, ACMRU "5647",                     "000", "FILESERVER", Windows},
    SampleValue{User, ACMRU "5001",                     "000", "tidvane", Windows},
    SampleValue{User, EXPLORER "FindComputerMRU",       "a", "OFFICE-PC", Windows},
    // Run box
    SampleValue{User, EXPLORER "RunMRU",                "a", "regedit\\1", Windows},
    SampleValue{User, EXPLORER "RunMRU",                "b", "cmd\\1", Windows},
    SampleValue{User, EXPLORER "RunMRU",                "MRUList", "ba", Windows},
    // Last key of the registry editor, its favourites included
    SampleValue{User, APPLETS "Regedit",                "LastKey", "Computer\\HKEY_CURRENT_USER\\Software", Windows},
    SampleValue{User, APPLETS "Regedit\\Favorites",     "Run", "HKEY_CURRENT_USER\\Software\\Microsoft", Windows},
    // File dialogs
    SampleValue{User, EXPLORER "ComDlg32\\OpenSaveMRU\\doc",          "a", "C:\\Users\\<user>\\Documents\\Letter.doc", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\OpenSavePidlMRU\\*",        "0", "Letter.doc", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\FirstFolder",               "0", "notepad.exe", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\CIDSizeMRU",                "0", "notepad.exe", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\LastVisitedMRU",            "a", "winword.exe", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\LastVisitedPidlMRU",        "0", "winword.exe", Windows},
    SampleValue{User, EXPLORER "ComDlg32\\LastVisitedPidlMRULegacy",  "0", "winword.exe", Windows},
    // Started programs
    SampleValue{User, EXPLORER "UserAssist\\{CEBFF5CD-ACE2-4F4F-9178-9926F41749EA}\\Count", "Abgrcnq.rkr", "2", Windows},
    SampleValue{User, EXPLORER "UserAssist\\{F4E57C4B-2036-45F0-A9AB-443BCFE33D9F}\\Count", "Jbeq.yax", "5", Windows},
    // Dialled addresses
    SampleValue{Machine, "SOFTWARE\\Microsoft\\RAS AutoDial\\Addresses\\192.168.1.1", "Network", "1", Windows},
    SampleValue{Machine, "SOFTWARE\\Microsoft\\RAS AutoDial\\Addresses\\example.org", "Network", "1", Windows},
    // Lists of programs
    SampleValue{User, APPLETS "Wordpad\\Recent File List", "File1", "C:\\Users\\<user>\\Documents\\Letter.rtf", Windows},
    SampleValue{User, APPLETS "Paint\\Recent File List",   "File1", "C:\\Users\\<user>\\Pictures\\drawing.bmp", Windows},
    SampleValue{User, MEDIAPLAYER "Player\\RecentFileList", "File0", "C:\\Music\\song.mp3", Windows},
    SampleValue{User, MEDIAPLAYER "Player\\RecentURLList",  "URL0", "http://radio.example.org/", Windows},
    SampleValue{User, MEDIAPLAYER "AutoComplete\\MediaEdit", "0", "song", Windows},
    SampleValue{User, MEDIAPLAYER "Radio\\MRUList",         "0", "Radio Example", Windows},
    // Order of menus
    SampleValue{User, EXPLORER "MenuOrder\\Start Menu\\Programs", "Order", "1", Windows},
    SampleValue{User, EXPLORER "MenuOrder\\Favorites\\Links",     "Order", "1", Windows},

    // A Windows of 64 bits.
    SampleValue{Machine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir (x86)", "C:\\Program Files (x86)", Nobody},

    // Neighbours that are none of any task's business.
    SampleValue{User, EXPLORER "MenuOrder\\Start Menu2\\Programs", "Order", "1", Nobody},
    SampleValue{User, "Software\\Microsoft\\Search Assistant", "Actor", "rover", Nobody},
    SampleValue{User, MEDIAPLAYER "Player\\Settings",  "Client ID", "{0A1B2C3D}", Nobody},
    SampleValue{User, MEDIAPLAYER "AutoComplete",      "Append Completion", "yes", Nobody},
    SampleValue{User, MEDIAPLAYER "Radio",             "Preset", "2", Nobody},
    SampleValue{User, EXPLORER "Advanced",              "Hidden", "1", Nobody},
    SampleValue{User, EXPLORER "ComDlg32",              "Keep", "1", Nobody},
    SampleValue{User, EXPLORER "RunMRUx",               "a", "keep", Nobody},
    SampleValue{User, APPLETS "Wordpad\\Options",       "Wrap", "1", Nobody},
    SampleValue{User, APPLETS "Paint\\View",            "Zoom", "100", Nobody},
    SampleValue{User, MEDIAPLAYER "Preferences",        "Volume", "50", Nobody},
    SampleValue{User, "Software\\Example\\Editor",      "Font", "Courier New", Nobody},
    SampleValue{Machine, "SOFTWARE\\Microsoft\\RAS AutoDial\\Control", "Enabled", "1", Nobody},
    SampleValue{Machine, "SOFTWARE\\Example\\Editor",   "Path", "C:\\Program Files\\Editor", Nobody},
};
// clang-format on

#undef WINDOWS
#undef PROFILE
#undef LOCAL
#undef ROAMING
#undef EXPLORER
#undef APPLETS
#undef ACMRU
#undef MEDIAPLAYER

}  // namespace

SampleTables windowsTraces() {
    return {kFiles, kFolders, kValues, {}};
}

std::span<const SampleLink> sampleLinks() {
    return kLinks;
}

std::span<const SampleUnit> sampleUnits() {
    return kUnits;
}

}  // namespace tidvane::frontend
