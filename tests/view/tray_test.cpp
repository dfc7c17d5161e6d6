// The icon in the tray, as the desktops see it: on the session bus, in the tray of X11, and where there is neither.
#include "view/tray.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/utils.h>

#include <functional>
#include <optional>

#include "view/display_fixture.h"
#include "view/session_bus.h"
#include "view/x_tray.h"

namespace tidvane::tests {
namespace {

using view::makeTray;
using view::Tray;
using view::TrayEntry;

// A tray icon, and what it tells the program.
struct Icon {
    std::unique_ptr<Tray> tray = makeTray();
    std::vector<TrayEntry> menu{
        {"mnuShow", "&Show a_b", true, false, {}},
        {"mnuOff", "Not now", false, false, {}},
        {"mnuMore", "More && more", true, true, {{"mnuInner", "Inner", true, false, {}}}},
    };
    int doubleClicks = 0;
    int menus = 0;
    std::vector<std::string> chosen;

    Icon() {
        tray->onDoubleClick = [this] { ++doubleClicks; };
        tray->onMenu = [this] { ++menus; };
        tray->entries = [this] { return menu; };
        tray->onEntry = [this](const std::string& name) { chosen.push_back(name); };
    }
};

class NotifierIcon : public testing::Test {
protected:
    NotifierIcon() { takeComplaints(); }
    ~NotifierIcon() override {
        letSettle();
        EXPECT_EQ(takeComplaints(), std::vector<std::string>());
    }

    void desktop(bool host = true) { desktop_.emplace(bus_, host); }
    std::string item() const {
        const auto names = desktop_->registered();
        return names.empty() ? std::string() : names.back();
    }
    std::string text(const char* property) {
        const auto value = panel_.property(item(), property);
        return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING)
                   ? g_variant_get_string(value.get(), nullptr)
                   : "none";
    }
    // The layout as it is printed, without the types.
    std::string layout(int parent = 0, int depth = -1) {
        const auto answer = panel_.call(item(), "/MenuBar", "com.canonical.dbusmenu", "GetLayout",
                                        g_variant_new("(ii^as)", parent, depth, kNothing));
        if (!answer) return "none";
        gchar* printed = g_variant_print(answer.get(), FALSE);
        std::string made = printed;
        g_free(printed);
        return made;
    }
    void choose(int id) {
        panel_.call(item(), "/MenuBar", "com.canonical.dbusmenu", "Event",
                    g_variant_new("(isvu)", id, "clicked", g_variant_new_int32(0), 0));
        letSettle();
    }

    static constexpr const char* kNothing[1] = {nullptr};
    SessionBus bus_;
    Panel panel_{bus_};
    std::optional<NotifierDesktop> desktop_;
};

TEST_F(NotifierIcon, IsRegisteredOnceUnderANameOfItsOwn) {
    desktop();
    Icon icon;
    EXPECT_TRUE(icon.tray->add("Tidvane"));
    EXPECT_EQ(desktop_->registered(),
              std::vector<std::string>{"org.kde.StatusNotifierItem-" + std::to_string(wxGetProcessId()) + "-1"});
    EXPECT_TRUE(panel_.isOnTheBus(item()));
    EXPECT_TRUE(icon.tray->add("another one"));
    EXPECT_EQ(desktop_->registered().size(), 1U);
}

TEST_F(NotifierIcon, TellsItsTitleItsTipAndPicturesOfSeveralSizes) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add(" - Tidvane - at rest"));
    EXPECT_EQ(text("Title"), "Tidvane");
    EXPECT_EQ(text("Status"), "Active");
    EXPECT_EQ(text("IconName"), "");
    const auto tip = panel_.property(item(), "ToolTip");
    ASSERT_TRUE(tip);
    const char* words = nullptr;
    g_variant_get_child(tip.get(), 2, "&s", &words);
    EXPECT_STREQ(words, "- Tidvane - at rest");

    const auto pictures = panel_.property(item(), "IconPixmap");
    ASSERT_TRUE(pictures);
    ASSERT_GE(g_variant_n_children(pictures.get()), 3U);
    for (gsize at = 0; at < g_variant_n_children(pictures.get()); ++at) {
        int width = 0;
        int height = 0;
        GVariant* bytes = nullptr;
        g_variant_get_child(pictures.get(), at, "(ii@ay)", &width, &height, &bytes);
        gsize count = 0;
        const auto* data = static_cast<const unsigned char*>(g_variant_get_fixed_array(bytes, &count, 1));
        ASSERT_EQ(count, static_cast<gsize>(width) * static_cast<gsize>(height) * 4);
        // Something is drawn, and not everywhere.
        int opaque = 0;
        for (gsize pixel = 0; pixel < count; pixel += 4) opaque += data[pixel] > 200 ? 1 : 0;
        EXPECT_GT(opaque, width * height / 5);
        EXPECT_LT(opaque, width * height);
        g_variant_unref(bytes);
    }
}

