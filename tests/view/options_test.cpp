// The options window on a screen: what its layout does beside showing controls.
#include <gtest/gtest.h>
#include <wx/checkbox.h>
#include <wx/dnd.h>
#include <wx/listbox.h>
#include <wx/textctrl.h>

#include "settings/options_fixture.h"
#include "view/display_fixture.h"
#include "view/form_window.h"
#include "view/layouts.h"
#include "view/text.h"

namespace tidvane::tests {
namespace {

using settings::frmOptions;
using settings::rows;
using settings::TaskBox;
using settings::TaskPage;

class OptionsWindow : public testing::Test {
protected:
    void SetUp() override {
        takeComplaints();
        view.onError = [](const std::string& text) { ADD_FAILURE() << text; };
        whenIdle([this] {
            if (!view.busy()) view.settle();
        });
        frmOptions& options = machine.options();
        const view::WindowLayout* layout = view::layoutOf(frmOptions::kName);
        ASSERT_NE(layout, nullptr);
        window = std::make_unique<view::FormWindow>(view, options, layout->style, nullptr);
        window->onClose = [this] { machine.program.windows.unload(machine.options(), forms::UnloadMode::ControlMenu); };
        layout->layout(*window);
        window->finish();
        window->show(true);
        bringToFront(window->native());
        ASSERT_TRUE(letRunUntil([this] { return isActive(window->native()); })) << "the window gets no focus";
        letDraw(window->native());
    }
    void TearDown() override {
        whenIdle({});
        window.reset();
        letSettle();
    }
    // Its page has to be the one that is seen.
    void focus(const forms::Control& control) {
        wxWindow* widget = window->widgetOf(control);
        ASSERT_TRUE(letRunUntil([widget] { return widget->IsShownOnScreen() && widget->IsEnabled(); }))
            << control.Name << " is not to be seen";
        widget->SetFocus();
        ASSERT_TRUE(letRunUntil([widget] { return widget->HasFocus(); })) << control.Name << " takes no focus";
    }
    // One of the pages of the own lists, switched on.
    void showList(int tab, forms::CheckBox& gate) {
        gate.Value = 1;
        machine.options().SSTab1.Tab = 3;
        machine.options().SSTab3.Tab = tab;
    }
    void showSettings(int tab) {
        machine.options().SSTab1.Tab = 5;
        machine.options().SSTab4.Tab = tab;
    }
    void typeInto(const forms::TextBox& box, const std::string& text) {
        focus(box);
        typeText(text);
    }
    bool isOpen() { return machine.program.windows.ifLoaded(frmOptions::kName) != nullptr; }

    settings::OptionsFixture machine;
    view::View view;
    std::unique_ptr<view::FormWindow> window;
};

TEST_F(OptionsWindow, EnterInTheMaskLineAddsTheMaskAndTheWindowStays) {
    frmOptions& options = machine.options();
    showList(2, options.chkSearchTasks);
    typeInto(options.txtSearchMask, "*.old");
    typeKey(WXK_RETURN);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(rows(options.lstSearchMasks), (std::vector<std::string>{"*.old"}));
    EXPECT_EQ(options.txtSearchMask.Text(), "");
}

TEST_F(OptionsWindow, EnterInAPathLineAddsThePathAndTheWindowStays) {
    frmOptions& options = machine.options();
    showList(0, options.chkActivateOwnFolder);
    typeInto(options.txtAddFolderPath, "D:\\data");
    typeKey(WXK_RETURN);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(rows(options.lstFolders), (std::vector<std::string>{"D:\\data"}));
}

TEST_F(OptionsWindow, EnterElsewherePressesOk) {
    frmOptions& options = machine.options();
    showSettings(0);
    options.txtPurgeSpeed.setText("");
    typeInto(options.txtPurgeSpeed, "25");
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return !isOpen(); }));
    EXPECT_EQ(machine.stored("txtPurgeSpeed"), "25");
}

