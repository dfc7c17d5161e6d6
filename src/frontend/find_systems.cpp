#include "frontend/find_systems.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "base/text.h"
#include "frontend/places.h"
#include "frontend/system_files.h"
#include "platform/machine/machine.h"

namespace tidvane::frontend {

namespace fs = std::filesystem;
namespace machine = platform::machine;

namespace {

constexpr std::size_t kMostEntries = 2000;  // of one folder: what holds more is no list of systems

struct KindName {
    SystemKind kind;
    const char* name;
};
constexpr std::array kKindNames{
    KindName{SystemKind::Embedded, "Tidvane"},    KindName{SystemKind::Wine, "Wine"},
    KindName{SystemKind::Steam, "Steam"},         KindName{SystemKind::Lutris, "Lutris"},
    KindName{SystemKind::Bottles, "Bottles"},     KindName{SystemKind::PlayOnLinux, "PlayOnLinux"},
    KindName{SystemKind::CrossOver, "CrossOver"}, KindName{SystemKind::Volume, "Windows volume"},
};

// Folders whose own folders are prefixes, below the home directory.
struct PrefixFolder {
    SystemKind kind;
    const char* place;
};
constexpr std::array kPrefixFolders{
    PrefixFolder{SystemKind::Wine, ".local/share/wineprefixes"},
    PrefixFolder{SystemKind::Wine, "Games/Heroic/Prefixes"},
    PrefixFolder{SystemKind::Wine, "Games/Heroic/Prefixes/default"},
    PrefixFolder{SystemKind::Lutris, "Games"},
    PrefixFolder{SystemKind::Bottles, ".local/share/bottles/bottles"},
    PrefixFolder{SystemKind::Bottles, ".var/app/com.usebottles.bottles/data/bottles/bottles"},
    PrefixFolder{SystemKind::PlayOnLinux, ".PlayOnLinux/wineprefix"},
    PrefixFolder{SystemKind::PlayOnLinux, ".var/app/org.phoenicis.playonlinux/data/PlayOnLinux/wineprefix"},
    PrefixFolder{SystemKind::CrossOver, ".cxoffice"},
};

// Roots of Steam, below the home directory. Several of them are often one.
constexpr std::array kSteamRoots{
    ".steam/steam",
    ".steam/root",
    ".local/share/Steam",
    ".var/app/com.valvesoftware.Steam/.local/share/Steam",
    ".var/app/com.valvesoftware.Steam/data/Steam",
};
constexpr std::array kLibraryLists{"steamapps/libraryfolders.vdf", "config/libraryfolders.vdf"};

// Folders with the games' files of Lutris, below the home directory.
constexpr std::array kLutrisGames{
    ".config/lutris/games",
    ".local/share/lutris/games",
    ".var/app/net.lutris.Lutris/config/lutris/games",
    ".var/app/net.lutris.Lutris/data/lutris/games",
};

constexpr std::array kWindowsVolumeTypes{"ntfs", "ntfs3", "ntfs-3g", "fuseblk", "vfat", "exfat"};

// Names of the folder, sorted without regard to case; none where it cannot be read.
std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code problem;
    for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
        if (names.size() == kMostEntries) break;
        names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end(), base::NoCaseLess{});
    return names;
}

