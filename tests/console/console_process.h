// The built program as its user starts it: a process with its own streams and status.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "support/host_directory.h"

namespace tidvane::tests {

struct Ended {
    int status = -1;  // 128 + signal where one ended it
    std::string out;
    std::string err;
};

// Places of one user: a home of its own, so that no test meets the real one.
class ConsoleProcess {
public:
    // Starts with the arguments; without a full path they are the program's own.
    Ended run(const std::vector<std::string>& arguments);
    // Starts and returns at once; `end` waits.
    pid_t start(const std::vector<std::string>& arguments);
    Ended end(pid_t process);
    // What was written to standard output so far.
    [[nodiscard]] std::string output() const { return home_.content("out"); }

    [[nodiscard]] const HostDirectory& home() const { return home_; }

private:
    HostDirectory home_;
};

}  // namespace tidvane::tests
