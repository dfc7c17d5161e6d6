#include "settings/frmOptions.h"

#include <algorithm>

#include "base/skipping_errors.h"
#include "settings/autostart.h"
#include "settings/browser_detection.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/list_files.h"
#include "settings/log_font_file.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "settings/modOS.h"

namespace tidvane::settings {

namespace {

constexpr const char* kGeometrySection = "WindowStateOptions";
constexpr const char* kMemoryModule = "memtrim.exe";
constexpr const char* kLogLimit = "60000";  // characters

// Check boxes that a first start leaves as the window was designed.
constexpr std::array kNotTouchedByFirstStart{
    "chkAutoSearchJunkFolders",
    "chkAutoSearchJunkFiles",
    "chkAddInRegClean",
    "chkVolumeCheck",
    "chkSmallAppsFontSize",
    "chkPurgeSound",
    "chkOpenRecycleBinAsPreview",
    "chkCreateRestorePoint",
    "chkIEIndexDatFiles",
    "chkIEAutoCompleteForms",
    "chkLastSaveOpen",
    "chkLastApply",
    "chkSafariSavedForms",
};

// Captions of the extended settings that this window assigns.
struct ExtendedCaption {
    const char* control;
    int entry;
};
constexpr std::array kExtendedCaptions{
    ExtendedCaption{"chkEnableCustomApp", 396},  ExtendedCaption{"chkRunCustomAppAfterTidvane", 397},
    ExtendedCaption{"chkEnableAutoUpdate", 394}, ExtendedCaption{"chkOpenChangelogAfterUpdate", 398},
    ExtendedCaption{"chkInfoServer", 399},
};

// The load handler passes over errors step by step: a step that fails is left where it is.
using base::skippingErrors;

}  // namespace

frmOptions::frmOptions(settings::Program& program)
    : Form(kName),
      program_(program),
      lists_{ListFile{kListFiles[0], &lstFolders}, ListFile{kListFiles[1], &lstFiles},
             ListFile{kListFiles[2], &lstSearchMasks}} {
    designStates();
    buildTaskTable();
    connectTaskPages();
    connectDependencies();
    connectNumberBoxes();
    connectUpdateServers();
    connectLists();
    connectActions();
    cmdOK.Click.connect([this] { saveAndClose(); });
    cmdCancel.Click.connect([this] { closeWithoutSaving(); });
    viewChanged.connect([this] {
        if (State.get() == forms::WindowState::Minimized) return;
        if (Width < kMinWidth) Width = kMinWidth;
        if (Height < kMinHeight) Height = kMinHeight;
    });
}

// What an event for "off" would set, since no value changes on a first start and so no event comes.
void frmOptions::designStates() {
    Caption.design("Einstellungen");
    Width.design(kMinWidth);
    Height.design(kMinHeight);
    for (forms::Control* control : std::initializer_list<forms::Control*>{&chkIEIndexDatFiles,
                                                                          &chkMozillaINDepthCleanOfflineCache,
                                                                          &chkMozillaINDepthCleanTestPilotErrorLogs,
                                                                          &chkOperaINDepthClean,
                                                                          &chkChromeINDepthClean,  //
                                                                          &chkAutoSearchJunkFolders,
                                                                          &lstFolders,
                                                                          &cmdDeleteSelected,
                                                                          &cmdDeleteAll,
                                                                          &cmdEditFolders,  //
                                                                          &optDeleteFolder,
                                                                          &optDeleteFolderContent,
                                                                          &txtAddFolderPath,
                                                                          &cmdAddFolderPath,
                                                                          &cmdAddFolder,  //
                                                                          &chkAutoSearchJunkFiles,
                                                                          &lstFiles,
                                                                          &cmdDeleteSelected2,
                                                                          &cmdDeleteAll2,
                                                                          &cmdEditFiles,  //
                                                                          &txtAddFilePath,
                                                                          &cmdAddFilePath,
                                                                          &cmdAddFile,  //
                                                                          &chkAllFixedDrives,
                                                                          &cboDrives,
                                                                          &lstSearchMasks,
                                                                          &cmdRemoveAllSearchMasks,
                                                                          &cmdRemoveSearchMask,
                                                                          &txtSearchMask,
                                                                          &cmdAddSearchMask,
                                                                          &cmdLoadSearchMasks,  //
                                                                          &txtAddInRegCleanPath,
                                                                          &cmdAddInRegCleanBrowse,
                                                                          &cboAutoStart,  //
                                                                          &txtPurgeSound,
                                                                          &cmdPurgeSound,
                                                                          &cmdPurgeSoundTest,
                                                                          &chkOpenRecycleBinAsPreview}) {
        designedOff(*control);
    }
    chkOpenRecycleBinAsPreview.Visible.design(false);
    optDeleteFolder.design(true);
    optGerUpdateServer.design(true);
}

void frmOptions::Form_Load() {
    struct Loading {
        bool& flag;
        explicit Loading(bool& f) : flag(f) { flag = true; }
        ~Loading() { flag = false; }
    } loading(loading_);

    skippingErrors([&] { setOwnTexts(); });
    skippingErrors([&] { LoadAllLanguageFiles(program_); });
    skippingErrors([&] { setTips(); });
    skippingErrors([&] { buildTaskPane(); });
    skippingErrors([&] {
        loadWindowNumbers(program_, kGeometrySection, rectangleOf(*this), State == forms::WindowState::Minimized);
    });
    skippingErrors([&] { setTaskCaptions(); });
    skippingErrors([&] { setMemoryModule(); });
    skippingErrors([&] { fillKillMethods(); });
    skippingErrors([&] { DetectBrowsers(program_, *this); });
    skippingErrors([&] { (void)DetectWindows(program_); });
    skippingErrors([&] { fillDrives(); });
    skippingErrors([&] { loadLists(); });
    // From here on stored ticks may come back to boxes that a missing module or the version has just cleared.
    if (!LoadFormINISkippingErrors(program_, *this)) skippingErrors([&] { firstStart(); });
    skippingErrors([&] { captionExtendedSettings(); });
    // Once more: a master box that is ticked by now raises no event any more, so the single boxes of its page stand.
    if (!LoadFormINISkippingErrors(program_, *this)) txtLogAutoTruncated.setText(kLogLimit);
}

void frmOptions::Form_Unload() {
    saveWindowNumbers(program_, kGeometrySection, rectangleOf(*this));
}

void frmOptions::setOwnTexts() {
    Caption = program_.LangText(299) + " Tidvane";
    txtTidvaneLog.setText(program_.programDirectory());
    txtPurgeSound.setText(program_.programDirectory());
    cboAutoStart.Clear();
    cboAutoStart.AddItem("HKEY_LOCAL_MACHINE");
    cboAutoStart.AddItem("HKEY_CURRENT_USER");
    // By row, so that the stored position always names a root.
    cboAutoStart.setListIndex(0);
}

void frmOptions::setTips() {
    const LangTable& text = program_.LangText;
    cmdCancel.Caption = text(301);
    for (forms::Image* found : {&ImgMozillaSuccess, &ImgOperaSuccess, &ImgChromeSuccess, &ImgSafariSuccess}) {
        found->ToolTipText = text(880);
    }
    for (forms::Image* missing : {&ImgMozillaFail, &ImgOperaFail, &ImgChromeFail, &ImgSafariFail}) {
        missing->ToolTipText = text(881);
    }
    // The tick is stored and no run asks for it: intended.
    chkVolumeCheck.Caption = text(886);
    chkVolumeCheck.ToolTipText = text(888);
    // Buttons whose caption is a sign.
    cmdAlphabetizeStartMenuManual.ToolTipText = text(218) + ": " + text(882);
    cmdAlphabetizeFavoritesManual.ToolTipText = text(219) + ": " + text(882);
    cmdPurgeSound.ToolTipText = text(352);
    cmdPurgeSoundTest.ToolTipText = text(883);
    lstFolders.ToolTipText = text(884);
    lstFiles.ToolTipText = text(885);
}

void frmOptions::buildTaskPane() {
    const LangTable& text = program_.LangText;
    ExplorerBar2.DeleteAllGroups();
    const auto item = [this](int group, const std::string& caption, const char* tag) {
        // The tag has the name of the picture.
        ExplorerBar2.AddItem(group, caption, false, tag, false, {}, tag);
    };
    const int settings = ExplorerBar2.AddSpecialGroup(text(320), {}, "special group");
    item(settings, text(173), "sConfiguration");
    item(settings, text(301), "sAbort");
    item(settings, text(300), "sSave");
    const int managers = ExplorerBar2.AddNormalGroup(text(118), {}, "manager");
    item(managers, "Temp Manager", "sTempManager");
    item(managers, "Cookie Manager", "sCookieManager");
    item(managers, "Cache Manager", "sCacheManager");
    item(managers, text(743), "sResources");
    item(managers, text(179), "sTuneup");
    item(managers, text(302), "sWizard");

    const auto* extended = static_cast<frmMoreToConfigure*>(program_.windows.get(frmMoreToConfigure::kName));
    if (extended == nullptr) return;
    if (extended->chkOpenOneGroupOnly.ticked()) ExplorerBar2.OpenOneGroupOnly = true;
    applyChosenTheme(program_, ExplorerBar2, false);
}

void frmOptions::setTaskCaptions() {
    for (const std::vector<TaskBox>& page : tasks_) {
        for (const TaskBox& task : page) {
            if (task.caption != 0) task.box->Caption = program_.LangText(task.caption) + task.suffix;
            if (!task.recentDocuments) continue;
            const std::string programs = task.optionsOf;
            task.box->ToolTipText = "+ " + program_.LangText(200) +
                                    (programs.empty() ? "" : " + " + programs + ": " + program_.LangText(298));
        }
    }
}

void frmOptions::setMemoryModule() {
    if (program_.platform.files.FileExists(program_.inProgramFolder(kMemoryModule))) {
        chkCleanRAM.Enabled = true;
        cmdCleanRAM.Enabled = true;
        cmdCleanRAM.Caption = program_.LangText(375);
        return;
    }
    chkCleanRAM.Value = 0;
    chkCleanRAM.Enabled = false;
    cmdCleanRAM.Enabled = false;
    cmdCleanRAM.Caption = program_.LangText(496);
}

void frmOptions::fillKillMethods() {
    cboKillMethod.Clear();
    for (const int entry : {732, 733, 734}) cboKillMethod.AddItem(program_.LangText(entry));
    cboKillMethod.setListIndex(0);
}

void frmOptions::fillDrives() {
    cboDrives.Clear();
    for (const platform::Drive& drive : program_.platform.files.Drives()) {
        if (drive.type != platform::DriveType::Fixed) continue;
        const std::string row{drive.letter, ':'};
        cboDrives.AddItem(row);
        cboDrives.setText(row);
    }
}

void frmOptions::firstStart() {
    for (forms::Control* control : Controls()) {
        if (control->kind != forms::ControlKind::CheckBox) continue;
        const auto exempt = std::find(kNotTouchedByFirstStart.begin(), kNotTouchedByFirstStart.end(), control->Name);
        if (exempt == kNotTouchedByFirstStart.end()) static_cast<forms::CheckBox*>(control)->Value = 0;
    }
    optDeleteFolder.setValue(-1);
    txtLogAutoTruncated.setText(kLogLimit);
    cboKillMethod.setText(program_.LangText(732));
    txtUpdateServer.setText(kFirstUpdateServer);
    txtTidvaneLog.setText(program_.programDirectory());
    txtPurgeSound.setText(program_.programDirectory());
    for (forms::TextBox* box : {&txtAddFolderPath, &txtAddFilePath, &txtSearchMask, &txtAddInRegCleanPath}) {
        box->setText({});
    }
}

void frmOptions::captionExtendedSettings() {
    forms::Form* extended = program_.windows.get("frmMoreToConfigure");
    if (extended == nullptr) return;
    extended->Caption = program_.LangText(389);
    for (const ExtendedCaption& row : kExtendedCaptions) {
        if (forms::Control* control = extended->control(row.control)) control->Caption = program_.LangText(row.entry);
    }
}

void frmOptions::saveAndClose() {
    if (!cmdOK.Enabled) return;
    cmdOK.Enabled = false;
    tellOfEmptiedBoxes(program_, *this);
    SaveFormINI(program_, *this);
    RunReport& report = program_.report();
    report.rebuildTaskRows();
    report.clearTaskStatuses();
    saveLists();
    // Without a main window nobody knows the font, and the file keeps the last one.
    if (const forms::FontChoice font = report.logFont(); !font.name.empty()) (void)writeLogFont(program_, font);
    applyAutostart(program_, *this);
    report.resetTaskIcons();
    program_.windows.unload(*this);
}

void frmOptions::closeWithoutSaving() {
    program_.windows.unload(*this);
}

}  // namespace tidvane::settings
