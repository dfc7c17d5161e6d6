// The console as a user starts it: the real program, as a process of its own.
#pragma once

#include <string>
#include <vector>

#include "e2e/process.h"
#include "support/host_directory.h"

namespace tidvane::tests {

// What the console answers with.
namespace console_status {
inline constexpr int Done = 0;
inline constexpr int Usage = 2;
inline constexpr int Stopped = 3;
inline constexpr int MachineUnusable = 4;
}  // namespace console_status

// A machine and a program folder in a directory of the test.
class ConsoleRun {
public:
    // An empty machine is made, and a program folder with what is delivered.
    ConsoleRun();
    // For a machine that is there already.
    explicit ConsoleRun(std::string machine);

    [[nodiscard]] const std::string& machine() const { return machine_; }
    [[nodiscard]] std::string drive() const { return machine_ + "/drive_c"; }
    [[nodiscard]] std::string program() const { return directory_ / "program"; }
    // For whatever else a test puts down.
    [[nodiscard]] const HostDirectory& directory() const { return directory_; }

    // With --machine and --program in front of the arguments.
    [[nodiscard]] std::vector<std::string> command(const std::vector<std::string>& arguments) const;
    [[nodiscard]] ProcessOptions options() const;
    [[nodiscard]] ProcessResult console(const std::vector<std::string>& arguments) const;
    [[nodiscard]] ProcessResult console(const std::vector<std::string>& arguments, const ProcessOptions& options) const;

    // Gives the whole directory to a user, as if he had made it.
    void giveTo(uid_t user) const;

    [[nodiscard]] std::string machineFile(const std::string& name) const;  // content
    [[nodiscard]] std::string programFile(const std::string& name) const;
    void putMachineFile(const std::string& name, const std::string& content) const;
    void putProgramFile(const std::string& name, const std::string& content) const;

private:
    void fillProgramFolder() const;

    HostDirectory directory_;
    std::string machine_;
};

// Empty when a process ended as the console has to end, whatever was put in front of it: with one of its statuses,
// by itself and in time, and with one sentence on standard error where it refused.
std::string misbehaviour(const ProcessResult& result);

std::string contentOfFile(const std::string& path);
void putFile(const std::string& path, const std::string& content);

// "drive_c/Windows" from the name that a machine made by the console gives to it; the folders of its user.
inline constexpr const char* kWindowsTemp = "/Windows/Temp";
inline constexpr const char* kPrefetch = "/Windows/Prefetch";
inline constexpr const char* kUserTemp = "/Users/User/AppData/Local/Temp";

}  // namespace tidvane::tests
