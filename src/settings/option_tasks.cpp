// The task boxes of the options window, page by page, and their master boxes.
#include "settings/frmOptions.h"

namespace tidvane::settings {

void frmOptions::buildTaskTable() {
    const auto page = [this](TaskPage number) -> std::vector<TaskBox>& {
        return tasks_[static_cast<std::size_t>(number)];
    };
    // clang-format off
    page(TaskPage::Windows) = {
        {&chkRecentDocuments, 200}, {&chkSearchList, 201}, {&chkComputerList, 202}, {&chkRunList, 203},
        {&chkRegKey, 204}, {&chkLastSaveOpen, 205}, {&chkWinUserAssist, 206}, {&chkLastApply, 207},
        {&chkSearchWizard, 208}, {&chkRASAutoDial, 209}, {&chkTrash, 210}, {&chkClipboard, 211},
        {&chkTempFolder, 212}, {&chkUserTemp, 213}, {&chkPrefetchFolder, 214}, {&chkRecentWordPad, 215},
        {&chkRecentPaint, 216}, {&chkRecentMediaPlayer, 217}, {&chkAlphabetizeStartMenu, 218},
        {&chkAlphabetizeFavorites, 219},
    };
    page(TaskPage::IE) = {
        {&chkIEHistory, 223}, {&chkIECookies, 224}, {&chkIECache, 225},
        {&chkIEIndexDatFiles, 225, " Index.dat", true},
        {&chkIEURL, 226}, {&chkIEAutoCompleteForms, 227}, {&chkIEDownloadedProgramFiles, 228},
        {&chkIEOfflineSites, 229}, {&chkIEAlexa, 230},
    };
    page(TaskPage::Mozilla) = {
        {&chkMozillaHistory, 237}, {&chkMozillaCookies, 238}, {&chkMozillaCache, 239},
        {&chkMozillaINDepthCleanOfflineCache, 239, " Offline Cache", true},
        {&chkMozillaINDepthCleanTestPilotErrorLogs, 239, " TestPilot Error Logs", true},
        {&chkMozillaAutoComplete, 240}, {&chkMozillaDownloads, 241}, {&chkMozillaGoogleToolbar, 242},
        {&chkMozillaCrashReports, 243}, {&chkMozillaSearchHistory, 244}, {&chkMozillaSession, 245},
    };
    page(TaskPage::Opera) = {
        {&chkOperaHistory, 246}, {&chkOperaCookies, 247}, {&chkOperaCache, 248},
        {&chkOperaINDepthClean, 248, " Thumbnails > SpeedDial", true},
        {&chkOperaURL, 249}, {&chkOperaDownloads, 250}, {&chkOperaWebsiteIcons, 251},
    };
    page(TaskPage::Chrome) = {
        {&chkChromeHistory, 252}, {&chkChromeCookies, 253}, {&chkChromeCache, 254},
        {&chkChromeINDepthClean, 254, " Jumplist Icons", true},
        {&chkChromeSession, 255}, {&chkChromeDownloads, 256},
    };
    page(TaskPage::Safari) = {
        {&chkSafariHistory, 257}, {&chkSafariCookies, 258}, {&chkSafariCache, 259}, {&chkSafariSavedForms, 260},
    };
    // Product names, the same in every language. Whichever of these tasks is ticked, the list of recent documents goes,
    // though it has a box of its own.
    page(TaskPage::MsOffice) = {
        {&chkMSAccess, 0, "", false, true, "Access 2000, XP, 2003"}, {&chkMSExcel, 0, "", false, true},
        {&chkMSPowerPoint, 0, "", false, true}, {&chkMSWord, 0, "", false, true, "Word 2000, XP, 2003"},
        {&chkMSFrontPage, 0, "", false, true},
    };
    // clang-format on
}

const std::vector<TaskBox>& frmOptions::taskBoxes(TaskPage page) const {
    return tasks_[static_cast<std::size_t>(page)];
}

forms::CheckBox& frmOptions::masterBox(TaskPage page) {
    const std::array masters{&chkWindowsTasks, &chkIETasks,     &chkMozillaTasks, &chkOperaTasks,
                             &chkChromeTasks,  &chkSafariTasks, &chkMsOfficeTasks};
    static_assert(masters.size() == kTaskPages);
    return *masters[static_cast<std::size_t>(page)];
}

// Boxes that are off keep their ticks, and their tasks the rows: intended. All boxes of the page: those behind the box
// of a cache come on too while it is not ticked, until it is ticked and unticked: intended.
void frmOptions::enableTaskPage(TaskPage page, bool enabled) {
    masterBox(page).Enabled = enabled;
    for (const TaskBox& task : taskBoxes(page)) task.box->Enabled = enabled;
}

void frmOptions::connectTaskPages() {
    for (int number = 0; number < kTaskPages; ++number) {
        const auto page = static_cast<TaskPage>(number);
        masterBox(page).Click.connect([this, page] {
            const int value = masterBox(page).ticked() ? 1 : 0;
            for (const TaskBox& task : taskBoxes(page)) {
                if (!task.inDepth) task.box->Value = value;
            }
        });
    }
}

}  // namespace tidvane::settings
