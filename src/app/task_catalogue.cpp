#include "app/task_catalogue.h"

#include <algorithm>
#include <array>

#include "app/plug_in_step.h"
#include "tasks/browser_tasks.h"
#include "tasks/internet_explorer_tasks.h"
#include "tasks/office_tasks.h"
#include "tasks/own_list_tasks.h"
#include "tasks/search_task.h"
#include "tasks/windows_tasks.h"

namespace tidvane::app {

namespace {

using namespace tidvane::tasks;

// clang-format off
constexpr std::array kCatalogue{
    // step, text of the name, fixed name, gate of the worker, gate of the row, group, worker
    CleaningTask{1, 222, nullptr, {"frmOptions", "chkSearchTasks"}, {"frmOptions", "chkSearchTasks"}, Group::Search, SearchMaskFiles},
    CleaningTask{2, 220, nullptr, {"frmOptions", "chkActivateOwnFolder"}, {"frmOptions", "chkActivateOwnFolder"}, Group::Custom, cleanOwnFolders},  // one row for both
    CleaningTask{3, 220, nullptr, {"frmOptions", "chkActivateOwnFiles"}, {"frmOptions", "chkActivateOwnFiles"}, Group::Custom, cleanOwnFiles},  // one row for both
    CleaningTask{4, 200, nullptr, {"frmOptions", "chkRecentDocuments"}, {"frmOptions", "chkRecentDocuments"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{5, 201, nullptr, {"frmOptions", "chkSearchList"}, {"frmOptions", "chkSearchList"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{6, 202, nullptr, {"frmOptions", "chkComputerList"}, {"frmOptions", "chkComputerList"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{7, 203, nullptr, {"frmOptions", "chkRunList"}, {"frmOptions", "chkRunList"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{8, 204, nullptr, {"frmOptions", "chkRegKey"}, {"frmOptions", "chkRegKey"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{9, 205, nullptr, {"frmOptions", "chkLastSaveOpen"}, {"frmOptions", "chkLastSaveOpen"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{10, 206, nullptr, {"frmOptions", "chkWinUserAssist"}, {"frmOptions", "chkWinUserAssist"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{11, 207, nullptr, {"frmOptions", "chkLastApply"}, {"frmOptions", "chkLastApply"}, Group::Windows, cleanRecentOfficeFiles},
    CleaningTask{12, 208, nullptr, {"frmOptions", "chkSearchWizard"}, {"frmOptions", "chkSearchWizard"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{13, 209, nullptr, {"frmOptions", "chkRASAutoDial"}, {"frmOptions", "chkRASAutoDial"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{14, 210, nullptr, {"frmOptions", "chkTrash"}, {"frmOptions", "chkTrash"}, Group::Windows, emptyRecycleBin},
    CleaningTask{15, 211, nullptr, {"frmOptions", "chkClipboard"}, {"frmOptions", "chkClipboard"}, Group::Windows, emptyClipboard},
    CleaningTask{16, 212, nullptr, {"frmOptions", "chkTempFolder"}, {"frmOptions", "chkTempFolder"}, Group::Windows, cleanWindowsTemp},
    CleaningTask{17, 213, nullptr, {"frmOptions", "chkUserTemp"}, {"frmOptions", "chkUserTemp"}, Group::Windows, cleanUserTemp},
    CleaningTask{18, 214, nullptr, {"frmOptions", "chkPrefetchFolder"}, {"frmOptions", "chkPrefetchFolder"}, Group::Windows, cleanPrefetch},
    CleaningTask{19, 215, nullptr, {"frmOptions", "chkRecentWordPad"}, {"frmOptions", "chkRecentWordPad"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{20, 216, nullptr, {"frmOptions", "chkRecentPaint"}, {"frmOptions", "chkRecentPaint"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{21, 217, nullptr, {"frmOptions", "chkRecentMediaPlayer"}, {"frmOptions", "chkRecentMediaPlayer"}, Group::Windows, cleanWindowsRegistry},
    CleaningTask{22, 218, nullptr, {"frmOptions", "chkAlphabetizeStartMenu"}, {"frmOptions", "chkAlphabetizeStartMenu"}, Group::Windows, sortMenuOrder},
    CleaningTask{23, 219, nullptr, {"frmOptions", "chkAlphabetizeFavorites"}, {"frmOptions", "chkAlphabetizeFavorites"}, Group::Windows, sortMenuOrder},
    CleaningTask{24, 231, nullptr, {"frmIEInDepthClean", "chkIEINDepthCleanAll"}, {nullptr, nullptr}, Group::InternetExplorer, clearAllOfInternetExplorer},
    CleaningTask{25, 223, nullptr, {"frmOptions", "chkIEHistory"}, {"frmOptions", "chkIEHistory"}, Group::InternetExplorer, cleanIeHistory},
    CleaningTask{26, 224, nullptr, {"frmOptions", "chkIECookies"}, {"frmOptions", "chkIECookies"}, Group::InternetExplorer, cleanIeCookies},
    CleaningTask{27, 225, nullptr, {"frmOptions", "chkIECache"}, {"frmOptions", "chkIECache"}, Group::InternetExplorer, cleanIeCache},
    CleaningTask{28, 226, nullptr, {"frmOptions", "chkIEURL"}, {"frmOptions", "chkIEURL"}, Group::InternetExplorer, cleanIeTypedAddresses},
    CleaningTask{29, 227, nullptr, {"frmOptions", "chkIEAutoCompleteForms"}, {"frmOptions", "chkIEAutoCompleteForms"}, Group::InternetExplorer, cleanIeAutoComplete},
    CleaningTask{30, 228, nullptr, {"frmOptions", "chkIEDownloadedProgramFiles"}, {"frmOptions", "chkIEDownloadedProgramFiles"}, Group::InternetExplorer, cleanIeFolder},
    CleaningTask{31, 229, nullptr, {"frmOptions", "chkIEOfflineSites"}, {"frmOptions", "chkIEOfflineSites"}, Group::InternetExplorer, cleanIeFolder},
    CleaningTask{32, 230, nullptr, {"frmOptions", "chkIEAlexa"}, {"frmOptions", "chkIEAlexa"}, Group::InternetExplorer, cleanIeToolbarButton},
    CleaningTask{33, 237, nullptr, {"frmOptions", "chkMozillaHistory"}, {"frmOptions", "chkMozillaHistory"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{34, 238, nullptr, {"frmOptions", "chkMozillaCookies"}, {"frmOptions", "chkMozillaCookies"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{35, 239, nullptr, {"frmOptions", "chkMozillaCache"}, {"frmOptions", "chkMozillaCache"}, Group::Firefox, cleanFirefoxCache},
    CleaningTask{36, 240, nullptr, {"frmOptions", "chkMozillaAutoComplete"}, {"frmOptions", "chkMozillaAutoComplete"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{37, 241, nullptr, {"frmOptions", "chkMozillaDownloads"}, {"frmOptions", "chkMozillaDownloads"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{38, 242, nullptr, {"frmOptions", "chkMozillaGoogleToolbar"}, {"frmOptions", "chkMozillaGoogleToolbar"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{39, 243, nullptr, {"frmOptions", "chkMozillaCrashReports"}, {"frmOptions", "chkMozillaCrashReports"}, Group::Firefox, cleanFirefoxCrashReports},
    CleaningTask{40, 244, nullptr, {"frmOptions", "chkMozillaSearchHistory"}, {"frmOptions", "chkMozillaSearchHistory"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{41, 245, nullptr, {"frmOptions", "chkMozillaSession"}, {"frmOptions", "chkMozillaSession"}, Group::Firefox, cleanProfileFiles},
    CleaningTask{42, 246, nullptr, {"frmOptions", "chkOperaHistory"}, {"frmOptions", "chkOperaHistory"}, Group::Opera, cleanProfileFiles},
    CleaningTask{43, 247, nullptr, {"frmOptions", "chkOperaCookies"}, {"frmOptions", "chkOperaCookies"}, Group::Opera, cleanProfileFiles},
    CleaningTask{44, 248, nullptr, {"frmOptions", "chkOperaCache"}, {"frmOptions", "chkOperaCache"}, Group::Opera, cleanOperaCache},
    CleaningTask{45, 249, nullptr, {"frmOptions", "chkOperaURL"}, {"frmOptions", "chkOperaURL"}, Group::Opera, cleanProfileFiles},
    CleaningTask{46, 250, nullptr, {"frmOptions", "chkOperaDownloads"}, {"frmOptions", "chkOperaDownloads"}, Group::Opera, cleanProfileFiles},
    CleaningTask{47, 251, nullptr, {"frmOptions", "chkOperaWebsiteIcons"}, {"frmOptions", "chkOperaWebsiteIcons"}, Group::Opera, cleanOperaIcons},
    CleaningTask{48, 252, nullptr, {"frmOptions", "chkChromeHistory"}, {"frmOptions", "chkChromeHistory"}, Group::Chrome, cleanProfileFiles},
    CleaningTask{49, 253, nullptr, {"frmOptions", "chkChromeCookies"}, {"frmOptions", "chkChromeCookies"}, Group::Chrome, cleanChromeCookies},
    CleaningTask{50, 254, nullptr, {"frmOptions", "chkChromeCache"}, {"frmOptions", "chkChromeCache"}, Group::Chrome, cleanChromeCache},
    CleaningTask{51, 255, nullptr, {"frmOptions", "chkChromeSession"}, {"frmOptions", "chkChromeSession"}, Group::Chrome, cleanProfileFiles},
    CleaningTask{52, 256, nullptr, {"frmOptions", "chkChromeDownloads"}, {"frmOptions", "chkChromeDownloads"}, Group::Chrome, cleanProfileFiles},
    CleaningTask{53, 257, nullptr, {"frmOptions", "chkSafariHistory"}, {"frmOptions", "chkSafariHistory"}, Group::Safari, cleanSafariHistory},
    CleaningTask{54, 258, nullptr, {"frmOptions", "chkSafariCookies"}, {"frmOptions", "chkSafariCookies"}, Group::Safari, cleanSafariCookies},
    CleaningTask{55, 259, nullptr, {"frmOptions", "chkSafariCache"}, {"frmOptions", "chkSafariCache"}, Group::Safari, cleanProfileFiles},
    CleaningTask{56, 260, nullptr, {"frmOptions", "chkSafariCache"}, {"frmOptions", "chkSafariSavedForms"}, Group::Safari, cleanProfileFiles},  // row and worker ask different boxes: intended
    CleaningTask{57, 0, "Microsoft Office Access", {"frmOptions", "chkMSAccess"}, {"frmOptions", "chkMSAccess"}, Group::Office, cleanOffice},
    CleaningTask{58, 0, "Microsoft Office Excel", {"frmOptions", "chkMSExcel"}, {"frmOptions", "chkMSExcel"}, Group::Office, cleanOffice},
    CleaningTask{59, 0, "Microsoft Office PowerPoint", {"frmOptions", "chkMSPowerPoint"}, {"frmOptions", "chkMSPowerPoint"}, Group::Office, cleanOffice},
    CleaningTask{60, 0, "Microsoft Office Word", {"frmOptions", "chkMSWord"}, {"frmOptions", "chkMSWord"}, Group::Office, cleanOffice},
    CleaningTask{61, 0, "Microsoft Office Front Page", {"frmOptions", "chkMSFrontPage"}, {"frmOptions", "chkMSFrontPage"}, Group::Office, cleanOffice},
    CleaningTask{62, 104, nullptr, {nullptr, nullptr}, {nullptr, nullptr}, Group::PlugIns, cleanPlugIns},
};
// clang-format on
static_assert(kCatalogue.size() == kSteps, "a row was lost or added: the walk has 62 steps");

struct GroupRow {
    Group group;
    const char* name;
    int icon;
};
constexpr std::array kGroups{
    GroupRow{Group::Search, "search", 1},   GroupRow{Group::Custom, "custom", 1},
    GroupRow{Group::Windows, "windows", 2}, GroupRow{Group::InternetExplorer, "ie", 3},
    GroupRow{Group::Firefox, "firefox", 4}, GroupRow{Group::Opera, "opera", 5},
    GroupRow{Group::Chrome, "chrome", 6},   GroupRow{Group::Safari, "safari", 7},
    GroupRow{Group::Office, "office", 8},   GroupRow{Group::PlugIns, "plugins", 0},
};

const GroupRow& groupRow(Group group) {
    return *std::find_if(kGroups.begin(), kGroups.end(), [&](const GroupRow& row) { return row.group == group; });
}

}  // namespace

std::span<const CleaningTask> taskCatalogue() {
    return kCatalogue;
}

const char* groupName(Group group) {
    return groupRow(group).name;
}

int groupIcon(Group group) {
    return groupRow(group).icon;
}

}  // namespace tidvane::app
