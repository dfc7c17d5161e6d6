// What of the start depends on the order of its steps.
#include <algorithm>

#include "settings/frmStarter.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct StartOrder : AppFixture {
    // Where a line that starts so stands in the log; its end: nowhere.
    std::size_t placeOf(const std::string& start) {
        const std::vector<std::string> lines = logLines();
        const auto found =
            std::find_if(lines.begin(), lines.end(), [&](const std::string& line) { return line.starts_with(start); });
        return static_cast<std::size_t>(found - lines.begin());
    }
};

TEST_F(StartOrder, AFirstStartTurnsToTheWelcomeAlsoWhereTheNewsWereShownBefore) {
    machine.files.take(inFolder("td_last.dat"));
    store({"chkAutoStartInfoServer=1"}, "frmMoreToConfigure");
    main();
    EXPECT_EQ(std::count_if(display.shown.begin(), display.shown.end(),
                            [](const auto& shown) { return shown.window == "frmStarter"; }),
              2);
    EXPECT_EQ(program.get<settings::frmStarter>().SSTab2.Tab, 0);
}

// There every line rewrites the box, which takes the caret to its front.
TEST_F(StartOrder, TheCaretStandsBehindTheLogAlsoWhereUmlautsAreReplaced) {
    store({"chkReplaceGerUmlaut=1"});
    main();
    EXPECT_GT(main().txtLog.length(), 0u);
    EXPECT_EQ(main().txtLog.SelStart(), main().txtLog.length());
}

TEST_F(StartOrder, TheProtectionIsNotedInFrontOfOtherCleaners) {
    store({"chkLogTimestamp=1"});
    machine.files.putFile(inFolder("td_ban.dat"), "C:\\Windows\r\n");
    machine.environment.set("programfiles", "C:\\Program Files");
    machine.files.putFolder("C:\\Program Files\\Bleachbit");
    main();
    const std::size_t protection = placeOf("Protecting specific locations through td_ban.dat");
    const std::size_t other = placeOf(text(586) + ": Bleachbit <");
    EXPECT_LT(other, logLines().size());
    EXPECT_LT(protection, other);
}

TEST_F(StartOrder, AMemberOfTheGroupInAnotherCaseIsAnotherUser) {
    store({"chkLogTimestamp=1"});
    machine.system.groups["Administratoren"] = {"ANNA"};
    EXPECT_EQ(countOf(text(569) + ": Anna"), 1);
    EXPECT_EQ(countOf(text(569) + ": Anna [Administrator]"), 0);
}

}  // namespace tidvane::tests
