// The Windows systems of this host, for a window in which one of them is chosen.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tidvane::frontend {

enum class SystemKind { Embedded, Wine, Steam, Lutris, Bottles, PlayOnLinux, CrossOver, Volume };

// The name of a kind, for a column: "Steam", "Windows volume".
const char* kindName(SystemKind kind);

struct FoundSystem {
    SystemKind kind = SystemKind::Wine;
    std::string directory;  // canonical; what --machine takes
    std::string name;       // of the game, the bottle, the volume's label; UTF-8
};

// What a directory is of which nothing else is known: a volume, a prefix that Wine has filled, or a machine of our own.
// What is none of them counts as a prefix of Wine's.
SystemKind kindOf(const std::string& directory);

// Where is looked. Empty texts are places that are passed over.
struct SearchPlaces {
    std::string home;        // of the user
    std::string userData;    // the program's own data directory
    std::string winePrefix;  // $WINEPREFIX
    std::string mountTable;  // "/proc/self/mountinfo"

    // Those of this process.
    static SearchPlaces ofThisHost();
};

// Looks at folders and small files only; no registry is read. Each directory comes once, whatever ways lead to it: the
// embedded machine first, then Wine's own prefix, then the others by kind and name. What cannot be read is passed over
// in silence, and so is what is no directory of the user's: nothing is ever opened for writing, started or mounted.
std::vector<FoundSystem> findSystems(const SearchPlaces& places);

struct SystemDetails {
    std::string version;  // "Windows 7 Service Pack 1"; empty: unknown
    std::string user;
    std::uint64_t freeBytes = 0;  // of the volume of drive C:
    std::uint64_t totalBytes = 0;
    bool canBeOpened = false;
    bool canBeCleaned = false;  // now; a running Wine server stands against it, or its rights
    std::string problem;        // one sentence, where one of the two is false
};

// Opens the system for reading for a moment, which takes as long as its registry is large: some 10 to 100 ms. To be
// asked entry by entry, behind the first paint.
SystemDetails describe(const FoundSystem& system);

}  // namespace tidvane::frontend
