// Traces of Internet Explorer: its cache, cookies and history with their indexes, its lists and its folders.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

namespace attribute = platform::attribute;
using namespace taken_by;
using enum SampleHive;

#define WINDOWS "drive_c/Windows/"
#define LOCAL "drive_c/Users/<user>/AppData/Local/"
#define ROAMING "drive_c/Users/<user>/AppData/Roaming/"
#define PAGES LOCAL "Microsoft/Windows/Temporary Internet Files/"
#define COOKIES ROAMING "Microsoft/Windows/Cookies"
#define HISTORY LOCAL "Microsoft/Windows/History/"

// clang-format off
constexpr unsigned kOfTheSystem = attribute::Hidden | attribute::System;

constexpr std::array kFiles{
    // Beside what the indexes below know: files that none of them knows any more go too, and what the browser keeps.
    SampleFile{PAGES "Content.IE5/desktop.ini",                     67, 200, Explorer, kOfTheSystem},
    SampleFile{PAGES "Content.IE5/5K2Q8XN1/orphan[1].gif",       4'310,  80, Explorer},
    SampleFile{PAGES "Content.IE5/5K2Q8XN1/desktop.ini",            67, 200, Explorer, kOfTheSystem},
    SampleFile{PAGES "desktop.ini",                                 67, 200, recycling(Explorer), kOfTheSystem},
    SampleFile{COOKIES "/anna@old.example[3].txt",                 211, 500, Explorer},
    SampleFile{COOKIES "/R4T7WQ0Z.txt",                            198,   9, Explorer},
    SampleFile{HISTORY "desktop.ini",                              113, 200, Nobody, kOfTheSystem},
    SampleFile{HISTORY "History.IE5/desktop.ini",                  113, 200, Nobody, kOfTheSystem},

    // Open tabs
    SampleFile{LOCAL "Microsoft/Internet Explorer/Recovery/Active/{0A1B2C3D-D6E1-11DE-9C4A-001122334455}.dat",        6'144, 1, Explorer},
    SampleFile{LOCAL "Microsoft/Internet Explorer/Recovery/Last Active/RecoveryStore.{4E5F6A7B-D6E0-11DE-9C4A-001122334455}.dat", 4'608, 2, Explorer},
    SampleFile{LOCAL "Microsoft/Internet Explorer/frameiconcache.dat",             10'842,  3, Nobody},
    SampleFile{LOCAL "Microsoft/Internet Explorer/Services/search_{0633EE93}.ico",  1'150, 90, Nobody},

    // Controls from web sites, and pages to be read offline
    SampleFile{WINDOWS "Downloaded Program Files/swflash.inf",                      1'024, 400, Explorer},
    SampleFile{WINDOWS "Downloaded Program Files/CONFLICT.1/viewer.ocx",          262'144, 420, Explorer},
    SampleFile{WINDOWS "Downloaded Program Files/desktop.ini",                         65, 900, recycling(Explorer), kOfTheSystem},
    SampleFile{WINDOWS "Offline Web Pages/{7FC0B86E-5FA7-11D1-BC7C-00C04FD929DB}",  2'048, 700, Explorer},
    SampleFile{WINDOWS "Offline Web Pages/desktop.ini",                                65, 900, recycling(Explorer), kOfTheSystem},

    // Further index files, emptied only where files are overwritten
    SampleFile{ROAMING "Microsoft/Windows/IECompatCache/index.dat",                32'768,  5, overwriting(Explorer)},
    SampleFile{ROAMING "Microsoft/Windows/IETldCache/index.dat",                  262'144, 50, overwriting(Explorer)},
    SampleFile{ROAMING "Microsoft/Windows/PrivacIE/index.dat",                     16'384,  5, overwriting(Explorer)},
    SampleFile{ROAMING "Microsoft/Windows/IEDownloadHistory/index.dat",            32'768,  4, overwriting(Explorer)},
    SampleFile{LOCAL "Microsoft/Internet Explorer/DOMStore/index.dat",             32'768,  2, overwriting(Explorer)},
    SampleFile{LOCAL "Microsoft/Internet Explorer/DOMStore/8CZ4K2LM/www.example[1].xml", 330, 2, overwriting(Explorer)},
    SampleFile{LOCAL "Microsoft/Feeds Cache/index.dat",                            32'768,  6, Nobody},

    // What people keep
    SampleFile{"drive_c/Users/<user>/Favorites/Links/Weather.url",                    130, 60, Nobody},
};

// What a task empties loses the folders in it.
constexpr std::array kFolders{
    SampleFolder{PAGES "Content.IE5",                                    Explorer},
    SampleFolder{PAGES "Content.IE5/5K2Q8XN1",                           Explorer},
    SampleFolder{PAGES "Content.IE5/W7ZP4R6T",                           Explorer},
    SampleFolder{PAGES "Low",                                            Explorer},
    SampleFolder{PAGES "Low/Content.IE5",                                Explorer},
    SampleFolder{PAGES "Low/Content.IE5/9JH3L2MQ",                       Explorer},
    SampleFolder{COOKIES "/Low",                                         Explorer},
    SampleFolder{HISTORY "History.IE5/MSHist012009110320091104",         Explorer},
    SampleFolder{WINDOWS "Downloaded Program Files/CONFLICT.1",          Explorer},
    SampleFolder{LOCAL "Microsoft/Internet Explorer/DOMStore/8CZ4K2LM",  overwriting(Explorer)},
};

constexpr std::array kUrls{
    SampleUrl{PAGES "Content.IE5",     "http://news.example/",                "5K2Q8XN1/news[1].htm",   18'204, 1},
    SampleUrl{PAGES "Content.IE5",     "http://news.example/title.jpg",       "W7ZP4R6T/title[1].jpg",  41'377, 1},
    SampleUrl{PAGES "Content.IE5",     "http://shop.example/basket?item=417", "W7ZP4R6T/basket[1].htm",  9'120, 3},
    SampleUrl{PAGES "Content.IE5",     "http://shop.example/style.css",       "5K2Q8XN1/style[2].css",   3'488, 3},
    SampleUrl{PAGES "Low/Content.IE5", "http://www.example.org/",             "9JH3L2MQ/example[1].htm", 2'966, 2},

    SampleUrl{COOKIES,       "Cookie:anna@shop.example/",    "anna@shop.example[1].txt", 264, 3},
    SampleUrl{COOKIES,       "Cookie:anna@news.example/",    "0A1B2C3D.txt",             187, 1},
    SampleUrl{COOKIES "/Low", "Cookie:anna@www.example.org/", "anna@www.example[2].txt",  142, 2},

    SampleUrl{HISTORY "History.IE5", "Visited: anna@http://news.example/",                  "", 0, 1},
    SampleUrl{HISTORY "History.IE5", "Visited: anna@http://shop.example/basket?item=417",   "", 0, 3},
    SampleUrl{HISTORY "History.IE5", "Visited: anna@file:///C:/Users/Anna/Documents/Letter.doc", "", 0, 6},
    SampleUrl{HISTORY "History.IE5/MSHist012009110320091104", ":2009110320091104: anna@http://news.example/",   "", 0, 18},
    SampleUrl{HISTORY "History.IE5/MSHist012009110320091104", ":2009110320091104: anna@:Host: news.example",    "", 0, 18},
    SampleUrl{HISTORY "Low/History.IE5", "Visited: anna@http://www.example.org/",           "", 0, 2},
};

#define EXPLORER "Software\\Microsoft\\Internet Explorer\\"
#define CACHES "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\5.0\\Cache\\Extensible Cache\\"

constexpr std::array kValues{
    SampleValue{User, EXPLORER "TypedURLs",              "url1", "http://news.example/", Explorer},
    SampleValue{User, EXPLORER "TypedURLs",              "url2", "http://shop.example/", Explorer},
    SampleValue{User, EXPLORER "TypedURLsTime",          "url1", "0", Explorer},
    // Form entries, and the passwords with them
    SampleValue{User, EXPLORER "IntelliForms\\Storage1", "0A1B2C3D", "name", Explorer},
    SampleValue{User, EXPLORER "IntelliForms\\Storage2", "4E5F6A7B", "password", Explorer},
    SampleValue{User, EXPLORER "IntelliForms",           "AskUser", "0", Explorer},
    // The history of a day
    SampleValue{User, CACHES "MSHist012009110320091104", "CachePrefix", ":2009110320091104: ", Explorer},
    SampleValue{User, CACHES "MSHist012009110320091104", "CachePath", "%USERPROFILE%\\AppData\\Local\\Microsoft\\Windows\\History\\History.IE5\\MSHist012009110320091104", Explorer},
    // The button of a toolbar
    SampleValue{Machine, EXPLORER "Extensions\\{c95fe080-8f5d-11d2-a20b-00aa003c157a}", "ButtonText", "Related links", Explorer},
    SampleValue{Machine, EXPLORER "Extensions\\{c95fe080-8f5d-11d2-a20b-00aa003c157a}", "MenuText", "Show related links", Explorer},

    SampleValue{User, EXPLORER "Main",                   "Start Page", "http://news.example/", Nobody},
    SampleValue{User, EXPLORER "Main",                   "Use FormSuggest", "yes", Nobody},
    SampleValue{User, EXPLORER "Toolbar",                "Locked", "1", Nobody},
    SampleValue{User, EXPLORER "SearchScopes",           "DefaultScope", "{0633EE93}", Nobody},
    SampleValue{User, CACHES "feedplat",                 "CachePrefix", "feedplat:", Nobody},
    SampleValue{Machine, EXPLORER "Extensions\\{e2e2dd38-d088-4134-82b7-f2ba38496583}", "MenuText", "Diagnose connection problems", Nobody},
    SampleValue{Machine, EXPLORER "Main",                "Default_Page_URL", "http://www.example.org/", Nobody},
};
// clang-format on

#undef WINDOWS
#undef LOCAL
#undef ROAMING
#undef PAGES
#undef COOKIES
#undef HISTORY
#undef EXPLORER
#undef CACHES

}  // namespace

SampleTables internetExplorerTraces() {
    return {kFiles, kFolders, kValues, {}};
}

std::span<const SampleUrl> sampleUrls() {
    return kUrls;
}

}  // namespace tidvane::frontend
