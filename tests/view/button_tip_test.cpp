// The tips of buttons: the desktop's own, or a window with the icon and the colours that were chosen.
#include <gtest/gtest.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include <memory>

#include "controls/is_button.h"
#include "view/display_fixture.h"
#include "view/form_window.h"
#include "view/painters/tip_window.h"

namespace tidvane::tests {
namespace {

class TipForm final : public forms::Form {
public:
    TipForm() : Form("TipForm") { Caption.design("TipForm"); }
    controls::isButton cmdOne{*this, "cmdOne", "Press"};
};

class ButtonTips : public testing::Test {
protected:
    ButtonTips() {
        takeComplaints();
        button.ToolTipText.design("What it does");
        button.ToolTipTitle.design("Press");
    }
    ~ButtonTips() override {
        // The window goes when nothing runs; until then it may still hear of the screen.
        const wxWeakRef<wxWindow> widgets(widget);
        window_.reset();
        EXPECT_TRUE(letRunUntil([&] { return !widgets; }, 10000));
        whenIdle({});
        for (const std::string& complaint : takeComplaints()) ADD_FAILURE() << complaint;
    }
    void open() {
        window_ = std::make_unique<view::FormWindow>(view_, form_, view::WindowStyle{}, nullptr);
        widget = window_->button(window_->body(), button);
        view::fillWindow(window_->body(), view::column(window_->body(), {view::fill(widget)}));
        window_->finish();
        whenIdle([this] {
            if (!view_.busy()) view_.settle();
        });
        window_->show(true);
        ASSERT_TRUE(letRunUntil([this] { return isActive(window_->native()); }, 10000)) << "the window gets no focus";
    }
    void send(wxEventType type) {
        wxMouseEvent event(type);
        event.SetEventObject(widget);
        widget->ProcessWindowEvent(event);
    }
    [[nodiscard]] view::TipWindow* tip() const {
        for (wxWindow* child : widget->GetChildren()) {
            auto* found = dynamic_cast<view::TipWindow*>(child);
            if (found != nullptr && !found->IsBeingDeleted() && found->IsShown()) return found;
        }
        return nullptr;
    }

private:
    TipForm form_;
    view::View view_;
    std::unique_ptr<view::FormWindow> window_;

protected:
    controls::isButton& button{form_.cmdOne};
    wxWindow* widget = nullptr;
};

TEST_F(ButtonTips, AreTheDesktopsOwnWithTheTitleAbove) {
    open();
    EXPECT_EQ(widget->GetToolTipText(), "Press\nWhat it does");
}

TEST_F(ButtonTips, WithALookOfTheirOwnAreAWindowThatGoesWithTheMouse) {
    button.ToolTipIcon.design(1);
    button.ToolTipBackColor.design(0x00FFFFu);
    button.ToolTipForeColor.design(0x0000FFu);
    open();
    EXPECT_EQ(widget->GetToolTipText(), "");
    send(wxEVT_ENTER_WINDOW);
    ASSERT_TRUE(letRunUntil([this] { return tip() != nullptr; }, 10000));
    EXPECT_EQ(tip()->GetBackgroundColour(), wxColour(0xFF, 0xFF, 0));
    std::string words;
    int pictures = 0;
    for (wxWindow* part : tip()->GetChildren()) {
        if (auto* text = dynamic_cast<wxStaticText*>(part)) {
            words += text->GetLabelText() + ";";
            EXPECT_EQ(text->GetForegroundColour(), wxColour(0xFF, 0, 0));
        }
        pictures += dynamic_cast<wxStaticBitmap*>(part) != nullptr ? 1 : 0;
    }
    EXPECT_EQ(words, "Press;What it does;");
    EXPECT_EQ(pictures, 1);
    send(wxEVT_LEAVE_WINDOW);
    EXPECT_TRUE(letRunUntil([this] { return tip() == nullptr; }, 10000));
}

}  // namespace
}  // namespace tidvane::tests
