// Traces of Safari 4 and 5 for Windows.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

using namespace taken_by;

#define PROFILE "drive_c/Users/<user>/AppData/Roaming/Apple Computer/Safari/"
#define LOCAL "drive_c/Users/<user>/AppData/Local/Apple Computer/Safari/"

// clang-format off
constexpr std::array kFiles{
    SampleFile{PROFILE "History.plist",                           33'018, 1, Safari},
    SampleFile{PROFILE "LastSession.plist",                        4'711, 1, Safari},
    SampleFile{LOCAL "Webpage Previews/0E1F2A3B4C5D.jpeg",        28'330, 1, Safari},
    SampleFile{LOCAL "Webpage Previews/6A7B8C9D0E1F.png",         61'904, 2, Safari},
    SampleFile{LOCAL "History/http%3A%2F%2Fnews.example%2F.webhistory",        902, 1, Safari},
    SampleFile{LOCAL "History/http%3A%2F%2Fshop.example%2Fbasket.webhistory", 1'240, 3, Safari},
    SampleFile{PROFILE "Cookies/Cookies.plist",                    7'226, 1, Safari},
    SampleFile{LOCAL "LocalStorage/http_news.example_0.localstorage", 3'072, 5, Safari},
    SampleFile{LOCAL "Cache.db",                                 917'504, 1, Safari},
    SampleFile{PROFILE "Form Values.plist",                          588, 9, Safari},

    // What people keep
    SampleFile{PROFILE "Bookmarks.plist",                         12'466, 20, Nobody},
    SampleFile{PROFILE "TopSites.plist",                           5'120,  1, Nobody},
    SampleFile{PROFILE "Downloads.plist",                            411, 30, Nobody},
    SampleFile{LOCAL "WebpageIcons.db",                          104'448,  1, Nobody},
    SampleFile{LOCAL "SafeBrowsing.db",                          655'360,  4, Nobody},
    SampleFile{LOCAL "Databases/Databases.db",                     7'168, 60, Nobody},
    SampleFile{"drive_c/Users/<user>/AppData/Roaming/Apple Computer/Preferences/com.apple.Safari.plist", 3'330, 1, Nobody},
};
// clang-format on

#undef PROFILE
#undef LOCAL

}  // namespace

SampleTables safariTraces() {
    return {kFiles, {}, {}, {}};
}

}  // namespace tidvane::frontend
