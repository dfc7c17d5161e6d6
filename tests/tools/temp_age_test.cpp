#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "support/program_fixture.h"
#include "tools/frmTempAge.h"

namespace tidvane::tests {
namespace {

class TempAge : public ::testing::Test, protected ProgramFixture {
protected:
    tools::frmTempAge& window() { return program.get<tools::frmTempAge>(); }
};

TEST_F(TempAge, StartsOffWithTenDays) {
    EXPECT_EQ(window().chkActivite.Value, 0);
    EXPECT_EQ(window().txtAge.Text(), "10");
    EXPECT_FALSE(window().txtAge.Enabled);
}

TEST_F(TempAge, TheAgeIsEnabledWhileTheBoxIsTicked) {
    window().chkActivite.Value = 1;
    EXPECT_TRUE(window().txtAge.Enabled);
    window().chkActivite.Value = 2;
    EXPECT_FALSE(window().txtAge.Enabled);
    window().chkActivite.Value = 1;
    window().chkActivite.Value = 0;
    EXPECT_FALSE(window().txtAge.Enabled);
}

TEST_F(TempAge, OkStoresAndClosesAndTheSettingSurvives) {
    window().chkActivite.Value = 1;
    window().txtAge.setText("30");
    window().cmdOK.Click();
    EXPECT_EQ(program.windows.ifLoaded("frmTempAge"), nullptr);
    EXPECT_EQ(storedValue("frmTempAge", "chkActivite"), "1");
    EXPECT_EQ(storedValue("frmTempAge", "txtAge"), "30");
    EXPECT_EQ(window().chkActivite.Value, 1);
    EXPECT_EQ(window().txtAge.Text(), "30");
    EXPECT_TRUE(window().txtAge.Enabled);
}

TEST_F(TempAge, ClosingInAnotherWayStoresNothing) {
    window().chkActivite.Value = 1;
    program.windows.unload(window(), forms::UnloadMode::ControlMenu);
    EXPECT_EQ(window().chkActivite.Value, 0);
    EXPECT_FALSE(machine.files.has(program.inProgramFolder("td_config.ini")));
}

TEST_F(TempAge, AnEmptiedAgeComesBackWithItsOldValue) {
    window().txtAge.setText("30");
    window().cmdOK.Click();
    window().txtAge.setText("");
    window().cmdOK.Click();
    EXPECT_EQ(window().txtAge.Text(), "30");
}

TEST_F(TempAge, AnEmptiedAgeIsToldByTheWordsBesideItsBox) {
    window().txtAge.setText("30");
    window().cmdOK.Click();
    window().txtAge.setText("");
    window().chkActivite.Caption = "Older than";
    window().lblTemp.Caption = "What the page is about.";
    window().cmdOK.Click();
    ASSERT_FALSE(display.warnings.empty());
    EXPECT_EQ(display.warnings.back(), "\"Older than\" was emptied and keeps its last value: 30");
}

TEST_F(TempAge, TypingTakesDigitsCommaAndBackspace) {
    auto& age = window().txtAge;
    age.setText("");
    for (const char32_t key : {U'1', U'a', U'.', U'-', U' ', U',', U'5', U'6', char32_t{8}}) age.typeKey(key);
    EXPECT_EQ(age.Text(), "1,5");
}

TEST_F(TempAge, CaptionsComeFromTheTable) {
    program.LangText.set(804, "on");
    program.LangText.set(805, "older than");
    program.LangText.set(806, "interval");
    program.LangText.set(807, "days");
    program.LangText.set(809, "Temp Manager");
    EXPECT_EQ(window().Caption, std::string("Temp Manager"));
    EXPECT_EQ(window().chkActivite.Caption, std::string("on"));
    EXPECT_EQ(window().lblTemp.Caption, std::string("older than"));
    EXPECT_EQ(window().frmTempInterval.Caption, std::string("interval"));
    EXPECT_EQ(window().lblDays.Caption, std::string("days"));
}

TEST_F(TempAge, ABadStoredValueReachesTheCaller) {
    putBeside("td_config.ini", "[frmTempAge]\r\nchkActivite=on\r\ntxtAge=30\r\n");
    EXPECT_THROW((void)window(), base::RuntimeError);
    EXPECT_EQ(window().txtAge.Text(), "10");
}

}  // namespace
}  // namespace tidvane::tests
