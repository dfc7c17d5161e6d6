// Traces of Chrome, from the files of 2010 to those of today, in one profile; and a second profile.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

using namespace taken_by;

#define ROOT "drive_c/Users/<user>/AppData/Local/Google/Chrome/User Data/"
#define PROFILE ROOT "Default/"
#define SECOND ROOT "Profile 1/"

// clang-format off
constexpr std::array kFiles{
    // History, open tabs, most visited pages
    SampleFile{PROFILE "History",                             163'840,   0, Chrome},
    SampleFile{PROFILE "Archived History",                     73'728, 120, Chrome},
    SampleFile{PROFILE "Visited Links",                       131'072,   0, Chrome},
    SampleFile{PROFILE "Current Tabs",                          9'044,   1, Chrome},
    SampleFile{PROFILE "Last Tabs",                             8'812,   2, Chrome},
    SampleFile{PROFILE "History Provider Cache",               30'221,   1, Chrome},
    SampleFile{PROFILE "Network Action Predictor",             45'056,   1, Chrome},
    SampleFile{PROFILE "History Index 2010-06",                61'440, 200, Chrome},
    SampleFile{PROFILE "History Index 2010-07",                20'480, 170, Chrome},
    SampleFile{PROFILE "Top Sites",                            81'920,   0, Chrome},
    // The last session; that of today has a folder
    SampleFile{PROFILE "Current Session",                      17'603, 100, Chrome},
    SampleFile{PROFILE "Last Session",                         16'411, 101, Chrome},
    SampleFile{PROFILE "Sessions/Session_13300000000000001",   21'344,   0, Nobody},
    SampleFile{PROFILE "Sessions/Tabs_13300000000000002",      19'007,   0, Nobody},
    // Download list, and with it form entries and search engines
    SampleFile{PROFILE "Web Data",                            122'880,   0, Chrome},
    // Cookies and local storage; the cookies of today have a folder
    SampleFile{PROFILE "Cookies",                              28'672, 100, Chrome},
    SampleFile{PROFILE "Network/Cookies",                      20'480,   0, Nobody},
    SampleFile{PROFILE "Network/Network Persistent State",      1'873,   0, Nobody},
    SampleFile{PROFILE "Local Storage/http_www.example.org_0.localstorage", 3'072, 90, Chrome},
    SampleFile{PROFILE "Local Storage/leveldb/000003.log",      1'466,   0, Chrome | Search},
    SampleFile{PROFILE "Local Storage/leveldb/CURRENT",            16,  30, Chrome},
    SampleFile{PROFILE "Local Storage/leveldb/LOG.old",           311,   1, Chrome | Search},
    SampleFile{PROFILE "databases/Databases.db",                7'168,  90, Chrome},
    SampleFile{PROFILE "databases/http_docs.example_0/1",       5'120,  90, Chrome},
    // Caches
    SampleFile{PROFILE "Cache/data_0",                         45'056, 100, Chrome},
    SampleFile{PROFILE "Cache/data_1",                        270'336, 100, Chrome},
    SampleFile{PROFILE "Cache/f_000001",                       60'218, 100, Chrome},
    SampleFile{PROFILE "Cache/index",                         262'512, 100, Chrome},
    SampleFile{PROFILE "Cache/Cache_Data/data_0",              45'056,   0, Chrome},
    SampleFile{PROFILE "Cache/Cache_Data/f_00000a",            38'119,   0, Chrome},
    SampleFile{PROFILE "Media Cache/data_0",                   45'056, 100, Chrome},
    SampleFile{PROFILE "JumpListIcons/A1B2.tmp",                1'406,   3, Chrome},
    SampleFile{PROFILE "JumpListIconsOld/C3D4.tmp",             1'406,   9, Chrome},
    SampleFile{PROFILE "Code Cache/js/index",                      24,   0, Nobody},
    SampleFile{PROFILE "GPUCache/data_1",                     270'336,   0, Nobody},
    SampleFile{PROFILE "Service Worker/CacheStorage/index.txt",   190,   5, Nobody},
    // Journals of all databases, those of the bookmarks' neighbours too
    SampleFile{PROFILE "History-journal",                           0,   0, Chrome},
    SampleFile{PROFILE "History Index 2010-07-journal",         2'056, 170, Chrome},
    SampleFile{PROFILE "Top Sites-journal",                         0,   0, Chrome},
    SampleFile{PROFILE "Cookies-journal",                       4'616, 100, Chrome},
    SampleFile{PROFILE "Web Data-journal",                          0,   0, Chrome},
    SampleFile{PROFILE "Login Data-journal",                        0,   8, Chrome},
    SampleFile{PROFILE "Favicons-journal",                      8'720,   0, Chrome},
    SampleFile{ROOT "Safe Browsing Cookies-journal",                0,  20, Chrome},
    SampleFile{PROFILE "Network/Cookies-journal",                   0,   0, Nobody},

    // What people keep
    SampleFile{PROFILE "Bookmarks",                            11'870,   5, Nobody},
    SampleFile{PROFILE "Bookmarks.bak",                        11'602,   6, Search},
    SampleFile{PROFILE "Preferences",                          20'377,   0, Nobody},
    SampleFile{PROFILE "Secure Preferences",                   31'990,   0, Nobody},
    SampleFile{PROFILE "Login Data",                           18'432,   8, Nobody},
    SampleFile{PROFILE "Favicons",                            147'456,   0, Nobody},
    SampleFile{PROFILE "Shortcuts",                            20'480,   1, Nobody},
    SampleFile{PROFILE "Extensions/abcdefghijklmnop/1.0_0/manifest.json", 702, 60, Nobody},
    SampleFile{PROFILE "Extension State/000005.log",              880,   1, Search},
    SampleFile{PROFILE "Extension State/MANIFEST-000001",          41,  30, Nobody},
    SampleFile{ROOT "Local State",                              8'803,   0, Nobody},
    SampleFile{ROOT "Safe Browsing Cookies",                    6'144,  20, Nobody},
    SampleFile{ROOT "First Run",                                    0, 300, Nobody},

    // The second profile
    SampleFile{SECOND "History",                              118'784,   2, Nobody},
    SampleFile{SECOND "Cookies",                               20'480,   2, Nobody},
    SampleFile{SECOND "Cookies-journal",                            0,   2, Nobody},
    SampleFile{SECOND "Bookmarks",                              2'190,   2, Nobody},
    SampleFile{SECOND "Cache/data_0",                          45'056,   2, Nobody},
    SampleFile{SECOND "Local Storage/http_www.example.org_0.localstorage", 3'072, 2, Nobody},
};

constexpr std::array kFolders{
    SampleFolder{PROFILE "Local Storage/leveldb",           Chrome},
    SampleFolder{PROFILE "databases/http_docs.example_0",   Chrome},
    SampleFolder{PROFILE "Cache/Cache_Data",                Chrome},
};
// clang-format on

#undef ROOT
#undef PROFILE
#undef SECOND

}  // namespace

SampleTables chromeTraces() {
    return {kFiles, kFolders, {}, {}};
}

}  // namespace tidvane::frontend
