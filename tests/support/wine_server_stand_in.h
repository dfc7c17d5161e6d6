// What a running Wine server leaves for others to see, without one: its lock, held by another process.
#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

namespace tidvane::tests {

// Holds a write lock from another process, as fcntl locks of one process do not stop itself.
class ForeignLock {
public:
    explicit ForeignLock(const std::string& file);
    ~ForeignLock();
    ForeignLock(const ForeignLock&) = delete;
    ForeignLock& operator=(const ForeignLock&) = delete;
    [[nodiscard]] bool locked() const { return locked_; }

private:
    pid_t child_ = -1;
    bool locked_ = false;
};

// The name of a prefix's server directory, "server-<device>-<inode>".
std::string serverName(const std::string& prefix);

// For a prefix that exists. The server's place is a directory of its own below /tmp, which the prefix names.
class WineServerStandIn {
public:
    explicit WineServerStandIn(const std::string& prefix);
    ~WineServerStandIn();
    WineServerStandIn(const WineServerStandIn&) = delete;
    WineServerStandIn& operator=(const WineServerStandIn&) = delete;

    void start();
    void end() { lock_.reset(); }

private:
    std::string folder_;
    std::string server_;
    std::unique_ptr<ForeignLock> lock_;
};

}  // namespace tidvane::tests
