#include "platform/machine/machine_registry.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/text.h"
#include "platform/common/utf16.h"
#include "platform/machine/file_time_now.h"
#include "platform/machine/whole_file.h"

namespace tidvane::platform::machine {

namespace {

bool sameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
           a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// "S-1-" and numbers. The name leads to folders, such as the user's recycle bin: nothing else may be believed.
bool isSid(const std::string& text) {
    constexpr std::size_t kLongest = 184;  // 15 parts of ten digits, and what stands before them
    return text.size() > 4 && text.size() <= kLongest && base::startsWithNoCase(text, "S-1-") &&
           text.find_first_not_of("0123456789-", 2) == std::string::npos;
}

}  // namespace

std::optional<std::string> valueText(const RegistryValue* value) {
    if (value == nullptr || (value->type != 1 && value->type != 2)) return std::nullopt;
    std::string text = utf8FromUtf16le(value->data);
    text.resize(std::min(text.find('\0'), text.size()));
    return text;
}

bool MachineRegistry::readFile(int directory, const std::string& name, bool required, std::string& error) {
    Handle handle;
    File file;
    file.name = name;
    const Status opened = openPlainFile(directory, name, O_RDONLY, handle, file.read);
    if (!required && opened == Status::NotFound) return true;
    if (!ok(opened)) {
        error = opened == Status::Denied && handle
                    ? name + " is not a plain file; restore it from a backup."
                    : name + " cannot be read; check that it exists and who may read it.";
        return false;
    }
    std::string bytes;
    if (!ok(readWholeFile(handle.get(), bytes, UINT64_MAX))) {
        error = name + " cannot be read.";
        return false;
    }
    RegistryTextError problem;
    file.content = std::make_unique<RegistryTextFile>();
    if (!file.content->read(std::move(bytes), problem)) {
        error = name + " is damaged (line " + std::to_string(problem.line) + ": " + problem.text +
                "); restore it from a backup.";
        return false;
    }
    files_.push_back(std::move(file));
    return true;
}

bool MachineRegistry::read(int directory, std::string& error) {
    files_.clear();
    if (!readFile(directory, "system.reg", true, error) || !readFile(directory, "user.reg", true, error)) return false;
    std::string ignored;  // the defaults of new users are no part of what is cleaned: they may be missing or damaged
    if (!readFile(directory, "userdef.reg", false, ignored)) ignored.clear();

    std::string sid = "S-1-5-21-0-0-0-1000";
    if (const std::string& place = files_[1].content->place();
        base::startsWithNoCase(place, "User\\") && isSid(place.substr(5))) {
        sid = place.substr(5);
    }
    tree_ = std::make_unique<RegistryTree>(sid);
    tree_->mount("Machine", files_[0].content->root());
    tree_->mount("User\\" + sid, files_[1].content->root());
    if (files_.size() > 2) tree_->mount("User\\.Default", files_[2].content->root());
    return true;
}

bool MachineRegistry::isCurrent(int directory) const {
    return std::all_of(files_.begin(), files_.end(), [directory](const File& file) {
        struct stat now {};
        return ::fstatat(directory, file.name.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0 && sameFile(now, file.read);
    });
}

bool MachineRegistry::readAnew(int directory, const std::function<void(RegistryTree&&)>& replace, std::string& error) {
    MachineRegistry fresh;
    if (!fresh.read(directory, error)) return false;
    replace(std::move(*fresh.tree_));
    files_ = std::move(fresh.files_);
    return true;
}

bool MachineRegistry::changed() const {
    for (const File& file : files_) {
        if (file.content->changed()) return true;
    }
    return false;
}

Status MachineRegistry::write(int directory, std::string& error) {
    for (const File& file : files_) {
        if (!file.content->changed()) continue;
        struct stat now {};
        if (::fstatat(directory, file.name.c_str(), &now, AT_SYMLINK_NOFOLLOW) != 0 || !sameFile(now, file.read)) {
            error = file.name + " was changed by another program meanwhile; it was left as it is.";
            return Status::InUse;
        }
    }
    // All of them lie on the disk whole before the first takes its place.
    const auto failed = [&error](const File& file, Status status, const char* rest) {
        error = file.name + " could not be written (" +
                (status == Status::DiskFull ? "the disk is full" : std::strerror(errno)) + "); " + rest;
        return status;
    };
    struct Pending {
        File& file;
        std::unique_ptr<FileReplacement> replacement;
    };
    std::vector<Pending> pending;
    for (File& file : files_) {
        if (!file.content->changed()) continue;
        pending.push_back({file, std::make_unique<FileReplacement>()});
        FileReplacement& replacement = *pending.back().replacement;
        Status status = replacement.start(directory, &file.read);
        if (ok(status)) status = replacement.write(file.content->serialize(fileTimeNow()));
        if (ok(status)) status = replacement.complete(true);
        if (!ok(status)) return failed(file, status, "the whole registry is as it was before.");
    }
    for (const Pending& one : pending) {
        File& file = one.file;
        if (const Status status = one.replacement->publish(file.name, true); !ok(status)) {
            return failed(file, status, "the old one is still there.");
        }
        file.content->markWritten();
        (void)::fstatat(directory, file.name.c_str(), &file.read, AT_SYMLINK_NOFOLLOW);
    }
    return Status::Ok;
}

std::optional<std::string> MachineRegistry::text(const std::string& key, const std::string& name) const {
    const RegistryKeyPtr found = tree_->find(key);
    return found ? valueText(found->findValue(name)) : std::nullopt;
}

}  // namespace tidvane::platform::machine
