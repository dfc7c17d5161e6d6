// What the buttons and the task pane of the options window start.
#include "settings/control_lookup.h"
#include "settings/frmOptions.h"
#include "settings/modFormINI.h"
#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

constexpr int kNormalWindow = 1;
constexpr std::uint32_t kMenuOrderAccess = 63;
constexpr std::uint64_t kEnoughOfAFile = 65536;  // bytes: more than any line that stands for a file of one line
constexpr const char* kMenuOrder = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\";

// Number of lines as reading line by line counts them: a line ends at CR or CR LF, and a last one without an end
// counts.
std::size_t countLines(std::string_view text, std::string_view& first) {
    std::size_t lines = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\r');
        if (lines == 0) first = text.substr(0, end);
        ++lines;
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    }
    return lines;
}

}  // namespace

void frmOptions::tell(const std::string& text, int style) {
    (void)program_.MsgBox(text, style, "Tidvane");
}

void frmOptions::connectActions() {
    ExplorerBar2.ItemClick.connect([this](int group, int item) { taskPaneClicked(group, item); });

    cmdIEInDepthClean.Click.connect([this] { openModal("frmIEInDepthClean"); });
    cmdMozillaDir.Click.connect([this] { openModal("frmMozillaDir"); });
    cmdOperaDir.Click.connect([this] { openModal("frmOperaDir"); });
    cmdChromeDir.Click.connect([this] { openModal("frmChromeDir"); });
    cmdSafariDir.Click.connect([this] { openModal("frmSafariDir"); });
    cmdLoadSearchMasks.Click.connect([this] { openModal("frmSearchMasks"); });
    cmdMoreToConfigure.Click.connect([this] { openExtendedSettings(); });

    const auto askInto = [](forms::TextBox& box, const std::string& chosen) {
        if (!chosen.empty()) box.setText(chosen);
    };
    cmdAddFolder.Click.connect(
        [=, this] { askInto(txtAddFolderPath, program_.display.askFolder(this, program_.LangText(825))); });
    cmdFolderScan.Click.connect(
        [=, this] { askInto(txtTidvaneLog, program_.display.askFolder(this, program_.LangText(825))); });
    cmdAddFile.Click.connect([=, this] {
        askInto(txtAddFilePath, program_.display.askFile({"", "Alle Dateien (*.*)|*.*", "", false}));
    });
    cmdPurgeSound.Click.connect([=, this] {
        askInto(txtPurgeSound, program_.display.askFile({"", "Alle Dateien (*.wav)|*.wav", "", false}));
    });
    cmdPurgeSoundTest.Click.connect([this] { program_.display.sndPlaySound(txtPurgeSound.Text()); });

    cmdLogBarFont.Click.connect([this] {
        if (const auto font = program_.display.askFont(program_.report().logFont()))
            program_.report().setLogFont(*font);
    });
    cmdRecentServer.Click.connect([this] {
        tellOfEmptiedBoxes(program_, *this);
        SaveFormINI(program_, *this);
        cmdRecentServer.Enabled = false;
    });
    cmdVolumeCheck.Click.connect([this] { checkVolume(); });
    cmdCleanRAM.Click.connect([this] { freeMemory(); });
    cmdAddInRegCleanBrowse.Click.connect([this] { browseRegistryAddIn(); });
    cmdAlphabetizeStartMenuManual.Click.connect([this] { resetMenuOrder("Start Menu", 218); });
    cmdAlphabetizeFavoritesManual.Click.connect([this] { resetMenuOrder("Favorites", 219); });
}

void frmOptions::openModal(const char* window) {
    program_.windows.show(window, this, true);
}

void frmOptions::openExtendedSettings() {
    if (forms::Form* extended = program_.windows.get("frmMoreToConfigure")) {
        extended->Caption = program_.LangText(389);
        if (auto* tabs = dynamic_cast<forms::TabStrip*>(extended->control("SSTab1"))) tabs->Tab = 0;
    }
    openModal("frmMoreToConfigure");
}

