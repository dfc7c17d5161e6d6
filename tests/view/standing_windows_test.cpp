// Windows beside and above each other: who belongs to whom, who ends when, who is small.
#include <glib.h>
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#include <chrono>
#include <cstdlib>

#include "forms/simple_controls.h"
#include "settings/frmOptions.h"
#include "tools/frmSearchMasks.h"
#include "view/binding/cursor_row.h"
#include "view/modal_dialog.h"
#include "view/program_on_screen.h"

namespace tidvane::tests {
namespace {

class StandingWindows : public testing::Test, protected ProgramOnScreen {
protected:
    StandingWindows() { speak(); }
    void act(const std::function<void()>& what) {
        program_->view().act(what);
        letSettle();
    }
};

TEST_F(StandingWindows, TheStartPageOfAFirstStartBelongsToTheMainWindowThatComesBehindIt) {
    start();
    auto* page = GTK_WINDOW(window("frmStarter").native()->GetHandle());
    EXPECT_EQ(gtk_window_get_transient_for(page), GTK_WINDOW(window("frmMain").native()->GetHandle()));
}

TEST_F(StandingWindows, AStartThatIsToBeMinimisedStaysSoWhereThereIsNoTray) {
    hasRunBefore();
    machine_.files.putFile(AppFixture::inFolder("td_config.ini"), "[frmOptions]\r\nchkStartMinimized=1\r\n");
    start();
    auto& main = program_->program().get<app::frmMain>();
    ASSERT_EQ(main.State.get(), forms::WindowState::Minimized);
    EXPECT_TRUE(letRunUntil([this] { return window("frmMain").native()->IsIconized(); }));
    letRun(300);
    EXPECT_TRUE(window("frmMain").native()->IsIconized());
    EXPECT_EQ(main.State.get(), forms::WindowState::Minimized);
}

TEST_F(StandingWindows, OpeningAMenuLeavesTheWordsOfTheStatusBar) {
    hasRunBefore();
    start();
    auto* frame = dynamic_cast<wxFrame*>(window("frmMain").native());
    const wxString words = frame->GetStatusBar()->GetStatusText(0);
    ASSERT_FALSE(words.empty());
    wxMenuEvent open(wxEVT_MENU_HIGHLIGHT, frame->GetMenuBar()->GetMenu(0)->GetMenuItems().front()->GetId(),
                     frame->GetMenuBar()->GetMenu(0));
    frame->ProcessWindowEvent(open);
    EXPECT_EQ(frame->GetStatusBar()->GetStatusText(0), words);
}

// The window of masks to choose from, with the keyboard in its list.
class MasksOnTheScreen : public StandingWindows {
protected:
    MasksOnTheScreen() {
        hasRunBefore();
        start();
        masks = &program_->program().get<tools::frmSearchMasks>();
        program_->display().Show(*masks, nullptr, false);
        list = dynamic_cast<wxListBox*>(window(masks->Name).widgetOf(masks->lstSearchMasks));
    }
    void SetUp() override { goTo(list); }
    // Until the keyboard is there and stays: the window manager may still give it to a window that came before.
    void goTo(wxWindow* widget) {
        wxTopLevelWindow* native = window(masks->Name).native();
        ASSERT_TRUE(letRunUntil([&] {
            if (!isActive(native)) bringToFront(native);
            if (!widget->HasFocus()) widget->SetFocus();
            letRun(100);
            return isActive(native) && widget->HasFocus();
        }));
    }

