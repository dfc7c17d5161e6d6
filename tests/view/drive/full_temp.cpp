#include "view/drive/full_temp.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tidvane::tests {

namespace fs = std::filesystem;

namespace {
constexpr int kFolders = 120;
constexpr int kFiles = 3;  // in each
}  // namespace

FullTemp::FullTemp(const GuiRun& gui) {
    for (int number = 0; number < kFolders; ++number) {
        folders_.push_back(gui.places().drive() + kUserTemp + "/folder" + std::to_string(number));
        fs::create_directory(folders_.back());
        for (int file = 0; file < kFiles; ++file) {
            std::ofstream(folders_.back() + "/trace" + std::to_string(file) + ".tmp") << "x";
        }
    }
    if (gui.places().console({"lists", "add", "masks", "trace*.tmp"}).status != console_status::Done) {
        throw std::runtime_error("the mask is not taken");
    }
    gui.set({"chkSearchTasks=1", "cboKillMethod=2", "txtPurgeSpeed=50"});
}

int FullTemp::emptied() const {
    return static_cast<int>(
        std::count_if(folders_.begin(), folders_.end(), [](const auto& f) { return fs::is_empty(f); }));
}

}  // namespace tidvane::tests
