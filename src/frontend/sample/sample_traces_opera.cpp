// Traces of Opera 9 to 12, and what the Opera of today has in other places.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

using namespace taken_by;

#define LOCAL "drive_c/Users/<user>/AppData/Local/"
#define ROAMING "drive_c/Users/<user>/AppData/Roaming/"
#define PROFILE ROAMING "Opera/Opera/"
#define CACHES LOCAL "Opera/Opera/"
#define WIDGETS "Opera/Opera Widget Installer/"

// clang-format off
constexpr std::array kFiles{
    // History, typed addresses, searches, the last session; the bin takes the folder of all sessions
    SampleFile{PROFILE "global.dat",                         70'144, 800, Opera},
    SampleFile{PROFILE "opera.dir",                           2'304, 800, Opera},
    SampleFile{PROFILE "global_history.dat",                 91'422,   1, Opera},
    SampleFile{PROFILE "vlink4.dat",                         12'880,   1, Opera},
    SampleFile{PROFILE "typed_history.xml",                     904,   1, Opera},
    SampleFile{PROFILE "search_field_history.dat",              233,   5, Opera},
    SampleFile{PROFILE "sessions/autosave.win",              16'018,   1, Opera},
    SampleFile{PROFILE "sessions/autosave.win.bak",          15'770,   2, Opera | Search},
    SampleFile{PROFILE "sessions/work.win",                   9'102,  60, recycling(Opera)},
    SampleFile{CACHES "vps/0000/md.dat",                     40'960,   1, Opera},
    SampleFile{CACHES "vps/0000/adoc.bx",                   131'072,   1, Opera},
    SampleFile{CACHES "vps/0000/wb.vx",                      65'536,   1, Opera},
    // Cookies and local storage; of the roaming part the index alone goes
    SampleFile{PROFILE "cookies4.dat",                       22'117,   1, Opera},
    SampleFile{PROFILE "pstorage/psindex.dat",                  488,   2, Opera},
    SampleFile{PROFILE "pstorage/02/11/00000001",             2'090,   2, Nobody},
    SampleFile{CACHES "pstorage/psindex.dat",                   312,   2, Opera},
    SampleFile{CACHES "pstorage/00/0A/00000000",              1'544,   2, Opera},
    // Downloads
    SampleFile{PROFILE "download.dat",                        3'610,   4, Opera},
    // Caches
    SampleFile{CACHES "cache/dcache4.url",                   27'904,   1, Opera},
    SampleFile{CACHES "cache/g_0001/opr00002.tmp",           52'311,   1, Opera},
    SampleFile{CACHES "cache/sesn/opr00003.tmp",              8'420,   1, Opera},
    SampleFile{CACHES "opcache/assoc000/g_0000/opr00010.tmp", 6'001,   6, Opera},
    SampleFile{CACHES "temporary_downloads/manual.pdf",     812'033,   6, Opera},
    SampleFile{CACHES "thumbnails/2f6e0c.png",               19'380,  15, Opera},
    SampleFile{CACHES "application_cache/mcache/index.dat",   1'024,  15, Nobody},
    SampleFile{CACHES "mail/store/account1/mailbase.dat",    32'768,   1, Nobody},
    // Icons of web sites
    SampleFile{CACHES "icons/http%3A%2F%2Fnews.example%2Ffavicon.ico",  1'150, 40, Opera},
    SampleFile{CACHES "icons/cache/dcache4.url",                          904, 40, Opera},
    // Widgets
    SampleFile{ROAMING WIDGETS "global_history.dat",          1'020, 300, Opera},
    SampleFile{ROAMING WIDGETS "vlink4.dat",                    640, 300, Opera},
    SampleFile{ROAMING WIDGETS "typed_history.xml",             120, 300, Opera},
    SampleFile{ROAMING WIDGETS "cookies4.dat",                  515, 300, Opera},
    SampleFile{ROAMING WIDGETS "operaprefs.ini",                410, 300, Nobody},
    SampleFile{LOCAL WIDGETS "vps/0000/md.dat",               4'096, 300, Opera},
    SampleFile{LOCAL WIDGETS "opcache/dcache4.url",             320, 300, Opera},
    SampleFile{LOCAL WIDGETS "cache/dcache4.url",               320, 300, Opera},
    SampleFile{LOCAL WIDGETS "icons/clock.ico",               1'150, 300, Opera},
    SampleFile{LOCAL WIDGETS "widgets/clock.zip",            48'220, 300, Nobody},

    // What people keep
    SampleFile{PROFILE "bookmarks.adr",                      18'004,   8, Nobody},
    SampleFile{PROFILE "contacts.adr",                        1'066,  90, Nobody},
    SampleFile{PROFILE "notes.adr",                             733,  30, Nobody},
    SampleFile{PROFILE "wand.dat",                            2'480,  30, Nobody},
    SampleFile{PROFILE "operaprefs.ini",                      3'117,   1, Nobody},
    SampleFile{PROFILE "speeddial.ini",                         844,  10, Nobody},
    SampleFile{PROFILE "opcert6.dat",                        90'112, 200, Nobody},

    // Older and newer ones, where no task looks
    SampleFile{"drive_c/Program Files/Opera/profile/cookies4.dat",      3'320, 900, Nobody},
    SampleFile{"drive_c/Program Files/Opera/profile/cache4/opr00001.htm", 9'870, 900, Nobody},
    SampleFile{ROAMING "Opera/Opera 9/profile/global.dat",             44'032, 950, Nobody},
    SampleFile{ROAMING "Opera Software/Opera Stable/History",         159'744,   0, Nobody},
    SampleFile{ROAMING "Opera Software/Opera Stable/Network/Cookies",  65'536,   0, Nobody},
    SampleFile{LOCAL "Opera Software/Opera Stable/Cache/Cache_Data/data_0", 45'056, 0, Nobody},
};

constexpr std::array kFolders{
    SampleFolder{PROFILE "sessions",               recycling(Opera)},
    SampleFolder{CACHES "vps/0000",                Opera},
    SampleFolder{CACHES "pstorage/00",             Opera},
    SampleFolder{CACHES "pstorage/00/0A",          Opera},
    SampleFolder{CACHES "cache/g_0001",            Opera},
    SampleFolder{CACHES "cache/sesn",              Opera},
    SampleFolder{CACHES "opcache/assoc000",        Opera},
    SampleFolder{CACHES "opcache/assoc000/g_0000", Opera},
    SampleFolder{CACHES "icons/cache",             Opera},
    SampleFolder{LOCAL WIDGETS "vps/0000",         Opera},
};
// clang-format on

#undef LOCAL
#undef ROAMING
#undef PROFILE
#undef CACHES
#undef WIDGETS

}  // namespace

SampleTables operaTraces() {
    return {kFiles, kFolders, {}, {}};
}

}  // namespace tidvane::frontend