TEST_F(NotifierIcon, PassesItsTwoGesturesOn) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    panel_.call(item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", g_variant_new("(ii)", 1, 1));
    EXPECT_TRUE(letRunUntil([&] { return icon.doubleClicks == 1; }));
    panel_.call(item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "ContextMenu",
                g_variant_new("(ii)", 1, 1));
    EXPECT_TRUE(letRunUntil([&] { return icon.menus == 1; }));
    panel_.call(item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Scroll", g_variant_new("(is)", 1, "v"));
    letRun(50);
    EXPECT_EQ(icon.doubleClicks, 1);
    EXPECT_EQ(icon.menus, 1);
}

TEST_F(NotifierIcon, ShowsItsMenuWithLinesStatesAndSubmenus) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    const auto path = panel_.property(item(), "Menu");
    ASSERT_TRUE(path);
    EXPECT_STREQ(g_variant_get_string(path.get(), nullptr), "/MenuBar");
    EXPECT_EQ(layout(),
              "(1, (0, {'children-display': <'submenu'>}, ["
              "<(1, {'label': <'_Show a__b'>, 'enabled': <true>}, @av [])>, "
              "<(2, {'label': <'Not now'>, 'enabled': <false>}, @av [])>, "
              "<(3, {'type': <'separator'>}, @av [])>, "
              "<(4, {'label': <'More & more'>, 'enabled': <true>, 'children-display': <'submenu'>}, "
              "[<(5, {'label': <'Inner'>, 'enabled': <true>}, @av [])>])>]))");
    EXPECT_EQ(layout(4, 0),
              "(1, (4, {'label': <'More & more'>, 'enabled': <true>, 'children-display': <'submenu'>}, []))");
    EXPECT_EQ(layout(99), "none");
}

TEST_F(NotifierIcon, TellsWhichEntryWasChosenAndNothingOfAGreyOne) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    layout();
    choose(1);
    choose(2);  // grey
    choose(3);  // a line
    choose(4);  // the title of a submenu
    choose(5);
    choose(77);  // none
    EXPECT_EQ(icon.chosen, (std::vector<std::string>{"mnuShow", "mnuInner"}));
}

TEST_F(NotifierIcon, TellsOfAChangedMenuOnceAndKeepsTheNumbersOfItsEntries) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    layout();
    icon.menu.erase(icon.menu.begin());
    icon.menu[0].enabled = true;
    icon.tray->menuChanged();
    icon.tray->menuChanged();
    EXPECT_TRUE(letRunUntil([&] { return panel_.layoutUpdates() > 0; }));
    icon.tray->menuChanged();  // and nothing has
    letRun(50);
    layout();  // what was told before has been heard once this is answered
    EXPECT_EQ(panel_.layoutUpdates(), 1);
    choose(2);
    EXPECT_EQ(icon.chosen, std::vector<std::string>{"mnuOff"});
}

TEST_F(NotifierIcon, GoesWhenItIsRemovedAndComesBack) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    const std::string name = item();
    icon.tray->remove();
    EXPECT_TRUE(letRunUntil([&] { return !panel_.isOnTheBus(name); }));
    icon.tray->remove();
    EXPECT_TRUE(icon.tray->add("Tidvane"));
    EXPECT_TRUE(panel_.isOnTheBus(item()));
    EXPECT_EQ(desktop_->registered().size(), 2U);
    EXPECT_EQ(icon.doubleClicks, 0);
}

TEST_F(NotifierIcon, CallsTheWindowBackWhenTheDesktopLosesItsPlace) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    desktop_.reset();
    EXPECT_TRUE(letRunUntil([&] { return icon.doubleClicks == 1; }));
}

