// Traces of Firefox, from the files of version 2 to those of today, in one profile; and a second profile.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

using namespace taken_by;

#define LOCAL "drive_c/Users/<user>/AppData/Local/Mozilla/"
#define ROAMING "drive_c/Users/<user>/AppData/Roaming/Mozilla/Firefox/"
#define PROFILE ROAMING "Profiles/k3x9a1b2.default/"
#define CACHES LOCAL "Firefox/Profiles/k3x9a1b2.default/"
#define WORK ROAMING "Profiles/z8y7x6w5.work/"

// clang-format off
constexpr std::array kTexts{
    SampleText{ROAMING "profiles.ini", 300,
               "[General]\r\nStartWithLastProfile=1\r\n\r\n"
               "[Profile0]\r\nName=default\r\nIsRelative=1\r\nPath=Profiles/k3x9a1b2.default\r\nDefault=1\r\n\r\n"
               "[Profile1]\r\nName=work\r\nIsRelative=1\r\nPath=Profiles/z8y7x6w5.work\r\n"},
    SampleText{PROFILE "prefs.js", 1,
               "// Mozilla User Preferences\r\n\r\n"
               "user_pref(\"browser.startup.homepage\", \"http://news.example/\");\r\n"},
};

constexpr std::array kFiles{
    // History and form entries; today the history lies beside the bookmarks, and stays with them
    SampleFile{PROFILE "history.dat",                               96'320, 700, Firefox},
    SampleFile{PROFILE "formhistory.sqlite",                        23'552,   1, Firefox},
    SampleFile{PROFILE "places.sqlite",                          1'056'768,   0, Nobody},
    SampleFile{PROFILE "places.sqlite-wal",                         65'672,   0, Nobody},
    SampleFile{PROFILE "favicons.sqlite",                          229'376,   0, Nobody},
    // Cookies
    SampleFile{PROFILE "cookies.txt",                               14'208, 700, Firefox},
    SampleFile{PROFILE "cookies.sqlite",                            98'304,   0, Firefox},
    SampleFile{PROFILE "webappsstore.sqlite",                       98'304,  12, Nobody},
    SampleFile{PROFILE "storage/default/https+++news.example/.metadata-v2", 62, 8, Nobody},
    // Form entries of old, and the settings of sites
    SampleFile{PROFILE "formhistory.dat",                            6'190, 700, Firefox},
    SampleFile{PROFILE "content-prefs.sqlite",                       7'168,  20, Firefox},
    SampleFile{PROFILE "permissions.sqlite",                         2'048,  40, Nobody},
    // Downloads
    SampleFile{PROFILE "downloads.rdf",                              5'512, 700, Firefox},
    SampleFile{PROFILE "downloads.sqlite",                           3'072, 120, Firefox},
    // Searches
    SampleFile{PROFILE "search.sqlite",                              4'096, 200, Firefox},
    SampleFile{PROFILE "GoogleToolbarData/searchhistory.xml",        1'733, 400, Firefox},
    SampleFile{PROFILE "GoogleToolbarData/toolbar.cfg",                512, 400, Nobody},
    SampleFile{PROFILE "search.json.mozlz4",                         3'301,   2, Nobody},
    // The last session; that of today has other names
    SampleFile{PROFILE "sessionstore.js",                           21'940, 150, Firefox},
    SampleFile{PROFILE "sessionstore.bak",                          21'212, 150, Firefox | Search},
    SampleFile{PROFILE "sessionstore.jsonlz4",                       9'012,   0, Nobody},
    SampleFile{PROFILE "sessionstore-backups/recovery.jsonlz4",      8'844,   0, Nobody},
    SampleFile{PROFILE "sessionstore-backups/previous.jsonlz4",      7'519,   2, Nobody},
    SampleFile{PROFILE "TestPilotErrorLog.log",                      2'760, 260, Firefox | Search},
    // What people keep
    SampleFile{PROFILE "bookmarks.html",                            30'118,   9, Nobody},
    SampleFile{PROFILE "bookmarks.bak",                             30'004,  10, Search},
    SampleFile{PROFILE "bookmarkbackups/bookmarks-2009-11-03.json", 28'770,  18, Nobody},
    SampleFile{PROFILE "signons.sqlite",                             5'120,  90, Nobody},
    SampleFile{PROFILE "signons3.txt",                                 940, 500, Nobody},
    SampleFile{PROFILE "logins.json",                                1'466,  30, Nobody},
    SampleFile{PROFILE "key3.db",                                   16'384,  90, Nobody},
    SampleFile{PROFILE "key4.db",                                  294'912,  30, Nobody},
    SampleFile{PROFILE "cert8.db",                                  65'536,  90, Nobody},
    SampleFile{PROFILE "cert9.db",                                 229'376,  30, Nobody},
    SampleFile{PROFILE "localstore.rdf",                             3'480,   1, Nobody},
    SampleFile{PROFILE "extensions.rdf",                             4'207,  60, Nobody},
    SampleFile{PROFILE "extensions.json",                           14'030,   6, Nobody},
    SampleFile{PROFILE "chrome/userContent.css",                       388, 300, Nobody},

    // Caches. Those of today have other folders.
    SampleFile{CACHES "Cache/_CACHE_MAP_",                         131'348,   1, Firefox},
    SampleFile{CACHES "Cache/_CACHE_001_",                         524'288,   1, Firefox},
    SampleFile{CACHES "Cache/_CACHE_002_",                         786'432,   1, Firefox},
    SampleFile{CACHES "Cache/_CACHE_003_",                       1'048'576,   1, Firefox},
    SampleFile{CACHES "Cache/3C7F2A10d01",                          88'310,   4, Firefox},
    SampleFile{CACHES "Cache/0/1A/4F2C3d01",                        61'022,   2, Firefox},
    SampleFile{CACHES "OfflineCache/index.sqlite",                  12'288,  33, Firefox},
    SampleFile{CACHES "OfflineCache/7/3B/9D04E1-0",                  5'671,  33, Firefox},
    SampleFile{CACHES "jumpListCache/AbCdEfGh.ico",                  1'406,   7, Firefox},
    SampleFile{CACHES "startupCache/startupCache.4.little",        655'360,   1, Firefox},
    SampleFile{CACHES "startupCache/scriptCache.bin",              402'133,   1, Firefox},
    SampleFile{CACHES "cache2/index",                               20'480,   0, Nobody},
    SampleFile{CACHES "cache2/entries/0A1B2C3D4E5F60718293A4B5C6D7E8F901234567", 44'120, 0, Nobody},
    SampleFile{CACHES "thumbnails/1c9d7a3fe6.png",                  30'229,   3, Nobody},
    SampleFile{CACHES "XUL.mfl",                                 1'310'720,  90, Nobody},
    SampleFile{LOCAL "updates/308046B0AF4A39CB/updates.xml",         1'190,  14, Nobody},

    // Crash reports
    SampleFile{ROAMING "Crash Reports/InstallTime20091102152451",       10, 200, Firefox},
    SampleFile{ROAMING "Crash Reports/LastCrash",                       10,  70, Firefox},
    SampleFile{ROAMING "Crash Reports/pending/0b3c5d7e-2f41-4a6b-8c9d-1e2f3a4b5c6d.dmp",   98'304,  70, Firefox},
    SampleFile{ROAMING "Crash Reports/pending/0b3c5d7e-2f41-4a6b-8c9d-1e2f3a4b5c6d.extra",  3'120,  70, Firefox},
    SampleFile{ROAMING "Crash Reports/submitted/bp-7d1e0c52-91a4-43f7-b5d6-0f3a42091108.txt",  61, 100, Firefox},

    // The second profile
    SampleFile{WORK "cookies.sqlite",                               98'304,   3, Nobody},
    SampleFile{WORK "formhistory.sqlite",                           23'552,   3, Nobody},
    SampleFile{WORK "downloads.sqlite",                              3'072,   3, Nobody},
    SampleFile{WORK "places.sqlite",                               409'600,   3, Nobody},
    SampleFile{WORK "sessionstore.js",                               7'730,   3, Nobody},
    SampleFile{WORK "logins.json",                                     811,   3, Nobody},
    SampleFile{LOCAL "Firefox/Profiles/z8y7x6w5.work/Cache/_CACHE_001_", 262'144, 3, Nobody},
    SampleFile{LOCAL "Firefox/Profiles/z8y7x6w5.work/startupCache/startupCache.4.little", 311'296, 3, Nobody},
};

constexpr std::array kFolders{
    SampleFolder{CACHES "Cache/0",                  Firefox},
    SampleFolder{CACHES "Cache/0/1A",               Firefox},
    SampleFolder{CACHES "OfflineCache/7",           Firefox},
    SampleFolder{CACHES "OfflineCache/7/3B",        Firefox},
    SampleFolder{ROAMING "Crash Reports/pending",   Firefox},
    SampleFolder{ROAMING "Crash Reports/submitted", Firefox},
};
// clang-format on

#undef LOCAL
#undef ROAMING
#undef PROFILE
#undef CACHES
#undef WORK

}  // namespace

SampleTables firefoxTraces() {
    return {kFiles, kFolders, {}, kTexts};
}

}  // namespace tidvane::frontend
