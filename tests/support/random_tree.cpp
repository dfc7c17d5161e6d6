#include "support/random_tree.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "support/tree_state.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

// Sets or takes the flag that keeps everybody from changing an entry. Nothing where the volume has none.
void seal(const std::string& full, bool on) {
    const int file = ::open(full.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    int flags = 0;
    if (file < 0) return;
    if (::ioctl(file, FS_IOC_GETFLAGS, &flags) == 0 && ((flags & FS_IMMUTABLE_FL) != 0) != on) {
        flags ^= FS_IMMUTABLE_FL;
        (void)::ioctl(file, FS_IOC_SETFLAGS, &flags);
    }
    ::close(file);
}

class Maker {
public:
    Maker(std::string root, std::mt19937& random, const RandomTreeOptions& options)
        : root_(std::move(root)), random_(random), options_(options), folders_{""} {}

    std::vector<std::string> run() {
        for (std::size_t i = 0; i < options_.entries; ++i) addEntry();
        // Rights last, from the depths up: they could keep the rest from being made.
        for (const std::string& file : files_) giveRights(file, false);
        for (std::size_t i = folders_.size(); i-- > 1;) giveRights(folders_[i], true);
        return folders_;
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool once(int in) { return below(in) == 0; }

    std::string name(bool folder) {
        static const std::array kNames{"a.tmp",       "b.tmp",      "c.bak",           "Report.old",
                                       "log.txt",     "index.dat",  "opa12.bak",       "opa13.bak",
                                       "cacert.001",  "cacert.002", "uninstal.log",    "Uninstall.log",
                                       "noextension", ".hidden",    "with blank .tmp", "two.dots.tmp"};
        static const std::array kOdd{"caf\xE9.tmp",     "\xC3\xA4\xC3\xB6\xC3\xBC.tmp",
                                     "back\\slash.tmp", "co:lon.tmp",
                                     "star*.tmp",       "quest?.tmp",
                                     "~$doc.tmp",       "tab\there.tmp",

                                     "\xFF\xFE.bak"};
        static const std::array kFolders{"sub", "Deep", "x.tmp", "Cache", "cache2", ".dotted", "f\xF6ld", "old.bak"};
        std::string chosen = once(5)  ? kOdd[static_cast<std::size_t>(below(kOdd.size()))]
                             : folder ? kFolders[static_cast<std::size_t>(below(kFolders.size()))]
                                      : kNames[static_cast<std::size_t>(below(kNames.size()))];
        if (once(3)) chosen = std::to_string(below(90)) + chosen;
        return chosen;
    }

    void addEntry() {
        const std::string folder = folders_[static_cast<std::size_t>(below(static_cast<int>(folders_.size())))];
        const int kind = below(20);
        const std::string path = folder + "/" + name(kind < 5);
        const std::string full = root_ + path;
        struct stat there {};
        if (::lstat(full.c_str(), &there) == 0) return;
        if (kind < 5) {
            fs::create_directory(full);
            folders_.push_back(path);
        } else if (kind == 5) {
            fs::create_symlink(files_.empty() || once(2) ? "nowhere" : root_ + files_.front(), full);
        } else if (kind == 6) {
            fs::create_symlink(root_ + folder, full);
        } else if (kind == 7) {
            ::mkfifo(full.c_str(), 0666);
        } else if (kind == 8 && !files_.empty()) {
            const std::string& other = files_[static_cast<std::size_t>(below(static_cast<int>(files_.size())))];
            (void)::link((root_ + other).c_str(), full.c_str());
        } else {
            addFile(full);
            files_.push_back(path);
        }
    }

    void addFile(const std::string& full) {
        std::ofstream(full, std::ios::binary) << std::string(static_cast<std::size_t>(once(4) ? 0 : below(9000)), 'x');
        if (once(6)) {
            const char* bits = once(2) ? "0x2" : once(2) ? "0x4" : "0x20";
            (void)::setxattr(full.c_str(), "user.DOSATTRIB", bits, std::char_traits<char>::length(bits), 0);
        }
        if (once(2)) {
            const std::time_t when = std::time(nullptr) - 86'400L * below(60);
            const struct timespec times[] = {{when, 0}, {when, 0}};
            ::utimensat(AT_FDCWD, full.c_str(), times, AT_SYMLINK_NOFOLLOW);
        }
    }

    void giveRights(const std::string& path, bool folder) {
        const std::string full = root_ + path;
        const bool foreign = options_.rights && once(6);
        if (folder) {
            static constexpr std::array<mode_t, 8> kModes{0755, 0755, 0777, 0777, 0555, 01777, 0700, 0500};
            static constexpr std::array<mode_t, 4> kPlain{0755, 0777, 0755, 0555};
            const mode_t mode = options_.rights ? kModes[static_cast<std::size_t>(below(kModes.size()))]
                                                : kPlain[static_cast<std::size_t>(below(kPlain.size()))];
            // Whether a folder that nobody may look into is empty cannot be told without removing it: none is.
            if (foreign && (mode & 0055) == 0) std::ofstream(full + "/unseen.tmp") << "1";
            if (options_.rights && !foreign) (void)::lchown(full.c_str(), options_.otherUser, options_.otherUser);
            ::chmod(full.c_str(), mode);
            if (options_.sealed && once(12)) seal(full, true);
            return;
        }
        if (options_.rights && !foreign) (void)::lchown(full.c_str(), options_.otherUser, options_.otherUser);
        struct stat info {};
        if (once(7) && ::lstat(full.c_str(), &info) == 0 && !S_ISLNK(info.st_mode))
            ::chmod(full.c_str(), once(2) ? 0444 : 0400);
        if (options_.sealed && once(12)) seal(full, true);
    }

    std::string root_;
    std::mt19937& random_;
    const RandomTreeOptions& options_;
    std::vector<std::string> folders_;
    std::vector<std::string> files_;
};

}  // namespace

std::vector<std::string> makeRandomTree(const std::string& root, std::mt19937& random,
                                        const RandomTreeOptions& options) {
    return Maker(root, random, options).run();
}

void unseal(const std::string& root) {
    seal(root, false);
    for (const fs::path& entry : entriesBelow(root)) {
        std::error_code ignored;
        if (!fs::is_fifo(fs::symlink_status(entry, ignored))) seal(entry, false);
    }
}

}  // namespace tidvane::tests
