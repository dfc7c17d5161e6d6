// Windows of settings on a screen: what goes into their boxes, what their pictures and tips show, how they are left.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/bookctrl.h>
#include <wx/dnd.h>
#include <wx/listbox.h>
#include <wx/radiobut.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include "settings/options_fixture.h"
#include "view/display_fixture.h"
#include "view/form_window.h"
#include "view/layouts.h"
#include "view/text.h"

namespace tidvane::tests {
namespace {

using settings::frmMoreToConfigure;
using settings::frmOptions;
using view::fromNative;

class SettingsWindow : public testing::Test {
protected:
    SettingsWindow() {
        view.onError = [](const std::string& text) { ADD_FAILURE() << text; };
        whenIdle([this] {
            if (!view.busy()) view.settle();
        });
    }
    ~SettingsWindow() override {
        whenIdle({});
        window.reset();
        letSettle();
    }
    void open(forms::Form& form) {
        const view::WindowLayout* layout = view::layoutOf(form.Name);
        ASSERT_NE(layout, nullptr);
        window = std::make_unique<view::FormWindow>(view, form, layout->style, nullptr);
        window->onClose = [this, &form] { machine.program.windows.unload(form, forms::UnloadMode::ControlMenu); };
        layout->layout(*window);
        window->finish();
        window->show(true);
        bringToFront(window->native());
        ASSERT_TRUE(letRunUntil([this] { return isActive(window->native()); })) << "the window gets no focus";
        letDraw(window->native());
    }
    // The extended settings with a tab and whatever is switched on by it.
    frmMoreToConfigure& openExtended(int tab) {
        auto& form = machine.program.get<frmMoreToConfigure>();
        form.cboTheme.setText("Custom");
        form.chkEnableCustomApp.Value = 1;
        form.chkEnableAutoUpdate.Value = 1;
        open(form);
        form.SSTab1.Tab = tab;
        return form;
    }
    template <class Widget = wxWindow>
    Widget* widget(const forms::Control& control) {
        return dynamic_cast<Widget*>(window->widgetOf(control));
    }
    void focus(const forms::Control& control) {
        wxWindow* box = widget(control);
        ASSERT_TRUE(letRunUntil([box] { return box->IsShownOnScreen() && box->IsEnabled(); }))
            << control.Name << " is not to be seen";
        box->SetFocus();
        ASSERT_TRUE(letRunUntil([box] { return box->HasFocus(); })) << control.Name << " takes no focus";
    }
    bool isOpen(const char* name) { return machine.program.windows.ifLoaded(name) != nullptr; }

    settings::OptionsFixture machine;
    view::View view;
    std::unique_ptr<view::FormWindow> window;
};

// --- what goes into a box

TEST_F(SettingsWindow, APastedTextGoesThroughTheFilterOfTheBox) {
    frmMoreToConfigure& form = openExtended(1);
    focus(form.txtUpdateIntDelay);
    form.txtUpdateIntDelay.setText("");
    ASSERT_TRUE(letRunUntil([&] { return widget<wxTextCtrl>(form.txtUpdateIntDelay)->IsEmpty(); }));
    gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), "C:\\12 Prögräm,\n7", -1);
    typeKey('V', wxMOD_CONTROL);
    EXPECT_TRUE(letRunUntil([&] { return form.txtUpdateIntDelay.Text() == "12,7"; })) << form.txtUpdateIntDelay.Text();
    gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), "letters", -1);
    typeKey('V', wxMOD_CONTROL);
    typeText("5");
    EXPECT_TRUE(letRunUntil([&] { return form.txtUpdateIntDelay.Text() == "12,75"; })) << form.txtUpdateIntDelay.Text();
}

TEST_F(SettingsWindow, WhateverElsePutsATextInGoesThroughItToo) {
    frmMoreToConfigure& form = openExtended(1);
    focus(form.txtUpdateIntDelay);
    // As the middle button of the mouse, a drop and an input method do it.
    int place = 0;
    gtk_editable_insert_text(GTK_EDITABLE(widget(form.txtUpdateIntDelay)->GetHandle()), "a1b2", -1, &place);
    EXPECT_TRUE(letRunUntil([&] { return form.txtUpdateIntDelay.Text() == "122000"; }))
        << form.txtUpdateIntDelay.Text();
    // The program itself may put anything there.
    form.txtUpdateIntDelay.setText("none");
    EXPECT_TRUE(letRunUntil([&] { return widget<wxTextCtrl>(form.txtUpdateIntDelay)->GetValue() == "none"; }));
}

