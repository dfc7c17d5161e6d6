// The own lists, through the options window: its boxes and buttons, its questions and refusals. What OK would store of
// the changed list is stored, and no other setting.
#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/instance_lock.h"
#include "console/tool_program.h"
#include "frontend/confirmations.h"
#include "frontend/split_lines.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"
#include "settings/sentences.h"

namespace tidvane::console {

namespace {

using settings::frmOptions;

struct OwnList {
    const char* word;  // of the command line
    const char* file;
    frontend::OwnList kind;
    forms::CheckBox frmOptions::*active;  // the page is off without it, and the run passes the list over
    forms::ListBox frmOptions::*rows;
    forms::TextBox frmOptions::*entry;
    controls::isButton frmOptions::*add;
    controls::isButton frmOptions::*removeSelected;
};
constexpr std::array kLists{
    OwnList{"folders", settings::kListFiles[0], frontend::OwnList::Folders, &frmOptions::chkActivateOwnFolder,
            &frmOptions::lstFolders, &frmOptions::txtAddFolderPath, &frmOptions::cmdAddFolderPath,
            &frmOptions::cmdDeleteSelected},
    OwnList{"files", settings::kListFiles[1], frontend::OwnList::Files, &frmOptions::chkActivateOwnFiles,
            &frmOptions::lstFiles, &frmOptions::txtAddFilePath, &frmOptions::cmdAddFilePath,
            &frmOptions::cmdDeleteSelected2},
    OwnList{"masks", settings::kListFiles[2], frontend::OwnList::Masks, &frmOptions::chkSearchTasks,
            &frmOptions::lstSearchMasks, &frmOptions::txtSearchMask, &frmOptions::cmdAddSearchMask,
            &frmOptions::cmdRemoveSearchMask},
};

const OwnList& listOf(const std::string& word) {
    return *std::find_if(kLists.begin(), kLists.end(), [&](const OwnList& list) { return word == list.word; });
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

class Lists {
public:
    Lists(Session& session, const Options& options)
        : session_(session), options_(options.lists), tool_(session, options) {}

    int run();

private:
    void show();
    bool add(const std::string& text);
    bool remove(const std::string& text);
    int change();
    void warnOfIdleEntries();
    // Asks where lines of the file come back as other entries than they read, and these would be its lines from now on.
    // False: no.
    bool mayRewrite(const settings::ListItems& stored);
    // False, and nothing is told: the window itself says why.
    bool pressAdd(const std::string& text);

    frmOptions& window() { return tool_.program().get<frmOptions>(); }
    forms::ListBox& rows() { return window().*list_->rows; }

    Session& session_;
    const ListsOptions& options_;
    ToolProgram tool_;
    const OwnList* list_ = nullptr;
};

void Lists::show() {
    for (const OwnList& list : kLists) {
        if (list_ != nullptr && list_ != &list) continue;
        const forms::ListBox& rows = window().*list.rows;
        for (int row = 0; row < rows.ListCount(); ++row) {
            // Several lists in one: the list's word in front, as wide as the widest.
            if (list_ == nullptr) session_.out << list.word << std::string(9 - std::string_view(list.word).size(), ' ');
            session_.out << printable(rows.List(row)) << "\n";
        }
    }
    session_.out << std::flush;
}

bool Lists::pressAdd(const std::string& text) {
    const int before = rows().ListCount();
    (window().*list_->entry).setText(text);
    (window().*list_->add).press();
    return rows().ListCount() > before;
}

bool Lists::add(const std::string& text) {
    if (list_->kind == frontend::OwnList::Masks) {
        const std::string idle = frontend::warningOfIdleEntry(tool_.program(), list_->kind, text);
        if (!idle.empty()) {
            session_.err << idle << std::endl;
            return false;
        }
    }
    // The window answers an empty folder or file itself; an empty mask can match nothing.
    if (!text.empty() && base::trimBlanks(text).empty()) {
        session_.err << "An entry of blanks alone means nothing; give a text." << std::endl;
        return false;
    }
    return pressAdd(text);
}

bool Lists::remove(const std::string& text) {
    bool found = false;
    for (int row = 0; row < rows().ListCount(); ++row) {
        const bool same = base::equalNoCase(rows().List(row), text);
        rows().setSelected(row, same);
        found = found || same;
    }
    if (!found) {
        session_.err << "The list of " << list_->word << " has no entry " << quoted(text)
                     << "; the command \"lists show " << list_->word << "\" shows its entries." << std::endl;
        return false;
    }
    (window().*list_->removeSelected).press();
    return true;
}

bool Lists::mayRewrite(const settings::ListItems& stored) {
    const std::vector<std::string>& rows = this->rows().rows();
    const auto isWritten = [&](const std::string& item) {
        return std::find(rows.begin(), rows.end(), item) != rows.end();
    };
    std::vector<settings::SplitLine> lines;
    for (const std::string& line : stored.changedLines) {
        settings::SplitLine split{list_->file, line, settings::parseListItems(line).items};
        if (std::any_of(split.items.begin(), split.items.end(), isWritten)) lines.push_back(std::move(split));
    }
    if (lines.empty()) return true;
    const int style = forms::msgbox::YesNo + forms::msgbox::Question + forms::msgbox::DefaultButton2;
    const std::string question = frontend::tellSplitLines(tool_.program(), lines) + "\r\n" +
                                 settings::sentence(tool_.program(), settings::Sentence::StoreTheseLines);
    return tool_.display().MsgBox(question, style, "Tidvane") == forms::msgbox::Yes;
}

// The window takes them; a run passes them over.
void Lists::warnOfIdleEntries() {
    for (const std::string& text : options_.texts) {
        const std::string warning = frontend::warningOfIdleEntry(tool_.program(), list_->kind, text);
        if (!warning.empty()) tool_.display().warn(warning);
    }
}

int Lists::change() {
    settings::Program& program = tool_.program();
    const std::string file = program.inProgramFolder(list_->file);
    settings::ListItems stored;
    const platform::Status readable = settings::readListFile(program, file, stored);
    if (!platform::ok(readable) && readable != platform::Status::NotFound) {
        session_.err << list_->file << " cannot be read, so that nothing was changed; check its rights." << std::endl;
        return exit_status::MachineUnusable;
    }
    const bool wasActive = (window().*list_->active).ticked();
    // With the page on its buttons are; the tick itself is not stored.
    (window().*list_->active).Value = 1;
    const bool adds = options_.action == ListsAction::Add;
    for (const std::string& text : options_.texts) {
        if (adds ? add(text) : remove(text)) continue;
        session_.err << "Nothing was changed in the list of " << list_->word << "." << std::endl;
        return exit_status::Usage;
    }
    if (!mayRewrite(stored)) {
        session_.err << "Nothing was changed in the list of " << list_->word
                     << "; agree with --answer yes, or take these entries out with \"lists remove " << list_->word
                     << "\"." << std::endl;
        return exit_status::Usage;
    }
    if (!platform::ok(settings::writeListFile(program, file, rows().rows()))) {
        session_.err << list_->file
                     << " could not be written; check the rights and the free space of the program folder."
                     << std::endl;
        return exit_status::MachineUnusable;
    }
    for (const std::string& text : options_.texts) session_.out << (adds ? "Added: " : "Removed: ") << text << "\n";
    if (adds) warnOfIdleEntries();
    if (adds && !wasActive) {
        session_.out << "A run passes this list over as long as its step is off; switch it on with --tick "
                     << (window().*list_->active).Name << ".\n";
    }
    session_.out << std::flush;
    return exit_status::Done;
}

int Lists::run() {
    if (options_.action != ListsAction::Show) {
        list_ = &listOf(options_.list);
        return change();
    }
    if (!options_.list.empty()) list_ = &listOf(options_.list);
    show();
    return exit_status::Done;
}

}  // namespace

int listsCommand(Session& session, const Options& options) {
    InstanceLock lock(session);
    if (options.lists.action != ListsAction::Show && !lock.take()) return exit_status::MachineUnusable;
    return Lists(session, options).run();
}

}  // namespace tidvane::console
