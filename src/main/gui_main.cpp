// The entry point of the windows: which machine, what stands between the program and it, and the end of both.
#include <glib-unix.h>
#include <gtk/gtk.h>
#include <unistd.h>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/msgdlg.h>

#include <array>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/frmMain.h"
#include "base/runtime_error.h"
#include "frontend/find_systems.h"
#include "frontend/guards.h"
#include "frontend/host_paths.h"
#include "frontend/last_machine.h"
#include "frontend/last_words.h"
#include "frontend/open_machine.h"
#include "frontend/own_list_watch.h"
#include "frontend/places.h"
#include "frontend/removal_gate.h"
#include "frontend/removed.h"
#include "frontend/sample/sample_machine.h"
#include "frontend/window_arguments.h"
#include "settings/sentences.h"
#include "view/chooser/chooser.h"
#include "view/modal_dialog.h"
#include "view/text.h"
#include "view/window_program.h"

namespace {

using tidvane::frontend::HeldMachine;
using tidvane::frontend::WindowArguments;
using tidvane::view::toNative;
namespace msgbox = tidvane::forms::msgbox;

constexpr const char* kTitle = "Tidvane";

namespace exit_status {
constexpr int Done = 0;
constexpr int Usage = 2;
constexpr int MachineUnusable = 4;
}  // namespace exit_status

class App final : public wxApp {
public:
    explicit App(WindowArguments arguments) : arguments_(std::move(arguments)) {}

    bool OnInit() override;
    int OnExit() override;
    bool OnExceptionInMainLoop() override;
    void OnUnhandledException() override { (void)OnExceptionInMainLoop(); }

    [[nodiscard]] int status() const { return status_; }
    // Behind the end: the words of a new start; empty: none is wanted.
    [[nodiscard]] const std::vector<std::string>& restart() const { return restart_; }

    void noteEndOfSession();

private:
    void choose();
    bool open(const std::string& directory, std::string& error);
    void start();
    std::string inLanguage(const std::string& told) const;
    void warn(const std::string& told);
    void settle();
    void guarded(const std::function<void()>& what);
    void endOfSession();
    void end();

    WindowArguments arguments_;
    std::string directory_;
    tidvane::view::Chooser* chooser_ = nullptr;  // the toolkit's, as all windows
    std::unique_ptr<HeldMachine> machine_;
    std::unique_ptr<tidvane::frontend::HostPaths> paths_;
    std::unique_ptr<tidvane::view::WindowProgram> program_;
    tidvane::platform::RemovalTotals before_;
    std::vector<std::string> restart_;
    int status_ = exit_status::Done;
    bool ended_ = false;
    bool sessionEnds_ = false;
};

gboolean noteSignal(gpointer app) {
    static_cast<App*>(app)->noteEndOfSession();
    return G_SOURCE_CONTINUE;
}

// Boxes and dialogs of the toolkit that wait for an answer get none: each is left as by its close button.
void dismissBoxes() {
    GList* windows = gtk_window_list_toplevels();
    for (GList* window = windows; window != nullptr; window = window->next) {
        if (GTK_IS_DIALOG(window->data) && gtk_widget_get_visible(GTK_WIDGET(window->data))) {
            gtk_dialog_response(GTK_DIALOG(window->data), GTK_RESPONSE_CANCEL);
        }
    }
    g_list_free(windows);
    // The innermost first: each loop ends only behind those within it.
    for (auto node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
        if (auto* dialog = dynamic_cast<tidvane::view::ModalDialog*>(node->GetData())) dialog->endSoon(wxID_CANCEL);
    }
}

// What the run would still remove stays: it hears of the end no earlier than at its next point. The button may lie on a
// page that nobody sees.
void stopRun(tidvane::app::frmMain& main) {
    if (main.cmdStop.Enabled) main.cmdStop.Click();
}

bool App::OnInit() {
    SetAppName(kTitle);
    SetExitOnFrameDelete(false);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) g_unix_signal_add(signal, noteSignal, this);
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        event.Skip();
        guarded([this] { settle(); });
        if (chooser_ != nullptr && chooser_->describeNext()) event.RequestMore();
    });
    if (arguments_.machine.empty()) {
        choose();
        return true;
    }
    std::string error;
    if (!open(arguments_.machine, error)) {
        std::cerr << error << std::endl;
        wxMessageBox(toNative(error), kTitle, wxOK | wxICON_ERROR);
        status_ = exit_status::MachineUnusable;
        return false;
    }
    return true;
}

