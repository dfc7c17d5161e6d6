// The entry point of the windows.
#include <wx/app.h>
#include <wx/cmdline.h>

#include <memory>
#include <string>

#include "frontend/places.h"
#include "platform/machine/machine_platform.h"
#include "view/text.h"
#include "view/window_program.h"

namespace {

namespace machine = tidvane::platform::machine;

class App final : public wxApp {
public:
    bool OnInit() override {
        std::string directory;
        std::string programFolder;
        std::string arguments;
        for (int at = 1; at < argc; ++at) {
            const std::string word = tidvane::view::fromNative(argv[at]);
            if (word == "--machine" && at + 1 < argc) {
                directory = tidvane::view::fromNative(argv[++at]);
            } else if (word == "--program" && at + 1 < argc) {
                programFolder = tidvane::view::fromNative(argv[++at]);
            } else {
                arguments += (arguments.empty() ? "" : " ") + word;
            }
        }
        std::string error;
        auto opened = machine::Machine::open(directory, machine::Machine::Access::Write, error);
        if (opened == nullptr ||
            !tidvane::frontend::fillProgramFolder(programFolder, tidvane::frontend::deliveredData(), error)) {
            wxLogError("%s", tidvane::view::toNative(error));
            return false;
        }
        platform_ = machine::MachinePlatform::make(std::move(opened), {programFolder, arguments, {}, false}, error);
        program_ = std::make_unique<tidvane::view::WindowProgram>(platform_->platform());
        program_->display().onEnd = [this] { ExitMainLoop(); };
        Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
            event.Skip();
            if (program_ && !program_->view().busy()) program_->view().settle();
        });
        CallAfter([this] {
            if (!program_->start()) ExitMainLoop();
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

wxIMPLEMENT_APP(App);
