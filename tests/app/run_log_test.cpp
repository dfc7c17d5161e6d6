// The log of a run, line by line.
#include <algorithm>
#include <initializer_list>

#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {
std::string ruled(int before, const std::string& text, int behind) {
    return std::string(static_cast<std::size_t>(before), '=') + " " + text + " " +
           std::string(static_cast<std::size_t>(behind), '=');
}
const std::string kWide(116, '-');
}  // namespace

struct RunLog : AppFixture {
    RunLog() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }

    std::string head(int rows) {
        return text(491) + " [" + std::to_string(rows) + "/64] " + text(492) + " 11/3/2009 12:00:00 PM";
    }
    // What the walk logs with nothing ticked: the search and the clearing of all traces are silent.
    // The Office tasks have names of their own for this.
    std::string unticked(const tasks::CleaningTask& task) {
        if (task.group != tasks::Group::Office) return tasks::taskName(program, task) + " " + text(509);
        const char* labels[] = {"Access", "Excel", "PowerPoint", "Word", "FrontPage"};
        return std::string("Microsoft Office ") + labels[task.step - 57] + " History " + text(509);
    }

    std::vector<std::string> untickedWalk() {
        std::vector<std::string> lines{text(524) + " " + text(509), text(527) + " " + text(509)};
        for (const tasks::CleaningTask& task : app::taskCatalogue()) {
            if (task.step >= 4 && task.step <= 61 && task.step != 24) {
                lines.push_back(unticked(task));
            }
        }
        lines.push_back(ruled(22, text(104), 25));
        lines.push_back(text(553) + " ...");
        lines.push_back(text(558));
        return lines;
    }
    std::vector<std::string> summary(int rows, const std::string& time) {
        return {ruled(25, text(128), 27), text(605) + " " + std::to_string(rows) + " (" + text(557) + " 64)",
                ruled(25, text(490), 27), text(623) + " (" + time + ")"};
    }
    std::vector<std::string> diskBlockWithoutGain() {
        return {ruled(24, text(432), 25), text(433) + " C:\\ 100", kWide, text(437), kWide};
    }
    static std::vector<std::string> join(std::initializer_list<std::vector<std::string>> parts) {
        std::vector<std::string> all;
        for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
};

TEST_F(RunLog, WithNothingTickedNamesEveryTaskAndEndsAsUsual) {
    clean();
    EXPECT_EQ(logLines(), join({{head(0), text(730) + ": " + text(732)},
                                untickedWalk(),
                                summary(0, "0 " + text(583)),
                                diskBlockWithoutGain()}));
    EXPECT_EQ(panel(1), text(624) + ": 11/3/2009 12:00:00 PM");
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-03#\r\n#12:00:00#\r\n");
}

TEST_F(RunLog, WithNothingTickedShowsTwoBoxesFirst) {
    store({"chkHideAlertMessage=1"});  // hides neither
    int rowsAtFirstBox = -1;
    std::string logAtFirstBox;
    main();
    display.whileBoxIsUp = [&](const ScriptedDisplay::Box&) {
        if (rowsAtFirstBox < 0) logAtFirstBox = main().txtLog.Text();
        rowsAtFirstBox = main().lstTasks.Count();
    };
    clean();
    ASSERT_EQ(display.boxes.size(), 2u);
    EXPECT_EQ(display.boxes[0].text, text(618));
    EXPECT_EQ(display.boxes[0].title, text(619));
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
    EXPECT_EQ(display.boxes[1].text, text(620));
    EXPECT_EQ(display.boxes[1].title, text(621));
    EXPECT_EQ(display.boxes[1].style, forms::msgbox::Information);
    // The old log is emptied behind the boxes.
    EXPECT_NE(logAtFirstBox.find(text(568)), std::string::npos);
}

