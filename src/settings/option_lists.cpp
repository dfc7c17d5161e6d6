// The user's own lists: the commands that edit them, and the files they live in.
#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "settings/bans.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"
#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

constexpr char32_t kEnter = 13;
constexpr char32_t kEscape = 27;

constexpr std::size_t kSplitLinesTold = 3;  // of each file; of the others the number

// A line of a file as a warning quotes it: short, and without what a screen would take for a command.
std::string quotable(const std::string& line) {
    constexpr std::size_t kLongest = 200;  // characters
    std::string text = line.substr(0, base::byteOffset(line, kLongest));
    for (char& sign : text) {
        if (static_cast<unsigned char>(sign) < ' ' || sign == '\x7F') sign = '?';
    }
    return text.size() < line.size() ? text + "..." : text;
}

}  // namespace

void frmOptions::connectLists() {
    cmdAddFolderPath.Click.connect([this] { addPath(txtAddFolderPath, lstFolders); });
    cmdAddFilePath.Click.connect([this] { addPath(txtAddFilePath, lstFiles); });
    cmdAddSearchMask.Click.connect([this] {
        if (!txtSearchMask.Text().empty()) addMask();
    });
    cmdDeleteAll.Click.connect([this] { lstFolders.Clear(); });
    cmdDeleteAll2.Click.connect([this] { lstFiles.Clear(); });
    cmdRemoveAllSearchMasks.Click.connect([this] { lstSearchMasks.Clear(); });
    cmdDeleteSelected.Click.connect([this] { removeSelected(lstFolders, 382); });
    cmdDeleteSelected2.Click.connect([this] { removeSelected(lstFiles, 382); });
    cmdRemoveSearchMask.Click.connect([this] { removeSelected(lstSearchMasks, 385); });
    cmdEditFolders.Click.connect([this] { editSelected(lstFolders, txtAddFolderPath); });
    cmdEditFiles.Click.connect([this] { editSelected(lstFiles, txtAddFilePath); });
    const auto editOnDoubleClick = [this](forms::ListBox& list, forms::TextBox& entry) {
        list.DblClick.connect([this, &list, &entry] {
            if (list.SelCount() == 0) list.setSelected(list.ListIndex(), true);
            editSelected(list, entry);
        });
    };
    editOnDoubleClick(lstFolders, txtAddFolderPath);
    editOnDoubleClick(lstFiles, txtAddFilePath);

    txtSearchMask.keyFilter = [this](char32_t key) {
        keyPress(key, txtSearchMask.Name);
        return key != kEnter && key != kEscape;
    };
    tmrSearchMasks.Tick.connect(
        [this] { cmdAddSearchMask.Enabled = chkSearchTasks.ticked() && !txtSearchMask.Text().empty(); });
    tmrCustom.Tick.connect([this] { showRowCounts(); });

    chkAutoSearchJunkFolders.Click.connect([this] {
        if (chkAutoSearchJunkFolders.ticked() && !loading_) addKnownFolders();
    });
    chkAutoSearchJunkFiles.Click.connect([this] {
        if (chkAutoSearchJunkFiles.ticked() && !loading_) addKnownFiles();
    });
}

void frmOptions::keyPress(char32_t key, const std::string& focusedControl) {
    if (key == kEscape) closeWithoutSaving();
    // Enter does not ask whether the line is empty: intended.
    if (key == kEnter && focusedControl == txtSearchMask.Name) addMask();
}

void frmOptions::showRowCounts() {
    const auto show = [this](int tab, int entry, const forms::ListBox& list) {
        SSTab3.setTabCaption(tab, program_.LangText(entry) + " (" + std::to_string(list.ListCount()) + ")");
    };
    show(0, 313, lstFolders);
    show(1, 314, lstFiles);
    show(2, 315, lstSearchMasks);
}

// Whole, and entry by entry as the list will be read again.
bool frmOptions::isBannedEntry(const std::string& text) {
    if (isBanned(text)) return true;
    const ListItems read = parseListItems(text);
    return std::any_of(read.items.begin(), read.items.end(),
                       [this](const std::string& item) { return isBanned(item); });
}

// As it stands, and as the system would read it.
bool frmOptions::isBanned(const std::string& text) {
    const std::string file = program_.inProgramFolder(kBanFile);
    if (!program_.platform.files.FileExists(file) && program_.tellOnce(file)) {
        program_.display.warn(sentence(program_, Sentence::BanFileGone, {kBanFile}));
    }
    if (FindInFile(program_, file, text, kBanBlockSize) || isProtectedRegistryEntry(text)) return true;
    const std::string plain = plainSpelling(text);
    return !plain.empty() && plain != text && FindInFile(program_, file, plain, kBanBlockSize);
}

bool frmOptions::mayEnter(const std::string& text, bool oneOfSeveral) {
    // Whoever has typed the text sees it; of several that come at once the message names its own.
    const std::string which = oneOfSeveral ? "\r\n\r\n" + text : std::string();
    if (isBannedEntry(text)) {
        tell(kBanMessage + which, forms::msgbox::Critical);
        return false;
    }
    if (!isStorable(program_, text)) {
        tell(sentence(program_, Sentence::NotInCodePage) + which, forms::msgbox::Exclamation);
        return false;
    }
    return survivesReading(text);
}

