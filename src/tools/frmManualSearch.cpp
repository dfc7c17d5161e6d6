#include "tools/frmManualSearch.h"

#include "settings/modFormINI.h"

namespace tidvane::tools {

frmManualSearch::frmManualSearch(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Manuelle Dateisuche");
    frmWizardStep2.Visible.design(false);
    frmWizardStepFinal.Visible.design(false);
    cmdSearch.Visible.design(false);
    for (controls::isButton* button : {&cmdBack, &cmdNext, &cmdSearch, &cmdStop, &cmdOK}) forms::designedOff(*button);

    chkScanAllFixedDrives.Click.connect([this] {
        txtFolderScanPath.Enabled = !chkScanAllFixedDrives.ticked();
        cmdFolderScan.Enabled = !chkScanAllFixedDrives.ticked();
    });
    cmdFolderScan.Click.connect([this] {
        const std::string chosen = program_.display.askFolder(this, program_.LangText(825));
        if (!chosen.empty()) txtFolderScanPath.setText(chosen);
    });
    cmdNext.Click.connect([this] { showPage(Page::Place); });
    cmdBack.Click.connect([this] { cmdBack_Click(); });
    cmdSearch.Click.connect([this] { cmdSearch_Click(); });
    cmdStop.Click.connect([this] { cmdStop_Click(); });
    cmdOK.Click.connect([this] { close(); });
    cmdCancel.Click.connect([this] { close(); });
    tmrManualSearch.Tick.connect([this] { tmrManualSearch_Timer(); });
}

void frmManualSearch::Form_Load() {
    const settings::LangTable& text = program_.LangText;
    Caption = text(828);
    frmWizard.Caption = text(829);
    frmWizardStep1.Caption = text(839);
    lblStep1.Caption = text(832);
    lblInfo1.Caption = text(833);
    lblDetails1.Caption = text(834);
    txtSearchMask.ToolTipText = text(842);
    frmWizardStep2.Caption = text(840);
    lblStep2.Caption = text(835);
    lblInfo2.Caption = text(836);
    lblDetails2.Caption = text(837);
    chkScanAllFixedDrives.Caption = text(838);
    cmdFolderScan.Caption = text(352);
    frmWizardStepFinal.Caption = text(841);
    cmdCancel.Caption = text(301);
    cmdStop.Caption = text(121);
    cmdSearch.Caption = text(559);
    cmdNext.Caption = text(843);
    cmdBack.Caption = text(844);
    cmdOK.Caption = text(845);
    (void)settings::LoadFormINISkippingErrors(program_, *this);
    showPage(Page::Mask);
}

void frmManualSearch::Form_Unload() {
    stopRequested_ = true;
    // An empty box is not stored: the log tells what was deleted and is nobody's setting.
    txtLog.setText({});
    settings::tellOfEmptiedBoxes(program_, *this);
    settings::SaveFormINI(program_, *this);
}

bool frmManualSearch::isSearchable(const std::string& mask) {
    return mask.starts_with("*.");
}

// While a walk still returns no second one may begin: then this changes the page alone.
void frmManualSearch::showPage(Page page) {
    page_ = page;
    frmWizardStep1.Visible = page == Page::Mask;
    frmWizardStep2.Visible = page == Page::Place;
    frmWizardStepFinal.Visible = page == Page::Final;
    cmdBack.Enabled = page != Page::Mask;
    cmdNext.Visible = page == Page::Mask;
    cmdNext.Enabled = page == Page::Mask && isSearchable(txtSearchMask.Text());
    cmdSearch.Visible = page != Page::Mask;
    cmdSearch.Enabled = page == Page::Place && !searching_;
}

void frmManualSearch::cmdBack_Click() {
    showPage(page_ == Page::Final ? Page::Place : Page::Mask);
}

void frmManualSearch::tmrManualSearch_Timer() {
    cmdNext.Enabled = page_ == Page::Mask && isSearchable(txtSearchMask.Text());
    showCaret();
}

// Where there is no log yet there is no caret to tell of.
void frmManualSearch::showCaret() {
    if (txtLog.Text().empty()) {
        StatusBar1.setPanel(2, {});
        StatusBar1.setPanel(3, {});
        return;
    }
    const std::size_t line = txtLog.lineFromCaret();
    const std::size_t start = txtLog.lineStart(line);
    StatusBar1.setPanel(2, program_.LangText(848) + " " + std::to_string(line + 1));
    StatusBar1.setPanel(3, program_.LangText(849) + " " + std::to_string(txtLog.SelStart() - start + 1) + " / " +
                               std::to_string(txtLog.lineLength(line)));
}

void frmManualSearch::close() {
    program_.windows.unload(*this);
}

}  // namespace tidvane::tools
