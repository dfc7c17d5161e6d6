// The walk of the search wizard.
#include <algorithm>
#include <vector>

#include "base/date_time.h"
#include "base/text.h"
#include "base/wildcard.h"
#include "removal/folder_walk.h"
#include "removal/mask_removal.h"
#include "settings/frmOptions.h"
#include "settings/own_entries.h"
#include "settings/pause.h"
#include "settings/sentences.h"
#include "tools/frmManualSearch.h"

namespace tidvane::tools {

namespace {

using settings::Sentence;

constexpr int kFirstKillMethodText = 732;

}  // namespace

// An empty box means the root of the current drive, the one that the program was started on.
std::string frmManualSearch::folderToScan() {
    if (!txtFolderScanPath.Text().empty()) return txtFolderScanPath.Text();
    return program_.programFolder().substr(0, 2) + "\\";
}

std::string frmManualSearch::questionBeforeSearch() {
    const std::string& mask = txtSearchMask.Text();
    const bool everyName = settings::matchesEveryName(mask);
    const bool allDrives = chkScanAllFixedDrives.ticked();
    const bool noFolder = !allDrives && txtFolderScanPath.Text().empty();
    if (!everyName && !noFolder) return {};
    std::string question;
    if (noFolder) question += settings::sentence(program_, Sentence::NoFolderGiven) + "\r\n";
    if (everyName) question += settings::sentence(program_, Sentence::MaskMatchesEveryName, {mask}) + "\r\n";
    return question + "\r\n" +
           (allDrives ? settings::sentence(program_, Sentence::DeleteOnAllDrives, {mask})
                      : settings::sentence(program_, Sentence::DeleteBelow, {mask, folderToScan()}));
}

void frmManualSearch::cmdSearch_Click() {
    if (searching_ || !program_.allowsRemoval(settings::Removal::Search)) return;
    if (asksBeforeSearch) {
        const std::string question = questionBeforeSearch();
        const int style = forms::msgbox::YesNo + forms::msgbox::Exclamation + forms::msgbox::DefaultButton2;
        if (!question.empty() && program_.display.MsgBox(question, style, "Tidvane") != forms::msgbox::Yes) return;
    }
    stopRequested_ = false;
    searching_ = true;
    const std::uint64_t removedForGood = program_.removedForGood;
    showPage(Page::Final);
    for (controls::isButton* button : {&cmdBack, &cmdCancel, &cmdNext, &cmdSearch, &cmdOK}) button->Enabled = false;
    cmdStop.Enabled = true;

    search();

    searching_ = false;
    cmdSearch.Enabled = false;
    cmdStop.Enabled = false;
    cmdOK.Enabled = true;
    cmdBack.Enabled = true;
    // Somebody went back while the walk was still returning: that page offers what it always does.
    if (page_ != Page::Final) showPage(page_);
    if (program_.removedForGood > removedForGood) {
        program_.display.warn(settings::sentence(program_, Sentence::RecycleBinRefused,
                                                 {std::to_string(program_.removedForGood - removedForGood)}));
    }
}

void frmManualSearch::search() {
    const settings::LangTable& text = program_.LangText;
    // Read once: what is typed behind a stop belongs to the next search.
    const std::string mask = txtSearchMask.Text();
    if (const int method = program_.selectedKillMethod(); method >= 0) {
        AddManualLogLine(text(730) + ": " + text(kFirstKillMethodText + method));
    }
    AddManualLogLine(text(514) + " [" + mask + "] " + text(830));
    if (chkScanAllFixedDrives.ticked()) {
        for (const platform::Drive& drive : program_.platform.files.Drives()) {
            if (drive.type == platform::DriveType::Fixed) ManualSearchFolder(std::string{drive.letter} + ":\\", mask);
        }
    } else {
        ManualSearchFolder(folderToScan(), mask);
    }
    if (stopRequested_) return;
    AddManualLogLine("[" + mask + "] " + text(830) + " " + text(831) + " <OK>");
    StatusBar1.setPanel(1, text(624) + " " + base::dateTimeText(program_.platform.clock.now(), program_.locale()));
}

// A folder's own files before its subfolders. Behind a stop the folders that were still to come are gone through all
// the same, each shown and then left alone, as level by level would return: intended.
void frmManualSearch::ManualSearchFolder(const std::string& top, const std::string& mask) {
    platform::FileSystem& files = program_.platform.files;
    const base::Wildcard wildcard(mask);
    removal::FolderWalk walk(top);
    for (std::string folder; walk.next(folder);) {
        StatusBar1.setPanel(1, program_.LangText(494) + " " + folder);
        program_.platform.events.DoEvents();
        if (stopRequested_) continue;

        std::vector<platform::FolderEntry> entries;
        (void)files.ReadFolder(folder, entries);  // a folder that cannot be read contributes nothing
        std::vector<std::string> matches;
        std::vector<std::string> subFolders;
        for (platform::FolderEntry& entry : entries) {
            if (entry.kind == platform::EntryKind::Folder) {
                subFolders.push_back(std::move(entry.name));
            } else if (wildcard.matches(entry.name) && removal::isFoundByLookUp(files, folder + entry.name)) {
                matches.push_back(std::move(entry.name));
            }
        }
        if (!matches.empty()) {
            std::sort(matches.begin(), matches.end(), base::NoCaseLess{});
            removeMatches(folder, mask, matches);
        }
        std::erase_if(subFolders, [&](const std::string& name) { return removal::isBinInUse(program_, folder, name); });
        walk.descend(folder, std::move(subFolders));
    }
}

// Nothing is set aside here: "*.bak" takes opa12.bak too. Intended.
void frmManualSearch::removeMatches(const std::string& folder, const std::string& mask,
                                    const std::vector<std::string>& matches) {
    // The name in the line is the second match, or nothing: intended, as in the junk search.
    const std::string line = folder + (matches.size() > 1 ? matches[1] : std::string()) + " <OK>";
    removal::removeByMask(
        program_, folder, mask, matches,
        {[&] { AddManualLogLine(line); }, [&] { AddManualLogLine(program_.LangText(531) + " " + line); }});
}

void frmManualSearch::AddManualLogLine(const std::string& text) {
    std::string line;
    // Ticked means with the time here, and without it in the log of the main window: intended.
    if (program_.get<settings::frmOptions>().chkLogTimestamp.ticked()) {
        line = base::timeText(program_.platform.clock.now(), program_.locale()) + " ";
    }
    txtLog.caretToEnd();
    txtLog.setSelText(line + text + "\r\n");
    settings::pauseByPurgeSpeed(program_);
}

void frmManualSearch::cmdStop_Click() {
    stopRequested_ = true;
    AddManualLogLine("***** " + program_.LangText(554) + "*****");
    StatusBar1.setPanel(1, "***** " + program_.LangText(554) + " *****");
    cmdStop.Enabled = false;
    cmdBack.Enabled = true;
}

}  // namespace tidvane::tools
