#include "frontend/own_list_watch.h"

#include <memory>
#include <utility>

#include "frontend/confirmations.h"
#include "settings/frmOptions.h"

namespace tidvane::frontend {

namespace {

using settings::frmOptions;

// Rows that stand at the end and were not there before are new: nothing else lengthens a list.
void watch(settings::Program& program, OwnList kind, forms::ListBox& list) {
    const auto known = std::make_shared<int>(list.ListCount());
    list.viewChanged.connect([&program, kind, &list, known] {
        const int before = std::exchange(*known, list.ListCount());
        // The rows of the load are what the file holds.
        if (program.windows.isLoading(frmOptions::kName)) return;
        for (int row = before; row < list.ListCount(); ++row) {
            const std::string warning = warningOfIdleEntry(program, kind, list.List(row));
            if (!warning.empty()) program.display.warn(warning);
        }
    });
}

}  // namespace

void watchOwnLists(settings::Program& program) {
    program.windows.offer(frmOptions::kName, [&program] {
        auto options = std::make_unique<frmOptions>(program);
        watch(program, OwnList::Folders, options->lstFolders);
        watch(program, OwnList::Files, options->lstFiles);
        watch(program, OwnList::Masks, options->lstSearchMasks);
        return options;
    });
}

}  // namespace tidvane::frontend