TEST_F(RunLog, ShowsNoBoxWithAPlugInTicked) {
    machine.files.putFile(inFolder("PlugIns\\a.tdp"));
    main().LstPlugs.setSelected(0, true);
    clean();
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(RunLog, ReadsInEnglish) {
    tick(options().chkRunList);
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU");
    clean();
    EXPECT_EQ(logLines()[0], "Cleaning tasks [1/64] started on 11/3/2009 12:00:00 PM");
    EXPECT_EQ(logLines()[1], "Removal method: Delete");
    EXPECT_TRUE(logHas(text(203) + " cleared <OK>"));
    EXPECT_TRUE(logHas("Tasks in the list: 1 (of 64)"));
    EXPECT_TRUE(logHas("Cleaning finished (0 seconds)"));
    EXPECT_TRUE(logHas("========================= Summary ==========================="));
    EXPECT_TRUE(logHas("========================= Result ==========================="));
    EXPECT_TRUE(logHas("======================== Disk space ========================="));
}

TEST_F(RunLog, TellsWhatTickedTasksDidInTheirPlaces) {
    store({"chkRecentDocuments=1", "chkRunList=1", "chkClipboard=1", "chkTempFolder=1"});
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU");
    machine.files.putFile("C:\\Windows\\Temp\\a.tmp", std::string(1000, 'x'));
    machine.files.putFile("C:\\Windows\\Temp\\deep\\b.tmp", std::string(24, 'x'));
    clean();
    std::vector<std::string> walk = untickedWalk();
    const auto replace = [&](int name, const std::vector<std::string>& by) {
        const auto place = std::find(walk.begin(), walk.end(), text(name) + " " + text(509));
        ASSERT_NE(place, walk.end());
        walk.insert(walk.erase(place), by.begin(), by.end());
    };
    replace(200, {text(200) + " " + text(499)});
    replace(203, {text(203) + " " + text(504) + " <OK>"});
    replace(211, {text(211) + " " + text(504) + " <OK>"});
    replace(212, {text(212) + ": C:\\Windows\\Temp", text(212) + " 2 " + text(500) + " (1.00 KB)",
                  text(212) + " " + text(504) + " <OK>"});
    std::vector<std::string> lines = logLines();
    // The disk block tells the drive's figures; it has its own tests.
    lines.resize(lines.size() - 5);
    EXPECT_EQ(lines, join({{head(4), text(730) + ": " + text(732)}, walk, summary(4, "0 " + text(583))}));
    EXPECT_EQ(status(text(200)), text(508));
    EXPECT_EQ(icon(text(200)), 10);
    EXPECT_EQ(status(text(212)), text(507));
    EXPECT_EQ(icon(text(212)), 9);
}

TEST_F(RunLog, NamesTheChosenMethod) {
    for (int method = 0; method < 3; ++method) {
        AppFixtureRun fresh;
        fresh.store({"chkLogTimestamp=1", "cboKillMethod=" + std::to_string(method)});
        fresh.clean();
        EXPECT_EQ(fresh.logLines()[1], fresh.text(730) + ": " + fresh.text(732 + method));
    }
}

TEST_F(RunLog, NamesNoMethodWhereTheTextIsNone) {
    main();
    // The entries change under a loaded window.
    for (const int entry : {732, 733, 734}) program.LangText.set(entry, "other");
    clean();
    EXPECT_FALSE(logLines()[1].starts_with(text(730)));
}

TEST_F(RunLog, NamesTheFirstOfEqualMethods) {
    main();
    program.LangText.set(733, text(732));
    options().cboKillMethod.setText(text(732));
    clean();
    EXPECT_EQ(logLines()[1], text(730) + ": " + text(732));
}

TEST_F(RunLog, BeginsAnewWithEachRun) {
    clean();
    const auto first = logLines();
    clean();
    EXPECT_EQ(logLines().size(), first.size());
    EXPECT_EQ(logLines().front(), head(0));
}

TEST_F(RunLog, ShowsTheBeginningInPanelOneWithoutABlankBeforeTheCount) {
    std::string atFirstStep;
    main().stepDone.connect([&](const app::StepResult& step) {
        if (step.task->step == 1) atFirstStep = panel(1);
    });
    clean();
    EXPECT_EQ(atFirstStep, text(493) + "...[0/64]");
}

TEST_F(RunLog, PaysThePauseForEveryLineAndEveryTickedTask) {
    store({"chkLogTimestamp=1", "txtPurgeSpeed=7", "chkRunList=1", "chkClipboard=1"});
    main();
    const std::uint64_t before = machine.clock.sleeps;
    clean();
    EXPECT_EQ(machine.clock.sleeps - before, logLines().size() + 2);
}

TEST_F(RunLog, NeedsNoPauseToStand) {
    for (const char* speed : {"", "abc", "-5", "0"}) {
        AppFixtureRun fresh;
        fresh.main();
        fresh.options().txtPurgeSpeed.setText(speed);
        const std::uint64_t before = fresh.machine.clock.sleeps;
        fresh.tick(fresh.options().chkClipboard);
        fresh.clean();
        EXPECT_EQ(fresh.machine.clock.sleeps, before) << speed;
        EXPECT_EQ(fresh.status(fresh.text(211)), fresh.text(507));
    }
}

struct GermanRun : RunLog {
    GermanRun() { speakGerman(); }
};

TEST_F(GermanRun, StandsLineByLineInTheSameOrder) {
    clean();
    EXPECT_EQ(logLines(),
              join({{text(491) + " [0/64] " + text(492) + " 03.11.2009 12:00:00", text(730) + ": " + text(732)},
                    untickedWalk(),
                    summary(0, "0 " + text(583)),
                    diskBlockWithoutGain()}));
    EXPECT_NE(text(509), AppFixtureRun().text(509));
}

TEST_F(GermanRun, WritesNumbersAndDatesInGermanForm) {
    store({"chkTempFolder=1", "chkTrash=1"});
    machine.files.putFile("C:\\Windows\\Temp\\Übung.tmp", std::string(1500, 'x'));
    machine.shell.putRecycled("C:\\a.txt", std::string(1572864, 'x'));
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) machine.clock.advance(1234);
    });
    clean();
    EXPECT_EQ(logLines()[0], text(491) + " [2/64] " + text(492) + " 03.11.2009 12:00:00");
    EXPECT_TRUE(logHas(text(212) + " 1 " + text(500) + " (1,46 KB)"));
    EXPECT_TRUE(logHas(text(210) + " 1 " + text(500) + " (1,50 MB)"));
    EXPECT_TRUE(logHas(text(623) + " (1,234 " + text(583) + ")"));
    EXPECT_EQ(panel(1), text(624) + ": 03.11.2009 12:00:01");
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-03#\r\n#12:00:01#\r\n");
}

TEST_F(GermanRun, ReadsTheLastRunInGermanForm) {
    main();
    EXPECT_EQ(panel(1), "02.11.2009 " + text(153) + " 07:05:09");
}

TEST_F(GermanRun, WritesTheMinutesWithAComma) {
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) machine.clock.advance(90000);
    });
    clean();
    EXPECT_TRUE(logHas(text(623) + " (1,50 " + text(584) + " )"));
}

}  // namespace tidvane::tests