    tools::frmSearchMasks* masks = nullptr;
    wxListBox* list = nullptr;
};

TEST_F(MasksOnTheScreen, TheOneThatIsFoundIsTheOneTheKeyboardMarks) {
    act([this] { masks->txtSearchMasks.setText("*.tm"); });
    const int found = masks->lstSearchMasks.ListIndex();
    ASSERT_GT(found, 0);
    EXPECT_EQ(view::cursorRow(*list), found);
    EXPECT_FALSE(list->IsSelected(found)) << "only looked for";
    goTo(list);
    typeKey(WXK_SPACE);
    EXPECT_TRUE(letRunUntil([&] { return masks->lstSearchMasks.Selected(found); }));
    EXPECT_FALSE(masks->lstSearchMasks.Selected(0));
}

TEST_F(MasksOnTheScreen, TheCurrentOneOfSeveralMarkedIsThatOfTheKeyboard) {
    act([this] { masks->lstSearchMasks.setListIndex(4); });
    goTo(list);
    typeKey(WXK_SPACE);
    typeKey(WXK_UP, wxMOD_SHIFT);
    typeKey(WXK_UP, wxMOD_SHIFT);
    EXPECT_TRUE(letRunUntil([this] { return masks->lstSearchMasks.ListIndex() == 2; }))
        << masks->lstSearchMasks.ListIndex();
    for (const int row : {2, 3, 4}) EXPECT_TRUE(masks->lstSearchMasks.Selected(row)) << row;
    typeKey(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_TRUE(letRunUntil([this] { return masks->lstSearchMasks.ListIndex() == 3; }))
        << masks->lstSearchMasks.ListIndex();
}

TEST_F(MasksOnTheScreen, EnterGoesFromTheSearchToTheListAndAddsWhatIsMarkedThere) {
    auto* search = window(masks->Name).widgetOf(masks->txtSearchMasks);
    goTo(search);
    typeKey(WXK_RETURN);
    ASSERT_TRUE(letRunUntil([this] { return list->HasFocus(); })) << "nothing is marked yet";
    act([this] { masks->lstSearchMasks.setListIndex(4); });
    goTo(list);
    typeKey(WXK_SPACE);
    const std::string mask = masks->lstSearchMasks.List(4);
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return program_->display().ifOpen("frmSearchMasks") == nullptr; }));
    const auto& own = program_->program().get<settings::frmOptions>().lstSearchMasks;
    ASSERT_GT(own.ListCount(), 0);
    EXPECT_EQ(own.List(own.ListCount() - 1), mask);
}

TEST(ModalDialogs, AnOuterOneEndsAsSoonAsTheOneAboveItHas) {
    // Without an end of its own it would stand for ever.
    const guint watch = g_timeout_add_seconds(
        60, [](gpointer) -> gboolean { std::abort(); }, nullptr);
    view::ModalDialog outer(nullptr, "outer");
    outer.CallAfter([&outer] {
        view::ModalDialog inner(&outer, "inner");
        inner.CallAfter([&] {
            outer.endSoon(wxID_NO);
            EXPECT_TRUE(outer.IsModal()) << "not before";
            EXPECT_FALSE(outer.IsShown());
            inner.endSoon(wxID_YES);
        });
        EXPECT_EQ(inner.ShowModal(), wxID_YES);
    });
    EXPECT_EQ(outer.ShowModal(), wxID_NO);
    EXPECT_FALSE(outer.IsModal());
    g_source_remove(watch);
}

TEST(ModalDialogs, HidingAnOuterOneEndsItToo) {
    const guint watch = g_timeout_add_seconds(
        60, [](gpointer) -> gboolean { std::abort(); }, nullptr);
    view::ModalDialog outer(nullptr, "outer");
    outer.CallAfter([&outer] {
        view::ModalDialog inner(&outer, "inner");
        inner.CallAfter([&] {
            outer.Hide();
            inner.Hide();
        });
        EXPECT_EQ(inner.ShowModal(), wxID_CANCEL);
    });
    EXPECT_EQ(outer.ShowModal(), wxID_CANCEL);
    g_source_remove(watch);
}

// What looks at controls in turns is served also where the program paints all the time by itself.
TEST(WorkingView, PollingTimersAreHeardBetweenItsOwnPaintings) {
    class Painted final : public view::Binding {
    public:
        explicit Painted(view::View& view) : Binding(view) {}
        void pull() override {}
    };
    class Clocked final : public forms::Form {
    public:
        Clocked() : Form("Clocked") {}
        forms::Timer timer{*this, "timer", 100, true};
    };
    view::View view;
    Clocked form;
    int fired = 0;
    form.timer.Tick.connect([&fired] { ++fired; });
    const auto painted = std::make_shared<Painted>(view);
    view.add(painted);
    const auto alive = std::make_shared<bool>(true);
    view.addPoll(alive, form.timer);
    view.act([&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(600);
        while (std::chrono::steady_clock::now() < end) {
            painted->touched();
            view.letEventsIn();
        }
        EXPECT_GE(fired, 3);
    });
}

}  // namespace
}  // namespace tidvane::tests