void frmOptions::openMaintenance() {
    if (auto* tabs = findControl<forms::TabStrip>(program_, "frmStarter", "SSTab2")) tabs->Tab = 3;
    openModal("frmStarter");
}

void frmOptions::taskPaneClicked(int group, int item) {
    if (group == 0) {
        switch (item) {
            case 0:
                openMaintenance();
                break;
            case 1:
                closeWithoutSaving();
                break;
            case 2:
                cmdOK.setValue(true);
                break;
            default:
                break;
        }
        return;
    }
    switch (item) {
        case 0:
            openModal("frmTempAge");
            break;
        case 1:
            openModal("frmIECookies");
            break;
        case 2:
            openModal("frmIECache");
            break;
        case 3:
            openModal("frmResources");
            break;
        case 4:
            openExtendedSettings();
            break;
        case 5:
            openModal("frmManualSearch");
            break;
        default:
            break;
    }
}

void frmOptions::checkVolume() {
    const std::string volume = txtVolumeCheckHD.Text();
    // Without a letter the path counts from the root of the current drive, which is the program's own.
    const std::string drive = volume.empty() ? program_.programFolder().substr(0, 2) : volume;
    // The path is fixed: a system folder of another name is not found. Intended.
    const bool found = program_.platform.files.FileExists(drive + "/windows/system32/chkdsk.exe");
    const std::string line = "chkdsk.exe " + volume + " " + txtVolumeCheckParameter.Text();
    if (found && program_.platform.processes.CreateProcessA(line, kNormalWindow) != nullptr) return;
    const std::string why =
        found ? sentence(program_, Sentence::ProgramCannotStart, {"chkdsk.exe"}) : program_.LangText(541);
    tell(program_.LangText(537) + " " + why, forms::msgbox::Exclamation);
}

void frmOptions::freeMemory() {
    const int style = forms::msgbox::YesNo + forms::msgbox::Exclamation;
    if (program_.display.MsgBox(program_.LangText(139), style, program_.LangText(140)) != forms::msgbox::Yes) return;
    const std::string module = program_.inProgramFolder("memtrim.exe");
    if (program_.platform.processes.CreateProcessA(module, kNormalWindow) != nullptr) return;
    tell(sentence(program_, Sentence::ProgramCannotStart, {module}), forms::msgbox::Exclamation);
}

// The box ends with the path for a file of two lines or more, and with the file's first line for a shorter one.
// Intended. A file of which only a part was read has further lines.
void frmOptions::browseRegistryAddIn() {
    const std::string file = program_.display.askFile({"", "Alle Dateien (*.*)|*.*", "", false});
    if (file.empty()) return;
    std::string bytes;
    const platform::Status status = program_.platform.files.ReadFileBytes(file, bytes, kEnoughOfAFile);
    txtAddInRegCleanPath.setText({});
    if (!platform::ok(status)) return;
    std::string_view first;
    const bool several = countLines(bytes, first) > 1 || bytes.size() >= kEnoughOfAFile;
    txtAddInRegCleanPath.setText(several ? file : program_.codePage().toUtf8(first));
}

void frmOptions::resetMenuOrder(const char* menu, int failureEntry) {
    platform::RegistryApi& registry = program_.platform.registry;
    platform::HKey key = 0;
    platform::RegResult result =
        registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, std::string(kMenuOrder) + menu, kMenuOrderAccess, key);
    if (result == 0) {
        result = registry.SHDeleteKeyA(key, "");
        (void)registry.RegCloseKey(key);
    }
    if (result == 0) {
        // The entry of the start menu for both menus: intended.
        tell(program_.LangText(218) + " <OK>", forms::msgbox::Information);
    } else {
        tell(program_.LangText(failureEntry) + " " + program_.LangText(497), forms::msgbox::Exclamation);
    }
}

}  // namespace tidvane::settings
