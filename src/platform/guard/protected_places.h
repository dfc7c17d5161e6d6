// The folders that no run may empty or remove as a whole, whatever a list, a plug-in or a half-filled box says.
#pragma once

#include <string>
#include <vector>

#include "platform/common/windows_path.h"
#include "platform/shell.h"
#include "platform/system_info.h"

namespace tidvane::platform {

// Protected are: the root of every drive and share, the Windows folder and its system folders, the program folders, the
// users' root, every profile's root and its folders of application data, and all folders above these. What lies in them
// is not: C:\Windows\Temp or a file in C:\Windows are fair game.
//
// The places are what the machine answers, and besides the documented names on every drive: a second system on another
// drive is as dear as the running one. A short name ("PROGRA~1") that may stand for a place counts as the place.
class ProtectedPlaces {
public:
    // Asks the machine at the first look-up, not before: its registry may be large.
    ProtectedPlaces(SystemInfo& system, Shell& shell) : system_(system), shell_(shell) {}

    // `path` parsed; a wildcard in its last part stands for every place that it matches, and one that leaves no name
    // out for the folder that holds them, too.
    bool isProtected(const WindowsPath& path);

private:
    struct Place {
        std::string root;                // upper case; empty for every root
        std::vector<std::string> names;  // as comparableName gives them; "*" stands for any
    };

    void ask();
    void addDocumented();
    // The place and every folder above it.
    void add(const std::string& root, std::vector<std::string> names);
    void addAnswer(const std::string& path);
    void addProfile(const std::string& path);
    void addProfilesBelow(const std::string& root, std::vector<std::string> users);
    void addSystemFolders(const std::string& root, const std::vector<std::string>& windowsFolder);
    template <class Folders>
    void addBelow(const std::string& root, const std::vector<std::string>& place, const Folders& folders);

    SystemInfo& system_;
    Shell& shell_;
    bool asked_ = false;
    std::vector<Place> places_;
};

}  // namespace tidvane::platform
