// Starts a program of the host as a child with an environment of its own, and tells how it ended.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tidvane::tests {

struct ProcessOptions {
    std::vector<std::string> environment;      // "NAME=value", added to the few that every child gets
    std::string workingDirectory;              // empty: that of the test
    std::optional<uid_t> user;                 // gives its rights up before it starts; the test has to be root
    std::optional<std::uint64_t> largestFile;  // bytes; writing more fails as on a full disk
    bool openInput = false;                    // its standard input is a pipe that stays open; otherwise empty
    std::optional<unsigned> processorSeconds;  // more of them, and it is killed: it hangs in a loop
    std::chrono::seconds limit{120};           // wait() kills it when this is over
};

struct ProcessResult {
    int status = -1;        // the exit status; -1 when a signal ended it
    int signal = 0;         // the signal that ended it
    bool timedOut = false;  // it was still running at its limit, and was killed
    std::string out;
    std::string err;
};

// A running child. It dies with this object, at the latest; so it does when the test program itself ends.
class Process {
public:
    // `command[0]` is the path of the program, or a name that is searched in PATH.
    Process(const std::vector<std::string>& command, ProcessOptions options = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] pid_t id() const { return id_; }
    void send(int signal) const;
    // False once it has ended. It stays a zombie until wait().
    [[nodiscard]] bool isRunning();
    // What it has written by now.
    [[nodiscard]] std::string out() const;
    [[nodiscard]] std::string err() const;
    // Until `condition` holds; false when the child ended or its limit was over before.
    bool waitUntil(const std::function<bool()>& condition);
    bool waitForOutput(const std::string& text);
    ProcessResult wait();

private:
    [[nodiscard]] bool limitIsOver() const;

    ProcessOptions options_;
    std::chrono::steady_clock::time_point started_;
    pid_t id_ = -1;
    int out_ = -1;
    int err_ = -1;
    int input_ = -1;
    bool ended_ = false;
    bool killed_ = false;
    int state_ = 0;  // of waitpid()
};

// Starts, waits, answers.
ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options = {});

}  // namespace tidvane::tests
