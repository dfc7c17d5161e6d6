// The whole program with its windows on the screen, on a machine in memory.
#pragma once

#include <wx/frame.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "app/frmMain.h"
#include "platform/memory/memory_platform.h"
#include "support/app_fixture.h"
#include "view/display_fixture.h"
#include "view/window_program.h"

namespace tidvane::tests {

// Nothing is started before a test asks for it, so that it can furnish the machine first.
class ProgramOnScreen {
protected:
    ProgramOnScreen() = default;
    ~ProgramOnScreen() {
        whenIdle({});
        program_.reset();
        letSettle();
    }
    ProgramOnScreen(const ProgramOnScreen&) = delete;
    ProgramOnScreen& operator=(const ProgramOnScreen&) = delete;

    // A delivered language file, as the only one of the program's folder.
    void speak(const std::string& delivered = "English.lng") {
        machine_.files.putFile(AppFixture::inFolder(delivered.substr(delivered.rfind('/') + 1)),
                               deliveredFile(delivered));
    }
    // No start page comes up.
    void hasRunBefore() {
        machine_.files.putFile(AppFixture::inFolder("td_last.dat"), "#2009-11-02#\r\n#07:05:09#\r\n");
    }
    void start() {
        program_ = std::make_unique<view::WindowProgram>(machine_.platform());
        whenIdle([this] {
            if (program_ && !program_->view().busy()) program_->view().settle();
        });
        if (!program_->start()) throw std::runtime_error("the program does not start");
        letSettle();
    }
    view::FormWindow& window(const std::string& name) {
        view::FormWindow* found = program_->display().ifOpen(name);
        if (found == nullptr) throw std::runtime_error(name + " is not open");
        return *found;
    }
    app::frmMain& form() { return program_->program().get<app::frmMain>(); }
    wxFrame* frame() { return dynamic_cast<wxFrame*>(window("frmMain").native()); }

    platform::MemoryPlatform machine_;
    std::unique_ptr<view::WindowProgram> program_;
};

}  // namespace tidvane::tests
