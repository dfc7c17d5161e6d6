// One operation of the product, run once: what bench/side_by_side.sh puts beside the tools of the system.
//
//   tidvane-measure MACHINE [preview-]delall|purge|stats|sweep|overwrite|plugins|temp WINDOWS-PATH
//
// "temp" measures the folder and purges it, as the tasks of the temp folders do. With "preview-" in front everything is
// only tried out.
// "plugins" runs every plug-in of the program's folder, MACHINE.program/PlugIns, and takes no notice of the path.
// Prints the milliseconds of the operation alone and the peak memory of the process in KiB.
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "console/console_display.h"
#include "platform/machine/machine_platform.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/built_in_masks.h"
#include "settings/frmOptions.h"
#include "settings/program.h"

namespace {

using namespace tidvane;

int fail(const std::string& sentence) {
    std::cerr << "tidvane-measure: " << sentence << "\n";
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return fail(
            "usage: tidvane-measure MACHINE [preview-]delall|purge|stats|sweep|overwrite|plugins|temp WINDOWS-PATH");
    std::string what = argv[2];
    const bool preview = what.starts_with("preview-");
    if (preview) what.erase(0, what.find('-') + 1);
    const std::string path = argv[3];

    std::string error;
    using Access = platform::machine::Machine::Access;
    auto machine = platform::machine::Machine::open(argv[1], preview ? Access::Read : Access::Write, error);
    if (machine == nullptr) return fail(error);
    platform::machine::MachineOptions options;
    options.preview = preview;
    // Beside the machine: the program may not lie in what it cleans.
    options.programFolder = std::string(argv[1]) + ".program";
    std::filesystem::create_directories(options.programFolder);
    auto services = platform::machine::MachinePlatform::make(std::move(machine), options, error);
    if (services == nullptr) return fail(error);
    console::ConsoleDisplay display(std::cerr, false);
    settings::Program program(services->platform(), display);
    program.platform.removed.wantBytes = preview;
    app::offerAllWindows(program);
    program.LangText.set(732, "plain");
    program.LangText.set(733, "recycle");
    program.LangText.set(734, "overwrite");
    auto& settingsWindow = program.get<settings::frmOptions>();
    settingsWindow.txtPurgeSpeed.setText("0");
    if (what == "sweep") {
        for (const char* mask : settings::kBuiltInMasks) settingsWindow.lstSearchMasks.AddItem(mask);
    }
    app::frmMain* main = nullptr;
    if (what == "plugins") {
        main = &program.get<app::frmMain>();
        main->menu("mnuSelectAllPlugs").Click();
        std::cerr << main->LstPlugs.SelCount() << " plug-ins\n";
    }

    const auto start = std::chrono::steady_clock::now();
    if (what == "delall") {
        removal::DelAll(program.platform, path);
    } else if (what == "purge") {
        removal::PurgeFolder(program, path);
    } else if (what == "stats") {
        removal::FolderCounters counters;
        removal::FolderStats(program.platform.files, path, counters);
        std::cerr << counters.folders << " folders, " << counters.files << " files, " << counters.bytes << " bytes\n";
    } else if (what == "temp") {
        removal::FolderCounters counters;
        removal::FolderStats(program.platform.files, path, counters);
        removal::PurgeFolder(program, path);
    } else if (what == "sweep") {
        removal::SweepFolderByMasks(program, path);
    } else if (what == "overwrite") {
        removal::KillFile(program.platform, path, removal::KillOverwrite, false);
    } else if (main != nullptr) {
        main->CleanPlugins();
    } else {
        return fail("unknown operation '" + what + "'");
    }
    const auto elapsed = std::chrono::steady_clock::now() - start;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << std::chrono::duration<double, std::milli>(elapsed).count() << " " << usage.ru_maxrss << "\n";
    return 0;
}
