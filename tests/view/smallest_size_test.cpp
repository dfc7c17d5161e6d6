// The main window at its smallest size: everything that is shown has room.
#include <gtest/gtest.h>
#include <wx/frame.h>

#include "app/frmMain.h"
#include "platform/memory/memory_platform.h"
#include "support/app_fixture.h"
#include "view/display_fixture.h"
#include "view/text.h"
#include "view/window_program.h"

namespace tidvane::tests {
namespace {

// 11430 by 5050 twips, in device-independent pixels.
constexpr int kLeastWidth = 762;
constexpr int kLeastHeight = 336;

// The file of the program's language.
class SmallestSize : public testing::TestWithParam<const char*> {
protected:
    SmallestSize() {
        const std::string delivered = GetParam();
        machine_.files.putFile(AppFixture::inFolder(delivered.substr(delivered.rfind('/') + 1)),
                               deliveredFile(delivered));
        machine_.files.putFile(AppFixture::inFolder("td_last.dat"), "#2009-11-02#\r\n#07:05:09#\r\n");
        program_ = std::make_unique<view::WindowProgram>(machine_.platform());
        whenIdle([this] {
            if (program_ && !program_->view().busy()) program_->view().settle();
        });
        if (!program_->start()) throw std::runtime_error("the program does not start");
        letDraw(frame());
    }
    ~SmallestSize() override {
        whenIdle({});
        program_.reset();
        letSettle();
    }
    app::frmMain& form() { return program_->program().get<app::frmMain>(); }
    wxFrame* frame() { return dynamic_cast<wxFrame*>(program_->display().ifOpen("frmMain")->native()); }

    static std::string withoutRoom(const wxWindow* from) {
        std::string names;
        for (const wxWindow* child : from->GetChildren()) {
            if (!child->IsShownOnScreen()) continue;
            const wxSize size = child->GetSize();
            if (size.x <= 0 || size.y <= 0) names += view::fromNative(child->GetName()) + " ";
            names += withoutRoom(child);
        }
        return names;
    }

    platform::MemoryPlatform machine_;
    std::unique_ptr<view::WindowProgram> program_;
};

TEST_P(SmallestSize, LeavesRoomForEverythingWithTheLogOpenAndClosed) {
    const wxSize least = frame()->FromDIP(wxSize(kLeastWidth, kLeastHeight));
    frame()->SetClientSize(least);
    ASSERT_TRUE(letRunUntil([&] { return frame()->GetClientSize() == least; }));
    for (const bool open : {true, false}) {
        program_->view().act([&] {
            if (form().LogVisible() != open) form().cmdViewLog.press();
        });
        letDraw(frame());
        ASSERT_EQ(form().LogVisible(), open);
        EXPECT_EQ(withoutRoom(frame()), "") << (open ? "open" : "closed");
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, SmallestSize, testing::Values("English.lng", "languages/Deutsch (German).lng"),
                         [](const auto& language) {
                             return std::string(language.param).find('/') == std::string::npos ? "English" : "German";
                         });

}  // namespace
}  // namespace tidvane::tests
