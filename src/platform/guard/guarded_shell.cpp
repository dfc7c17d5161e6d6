#include "platform/guard/guarded_shell.h"

#include "base/text.h"
#include "base/wildcard.h"

namespace tidvane::platform {
namespace {

constexpr int kFileNotFound = 2;

}  // namespace

int GuardedShell::SHFileOperationA(const ShFileOp& operation) {
    std::string from;
    if (!onePathOf(operation, from)) {
        // Whatever stands before the last NULs: the check of a file refuses and tells a path that holds one.
        (void)guard_.checkSingle(operation.pFrom.substr(0, operation.pFrom.find_last_not_of('\0') + 1));
        return static_cast<int>(Status::InvalidName);
    }
    // With a mask only files are taken, and these are nobody's place: but not all that lie in one, the hidden ones
    // among them.
    const std::string last = from.substr(from.find_last_of("\\/") + 1);
    const bool someFiles = base::hasWildcard(last) && !base::Wildcard(last).matchesEveryName();
    const Status allowed = someFiles ? guard_.checkSingle(from) : guard_.checkEntry(from);
    if (allowed == Status::PathNotFound) return static_cast<int>(Status::InvalidName);
    return ok(allowed) ? shell_.SHFileOperationA(operation) : static_cast<int>(allowed);
}

int GuardedShell::ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                                const std::string& directory, int show) {
    if (base::trimBlanks(file).empty()) return kFileNotFound;
    return shell_.ShellExecuteA(verb, file, parameters, directory, show);
}

bool GuardedShell::ShellExecuteExAndWait(const std::string& verb, const std::string& file,
                                         const std::string& parameters, const std::string& directory, int show) {
    if (base::trimBlanks(file).empty()) return false;
    return shell_.ShellExecuteExAndWait(verb, file, parameters, directory, show);
}

}  // namespace tidvane::platform
