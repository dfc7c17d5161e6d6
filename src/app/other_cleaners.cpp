#include "app/other_cleaners.h"

#include <array>

namespace tidvane::app {

namespace {

struct Cleaner {
    const char* folder;  // below the folder of the environment variable "programfiles"
    const char* word;
    int grade;  // last word of the line
};

// The uneven blanks and colons are intended.
constexpr std::array kCleaners{
    Cleaner{"\\CCleaner", ": CCleaner ", 589},
    Cleaner{"\\Bleachbit", ": Bleachbit ", 587},
    Cleaner{"\\SlimCleaner", ": SlimCleaner ", 587},
    Cleaner{"\\Wise", " Wise Disk Cleaner ", 588},
    Cleaner{"\\Glary Utilities", ": Glary Utilities ", 587},
    Cleaner{"\\System Ninja", ": System Ninja ", 588},
    Cleaner{"\\FCleaner", ": FCleaner", 588},
    Cleaner{"\\IObit", ": Advanced SystemCare ", 587},
    Cleaner{"\\BlueSprig", ": JetClean ", 588},
    Cleaner{"\\ClearProg", ": ClearProg ", 588},
    Cleaner{"\\AppCleaner", ": AppCleaner ", 588},
};

}  // namespace

void noteOtherCleaners(settings::Program& program) {
    const auto folder = program.platform.environment.get("programfiles");
    if (!folder || folder->empty()) return;
    for (const Cleaner& cleaner : kCleaners) {
        if (!program.platform.files.FolderExists(*folder + cleaner.folder)) continue;
        program.report().AddLogLine(program.LangText(586) + cleaner.word + "<" + program.LangText(cleaner.grade) + ">");
    }
}

}  // namespace tidvane::app
