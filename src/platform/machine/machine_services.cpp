#include "platform/machine/machine_services.h"

#include <fcntl.h>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <system_error>
#include <thread>

#include "platform/common/clear_tracks_command.h"
#include "platform/machine/folder_lock.h"
#include "platform/machine/whole_file.h"

namespace tidvane::platform::machine {

namespace {

std::tm localTime(long& nanoseconds) {
    struct timespec moment {};
    ::clock_gettime(CLOCK_REALTIME, &moment);
    std::tm parts{};
    ::localtime_r(&moment.tv_sec, &parts);
    nanoseconds = moment.tv_nsec;
    return parts;
}

}  // namespace

base::DateTime HostClock::now() {
    long nanoseconds = 0;
    const std::tm parts = localTime(nanoseconds);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

double HostClock::timer() {
    long nanoseconds = 0;
    const std::tm parts = localTime(nanoseconds);
    return parts.tm_hour * 3600.0 + parts.tm_min * 60.0 + parts.tm_sec + static_cast<double>(nanoseconds) / 1e9;
}

void HostClock::Sleep(int milliseconds) {
    if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::unique_ptr<Process> MachineProcesses::CreateProcessA(const std::string& commandLine, int /*show*/) {
    return runClearTracksCommand(commandLine, cache_);
}

bool MachineProcesses::takeInstanceLock() {
    if (lock_) return true;
    Handle folder(::open(programFolder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        const int problem = errno;
        throw std::system_error(problem, std::generic_category(),
                                "The program folder \"" + programFolder_ + "\" cannot be opened");
    }
    const LockAnswer answer = lockFolder(folder.get());
    if (answer == LockAnswer::Held) return false;
    if (answer == LockAnswer::Unsupported) {
        // A volume without locks must not keep the program from ever starting. Its files are replaced as a whole, so
        // that two programs cost each other a setting at worst. What they leave cannot be told apart: it stays.
        lock_ = std::move(folder);
        return true;
    }
    removeStaleReplacements(folder.get());
    lock_ = std::move(folder);
    return true;
}

long MachineNetwork::URLDownloadToFileA(const std::string& /*url*/, const std::string& /*file*/,
                                        const std::function<bool(std::uint64_t, std::uint64_t)>& /*progress*/) {
    return download::ResourceNotFound;
}

}  // namespace tidvane::platform::machine
