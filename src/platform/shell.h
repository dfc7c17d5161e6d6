// The shell of the machine: special folders, the recycle bin, starting documents.
#pragma once

#include <cstdint>
#include <string>

namespace tidvane::platform {

// Special folders by number, as SHGetSpecialFolderLocation numbers them.
namespace csidl {
inline constexpr int Desktop = 0;
inline constexpr int Programs = 2;
inline constexpr int Personal = 5;
inline constexpr int Favorites = 6;
inline constexpr int Startup = 7;
inline constexpr int Recent = 8;
inline constexpr int SendTo = 9;
inline constexpr int StartMenu = 11;
inline constexpr int CommonDesktop = 16;
inline constexpr int Templates = 21;
inline constexpr int AppData = 26;
inline constexpr int LocalAppData = 28;
inline constexpr int InternetCache = 32;
inline constexpr int Cookies = 33;
inline constexpr int History = 34;
inline constexpr int Windows = 36;
inline constexpr int System = 37;
inline constexpr int ProgramFiles = 38;
inline constexpr int MyPictures = 39;
inline constexpr int Profile = 40;
}  // namespace csidl

inline constexpr unsigned kFoDelete = 3;
inline constexpr unsigned kFofSimpleProgress = 0x100;
inline constexpr unsigned kFofAllowUndo = 0x40;
inline constexpr unsigned kFofNoConfirmation = 0x10;
inline constexpr unsigned kFofSilent = 0x4;
inline constexpr unsigned kFofNoErrorUi = 0x400;

// Flags of SHEmptyRecycleBinA (SHERB_...) and what it answers when the question was not agreed to.
inline constexpr unsigned kSherbNoConfirmation = 0x1;
inline constexpr long kErrorCancelled = 1223;

// The record of SHFileOperationA as far as it is used.
struct ShFileOp {
    std::uint64_t hwnd = 0;
    unsigned wFunc = 0;
    std::string pFrom;  // one path or mask, followed by two NULs
    std::string pTo;
    unsigned fFlags = 0;
};

// The path in pFrom. False when it is not one path and two NULs: a NUL within a path cuts it, and its front names
// something else.
inline bool onePathOf(const ShFileOp& operation, std::string& path) {
    const std::size_t end = operation.pFrom.find('\0');
    if (end == std::string::npos || end + 2 != operation.pFrom.size() || operation.pFrom.back() != '\0') return false;
    path = operation.pFrom.substr(0, end);
    return true;
}

struct RecycleBinInfo {
    std::uint64_t bytes = 0;  // i64Size
    std::uint64_t items = 0;  // i64NumItems
};

class Shell {
public:
    virtual ~Shell() = default;

    // SHGetSpecialFolderLocation and SHGetPathFromIDListA: the path without a trailing backslash; empty when the number
    // is unknown or the folder cannot be told.
    virtual std::string SpecialFolder(int number) = 0;
    // The folder object's GetSpecialFolder(2): where the user's temporary files lie.
    virtual std::string TemporaryFolder() = 0;

    virtual std::uint64_t GetForegroundWindow() = 0;
    // 0 when done; otherwise a Win32 or shell code, and what could not be moved is still there. With kFofAllowUndo the
    // target goes to the recycle bin of its drive, and where that cannot be it stays. With a mask only files are taken,
    // on every platform. An empty last part is refused (123).
    virtual int SHFileOperationA(const ShFileOp& operation) = 0;

    // An empty root means all drives. 0 when done.
    virtual long SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) = 0;
    // Without kSherbNoConfirmation the user is asked first. Where nobody agrees, or nobody is there to be asked,
    // nothing is emptied: kErrorCancelled.
    virtual long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) = 0;

    // Above 32 when started. An empty file starts nothing.
    virtual int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                              const std::string& directory, int show) = 0;
    // ShellExecuteEx with the process handle kept, then a wait without end in which no events are let in. False: not
    // started.
    virtual bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                                       const std::string& directory, int show) = 0;
};

}  // namespace tidvane::platform
