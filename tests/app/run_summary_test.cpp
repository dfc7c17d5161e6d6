// How the time of a run reads.
#include "app/cleaning_run.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct Elapsed : AppFixture {
    std::string of(float seconds) {
        main();
        return app::elapsedText(program, seconds);
    }
    std::string seconds(const std::string& number) { return number + " " + text(583); }
    std::string minutes(const std::string& number) { return number + " " + text(584) + " "; }
};

TEST_F(Elapsed, OfSixtySecondsIsToldInSeconds) {
    EXPECT_EQ(of(60), seconds("60"));
}

TEST_F(Elapsed, AboveSixtySecondsIsADecimalMinuteWithAComma) {
    EXPECT_EQ(of(61), minutes("1,02"));
    EXPECT_EQ(of(90), minutes("1,50"));
    EXPECT_EQ(of(119), minutes("1,98"));
    EXPECT_EQ(of(120), minutes("2,00"));
    EXPECT_EQ(of(3600), minutes("60,00"));
}

TEST_F(Elapsed, IsRoundedToWholeSecondsHalfToEvenBeforeItIsDivided) {
    EXPECT_EQ(of(60.4F), minutes("1,00"));
    EXPECT_EQ(of(119.6F), minutes("2,00"));
    EXPECT_EQ(of(60.5F), minutes("1,00"));
    EXPECT_EQ(of(61.5F), minutes("1,03"));
}

TEST_F(Elapsed, KeepsThreeDecimalsOfSecondsWithoutTrailingZeros) {
    EXPECT_EQ(of(0), seconds("0"));
    EXPECT_EQ(of(0.0156F), seconds("0.016"));
    EXPECT_EQ(of(2.5F), seconds("2.5"));
    EXPECT_EQ(of(59.99951F), seconds("60"));
}

TEST_F(Elapsed, HasTheSignOfTheLocaleInSecondsAndACommaInMinutes) {
    machine.system.systemLocale = base::germanLocale();
    EXPECT_EQ(of(0.016F), seconds("0,016"));
    EXPECT_EQ(of(90), minutes("1,50"));
}

TEST_F(Elapsed, GoesNegativeOverMidnight) {
    EXPECT_EQ(of(-86390), seconds("-86390"));
}

TEST_F(Elapsed, IsMeasuredByTheSecondsSinceMidnight) {
    store({"chkLogTimestamp=1", "txtPurgeSpeed=0"});
    machine.clock.setNow({2009, 11, 3, 23, 59, 50});
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) machine.clock.advance(20000);
    });
    clean();
    EXPECT_TRUE(logHas(text(623) + " (-86380 " + text(583) + ")"));
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-04#\r\n#00:00:10#\r\n");
}

TEST_F(Elapsed, AtMidnightExactlyShowsTheDateAlone) {
    store({"chkLogTimestamp=1", "txtPurgeSpeed=0"});
    machine.clock.setNow({2009, 11, 4, 0, 0, 0});
    clean();
    EXPECT_EQ(logLines()[0], text(491) + " [0/64] " + text(492) + " 11/4/2009");
}

TEST_F(Elapsed, CountsThePausesOfTheWalk) {
    store({"chkLogTimestamp=1", "txtPurgeSpeed=1000"});
    clean();
    std::size_t lines = 0;
    for (const std::string& line : logLines()) {
        if (line.starts_with(std::string(25, '=') + " " + text(128))) break;
        ++lines;
    }
    EXPECT_TRUE(logHas(text(623) + " (" + app::elapsedText(program, static_cast<float>(lines)) + ")"));
}

}  // namespace tidvane::tests
