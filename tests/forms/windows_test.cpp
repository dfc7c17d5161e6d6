#include "forms/windows.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/scripted_display.h"

namespace tidvane::forms {
namespace {

struct Hooks {
    std::function<void()> load;
    std::function<void()> unload;
    bool refuse = false;
    int made = 0;
};

struct HookedForm : Form {
    HookedForm(const std::string& name, Hooks& h) : Form(name), hooks(h) { ++hooks.made; }
    void Form_Load() override {
        if (hooks.load) hooks.load();
    }
    bool Form_QueryUnload(UnloadMode) override { return hooks.refuse; }
    void Form_Unload() override {
        if (hooks.unload) hooks.unload();
    }
    Hooks& hooks;
};

struct WindowsTest : testing::Test {
    tests::ScriptedDisplay display;
    Windows windows{display};
    Hooks a;
    Hooks b;
    void SetUp() override {
        windows.offer("frmA", [this] { return std::make_unique<HookedForm>("frmA", a); });
        windows.offer("frmB", [this] { return std::make_unique<HookedForm>("frmB", b); });
    }
};

TEST_F(WindowsTest, LoadsAtFirstUseAndOnlyOnce) {
    EXPECT_EQ(windows.ifLoaded("frmA"), nullptr);
    Form* first = windows.get("frmA");
    EXPECT_EQ(windows.get("FRMA"), first);
    EXPECT_EQ(a.made, 1);
}

TEST_F(WindowsTest, AnswersNothingForAWindowNobodyOffers) {
    EXPECT_EQ(windows.get("frmNone"), nullptr);
}

TEST_F(WindowsTest, IsFoundWhileItsOwnLoadHandlerRuns) {
    Form* seen = nullptr;
    bool loading = false;
    a.load = [&] {
        b.load = [&] {
            seen = windows.get("frmA");
            loading = windows.isLoading("frmA");
        };
        windows.get("frmB");
    };
    Form* made = windows.get("frmA");
    EXPECT_EQ(seen, made);
    EXPECT_TRUE(loading);
    EXPECT_FALSE(windows.isLoading("frmA"));
}

TEST_F(WindowsTest, AnErrorOfTheLoadHandlerReachesTheCallerAndTheWindowStays) {
    a.load = [] { throw 13; };
    EXPECT_THROW(windows.get("frmA"), int);
    EXPECT_NE(windows.ifLoaded("frmA"), nullptr);
    EXPECT_FALSE(windows.isLoading("frmA"));
}

TEST_F(WindowsTest, UnloadingForgetsTheStateAndTheNextUseMakesItAnew) {
    windows.get("frmA")->Caption = "changed";
    EXPECT_TRUE(windows.unload(*windows.get("frmA")));
    EXPECT_EQ(windows.get("frmA")->Caption.get(), "");
    EXPECT_EQ(a.made, 2);
}

TEST_F(WindowsTest, UnloadIsNotEnteredTwiceForOneWindow) {
    int unloads = 0;
    a.unload = [&] {
        ++unloads;
        EXPECT_FALSE(windows.unload(*windows.get("frmA")));
    };
    EXPECT_TRUE(windows.unload(*windows.get("frmA")));
    EXPECT_EQ(unloads, 1);
}

TEST_F(WindowsTest, AWindowMayRefuseToClose) {
    a.refuse = true;
    EXPECT_FALSE(windows.unload(*windows.get("frmA"), UnloadMode::ControlMenu));
    EXPECT_NE(windows.ifLoaded("frmA"), nullptr);
}

TEST_F(WindowsTest, UnloadAllTakesTheMainWindowFirstAndWhatALateReadLoads) {
    std::vector<std::string> order;
    windows.get("frmB");
    windows.get("frmA");
    a.unload = [&] {
        order.emplace_back("frmA");
        windows.unload(*windows.get("frmB"));
        windows.get("frmB");
    };
    b.unload = [&] { order.emplace_back("frmB"); };
    windows.unloadAll("frmA");
    EXPECT_EQ(order, (std::vector<std::string>{"frmA", "frmB", "frmB"}));
    EXPECT_TRUE(windows.loadedNames().empty());
}

TEST_F(WindowsTest, TheMainWindowDoesNotComeBackOnceAllWindowsWereUnloaded) {
    windows.get("frmA");
    windows.unloadAll("frmA");
    EXPECT_EQ(windows.get("frmA"), nullptr);
    EXPECT_NE(windows.get("frmB"), nullptr);
}

}  // namespace
}  // namespace tidvane::forms
