// The pass over the ticked plug-ins, as the last step of a run and alone.
#include "app/disk_statistics.h"
#include "app/frmDiskSizeStats.h"
#include "base/runtime_error.h"
#include "settings/frmMoreToConfigure.h"
#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

using Lines = std::vector<std::string>;

struct PlugInPass : tests::AppFixture {
    PlugInPass() {
        store({"chkLogTimestamp=1", "txtPurgeSpeed=0"});
        machine.files.putFolder("C:\\Data");
    }

    void putPlug(const std::string& name, const Lines& lines) {
        std::string bytes;
        for (const std::string& line : lines) bytes += line + "\r\n";
        machine.files.putFile(inFolder("PlugIns\\" + name + ".tdp"), bytes);
    }
    // A plug-in with a title that deletes one file of its own name.
    void putSimple(const std::string& name) {
        putPlug(name, {"[Info]", "Title=The " + name, "[FILES]", "1=DEL_FILE|C:\\Data\\" + name + ".tmp"});
        machine.files.putFile("C:\\Data\\" + name + ".tmp", "x");
    }
    bool ran(const std::string& name) { return !machine.files.has("C:\\Data\\" + name + ".tmp"); }
    void tickAll() { main().menu("mnuSelectAllPlugs").Click(); }

    std::string head() { return "====================== " + text(104) + " ========================="; }
    Lines opening() { return {head(), text(553) + " ..."}; }
    std::string done(const std::string& title) { return text(503) + ": " + title + " <OK>"; }
    Lines closing(int ticked, int all) {
        return {head(), text(556) + ": " + std::to_string(ticked) + " (" + text(557) + " " + std::to_string(all) + ")"};
    }
    Lines stopped() { return {head(), "***** " + text(554) + " *****"}; }
    static Lines join(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
    // The pass alone, with an empty log in front of it.
    Lines pass() {
        main().log().empty();
        main().CleanPlugins();
        return logLines();
    }
    // Every text that panel 1 has shown.
    Lines panels;
    void watchPanel() {
        main().StatusBar1.viewChanged.connect([this] {
            if (panels.empty() || panels.back() != panel(1)) panels.push_back(panel(1));
        });
    }
    void click(const char* menu) { main().menu(menu).Click(); }
};

TEST_F(PlugInPass, WithNothingTickedWritesOneLineBehindTheHead) {
    putSimple("a");
    EXPECT_EQ(pass(), join({opening(), {text(558)}}));
    EXPECT_EQ(panel(1), text(558));
    EXPECT_FALSE(ran("a"));
    machine.files.take(inFolder("PlugIns"));
    click("mnuRefreshPlugs");
    EXPECT_EQ(pass(), join({opening(), {text(558)}})) << "nor without a plug-in at all";
}

TEST_F(PlugInPass, RunsTheTickedOnesInTheOrderOfTheList) {
    for (const char* name : {"b", "a", "c"}) putSimple(name);
    tickAll();
    main().LstPlugs.setSelected(1, false);
    watchPanel();
    EXPECT_EQ(pass(), join({opening(), {done("The a"), done("The c")}, closing(2, 3)}));
    EXPECT_TRUE(ran("a"));
    EXPECT_FALSE(ran("b"));
    EXPECT_TRUE(ran("c"));
    const std::string running = text(555) + ": ";
    EXPECT_EQ(panels,
              (Lines{running + "The a ...", running + "The a <OK>", running + "The c ...", running + "The c <OK>"}));
    EXPECT_TRUE(main().LstPlugs.Selected(0)) << "ticks stay";
}

TEST_F(PlugInPass, ReadsAsTheUserSeesIt) {
    putSimple("a");
    tickAll();
    EXPECT_EQ(pass(),
              (Lines{"====================== Applications =========================",
                     "Running the selected plug-ins ...", "Cleaning: The a <OK>",
                     "====================== Applications =========================", "Plug-ins executed: 1 (of 1)"}));
}

TEST_F(PlugInPass, APlugInWithoutATitleLeavesAGap) {
    putPlug("a", {"[FILES]", "1=DEL_FILE|C:\\Data\\none"});
    tickAll();
    EXPECT_EQ(pass(), join({opening(), {text(503) + ":  <OK>"}, closing(1, 1)}));
}

TEST_F(PlugInPass, AFileThatHasGoneCountsAndIsNotMentioned) {
    putSimple("a");
    putSimple("b");
    tickAll();
    machine.files.take(inFolder("PlugIns\\a.tdp"));
    watchPanel();
    EXPECT_EQ(pass(), join({opening(), {done("The b")}, closing(2, 2)}));
    EXPECT_EQ(panels.size(), 2u);
    machine.files.take(inFolder("PlugIns\\b.tdp"));
    EXPECT_EQ(pass(), join({opening(), closing(2, 2)}));
}

TEST_F(PlugInPass, AFolderOfThatNameCountsAndIsNotMentioned) {
    machine.files.putFolder(inFolder("PlugIns\\x.tdp"));
    tickAll();
    EXPECT_EQ(pass(), join({opening(), closing(1, 1)}));
}

TEST_F(PlugInPass, AStopBeforeItIsSeenBehindTheFirstTickedOne) {
    for (const char* name : {"a", "b"}) putSimple(name);
    tickAll();
    main().cmdStop_Click();
    EXPECT_EQ(pass(), join({opening(), stopped()}));
    EXPECT_TRUE(ran("a"));
    EXPECT_FALSE(ran("b"));
    EXPECT_EQ(panel(1), "***** " + text(554) + "*****");
}

TEST_F(PlugInPass, AStopBehindAPlugInWaitsForTheNextOne) {
    for (const char* name : {"a", "b", "c"}) putSimple(name);
    tickAll();
    machine.events.onPump(1, [this] { main().cmdStop_Click(); });
    const std::string click = "***** " + text(554) + " *****";
    EXPECT_EQ(pass(), join({opening(), {click, done("The a")}, stopped()}));
    EXPECT_TRUE(ran("b")) << "it runs wholly, without its line";
    EXPECT_FALSE(ran("c"));
}

TEST_F(PlugInPass, AStopInsideAMaskIsSeenBehindThatPlugIn) {
    putPlug("a", {"[Info]", "Title=A", "[FILES]", "1=DEL_FILE|C:\\Data\\*.log", "2=DEL_FILE|C:\\Data\\last"});
    putSimple("b");
    for (const char* name : {"1.log", "2.log", "last"}) machine.files.putFile(std::string("C:\\Data\\") + name);
    tickAll();
    machine.events.onPump(1, [this] { main().cmdStop_Click(); });
    const std::string click = "***** " + text(554) + " *****";
    EXPECT_EQ(pass(), join({opening(), {click}, stopped()}));
    for (const char* name : {"1.log", "2.log", "last"}) {
        EXPECT_FALSE(machine.files.has(std::string("C:\\Data\\") + name)) << name;
    }
    EXPECT_FALSE(ran("b"));
}

TEST_F(PlugInPass, AStopInTheLastOneEndsWithoutASummary) {
    putPlug("a", {"[FILES]", "1=DEL_FILE|C:\\Data\\*.log"});
    machine.files.putFile("C:\\Data\\1.log");
    tickAll();
    machine.events.onPump(1, [this] { main().cmdStop_Click(); });
    EXPECT_EQ(pass(), join({opening(), {"***** " + text(554) + " *****"}, stopped()}));
}

TEST_F(PlugInPass, AStopBehindTheLastOneIsNotSeen) {
    putSimple("a");
    tickAll();
    machine.events.onPump(1, [this] { main().cmdStop_Click(); });
    EXPECT_EQ(pass(), join({opening(), {"***** " + text(554) + " *****", done("The a")}, closing(1, 1)}));
}

TEST_F(PlugInPass, AnEmptyLineEndsThePassAndLeavesVariablesSet) {
    putSimple("a");
    putPlug("b", {"[Info]", "Title=The b", "[VARIABLES]", "LEFT=x", "[FILES]", "1="});
    putSimple("c");
    tickAll();
    main().log().empty();
    EXPECT_THROW(main().CleanPlugins(), base::RuntimeError);
    EXPECT_EQ(logLines(), join({opening(), {done("The a")}})) << "no closing lines";
    EXPECT_EQ(panel(1), text(555) + ": The b ...");
    EXPECT_FALSE(ran("c"));
    EXPECT_EQ(machine.environment.get("LEFT"), "x");
}

TEST_F(PlugInPass, APurgeSpeedThatIsNoNumberEndsThePass) {
    putSimple("a");
    tickAll();
    for (const char* speed : {"", "fast", "99999999999"}) {
        options().txtPurgeSpeed.setText(speed);
        main().log().empty();
        EXPECT_THROW(main().CleanPlugins(), base::RuntimeError) << speed;
        EXPECT_EQ(logLines(), opening()) << "the lines themselves pass over it";
        EXPECT_EQ(panel(1), text(555) + ": The a ...");
        EXPECT_FALSE(ran("a"));
    }
    main().LstPlugs.setSelected(0, false);
    EXPECT_EQ(pass(), join({opening(), {text(558)}})) << "without a ticked one nobody waits";
}

TEST_F(PlugInPass, WaitsBeforeEachPlugInAndBehindEachLine) {
    for (const char* name : {"a", "b"}) putSimple(name);
    machine.files.putFolder(inFolder("PlugIns\\c.tdp"));
    tickAll();
    options().txtPurgeSpeed.setText("7");
    machine.clock.sleeps = 0;
    machine.clock.sleptMilliseconds = 0;
    (void)pass();
    EXPECT_EQ(machine.clock.sleeps, 2u + 2u * 2u + 2u);
    EXPECT_EQ(machine.clock.sleptMilliseconds, 8 * 7);
}

TEST_F(PlugInPass, ANegativePurgeSpeedDoesNotWait) {
    putSimple("a");
    tickAll();
    options().txtPurgeSpeed.setText("-5");
    machine.clock.sleeps = 0;
    EXPECT_EQ(pass().size(), 5u);
    EXPECT_EQ(machine.clock.sleeps, 0u);
}

TEST_F(PlugInPass, AListThatIsFilledAnewMeanwhileIsFollowed) {
    for (const char* name : {"a", "b", "c"}) putSimple(name);
    tickAll();
    machine.events.onPump(1, [this] {
        machine.files.take(inFolder("PlugIns\\b.tdp"));
        machine.files.take(inFolder("PlugIns\\c.tdp"));
        click("mnuRefreshPlugs");
    });
    EXPECT_NO_THROW((void)pass());
    EXPECT_TRUE(ran("a"));
    EXPECT_FALSE(ran("b"));
}

TEST_F(PlugInPass, APlugInWhoseRowMovesUpMeanwhileIsPassedOver) {
    for (const char* name : {"a", "b", "c"}) putSimple(name);
    tickAll();
    machine.events.onPump(1, [this] {
        machine.files.take(inFolder("PlugIns\\a.tdp"));
        click("mnuRefreshPlugs");
    });
    const Lines filled{text(576) + ": 2 " + text(577) + " <OK>"};
    // The title of a file that has gone is empty.
    EXPECT_EQ(pass(), join({opening(), filled, {done("")}, {done("The c")}, closing(2, 2)}));
    EXPECT_FALSE(ran("b"));
    EXPECT_TRUE(ran("c"));
    EXPECT_TRUE(main().LstPlugs.Selected(0)) << "it keeps its tick for the next run";
}

TEST_F(PlugInPass, EndsWithTheProgram) {
    for (const char* name : {"a", "b"}) putSimple(name);
    tickAll();
    main().log().empty();
    frmMain& window = main();
    machine.events.onPump(1, [this] { program.UnloadAllForms(); });
    window.CleanPlugins();
    EXPECT_TRUE(ran("a"));
    EXPECT_FALSE(ran("b"));
}

// Counted in operations on files: time depends on the machine.
TEST_F(PlugInPass, CostsTheSameForEachPlugInHoweverManyThereAre) {
    const auto cost = [this](int count) {
        for (int i = 0; i < count; ++i) {
            putPlug(std::to_string(i), {"[Info]", "Title=x", "[VARIABLES]", "WHERE=C:\\Data\\none", "[REGISTRY]",
                                        "1=HKEY_CURRENT_USER|Software\\none", "[FILES]", "1=DEL_FILE|%WHERE%\\*.tmp",
                                        "2=CLEAR_FOLDER|%WHERE%", "3=DEL_FILE|%WHERE%\\a.log"});
        }
        click("mnuRefreshPlugs");
        tickAll();
        const std::uint64_t before = machine.files.operations;
        EXPECT_EQ(pass().size(), static_cast<std::size_t>(count) + 4);
        return (machine.files.operations - before) / static_cast<std::uint64_t>(count);
    };
    const std::uint64_t few = cost(20);
    EXPECT_LE(few, 30u);
    EXPECT_EQ(cost(200), few);
}

// --- the last step of a run ------------------------------------------------------------------------------------------

TEST_F(PlugInPass, IsTheLastStepOfARun) {
    putSimple("a");
    tickAll();
    int lastStep = 0;
    platform::RemovalTotals removed;
    main().stepDone.connect([&](const StepResult& result) {
        lastStep = result.task->step;
        removed = result.removed;
    });
    clean();
    EXPECT_EQ(lastStep, 62);
    EXPECT_EQ(removed.files, 1u);
    EXPECT_TRUE(ran("a"));
    EXPECT_EQ(countOf(done("The a")), 1);
    EXPECT_TRUE(logHas(closing(1, 1)[1]));
    EXPECT_TRUE(logHas(text(623) + " (0 " + text(583) + ")"));
}

TEST_F(PlugInPass, TheCommandOfTheListDoesNothingInsideARun) {
    for (const char* name : {"a", "b"}) putSimple(name);
    tickAll();
    Lines before;
    Lines after;
    bool untouched = false;
    main().stepDone.connect([&](const StepResult& result) {
        if (result.task->step != 10) return;
        main().cmdStop_Click();
        before = logLines();
        click("mnuCleanPlugNow");
        after = logLines();
        untouched = main().StopRequested() && !main().cmdClean.Enabled && !ran("a");
    });
    clean();
    EXPECT_FALSE(before.empty());
    EXPECT_EQ(after, before);
    EXPECT_TRUE(untouched);
    EXPECT_EQ(countOf(text(553) + " ..."), 1) << "the last step's own";
    EXPECT_FALSE(ran("b")) << "the stop still holds";
}

TEST_F(PlugInPass, IsReportedAsTickedWhenAPlugInIs) {
    putSimple("a");
    bool ticked = true;
    main().stepDone.connect([&](const StepResult& result) {
        if (result.task->step == 62) ticked = result.ticked;
    });
    clean();
    EXPECT_FALSE(ticked);
    tickAll();
    clean();
    EXPECT_TRUE(ticked);
}

TEST_F(PlugInPass, ThatFailsLetsTheRunComeToItsEnd) {
    putPlug("a", {"[FILES]"});
    putSimple("b");
    tickAll();
    clean();
    EXPECT_FALSE(ran("b"));
    EXPECT_EQ(countOf(head()), 1);
    EXPECT_TRUE(logHas(text(623) + " (0 " + text(583) + ")"));
    EXPECT_TRUE(machine.files.has(inFolder("td_last.dat")));
}

TEST_F(PlugInPass, RunsOnceMoreInARunThatWasStopped) {
    for (const char* name : {"a", "b"}) putSimple(name);
    tickAll();
    main().stepDone.connect([&](const StepResult& result) {
        if (result.task->step == 10) main().cmdStop_Click();
    });
    clean();
    EXPECT_TRUE(ran("a"));
    EXPECT_FALSE(ran("b"));
    EXPECT_EQ(countOf("***** " + text(554) + " *****"), 2);
    EXPECT_FALSE(logHas(closing(2, 2)[1]));
}

// --- the command of the list -----------------------------------------------------------------------------------------

TEST_F(PlugInPass, AloneHasAShorterStartAndEnd) {
    putSimple("a");
    tickAll();
    program.get<settings::frmMoreToConfigure>().chkDisksizeInfo.Value = 0;
    main().SSTab1.offerOnly(frmMain::kPlugInsTab);
    main().log().empty();
    main().AddLogLine("an old line");
    main().txtLog.ForeColor = 0;
    machine.files.take(inFolder("td_last.dat"));
    display.topmost.clear();
    bool stopAllowed = false;
    bool cleanAllowed = true;
    bool pressed = true;
    machine.events.onPump(1, [&] {
        stopAllowed = main().cmdStop.Enabled;
        cleanAllowed = main().cmdClean.Enabled;
        pressed = main().cmdClean.Value;
    });
    click("mnuCleanPlugNow");
    const std::string wide(116, '-');
    EXPECT_EQ(logLines(), join({{"an old line"},
                                opening(),
                                {done("The a")},
                                closing(1, 1),
                                {"====================== " + text(432) + " =========================",
                                 text(433) + " C:\\ 100", wide, text(437), wide}}));
    EXPECT_TRUE(stopAllowed);
    EXPECT_FALSE(cleanAllowed);
    EXPECT_FALSE(pressed);
    EXPECT_EQ(panel(1), text(560));
    EXPECT_TRUE(main().cmdClean.Enabled);
    EXPECT_FALSE(main().cmdStop.Enabled);
    EXPECT_EQ(main().txtLog.ForeColor, 0x80000008u);
    EXPECT_EQ(main().SSTab1.Tab, frmMain::kCleaningTab) << "the list's page does not come back";
    EXPECT_FALSE(main().SSTab1.TabVisible(frmMain::kPlugInsTab));
    EXPECT_FALSE(machine.files.has(inFolder("td_last.dat")));
    EXPECT_EQ(display.topmost, (std::vector<std::pair<std::string, bool>>{{"frmMain", false}}));
    EXPECT_TRUE(display.sounds.empty());
    EXPECT_TRUE(machine.processes.started.empty());
    EXPECT_FALSE(display.wasShown("frmDiskSizeStats"));
}

TEST_F(PlugInPass, AloneClearsAnOldStop) {
    for (const char* name : {"a", "b"}) putSimple(name);
    tickAll();
    main().cmdStop_Click();
    click("mnuCleanPlugNow");
    EXPECT_TRUE(ran("b"));
    EXPECT_FALSE(main().StopRequested());
}

TEST_F(PlugInPass, AloneCanBeStopped) {
    for (const char* name : {"a", "b", "c"}) putSimple(name);
    tickAll();
    machine.events.onPump(1, [this] { main().cmdStop.press(); });
    click("mnuCleanPlugNow");
    EXPECT_TRUE(ran("b"));
    EXPECT_FALSE(ran("c"));
    EXPECT_EQ(panel(1), text(560));
    EXPECT_FALSE(main().cmdStop.Enabled);
    EXPECT_TRUE(logHas("====================== " + text(432) + " ========================="));
}

TEST_F(PlugInPass, AloneGoesOnBehindAnError) {
    putPlug("a", {"[FILES]"});
    tickAll();
    click("mnuCleanPlugNow");
    EXPECT_EQ(panel(1), text(560));
    EXPECT_TRUE(main().cmdClean.Enabled);
    EXPECT_FALSE(logHas(closing(1, 1)[1]));
    EXPECT_TRUE(logHas("====================== " + text(432) + " ========================="));
}

TEST_F(PlugInPass, AloneTellsTheGain) {
    putPlug("a", {"[FILES]", "1=DEL_FILE|C:\\Data\\big"});
    machine.files.putFileOfLength("C:\\Data\\big", std::uint64_t{512} << 20);
    tickAll();
    click("mnuCleanPlugNow");
    EXPECT_TRUE(logHas(text(434) + " 40 GB"));
    EXPECT_TRUE(logHas(text(435) + " 40.5 GB"));
    EXPECT_TRUE(logHas(text(436) + " 512.00 MB"));
}

TEST_F(PlugInPass, AlonePlaysTheSoundAndShowsTheResults) {
    options().chkPurgeSound.Value = 1;
    options().txtPurgeSound.setText("C:\\Windows\\Media\\ding.wav");
    program.get<settings::frmMoreToConfigure>().chkDisksizeInfo.Value = 1;
    main();
    display.shown.clear();
    click("mnuCleanPlugNow");
    EXPECT_EQ(display.sounds, Lines{"C:\\Windows\\Media\\ding.wav"});
    ASSERT_EQ(display.shown.size(), 1u);
    EXPECT_EQ(display.shown[0].window, "frmDiskSizeStats");
    EXPECT_EQ(display.shown[0].owner, "frmMain");
    EXPECT_FALSE(display.shown[0].modal);
}

TEST_F(PlugInPass, AloneOpensAndEmptiesTheRecycleBin) {
    options().cboKillMethod.setListIndex(1);
    options().chkOpenRecycleBinAsPreview.Value = 1;
    machine.shell.confirmsEmptying = true;
    putSimple("a");
    click("mnuRefreshPlugs");
    tickAll();
    display.topmost.clear();
    click("mnuCleanPlugNow");
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "explorer.exe ::{645FF040-5081-101B-9F08-00AA002F954E}");
    EXPECT_EQ(display.topmost, (std::vector<std::pair<std::string, bool>>{{"frmMain", true}, {"frmMain", false}}));
    EXPECT_EQ(machine.shell.emptiedRoots, Lines{""});
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(PlugInPass, AloneDoesNotStartInsideItself) {
    putSimple("a");
    tickAll();
    machine.events.onPump(1, [this] { click("mnuCleanPlugNow"); });
    click("mnuCleanPlugNow");
    EXPECT_EQ(countOf(done("The a")), 1);
    EXPECT_EQ(countOf(text(553) + " ..."), 1);
}

}  // namespace
}  // namespace tidvane::app
