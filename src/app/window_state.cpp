#include "app/window_state.h"

#include "app/frmMain.h"
#include "settings/modFormINI.h"

namespace tidvane::app {

namespace {

// Section "WindowState": the rectangle and the two columns of the task list, in twips.
std::vector<settings::WindowNumber> rectangleAndColumns(frmMain& main) {
    std::vector<settings::WindowNumber> numbers = settings::rectangleOf(main);
    const auto column = [&](const char* key, const char* header) {
        numbers.push_back({key,
                           [&main, header] {
                               const forms::ColumnHeader* found = main.lstTasks.column(header);
                               return found == nullptr ? 0 : found->width;
                           },
                           [&main, header](int width) {
                               if (forms::ColumnHeader* found = main.lstTasks.column(header)) {
                                   found->width = width;
                                   main.lstTasks.viewChanged();
                               }
                           }});
    };
    column("TaskWidth", "Task");
    column("StatusWidth", "Status");
    return numbers;
}

// Section "frmMain": what is chosen in the window.
std::vector<settings::WindowNumber> choices(frmMain& main) {
    return {
        {"ExtensionsCat", [&main] { return main.cboExtensionsCat.ListIndex(); },
         [&main](int row) { main.cboExtensionsCat.setListIndex(row); }},
        // The page that was seen last is the only one on offer, as after any command that changes the page.
        {"MainTab", [&main] { return main.SSTab1.Tab.get(); },
         [&main](int tab) {
             if (tab >= 0 && tab < main.SSTab1.Tabs()) main.SSTab1.offerOnly(tab);
         }},
        {"DiskSizeDrive", [&main] { return main.drvDiskSizeDrive.ListIndex.get(); },
         [&main](int row) {
             const int drives = static_cast<int>(main.drvDiskSizeDrive.List.size());
             if (row >= 0 && row < drives) main.drvDiskSizeDrive.ListIndex = row;
         }},
    };
}

}  // namespace

void loadWindowState(frmMain& main) {
    const bool minimized = main.State == forms::WindowState::Minimized;
    settings::loadWindowNumbers(main.program(), "WindowState", rectangleAndColumns(main), minimized);
    settings::loadWindowNumbers(main.program(), "frmMain", choices(main), minimized);
}

void saveWindowState(frmMain& main) {
    settings::saveWindowNumbers(main.program(), "WindowState", rectangleAndColumns(main));
    settings::saveWindowNumbers(main.program(), "frmMain", choices(main));
}

}  // namespace tidvane::app
