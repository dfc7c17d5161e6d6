// The main window on the screen: what its menus, its bars and its buttons do that no model decides.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "view/program_on_screen.h"
#include "view/text.h"

namespace tidvane::tests {
namespace {

using view::fromNative;

class MainWindow : public testing::Test, protected ProgramOnScreen {
protected:
    MainWindow() {
        speak();
        hasRunBefore();
        start();
        letDraw(frame());
    }

    void act(const std::function<void()>& what) {
        program_->view().act(what);
        letDraw(frame());
    }
    std::string bar() {
        std::string titles;
        const wxMenuBar* bar = frame()->GetMenuBar();
        for (std::size_t at = 0; at < bar->GetMenuCount(); ++at) {
            titles += (at == 0 ? "" : " | ") + fromNative(bar->GetMenuLabelText(at));
        }
        return titles;
    }
    // On the screen, by name.
    wxWindow* shown(const std::string& name) {
        wxWindow* found = nullptr;
        const std::function<void(wxWindow*)> look = [&](wxWindow* from) {
            for (wxWindow* child : from->GetChildren()) {
                if (child->IsShownOnScreen() && child->GetName() == view::toNative(name)) found = child;
                look(child);
            }
        };
        look(frame());
        return found;
    }
    void resize(int width, int height) {
        const wxSize size = frame()->FromDIP(wxSize(width, height));
        frame()->SetClientSize(size);
        ASSERT_TRUE(letRunUntil([&] { return frame()->GetClientSize() == size && drawnAt() == frame()->GetSize(); }))
            << "the window is not " << width << " x " << height;
        letDraw(frame());
    }

