#include "e2e/console_run.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace tidvane::tests {

namespace fs = std::filesystem;

namespace {

// Of processor time: several times what the largest input takes in a build for debugging.
constexpr unsigned kSecondsUntilItHangs = 60;

}  // namespace

ConsoleRun::ConsoleRun() : machine_(directory_ / "machine") {
    const ProcessResult made = runProcess({TIDVANE_CONSOLE, "machine", "create", machine_}, options());
    if (made.status != console_status::Done) throw std::runtime_error("no machine: " + made.err);
    fillProgramFolder();
}

ConsoleRun::ConsoleRun(std::string machine) : machine_(std::move(machine)) {
    fillProgramFolder();
}

void ConsoleRun::fillProgramFolder() const {
    fs::create_directory(program());
    for (const auto& entry : fs::directory_iterator(std::string(TIDVANE_SOURCE_DIR) + "/data")) {
        if (entry.is_regular_file()) fs::copy_file(entry.path(), fs::path(program()) / entry.path().filename());
    }
}

std::vector<std::string> ConsoleRun::command(const std::vector<std::string>& arguments) const {
    std::vector<std::string> result{TIDVANE_CONSOLE, "--machine", machine_, "--program", program()};
    result.insert(result.end(), arguments.begin(), arguments.end());
    return result;
}

ProcessOptions ConsoleRun::options() const {
    ProcessOptions options;
    options.environment = {"HOME=" + directory_.path()};
    options.processorSeconds = kSecondsUntilItHangs;
    return options;
}

ProcessResult ConsoleRun::console(const std::vector<std::string>& arguments) const {
    return console(arguments, options());
}

ProcessResult ConsoleRun::console(const std::vector<std::string>& arguments, const ProcessOptions& options) const {
    return runProcess(command(arguments), options);
}

void ConsoleRun::giveTo(uid_t user) const {
    const auto give = [user](const fs::path& path) {
        if (::lchown(path.c_str(), user, static_cast<gid_t>(-1)) != 0)
            throw std::runtime_error("cannot give " + path.string());
    };
    give(directory_.path());
    for (const auto& entry : fs::recursive_directory_iterator(directory_.path())) give(entry.path());
}

std::string ConsoleRun::machineFile(const std::string& name) const {
    return contentOfFile(machine_ + "/" + name);
}

std::string ConsoleRun::programFile(const std::string& name) const {
    return contentOfFile(program() + "/" + name);
}

void ConsoleRun::putMachineFile(const std::string& name, const std::string& content) const {
    putFile(machine_ + "/" + name, content);
}

void ConsoleRun::putProgramFile(const std::string& name, const std::string& content) const {
    putFile(program() + "/" + name, content);
}

std::string misbehaviour(const ProcessResult& result) {
    if (result.timedOut) return "it did not end in time; it said: " + result.err;
    if (result.signal != 0) return "signal " + std::to_string(result.signal) + " ended it; it said: " + result.err;
    if (result.err.find("Sanitizer") != std::string::npos || result.err.find("runtime error") != std::string::npos) {
        return "a sanitizer spoke: " + result.err;
    }
    const bool refused = result.status == console_status::Usage || result.status == console_status::MachineUnusable;
    if (!refused) {
        if (result.status == console_status::Done || result.status == console_status::Stopped) return {};
        return "it answered " + std::to_string(result.status) + " and said: " + result.err;
    }
    int sentences = 0;
    std::istringstream lines(result.err);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Warning: ")) continue;
        ++sentences;
        if (!line.ends_with('.')) return "no sentence: " + result.err;
    }
    return sentences == 1 ? std::string() : "not one sentence: " + result.err;
}

std::string contentOfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void putFile(const std::string& path, const std::string& content) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream out(path, std::ios::binary);
    out << content;
    if (!out.flush()) throw std::runtime_error(path + " cannot be written");
}

}  // namespace tidvane::tests