TEST_F(SettingsWindow, EnteringABoxOfTheCustomColourClearsIt) {
    frmMoreToConfigure& form = openExtended(0);
    form.CustomThemeG.setText("77");
    focus(form.CustomThemeG);
    EXPECT_TRUE(letRunUntil([&] { return form.CustomThemeG.Text().empty(); }));
    EXPECT_TRUE(letRunUntil([&] { return widget<wxTextCtrl>(form.CustomThemeG)->IsEmpty(); }));
}

// --- what is shown

TEST_F(SettingsWindow, TheTipOfABoxIsWhatItHoldsUnderTheMovingPointer) {
    frmMoreToConfigure& form = openExtended(0);
    wxWindow* box = widget(form.txtCustomAppPath);
    ASSERT_TRUE(letRunUntil([box] { return box->IsShownOnScreen(); }));
    clickMiddle(box);
    for (const char* path : {"D:\\one.exe", "D:\\two.exe"}) {
        form.txtCustomAppPath.setText(path);
        wxMouseEvent moved(wxEVT_MOTION);
        moved.SetEventObject(box);
        box->ProcessWindowEvent(moved);
        EXPECT_TRUE(letRunUntil([&] { return fromNative(box->GetToolTipText()) == path; }))
            << fromNative(box->GetToolTipText());
    }
}

TEST_F(SettingsWindow, ThePictureBesideTheColoursIsTheirMix) {
    frmMoreToConfigure& form = openExtended(0);
    form.CustomThemeR.setText("200");
    form.CustomThemeG.setText("100");
    form.CustomThemeB.setText("50");
    auto* picture = widget<wxStaticBitmap>(form.PicRGBThemeMix);
    const auto middle = [picture] {
        const wxImage image = picture->GetBitmap().ConvertToImage();
        const int x = image.GetWidth() / 2;
        const int y = image.GetHeight() / 2;
        return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
    };
    EXPECT_TRUE(letRunUntil([&] { return picture->IsShownOnScreen() && middle() == wxColour(200, 100, 50); }))
        << fromNative(middle().GetAsString());
}

TEST_F(SettingsWindow, TheFlagOfThePageOfChangesIsTheOneThatIsSeen) {
    frmMoreToConfigure& form = openExtended(1);
    ASSERT_TRUE(letRunUntil([&] { return widget(form.ImgUpdateGerman)->IsShownOnScreen(); }));
    EXPECT_FALSE(widget(form.ImgUpdateEnglish)->IsShownOnScreen());
    form.cboChangelogServer.setListIndex(2);
    EXPECT_TRUE(letRunUntil([&] {
        return widget(form.ImgUpdateEnglish)->IsShownOnScreen() && !widget(form.ImgUpdateGerman)->IsShownOnScreen();
    }));
}

TEST_F(SettingsWindow, ATabThatTheProgramTurnsToIsSeenAlsoWhileItIsOff) {
    auto& form = machine.program.get<settings::frmStarter>();
    form.SSTab2.setTabCaption(3, "Maintenance");
    form.SSTab2.setTabEnabled(3, false);
    form.SSTab2.Tab = 3;
    open(form);
    auto* book = widget<wxBookCtrlBase>(form.SSTab2);
    const auto current = [book] {
        return book->GetSelection() == wxNOT_FOUND
                   ? std::string()
                   : fromNative(book->GetPageText(static_cast<std::size_t>(book->GetSelection())));
    };
    EXPECT_EQ(current(), "Maintenance");
    const std::size_t pages = book->GetPageCount();
    form.SSTab2.Tab = 5;
    EXPECT_TRUE(letRunUntil([&] { return current() == form.SSTab2.TabCaption(5); })) << current();
    EXPECT_EQ(book->GetPageCount(), pages - 1) << "left, it is no longer on offer";
}

