// The page of the plug-ins: the list with its ticks, its commands, and the search.
#include <algorithm>

#include "app/frmMain.h"
#include "app/plug_in_files.h"
#include "app/plug_in_pass.h"
#include "base/numbers.h"
#include "base/skipping_errors.h"
#include "base/text.h"
#include "plugins/frmPlugsInfo.h"
#include "removal/modKillMethod.h"

namespace tidvane::app {

namespace {

constexpr int kKeyF5 = 116;
constexpr char32_t kEnter = 13;
constexpr unsigned kBlack = 0;
constexpr const char* kNoHit = "-1";
// A list that the control can no longer count is searched so far.
constexpr int kMostRowsCounted = 32767;
constexpr int kMostRowsSearched = 40000;

constexpr int kNoAssociation = 31;  // of ShellExecuteA

// All commands of the list pass over what fails, and no message is shown.
using base::skippingErrors;

}  // namespace

void frmMain::connectPlugList() {
    const auto connect = [this](const char* name, void (frmMain::*command)()) {
        menu(name).Click.connect([this, command] { skippingErrors([&] { (this->*command)(); }); });
    };
    menu("mnuCleanPlugNow").Click.connect([this] { skippingErrors([this] { cleanPlugInsNow(*this); }); });
    menu("mnuRefreshPlugs").Click.connect([this] {
        // The count from before this refresh: intended.
        setPanel(3, base::numberText(static_cast<std::int64_t>(plugPaths_.size())) + " " + program_.LangText(129));
        refreshPlugList();
    });
    menu("mnuSelectAllPlugs").Click.connect([this] { selectAllPlugs(true); });
    menu("mnuDeselectAllPlugs").Click.connect([this] { selectAllPlugs(false); });
    connect("mnuPlugInfo", &frmMain::showPlugInfo);
    connect("mnuPlugEdit", &frmMain::editPlug);
    connect("mnuPlugCreate", &frmMain::createPlug);
    connect("mnuPlugDelete", &frmMain::deletePlug);
    cmdSearch.Click.connect([this] { cmdSearch_Click(); });
    LstPlugs.Click.connect([this] { enablePlugCommands(); });
    enablePlugCommands();
}

// Those that are about the current row are offered where there is one.
void frmMain::enablePlugCommands() {
    for (const char* command : {"mnuPlugInfo", "mnuPlugEdit", "mnuPlugDelete"}) {
        menu(command).Enabled = LstPlugs.ListIndex() >= 0;
    }
}

plugins::dPlugCleaner& frmMain::plugCleaner() {
    if (plugCleaner_ == nullptr) plugCleaner_ = std::make_unique<plugins::dPlugCleaner>(program_);
    return *plugCleaner_;
}

// --- the list --------------------------------------------------------------------------------------------------------

void frmMain::FillPlugList() {
    const unsigned fill = ++plugListFills_;
    plugPaths_.clear();
    for (const std::string& name : plugInFiles(program_, plugFolder_)) {
        plugPaths_.push_back(plugFolder_ + name);
        LstPlugs.AddItem(plugInName(name));
        program_.platform.events.DoEvents();
        // An event that got in has filled the list anew: its rows stand, and what is left here would come twice.
        if (fill != plugListFills_ || program_.ended()) return;
    }
    AddLogLine(program_.LangText(576) + ": " + base::numberText(static_cast<std::int64_t>(plugPaths_.size())) + " " +
               program_.LangText(577) + " <OK>");
}

void frmMain::writePlugTicks(const char* ticked, const char* notTicked) {
    if (plugTicksUnread_) return;
    for (int row = 0; row < LstPlugs.ListCount(); ++row) {
        (void)storePlugTick(program_, plugIniPath_, LstPlugs.List(row), LstPlugs.Selected(row) ? ticked : notTicked);
    }
}

// A text that is no tick leaves its row as it is.
void frmMain::readPlugTicks() {
    if (!plugTicksUnread_) return;
    for (int row = 0; row < LstPlugs.ListCount(); ++row) {
        if (const auto tick = storedPlugTick(program_, plugIniPath_, LstPlugs.List(row))) {
            LstPlugs.setSelected(row, *tick);
        }
    }
    plugTicksUnread_ = false;
}

void frmMain::refreshPlugList() {
    writePlugTicks("True", "False");
    plugTicksUnread_ = true;
    LstPlugs.Clear();
    enablePlugCommands();
    plugFolder_ = plugInFolder(program_);
    FillPlugList();
    if (!program_.ended()) readPlugTicks();
}

void frmMain::selectAllPlugs(bool selected) {
    LstPlugs.selectAll(selected);
}

void frmMain::plugListRightClick() {
    menu("mnuCleanPlugNow").isDefault = true;
    program_.display.popUpMenu(*this, "mnCleanPlugs");
}

void frmMain::plugListMouseMove() {
    LstPlugs.ToolTipText =
        program_.LangText(562) + " (" + base::numberText(static_cast<std::int64_t>(plugPaths_.size())) + ")";
}

void frmMain::plugListKeyDown(int key) {
    if (key == kKeyF5) refreshPlugList();
}

// --- the search ------------------------------------------------------------------------------------------------------

void frmMain::searchBoxClick() {
    cmdSearchTag_ = kNoHit;
    cmdSearch.Caption = program_.LangText(559);
    // Decided by the text that is wiped next, the hint included: intended.
    cmdSearch.Enabled = !base::trimBlanks(txtSearchPlugs.Text()).empty() && LstPlugs.ListCount() > 0;
    txtSearchPlugs.setText({});
    txtSearchPlugs.ForeColor = kBlack;
}

void frmMain::searchBoxKeyPress(char32_t key) {
    if (key != kEnter || !cmdSearch.Enabled) return;
    cmdSearch_Click();
    // Behind the last hit the button is off and cannot take the focus; it stays where the search has put it.
    if (cmdSearch.Enabled) program_.display.SetFocus(*this, "cmdSearch");
}

void frmMain::cmdSearch_Click() {
    const std::string wanted = base::upperCase(base::trimBlanks(txtSearchPlugs.Text()));
    const int last = LstPlugs.ListCount() <= kMostRowsCounted ? LstPlugs.ListCount() - 1
                                                              : std::min(kMostRowsSearched, LstPlugs.ListCount() - 1);
    int row = static_cast<int>(base::val(cmdSearchTag_)) + 1;
    while (row <= last && base::upperCase(LstPlugs.List(row)).find(wanted) == std::string::npos) ++row;
    if (row <= last) {
        LstPlugs.setListIndex(row);
        if (row != last) cmdSearch.Caption = program_.LangText(843);
        cmdSearchTag_ = std::to_string(row);
    }
    if (row < last) return;
    cmdSearch.Caption = program_.LangText(559);
    cmdSearchTag_ = kNoHit;
    cmdSearch.Enabled = false;
    program_.display.SetFocus(*this, "txtSearchPlugs");
    txtSearchPlugs.select(0, txtSearchPlugs.length());
}

// --- one plug-in -----------------------------------------------------------------------------------------------------

bool frmMain::takeCurrentPlug() {
    const int row = LstPlugs.ListIndex();
    // Without a row nothing happens; the plug-in of the command before is not meant.
    if (row < 0 || row >= static_cast<int>(plugPaths_.size())) return false;
    plugCleaner().setFilename(plugPaths_[static_cast<std::size_t>(row)]);
    return plugCleaner().IsLoaded();
}

namespace {
// A stored value that cannot be assigned leaves the window loaded, with the state it has by then.
plugins::frmPlugsInfo& infoWindow(settings::Program& program) {
    skippingErrors([&] { (void)program.get<plugins::frmPlugsInfo>(); });
    return program.get<plugins::frmPlugsInfo>();
}
}  // namespace

void frmMain::showPlugInfo() {
    if (!takeCurrentPlug()) return;
    auto& window = infoWindow(program_);
    program_.display.Show(window, this, false);
    window.fill(plugCleaner());
}

void frmMain::editPlug() {
    if (!takeCurrentPlug()) return;
    const std::string& path = plugCleaner().Filename();
    platform::Shell& shell = program_.platform.shell;
    if (shell.ShellExecuteA("open", path, "", "", 1) != kNoAssociation) return;
    (void)shell.ShellExecuteA("open", "RUNDLL32.EXE", "shell32.dll,OpenAs_RunDLL " + path,
                              program_.platform.system.SystemFolder(), 1);
}

void frmMain::createPlug() {
    (void)program_.platform.processes.CreateProcessA(infoWindow(program_).txtPlugEditor_g.Text(), 1);
}

void frmMain::deletePlug() {
    using namespace forms::msgbox;
    if (program_.MsgBox(program_.LangText(423) + "?", YesNo | Question | DefaultButton2, Caption) != Yes) return;
    const int method = program_.selectedKillMethod();
    if (!takeCurrentPlug() || method < 0) return;
    // Under the recycle bin's method the file goes into a bin of the machine.
    if (!program_.allowsRemoval(settings::Removal::Manager)) return;
    removal::KillFile(program_.platform, plugCleaner().Filename(), method, false);
    menu("mnuRefreshPlugs").Click();
}

}  // namespace tidvane::app
