// What the user of the windows hears where his settings could not be stored.
#include "frontend/watched_profiles.h"

#include "frontend/own_services.h"
#include "settings/frmMoreToConfigure.h"
#include "support/app_fixture.h"

namespace tidvane::frontend {
namespace {

class Unstored : public tests::AppFixture {
protected:
    Unstored() : watched(machine.profiles), windows(withOwn(machine.platform(), {.profiles = &watched}), display) {
        app::offerAllWindows(windows);
        (void)windows.get<settings::frmOptions>();
        display.warnings.clear();
        (void)watched.takeFailed();
    }
    std::vector<std::string> behindOk() {
        windows.get<settings::frmOptions>().cmdOK.setValue(true);
        warnOfUnstored(windows, watched);
        return std::move(display.warnings);
    }

    WatchedProfiles watched;
    settings::Program windows;
};

TEST_F(Unstored, SettingsOfAFullDiskAreToldOnceASave) {
    machine.files.setDiskFull('C', true);
    const std::vector<std::string> told = behindOk();
    ASSERT_EQ(told.size(), 4U) << "three lists, and all settings together";
    EXPECT_EQ(told.front(), "td_folders.dat could not be written and keeps its old content.");
    EXPECT_EQ(told.back(), "The settings could not be stored: " + inFolder("td_config.ini") + " cannot be written.");
    warnOfUnstored(windows, watched);
    EXPECT_TRUE(display.warnings.empty()) << "and not again";
}

TEST_F(Unstored, NothingIsToldWhereAllWasWritten) {
    EXPECT_TRUE(behindOk().empty());
    EXPECT_FALSE(watched.failed());
}

TEST_F(Unstored, TheWarningIsInTheProgramsLanguage) {
    speakGerman();
    (void)windows.windows.unload(windows.get<settings::frmOptions>());
    windows.windows.sweep();
    (void)windows.get<settings::frmOptions>();
    display.warnings.clear();
    machine.files.refuse(inFolder("td_config.ini"), platform::operation::Write, platform::Status::Denied);
    EXPECT_EQ(behindOk(), (std::vector<std::string>{"Die Einstellungen konnten nicht gespeichert werden: " +
                                                    inFolder("td_config.ini") + " lässt sich nicht schreiben."}));
}

}  // namespace
}  // namespace tidvane::frontend
