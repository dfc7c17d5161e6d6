#include "removal/modKillMethod.h"

#include <algorithm>
#include <memory>

namespace tidvane::removal {

namespace {

constexpr std::uint64_t kBlockSize = 4096;
constexpr char kBlank = ' ';

bool recycle(platform::Platform& platform, const std::string& path, bool ignoreErrors) {
    platform::ShFileOp operation;
    operation.hwnd = platform.shell.GetForegroundWindow();
    operation.wFunc = platform::kFoDelete;
    operation.pFrom = path + std::string(2, '\0');
    operation.fFlags =
        platform::kFofSimpleProgress | platform::kFofAllowUndo | platform::kFofNoConfirmation | platform::kFofSilent;
    // Intended, although it reads the wrong way round: who ignores errors lets the shell show its own box.
    if (!ignoreErrors) operation.fFlags |= platform::kFofNoErrorUi;
    return platform.shell.SHFileOperationA(operation) == 0;
}

// The plain delete behind the overwrite passes hidden and system files over: blanked out they would stay as ruins.
bool staysAnyway(platform::FileSystem& files, const std::string& path) {
    unsigned attributes = 0;
    return ok(files.GetAttributes(path, attributes)) &&
           (attributes & (platform::attribute::Hidden | platform::attribute::System)) != 0;
}

void overwriteContent(platform::FileSystem& files, const std::string& path) {
    if (staysAnyway(files, path)) return;
    std::unique_ptr<platform::OverwriteHandle> handle;
    if (!ok(files.OpenForOverwrite(path, handle)) || handle == nullptr) return;
    const std::string blanks(kBlockSize, kBlank);
    const std::uint64_t length = handle->length();
    // Ignored on purpose: a block that fails is not the end, and the delete follows in any case.
    for (std::uint64_t left = length / kBlockSize; left > 0;) {
        std::uint64_t written = 0;
        if (ok(handle->writeRepeated(blanks, left, written))) break;
        left -= written + 1;  // the one that failed is not tried twice
    }
    if (length % kBlockSize > 0) (void)handle->write(std::string_view(blanks).substr(0, length % kBlockSize));
}

}  // namespace

bool KillFile(platform::Platform& platform, const std::string& Path, int Method, bool IgnoreErrors) {
    switch (Method) {
        case KillPlain:
            return ok(platform.files.KillFiles(Path)) || IgnoreErrors;
        case KillRecycle:
            return recycle(platform, Path, IgnoreErrors);
        case KillOverwrite:
            overwriteContent(platform.files, Path);
            (void)platform.files.KillFiles(Path);  // its failure does not touch the result
            return true;
        default:
            return false;
    }
}

}  // namespace tidvane::removal
