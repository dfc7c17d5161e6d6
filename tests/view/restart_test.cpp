// A program that starts itself wants to begin anew.
#include <gtest/gtest.h>

#include "support/program_fixture.h"
#include "view/window_program.h"

namespace tidvane::tests {
namespace {

class RestartTest : public ::testing::Test, protected ProgramFixture {
protected:
    view::WindowProcesses processes{program.platform.processes, program.platform.system};
};

TEST_F(RestartTest, AStartOfItselfIsNotedAndLeftToTheEntryPoint) {
    const std::size_t before = machine.processes.started.size();
    EXPECT_FALSE(processes.restartWanted());
    const auto started = processes.CreateProcessA("c:\\program files\\tidvane\\TIDVANE.exe", 1);
    ASSERT_NE(started, nullptr);
    EXPECT_TRUE(started->wait(0));
    EXPECT_TRUE(processes.restartWanted());
    EXPECT_EQ(machine.processes.started.size(), before);
}

TEST_F(RestartTest, AnyOtherProgramIsStartedByThePlatform) {
    const std::size_t before = machine.processes.started.size();
    (void)processes.CreateProcessA("C:\\Program Files\\Tidvane\\memtrim.exe", 1);
    EXPECT_FALSE(processes.restartWanted());
    EXPECT_EQ(machine.processes.started.size(), before + 1);
}

}  // namespace
}  // namespace tidvane::tests
