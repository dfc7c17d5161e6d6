// What one control of the options window does to others. All of it runs from change events, so also while stored values
// are put in.

#include "settings/frmOptions.h"

namespace tidvane::settings {

namespace {

struct Dependency {
    forms::CheckBox& source;
    std::vector<forms::Control*> enabledWhileTicked;
    std::vector<forms::Control*> disabledWhileTicked;
    // Lose their tick whenever the source disables them.
    std::vector<forms::CheckBox*> unticked;
};

void apply(const Dependency& rule) {
    const bool ticked = rule.source.ticked();
    for (forms::Control* target : rule.enabledWhileTicked) target->Enabled = ticked;
    for (forms::Control* target : rule.disabledWhileTicked) target->Enabled = !ticked;
    for (forms::CheckBox* target : rule.unticked) {
        if (!target->Enabled) target->Value = 0;
    }
}

constexpr int kRecycle = 1;
constexpr std::array kKillMethodTexts{732, 733, 734};
constexpr std::array kKillMethodInfos{735, 736, 737};

}  // namespace

void frmOptions::connectDependencies() {
    // Stored ticks come after the search for browsers: a ticked cache box turns its further box on again, also on a
    // page that is off. Intended.
    // clang-format off
    const Dependency rules[] = {
        {chkIECache, {&chkIEIndexDatFiles}, {}, {&chkIEIndexDatFiles}},
        {chkMozillaCache,
         {&chkMozillaINDepthCleanOfflineCache, &chkMozillaINDepthCleanTestPilotErrorLogs}, {},
         {&chkMozillaINDepthCleanOfflineCache, &chkMozillaINDepthCleanTestPilotErrorLogs}},
        {chkOperaCache, {&chkOperaINDepthClean}, {}, {&chkOperaINDepthClean}},
        {chkChromeCache, {&chkChromeINDepthClean}, {}, {&chkChromeINDepthClean}},
        {chkActivateOwnFolder,
         {&lstFolders, &cmdDeleteSelected, &cmdDeleteAll, &cmdEditFolders, &cmdAddFolderPath, &cmdAddFolder,
          &optDeleteFolder, &optDeleteFolderContent, &txtAddFolderPath, &chkAutoSearchJunkFolders}, {},
         {&chkAutoSearchJunkFolders}},
        {chkActivateOwnFiles,
         {&lstFiles, &cmdDeleteSelected2, &cmdDeleteAll2, &cmdEditFiles, &cmdAddFilePath, &cmdAddFile,
          &txtAddFilePath, &chkAutoSearchJunkFiles}, {},
         {&chkAutoSearchJunkFiles}},
        {chkSearchTasks,
         {&lstSearchMasks, &txtSearchMask, &cboDrives, &chkAllFixedDrives, &cmdRemoveAllSearchMasks,
          &cmdRemoveSearchMask, &cmdAddSearchMask, &cmdLoadSearchMasks}, {}, {}},
        {chkAllFixedDrives, {}, {&cboDrives}, {}},
        {chkAddInRegClean, {&txtAddInRegCleanPath, &cmdAddInRegCleanBrowse}, {}, {}},
        {chkStartWindows, {&cboAutoStart}, {}, {}},
        {chkCloseAfterClean, {}, {&chkMinimizeSystray}, {&chkMinimizeSystray}},
        {chkAskLogLocation, {}, {&txtTidvaneLog, &cmdFolderScan, &chkAutoLog, &chkDeleteLog},
         {&chkAutoLog, &chkDeleteLog}},
        {chkPurgeSound, {&txtPurgeSound, &cmdPurgeSound, &cmdPurgeSoundTest}, {}, {}},
    };
    // clang-format on
    for (const Dependency& rule : rules) {
        rule.source.Click.connect([rule] { apply(rule); });
    }
    cboKillMethod.Click.connect([this] { killMethodChanged(); });
    cboKillMethod.Change.connect([this] { killMethodChanged(); });
    chkTrash.Click.connect([this] { trashChanged(); });
}

int frmOptions::chosenKillMethod() const {
    for (std::size_t method = 0; method < kKillMethodTexts.size(); ++method) {
        if (cboKillMethod.Text() == program_.LangText(kKillMethodTexts[method])) return static_cast<int>(method);
    }
    return -1;
}

void frmOptions::killMethodChanged() {
    // A row is chosen at all times: with none, tasks could not tell how the user wants files to go.
    if (cboKillMethod.ListIndex() < 0 && cboKillMethod.ListCount() > 0) {
        cboKillMethod.setListIndex(0);
        return;
    }
    const int method = chosenKillMethod();
    if (method < 0) return;
    lblKillMethodInfo.Caption = program_.LangText(kKillMethodInfos[static_cast<std::size_t>(method)]);
    const bool recycle = method == kRecycle;
    chkOpenRecycleBinAsPreview.Enabled = recycle;
    chkOpenRecycleBinAsPreview.Visible = recycle;
    if (recycle) {
        // Emptying the bin would undo the method.
        chkTrash.Value = 0;
    } else {
        chkOpenRecycleBinAsPreview.Value = 0;
    }
}

void frmOptions::trashChanged() {
    if (!chkTrash.ticked() || chosenKillMethod() != kRecycle) return;
    chkTrash.Value = 0;
    tell(program_.LangText(625), forms::msgbox::Information);
}

void frmOptions::connectNumberBoxes() {
    txtLogAutoTruncated.keyFilter = forms::numericKey;
    txtPurgeSpeed.keyFilter = forms::numericKey;
    lblReset.Click.connect([this] { txtLogAutoTruncated.setText("60000"); });
    lblReset2.Click.connect([this] { txtPurgeSpeed.setText("10"); });
}

void frmOptions::connectUpdateServers() {
    cmdStandardServer.Click.connect([this] {
        if (optGerUpdateServer.selected()) txtUpdateServer.setText(kFirstUpdateServer);
        if (optEngUpdateServer.selected()) txtUpdateServer.setText(kSecondUpdateServer);
        cmdRecentServer.Enabled = true;
    });
    // Only the second server fills itself in; selecting the first changes nothing. Intended.
    optEngUpdateServer.Click.connect([this] { txtUpdateServer.setText(kSecondUpdateServer); });
}

}  // namespace tidvane::settings
