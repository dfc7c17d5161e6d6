// The task pane on the screen: what the mouse, the keys and the clock do to its model, and what is drawn of it.
#include "view/painters/explorer_pane.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/settings.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/explorer_bar.h"
#include "view/display_fixture.h"
#include "view/form_window.h"

namespace tidvane::tests {
namespace {

namespace fs = std::filesystem;
using controls::GroupState;
using controls::MouseButton;
using controls::PaneTarget;

// Until the toolkit has nothing left to do.
void settle() {
    letRunUntil([] { return gtk_events_pending() == FALSE; }, 10000);
}

class PaneWindow final : public forms::Form {
public:
    PaneWindow() : Form("PaneWindow") { Caption.design("PaneWindow"); }
    controls::ExplorerBar bar{*this, "bar"};
};

class ExplorerPanes : public testing::Test {
protected:
    ExplorerPanes() {
        takeComplaints();
        bar.AddNormalGroup("Help");
        for (const char* caption : {"Help", "Info", "Updates", "More"}) bar.AddItem(0, caption, false, "ImgHelp");
        bar.AddNormalGroup("Exit");
        bar.AddItem(1, "Exit");
        bar.Animation.design(0);
        bar.ItemClick.connect([this](int group, int item) { tell("item", group, item); });
        bar.GroupClick.connect([this](int group, bool open) { tell("group", group, open ? 1 : 0); });
        bar.MouseOut.connect([this] { log_ += "out;"; });
    }
    ~ExplorerPanes() override {
        // The window goes when nothing runs; until then it may still hear of the screen.
        const wxWeakRef<wxWindow> widgets(pane);
        window_.reset();
        EXPECT_TRUE(letRunUntil([&] { return !widgets; }, 10000));
        whenIdle({});
        for (const std::string& complaint : takeComplaints()) ADD_FAILURE() << complaint;
    }
    void tell(const char* what, int one, int other) {
        log_ += std::string(what) + " " + std::to_string(one) + " " + std::to_string(other) + ";";
    }
    std::string told() { return std::exchange(log_, std::string()); }

    void open(int height = 420) {
        window_ = std::make_unique<view::FormWindow>(view_, form_, view::WindowStyle{.resizable = true}, nullptr);
        pane = dynamic_cast<view::ExplorerPane*>(window_->pane(window_->body(), bar));
        view::fillWindow(window_->body(), view::column(window_->body(), {view::fill(pane)}));
        window_->finish();
        whenIdle([this] {
            if (!view_.busy()) view_.settle();
        });
        view_.onError = [](const std::string& text) { ADD_FAILURE() << text; };
        window_->native()->SetClientSize(wxSize(260, height));
        window_->show(true);
        ASSERT_TRUE(letRunUntil([this] { return isActive(window_->native()); }, 10000)) << "the window gets no focus";
        draw();
    }
    // As it is now.
    void draw() {
        settle();
        view_.settle();
        pane->Refresh();
        pane->Update();
        settle();
    }
    // In the window's pixels.
    wxRect header(int group) { return view::toWindow(bar.layout().group(group)->header, pane); }
    wxRect item(int group, int row) { return view::toWindow(bar.layout().item(group, row)->box, pane); }
    static wxPoint middle(const wxRect& box) { return {box.x + box.width / 2, box.y + box.height / 2}; }

