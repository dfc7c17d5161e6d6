// The main window at its smallest size: everything that is shown has room.
#include <gtest/gtest.h>
#include <wx/frame.h>

#include "view/program_on_screen.h"
#include "view/text.h"

namespace tidvane::tests {
namespace {

// 11430 by 5050 twips, in device-independent pixels.
constexpr int kLeastWidth = 762;
constexpr int kLeastHeight = 336;

// The file of the program's language.
class SmallestSize : public testing::TestWithParam<const char*>, protected ProgramOnScreen {
protected:
    SmallestSize() {
        speak(GetParam());
        hasRunBefore();
        start();
        letDraw(frame());
    }

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
