#include <gtest/gtest.h>

#include "app/all_windows.h"
#include "app/task_catalogue.h"
#include "console/apply_settings.h"
#include "console/stored_windows.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "memory_session.h"
#include "settings/frmIEInDepthClean.h"
#include "settings/frmOptions.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "support/scripted_display.h"

namespace tidvane::console {
namespace {

class SettingsPath : public ::testing::Test {
protected:
    SettingsPath() {
        app::offerWindowsWithoutMain(program);
        settings::LoadAllLanguageFiles(program);
    }
    bool apply(const Options& options) { return applySettings(program, options, changed, error); }
    int valueOf(const char* name) {
        forms::Control* control = findStoredControl(program, name, error);
        return control == nullptr ? -99 : static_cast<forms::CheckBox*>(control)->Value.get();
    }

    tests::MemorySession memory;
    tests::ScriptedDisplay display;
    settings::Program program{memory.memory.platform(), display};
    std::set<std::string> changed;
    std::string error;
};

TEST_F(SettingsPath, FindsAControlByWindowAndNameWithoutRegardToCase) {
    forms::Control* control = findStoredControl(program, "FRMOPTIONS.txtpurgespeed", error);
    ASSERT_NE(control, nullptr) << error;
    EXPECT_EQ(control->Name, "txtPurgeSpeed");
}

TEST_F(SettingsPath, FindsAControlByItsNameAloneWhereOneWindowHasIt) {
    forms::Control* control = findStoredControl(program, "txtAge", error);
    ASSERT_NE(control, nullptr) << error;
    EXPECT_EQ(control->form().Name, "frmTempAge");
}

TEST_F(SettingsPath, FindsAMemberOfAnArrayByItsKeyAndByItsOwnName) {
    forms::Control* byKey = findStoredControl(program, "chkOperaTasks(3)", error);
    ASSERT_NE(byKey, nullptr) << error;
    EXPECT_EQ(byKey, findStoredControl(program, "chkOperaTasks", error));
    EXPECT_EQ(findStoredControl(program, "chkOperaTasks(2)", error), nullptr);
}

TEST_F(SettingsPath, EveryStoredControlIsFoundUnderTheNameThatTheListGives) {
    std::size_t count = 0;
    forEachStoredControl(program, [&](forms::Form& form, forms::Control& control) {
        const std::string path = form.Name + "." + settings::profileKey(control);
        EXPECT_EQ(findStoredControl(program, path, error), &control) << path << ": " << error;
        ++count;
    });
    EXPECT_GT(count, 150U);
}

TEST_F(SettingsPath, NamesTheChoicesOfAnAmbiguousName) {
    std::map<std::string, std::set<std::string>> windows;
    forEachStoredControl(program,
                         [&](forms::Form& form, forms::Control& control) { windows[control.Name].insert(form.Name); });
    for (const auto& [name, owners] : windows) {
        if (owners.size() < 2) continue;
        EXPECT_EQ(findStoredControl(program, name, error), nullptr);
        for (const std::string& owner : owners) EXPECT_TRUE(tests::contains(error, owner + "." + name)) << error;
    }
}

TEST_F(SettingsPath, RefusesAnUnknownNameWithASentence) {
    EXPECT_EQ(findStoredControl(program, "txtNowhere", error), nullptr);
    EXPECT_TRUE(tests::contains(error, "txtNowhere"));
    EXPECT_EQ(findStoredControl(program, "frmMain.txtLog", error), nullptr);
}

TEST_F(SettingsPath, SetRaisesTheEventsOfTheControl) {
    Options options;
    options.set = {"frmTempAge.chkActivite=1", "txtAge=30"};
    ASSERT_TRUE(apply(options)) << error;
    forms::Control* age = findStoredControl(program, "txtAge", error);
    EXPECT_TRUE(age->Enabled);
    EXPECT_EQ(console::valueOf(*age), "30");
    EXPECT_EQ(changed, std::set<std::string>{"frmTempAge"});
}

TEST_F(SettingsPath, SetTakesTheRowOfAComboBoxByNumberAndByText) {
    auto& combo = program.get<settings::frmOptions>().cboKillMethod;
    Options options;
    options.set = {"cboKillMethod=2"};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(combo.ListIndex(), 2);
    options.set = {"cboKillMethod=" + combo.rows()[1]};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(SettingsPath, SetRefusesWhatTheControlCannotHold) {
    for (const char* wrong : {"chkTrash=3", "chkTrash=yes", "chkTrash=", "chkTrash=1.5", "cboKillMethod=3",
                              "cboKillMethod=shred", "txtPurgeSpeed=fast", "optDeleteFolder=1", "chkTrash", "=1"}) {
        Options options;
        options.set = {wrong};
        error.clear();
        EXPECT_FALSE(apply(options)) << wrong;
        EXPECT_FALSE(error.empty()) << wrong;
    }
}

TEST_F(SettingsPath, TheOrderIsMethodSetTickUntick) {
    Options options;
    options.method = 1;  // recycle clears the bin's box, so a tick behind it asks and is taken back
    options.set = {"chkRunList=0"};
    options.tick = {"windows"};
    options.untick = {"chkRegKey"};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(program.selectedKillMethod(), 1);
    EXPECT_EQ(valueOf("chkRunList"), 1);
    EXPECT_EQ(valueOf("chkRegKey"), 0);
    EXPECT_EQ(valueOf("chkTrash"), 0);
    EXPECT_EQ(display.boxes.size(), 1U);
}

TEST_F(SettingsPath, TickAllMeansTheGatesOfSteps1To61) {
    Options options;
    options.tick = {"all"};
    ASSERT_TRUE(apply(options)) << error;
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (task.step > 61) continue;
        EXPECT_EQ(tasks::gateValue(program, task.gate), 1) << task.gate.control;
    }
    EXPECT_EQ(changed, (std::set<std::string>{"frmIEInDepthClean", "frmOptions"}));
    EXPECT_EQ(valueOf("chkSafariSavedForms"), 0) << "gates only, not the boxes of rows";
}

TEST_F(SettingsPath, TickTakesEveryGroupThatTheListOfTasksShows) {
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (task.gate.control == nullptr) continue;
        Options options;
        options.untick = {"all"};
        ASSERT_TRUE(apply(options));
        options.untick.clear();
        options.tick = {app::groupName(task.group)};
        ASSERT_TRUE(apply(options)) << error;
        for (const tasks::CleaningTask& other : app::taskCatalogue()) {
            if (other.gate.control == nullptr || std::string(other.gate.control) == "chkSafariCache") continue;
            EXPECT_EQ(tasks::gateValue(program, other.gate), other.group == task.group ? 1 : 0) << other.gate.control;
        }
    }
}

// One box of the group clears everything at once, saved passwords included.
class OneStepForAll : public SettingsPath {
protected:
    bool tickWith(const std::string& word, int answer) {
        display.boxes.clear();
        display.warnings.clear();
        display.questionAnswer = answer;
        Options options;
        options.tick = {word};
        return apply(options);
    }
};

TEST_F(OneStepForAll, IsAskedAboutWhereAGroupTicksIt) {
    for (const char* word : {"ie", "all", "IE"}) {
        program.get<settings::frmIEInDepthClean>().chkIEINDepthCleanAll.Value = 0;
        const int before = std::string(word) == "all" ? 1 : 0;
        program.get<settings::frmIEInDepthClean>().chkIEINDepthClean.Value = before;
        ASSERT_TRUE(tickWith(word, forms::msgbox::No)) << error;
        ASSERT_EQ(display.boxes.size(), 1U) << word;
        EXPECT_EQ(display.boxes[0].text, program.LangText(803));
        EXPECT_EQ(display.boxes[0].style, 308);
        EXPECT_EQ(display.boxes[0].title, "Tidvane");
        EXPECT_EQ(valueOf("chkIEINDepthCleanAll"), 0);
        EXPECT_EQ(valueOf("chkIEINDepthClean"), before) << "no group ticks or unticks it";
        EXPECT_EQ(valueOf("chkIEHistory"), 1) << "the others of the group stay ticked";
        ASSERT_EQ(display.warnings.size(), 1U);
        EXPECT_TRUE(tests::contains(display.warnings[0], "chkIEINDepthCleanAll stays off"));
        ASSERT_TRUE(tickWith(word, forms::msgbox::Yes)) << error;
        EXPECT_EQ(display.boxes.size(), 1U) << word;
        EXPECT_EQ(valueOf("chkIEINDepthCleanAll"), 1);
        EXPECT_EQ(valueOf("chkIEINDepthClean"), 0);
        EXPECT_TRUE(display.warnings.empty());
    }
}

TEST_F(OneStepForAll, IsNotAskedAboutWhereNothingIsNew) {
    for (const char* word : {"windows", "office", "chkIEHistory", "chkIEINDepthCleanAll"}) {
        ASSERT_TRUE(tickWith(word, forms::msgbox::No)) << error;
        EXPECT_TRUE(display.boxes.empty()) << word;
    }
    ASSERT_EQ(valueOf("chkIEINDepthCleanAll"), 1) << "named, and that is enough";
    ASSERT_TRUE(tickWith("all", forms::msgbox::No)) << error;
    EXPECT_TRUE(display.boxes.empty()) << "it was on";
    EXPECT_EQ(valueOf("chkIEINDepthCleanAll"), 1);
}

TEST_F(OneStepForAll, IsNotAskedAboutWhereTheCommandLineSettlesIt) {
    display.questionAnswer = forms::msgbox::No;
    Options options;
    options.tick = {"all"};
    options.untick = {"chkIEINDepthCleanAll"};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(valueOf("chkIEINDepthCleanAll"), 0);
    options.tick = {"all", "frmIEInDepthClean.chkIEINDepthCleanAll"};
    options.untick = {};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(valueOf("chkIEINDepthCleanAll"), 1);
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(SettingsPath, TickRefusesWhatIsNeitherABoxNorAGroup) {
    for (const char* wrong : {"plugins", "everything", "txtPurgeSpeed", ""}) {
        Options options;
        options.tick = {wrong};
        EXPECT_FALSE(apply(options)) << wrong;
    }
}

TEST_F(SettingsPath, TickTellsWherePlugInsAreTicked) {
    Options options;
    options.tick = {"plugins"};
    EXPECT_FALSE(apply(options));
    EXPECT_TRUE(tests::contains(error, "--plugin NAME")) << error;
}

TEST_F(SettingsPath, TickingAMasterBoxTicksItsPage) {
    Options options;
    options.tick = {"chkWindowsTasks(0)"};
    ASSERT_TRUE(apply(options)) << error;
    EXPECT_EQ(valueOf("chkRunList"), 1);
}

}  // namespace
}  // namespace tidvane::console
