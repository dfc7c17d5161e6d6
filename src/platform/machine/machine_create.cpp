// A new, empty machine: folders, drive C: and the least registry that a Windows 7 shows.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "platform/common/registry_text.h"
#include "platform/machine/machine.h"
#include "platform/machine/whole_file.h"

namespace tidvane::platform::machine {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSid = "S-1-5-21-0-0-0-1000";

// <user> stands for the name of the user.
// clang-format off
constexpr std::array kFolders = {
    "Windows",
    "Windows/Fonts",
    "Windows/Prefetch",
    "Windows/System32",
    "Windows/System32/config",
    "Windows/Temp",
    "Program Files",
    "Program Files/Common Files",
    "ProgramData",
    "Users/Public/Desktop",
    "Users/Public/Documents",
    "Users/<user>/AppData/Local/Microsoft/Windows/History",
    "Users/<user>/AppData/Local/Microsoft/Windows/Temporary Internet Files",
    "Users/<user>/AppData/Local/Temp",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/Cookies",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/Network Shortcuts",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/Recent",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/SendTo",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Startup",
    "Users/<user>/AppData/Roaming/Microsoft/Windows/Templates",
    "Users/<user>/Desktop",
    "Users/<user>/Documents",
    "Users/<user>/Downloads",
    "Users/<user>/Favorites",
    "Users/<user>/Music",
    "Users/<user>/Pictures",
    "Users/<user>/Videos",
};

struct TextValue {
    const char* key;
    const char* name;
    const char* text;   // <user>, <computer> and <sid> are replaced
    bool expand = false;
};

constexpr const char* kNt = "Software\\Microsoft\\Windows NT\\CurrentVersion";
constexpr const char* kWindows = "Software\\Microsoft\\Windows\\CurrentVersion";
constexpr const char* kProfiles = "Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
constexpr const char* kProfile = "Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList\\<sid>";
constexpr const char* kComputer = "System\\CurrentControlSet\\Control\\ComputerName\\ComputerName";
constexpr const char* kCodePages = "System\\CurrentControlSet\\Control\\Nls\\CodePage";
constexpr const char* kEnvironment = "System\\CurrentControlSet\\Control\\Session Manager\\Environment";

constexpr std::array kMachineValues = {
    TextValue{kNt,          "CurrentVersion",       "6.1"},
    TextValue{kNt,          "CurrentBuild",         "7601"},
    TextValue{kNt,          "CurrentBuildNumber",   "7601"},
    TextValue{kNt,          "CSDVersion",           "Service Pack 1"},
    TextValue{kNt,          "ProductName",          "Windows 7"},
    TextValue{kNt,          "RegisteredOwner",      "<user>"},
    TextValue{kNt,          "SystemRoot",           "C:\\Windows"},
    TextValue{kWindows,     "ProgramFilesDir",      "C:\\Program Files"},
    TextValue{kWindows,     "CommonFilesDir",       "C:\\Program Files\\Common Files"},
    TextValue{kProfiles,    "ProfilesDirectory",    "%SystemDrive%\\Users",             true},
    TextValue{kProfiles,    "ProgramData",          "%SystemDrive%\\ProgramData",       true},
    TextValue{kProfiles,    "Public",               "%SystemDrive%\\Users\\Public",     true},
    TextValue{kProfile,     "ProfileImagePath",     "%SystemDrive%\\Users\\<user>",     true},
    TextValue{kComputer,    "ComputerName",         "<computer>"},
    TextValue{kCodePages,   "ACP",                  "1252"},
    TextValue{kCodePages,   "OEMCP",                "437"},
    TextValue{kEnvironment, "ComSpec",              "%SystemRoot%\\system32\\cmd.exe",  true},
    TextValue{kEnvironment, "OS",                   "Windows_NT"},
    TextValue{kEnvironment, "PATH",                 "%SystemRoot%\\system32;%SystemRoot%", true},
    TextValue{kEnvironment, "PATHEXT",              ".COM;.EXE;.BAT;.CMD;.VBS;.JS"},
    TextValue{kEnvironment, "TEMP",                 "%SystemRoot%\\Temp",               true},
    TextValue{kEnvironment, "TMP",                  "%SystemRoot%\\Temp",               true},
    TextValue{kEnvironment, "windir",               "%SystemRoot%",                     true},
};

constexpr const char* kInternational = "Control Panel\\International";
constexpr const char* kUserEnvironment = "Environment";
constexpr const char* kVolatile = "Volatile Environment";
constexpr const char* kShell = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const char* kUserShell = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

constexpr std::array kUserValues = {
    TextValue{kInternational,   "Locale",        "00000409"},
    TextValue{kInternational,   "LocaleName",    "en-US"},
    TextValue{kInternational,   "sLanguage",     "ENU"},
    TextValue{kUserEnvironment, "TEMP",          "%USERPROFILE%\\AppData\\Local\\Temp",  true},
    TextValue{kUserEnvironment, "TMP",           "%USERPROFILE%\\AppData\\Local\\Temp",  true},
    TextValue{kVolatile,        "USERNAME",      "<user>"},
    TextValue{kVolatile,        "USERDOMAIN",    "<computer>"},
    TextValue{kVolatile,        "USERPROFILE",   "C:\\Users\\<user>"},
};

struct ShellFolder {
    const char* name;
    const char* place;  // below the profile
};

constexpr std::array kShellFolders = {
    ShellFolder{"AppData",       "AppData\\Roaming"},
    ShellFolder{"Cache",         "AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files"},
    ShellFolder{"Cookies",       "AppData\\Roaming\\Microsoft\\Windows\\Cookies"},
    ShellFolder{"Desktop",       "Desktop"},
    ShellFolder{"Favorites",     "Favorites"},
    ShellFolder{"History",       "AppData\\Local\\Microsoft\\Windows\\History"},
    ShellFolder{"Local AppData", "AppData\\Local"},
    ShellFolder{"My Music",      "Music"},
    ShellFolder{"My Pictures",   "Pictures"},
    ShellFolder{"My Video",      "Videos"},
    ShellFolder{"NetHood",       "AppData\\Roaming\\Microsoft\\Windows\\Network Shortcuts"},
    ShellFolder{"Personal",      "Documents"},
    ShellFolder{"Programs",      "AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs"},
    ShellFolder{"Recent",        "AppData\\Roaming\\Microsoft\\Windows\\Recent"},
    ShellFolder{"SendTo",        "AppData\\Roaming\\Microsoft\\Windows\\SendTo"},
    ShellFolder{"Start Menu",    "AppData\\Roaming\\Microsoft\\Windows\\Start Menu"},
    ShellFolder{"Startup",       "AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
    ShellFolder{"Templates",     "AppData\\Roaming\\Microsoft\\Windows\\Templates"},
};
// clang-format on

std::string filled(const std::string& text, const NewMachine& description) {
    std::string result = base::replaceAll(text, "<user>", description.user);
    result = base::replaceAll(result, "<computer>", description.computer);
    return base::replaceAll(result, "<sid>", kSid);
}

RegistryKeyPtr makeKey(const RegistryKeyPtr& root, const std::string& path) {
    RegistryKeyPtr key = root;
    for (const std::string_view part : keyPathParts(path)) key = key->findOrAdd(part);
    return key;
}

template <class Values>
void setAll(const RegistryKeyPtr& root, const Values& values, const NewMachine& description) {
    for (const TextValue& value : values) {
        makeKey(root, filled(value.key, description))
            ->setText(value.name, filled(value.text, description), value.expand ? 2 : 1);
    }
}

Status writeNew(const std::string& directory, const std::string& name, const std::string& content) {
    const Handle handle(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!handle) return statusOf(errno);
    FileReplacement file;
    Status status = file.start(handle.get(), nullptr);
    if (ok(status)) status = file.write(content);
    return ok(status) ? file.publish(name, false) : status;
}

Status writeRegistry(const std::string& directory, const NewMachine& description) {
    RegistryTextFile machine;
    machine.create("Machine", "win32");
    setAll(machine.root(), kMachineValues, description);
    if (const Status status = writeNew(directory, "system.reg", machine.serialize()); !ok(status)) return status;

    RegistryTextFile user;
    user.create(std::string("User\\") + kSid, "win32");
    setAll(user.root(), kUserValues, description);
    for (const ShellFolder& folder : kShellFolders) {
        const std::string place = std::string("\\") + folder.place;
        makeKey(user.root(), kShell)->setText(folder.name, "C:\\Users\\" + description.user + place);
        makeKey(user.root(), kUserShell)->setText(folder.name, "%USERPROFILE%" + place, 2);
    }
    return writeNew(directory, "user.reg", user.serialize());
}

bool build(const std::string& directory, const NewMachine& description, std::string& problem) {
    std::error_code failure;
    for (const char* folder : kFolders) {
        fs::create_directories(directory + "/drive_c/" + filled(folder, description), failure);
        if (failure) break;
    }
    if (!failure) fs::create_directory(directory + "/dosdevices", failure);
    if (!failure) fs::create_directory_symlink("../drive_c", directory + "/dosdevices/c:", failure);
    if (failure) {
        problem = failure.message();
        return false;
    }
    const Status status = writeRegistry(directory, description);
    if (!ok(status)) problem = status == Status::DiskFull ? "the disk is full" : "its registry cannot be written";
    return ok(status);
}

}  // namespace

bool Machine::create(const std::string& directory, std::string& error, const NewMachine& description) {
    std::string target = directory;
    while (target.size() > 1 && target.back() == '/') target.pop_back();
    const std::string beginning = "The machine cannot be created in \"" + directory + "\": ";
    if (target.empty() || description.user.find_first_of("\\/:*?\"<>|") != std::string::npos ||
        description.user.empty()) {
        error = beginning + "name a directory and a user.";
        return false;
    }
    std::error_code failure;
    if (fs::exists(target, failure) && (!fs::is_directory(target, failure) || !fs::is_empty(target, failure))) {
        error = beginning + "it exists and is not empty; name another directory.";
        return false;
    }
    const fs::path parent = fs::absolute(target, failure).parent_path();
    fs::create_directories(parent, failure);
    // Built beside its place and moved there when it is whole.
    std::string building = (parent / ".tidvane-machine-XXXXXX").string();
    if (failure || ::mkdtemp(building.data()) == nullptr) {
        error = beginning + (failure ? failure.message() : std::string(std::strerror(errno))) + ".";
        return false;
    }
    ::chmod(building.c_str(), 0755);
    std::string problem;
    bool done = build(building, description, problem);
    if (done && ::rename(building.c_str(), target.c_str()) != 0) {
        problem = std::strerror(errno);
        done = false;
    }
    if (!done) {
        fs::remove_all(building, failure);
        error = beginning + problem + ".";
    }
    return done;
}

}  // namespace tidvane::platform::machine
