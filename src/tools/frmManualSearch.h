// The wizard for a one-off job: delete all files of one type, on all fixed drives or below one folder. It deletes as it
// finds, outside the cleaning run, with a log box and a stop of its own.
#pragma once

#include <string>
#include <vector>

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::tools {

class frmManualSearch : public forms::Form {
public:
    static constexpr const char* kName = "frmManualSearch";

    explicit frmManualSearch(settings::Program& program);

    void Form_Load() override;
    // Stores the state on every way of closing. A walk under way ends at its next folder.
    void Form_Unload() override;

    // Which masks get past page 1: those that begin with "*.".
    static bool isSearchable(const std::string& mask);
    // A question in front of a search that takes more than its user may have meant: the mask matches every name, or no
    // folder is given. Empty: nothing to ask.
    std::string questionBeforeSearch();
    // A front end that has asked by itself switches this off; otherwise cmdSearch puts the question in a box.
    bool asksBeforeSearch = true;
    // While the walk runs: also behind a stop, until it has returned.
    [[nodiscard]] bool isSearching() const { return searching_; }

    forms::Frame frmWizard{*this, "frmWizard", "Dateien eines Typs suchen und löschen"};
    // --- page 1: the file type
    forms::Frame frmWizardStep1{*this, "frmWizardStep1", "Dateityp"};
    forms::Label lblStep1{*this, "lblStep1", "Schritt 1 von 2: Dateityp"};
    forms::Label lblInfo1{*this, "lblInfo1", "Welche Dateien sollen gelöscht werden?"};
    forms::TextBox txtSearchMask{*this, "txtSearchMask"};
    forms::Label lblDetails1{*this, "lblDetails1", "Die Maske beginnt mit \"*.\", zum Beispiel *.tmp."};
    // --- page 2: the place
    forms::Frame frmWizardStep2{*this, "frmWizardStep2", "Ort"};
    forms::Label lblStep2{*this, "lblStep2", "Schritt 2 von 2: Ort"};
    forms::Label lblInfo2{*this, "lblInfo2", "Wo soll gesucht werden?"};
    forms::CheckBox chkScanAllFixedDrives{*this, "chkScanAllFixedDrives", "Alle Festplatten"};
    forms::TextBox txtFolderScanPath{*this, "txtFolderScanPath"};
    controls::isButton cmdFolderScan{*this, "cmdFolderScan", "Durchsuchen ..."};
    forms::Label lblDetails2{*this, "lblDetails2", "Was passt, wird sofort gelöscht, ohne Durchsicht."};
    // --- final page: the search's own log
    forms::Frame frmWizardStepFinal{*this, "frmWizardStepFinal", "Protokoll der Suche"};
    forms::TextBox txtLog{*this, "txtLog"};
    // --- the foot of the window
    controls::isButton cmdBack{*this, "cmdBack", "Zurück"};
    controls::isButton cmdNext{*this, "cmdNext", "Weiter"};
    controls::isButton cmdSearch{*this, "cmdSearch", "Suchen"};
    controls::isButton cmdStop{*this, "cmdStop", "Stopp"};
    controls::isButton cmdOK{*this, "cmdOK", "Schließen"};
    controls::isButton cmdCancel{*this, "cmdCancel", "Abbrechen"};
    // Panel 1: the folder in work; 2: the line of the log's caret, from 1; 3: its column and the line's length.
    forms::StatusBar StatusBar1{*this, "StatusBar1", 3};
    forms::Timer tmrManualSearch{*this, "tmrManualSearch", 1, true};

private:
    enum class Page { Mask, Place, Final };

    // frmManualSearch.cpp
    void showPage(Page page);
    void cmdBack_Click();
    void tmrManualSearch_Timer();
    void showCaret();
    void close();

    // manual_search.cpp
    void cmdSearch_Click();
    void cmdStop_Click();
    void search();
    std::string folderToScan();
    void ManualSearchFolder(const std::string& top, const std::string& mask);
    void removeMatches(const std::string& folder, const std::string& mask, const std::vector<std::string>& matches);
    void AddManualLogLine(const std::string& text);

    settings::Program& program_;
    Page page_ = Page::Mask;
    bool stopRequested_ = false;
    bool searching_ = false;
};

}  // namespace tidvane::tools