// The systems that are found, of which the user takes one.
void App::choose() {
    namespace frontend = tidvane::frontend;
    namespace view = tidvane::view;
    const std::string userData = frontend::userDataDirectory();
    const std::string own = frontend::defaultMachine();
    std::error_code problem;
    const std::string proposed = std::filesystem::exists(own, problem) ? std::string() : own;
    const view::Tongue tongue = view::tongueOfHost();
    const std::string last = frontend::lastMachine(userData);
    const frontend::SearchPlaces places = frontend::SearchPlaces::ofThisHost();
    view::SystemRows rows(frontend::findSystems(places), tongue, places.home, frontend::describe);
    // One that lies where nobody looks is known since it was chosen.
    if (!last.empty() && std::filesystem::is_directory(last, problem)) {
        (void)rows.add(last, frontend::kindOf(last));
    }
    chooser_ = new view::Chooser(std::move(rows), tongue, last, proposed);
    chooser_->onCancel = [this] { end(); };
    chooser_->onCreateSample = [](const std::string& directory) {
        std::string error;
        return frontend::createSampleMachine(directory, error) ? std::string() : error;
    };
    chooser_->onOpen = [this, userData](const std::string& directory) {
        std::string error;
        if (!open(directory, error)) return error;
        // Not being able to is no matter: the next start asks without a suggestion.
        (void)frontend::rememberMachine(userData, directory_);
        chooser_->Hide();
        std::exchange(chooser_, nullptr)->Destroy();
        return std::string();
    };
    chooser_->Show();
}

// False: nothing has changed, and another machine may be tried.
bool App::open(const std::string& directory, std::string& error) {
    auto machine = HeldMachine::open(
        {directory, arguments_.program, tidvane::platform::machine::Machine::Access::Read, arguments_.arguments, false},
        error);
    if (machine == nullptr) return false;
    machine_ = std::move(machine);
    directory_ = machine_->platform().machine().directory();
    paths_ = std::make_unique<tidvane::frontend::HostPaths>(machine_->platform().machine(), arguments_.program);
    const tidvane::platform::Platform platform = machine_->platform().platform();
    before_ = platform.removed.totals;
    program_ = std::make_unique<tidvane::view::WindowProgram>(platform);

    tidvane::view::WxDisplay& display = program_->display();
    display.hostPathOf = [this](const std::string& path) { return paths_->hostPathOf(path); };
    display.machinePathOf = [this](const std::string& path) { return paths_->machinePathOf(path); };
    display.onEnd = [this] { end(); };
    program_->shell().show = tidvane::view::showOnDesktop;
    program_->shell().hostFolderOf = [this](const std::string& folder) { return paths_->hostFolderOf(folder); };
    program_->shell().hostFileOf = [this](const std::string& file) { return paths_->hostFileOf(file); };
    program_->recycleBins = [this] { return machine_->platform().recycleBins(); };
    machine_->platform().setWarningSink([this](const tidvane::platform::Warning& warning) { warn(warning.text); });
    // What the end of a session asks for is heard at the points where events get in, as everything is.
    machine_->platform().events().onPump([this] { endOfSession(); });
    program_->view().onError = [&display](const std::string& text) {
        (void)display.MsgBox(text, msgbox::Critical, kTitle);
    };
    program_->whenQuiet = [this] {
        std::string problem;
        if (!machine_->settle(problem) && !problem.empty()) warn(problem);
    };
    tidvane::frontend::watchOwnLists(program_->program());
    tidvane::frontend::connectRemovalGate(program_->program(), *machine_);
    CallAfter([this] { guarded([this] { start(); }); });
    return true;
}

void App::start() {
    if (!program_->start()) return end();
    tidvane::view::WxDisplay& display = program_->display();
    tidvane::frontend::warnOfMissingProtection(program_->program(), display);
    tidvane::frontend::warnOfMissingTexts(program_->program(), display);
    if (const std::string why = machine_->whyNotNow(); !why.empty()) warn(why);
}

// What is told in English where no language is known.
std::string App::inLanguage(const std::string& told) const {
    return program_ ? tidvane::settings::inLanguageOf(program_->program(), told) : told;
}

void App::warn(const std::string& told) {
    program_->display().warn(inLanguage(told));
}

void App::settle() {
    endOfSession();
    if (program_ && !program_->view().busy()) program_->view().settle();
    // A loop of a window or a box stood in the way when the program ended.
    if (ended_) ExitMainLoop();
}

void App::end() {
    ended_ = true;
    ExitMainLoop();
    wxWakeUpIdle();
}

void App::noteEndOfSession() {
    sessionEnds_ = true;
    if (program_) program_->hurry();
    wxWakeUpIdle();
}

