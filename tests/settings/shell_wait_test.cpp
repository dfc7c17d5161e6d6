// Starting a program and waiting, with and without events; and the pause of a run.
#include "settings/shell_wait.h"

#include "settings/frmOptions.h"
#include "settings/pause.h"
#include "support/program_fixture.h"

#include <gtest/gtest.h>

namespace tidvane::settings {

struct ShellWaitTest : testing::Test, tests::ProgramFixture {};

TEST_F(ShellWaitTest, LetsEventsInAfterEveryTenMillisecondsUntilTheEnd) {
    machine.processes.endsAfterWaits = 3;
    EXPECT_TRUE(ShellWait(program, "tool.exe /x"));
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "tool.exe /x");
    EXPECT_EQ(machine.processes.started[0]->timeOuts, (std::vector<int>{10, 10, 10, 10}));
    EXPECT_TRUE(machine.processes.started[0]->ended);
    EXPECT_EQ(machine.events.pumps, 3u);
}

TEST_F(ShellWaitTest, TakesTheAbsoluteValueOfTheWindowMode) {
    EXPECT_TRUE(ShellWait(program, "a.exe", -1));
    EXPECT_TRUE(ShellWait(program, "b.exe", 0));
    EXPECT_TRUE(ShellWait(program, "c.exe"));
    EXPECT_EQ(machine.processes.started[0]->show, 1);
    EXPECT_EQ(machine.processes.started[1]->show, 0);
    EXPECT_EQ(machine.processes.started[2]->show, 1);
}

TEST_F(ShellWaitTest, WarnsInGermanWhenTheStartFails) {
    machine.processes.failToStart = true;
    EXPECT_FALSE(ShellWait(program, "missing.exe"));
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].title, "Task kann nicht ausgeführt werden ...");
    EXPECT_EQ(display.boxes[0].text,
              "Es ist ein Fehler beim Starten eines externen Prozesses von Tidvane aufgetreten.");
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
    EXPECT_EQ(machine.events.pumps, 0u);
}

TEST_F(ShellWaitTest, WaitsWithoutEventsThroughTheShell) {
    EXPECT_TRUE(ShellExecuteWait(program, "open", "C:\\a.exe", "/x", "", 1));
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_TRUE(machine.shell.started[0].waited);
    EXPECT_EQ(machine.events.pumps, 0u);
    EXPECT_TRUE(display.boxes.empty());
}

struct PauseTest : testing::Test, tests::ProgramFixture {
    std::int64_t pauseOf(const std::string& text) {
        program.get<frmOptions>().txtPurgeSpeed.setText(text);
        const std::int64_t before = machine.clock.sleptMilliseconds;
        pauseByPurgeSpeed(program);
        return machine.clock.sleptMilliseconds - before;
    }
};

TEST_F(PauseTest, IsReadFromTheBoxOnEachUse) {
    EXPECT_EQ(pauseOf("25"), 25);
    EXPECT_EQ(pauseOf("100"), 100);
    EXPECT_EQ(pauseOf("0"), 0);
}

TEST_F(PauseTest, IsNoneForATextThatIsNoNumberOrDoesNotFit) {
    for (const char* text : {"", "abc", "10ms", "-1", "99999999999"}) EXPECT_EQ(pauseOf(text), 0) << text;
}

TEST_F(PauseTest, ReadsACommaByTheLocale) {
    EXPECT_EQ(pauseOf("1,5"), 15);  // a grouping sign on an English system
    machine.system.systemLocale = base::germanLocale();
    EXPECT_EQ(pauseOf("1,5"), 2);
    EXPECT_EQ(pauseOf("2,5"), 2);
}

TEST_F(PauseTest, LetsNoEventIn) {
    pauseOf("25");
    EXPECT_EQ(machine.events.pumps, 0u);
}

}  // namespace tidvane::settings
