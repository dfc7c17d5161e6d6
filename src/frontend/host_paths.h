// Paths of a machine as the host has them, and the other way round: for dialogs, which show folders of the host.
#pragma once

#include <string>
#include <vector>

#include "platform/machine/machine.h"

namespace tidvane::frontend {

class HostPaths {
public:
    // `programFolder`: the program's own folder on the host, which the machine shows at a place of its own.
    HostPaths(const platform::machine::Machine& machine, const std::string& programFolder);

    // The file or folder at a path of the machine ("C:\Windows"); where there is none, the nearest folder above it that
    // is there. Empty: the path has no drive of this machine.
    [[nodiscard]] std::string hostPathOf(const std::string& machinePath) const;
    // The same for a folder that is there; otherwise empty.
    [[nodiscard]] std::string hostFolderOf(const std::string& machinePath) const;
    // The same for a file.
    [[nodiscard]] std::string hostFileOf(const std::string& machinePath) const;
    // Empty: it lies outside the machine. Links of the host are followed.
    [[nodiscard]] std::string machinePathOf(const std::string& hostPath) const;

private:
    struct Place {
        std::string onMachine;  // without a trailing backslash
        std::string onHost;     // without links
    };
    // `missing`: names of the path that are not there.
    [[nodiscard]] std::string find(const std::string& machinePath, bool& missing) const;

    std::vector<Place> places_;  // the program's folder first, then the drives
};

}  // namespace tidvane::frontend
