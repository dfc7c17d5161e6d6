// Opening a Windows system for a front end, and keeping it open beside others.
#pragma once

#include <memory>
#include <string>

#include "platform/machine/machine_platform.h"

namespace tidvane::frontend {

// Where things are when nobody names a place. Empty: no home is known.
std::string defaultMachine();
std::string defaultProgramFolder();

struct OpenMachine {
    std::string directory;
    std::string programFolder;  // made of the delivered files where it is missing
    platform::machine::Machine::Access access = platform::machine::Machine::Access::Read;
    std::string arguments;  // the raw argument text of this start
    bool preview = false;
};

// Null: `error` is one sentence that says what to do.
std::unique_ptr<platform::machine::MachinePlatform> openMachine(const OpenMachine& wish, std::string& error);

// A machine that a front end keeps open while people look at it. Others may use it meanwhile: it is taken for changes
// only as long as an act of the user needs it, and what such an act works with is what lies on the disk then.
//
//   an act that removes something   mayRemove() in front of it; settle() behind it
//   any other act, and idle moments settle(): cheap where nothing changed
//
// An act that changes the registry without having asked (a setting for the start with Windows, say) takes the machine
// by itself at its first change; where that is refused the registry answers "denied" (5), nothing changes, and the
// warning sink is told why.
class HeldMachine {
public:
    // The machine is opened for reading, whoever else uses it: so this succeeds beside a running Wine server. Null:
    // `error` is one sentence. `wish.access` does not matter.
    static std::unique_ptr<HeldMachine> open(const OpenMachine& wish, std::string& error);
    // Stores what is still to be stored, if that can be done, and tells nobody.
    ~HeldMachine();
    HeldMachine(const HeldMachine&) = delete;
    HeldMachine& operator=(const HeldMachine&) = delete;

    platform::machine::MachinePlatform& platform() { return *platform_; }

    // Empty: nothing stands against a run as far as a look can tell. Otherwise the sentence that mayRemove would give,
    // for a line at the start. Takes nothing.
    std::string whyNotNow();

    // Takes the machine for changes until settle(): locks it against other programs of ours, sees that no Wine server
    // has it open, and reads the registry anew where it changed on the disk. False: `why` is one sentence, and nothing
    // may be removed. May be called again while it is taken: the Wine server is looked for each time.
    bool mayRemove(std::string& why);

    // Stores what changed in the registry, and lets others at the machine. A few tests where nothing is taken. Not to
    // be called while a run is under way. False: it could not be stored; `error` is one sentence, the first time that
    // it is so: as long as it stays so, further calls try again and say nothing. What cannot be stored stays with this
    // program; it is lost, and told to be, where another program changes the registry meanwhile.
    bool settle(std::string& error);

    // Something changed that is not stored.
    [[nodiscard]] bool dirty() const;

private:
    explicit HeldMachine(std::unique_ptr<platform::machine::MachinePlatform> platform);

    std::unique_ptr<platform::machine::MachinePlatform> platform_;
    std::string notStored_;  // why; empty where nothing waits to be stored
};

}  // namespace tidvane::frontend
