// Traces for some of the delivered plug-ins.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

namespace attribute = platform::attribute;
using namespace taken_by;
using enum SampleHive;

#define WINDOWS "drive_c/Windows/"
#define DATA "drive_c/ProgramData/"
#define PROFILE "drive_c/Users/<user>/"
#define LOCAL PROFILE "AppData/Local/"
#define LOW PROFILE "AppData/LocalLow/"
#define ROAMING PROFILE "AppData/Roaming/"
#define STEAM "drive_c/Program Files (x86)/Steam/"

// clang-format off
// Those that find something below.
constexpr std::array kPlugIns{
    "7-Zip history",
    "Browser updater downloads",
    "DirectX shader cache",
    "Discord cache",
    "GIMP thumbnails and recent files",
    "Java cache",
    "LibreOffice crash dumps",
    "Media Player Classic history",
    "npm cache",
    "NVIDIA shader cache",
    "Paint.NET recent files",
    "pip cache",
    "PuTTY recent sessions",
    "Spotify cache",
    "Steam web cache and logs",
    "Thunderbird crash reports",
    "uTorrent leftovers",
    "Visual Studio Code caches",
    "VLC cover cache",
    "Windows crash dumps",
    "Windows disk check fragments",
    "Windows error reports",
    "Windows Explorer histories",
    "Windows jump lists",
    "Windows setup and update logs",
    "Windows thumbnail cache",
    "WinRAR history",
};