// The end of Windows, or of this desktop: nobody is asked anything any more.
void App::endOfSession() {
    if (!sessionEnds_ || ended_) return;
    if (!program_) {
        dismissBoxes();
        return end();
    }
    tidvane::settings::Program& program = program_->program();
    program.unattended = true;
    dismissBoxes();
    auto* main = program.windows.ifLoaded<tidvane::app::frmMain>();
    if (program.windows.isLoading(tidvane::app::frmMain::kName)) {
        // What cannot be unloaded yet comes to an end first: a box is away by now, a run of the start is stopped.
        if (main != nullptr) program_->view().act([main] { stopRun(*main); });
        return;
    }
    sessionEnds_ = false;
    program_->view().act([&program, main] {
        if (main != nullptr) stopRun(*main);
        if (main == nullptr || !program.windows.unload(*main, tidvane::forms::UnloadMode::WindowsShutdown)) {
            program.UnloadAllForms();
        }
    });
}

void App::guarded(const std::function<void()>& what) {
    try {
        what();
    } catch (const std::exception&) {
        if (!OnExceptionInMainLoop()) end();
    }
}

// Called inside the handler of an exception. True: the program goes on.
bool App::OnExceptionInMainLoop() {
    try {
        throw;
    } catch (const tidvane::base::RuntimeError& error) {
        wxMessageBox(toNative(error.what()), kTitle, wxOK | wxICON_ERROR);
        return true;
    } catch (const std::exception& problem) {
        const bool removed = machine_ != nullptr && tidvane::frontend::removedSomething(tidvane::frontend::removedSince(
                                                        before_, machine_->platform().platform().removed));
        const std::string words = tidvane::frontend::lastWords(problem, removed);
        std::cerr << words << std::endl;
        if (!ended_) wxMessageBox(toNative(inLanguage(words)), kTitle, wxOK | wxICON_ERROR);
        status_ = exit_status::MachineUnusable;
        return false;
    }
}

int App::OnExit() {
    if (chooser_ != nullptr) std::exchange(chooser_, nullptr)->Destroy();
    if (program_ && program_->restartWanted()) {
        restart_ = tidvane::frontend::wordsOfRestart(directory_, arguments_.program);
    }
    if (machine_) {
        machine_->platform().events().onPump({});
        machine_->platform().setWarningSink({});
    }
    program_.reset();
    if (machine_) {
        std::string error;
        if (!machine_->settle(error) && !error.empty()) {
            std::cerr << error << std::endl;
            status_ = exit_status::MachineUnusable;
        }
    }
    machine_.reset();
    return wxApp::OnExit();
}

// Does not come back where it succeeds.
int becomeAnew(const std::string& program, const std::vector<std::string>& words) {
    std::vector<std::string> line{program};
    line.insert(line.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    pointers.reserve(line.size() + 1);
    for (std::string& word : line) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(program.c_str(), pointers.data());
    std::cerr << "Tidvane could not be started anew; start it by hand." << std::endl;
    return exit_status::MachineUnusable;
}

int runWindows(const WindowArguments& arguments, char* name, std::vector<std::string>& restart) {
    auto* app = new App(arguments);
    wxApp::SetInstance(app);
    // The toolkit's own options come from the environment; every word of ours is read already.
    int count = 1;
    std::array<char*, 2> words{name, nullptr};
    if (!wxEntryStart(count, words.data())) {
        std::cerr << "No display can be opened; the console front end is tidvane-console." << std::endl;
        return exit_status::MachineUnusable;
    }
    try {
        if (app->CallOnInit()) app->OnRun();
    } catch (...) {
        app->OnUnhandledException();
    }
    app->OnExit();
    restart = app->restart();
    const int status = app->status();
    wxEntryCleanup();
    return status;
}

}  // namespace

int main(int count, char** words) {
    WindowArguments arguments = tidvane::frontend::readWindowArguments({words + 1, words + count});
    if (!arguments.error.empty()) {
        std::cerr << arguments.error << std::endl;
        return exit_status::Usage;
    }
    if (arguments.help || arguments.version) {
        std::cout << (arguments.help ? tidvane::frontend::windowHelp() : "tidvane " TIDVANE_VERSION "\n");
        return exit_status::Done;
    }
    if (arguments.program.empty()) arguments.program = tidvane::frontend::defaultProgramFolder();
    if (arguments.program.empty()) {
        std::cerr << "Neither XDG_DATA_HOME nor HOME is set; name the places with --machine and --program."
                  << std::endl;
        return exit_status::MachineUnusable;
    }
    // Where this program lies may not be told any more once another version was put in its place.
    std::error_code problem;
    const std::string own = std::filesystem::read_symlink("/proc/self/exe", problem).string();
    std::vector<std::string> restart;
    const int status = runWindows(arguments, words[0], restart);
    return restart.empty() ? status : becomeAnew(own, restart);
}
