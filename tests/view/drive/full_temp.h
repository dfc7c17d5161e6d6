// What keeps a run busy for a while: files in folders of the user's temporary folder, which a sweep by masks empties
// one after the other. It hears its user at each folder that it enters.
#pragma once

#include <string>
#include <vector>

#include "view/drive/gui_run.h"

namespace tidvane::tests {

class FullTemp {
public:
    // Puts the files there and stores the settings and the mask for the sweep; before the program starts.
    explicit FullTemp(const GuiRun& gui);

    [[nodiscard]] int folders() const { return static_cast<int>(folders_.size()); }
    // How many of them hold nothing any more.
    [[nodiscard]] int emptied() const;

private:
    std::vector<std::string> folders_;
};

}  // namespace tidvane::tests