std::string below(const std::string& folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

bool isFolder(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Empty: there is no such directory.
std::string canonical(const std::string& path) {
    std::error_code problem;
    const fs::path place = fs::canonical(path, problem);
    return problem ? std::string() : place.string();
}

// The entry of the folder whose name is `name` whatever its case; of several the first.
std::optional<std::string> folderNamed(const std::string& folder, std::string_view name) {
    const std::string exact = below(folder, name);
    if (isFolder(exact)) return exact;
    for (const std::string& other : namesIn(folder)) {
        if (base::equalNoCase(other, name) && isFolder(below(folder, other))) return below(folder, other);
    }
    return std::nullopt;
}

bool holdsWindows(const std::string& root) {
    std::string folder = root;
    for (const char* name : {"Windows", "System32", "config"}) {
        const auto next = folderNamed(folder, name);
        if (!next) return false;
        folder = *next;
    }
    return true;
}

std::string lastName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

class Finder {
public:
    explicit Finder(const SearchPlaces& places) : places_(places) {}

    std::vector<FoundSystem> find() {
        if (!places_.userData.empty()) addPrefix(SystemKind::Embedded, places_.userData + "/machine", "Tidvane");
        if (!places_.winePrefix.empty()) addPrefix(SystemKind::Wine, places_.winePrefix);
        if (!places_.home.empty()) {
            addPrefix(SystemKind::Wine, places_.home + "/.wine");
            findSteam();
            findLutrisGames();
            for (const PrefixFolder& folder : kPrefixFolders) {
                const std::string place = below(places_.home, folder.place);
                for (const std::string& name : namesIn(place)) addPrefix(folder.kind, below(place, name), name);
            }
        }
        findVolumes();
        std::stable_sort(found_.begin(), found_.end(), [](const FoundSystem& a, const FoundSystem& b) {
            if (a.kind != b.kind) return a.kind < b.kind;
            return base::NoCaseLess{}(a.name, b.name);
        });
        return std::move(found_);
    }

private:
    // By what the folder is, so that a link or a second mount of it makes no second entry.
    void add(SystemKind kind, const std::string& directory, const std::string& name) {
        struct stat info {};
        if (::stat(directory.c_str(), &info) != 0 || !seen_.insert({info.st_dev, info.st_ino}).second) return;
        found_.push_back({kind, directory, shownText(name.empty() ? lastName(directory) : name)});
    }

    void addPrefix(SystemKind kind, const std::string& path, const std::string& name = {}) {
        if (!machine::Machine::isMachine(path)) return;
        if (const std::string place = canonical(path); !place.empty()) add(kind, place, name);
    }

    void findSteam() {
        std::set<std::string> libraries;
        for (const char* root : kSteamRoots) {
            const std::string place = canonical(below(places_.home, root));
            if (place.empty() || !libraries.insert(place).second) continue;
            for (const char* list : kLibraryLists) {
                for (const std::string& path : pathsInLibraryList(readSmallFile(below(place, list)))) {
                    if (const std::string library = canonical(path); !library.empty()) libraries.insert(library);
                }
            }
        }
        for (const std::string& library : libraries) findGames(library);
    }

    void findGames(const std::string& library) {
        const std::string apps = library + "/steamapps";
        for (const std::string& number : namesIn(apps + "/compatdata")) {
            const std::string prefix = below(below(apps + "/compatdata", number), "pfx");
            if (!machine::Machine::isMachine(prefix)) continue;
            const bool plain = number.find_first_not_of("0123456789") == std::string::npos;
            std::string name = plain ? valueInVdf(readSmallFile(below(apps, "appmanifest_" + number) + ".acf"), "name")
                                     : std::string();
            addPrefix(SystemKind::Steam, prefix, name.empty() ? "App " + number : name);
        }
    }

    void findLutrisGames() {
        for (const char* folder : kLutrisGames) {
            const std::string place = below(places_.home, folder);
            for (const std::string& file : namesIn(place)) {
                if (!file.ends_with(".yml")) continue;
                const std::string content = readSmallFile(below(place, file));
                const std::string prefix = fromHome(valueInYaml(content, "prefix", YamlLevel::Any));
                if (prefix.empty()) continue;
                std::string name = valueInYaml(content, "name", YamlLevel::Top);
                if (name.empty()) name = lutrisName(file);
                addPrefix(SystemKind::Lutris, prefix, name);
            }
        }
    }

    // "~/Games/x" and "$HOME/..."; empty for what is no full path then.
    std::string fromHome(std::string path) const {
        if (path.starts_with("~/")) path = places_.home + path.substr(1);
        if (path.starts_with("$HOME/")) path = places_.home + path.substr(5);
        return path.starts_with('/') ? path : std::string();
    }

    // "some-game-1612345678.yml" without the moment at its end.
    static std::string lutrisName(const std::string& file) {
        std::string name = file.substr(0, file.rfind('.'));
        const std::size_t dash = name.rfind('-');
        constexpr std::size_t kMomentDigits = 9;
        if (dash != std::string::npos && dash > 0 && name.size() - dash > kMomentDigits &&
            name.find_first_not_of("0123456789", dash + 1) == std::string::npos) {
            name.resize(dash);
        }
        return name;
    }

    void findVolumes() {
        if (places_.mountTable.empty()) return;
        for (const Mount& mount : mountsInTable(readSmallFile(places_.mountTable, kLongestMountTable))) {
            const bool windowsType = std::any_of(kWindowsVolumeTypes.begin(), kWindowsVolumeTypes.end(),
                                                 [&](const char* type) { return mount.type == type; });
            // A look at a network's or an automatic mount may last for minutes: only volumes of Windows, and disks.
            if (!windowsType && !mount.source.starts_with("/dev/")) continue;
            const std::string place = canonical(mount.place);
            if (place.empty() || !holdsWindows(place)) continue;
            const std::string name = lastName(place);
            add(SystemKind::Volume, place, name.empty() ? mount.source : name);
        }
    }

    const SearchPlaces& places_;
    std::vector<FoundSystem> found_;
    std::set<std::pair<dev_t, ino_t>> seen_;
};

std::string textOf(const char* variable) {
    const char* text = std::getenv(variable);
    return text != nullptr && *text == '/' ? text : std::string();
}

}  // namespace

const char* kindName(SystemKind kind) {
    const auto named =
        std::find_if(kKindNames.begin(), kKindNames.end(), [kind](const KindName& one) { return one.kind == kind; });
    return named == kKindNames.end() ? "" : named->name;
}

// Wine keeps a third registry file beside the two, and notes when it filled the prefix last.
SystemKind kindOf(const std::string& directory) {
    if (!machine::Machine::isMachine(directory)) {
        return holdsWindows(directory) ? SystemKind::Volume : SystemKind::Wine;
    }
    std::error_code problem;
    for (const char* file : {".update-timestamp", "userdef.reg"}) {
        if (fs::exists(below(directory, file), problem)) return SystemKind::Wine;
    }
    return SystemKind::Embedded;
}

SearchPlaces SearchPlaces::ofThisHost() {
    return {textOf("HOME"), userDataDirectory(), textOf("WINEPREFIX"), "/proc/self/mountinfo"};
}

std::vector<FoundSystem> findSystems(const SearchPlaces& places) {
    return Finder(places).find();
}

}  // namespace tidvane::frontend
