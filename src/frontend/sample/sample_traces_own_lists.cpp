// Traces for the user's own lists and for the junk search, and these lists.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

namespace attribute = platform::attribute;
using namespace taken_by;
using enum SampleHive;

// clang-format off
constexpr std::array kOwnFolders{
    "C:\\Scratch",
    "C:\\Users\\<user>\\AppData\\Local\\Example Player\\Covers",
};

constexpr std::array kOwnFiles{
    "C:\\Users\\<user>\\AppData\\Roaming\\Example Player\\recent.xml",
    "C:\\Users\\<user>\\Desktop\\to do.txt",
    "HKEY_CURRENT_USER\\Software\\Example\\Player\\Recent",
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Example\\Player\\Statistics",
};

constexpr std::array kMasks{
    "*.$$$", "*.bak", "*.chk", "*.gid", "*.old", "~*.*", "*.001", "*.002", "*.log",
};

#define PROFILE "drive_c/Users/<user>/"
#define PROGRAMS "drive_c/Program Files/"

constexpr std::array kFiles{
    // Own folders, with all that is in them
    SampleFile{"drive_c/Scratch/notes.txt",                                 2'140,  7, Custom},
    SampleFile{"drive_c/Scratch/render/frame0001.png",                     48'330,  7, Custom},
    SampleFile{"drive_c/Scratch/render/frame0002.png",                     48'201,  7, Custom},
    SampleFile{"drive_c/Scratch/render/preview/small.png",                  5'120,  7, Custom},
    SampleFile{"drive_c/Scratch/render/render.log",                           912,  7, Custom | Search},
    SampleFile{"drive_c/Scratchpad/keep.txt",                                 700,  7, Nobody},
    SampleFile{PROFILE "AppData/Local/Example Player/Covers/0001.jpg",     22'001,  5, Custom},
    SampleFile{PROFILE "AppData/Local/Example Player/library.db",          90'112,  5, Nobody},
    // Own files
    SampleFile{PROFILE "AppData/Roaming/Example Player/recent.xml",         1'204,  2, Custom},
    SampleFile{PROFILE "AppData/Roaming/Example Player/settings.xml",       2'660,  2, Nobody},
    SampleFile{PROFILE "Desktop/to do.txt",                                   333,  1, Custom},
    SampleFile{PROFILE "Desktop/to do 2.txt",                                 410,  1, Nobody},

    // Junk
    SampleFile{"drive_c/Windows/System32/perfc009.bak",                    70'656, 90, Search},
    SampleFile{"drive_c/Windows/Help/MSPAINT.GID",                          8'628, 300, Search},
    SampleFile{"drive_c/Windows/ntbtlog.old",                              14'882, 60, Search},
    SampleFile{PROGRAMS "Editor/editor.bak",                               51'200, 40, Search},
    SampleFile{PROGRAMS "Editor/install.log",                               3'401, 400, Search},
    SampleFile{PROGRAMS "Editor/setup.$$$",                                   128, 400, Search},
    SampleFile{PROGRAMS "Editor/editor.exe",                              204'800, 400, Nobody},
    SampleFile{PROFILE "Documents/Letter.bak",                             31'232,  6, Search},
    SampleFile{PROFILE "Documents/~$Letter.doc",                              162,  6, Search},
    SampleFile{PROFILE "Documents/Letter.bak.doc",                         30'208,  6, Nobody},
    SampleFile{PROFILE "Documents/log.txt",                                   512,  6, Nobody},
    // What the search does not see; but a mask that goes to the bin takes hidden files too.
    SampleFile{"drive_c/Windows/hidden.log",                                  200, 10, recycling(Search), attribute::Hidden},
    SampleFile{"outside/outside.log",                                         200, 10, Nobody},
    // What is set aside from it. Of two certificates in one folder only the first is spared, and a list of an
    // installation only by its short name.
    SampleFile{"drive_c/ProgramData/Microsoft/OFFICE/DATA/opa12.bak",       8'206, 200, Nobody},
    SampleFile{"drive_c/ProgramData/Microsoft/OFFICE/DATA/opa12.dat",       8'206, 200, Nobody},
    SampleFile{"drive_c/ProgramData/Microsoft/OFFICE/DATA/opa11.bak",       8'206, 800, Search},
    SampleFile{PROGRAMS "Common Files/Certificates/cacert.001",             1'310, 500, Nobody},
    SampleFile{PROGRAMS "Common Files/Certificates/cacert.002",             1'310, 500, Search},
    SampleFile{PROGRAMS "Common Files/Certificates/Old/cacert.002",         1'287, 900, Nobody},
    SampleFile{PROGRAMS "Viewer/uninstal.log",                              5'506, 700, Nobody},
    SampleFile{PROGRAMS "Viewer/setup.001",                                 9'216, 700, Search},
    SampleFile{PROGRAMS "Viewer 2/uninstall.log",                           5'881, 300, Search},
};

constexpr std::array kFolders{
    SampleFolder{"drive_c/Scratch",                                   Custom},
    SampleFolder{"drive_c/Scratch/render",                            Custom},
    SampleFolder{"drive_c/Scratch/render/preview",                    Custom},
    SampleFolder{PROFILE "AppData/Local/Example Player/Covers",       Custom},
};

constexpr std::array kValues{
    SampleValue{User,    "Software\\Example\\Player\\Recent",         "0", "C:\\Music\\song.mp3", Custom},
    SampleValue{User,    "Software\\Example\\Player\\Recent\\Radio",  "0", "http://radio.example.org/", Custom},
    SampleValue{User,    "Software\\Example\\Player\\Settings",       "Volume", "50", Nobody},
    SampleValue{Machine, "SOFTWARE\\Example\\Player\\Statistics",     "Starts", "417", Custom},
    SampleValue{Machine, "SOFTWARE\\Example\\Player",                 "Path", "C:\\Program Files\\Example Player", Nobody},
};
// clang-format on

#undef PROFILE
#undef PROGRAMS

}  // namespace

SampleTables ownListTraces() {
    return {kFiles, kFolders, kValues, {}};
}

std::span<const char* const> sampleOwnFolders() {
    return kOwnFolders;
}

std::span<const char* const> sampleOwnFiles() {
    return kOwnFiles;
}

std::span<const char* const> sampleMasks() {
    return kMasks;
}

}  // namespace tidvane::frontend
