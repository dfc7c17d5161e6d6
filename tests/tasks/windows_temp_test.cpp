// The Windows temp folder, with and without the limit of age.
#include "tasks/task_fixture.h"
#include "tools/frmTempAge.h"

namespace tidvane::tests {

namespace {
constexpr int kStep = 16;
const std::string kTemp = "C:\\Windows\\Temp";
}  // namespace

struct WindowsTemp : TaskFixture {
    void put(const std::string& file, const base::DateTime& changed) {
        machine.files.putFile(kTemp + "\\" + file, "1");
        machine.files.setTime(kTemp + "\\" + file, base::toFileTime(changed));
    }
    void putOfAllAges() {
        put("today.tmp", {2009, 11, 3, 1, 0, 0});
        put("yesterday.tmp", {2009, 11, 2, 23, 59, 59});
        put("ten.tmp", {2009, 10, 24, 0, 0, 0});
        put("eleven.tmp", {2009, 10, 23, 23, 59, 59});
    }
    std::string left() {
        std::string names;
        for (const std::string& path : machine.files.everythingBelow(kTemp))
            names += path.substr(kTemp.size() + 1) + " ";
        return names;
    }
    tools::frmTempAge& filter() {
        start();
        return program.get<tools::frmTempAge>();
    }
    std::vector<std::string> runWithAge(const std::string& age) {
        filter().chkActivite.Value = 1;
        filter().txtAge.setText(age);
        return run(kStep);
    }
    std::string ageLine(const std::string& days) { return text(501) + " " + days + " " + text(502) + " <OK>"; }
    std::string counted(int files) {
        const std::string number = std::to_string(files);  // one byte each
        return name(kStep) + " " + number + " " + text(500) + " (" + number + " Byte)";
    }
};

TEST_F(WindowsTemp, IsPurgedWholeWithoutTheFilter) {
    putOfAllAges();
    EXPECT_EQ(run(kStep), (std::vector<std::string>{name(kStep) + ": " + kTemp, counted(4),
                                                    name(kStep) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(left(), "");
}

TEST_F(WindowsTemp, DoesNotLoadTheFilterWhileItIsUnticked) {
    run(kStep, 0);
    EXPECT_EQ(program.windows.ifLoaded("frmTempAge"), nullptr);
}

TEST_F(WindowsTemp, KeepsYoungFilesWithTheFilter) {
    putOfAllAges();
    EXPECT_EQ(runWithAge("10"), (std::vector<std::string>{name(kStep) + ": " + kTemp, counted(4), ageLine("10")}));
    EXPECT_EQ(left(), "ten.tmp today.tmp yesterday.tmp ");
    EXPECT_EQ(statusOf(kStep), text(507));
    EXPECT_EQ(iconOf(kStep), 9);
}

TEST_F(WindowsTemp, LogsTheAgeAlsoWhenNothingWasOldEnough) {
    put("today.tmp", {2009, 11, 3, 1, 0, 0});
    EXPECT_EQ(runWithAge("10").back(), ageLine("10"));
    EXPECT_EQ(left(), "today.tmp ");
    EXPECT_EQ(iconOf(kStep), 9);
}

TEST_F(WindowsTemp, SparesTodayAloneWithAnEmptyAgeOrZero) {
    for (const char* age : {"", "0"}) {
        putOfAllAges();
        EXPECT_EQ(runWithAge(age).back(), ageLine("0")) << age;
        EXPECT_EQ(left(), "today.tmp ") << age;
    }
}

TEST_F(WindowsTemp, ReadsTheAgeUpToTheComma) {
    for (const bool german : {false, true}) {
        if (german) machine.system.systemLocale = base::germanLocale();
        put("yesterday.tmp", {2009, 11, 2, 0, 0, 0});
        put("two.tmp", {2009, 11, 1, 0, 0, 0});
        EXPECT_EQ(runWithAge("1,5").back(), ageLine("1"));
        EXPECT_EQ(left(), "yesterday.tmp ");
    }
}

TEST_F(WindowsTemp, CutsThePartBehindAPoint) {
    put("yesterday.tmp", {2009, 11, 2, 0, 0, 0});
    EXPECT_EQ(runWithAge("0.9").back(), ageLine("0"));
    EXPECT_EQ(left(), "");
}

TEST_F(WindowsTemp, DeletesNothingWithAnAgeThatDoesNotFit) {
    putOfAllAges();
    put("ancient.tmp", {1601, 1, 2, 0, 0, 0});
    EXPECT_EQ(runWithAge("32768").back(), ageLine("32768"));
    EXPECT_EQ(left(), "ancient.tmp eleven.tmp ten.tmp today.tmp yesterday.tmp ");
    EXPECT_EQ(runWithAge("99999999999999999999").back().substr(0, text(501).size()), text(501));
    EXPECT_EQ(machine.files.everythingBelow(kTemp).size(), 5u);
}

TEST_F(WindowsTemp, TakesTheLargestAgeThatFits) {
    putOfAllAges();
    put("ancient.tmp", {1901, 1, 1, 0, 0, 0});
    EXPECT_EQ(runWithAge("32767").back(), ageLine("32767"));
    EXPECT_EQ(left(), "eleven.tmp ten.tmp today.tmp yesterday.tmp ");
}

TEST_F(WindowsTemp, IgnoresTheMethodWithTheFilter) {
    put("old.tmp", {2009, 1, 1, 0, 0, 0});
    main();
    options().cboKillMethod.setListIndex(1);
    runWithAge("10");
    EXPECT_EQ(left(), "");
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(WindowsTemp, ListsNoFilesWithTheFilter) {
    options().chkMoreLogDetails.Value = 1;
    putOfAllAges();
    EXPECT_EQ(runWithAge("10").size(), 3u);
}

TEST_F(WindowsTemp, ListsItsFilesWithoutTheFilter) {
    options().chkMoreLogDetails.Value = 1;
    putOfAllAges();
    const std::vector<std::string> lines = run(kStep);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[2], kTemp + "\\eleven.tmp <OK>");
}

TEST_F(WindowsTemp, GoesWithoutTheFilterWhenItIsGreyed) {
    putOfAllAges();
    filter().chkActivite.Value = 2;
    EXPECT_EQ(run(kStep).back(), name(kStep) + " " + text(504) + " <OK>");
    EXPECT_EQ(left(), "");
}

TEST_F(WindowsTemp, IsNotFoundWhenItIsMissing) {
    machine.files.take(kTemp);
    EXPECT_EQ(runWithAge("10"), std::vector<std::string>{name(kStep) + " <Nicht gefunden>"});
    EXPECT_EQ(statusOf(kStep), text(498));
    EXPECT_EQ(iconOf(kStep), 10);
}

TEST_F(WindowsTemp, FilterDoesNotTouchTheUsersFolder) {
    filter().chkActivite.Value = 1;
    machine.files.putFile("C:\\Users\\Anna\\AppData\\Local\\Temp\\young.tmp", "1");
    run(17);
    EXPECT_FALSE(machine.files.has("C:\\Users\\Anna\\AppData\\Local\\Temp\\young.tmp"));
}

TEST_F(WindowsTemp, FilterSurvivesARestart) {
    {
        AppFixtureRun first;
        first.program.get<tools::frmTempAge>().chkActivite.Value = 1;
        first.program.get<tools::frmTempAge>().txtAge.setText("3");
        first.program.get<tools::frmTempAge>().cmdOK.press();
        machine.files.putFile(inFolder("td_config.ini"), *first.machine.files.bytesOf(inFolder("td_config.ini")));
    }
    EXPECT_EQ(filter().chkActivite.Value, 1);
    EXPECT_EQ(filter().txtAge.Text(), "3");
    EXPECT_TRUE(filter().txtAge.Enabled);
}

}  // namespace tidvane::tests