    // As the toolkit sends it.
    void send(wxEventType type, wxPoint at) {
        wxMouseEvent event(type);
        event.SetPosition(at);
        event.SetEventObject(pane);
        pane->ProcessWindowEvent(event);
        settle();
    }
    void press(wxPoint at) {
        send(wxEVT_LEFT_DOWN, at);
        send(wxEVT_LEFT_UP, at);
    }
    void key(int code) {
        for (const wxEventType type : {wxEVT_KEY_DOWN, wxEVT_KEY_UP}) {
            wxKeyEvent event(type);
            event.m_keyCode = code;
            event.SetEventObject(pane);
            pane->ProcessWindowEvent(event);
        }
        settle();
    }
    void comeByKeyboard() {
        wxFocusEvent event(wxEVT_SET_FOCUS);
        event.SetEventObject(pane);
        pane->ProcessWindowEvent(event);
        settle();
    }
    void turnWheel(int notches) {
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.m_wheelRotation = 120 * notches;
        event.m_wheelDelta = 120;
        event.SetEventObject(pane);
        pane->ProcessWindowEvent(event);
        settle();
    }
    // How many pixels of the pane have exactly this colour now.
    int pixels(const wxRect& box, const wxColour& colour) {
        draw();
        GdkPixbuf* drawn =
            gdk_pixbuf_get_from_window(gtk_widget_get_window(pane->GetHandle()), box.x + originOfPane().x,
                                       box.y + originOfPane().y, box.width, box.height);
        int count = 0;
        const int step = gdk_pixbuf_get_n_channels(drawn);
        for (int y = 0; y < gdk_pixbuf_get_height(drawn); ++y) {
            const guchar* pixel = gdk_pixbuf_get_pixels(drawn) + y * gdk_pixbuf_get_rowstride(drawn);
            for (int x = 0; x < gdk_pixbuf_get_width(drawn); ++x, pixel += step) {
                count += pixel[0] == colour.Red() && pixel[1] == colour.Green() && pixel[2] == colour.Blue() ? 1 : 0;
            }
        }
        g_object_unref(drawn);
        return count;
    }
    std::string nameForReaders() const {
        const gchar* name = atk_object_get_name(gtk_widget_get_accessible(pane->GetHandle()));
        return name == nullptr ? std::string() : name;
    }

    controls::ExplorerBar& bar{form_.bar};
    view::ExplorerPane* pane = nullptr;

private:
    // A widget without a window of its own draws on that of another.
    wxPoint originOfPane() const {
        GtkAllocation place{};
        if (gtk_widget_get_has_window(pane->GetHandle()) == FALSE) gtk_widget_get_allocation(pane->GetHandle(), &place);
        return {place.x, place.y};
    }

    PaneWindow form_;
    view::View view_;
    std::unique_ptr<view::FormWindow> window_;
    std::string log_;
};

TEST_F(ExplorerPanes, AClickOfTheMouseIsToldOnce) {
    open();
    press(middle(item(0, 1)));
    EXPECT_TRUE(letRunUntil([this] { return !bar.state({0, 1}).pressed; }, 10000));
    EXPECT_EQ(told(), "item 0 1;");
    press(middle(header(1)));
    EXPECT_EQ(told(), "group 1 0;");
}

TEST_F(ExplorerPanes, AGroupMovesToItsEndAndThenNothingRuns) {
    bar.Animation = 1;
    open();
    const int full = bar.layout().group(0)->body.height;
    press(middle(header(0)));
    EXPECT_TRUE(letRunUntil([this] { return bar.GetGroupState(0) == GroupState::Closed && !pane->moves(); }, 10000));
    EXPECT_TRUE(bar.layout().group(0)->body.empty());
    press(middle(header(0)));
    EXPECT_TRUE(letRunUntil([this] { return bar.GetGroupState(0) == GroupState::Open && !pane->moves(); }, 10000));
    EXPECT_EQ(bar.layout().group(0)->body.height, full);
}

TEST_F(ExplorerPanes, AGroupInMotionIsDrawnOnceHoweverManyStepsItTakes) {
    bar.Animation = 1;
    open();
    const auto drawn = [this] {
        const int before = pane->picturesMade();
        for (int step = 0; step < 4 && bar.animating(); ++step) {
            bar.tick();
            draw();
        }
        return pane->picturesMade() - before;
    };
    bar.SetGroupWindowState(0, false);
    EXPECT_EQ(drawn(), 1);
    ASSERT_TRUE(letRunUntil([this] { return !bar.animating() && !pane->moves(); }, 10000));
    bar.SetGroupWindowState(0, true);
    EXPECT_EQ(drawn(), 1);
    if (bar.animating()) {
        bar.SetItemCaption(0, 0, "Another");
        EXPECT_EQ(drawn(), 1);
    }
}

TEST_F(ExplorerPanes, TheKeyboardMovesAndActs) {
    open();
    comeByKeyboard();
    ASSERT_TRUE(letRunUntil([this] { return bar.hasFocus(); }, 10000));
    key(WXK_DOWN);
    key(WXK_DOWN);
    EXPECT_TRUE(letRunUntil([this] { return bar.focus() == PaneTarget{0, 1}; }, 10000));
    key(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return told() == "item 0 1;"; }));
}

