#include "app/explorer_menu.h"

#include <algorithm>
#include <array>
#include <vector>

#include "app/frmMain.h"
#include "base/text.h"

namespace tidvane::app {

namespace {

struct FolderRow {
    const char* label;
    int folder;  // number of the special folder
};

constexpr std::array kFolders{
    FolderRow{"All Users Desktop: ", 16},
    FolderRow{"Application Data: ", 26},
    FolderRow{"Local Settings: ", 28},
    FolderRow{"User Profile: ", 40},
    FolderRow{"Program Files: ", 38},
    FolderRow{"Start Menu Programs: ", 2},
    FolderRow{"Temporary Internet Files: ", 32},
    FolderRow{"Cookies: ", 33},
    FolderRow{"Desktop: ", 0},
    FolderRow{"Favorites: ", 6},
    FolderRow{"History: ", 34},
    FolderRow{"My Documents: ", 5},
    FolderRow{"My Pictures: ", 39},
    FolderRow{"Send To: ", 9},
    FolderRow{"Start Menu: ", 11},
    FolderRow{"Start Up: ", 7},
    FolderRow{"Templates: ", 21},
    FolderRow{"System: ", 37},
    FolderRow{"Windows Folder: ", 36},
};

}  // namespace

void FillExplorerMenu(frmMain& main) {
    std::vector<std::string> rows;
    rows.reserve(kFolders.size());
    for (const FolderRow& row : kFolders)
        rows.push_back(row.label + main.program().platform.shell.SpecialFolder(row.folder));
    std::sort(rows.begin(), rows.end(), base::NoCaseLess{});
    main.lstExplorer.Clear();
    for (std::string& row : rows) main.lstExplorer.AddItem(std::move(row));
}

std::string folderOfRow(const std::string& row) {
    const std::size_t drive = row.find(":\\");
    return drive == std::string::npos || drive == 0 ? std::string() : row.substr(drive - 1);
}

}  // namespace tidvane::app
