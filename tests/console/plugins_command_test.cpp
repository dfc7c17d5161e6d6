#include <gtest/gtest.h>

#include "console/plug_in_choice.h"
#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

constexpr const char* kPlugIn =
    "[Info]\r\nTitle=Cache of Foo\r\nAuthor=Anna\r\nDescription=Leert den Cache\r\nDescription2=Empties the cache\r\n"
    "Warning=Langsam\r\nWarning2=Slow\r\n[FILES]\r\na=DEL_FILE|C:\\Foo\\*.tmp\r\n";

class PluginsCommand : public ::testing::Test {
protected:
    PluginsCommand() {
        putPlugIn("Foo cache");
        putPlugIn("bar.history");
        putPlugIn("Third");
    }
    void putPlugIn(const std::string& name, const std::string& text = kPlugIn) {
        machine.memory.files.putFile(kProgramFolder + "PlugIns\\" + name + ".tdp", text);
    }
    int plugins(PluginsOptions list = {}) {
        options.pluginList = std::move(list);
        machine.out.str({});
        machine.err.str({});
        return pluginsCommand(machine.session, options);
    }
    [[nodiscard]] std::string ticks() const {
        return machine.memory.files.bytesOf(kProgramFolder + "td_apps.ini").value_or("none");
    }

    tests::MemorySession machine;
    Options options;
};

TEST_F(PluginsCommand, ListsNamesTicksAndTitles) {
    machine.memory.files.putFile(kProgramFolder + "td_apps.ini", "[PlugIns]\r\nbar.history=True\r\nThird=0\r\n");
    EXPECT_EQ(plugins(), exit_status::Done);
    EXPECT_EQ(machine.log(),
              "Ticked  Name         Title\n"
              "yes     bar.history  Cache of Foo\n"
              "no      Foo cache    Cache of Foo\n"
              "no      Third        Cache of Foo\n");
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(PluginsCommand, ShowsNoControlCharacterOfANameOrAText) {
    putPlugIn("bad\x1B[2J",
              "[Info]\r\nTitle=T\x1B[2J\r\nAuthor=A\x07\r\nDescription2=D\x1B\r\nWarning2=W\x08\r\n[FILES]\r\n");
    EXPECT_EQ(plugins(), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "no      bad?[2J      T?[2J\n")) << machine.log();
    EXPECT_EQ(plugins({{}, {}, {"bad\x1B[2J"}}), exit_status::Done) << machine.messages();
    EXPECT_EQ(machine.log(), "Title:       T?[2J\nAuthor:      A?\nDescription: D?\nWarning:     W?\n");
    EXPECT_EQ(plugins({{}, {}, {"bad"}}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "did you mean \"bad?[2J\"")) << machine.messages();
}

TEST_F(PluginsCommand, ListsNoneWhereThereIsNoFolder) {
    machine.memory.files.take(kProgramFolder + "PlugIns");
    EXPECT_EQ(plugins(), exit_status::Done);
    EXPECT_EQ(machine.log(), "Ticked  Name  Title\n");
}

TEST_F(PluginsCommand, ListsAFolderThatIsCalledLikeAPlugIn) {
    machine.memory.files.putFolder(kProgramFolder + "PlugIns\\x.tdp");
    EXPECT_EQ(plugins(), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "no      x            (no file that can be read)\n"));
    EXPECT_EQ(plugins({{}, {}, {"x"}}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "\"x\" is no file"));
}

TEST_F(PluginsCommand, StoresATickAtOnceAndTouchesNoOther) {
    machine.memory.files.putFile(kProgramFolder + "td_apps.ini", "[PlugIns]\r\nThird=True\r\nGone=1\r\n");
    EXPECT_EQ(plugins({{"foo CACHE"}, {}, {}}), exit_status::Done) << machine.messages();
    EXPECT_EQ(ticks(), "[PlugIns]\r\nThird=True\r\nGone=1\r\nFoo cache=1\r\n");
    EXPECT_TRUE(contains(machine.log(), "yes     Foo cache")) << "the list as it is now";
    EXPECT_EQ(plugins({{}, {"Foo cache", "Third"}, {}}), exit_status::Done);
    EXPECT_EQ(ticks(), "[PlugIns]\r\nThird=0\r\nGone=1\r\nFoo cache=0\r\n");
}

TEST_F(PluginsCommand, TicksAllAndThenUnticks) {
    EXPECT_EQ(plugins({{"all"}, {"Third"}, {}}), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "yes     bar.history"));
    EXPECT_TRUE(contains(machine.log(), "yes     Foo cache"));
    EXPECT_TRUE(contains(machine.log(), "no      Third"));
}

TEST_F(PluginsCommand, AStoredTickHoldsInARun) {
    machine.memory.files.putFile("C:\\Foo\\a.tmp", "x");
    plugins({{"Foo cache"}, {}, {}});
    EXPECT_EQ(machine.run({}), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has("C:\\Foo\\a.tmp"));
}

TEST_F(PluginsCommand, RefusesANameThatNoPlugInHas) {
    for (const PluginsOptions& wrong : {PluginsOptions{{"Third", "Fourth"}, {}, {}}, PluginsOptions{{}, {"bar"}, {}},
                                        PluginsOptions{{}, {}, {"all"}}, PluginsOptions{{""}, {}, {}}}) {
        EXPECT_EQ(plugins(wrong), exit_status::Usage);
        EXPECT_TRUE(contains(machine.messages(), "There is no plug-in \""));
        EXPECT_EQ(machine.log(), "");
        EXPECT_EQ(ticks(), "none");
    }
    plugins({{"bar"}, {}, {}});
    EXPECT_TRUE(contains(machine.messages(), "did you mean \"bar.history\"?"));
}

