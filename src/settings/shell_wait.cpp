#include "settings/shell_wait.h"

#include <cstdlib>

namespace tidvane::settings {

namespace {
constexpr int kPollMilliseconds = 10;
// Not in the language table: these two stay German in every language, as intended.
constexpr const char* kFailedTitle = "Task kann nicht ausgeführt werden ...";
constexpr const char* kFailedText = "Es ist ein Fehler beim Starten eines externen Prozesses von Tidvane aufgetreten.";
}  // namespace

bool ShellWait(Program& program, const std::string& commandLine, int show) {
    const auto process = program.platform.processes.CreateProcessA(commandLine, std::abs(show));
    if (process == nullptr) {
        program.MsgBox(kFailedText, forms::msgbox::Exclamation, kFailedTitle);
        return false;
    }
    while (!process->wait(kPollMilliseconds)) program.platform.events.DoEvents();
    return true;
}

bool ShellExecuteWait(Program& program, const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show) {
    return program.platform.shell.ShellExecuteExAndWait(verb, file, parameters, directory, show);
}

}  // namespace tidvane::settings
