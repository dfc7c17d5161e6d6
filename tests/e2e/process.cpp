#include "e2e/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace tidvane::tests {

namespace {

constexpr auto kPollPause = std::chrono::milliseconds(2);
constexpr int kNotStarted = 127;

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

// Neither the user's settings nor his language reach a child, but what a sanitizer or a sandbox is told does.
std::vector<std::string> environmentOf(const ProcessOptions& options) {
    std::vector<std::string> result{"LC_ALL=C.UTF-8", "TZ=UTC"};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "LD_LIBRARY_PATH"}) {
        if (const char* value = std::getenv(name)) result.push_back(std::string(name) + "=" + value);
    }
    result.insert(result.end(), options.environment.begin(), options.environment.end());
    return result;
}

std::string programPath(const std::string& name) {
    if (name.find('/') != std::string::npos) return name;
    const char* search = std::getenv("PATH");
    std::string rest = search != nullptr ? search : "/usr/bin:/bin";
    while (!rest.empty()) {
        const std::size_t colon = rest.find(':');
        std::string candidate = rest.substr(0, colon) + "/" + name;
        if (::access(candidate.c_str(), X_OK) == 0) return candidate;
        rest = colon == std::string::npos ? std::string() : rest.substr(colon + 1);
    }
    throw std::runtime_error(name + " is not installed");
}

std::string contentOf(int file) {
    std::string text;
    char part[16384];
    for (off_t place = 0;;) {
        const ssize_t length = ::pread(file, part, sizeof part, place);
        if (length <= 0) return text;
        text.append(part, static_cast<std::size_t>(length));
        place += length;
    }
}

int memoryFile(const char* name) {
    const int file = ::memfd_create(name, MFD_CLOEXEC);
    if (file < 0) throw std::runtime_error("no memory file");
    return file;
}

}  // namespace

Process::Process(const std::vector<std::string>& command, ProcessOptions options)
    : options_(std::move(options)), started_(std::chrono::steady_clock::now()) {
    std::vector<std::string> arguments = command;
    std::vector<std::string> environment = environmentOf(options_);
    const std::vector<char*> argv = pointers(arguments);
    const std::vector<char*> envp = pointers(environment);
    const std::string path = programPath(command.at(0));
    // Opened with the rights of the test: a child without rights may not get to where the program was built.
    const int program = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (program < 0) throw std::runtime_error(path + " cannot be opened");
    out_ = memoryFile("out");
    err_ = memoryFile("err");
    int input[2] = {-1, -1};
    if (options_.openInput) {
        if (::pipe2(input, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    } else {
        input[0] = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
    input_ = input[1];
    const pid_t parent = ::getpid();
    id_ = ::fork();
    if (id_ < 0) throw std::runtime_error("no process");
    if (id_ == 0) {
        ::setpgid(0, 0);
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(out_, STDOUT_FILENO);
        ::dup2(err_, STDERR_FILENO);
        if (!options_.workingDirectory.empty() && ::chdir(options_.workingDirectory.c_str()) != 0) ::_exit(kNotStarted);
        if (options_.largestFile) {
            ::signal(SIGXFSZ, SIG_IGN);  // the write itself fails then, as it does on a full disk
            const rlimit limit{*options_.largestFile, *options_.largestFile};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        }
        if (options_.processorSeconds) {
            const rlimit limit{*options_.processorSeconds, *options_.processorSeconds};
            ::setrlimit(RLIMIT_CPU, &limit);
        }
        if (options_.user && ::setresuid(*options_.user, *options_.user, *options_.user) != 0) ::_exit(kNotStarted);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent) ::_exit(kNotStarted);
        if (options_.user) ::fexecve(program, argv.data(), envp.data());
        ::execve(path.c_str(), argv.data(), envp.data());
        ::_exit(kNotStarted);
    }
    ::close(program);
    ::close(input[0]);
}

Process::~Process() {
    if (!ended_) {
        send(SIGKILL);
        ::waitpid(id_, &state_, 0);
    }
    for (const int file : {out_, err_, input_}) {
        if (file >= 0) ::close(file);
    }
}

void Process::send(int signal) const {
    if (!ended_) ::kill(id_, signal);
}

bool Process::isRunning() {
    siginfo_t info{};
    return !ended_ && ::waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == 0;
}

std::string Process::out() const {
    return contentOf(out_);
}

std::string Process::err() const {
    return contentOf(err_);
}

bool Process::limitIsOver() const {
    return std::chrono::steady_clock::now() - started_ > options_.limit;
}

bool Process::waitUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        if (!isRunning()) return condition();
        if (limitIsOver()) return false;
        std::this_thread::sleep_for(kPollPause);
    }
    return true;
}

bool Process::waitForOutput(const std::string& text) {
    return waitUntil([&] { return out().find(text) != std::string::npos; });
}

ProcessResult Process::wait() {
    while (isRunning()) {
        if (limitIsOver()) {
            killed_ = true;
            send(SIGKILL);
            break;
        }
        std::this_thread::sleep_for(kPollPause);
    }
    if (!ended_) ::waitpid(id_, &state_, 0);
    ended_ = true;
    ProcessResult result;
    if (WIFEXITED(state_)) result.status = WEXITSTATUS(state_);
    if (WIFSIGNALED(state_)) result.signal = WTERMSIG(state_);
    result.timedOut = killed_;
    result.out = out();
    result.err = err();
    return result;
}

ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options) {
    return Process(command, options).wait();
}

}  // namespace tidvane::tests