TEST_F(PluginsCommand, RefusesToStoreATickThatItsFileCannotHold) {
    for (const char* name : {"a=b", ";c", "[d]"}) {
        putPlugIn(name);
        EXPECT_EQ(plugins({{"Third", name}, {}, {}}), exit_status::Usage) << name;
        EXPECT_TRUE(contains(machine.messages(), "cannot be stored")) << name;
        EXPECT_EQ(ticks(), "none") << name;
    }
}

TEST_F(PluginsCommand, EndsWith4WhereTicksCannotBeStored) {
    machine.memory.files.putFile(kProgramFolder + "td_apps.ini", "[PlugIns]\r\n");
    machine.memory.files.lock(kProgramFolder + "td_apps.ini");
    EXPECT_EQ(plugins({{"Third"}, {}, {}}), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "could not be stored"));
}

TEST_F(PluginsCommand, ChangesNoTickBesideAnotherProgram) {
    machine.memory.processes.otherInstanceRuns = true;
    EXPECT_EQ(plugins({{"Third"}, {}, {}}), exit_status::MachineUnusable);
    EXPECT_EQ(plugins({{}, {"Third"}, {}}), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "already running"));
    EXPECT_EQ(ticks(), "none");
    EXPECT_EQ(plugins(), exit_status::Done) << "looking is allowed";
    EXPECT_EQ(plugins({{}, {}, {"Third"}}), exit_status::Done);
}

TEST_F(PluginsCommand, ShowsWhatAPlugInSaysInTheLanguageOfTheTexts) {
    EXPECT_EQ(plugins({{}, {}, {"foo cache"}}), exit_status::Done);
    EXPECT_EQ(machine.log(),
              "Title:       Cache of Foo\nAuthor:      Anna\nDescription: Empties the cache\nWarning:     Slow\n");
    machine.memory.files.putFile(kProgramFolder + "z.lng", "100 Deutsch 1.0\r\n");
    plugins({{}, {}, {"foo cache"}});
    EXPECT_TRUE(contains(machine.log(), "Description: Leert den Cache\nWarning:     Langsam\n"));
}

TEST_F(PluginsCommand, ShowsTheLanguageThatWasChosenInTheWindow) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmPlugsInfo]\r\nchkEnableEnglishPlugsDesc=0\r\n");
    plugins({{}, {}, {"foo cache"}});
    EXPECT_TRUE(contains(machine.log(), "Leert den Cache"));
    machine.memory.files.putFile(kProgramFolder + "z.lng", "100 Deutsch 1.0\r\n");
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmPlugsInfo]\r\nchkEnableEnglishPlugsDesc=1\r\n");
    plugins({{}, {}, {"foo cache"}});
    EXPECT_TRUE(contains(machine.log(), "Empties the cache"));
}

TEST_F(PluginsCommand, ShowsABadStoredValueNoHarm) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini",
                                 "[frmPlugsInfo]\r\nchkEnableEnglishPlugsDesc=bad\r\n");
    EXPECT_EQ(plugins({{}, {}, {"foo cache"}}), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "Title:       Cache of Foo"));
}

TEST_F(PluginsCommand, RunsOnePlugInForOneRunAlone) {
    machine.memory.files.putFile("C:\\Foo\\a.tmp", "x");
    for (const bool save : {false, true}) {
        Options run;
        run.plugins = {"FOO cache"};
        run.save = save;
        machine.memory.files.putFile("C:\\Foo\\a.tmp", "x");
        EXPECT_EQ(machine.run(run), exit_status::Done) << machine.messages();
        EXPECT_FALSE(machine.memory.files.has("C:\\Foo\\a.tmp"));
        EXPECT_EQ(ticks(), "none") << "never stored by a run";
        machine.memory.files.putFile("C:\\Foo\\a.tmp", "x");
        EXPECT_EQ(machine.run({}), exit_status::Done);
        EXPECT_TRUE(machine.memory.files.has("C:\\Foo\\a.tmp"));
    }
}

TEST_F(PluginsCommand, ARunRefusesANameThatNoPlugInHasBeforeItStarts) {
    machine.memory.files.putFile("C:\\Windows\\Temp\\a.tmp", "x");
    Options run;
    run.tick = {"chkTempFolder"};
    run.plugins = {"Foo cache", "Tird"};
    machine.err.str({});
    EXPECT_EQ(machine.run(run), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "did you mean \"Third\"?")) << machine.messages();
    EXPECT_TRUE(machine.memory.files.has("C:\\Windows\\Temp\\a.tmp"));
    EXPECT_EQ(machine.log(), "");
}

TEST(NearNames, HoldTheTextOrDifferInALetterOrTwo) {
    const std::vector<std::string> names{"Steam cache", "Slack cache", "Vivaldi", "npm cache", "pip cache"};
    EXPECT_EQ(nearNames(names, "STEAM"), std::vector<std::string>{"Steam cache"});
    EXPECT_EQ(nearNames(names, "vivladi"), std::vector<std::string>{"Vivaldi"});
    EXPECT_EQ(nearNames(names, "zzz"), std::vector<std::string>{});
    EXPECT_EQ(nearNames(names, " "), std::vector<std::string>{});
    EXPECT_EQ(nearNames({"a1", "a2", "a3", "a4", "a5", "a6"}, "a").size(), 5U);
}

}  // namespace
}  // namespace tidvane::console
