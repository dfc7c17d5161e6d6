#include "platform/guard/guarded_shell.h"

#include "base/text.h"
#include "base/wildcard.h"

namespace tidvane::platform {
namespace {

constexpr int kFileNotFound = 2;

}  // namespace

int GuardedShell::SHFileOperationA(const ShFileOp& operation) {
    ShFileOp single = operation;
    const std::string from = operation.pFrom.substr(0, operation.pFrom.find('\0'));
    single.pFrom = from + std::string(2, '\0');
    // With a mask only files are taken, and these are nobody's place.
    const bool mask = base::hasWildcard(from.substr(from.find_last_of("\\/") + 1));
    const Status allowed = mask ? guard_.checkSingle(from) : guard_.checkTree(from, false);
    if (allowed == Status::PathNotFound) return static_cast<int>(Status::InvalidName);
    return ok(allowed) ? shell_.SHFileOperationA(single) : static_cast<int>(allowed);
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
