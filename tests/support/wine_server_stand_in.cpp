#include "support/wine_server_stand_in.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tidvane::tests {

ForeignLock::ForeignLock(const std::string& file) {
    int ready[2];
    if (::pipe(ready) != 0) ::abort();
    child_ = ::fork();
    if (child_ == 0) {
        const int handle = ::open(file.c_str(), O_CREAT | O_WRONLY, 0600);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_len = 1;
        const char done = ::fcntl(handle, F_SETLK, &lock) == 0 ? 'y' : 'n';
        if (::write(ready[1], &done, 1) != 1) ::_exit(1);
        for (;;) ::pause();
    }
    char answer = 'n';
    locked_ = ::read(ready[0], &answer, 1) == 1 && answer == 'y';
    ::close(ready[0]);
    ::close(ready[1]);
}

ForeignLock::~ForeignLock() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
}

std::string serverName(const std::string& prefix) {
    struct stat info {};
    ::stat(prefix.c_str(), &info);
    char name[64];
    std::snprintf(name, sizeof name, "server-%llx-%llx", static_cast<unsigned long long>(info.st_dev),
                  static_cast<unsigned long long>(info.st_ino));
    return name;
}

WineServerStandIn::WineServerStandIn(const std::string& prefix) {
    char name[] = "/tmp/tidvane-wine-XXXXXX";
    if (::mkdtemp(name) == nullptr) throw std::runtime_error("no temporary directory");
    folder_ = name;
    std::ofstream(prefix + "/wineserver") << folder_.substr(folder_.rfind('/') + 1);
    server_ = folder_ + "/" + serverName(prefix);
    ::mkdir(server_.c_str(), 0700);
}

WineServerStandIn::~WineServerStandIn() {
    end();
    ::unlink((server_ + "/lock").c_str());
    ::rmdir(server_.c_str());
    ::rmdir(folder_.c_str());
}

void WineServerStandIn::start() {
    lock_ = std::make_unique<ForeignLock>(server_ + "/lock");
    if (!lock_->locked()) throw std::runtime_error("the lock of the server could not be taken");
}

}  // namespace tidvane::tests