TEST_F(NotifierIcon, CallsTheWindowBackWhenNobodyDrawsItAnyMore) {
    desktop();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    desktop_->loseHost();
    EXPECT_TRUE(letRunUntil([&] { return icon.doubleClicks == 1; }));
}

TEST_F(NotifierIcon, IsNotAddedWhereNobodyDrawsIt) {
    desktop(false);
    Icon icon;
    EXPECT_FALSE(icon.tray->add("Tidvane"));
    EXPECT_EQ(desktop_->registered(), std::vector<std::string>());
}

TEST_F(NotifierIcon, IsNotAddedOnABusWithoutADesktop) {
    Icon icon;
    EXPECT_FALSE(icon.tray->add("Tidvane"));
    icon.tray->remove();
}

class EmbeddedIcon : public testing::Test {
protected:
    ~EmbeddedIcon() override { letSettle(); }

    // Until the icon is what the pointer finds in the tray: what is clicked before is nothing yet.
    static void letStand(XTray& desktop) {
        ASSERT_TRUE(letRunUntil([&desktop] { return desktop.icons() == 1; }));
        desktop.point();
        GdkDevice* pointer = gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default()));
        ASSERT_TRUE(letRunUntil([pointer] {
            return gdk_device_get_window_at_position(pointer, nullptr, nullptr) != nullptr;
        })) << "the tray shows no icon";
        letSettle();
    }
    // A click is over once the icon has got it.
    static void letFinish(int clicks, const std::function<void()>& gesture) {
        const int before = buttonsReleased();
        gesture();
        EXPECT_TRUE(letRunUntil([before, clicks] { return buttonsReleased() >= before + clicks; }));
        letSettle();
    }
};

TEST_F(EmbeddedIcon, HasNoPlaceOnAScreenWithoutATray) {
    Icon icon;
    EXPECT_FALSE(icon.tray->add("Tidvane"));
}

TEST_F(EmbeddedIcon, StandsInTheTrayOnceAndGoes) {
    XTray desktop;
    Icon icon;
    EXPECT_TRUE(icon.tray->add("Tidvane"));
    EXPECT_TRUE(letRunUntil([&] { return desktop.icons() == 1; }));
    EXPECT_TRUE(icon.tray->add("another one"));
    letRun(50);
    EXPECT_EQ(desktop.icons(), 1);
    icon.tray->remove();
    EXPECT_TRUE(letRunUntil([&] { return desktop.icons() == 0; }));
    EXPECT_TRUE(icon.tray->add("Tidvane"));
    EXPECT_TRUE(letRunUntil([&] { return desktop.icons() == 1; }));
}

TEST_F(EmbeddedIcon, PassesItsTwoGesturesOn) {
    XTray desktop;
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    letStand(desktop);
    letFinish(1, [&desktop] { desktop.rightClick(); });
    EXPECT_TRUE(letRunUntil([&] { return icon.menus == 1; }));
    letFinish(2, [&desktop] { desktop.doubleClick(); });
    EXPECT_TRUE(letRunUntil([&] { return icon.doubleClicks == 1; }));
    letRun(50);
    EXPECT_EQ(icon.menus, 1);
    EXPECT_EQ(icon.doubleClicks, 1);
}

TEST_F(EmbeddedIcon, DoesNothingOnASingleClick) {
    XTray desktop;
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    letStand(desktop);
    letFinish(1, [&desktop] { desktop.click(); });
    letRun(800);  // longer than a double click takes
    letFinish(1, [&desktop] { desktop.click(); });
    letRun(50);
    EXPECT_EQ(icon.doubleClicks, 0);
    EXPECT_EQ(icon.menus, 0);
}

TEST_F(EmbeddedIcon, CallsTheWindowBackWhenTheTrayGoes) {
    auto desktop = std::make_unique<XTray>();
    Icon icon;
    ASSERT_TRUE(icon.tray->add("Tidvane"));
    ASSERT_TRUE(letRunUntil([&] { return desktop->icons() == 1; }));
    desktop.reset();
    EXPECT_TRUE(letRunUntil([&] { return icon.doubleClicks == 1; }));
    icon.tray->remove();
}

}  // namespace
}  // namespace tidvane::tests