// A comma, a quote or a line break makes other entries of a text when the list is read again. Only whoever has seen
// them adds it.
bool frmOptions::survivesReading(const std::string& text) {
    if (text.find_first_of(",\"\r") == std::string::npos) return true;
    const ListItems read = parseListItems(text);
    if (read.items.size() == 1 && read.items.front() == text) return true;
    std::string question = sentence(program_, Sentence::TakenApart) + "\r\n";
    for (const std::string& item : read.items) question += "\r\n" + item;
    question += "\r\n\r\n" + sentence(program_, Sentence::AddAllTheSame);
    const int style = forms::msgbox::YesNo + forms::msgbox::Question + forms::msgbox::DefaultButton2;
    return program_.display.MsgBox(question, style, "Tidvane") == forms::msgbox::Yes;
}

void frmOptions::addChecked(forms::TextBox& entry, forms::ListBox& list) {
    const std::string text = entry.Text();
    if (!mayEnter(text)) return;
    list.AddItem(text);
    entry.setText({});
}

void frmOptions::addPath(forms::TextBox& entry, forms::ListBox& list) {
    if (entry.Text().empty()) {
        tell(program_.LangText(384), forms::msgbox::Information);
        return;
    }
    addChecked(entry, list);
}

void frmOptions::addMask() {
    addChecked(txtSearchMask, lstSearchMasks);
}

void frmOptions::removeSelected(forms::ListBox& list, int messageWhenNone) {
    if (list.SelCount() == 0) {
        tell(program_.LangText(messageWhenNone), forms::msgbox::Information);
        return;
    }
    for (int row = list.ListCount() - 1; row >= 0; --row) {
        if (list.Selected(row)) list.RemoveItem(row);
    }
}

// Of several selected rows the topmost ends up in the line and the others are gone: intended.
void frmOptions::editSelected(forms::ListBox& list, forms::TextBox& entry) {
    if (list.SelCount() == 0) {
        tell(program_.LangText(383), forms::msgbox::Information);
        return;
    }
    for (int row = list.ListCount() - 1; row >= 0; --row) {
        if (!list.Selected(row)) continue;
        entry.setText(list.List(row));
        list.RemoveItem(row);
    }
}

void frmOptions::drop(const std::string& path, forms::ListBox& list, bool oneOfSeveral) {
    if (mayEnter(path, oneOfSeveral)) list.AddItem(path);
}

void frmOptions::dropOnFolders(const std::vector<std::string>& paths) {
    if (!lstFolders.Enabled) return;
    for (const std::string& path : paths) {
        if (program_.platform.files.FolderExists(path)) drop(path, lstFolders, paths.size() > 1);
    }
}

void frmOptions::dropOnFiles(const std::vector<std::string>& paths) {
    if (!lstFiles.Enabled) return;
    for (const std::string& path : paths) {
        if (program_.platform.files.FileExists(path)) {
            drop(path, lstFiles, paths.size() > 1);
        } else if (lstFolders.Enabled && program_.platform.files.FolderExists(path)) {
            drop(path, lstFolders, paths.size() > 1);  // only there a run does something with it
        }
    }
}

void frmOptions::loadLists() {
    // The window is loaded often, and each time it would say the same.
    const auto warnOnce = [this](const std::string& warning) {
        if (program_.tellOnce(warning)) program_.display.warn(warning);
    };
    for (ListFile& file : lists_) {
        ListItems content;
        const platform::Status status = readListFile(program_, program_.inProgramFolder(file.fileName), content);
        file.keepFile = !platform::ok(status) && status != platform::Status::NotFound;
        file.list->Clear();
        for (const std::string& item : content.items) file.list->AddItem(item);
        if (file.keepFile) warnOnce(sentence(program_, Sentence::ListKept, {file.fileName}));
        const std::size_t told = std::min(content.splitLines.size(), kSplitLinesTold);
        for (std::size_t i = 0; i < told; ++i) {
            warnOnce(sentence(program_, Sentence::LineMakesSeveral, {file.fileName, quotable(content.splitLines[i])}));
        }
        if (content.splitLines.size() > told) {
            warnOnce(sentence(program_, Sentence::MoreLinesMakeSeveral,
                              {file.fileName, std::to_string(content.splitLines.size() - told)}));
        }
        // The program ends every line that it writes. What is left of a path may be a folder far above it.
        if (content.lastLineIsOpen) {
            warnOnce(sentence(program_, Sentence::LastLineIsOpen, {file.fileName, quotable(content.items.back())}));
        }
    }
}

void frmOptions::saveLists() {
    for (const ListFile& file : lists_) {
        if (file.keepFile) {
            program_.display.warn(sentence(program_, Sentence::ListNotWritten, {file.fileName}));
            continue;
        }
        if (!platform::ok(writeListFile(program_, program_.inProgramFolder(file.fileName), file.list->rows()))) {
            program_.display.warn(sentence(program_, Sentence::ListNotStored, {file.fileName}));
        }
    }
}

}  // namespace tidvane::settings
