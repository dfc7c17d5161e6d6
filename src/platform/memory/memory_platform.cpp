#include "platform/memory/memory_platform.h"

namespace tidvane::platform {
namespace {

constexpr std::uint64_t kGigabyte = 1024ULL * 1024 * 1024;

struct SpecialFolderRow {
    int number;
    const char* path;
};

// The places of Windows 7.
constexpr SpecialFolderRow kSpecialFolders[] = {
    {csidl::Desktop, "C:\\Users\\Anna\\Desktop"},
    {csidl::Programs, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs"},
    {csidl::Personal, "C:\\Users\\Anna\\Documents"},
    {csidl::Favorites, "C:\\Users\\Anna\\Favorites"},
    {csidl::Startup, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
    {csidl::Recent, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Recent"},
    {csidl::SendTo, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\SendTo"},
    {csidl::StartMenu, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu"},
    {csidl::CommonDesktop, "C:\\Users\\Public\\Desktop"},
    {csidl::Templates, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Templates"},
    {csidl::AppData, "C:\\Users\\Anna\\AppData\\Roaming"},
    {csidl::LocalAppData, "C:\\Users\\Anna\\AppData\\Local"},
    {csidl::InternetCache, "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files"},
    {csidl::Cookies, "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Cookies"},
    {csidl::History, "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History"},
    {csidl::Windows, "C:\\Windows"},
    {csidl::System, "C:\\Windows\\System32"},
    {csidl::ProgramFiles, "C:\\Program Files"},
    {csidl::MyPictures, "C:\\Users\\Anna\\Pictures"},
    {csidl::Profile, "C:\\Users\\Anna"},
};

constexpr const char* kFurtherFolders[] = {
    "C:\\Program Files (x86)",
    "C:\\ProgramData",
    "C:\\Program Files\\Tidvane",
    "C:\\Windows\\Temp",
    "C:\\Users\\Anna\\AppData\\Local\\Temp",
};

constexpr const char* kVariables[][2] = {
    {"ALLUSERSPROFILE", "C:\\ProgramData"},
    {"APPDATA", "C:\\Users\\Anna\\AppData\\Roaming"},
    {"CommonProgramFiles", "C:\\Program Files\\Common Files"},
    {"COMPUTERNAME", "ANNA-PC"},
    {"ComSpec", "C:\\Windows\\System32\\cmd.exe"},
    {"HOMEDRIVE", "C:"},
    {"HOMEPATH", "\\Users\\Anna"},
    {"LOCALAPPDATA", "C:\\Users\\Anna\\AppData\\Local"},
    {"OS", "Windows_NT"},
    {"Path", "C:\\Windows\\System32;C:\\Windows"},
    {"ProgramData", "C:\\ProgramData"},
    {"ProgramFiles", "C:\\Program Files"},
    {"PUBLIC", "C:\\Users\\Public"},
    {"SystemDrive", "C:"},
    {"SystemRoot", "C:\\Windows"},
    {"TEMP", "C:\\Users\\Anna\\AppData\\Local\\Temp"},
    {"TMP", "C:\\Users\\Anna\\AppData\\Local\\Temp"},
    {"USERNAME", "Anna"},
    {"USERPROFILE", "C:\\Users\\Anna"},
    {"windir", "C:\\Windows"},
};

}  // namespace

MemoryPlatform::MemoryPlatform() {
    furnish();
}

void MemoryPlatform::furnish() {
    files.timeOfNewEntries = base::toFileTime({2009, 11, 3, 12, 0, 0});
    files.addDrive('C', DriveType::Fixed, 40 * kGigabyte, 100 * kGigabyte);
    for (const SpecialFolderRow& row : kSpecialFolders) {
        shell.specialFolders[row.number] = row.path;
        files.putFolder(row.path);
    }
    for (const char* folder : kFurtherFolders) files.putFolder(folder);
    shell.temporaryFolder = "C:\\Users\\Anna\\AppData\\Local\\Temp";
    for (const auto& variable : kVariables) environment.set(variable[0], variable[1]);
    system.groups["Administrators"] = {"Administrator", "Anna"};
    (void)registryTree.make("Machine\\Software");
    (void)registryTree.make("Machine\\System");
    (void)registryTree.currentUser()->findOrAdd("Software");
}

Platform MemoryPlatform::platform() {
    return Platform{guardedFiles,  profiles,    guardedRegistry, guardedShell, processes,
                    session,       environment, browserCache,    system,       network,
                    restorePoints, scriptHost,  clock,           events,       removed};
}

}  // namespace tidvane::platform
