// Everything that a window or a worker may reach: the platform, the display, the windows, the texts, the main window's
// ears. One object, made by the entry point, handed to every window at its making.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"
#include "forms/windows.h"
#include "platform/platform.h"
#include "settings/lang_text.h"
#include "settings/run_report.h"

namespace tidvane::settings {

struct ProductVersion {
    int major = 1;
    int minor = 0;
    int revision = 0;
};

// The acts of a user that remove something from the machine.
enum class Removal { Run, PlugIns, Search, Manager };

class Program {
public:
    Program(platform::Platform services, forms::Display& screen);

    platform::Platform platform;
    forms::Display& display;
    forms::Windows windows;
    LangTable LangText;
    ProductVersion version;
    // The user's temporary folder as the shell told it when the main window was loaded.
    std::string temporaryFolder;
    // Files of this run that the recycle bin refused and a second attempt removed for good. The front end warns once.
    std::uint64_t removedForGood = 0;

    // True at the first call with this key: what is told once, however often a window is loaded anew.
    bool tellOnce(const std::string& key) { return toldOnce_.insert(key).second; }

    // The window, loaded if it was not.
    template <class F>
    F& get() {
        return windows.get<F>();
    }

    // The main window's ears; before it exists and after it is gone, reports go nowhere.
    RunReport& report();
    void setReport(RunReport* report) { report_ = report; }

    const base::Locale& locale() const { return platform.system.locale(); }
    const base::CodePage& codePage() const { return codePage_; }

    // The program's folder on the machine, with its trailing backslash.
    const std::string& programFolder() const { return programFolder_; }
    // The same folder as texts show it: with a backslash only where it is the root of a drive.
    std::string programDirectory() const { return base::withoutBackslash(programFolder_); }
    std::string inProgramFolder(std::string_view fileName) const { return programFolder_ + std::string(fileName); }

    // Which of the three ways of removing a file the user has chosen: the text of cboKillMethod compared with entries
    // 732, 733, 734 in that order. -1: it equals none of them, and the caller removes nothing.
    int selectedKillMethod();

    // A message box of a run or of the end. While nobody may be kept waiting it does not come up, and the answer is the
    // button that changes nothing.
    int MsgBox(const std::string& text, int style, const std::string& title);
    // Set while Windows itself ends: no box may hold that up.
    bool unattended = false;

    // What a front end has to say in front of such an act, a message box of its own included. False: it does not
    // happen. Empty: nothing stands against any of them.
    std::function<bool(Removal)> mayRemove;
    bool allowsRemoval(Removal act) { return !mayRemove || mayRemove(act); }

    // Unloads every window and ends the program.
    void UnloadAllForms();
    // From here on the program is over; what still runs on the stack does nothing more.
    void end();
    bool ended() const { return ended_; }

private:
    base::CodePage codePage_;
    std::string programFolder_;
    RunReport* report_ = nullptr;
    bool ended_ = false;
    std::set<std::string> toldOnce_;
};

}  // namespace tidvane::settings
