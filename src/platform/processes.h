// Starting programs and ending the session.
#pragma once

#include <memory>
#include <string>

namespace tidvane::platform {

class Process {
public:
    virtual ~Process() = default;
    // True when it has ended; false after the time-out (258 on Windows).
    virtual bool wait(int milliseconds) = 0;
};

class Processes {
public:
    virtual ~Processes() = default;
    // No application name, handles inherited, startup flags 1, creation flags 32. Null: it could not be started. A
    // machine in a directory starts nothing.
    virtual std::unique_ptr<Process> CreateProcessA(const std::string& commandLine, int show) = 0;
    // The single-instance lock of this program on this machine and program folder. True: this process holds it now.
    // Throws std::system_error where the folder cannot even be opened: nothing is known about others then.
    virtual bool takeInstanceLock() = 0;
    virtual void releaseInstanceLock() = 0;
};

class Session {
public:
    virtual ~Session() = default;
    // Takes the privilege it needs first. Flags: 0 log off, 1 shut down, 2 restart.
    virtual bool ExitWindowsEx(unsigned flags) = 0;
};

}  // namespace tidvane::platform