constexpr std::array kFiles{
    // Windows
    SampleFile{WINDOWS "MEMORY.DMP",                                        33'554'432,  44, PlugIns},
    SampleFile{WINDOWS "Minidump/110309-18252-01.dmp",                         147'456,  44, PlugIns},
    SampleFile{WINDOWS "Minidump/analysis.txt",                                    980,  43, Nobody},
    SampleFile{LOCAL "CrashDumps/editor.exe.4711.dmp",                       2'097'152,   8, PlugIns},
    SampleFile{LOCAL "Microsoft/Windows/WER/ReportArchive/AppCrash_editor.exe_1/Report.wer",  12'288, 8, PlugIns},
    SampleFile{LOCAL "Microsoft/Windows/WER/ERC/queuepester.txt",                   16,   8, Nobody},
    SampleFile{DATA "Microsoft/Windows/WER/ReportQueue/NonCritical_4/Report.wer",    9'216, 12, PlugIns},
    SampleFile{LOCAL "Microsoft/Windows/Explorer/thumbcache_256.db",         4'194'304,   0, PlugIns},
    SampleFile{LOCAL "Microsoft/Windows/Explorer/thumbcache_idx.db",            16'384,   0, PlugIns},
    SampleFile{LOCAL "Microsoft/Windows/Explorer/ExplorerStartupLog.etl",       32'768,   1, Nobody},
    SampleFile{PROFILE "Pictures/Thumbs.db",                                    20'480,  80, Nobody, attribute::Hidden},
    SampleFile{ROAMING "Microsoft/Windows/Recent/AutomaticDestinations/1b4dd67f29cb1962.automaticDestinations-ms", 6'144, 1, PlugIns},
    SampleFile{ROAMING "Microsoft/Windows/Recent/CustomDestinations/28c8b86deab549a1.customDestinations-ms",       3'072, 4, PlugIns},
    SampleFile{WINDOWS "Logs/CBS/CBS.log",                                     786'432,   2, PlugIns | Search},
    SampleFile{WINDOWS "Logs/CBS/CbsPersist_20091103.cab",                      88'064,  18, PlugIns},
    SampleFile{WINDOWS "Logs/CBS/filter.txt",                                       58, 300, Nobody},
    SampleFile{WINDOWS "WindowsUpdate.log",                                    202'800,   1, PlugIns | Search},
    SampleFile{WINDOWS "inf/setupapi.dev.log",                                 311'296,   3, PlugIns | Search},
    SampleFile{WINDOWS "inf/oem1.inf",                                           4'096, 200, Nobody},
    SampleFile{"drive_c/FOUND.000/FILE0000.CHK",                                32'768, 150, PlugIns | Search},
    SampleFile{"drive_c/FOUND.000/dir0000.chk/Letter.doc",                      31'744, 150, Nobody},

    // Programs for everybody
    SampleFile{LOCAL "Google/Update/Download/{8A69D345}/120.0/120_chrome_installer.exe", 1'048'576, 30, PlugIns},
    SampleFile{LOCAL "Google/Update/GoogleUpdate.exe",                         135'168, 400, Nobody},
    SampleFile{PROFILE ".thumbnails/normal/0a1b2c3d.png",                       11'264,  20, PlugIns},
    SampleFile{PROFILE ".thumbnails/normal/readme.txt",                            120,  20, Nobody},
    SampleFile{PROFILE ".recently-used.xbel",                                    2'310,  20, PlugIns},
    SampleFile{PROFILE ".gimp-2.6/gimprc",                                       1'870,  90, Nobody},
    SampleFile{LOW "Sun/Java/Deployment/cache/6.0/12/4f5a6b-1.idx",             18'432,  60, PlugIns},
    SampleFile{LOW "Sun/Java/Deployment/deployment.properties",                  1'024,  60, Nobody},
    SampleFile{ROAMING "LibreOffice/4/crash/3f2a1b.dmp",                       131'072,  25, PlugIns},
    SampleFile{ROAMING "LibreOffice/4/crash/dump.ini",                             310,  25, Nobody},
    SampleFile{ROAMING "LibreOffice/4/user/backup/letter_0.odt",                14'336,  25, Nobody},
    SampleFile{LOCAL "Spotify/Data/0a/0a1b2c.file",                          3'145'728,   2, PlugIns},
    SampleFile{LOCAL "Spotify/Storage/index.dat",                                8'192,   2, Nobody},
    SampleFile{ROAMING "Thunderbird/Crash Reports/pending/3f2a1b.dmp",          98'304,  50, PlugIns},
    SampleFile{ROAMING "Thunderbird/Profiles/x1y2z3.default/prefs.js",           3'200,   1, Nobody},
    SampleFile{ROAMING "uTorrent/dlimagecache/0A1B2C3D4E",                       7'168,  35, PlugIns},
    SampleFile{ROAMING "uTorrent/resume.dat",                                    2'048,   1, Nobody},
    SampleFile{ROAMING "vlc/art/artistalbum/Band/Album/art.jpg",                44'032,  14, PlugIns},
    SampleFile{ROAMING "vlc/art/arturl/1a2b3c/art.png",                         61'440,  14, PlugIns},
    SampleFile{ROAMING "vlc/vlcrc",                                              4'400,  14, Nobody},

    // Programs for players
    SampleFile{LOCAL "D3DSCache/1f2e3d4c/F4EB2D6C.idx",                          6'144,   1, PlugIns},
    SampleFile{LOCAL "D3DSCache/1f2e3d4c/F4EB2D6C.val",                        524'288,   1, PlugIns},
    SampleFile{LOCAL "D3DSCacheNotes.txt",                                          64,   1, Nobody},
    SampleFile{ROAMING "discord/Cache/Cache_Data/data_0",                       45'056,   0, PlugIns},
    SampleFile{ROAMING "discord/Code Cache/js/index",                               24,   0, PlugIns},
    SampleFile{ROAMING "discord/settings.json",                                    411,   0, Nobody},
    SampleFile{ROAMING "discord/Local Storage/leveldb/CURRENT",                     16,   0, Nobody},
    SampleFile{LOCAL "NVIDIA/DXCache/a1b2c3.nvph",                             262'144,   6, PlugIns},
    SampleFile{LOCAL "NVIDIA/NvBackend/config.xml",                              5'120,   6, Nobody},
    SampleFile{DATA "NVIDIA Corporation/NV_Cache/shader_1.bin",                 65'536, 200, PlugIns},
    SampleFile{DATA "NVIDIA Corporation/Drs/nvdrsdb0.bin",                       8'192, 200, Nobody},
    SampleFile{LOCAL "Steam/htmlcache/Cache/data_0",                            45'056,   5, PlugIns},
    SampleFile{STEAM "logs/connection_log.txt",                                 20'480,   5, PlugIns},
    SampleFile{STEAM "userdata/12345678/480/remote/save.dat",                   10'240,   5, Nobody},
    SampleFile{STEAM "appcache/appinfo.vdf",                                    90'112,   5, Nobody},

    // Programs for those who program
    SampleFile{LOCAL "npm-cache/_cacache/content-v2/sha512/0a/1b/2c3d",         28'672,  10, PlugIns},
    SampleFile{LOCAL "npm-cache/_logs/2024-01-05T10_15_00_000Z-debug-0.log",     3'584,  10, PlugIns | Search},
    SampleFile{ROAMING "npm/node_modules/tool/index.js",                         2'200,  40, Nobody},
    SampleFile{LOCAL "pip/cache/wheels/3d/4e/tool-1.0-py3-none-any.whl",        40'960,  13, PlugIns},
    SampleFile{LOCAL "pip/cache/selfcheck.json",                                    90,  13, PlugIns},
    SampleFile{ROAMING "pip/pip.ini",                                               74,  90, Nobody},
    SampleFile{LOCAL "PUTTY.RND",                                                  600,   9, PlugIns},
    SampleFile{ROAMING "Code/CachedData/1a2b3c/main.code",                   1'572'864,   3, PlugIns},
    SampleFile{ROAMING "Code/logs/20240105T101500/main.log",                     4'096,   3, PlugIns | Search},
    SampleFile{ROAMING "Code/User/settings.json",                                  733,   3, Nobody},
};

// CLEAR_FOLDER leaves the folder that it names.
constexpr std::array kFolders{
    SampleFolder{LOCAL "Microsoft/Windows/WER/ReportArchive/AppCrash_editor.exe_1", PlugIns},
    SampleFolder{DATA "Microsoft/Windows/WER/ReportQueue/NonCritical_4",            PlugIns},
    SampleFolder{LOCAL "Google/Update/Download/{8A69D345}",                         PlugIns},
    SampleFolder{LOCAL "Google/Update/Download/{8A69D345}/120.0",                   PlugIns},
    SampleFolder{LOW "Sun/Java/Deployment/cache/6.0",                               PlugIns},
    SampleFolder{LOW "Sun/Java/Deployment/cache/6.0/12",                            PlugIns},
    SampleFolder{LOCAL "Spotify/Data/0a",                                           PlugIns},
    SampleFolder{ROAMING "vlc/art/artistalbum",                                     PlugIns},
    SampleFolder{ROAMING "vlc/art/artistalbum/Band",                                PlugIns},
    SampleFolder{ROAMING "vlc/art/artistalbum/Band/Album",                          PlugIns},
    SampleFolder{ROAMING "vlc/art/arturl",                                          PlugIns},
    SampleFolder{ROAMING "vlc/art/arturl/1a2b3c",                                   PlugIns},
    SampleFolder{LOCAL "D3DSCache/1f2e3d4c",                                        PlugIns},
    SampleFolder{ROAMING "discord/Cache/Cache_Data",                                PlugIns},
    SampleFolder{ROAMING "discord/Code Cache/js",                                   PlugIns},
    SampleFolder{LOCAL "npm-cache/_cacache/content-v2",                             PlugIns},
    SampleFolder{LOCAL "npm-cache/_cacache/content-v2/sha512",                      PlugIns},
    SampleFolder{LOCAL "npm-cache/_cacache/content-v2/sha512/0a",                   PlugIns},
    SampleFolder{LOCAL "npm-cache/_cacache/content-v2/sha512/0a/1b",                PlugIns},
    SampleFolder{LOCAL "pip/cache/wheels",                                          PlugIns},
    SampleFolder{LOCAL "pip/cache/wheels/3d",                                       PlugIns},
    SampleFolder{LOCAL "pip/cache/wheels/3d/4e",                                    PlugIns},
    SampleFolder{ROAMING "Code/CachedData/1a2b3c",                                  PlugIns},
    SampleFolder{ROAMING "Code/logs/20240105T101500",                               PlugIns},
};

#define EXPLORER "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"

constexpr std::array kValues{
    SampleValue{User, EXPLORER "TypedPaths",                   "url1", "C:\\Data", PlugIns},
    SampleValue{User, EXPLORER "WordWheelQuery",               "0", "salary", PlugIns},
    SampleValue{User, "Software\\7-Zip\\FM",                   "FolderHistory", "C:\\Data", PlugIns},
    SampleValue{User, "Software\\7-Zip\\FM",                   "FolderShortcuts", "C:\\Data", Nobody},
    SampleValue{User, "Software\\7-Zip\\Extraction",           "PathHistory", "C:\\Data\\old", PlugIns},
    SampleValue{User, "Software\\7-Zip\\Extraction",           "ExtractMode", "0", Nobody},
    SampleValue{User, "Software\\Gabest\\Media Player Classic\\Recent File List", "File1", "C:\\Films\\holiday.avi", PlugIns},
    SampleValue{User, "Software\\Gabest\\Media Player Classic\\Settings",         "Volume", "80", Nobody},
    SampleValue{User, "Software\\paint.net",                   "MRU0", "C:\\Users\\<user>\\Pictures\\plan.png", PlugIns},
    SampleValue{User, "Software\\paint.net",                   "MRUMax", "8", Nobody},
    SampleValue{User, "Software\\SimonTatham\\PuTTY\\Jumplist",        "Recent sessions", "office", PlugIns},
    SampleValue{User, "Software\\SimonTatham\\PuTTY\\Jumplist",        "Version", "1", Nobody},
    SampleValue{User, "Software\\SimonTatham\\PuTTY\\Sessions\\office", "HostName", "office.example", Nobody},
    SampleValue{User, "Software\\WinRAR\\ArcHistory",          "0", "C:\\Data\\photos.rar", PlugIns},
    SampleValue{User, "Software\\WinRAR\\DialogEditHistory\\ExtrPath",  "0", "C:\\Data\\photos", PlugIns},
    SampleValue{User, "Software\\WinRAR\\DialogEditHistory\\FindNames", "0", "*.jpg", Nobody},
    SampleValue{User, "Software\\WinRAR\\Favorites",           "0", "C:\\Data", Nobody},
};
// clang-format on

#undef WINDOWS
#undef DATA
#undef PROFILE
#undef LOCAL
#undef LOW
#undef ROAMING
#undef STEAM
#undef EXPLORER

}  // namespace

SampleTables plugInTraces() {
    return {kFiles, kFolders, kValues, {}};
}

std::span<const char* const> samplePlugIns() {
    return kPlugIns;
}

}  // namespace tidvane::frontend
