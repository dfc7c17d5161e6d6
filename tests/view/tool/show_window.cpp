// Shows one window of the program and stays: for looking at it, and for pictures of it.
//   show_window MACHINE PROGRAM-FOLDER FORM [TAB-CONTROL=TAB]...
#include <wx/app.h>

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
        auto opened = machine::Machine::open(word(1), machine::Machine::Access::Read, error);
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
            program_->view().act([this, &form, &word] {
                tidvane::forms::Form* shown = program_->program().windows.get(form);
                if (shown == nullptr) return;
                if (form != "frmMain") program_->display().Show(*shown, nullptr, false);
                for (int at = 4; at < argc; ++at) {
                    const std::string choice = word(at);
                    const std::size_t equals = choice.find('=');
                    auto* strip = dynamic_cast<tidvane::forms::TabStrip*>(shown->control(choice.substr(0, equals)));
                    if (strip == nullptr) continue;
                    const int tab = std::stoi(choice.substr(equals + 1));
                    if (form == "frmMain") {
                        strip->offerOnly(tab);
                    } else {
                        strip->Tab = tab;
                    }
                }
            });
        });
        SetExitOnFrameDelete(false);
        return true;
    }
    int OnExit() override {
        program_.reset();
        return wxApp::OnExit();
    }

private:
    std::unique_ptr<machine::MachinePlatform> platform_;
    std::unique_ptr<tidvane::view::WindowProgram> program_;
};

}  // namespace

wxIMPLEMENT_APP(ShowWindow);