TEST_F(OptionsWindow, NumberBoxesTakeDigitsAndTheCommaAlone) {
    frmOptions& options = machine.options();
    showSettings(0);
    options.txtPurgeSpeed.setText("");
    typeInto(options.txtPurgeSpeed, "1a-2,b5.");
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "12,5");
    typeKey(WXK_BACK);
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "12,");
}

TEST_F(OptionsWindow, EscapeClosesAndStoresNothing) {
    machine.options().chkRunList.Value = 1;
    focus(machine.options().chkSearchList);
    typeKey(WXK_ESCAPE);
    EXPECT_FALSE(isOpen());
    EXPECT_NE(machine.stored("chkRunList"), "1");
}

TEST_F(OptionsWindow, TheDeleteKeyRemovesTheSelectedRows) {
    frmOptions& options = machine.options();
    for (const char* row : {"D:\\a", "D:\\b", "D:\\c"}) options.lstFolders.AddItem(row);
    showList(0, options.chkActivateOwnFolder);
    options.lstFolders.setSelected(0, true);
    options.lstFolders.setSelected(2, true);
    focus(options.lstFolders);
    typeKey(WXK_DELETE);
    EXPECT_EQ(rows(options.lstFolders), (std::vector<std::string>{"D:\\b"}));
}

TEST_F(OptionsWindow, DroppedFoldersReachTheListAsPathsOfTheMachine) {
    frmOptions& options = machine.options();
    machine.files().putFile("D:\\drop\\a.txt", "a");
    window->machinePathsOf = [](const std::vector<std::string>& paths) {
        std::vector<std::string> places;
        for (const std::string& path : paths) places.push_back("D:\\" + path.substr(std::string("/host/").size()));
        return places;
    };
    showList(0, options.chkActivateOwnFolder);
    auto* target = dynamic_cast<wxFileDropTarget*>(window->widgetOf(options.lstFolders)->GetDropTarget());
    ASSERT_NE(target, nullptr);
    wxArrayString names;
    names.Add("/host/drop");
    names.Add("/host/drop\\a.txt");
    EXPECT_TRUE(target->OnDropFiles(5, 5, names));
    EXPECT_TRUE(rows(options.lstFolders).empty()) << "the file manager would wait for it";
    EXPECT_TRUE(letRunUntil([&options] { return options.lstFolders.ListCount() > 0; }));
    EXPECT_EQ(rows(options.lstFolders), (std::vector<std::string>{"D:\\drop"}));
}

TEST_F(OptionsWindow, TheChosenMethodShowsItsHintAndItsBox) {
    frmOptions& options = machine.options();
    showSettings(3);
    wxWindow* preview = window->widgetOf(options.chkOpenRecycleBinAsPreview);
    focus(options.cboKillMethod);
    EXPECT_FALSE(preview->IsShown());
    options.cboKillMethod.setListIndex(1);
    EXPECT_TRUE(letRunUntil([preview] { return preview->IsShownOnScreen(); }));
    letDraw(window->native());
    EXPECT_EQ(options.lblKillMethodInfo.Caption.get(), "About recycling");
    EXPECT_GE(preview->GetScreenPosition().y, window->widgetOf(options.lblKillMethodInfo)->GetScreenRect().GetBottom());
}

TEST_F(OptionsWindow, InDepthBoxesStandIndentedBelowTheirOwn) {
    frmOptions& options = machine.options();
    int seen = 0;
    for (int page = 0; page < settings::kTaskPages; ++page) {
        const std::vector<TaskBox>& tasks = options.taskBoxes(static_cast<TaskPage>(page));
        const TaskBox* owner = nullptr;
        for (const TaskBox& task : tasks) {
            if (!task.inDepth) {
                owner = &task;
                continue;
            }
            ++seen;
            ASSERT_NE(owner, nullptr);
            const wxRect above = window->widgetOf(*owner->box)->GetRect();
            const wxRect below = window->widgetOf(*task.box)->GetRect();
            EXPECT_GT(below.x, above.x) << task.box->Name;
            EXPECT_GT(below.y, above.y) << task.box->Name;
        }
    }
    EXPECT_EQ(seen, 5);
}

}  // namespace
}  // namespace tidvane::tests
