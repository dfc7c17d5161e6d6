#include "platform/machine/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "platform/machine/entry_rename.h"

namespace tidvane::platform::machine {

namespace {

constexpr std::string_view kTemporaryStart = ".tidvane-";
constexpr std::string_view kTemporaryEnd = ".tmp";

std::string temporaryName() {
    static unsigned count = 0;
    std::string name(kTemporaryStart);
    name += std::to_string(::getpid()) + "-" + std::to_string(++count);
    return name.append(kTemporaryEnd);
}

}  // namespace

Status openPlainFile(int folder, const std::string& name, int flags, Handle& file, struct stat& info) {
    file = Handle(::openat(folder, name.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) return errno == ELOOP || errno == ENXIO ? Status::Denied : statusOf(errno);
    if (::fstat(file.get(), &info) != 0) return statusOf(errno);
    return S_ISREG(info.st_mode) ? Status::Ok : Status::Denied;
}

Status readWholeFile(int file, std::string& bytes, std::uint64_t limit) {
    constexpr std::size_t kBlock = 64UL * 1024;
    bytes.clear();
    while (bytes.size() < limit) {
        const std::size_t start = bytes.size();
        const std::size_t block = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, limit - start));
        bytes.resize(start + block);
        const ssize_t got = ::read(file, bytes.data() + start, block);
        bytes.resize(start + (got > 0 ? static_cast<std::size_t>(got) : 0));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            const Status status = statusOf(errno);
            bytes.clear();
            return status;
        }
        if (got == 0) break;
    }
    return Status::Ok;
}

int writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

FileReplacement::~FileReplacement() {
    if (!temporary_.empty()) ::unlinkat(folder_, temporary_.c_str(), 0);
}

Status FileReplacement::start(int folder, const struct stat* old) {
    folder_ = folder;
    constexpr int kFlags = O_WRONLY | O_CLOEXEC;
    // Without a name at first, so that a killed process leaves nothing; where the volume cannot do that, with one.
    if (mayMakeNamelessFiles()) file_ = Handle(::openat(folder, ".", kFlags | O_TMPFILE, 0666));
    if (!file_) {
        temporary_ = temporaryName();
        file_ = Handle(::openat(folder, temporary_.c_str(), kFlags | O_CREAT | O_EXCL | O_NOFOLLOW, 0666));
        if (!file_) {
            temporary_.clear();
            return statusOf(errno);
        }
    }
    if (old != nullptr) {
        // As far as the rights of this process go; the content matters more.
        if (::fchown(file_.get(), old->st_uid, old->st_gid) != 0) errno = 0;
        if (::fchmod(file_.get(), old->st_mode & 07777) != 0) errno = 0;
    }
    return Status::Ok;
}

Status FileReplacement::write(std::string_view bytes) {
    const int error = writeAll(file_.get(), bytes);
    return error == 0 ? Status::Ok : statusOf(error, Status::Failed);
}

Status FileReplacement::complete(bool replace) {
    if (complete_) return Status::Ok;
    if (::fsync(file_.get()) != 0) return statusOf(errno, Status::Failed);
    if (temporary_.empty() && replace) {
        std::string name = temporaryName();
        if (const Status status = giveName(name); !ok(status)) return status;
        temporary_ = std::move(name);
    }
    complete_ = true;
    return Status::Ok;
}

// The first name of a file that has none; one that exists already is not replaced.
Status FileReplacement::giveName(const std::string& name) {
    const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
    const bool given = ::linkat(AT_FDCWD, self.c_str(), folder_, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    return given ? Status::Ok : statusOf(errno);
}

Status FileReplacement::publish(const std::string& name, bool replace) {
    if (const Status status = complete(replace); !ok(status)) return status;
    if (temporary_.empty()) return giveName(name);
    int error = 0;
    if (!replace) {
        error = renameNoReplace(folder_, temporary_, folder_, name);
    } else if (::renameat(folder_, temporary_.c_str(), folder_, name.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) return statusOf(error);
    temporary_.clear();
    return Status::Ok;
}

void removeStaleReplacements(int folder) {
    std::vector<std::string> names;
    DirectoryReader reader;
    DirectoryReader::Entry entry{};
    while (reader.next(folder, entry)) {
        const std::string_view name = entry.name;
        const bool ours =
            name.starts_with(kTemporaryStart) && name.ends_with(kTemporaryEnd) &&
            name.find_first_not_of("0123456789-", kTemporaryStart.size()) == name.size() - kTemporaryEnd.size();
        if (ours && entry.type != DT_DIR) names.emplace_back(name);
    }
    for (const std::string& name : names) ::unlinkat(folder, name.c_str(), 0);
}

}  // namespace tidvane::platform::machine
