// Shows one window of the program and stays: for looking at it, and for pictures of it.
//   show_window MACHINE PROGRAM-FOLDER FORM [run] [COMMAND] [TAB-CONTROL=TAB]...
// "run": the machine is cleaned first. COMMAND: an entry of a menu of the main window, which is chosen before the form
// is shown. Prints "shown" once everything stands there.
#include <wx/app.h>

#include <iostream>
#include <memory>
#include <string>

#include "app/frmMain.h"
#include "forms/simple_controls.h"
#include "frontend/places.h"
#include "platform/machine/machine_platform.h"
#include "view/text.h"
#include "view/window_program.h"

namespace {

namespace machine = tidvane::platform::machine;

class ShowWindow final : public wxApp {
public:
    bool OnInit() override {
        if (argc < 4) return false;
        const auto word = [this](int at) { return tidvane::view::fromNative(argv[at]); };
        std::string error;
        bool run = false;
        for (int at = 4; at < argc; ++at) run = run || word(at) == "run";
        auto opened = machine::Machine::open(
            word(1), run ? machine::Machine::Access::Write : machine::Machine::Access::Read, error);
        if (opened == nullptr ||
            !tidvane::frontend::fillProgramFolder(word(2), tidvane::frontend::deliveredData(), error)) {
            wxLogError("%s", tidvane::view::toNative(error));
            return false;
        }
        platform_ = machine::MachinePlatform::make(std::move(opened), {word(2), {}, {}, false}, error);
        program_ = std::make_unique<tidvane::view::WindowProgram>(platform_->platform());
        program_->display().onEnd = [this] { ExitMainLoop(); };
        Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
            event.Skip();
            if (program_ && !program_->view().busy()) program_->view().settle();
        });
        const std::string form = word(3);
        CallAfter([this, form, word] {
            if (!program_->start()) {
                ExitMainLoop();
                return;
            }
            for (int at = 4; at < argc; ++at) before(word(at));
            program_->view().act([this, &form, &word] {
                tidvane::forms::Form* shown = program_->program().windows.get(form);
                if (shown == nullptr) return;
                if (form != "frmMain") program_->display().Show(*shown, nullptr, false);
                for (int at = 4; at < argc; ++at) turnPage(*shown, word(at));
            });
            CallAfter([] { std::cout << "shown" << std::endl; });
        });
        SetExitOnFrameDelete(false);
        return true;
    }
    int OnExit() override {
        program_.reset();
        return wxApp::OnExit();
    }

private:
    // What is done in the main window before the form is shown.
    void before(const std::string& word) {
        auto& main = program_->program().get<tidvane::app::frmMain>();
        if (word == "run") {
            program_->view().act([&main] { main.cmdClean.press(); });
        } else if (auto* entry = dynamic_cast<tidvane::forms::Menu*>(main.control(word))) {
            program_->view().act([&main, entry] {
                if (main.LstPlugs.ListCount() > 0) main.LstPlugs.setListIndex(0);
                entry->Click();
            });
        }
    }
    static void turnPage(tidvane::forms::Form& form, const std::string& choice) {
        const std::size_t equals = choice.find('=');
        auto* strip = dynamic_cast<tidvane::forms::TabStrip*>(form.control(choice.substr(0, equals)));
        if (strip == nullptr || equals == std::string::npos) return;
        const int tab = std::stoi(choice.substr(equals + 1));
        if (form.Name == "frmMain") {
            strip->offerOnly(tab);
        } else {
            strip->Tab = tab;
        }
    }

    std::unique_ptr<machine::MachinePlatform> platform_;
    std::unique_ptr<tidvane::view::WindowProgram> program_;
};

}  // namespace

wxIMPLEMENT_APP(ShowWindow);
