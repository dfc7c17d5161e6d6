#include "console_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace tidvane::tests {

pid_t ConsoleProcess::start(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{TIDVANE_CONSOLE};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> raw;
    for (std::string& word : words) raw.push_back(word.data());
    raw.push_back(nullptr);
    const std::string out = home_ / "out";
    const std::string err = home_ / "err";
    const std::string data = home_ / "data";
    const pid_t process = ::fork();
    if (process != 0) return process;
    constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
    ::dup2(::open(out.c_str(), kFlags, 0644), STDOUT_FILENO);
    ::dup2(::open(err.c_str(), kFlags, 0644), STDERR_FILENO);
    ::setenv("XDG_DATA_HOME", data.c_str(), 1);
    ::execv(raw[0], raw.data());
    ::_exit(127);
}

Ended ConsoleProcess::end(pid_t process) {
    Ended ended;
    int status = 0;
    ::waitpid(process, &status, 0);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    ended.out = home_.content("out");
    ended.err = home_.content("err");
    return ended;
}

Ended ConsoleProcess::run(const std::vector<std::string>& arguments) {
    return end(start(arguments));
}

}  // namespace tidvane::tests