TEST_F(SettingsWindow, OfTwoChoicesNeitherIsShownWhereNeitherIsStored) {
    machine.putOptions({{"chkActivateOwnFolder", "1"}, {"optDeleteFolder", "0"}, {"optDeleteFolderContent", "0"}});
    frmOptions& options = machine.options();
    open(options);
    options.SSTab1.Tab = 3;
    options.SSTab3.Tab = 0;
    auto* whole = widget<wxRadioButton>(options.optDeleteFolder);
    auto* content = widget<wxRadioButton>(options.optDeleteFolderContent);
    ASSERT_TRUE(letRunUntil([whole] { return whole->IsShownOnScreen(); }));
    EXPECT_FALSE(whole->GetValue());
    EXPECT_FALSE(content->GetValue());
    clickMiddle(whole);
    EXPECT_TRUE(letRunUntil([&] { return options.optDeleteFolder.selected() && whole->GetValue(); }));
    clickMiddle(content);
    EXPECT_TRUE(letRunUntil([&] { return options.optDeleteFolderContent.selected() && content->GetValue(); }));
    EXPECT_FALSE(whole->GetValue());
}

TEST_F(SettingsWindow, AFileThatIsDroppedOnTheFilesIsTheirs) {
    frmOptions& options = machine.options();
    machine.files().putFile("D:\\drop\\a.txt", "a");
    options.chkActivateOwnFolder.Value = 1;
    options.chkActivateOwnFiles.Value = 1;
    open(options);
    window->machinePathsOf = [](const std::vector<std::string>&) {
        return std::vector<std::string>{"D:\\drop\\a.txt", "D:\\drop"};
    };
    auto* target = dynamic_cast<wxFileDropTarget*>(widget(options.lstFiles)->GetDropTarget());
    ASSERT_NE(target, nullptr);
    wxArrayString names;
    names.Add("/host/a.txt");
    EXPECT_TRUE(target->OnDropFiles(5, 5, names));
    EXPECT_TRUE(letRunUntil([&] { return options.lstFiles.ListCount() == 1 && options.lstFolders.ListCount() == 1; }));
    EXPECT_EQ(settings::rows(options.lstFiles), (std::vector<std::string>{"D:\\drop\\a.txt"}));
    EXPECT_EQ(settings::rows(options.lstFolders), (std::vector<std::string>{"D:\\drop"}));
}

// --- how they are left

TEST_F(SettingsWindow, EnterInTheExtendedSettingsIsItsOkAndEscapeDropsTheChanges) {
    openExtended(1).chkDisksizeInfo.Value = 0;
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(letRunUntil([this] { return !isOpen(frmMoreToConfigure::kName); }));
    EXPECT_EQ(machine.stored("chkDisksizeInfo", frmMoreToConfigure::kName), "");
    window.reset();

    frmMoreToConfigure& form = openExtended(1);
    EXPECT_EQ(form.chkDisksizeInfo.Value, 1);
    form.chkDisksizeInfo.Value = 0;
    focus(form.txtUpdateIntDelay);
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return !isOpen(frmMoreToConfigure::kName); }));
    EXPECT_EQ(machine.stored("chkDisksizeInfo", frmMoreToConfigure::kName), "0");
}

TEST_F(SettingsWindow, TheFoldersOfABrowserAreStoredByEnterAndDroppedByEscape) {
    for (const char* name : {"frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir"}) {
        for (const bool stored : {false, true}) {
            auto& form = dynamic_cast<settings::BrowserDirForm&>(*machine.program.windows.get(name));
            open(form);
            form.disableAutoDetect.Value = 1;
            focus(form.disableAutoDetect);
            typeKey(stored ? WXK_RETURN : WXK_ESCAPE);
            EXPECT_TRUE(letRunUntil([this, name] { return !isOpen(name); })) << name;
            EXPECT_EQ(machine.stored(form.disableAutoDetect.Name, name), stored ? "1" : "") << name;
            window.reset();
        }
    }
}

}  // namespace
}  // namespace tidvane::tests