TEST_F(ExplorerPanes, AReaderHearsTheStepFromATitleToAnItemOfTheSameWords) {
    open();
    comeByKeyboard();
    ASSERT_TRUE(letRunUntil([this] { return bar.hasFocus(); }, 10000));
    EXPECT_TRUE(letRunUntil([this] { return nameForReaders() == "Help [-]"; }, 10000)) << nameForReaders();
    key(WXK_DOWN);
    EXPECT_TRUE(letRunUntil([this] { return nameForReaders() == "Help"; }, 10000)) << nameForReaders();
    key(WXK_LEFT);
    EXPECT_TRUE(letRunUntil([this] { return nameForReaders() == "Help [+]"; }, 10000)) << nameForReaders();
}

TEST_F(ExplorerPanes, TheWheelScrolls) {
    open(130);
    ASSERT_GT(bar.tsbVertical.Max, 0);
    turnWheel(-1);
    EXPECT_EQ(bar.scroll(), std::min(bar.tsbVertical.Max.get(), bar.tsbVertical.SmallChange.get()));
    turnWheel(1);
    EXPECT_EQ(bar.scroll(), 0);
}

TEST_F(ExplorerPanes, AHeldArrowRepeatsUntilTheMouseIsTaken) {
    open(130);
    const wxRect strip = view::toWindow(bar.scrollBar(), pane);
    const wxPoint arrow(strip.x + strip.width / 2, strip.GetBottom() - 2);
    bar.tsbVertical.SmallChange.design(1);
    std::vector<int> values;
    bar.tsbVertical.Change.connect([&] { values.push_back(bar.scroll()); });
    send(wxEVT_LEFT_DOWN, arrow);
    EXPECT_TRUE(letRunUntil([&] { return values.size() >= 2; }, 10000));
    wxMouseCaptureLostEvent lost;
    pane->ProcessWindowEvent(lost);
    EXPECT_EQ(bar.tsbVertical.repeatDelay(), 0);
    if (pane->HasCapture()) pane->ReleaseMouse();
}

TEST_F(ExplorerPanes, AMouseThatIsTakenAwayClicksNothing) {
    open();
    const wxPoint at = middle(item(0, 0));
    send(wxEVT_LEFT_DOWN, at);
    EXPECT_TRUE(bar.state({0, 0}).pressed);
    wxMouseCaptureLostEvent lost;
    pane->ProcessWindowEvent(lost);
    EXPECT_FALSE(bar.state({0, 0}).pressed);
    send(wxEVT_LEFT_UP, at);
    EXPECT_EQ(told(), "");
}

TEST_F(ExplorerPanes, AMouseThatComesIsHotAtOnceAndOneLetGoOutsideHasLeft) {
    open();
    const wxPoint at = middle(item(0, 2));
    send(wxEVT_ENTER_WINDOW, at);
    EXPECT_TRUE(bar.state({0, 2}).hot);
    send(wxEVT_LEFT_DOWN, at);
    send(wxEVT_MOTION, wxPoint(-40, 10));
    EXPECT_EQ(told(), "");
    send(wxEVT_LEFT_UP, wxPoint(-40, 10));
    EXPECT_EQ(told(), "out;");
    EXPECT_FALSE(bar.hot().any());
}

TEST_F(ExplorerPanes, TheOtherButtonsAreToldAndClickNothing) {
    open();
    std::vector<MouseButton> pressed;
    std::vector<MouseButton> released;
    bar.MouseDown.connect([&](MouseButton button, int, int, int) { pressed.push_back(button); });
    bar.MouseUp.connect([&](MouseButton button, int, int, int) { released.push_back(button); });
    const wxPoint at = middle(item(0, 0));
    send(wxEVT_RIGHT_DOWN, at);
    send(wxEVT_RIGHT_UP, at);
    send(wxEVT_MIDDLE_DOWN, at);
    send(wxEVT_MIDDLE_UP, at);
    EXPECT_EQ(pressed, (std::vector{MouseButton::Right, MouseButton::Middle}));
    EXPECT_EQ(released, pressed);
    EXPECT_EQ(told(), "");
    EXPECT_FALSE(pane->HasCapture());
}

TEST_F(ExplorerPanes, TheTipBelongsToWhatIsUnderTheMouseNow) {
    bar.SetItemToolTipText(0, 0, "Of the item");
    open();
    send(wxEVT_MOTION, middle(item(0, 0)));
    EXPECT_EQ(pane->GetToolTipText(), "Of the item");
    bar.SetGroupState(0, GroupState::Closed);
    settle();
    EXPECT_EQ(pane->GetToolTipText(), "");
}