    // The keyboard is the main window's.
    void front() {
        bringToFront(frame());
        ASSERT_TRUE(letRunUntil([this] { return isActive(frame()); })) << "the window gets no focus";
    }
    // The size that the window manager has given it; what the toolkit answers may be one that it has only asked for.
    wxSize drawnAt() {
        GdkRectangle extents;
        gdk_window_get_frame_extents(gtk_widget_get_window(frame()->GetHandle()), &extents);
        return {extents.width, extents.height};
    }
};

TEST_F(MainWindow, HasThePagesMenuInFrontOfTheCommunity) {
    EXPECT_EQ(bar(), "File | View | Tools | Options | Help | Like Tidvane");
    act([this] { form().menu("mnuApps").Click(); });
    EXPECT_EQ(bar(), "File | View | Tools | Options | Help | Applications (Plug-ins) | Like Tidvane");
    act([this] { form().menu("mnuAddOns").Click(); });
    EXPECT_EQ(bar(), "File | View | Tools | Options | Help | Extensions (Add-ons) | Like Tidvane");
    act([this] { form().menu("mnuCleaner").Click(); });
    EXPECT_EQ(bar(), "File | View | Tools | Options | Help | Like Tidvane");
}

TEST_F(MainWindow, ShowsTheKeysOfAnEntryAndTheFoldersOfTheSystem) {
    const wxMenuBar* bar = frame()->GetMenuBar();
    const wxMenu* file = bar->GetMenu(0);
    EXPECT_NE(file->FindItem(view::toNative(form().menu("mnuExit").Caption.get())), wxNOT_FOUND);
    const wxMenuItem* exit = file->GetMenuItems().GetLast()->GetData();
    EXPECT_EQ(fromNative(exit->GetItemLabel()), form().menu("mnuExit").Caption.get() + "\tCtrl+Q");
    const wxMenuItem* folders = bar->GetMenu(2)->GetMenuItems().GetLast()->GetData();
    ASSERT_TRUE(folders->IsSubMenu());
    EXPECT_EQ(folders->GetSubMenu()->GetMenuItemCount(), 19u);
}

TEST_F(MainWindow, GivesItsCountsTheirWords) {
    EXPECT_EQ(fromNative(frame()->GetStatusBar()->GetStatusText(1)), "Cleaning tasks: 0");
    EXPECT_EQ(fromNative(frame()->GetStatusBar()->GetStatusText(2)), "Plug-ins: 0");
}

TEST_F(MainWindow, TellsHowAnEmptyListIsFilled) {
    EXPECT_NE(shown("mnuManageCleaningJobs"), nullptr) << "the way to the tasks";
    EXPECT_EQ(shown("lstTasks"), nullptr);
    act([this] { form().lstTasks.Add(0, "a", "A task", 2); });
    EXPECT_EQ(shown("mnuManageCleaningJobs"), nullptr);
    EXPECT_NE(shown("lstTasks"), nullptr);
}

TEST_F(MainWindow, ShowsWhatTheFrontEndTellsUntilItIsPutAway) {
    EXPECT_EQ(shown("notices"), nullptr);
    act([this] {
        program_->display().warn("A place is protected.");
        program_->display().warn("Another one, too.");
    });
    auto* box = dynamic_cast<wxTextCtrl*>(shown("notices"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(fromNative(box->GetValue()), "A place is protected.\nAnother one, too.");
    wxWindow* close = shown("closeNotices");
    ASSERT_NE(close, nullptr);
    clickMiddle(close);
    EXPECT_TRUE(letRunUntil([this] { return shown("notices") == nullptr; }));
    EXPECT_TRUE(program_->view().notices.empty());
}

TEST_F(MainWindow, PutsNoticesAwayWithEscapeAndStays) {
    act([this] { program_->display().warn("A place is protected."); });
    front();
    wxWindow* close = shown("closeNotices");
    close->SetFocus();
    ASSERT_TRUE(letRunUntil([close] { return close->HasFocus(); }));
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(letRunUntil([this] { return shown("notices") == nullptr; }));
    typeKey(WXK_ESCAPE);
    letRun(100);
    EXPECT_TRUE(frame()->IsShown());
    EXPECT_FALSE(program_->program().ended());
}

TEST_F(MainWindow, TakesTheWordsOffTheLogsButtonsWhereThereIsNoRoom) {
    const auto words = [this] { return shown("cmdCopyLog")->GetSize().x > frame()->FromDIP(60); };
    resize(1300, 700);
    ASSERT_NE(shown("cmdCopyLog"), nullptr);
    EXPECT_TRUE(words());
    resize(764, 420);
    ASSERT_NE(shown("cmdCopyLog"), nullptr);
    EXPECT_FALSE(words());
    EXPECT_FALSE(shown("cmdCopyLog")->GetToolTipText().empty()) << "its words are found somewhere";
    resize(1300, 700);
    EXPECT_TRUE(words());
}

TEST_F(MainWindow, GivesTheLogItsHeightAndInALowWindowTheListItsRoom) {
    act([this] { form().lstTasks.Add(0, "a", "A task", 2); });
    resize(900, 700);
    EXPECT_EQ(shown("txtLog")->GetSize().y, frame()->FromDIP(212));
    resize(900, 380);
    EXPECT_LT(shown("txtLog")->GetSize().y, frame()->FromDIP(212));
    EXPECT_GE(shown("txtLog")->GetSize().y, frame()->FromDIP(60));
    EXPECT_GE(shown("lstTasks")->GetSize().y, frame()->FromDIP(80));
}

TEST_F(MainWindow, HidesAndShowsTheLogByItsKeys) {
    front();
    ASSERT_NE(shown("txtLog"), nullptr);
    typeKey('L', wxMOD_CONTROL);
    EXPECT_TRUE(letRunUntil([this] { return shown("txtLog") == nullptr; }));
    EXPECT_FALSE(form().LogVisible());
    typeKey('L', wxMOD_CONTROL);
    EXPECT_TRUE(letRunUntil([this] { return shown("txtLog") != nullptr; }));
}

TEST_F(MainWindow, HearsTheKeysOfTheCleaningOnEveryPageAndShowsItFirst) {
    act([this] { form().lstTasks.Add(0, "a", "A task", 2); });
    int runs = 0;
    int pageOfTheRun = -1;
    form().cmdClean.Click.connect([&] {
        ++runs;
        pageOfTheRun = form().SSTab1.Tab;
    });
    for (const char* page : {"mnuApps", "mnuAddOns", "mnuAbout"}) {
        act([this, page] { form().menu(page).Click(); });
        ASSERT_NE(form().SSTab1.Tab, app::frmMain::kCleaningTab);
        front();
        const int before = runs;
        typeKey(WXK_F9);
        EXPECT_TRUE(letRunUntil([&] { return runs == before + 1; }, 10000)) << page;
        EXPECT_EQ(pageOfTheRun, app::frmMain::kCleaningTab) << page;
        EXPECT_TRUE(letRunUntil([this] { return form().cmdClean.Enabled.get(); }, 10000)) << "the run ends";
    }
}

TEST_F(MainWindow, LeavesThePageWhereAKeyHasNothingToDo) {
    act([this] { form().menu("mnuApps").Click(); });
    front();
    ASSERT_FALSE(form().cmdStop.Enabled);
    typeKey(WXK_F9, wxMOD_SHIFT);
    EXPECT_EQ(form().SSTab1.Tab, app::frmMain::kPlugInsTab);
    typeKey('L', wxMOD_CONTROL);
    EXPECT_TRUE(letRunUntil([this] { return !form().LogVisible(); }, 10000)) << "the next key is heard";
    EXPECT_EQ(form().SSTab1.Tab, app::frmMain::kCleaningTab);
}

TEST_F(MainWindow, ShowsNothingInThePaneAsUnderThePointerOnceAnotherWindowIsInFront) {
    controls::ExplorerBar& bar = form().ExplorerBar1;
    wxWindow* pane = shown(bar.Name);
    ASSERT_NE(pane, nullptr);
    const controls::PaneTarget first{0, 0};
    wxPoint place = wxDefaultPosition;
    for (int y = 0; y < pane->GetClientSize().y && place == wxDefaultPosition; ++y) {
        if (bar.layout().at(40, pane->ToDIP(y)) == first) place = {pane->FromDIP(40), y + pane->FromDIP(4)};
    }
    ASSERT_NE(place, wxDefaultPosition);
    front();
    wxUIActionSimulator().MouseMove(pane->ClientToScreen(place));
    ASSERT_TRUE(letRunUntil([&] { return bar.state(first).hot; }, 10000));
    auto* other = new wxFrame(nullptr, wxID_ANY, "Another", wxPoint(0, 0), wxSize(200, 100));
    other->Show();
    letDraw(other);
    bringToFront(other);
    EXPECT_TRUE(letRunUntil([other] { return isActive(other); })) << "the other window gets no focus";
    EXPECT_TRUE(letRunUntil([&] { return !bar.state(first).hot; }));
    other->Destroy();
}

TEST_F(MainWindow, KeepsTheColourThatWasChosenForTheLog) {
    forms::FontChoice font = form().logFont();
    font.colour = 0x0000FF;  // red
    act([&] { form().setLogFont(font); });
    EXPECT_EQ(shown("txtLog")->GetForegroundColour(), wxColour(0xFF, 0, 0));
}

}  // namespace
}  // namespace tidvane::tests