TEST_F(ExplorerPanes, TheColourUnderTheMouseIsShownAsItWasChosen) {
    // Hardly to be read on its white ground.
    constexpr unsigned kChosen = 0xE0FFE0u;
    bar.setColour("NormalItemBackColor", 0xFFFFFFu);
    bar.setColour("GradientNormalItemBackColor", 0xFFFFFFu);
    for (const char* name : {"NormalItemForeColor", "NormalItemHoverColor"}) bar.setColour(name, kChosen);
    bar.SetItemCaption(0, 0, "\u2588\u2588\u2588\u2588");
    open();
    const wxColour chosen(0xE0, 0xFF, 0xE0);
    EXPECT_EQ(pixels(item(0, 0), chosen), 0);
    send(wxEVT_MOTION, middle(item(0, 0)));
    EXPECT_GT(pixels(item(0, 0), chosen), 20);
}

TEST_F(ExplorerPanes, ADisabledItemIsPaler) {
    bar.setColour("NormalItemBackColor", 0xFFFFFFu);
    bar.setColour("GradientNormalItemBackColor", 0xFFFFFFu);
    bar.setColour("NormalItemForeColor", 0x000000u);
    bar.SetItemCaption(0, 0, "\u2588\u2588\u2588\u2588");
    open();
    EXPECT_GT(pixels(item(0, 0), *wxBLACK), 20);
    bar.SetItemEnabled(0, 0, false);
    EXPECT_EQ(pixels(item(0, 0), *wxBLACK), 0);
    EXPECT_GT(pixels(item(0, 0), wxColour(128, 128, 128)), 20);
}

TEST_F(ExplorerPanes, AWordThatIsLongerThanItsLineIsBrokenAndSeenWhole) {
    open();
    const int line = bar.layout().item(0, 0)->box.height;
    bar.SetItemCaption(0, 0, std::string(60, 'm'));
    EXPECT_GT(bar.layout().item(0, 0)->box.height, line);
    bar.SetItemCaption(0, 0, "m");
    EXPECT_EQ(bar.layout().item(0, 0)->box.height, line);
}

TEST_F(ExplorerPanes, ANewStyleOfTheDesktopIsFoundOut) {
    bar.UseTheme = 1;
    open();
    bar.setVisualStyle("Gone", "Gone");
    wxSysColourChangedEvent event;
    event.SetEventObject(pane);
    pane->ProcessWindowEvent(event);
    EXPECT_EQ(bar.GetThemeName(), "Desktop");
    EXPECT_EQ(bar.GetThemeColorName(), view::darkDesktop() ? "Dark" : "Light");
}

TEST_F(ExplorerPanes, HasAHandleOnTheScreen) {
    open();
    EXPECT_NE(bar.hWnd, 0);
    EXPECT_EQ(bar.tsbVertical.hWnd, bar.hWnd);
}

TEST_F(ExplorerPanes, AClickSounds) {
    const fs::path folder = fs::temp_directory_path() / ("tidvane-pane-" + std::to_string(wxGetProcessId()));
    fs::create_directory(folder);
    std::ofstream(folder / "paplay") << "#!/bin/sh\n/bin/cat \"$1\" > '" << (folder / "part").string() << "'\n/bin/mv '"
                                     << (folder / "part").string() << "' '" << (folder / "heard").string() << "'\n";
    fs::permissions(folder / "paplay", fs::perms::owner_all);
    bar.SoundItemClicked = true;
    bar.SoundGroupClicked = true;
    open();
    const std::string before = std::getenv("PATH");
    ::setenv("PATH", folder.c_str(), 1);
    for (const auto& [click, file] :
         {std::pair{PaneTarget{0, 0}, "item.wav"}, std::pair{PaneTarget{0, -1}, "group.wav"}}) {
        const wxPoint at = middle(click.header() ? header(click.group) : item(click.group, click.item));
        send(wxEVT_LEFT_DOWN, at);
        send(wxEVT_LEFT_UP, at);
        EXPECT_TRUE(letRunUntil([&] { return fs::exists(folder / "heard"); }, 20000)) << file;
        std::error_code none;
        EXPECT_EQ(fs::file_size(folder / "heard", none),
                  fs::file_size(fs::path(TIDVANE_SOURCE_DIR "/data/sounds") / file));
        fs::remove(folder / "heard", none);
    }
    ::setenv("PATH", before.c_str(), 1);
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tidvane::tests
