// What the lines of a plug-in do.
#include <fstream>

#include "base/runtime_error.h"
#include "platform/common/utf16.h"
#include "plugins/plug_in_fixture.h"

namespace tidvane::tests {
namespace {

using Paths = std::vector<std::string>;

struct PlugInCleaner : PlugInFixture {};
struct PlugInVariables : PlugInFixture {};
struct PlugInRegistry : PlugInFixture {};
struct PlugInFolders : PlugInFixture {};
struct PlugInStarts : PlugInFixture {};

// --- sections --------------------------------------------------------------------------------------------------------

TEST_F(PlugInCleaner, AnEmptyFileAndOneWithInfoAloneChangeNothing) {
    putFiles({"C:\\Data\\a.tmp"});
    start();
    const Paths before = machine.files.everythingBelow("C:\\");
    run({});
    run({"[Info]", "Title=x", "1=DEL_FILE|C:\\Data\\a.tmp"});
    run({"[Other]", "1=DEL_FILE|C:\\Data\\a.tmp"});
    machine.files.take(file);
    cleaner.PhasePlugInfo();
    machine.files.take(inFolder("PlugIns"));
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
}

TEST_F(PlugInCleaner, SectionNamesHaveNoCase) {
    putFiles({"C:\\Data\\a.tmp"});
    run({"[variables]", "where=C:\\Data", "[fiLes]", "1=DEL_FILE|%WHERE%\\a.tmp"});
    EXPECT_EQ(data(), Paths{});
}

TEST_F(PlugInCleaner, ASectionTwiceRunsTwiceOnTheFirstOnesLines) {
    run({"[FILES]", "1=RUN_FILE|C:\\a.exe?", "[FILES]", "1=RUN_FILE|C:\\b.exe?", "2=RUN_FILE|C:\\c.exe?"});
    ASSERT_EQ(machine.shell.started.size(), 2u);
    EXPECT_EQ(machine.shell.started[0].file, "C:\\a.exe");
    EXPECT_EQ(machine.shell.started[1].file, "C:\\a.exe");
}

TEST_F(PlugInCleaner, EqualKeysBothCountAndBothReadTheFirstValue) {
    putFiles({"C:\\Data\\b.tmp"});
    run({"[FILES]", "1=RUN_FILE|C:\\a.exe?", "1=DEL_FILE|C:\\Data\\b.tmp"});
    EXPECT_EQ(machine.shell.started.size(), 2u);
    EXPECT_TRUE(has("C:\\Data\\b.tmp"));
}

TEST_F(PlugInCleaner, AnEmptyValueInFilesEndsTheFileThere) {
    for (const char* empty : {"1=", "1=   ", "1=\"  \"", "1={ERR}"}) {
        putFiles({"C:\\Data\\a.tmp", "C:\\Data\\b.tmp"});
        EXPECT_THROW(run({"[VARIABLES]", "LEFT=x", "[FILES]", "0=DEL_FILE|C:\\Data\\a.tmp", empty,
                          "2=DEL_FILE|C:\\Data\\b.tmp"}),
                     base::RuntimeError)
            << empty;
        EXPECT_FALSE(has("C:\\Data\\a.tmp")) << empty;
        EXPECT_TRUE(has("C:\\Data\\b.tmp")) << empty;
        EXPECT_EQ(variable("LEFT"), "x") << "stays set";
        machine.environment.remove("LEFT");
    }
}

TEST_F(PlugInCleaner, TheErrorIsThatOfASubscript) {
    try {
        runLine("1=");
        FAIL();
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number, 9);
        EXPECT_EQ(error.source, "dPlugCleaner");
    }
}

TEST_F(PlugInCleaner, ASectionFilesWithoutEntriesEndsTheFileToo) {
    EXPECT_THROW(run({"[FILES]"}), base::RuntimeError);
    EXPECT_THROW(run({"[FILES]", "; 1=x", "no sign"}), base::RuntimeError);
    EXPECT_NO_THROW(run({"[VARIABLES]", "[REGISTRY]"}));
    EXPECT_NO_THROW(run({"[VARIABLES]", "a=", "[REGISTRY]", "1=", "2=  "}));
}

TEST_F(PlugInCleaner, AKeyThatWasCutReadsEmptyAndEndsTheFile) {
    Paths lines{"[FILES]"};
    for (int i = 0; i < 1000; ++i) lines.push_back("name" + std::to_string(10000 + i) + "x=DEL_FILE|C:\\Data\\none");
    lines[1] = "name10000x=DEL_FILE|C:\\Data\\a.tmp";
    lines[746] = "name10745x=DEL_FILE|C:\\Data\\late.tmp";
    putFiles({"C:\\Data\\a.tmp", "C:\\Data\\late.tmp"});
    EXPECT_THROW(run(lines), base::RuntimeError) << "8190 = 744 names of 11 bytes and 6 bytes";
    EXPECT_EQ(data(), Paths{"C:\\Data\\late.tmp"});
}

TEST_F(PlugInCleaner, VariablesOfARunThatAnErrorEndedGoWithTheNextRun) {
    EXPECT_THROW(run({"[VARIABLES]", "LEFT=x", "[FILES]"}), base::RuntimeError);
    EXPECT_EQ(variable("LEFT"), "x");
    run({"[VARIABLES]", "OTHER=y"});
    EXPECT_EQ(variable("LEFT"), "<none>");
    EXPECT_EQ(variable("OTHER"), "<none>");
}

// --- VARIABLES -------------------------------------------------------------------------------------------------------

TEST_F(PlugInVariables, LiveWhileTheFileRuns) {
    putFiles({"C:\\Data\\a.tmp"});
    run({"[VARIABLES]", "WHERE=C:\\Data", "[FILES]", "1=DEL_FILE|%where%\\a.tmp"});
    EXPECT_EQ(data(), Paths{});
    EXPECT_EQ(variable("WHERE"), "<none>");
}

TEST_F(PlugInVariables, SeeThoseOfEarlierLines) {
    putFiles({"C:\\Data\\deep\\a.tmp"});
    run({"[VARIABLES]", "LATE=%FIRST%\\no", "FIRST=C:\\Data", "SECOND= %FIRST%\\deep ", "[FILES]",
         "1=DEL_FILE|%SECOND%\\a.tmp", "2=RUN_FILE|C:\\%LATE%?"});
    EXPECT_EQ(data(), Paths{"C:\\Data\\deep\\"});
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].file, "C:\\%FIRST%\\no");
}

TEST_F(PlugInVariables, BelowTheirUseAreSetTooLate) {
    putFiles({"C:\\Data\\a.tmp"});
    run({"[FILES]", "1=DEL_FILE|%WHERE%\\a.tmp", "[VARIABLES]", "WHERE=C:\\Data"});
    EXPECT_TRUE(has("C:\\Data\\a.tmp"));
    EXPECT_EQ(variable("WHERE"), "<none>");
}

TEST_F(PlugInVariables, AnExistingOneIsGoneAfterTheRun) {
    start();
    ASSERT_NE(variable("TEMP"), "<none>");
    run({"[VARIABLES]", "temp=C:\\Data"});
    EXPECT_EQ(variable("TEMP"), "<none>");
}

TEST_F(PlugInVariables, AnEmptyValueIsSkippedAndDeletesNothing) {
    machine.environment.set("KEPT", "old");
    run({"[VARIABLES]", "KEPT=", "kept2=  "});
    EXPECT_EQ(variable("KEPT"), "old");
}

TEST_F(PlugInVariables, AnExpansionOfMoreThan255BytesIsEmpty) {
    putFiles({"C:\\Data\\a.tmp"});
    const std::string exactly = "C:\\" + std::string(251, 'x');  // 254 and the "?" that follows
    run({"[VARIABLES]", "LONG=" + std::string(251, 'x'), "[FILES]", "1=RUN_FILE|C:\\%LONG%?",
         "2=RUN_FILE|C:\\%LONG%y?"});
    ASSERT_EQ(machine.shell.started.size(), 1u) << "255 fit, 256 do not";
    EXPECT_EQ(machine.shell.started[0].file, exactly);
}

TEST_F(PlugInVariables, CountBytesOfTheCodePage) {
    run({"[VARIABLES]", "LONG=" + std::string(251, '\xE4'), "[FILES]", "1=RUN_FILE|C:\\%LONG%?"});
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(base::characterCount(machine.shell.started[0].file), 254u);
}

TEST_F(PlugInVariables, AnEmptyExpansionRemovesNothingWhateverTheCommand) {
    putFiles({"C:\\Data\\a.tmp", "C:\\a.tmp"});
    const Paths before = machine.files.everythingBelow("C:\\");
    const std::string longText(200, 'x');
    run({"[VARIABLES]", "L=" + longText, "EMPTY=%L%%L%", "[FILES]", "1=DEL_FOLDER|%L%%L%", "2=CLEAR_FOLDER|%L%%L%",
         "3=DEL_FILE|%L%%L%", "4=RUN_FILE|%L%%L%", "5=DEL_FOLDER|", "6=CLEAR_FOLDER|%EMPTY%",
         "7=DEL_FILE|%EMPTY%\\*.tmp", "8=CLEAR_FOLDER|%EMPTY%\\"});
    machine.files.take(file);
    machine.files.take(inFolder("PlugIns"));
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
    EXPECT_TRUE(warnedOf(platform::WarningKind::NotAbsolute));
    EXPECT_TRUE(machine.shell.started.empty());
}

TEST_F(PlugInVariables, AnUnknownOneStaysAsItStands) {
    putFiles({"C:\\Data\\%NO%\\a.tmp", "C:\\Data\\a.tmp"});
    runLine("1=DEL_FILE|C:\\Data\\%NO%\\a.tmp");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\%NO%\\", "C:\\Data\\a.tmp"}));
}

// What makes the variable TDV_A empty: lines of VARIABLES, and what the system has set before.
struct Emptied {
    const char* name;
    Paths lines;
    std::string before;
};
std::vector<Emptied> allEmptied() {
    const std::string half(200, 'x');
    return {{"two halves", {"TDV_B=" + half, "TDV_A=%TDV_B%%TDV_B%"}, "<none>"},
            {"its own text", {"TDV_A=" + std::string(256, 'x')}, "<none>"},
            {"cut at the longest value", {"TDV_A=" + std::string(2000, 'x')}, "<none>"},
            {"one of an empty one", {"TDV_B=" + half, "TDV_C=%TDV_B%%TDV_B%", "tdv_a=%tdv_c%"}, "<none>"},
            {"a part of an empty one", {"TDV_B=" + half, "TDV_C=%TDV_B%%TDV_B%", "TDV_A=%TDV_C%\\deep"}, "<none>"},
            {"one that the system has", {"TDV_B=" + half, "TDV_A=%TDV_B%%TDV_B%"}, "deep"},
            {"one that the system has in it", {"TDV_B=" + half, "TDV_A=%TDV_A%%TDV_B%%TDV_B%"}, "deep"},
            {"an empty one of the system", {"TDV_A=%TDV_E%"}, "deep"}};
}

TEST_F(PlugInVariables, WhereOneIsEmptiedNothingOfTheFolderAboveGoes) {
    // "deep" is what the system's own variable holds; the names with the percent signs are what stays unexpanded.
    const Paths files{"C:\\Data\\a.log",     "C:\\Data\\deep\\b.log",    "C:\\Data\\deep\\in\\c.log",
                      "C:\\Data\\in\\d.log", "C:\\Data\\%TDV_A%\\e.log", "C:\\Data\\%TDV_C%\\deep\\f.log"};
    const char* const places[] = {
        "%TDV_A%",           "%TDV_A%\\",          "%TDV_A%\\in",     "%TDV_A%in",          "in%TDV_A%",
        "%tdv_a%\\*.log",    "%TDV_A%*.log",       "%TDV_A%*",        "%TDV_A%\\a.log",     "%TDV_A%a.log",
        "in\\%TDV_A%",       "in\\%TDV_A%\\..",    "deep\\%TDV_A%\\", "in\\%TDV_A%\\d.log", "%TDV_A%\\..\\in",
        "100%\\%TDV_A%\\..", "%NO%%TDV_A%\\..\\in"};
    putFiles(files);
    start();
    const Paths before = data();
    for (const Emptied& emptied : allEmptied()) {
        for (const char* const command : {"CLEAR_FOLDER", "DEL_FOLDER", "DEL_FILE"}) {
            for (const int method : {0, 1, 2}) {
                for (const char* const place : places) {
                    machine.environment.set("TDV_E", "");
                    if (emptied.before != "<none>") machine.environment.set("TDV_A", emptied.before);
                    chooseMethod(method);
                    Paths lines{"[VARIABLES]"};
                    lines.insert(lines.end(), emptied.lines.begin(), emptied.lines.end());
                    lines.insert(lines.end(), {"[FILES]", std::string("1=") + command + "|C:\\Data\\" + place});
                    run(lines);
                    ASSERT_EQ(data(), before) << emptied.name << " " << command << " " << method << " " << place;
                    EXPECT_EQ(variable("TDV_A"), "<none>") << emptied.name;
                }
            }
        }
    }
}

TEST_F(PlugInVariables, WhereOneIsEmptiedTheOtherLinesGoOn) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\b.log"});
    run({"[VARIABLES]", "TDV_A=" + std::string(256, 'x'), "TDV_D=C:\\Data", "[FILES]",
         "1=DEL_FILE|C:\\Data\\%TDV_A%\\a.log", "2=DEL_FILE|%TDV_D%\\b.log", "3=RUN_FILE|C:\\Tools\\a.exe?%TDV_A%",
         "4=RUN_FILE|C:\\Tools\\b.exe?"});
    EXPECT_EQ(data(), Paths{"C:\\Data\\a.log"});
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].file, "C:\\Tools\\b.exe");
}

TEST_F(PlugInVariables, OneThatIsEmptiedBelowItsUseIsStillTheSystemsAbove) {
    machine.environment.set("TDV_A", "deep");
    putFiles({"C:\\Data\\deep\\b.log", "C:\\Data\\deep\\c.log"});
    run({"[FILES]", "1=DEL_FILE|C:\\Data\\%TDV_A%\\b.log", "[VARIABLES]", "TDV_A=" + std::string(256, 'x'), "[FILES]"});
    EXPECT_EQ(data(), (Paths{"C:\\Data\\deep\\", "C:\\Data\\deep\\c.log"}));
    EXPECT_EQ(variable("TDV_A"), "<none>") << "as every one that a plug-in names";
}

TEST_F(PlugInVariables, OneThatWasEmptiedIsTheSystemsAgainForTheNextFile) {
    // The error keeps the first file from deleting it.
    machine.environment.set("TDV_A", "deep");
    putFiles({"C:\\Data\\deep\\b.log"});
    EXPECT_THROW(run({"[VARIABLES]", "TDV_A=" + std::string(256, 'x'), "[FILES]"}), base::RuntimeError);
    EXPECT_EQ(variable("TDV_A"), "deep");
    runLine("1=DEL_FILE|C:\\Data\\%TDV_A%\\b.log");
    EXPECT_EQ(data(), Paths{"C:\\Data\\deep\\"});
    EXPECT_EQ(variable("TDV_A"), "<none>");
}

TEST_F(PlugInVariables, OneOf255BytesIsSet) {
    // The error keeps them from being deleted.
    EXPECT_THROW(run({"[VARIABLES]", "TDV_A=" + std::string(255, 'x'), "TDV_B=%TDV_A%", "TDV_C=%TDV_A%y", "[FILES]"}),
                 base::RuntimeError);
    EXPECT_EQ(variable("TDV_B"), std::string(255, 'x'));
    EXPECT_EQ(variable("TDV_C"), "<none>");
}

// --- REGISTRY --------------------------------------------------------------------------------------------------------

TEST_F(PlugInRegistry, TwoFieldsDeleteAKey) {
    putKey("Software\\X\\Y");
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER|Software\\X\\Y"});
    EXPECT_FALSE(hasKey("Software\\X\\Y"));
    EXPECT_TRUE(hasKey("Software\\X"));
}

TEST_F(PlugInRegistry, AKeyWithSubkeysStays) {
    putKey("Software\\X\\Y\\Z");
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER|Software\\X", "2=HKEY_CURRENT_USER|Software\\X\\Y\\Z",
         "3=HKEY_CURRENT_USER|Software\\X\\Y"});
    EXPECT_FALSE(hasKey("Software\\X\\Y")) << "the deepest first";
    EXPECT_TRUE(hasKey("Software\\X"));
}

TEST_F(PlugInRegistry, ThreeFieldsDeleteAValue) {
    putKey("Software\\X", 2);
    run({"[REGISTRY]", "1=hkey_current_user|Software\\X|VALUE0"});
    const platform::RegistryKeyPtr key = machine.registryTree.currentUser()->find("Software")->find("X");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(machine.removed.totals.values, 1u);
    EXPECT_EQ(machine.removed.totals.keys, 0u);
}

TEST_F(PlugInRegistry, AnEmptyThirdFieldIsTheDefaultValue) {
    putKey("Software\\X");
    const platform::RegistryKeyPtr key = machine.registryTree.currentUser()->find("Software")->find("X");
    key->setText("", "data");
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER|Software\\X|"});
    EXPECT_TRUE(hasKey("Software\\X"));
    ASSERT_EQ(key->values().size(), 1u);
    EXPECT_EQ(key->values()[0].name, "value0");
}

TEST_F(PlugInRegistry, OtherFieldCountsAndOtherRootsHaveNoEffect) {
    putKey("Software\\X", 2);
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER", "2=HKEY_CURRENT_USER|Software\\X|value0|more", "3=HKCU|Software\\X",
         "4=HKEY_CURRENT_USER |Software\\X", "5= HKEY_CURRENT_USER| Software\\X", "6=|Software\\X", "7=|||", "8=|",
         "9=HKEY_CURRENT_USER\\Software|X"});
    EXPECT_TRUE(hasKey("Software\\X"));
    EXPECT_EQ(machine.removed.totals, platform::RemovalTotals());
}

TEST_F(PlugInRegistry, NothingIsExpanded) {
    machine.environment.set("WHERE", "Software");
    putKey("Software\\X");
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER|%WHERE%\\X"});
    EXPECT_TRUE(hasKey("Software\\X"));
}

TEST_F(PlugInRegistry, ProtectedKeysStay) {
    // Without subkeys, so that nothing but the protection keeps them.
    const platform::RegistryKeyPtr user = machine.registryTree.currentUser();
    const platform::RegistryKeyPtr system = machine.registryTree.machine()->find("System");
    putKey("Software", 0);
    for (const platform::RegistryKeyPtr& key : {user->find("Software"), system}) {
        ASSERT_NE(key, nullptr);
        while (!key->children().empty()) key->children().back()->remove();
    }
    system->setText("value", "data");
    machine.warnings.clear();
    run({"[REGISTRY]", "1=HKEY_CURRENT_USER|", "2=HKEY_CURRENT_USER|Software", "3=HKEY_LOCAL_MACHINE|System",
         "4=HKEY_LOCAL_MACHINE|System|value", "5=HKEY_LOCAL_MACHINE|"});
    EXPECT_FALSE(user->deleted);
    EXPECT_TRUE(hasKey("Software"));
    EXPECT_EQ(machine.registryTree.machine()->find("System"), system);
    EXPECT_NE(system->findValue("value"), nullptr);
    EXPECT_EQ(machine.warnings.size(), 5u);
    EXPECT_EQ(machine.removed.totals.keys + machine.removed.totals.values, 0u);
}

TEST_F(PlugInRegistry, TheKeysThatTheDocumentationNamesStayUnderEachRootAndWhatLiesBelowGoes) {
    start();
    const std::string user = "User\\" + machine.registryTree.userSid();
    struct Root {
        std::string line;
        std::string place;  // in the tree
    };
    for (const Root& root :
         {Root{"HKEY_CURRENT_USER|", user}, Root{"HKEY_LOCAL_MACHINE|", "Machine"},
          Root{"HKEY_USERS|" + machine.registryTree.userSid() + "\\", user},
          Root{"HKEY_CURRENT_CONFIG|", "Machine\\System\\ControlSet001\\Hardware Profiles\\Current"}}) {
        for (const std::string path : {"Software", "System", "SAM", "Security", "Software\\Classes",
                                       "Software\\Wow6432Node", "Software\\Wow6432Node\\Classes"}) {
            // Without subkeys where that can be, so that nothing but the protection keeps it; it alone warns.
            const platform::RegistryKeyPtr key = machine.registryTree.make(root.place + "\\" + path);
            while (!key->children().empty()) key->children().back()->remove();
            machine.registryTree.make("Machine\\System\\ControlSet001\\Hardware Profiles\\Current");
            const platform::RegistryKeyPtr set = machine.registryTree.make("Machine\\System\\CurrentControlSet");
            while (!set->children().empty()) set->children().back()->remove();
            set->isLink = true;
            set->set("SymbolicLinkValue", platform::kRegLink,
                     platform::utf16leFromUtf8("\\Registry\\Machine\\System\\ControlSet001"));
            key->setText("value", "data");
            machine.warnings.clear();
            run({"[REGISTRY]", "1=" + root.line + path, "2=" + root.line + path + "|value"});
            EXPECT_FALSE(key->deleted) << root.line << path;
            EXPECT_NE(key->findValue("value"), nullptr) << root.line << path;
            EXPECT_EQ(machine.warnings.size(), 2u) << root.line << path;

            const platform::RegistryKeyPtr below = machine.registryTree.make(root.place + "\\" + path + "\\Below");
            run({"[REGISTRY]", "1=" + root.line + path + "\\Below"});
            EXPECT_TRUE(below->deleted) << root.line << path;
        }
    }
}

TEST_F(PlugInRegistry, KnowsTheRootsByTheirFullNames) {
    struct Root {
        const char* name;
        platform::HKey handle;
        std::string path;
    };
    start();
    std::string user;
    ASSERT_EQ(machine.registry.RegEnumKeyA(platform::HKEY_USERS_, 0, 256, user), 0);
    machine.registryTree.make("Machine\\System\\CurrentControlSet\\Hardware Profiles\\Current");
    for (const Root& root : {Root{"HKEY_CLASSES_ROOT", platform::HKEY_CLASSES_ROOT_, "Some\\Key"},
                             Root{"HKEY_CURRENT_USER", platform::HKEY_CURRENT_USER_, "Software\\Some\\Key"},
                             Root{"HKEY_LOCAL_MACHINE", platform::HKEY_LOCAL_MACHINE_, "Software\\Some\\Key"},
                             Root{"HKEY_USERS", platform::HKEY_USERS_, user + "\\Software\\Some\\Key"},
                             Root{"HKEY_CURRENT_CONFIG", platform::HKEY_CURRENT_CONFIG_, "Software\\Some\\Key"}}) {
        platform::HKey key = 0;
        bool created = false;
        ASSERT_EQ(machine.registry.RegCreateKeyExA(root.handle, root.path, platform::kKeyAllAccess, key, created), 0)
            << root.name;
        machine.registry.RegCloseKey(key);
        run({"[REGISTRY]", std::string("1=") + root.name + "|" + root.path});
        EXPECT_EQ(machine.registry.RegOpenKeyExA(root.handle, root.path, platform::kKeyAllAccess, key), 2) << root.name;
    }
    EXPECT_NO_THROW(run({"[REGISTRY]", "1=HKEY_DYN_DATA|x", "2=HKEY_PERFORMANCE_DATA|x"}));
}

TEST_F(PlugInRegistry, AMachineWithoutAHardwareProfileHasNothingBelowCurrentConfig) {
    putKey("Software\\X");
    run({"[REGISTRY]", "1=HKEY_CURRENT_CONFIG|Software\\X", "2=HKEY_CURRENT_CONFIG|Software\\X|value0"});
    EXPECT_TRUE(hasKey("Software\\X"));
    EXPECT_EQ(machine.removed.totals, platform::RemovalTotals());
    EXPECT_TRUE(machine.warnings.empty());
}

TEST_F(PlugInRegistry, NothingGoesThroughALinkOfCurrentConfigThatLeadsOut) {
    const platform::RegistryKeyPtr victim = machine.registryTree.make("Machine\\Software\\Victim");
    victim->setText("value", "data");
    machine.registryTree.make("Machine\\Software\\Victim\\Leaf");
    const platform::RegistryKeyPtr link =
        machine.registryTree.make("Machine\\System\\CurrentControlSet\\Hardware Profiles\\Current");
    link->isLink = true;
    link->set("SymbolicLinkValue", platform::kRegLink, platform::utf16leFromUtf8("\\Registry\\Machine\\Software"));
    run({"[REGISTRY]", "1=HKEY_CURRENT_CONFIG|Victim\\Leaf", "2=HKEY_CURRENT_CONFIG|Victim|value"});
    EXPECT_NE(victim->find("Leaf"), nullptr);
    EXPECT_NE(victim->findValue("value"), nullptr);
    EXPECT_EQ(machine.removed.totals.keys + machine.removed.totals.values, 0u);
    EXPECT_EQ(machine.removed.totals.failed, 2u);
}

// --- FILES: commands -------------------------------------------------------------------------------------------------

TEST_F(PlugInCleaner, CommandsHaveTwoSpellingsNoCaseAndOuterBlanks) {
    for (const char* command : {"DEL_FILE", "DELETEFILE", " del_file ", "DeleteFile "}) {
        putFiles({"C:\\Data\\a.tmp"});
        runLine(std::string("1=") + command + "|C:\\Data\\a.tmp");
        EXPECT_EQ(data(), Paths{}) << command;
    }
}

TEST_F(PlugInCleaner, ALineNeedsExactlyTwoFields) {
    putFiles({"C:\\Data\\a.tmp"});
    for (const char* line : {"1=DEL_FILE", "1=DEL_FILE|C:\\Data\\a.tmp|", "1=DEL_FILE|C:\\Data\\a.tmp|x", "1=|||",
                             "1=|C:\\Data\\a.tmp", "1=DELFILE|C:\\Data\\a.tmp", "1=DEL_FILE C:\\Data\\a.tmp"}) {
        EXPECT_NO_THROW(runLine(line)) << line;
        EXPECT_TRUE(has("C:\\Data\\a.tmp")) << line;
    }
}

TEST_F(PlugInCleaner, TheArgumentKeepsItsBlanks) {
    putFiles({"C:\\Data\\a.tmp"});
    runLine("1=DEL_FILE| C:\\Data\\a.tmp");
    EXPECT_TRUE(has("C:\\Data\\a.tmp")) << "a path with a blank in front is no full path";
}

// --- FILES: DEL_FILE -------------------------------------------------------------------------------------------------

TEST_F(PlugInCleaner, AMaskGoesFileByFileWithItsAttributesCleared) {
    putFiles(
        {"C:\\Data\\a.log", "C:\\Data\\b.log", "C:\\Data\\c.txt", "C:\\Data\\deep\\d.log", "C:\\Data\\hidden.log"});
    machine.files.putFolder("C:\\Data\\folder.log");
    machine.files.setAttributes("C:\\Data\\a.log", platform::attribute::ReadOnly);
    machine.files.setAttributes("C:\\Data\\hidden.log", platform::attribute::Hidden);
    start();
    const std::uint64_t before = machine.events.pumps;
    runLine("1=DEL_FILE|C:\\Data\\*.log");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\c.txt", "C:\\Data\\deep\\", "C:\\Data\\deep\\d.log", "C:\\Data\\folder.log\\",
                             "C:\\Data\\hidden.log"}));
    EXPECT_EQ(machine.events.pumps - before, 2u) << "events get in behind each file";
}

TEST_F(PlugInCleaner, StarDotStarIsAMaskToo) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\noextension"});
    runLine("1=DEL_FILE|C:\\Data\\*.*");
    EXPECT_EQ(data(), Paths{});
}

TEST_F(PlugInCleaner, AnyOtherMaskIsLeftToTheKillMethod) {
    putFiles({"C:\\Data\\a1.tmp", "C:\\Data\\a2.tmp", "C:\\Data\\b.tmp", "C:\\Data\\a3.tmp"});
    machine.files.setAttributes("C:\\Data\\a3.tmp", platform::attribute::ReadOnly);
    start();
    const std::uint64_t before = machine.events.pumps;
    runLine("1=DEL_FILE|C:\\Data\\a*.tmp");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\a3.tmp", "C:\\Data\\b.tmp"})) << "attributes of a mask cannot be cleared";
    EXPECT_EQ(machine.events.pumps, before);
}

TEST_F(PlugInCleaner, AllFilesOfAProtectedFolderByAnyOtherMaskStayUnderTheRecycleBinAlone) {
    for (const char* const mask : {"*", "?*", "**"}) {
        for (const int method : {0, 1, 2}) {
            for (const char* const folder : {"C:\\Windows\\", "C:\\Data\\"}) {
                const std::string plain = std::string(folder) + "a.log";
                const std::string hidden = std::string(folder) + "hidden.log";
                putFiles({plain, hidden});
                machine.files.setAttributes(hidden, platform::attribute::Hidden);
                const bool refused = method == 1 && folder == std::string("C:\\Windows\\");
                chooseMethod(method);
                machine.warnings.clear();
                runLine(std::string("1=DEL_FILE|") + folder + mask);
                EXPECT_EQ(has(plain), refused) << mask << method << folder;
                EXPECT_EQ(has(hidden), refused || method != 1) << mask << method << folder;
                EXPECT_EQ(warnedOf(platform::WarningKind::ProtectedPlace), refused) << mask << method << folder;
            }
        }
    }
    // File by file: "*." is walked.
    putFiles({"C:\\Windows\\a.log"});
    chooseMethod(1);
    runLine("1=DEL_FILE|C:\\Windows\\*.*");
    EXPECT_FALSE(has("C:\\Windows\\a.log"));
}

TEST_F(PlugInCleaner, OneFileLosesItsAttributesFirst) {
    putFiles({"C:\\Data\\a.tmp"});
    machine.files.setAttributes(
        "C:\\Data\\a.tmp", platform::attribute::ReadOnly | platform::attribute::Hidden | platform::attribute::System);
    runLine("1=DEL_FILE|C:\\Data\\a.tmp");
    EXPECT_EQ(data(), Paths{});
}

TEST_F(PlugInCleaner, AnArgumentWithoutABackslashReachesTheKillMethodDoubled) {
    runLine("1=DEL_FILE|x.tmp");
    ASSERT_FALSE(machine.warnings.empty());
    for (const platform::Warning& warning : machine.warnings) EXPECT_EQ(warning.target, "x.tmpx.tmp");
    EXPECT_TRUE(warnedOf(platform::WarningKind::NotAbsolute));
}

TEST_F(PlugInCleaner, ARelativeMaskMatchesNothing) {
    putFiles({"C:\\Data\\a.tmp", "C:\\a.tmp"});
    run({"[FILES]", "1=DEL_FILE|*.tmp", "2=DEL_FILE|\\*.tmp", "3=DEL_FILE|Data\\*.tmp", "4=DEL_FILE|C:*.tmp"});
    EXPECT_TRUE(has("C:\\Data\\a.tmp"));
    EXPECT_TRUE(has("C:\\a.tmp"));
}

TEST_F(PlugInCleaner, GoesByTheKillMethodAtEachFile) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\b.log", "C:\\Data\\c.log"});
    chooseMethod(1);
    machine.events.onPump(1, [this] { options().cboKillMethod.setListIndex(2); });
    runLine("1=DEL_FILE|C:\\Data\\*.log");
    EXPECT_EQ(data(), Paths{});
    ASSERT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\Data\\a.log");
    EXPECT_EQ(machine.files.overwritten.size(), 2u);
}

TEST_F(PlugInCleaner, AMaskThatIsLeftToTheKillMethodIsNotOverwritten) {
    putFiles({"C:\\Data\\a1.tmp"});
    chooseMethod(2);
    runLine("1=DEL_FILE|C:\\Data\\a*.tmp");
    EXPECT_EQ(data(), Paths{});
    EXPECT_TRUE(machine.files.overwritten.empty());
}

TEST_F(PlugInCleaner, AMaskThatIsLeftToTheRecycleBinTakesHiddenAndReadOnlyFilesToo) {
    putFiles({"C:\\Data\\a1.tmp", "C:\\Data\\a2.tmp", "C:\\Data\\b.tmp"});
    machine.files.setAttributes("C:\\Data\\a1.tmp", platform::attribute::Hidden);
    machine.files.setAttributes("C:\\Data\\a2.tmp", platform::attribute::ReadOnly);
    chooseMethod(1);
    runLine("1=DEL_FILE|C:\\Data\\a*.tmp");
    EXPECT_EQ(data(), Paths{"C:\\Data\\b.tmp"});
    EXPECT_EQ(machine.shell.recycled.size(), 2u);
}

TEST_F(PlugInCleaner, DelFileTakesAFolderUnderRecycleAlone) {
    for (const int method : {0, 2, 1}) {
        putFiles({"C:\\Data\\X\\a.log"});
        chooseMethod(method);
        runLine("1=DEL_FILE|C:\\Data\\X");
        EXPECT_EQ(has("C:\\Data\\X\\a.log"), method != 1) << method;
    }
    ASSERT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_TRUE(machine.shell.recycled[0].isFolder);
}

TEST_F(PlugInCleaner, RecycleDoesNotIgnoreErrors) {
    putFiles({"C:\\Data\\a.log"});
    chooseMethod(1);
    runLine("1=DEL_FILE|C:\\Data\\a.log");
    ASSERT_EQ(machine.shell.fileOperations.size(), 1u);
    EXPECT_EQ(machine.shell.fileOperations[0].fFlags, 0x554u);
}

TEST_F(PlugInCleaner, AnUnreadableKillMethodDeletesNoFile) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\deep\\b.log"});
    loseMethod();
    run({"[FILES]", "1=DEL_FILE|C:\\Data\\a.log", "2=DEL_FILE|C:\\Data\\*.log", "3=CLEAR_FOLDER|C:\\Data"});
    EXPECT_EQ(data(), (Paths{"C:\\Data\\a.log", "C:\\Data\\deep\\", "C:\\Data\\deep\\b.log"}));
}

TEST_F(PlugInCleaner, ALockedFileStaysAndTheOthersGo) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\b.log", "C:\\Data\\c.log"});
    machine.files.lock("C:\\Data\\b.log");
    runLine("1=DEL_FILE|C:\\Data\\*.log");
    EXPECT_EQ(data(), Paths{"C:\\Data\\b.log"});
}

TEST_F(PlugInCleaner, AFileThatTakesItselfAwayEndsThere) {
    putFiles({"C:\\Data\\a.log"});
    EXPECT_THROW(run({"[FILES]", "1=DEL_FILE|" + file, "2=DEL_FILE|C:\\Data\\a.log"}), base::RuntimeError);
    EXPECT_TRUE(has("C:\\Data\\a.log")) << "its second line can no longer be read";
}

TEST_F(PlugInCleaner, DoesNothingMoreOnceTheProgramHasEnded) {
    putFiles({"C:\\Data\\a.log", "C:\\Data\\b.log", "C:\\Data\\deep\\c.log"});
    machine.events.onPump(1, [this] { program.UnloadAllForms(); });
    start();
    put({"[FILES]", "1=DEL_FILE|C:\\Data\\*.log", "2=DEL_FOLDER|C:\\Data\\deep"});
    cleaner.PhasePlugInfo();
    EXPECT_EQ(data(), (Paths{"C:\\Data\\b.log", "C:\\Data\\deep\\", "C:\\Data\\deep\\c.log"}));
}

// --- FILES: folders --------------------------------------------------------------------------------------------------

TEST_F(PlugInFolders, DelFolderTakesTheFolderOutrightWhateverTheKillMethod) {
    for (const char* command : {"DEL_FOLDER", "DeleteAllRemoveSelf"}) {
        for (const int method : {0, 1, 2}) {
            putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log", "C:\\Data\\Xy\\kept.log"});
            machine.files.setAttributes("C:\\Data\\X\\a.log", platform::attribute::ReadOnly);
            chooseMethod(method);
            runLine(std::string("1=") + command + "|C:\\Data\\X");
            EXPECT_EQ(data(), (Paths{"C:\\Data\\Xy\\", "C:\\Data\\Xy\\kept.log"})) << command << method;
            EXPECT_TRUE(machine.shell.recycled.empty());
            EXPECT_TRUE(machine.files.overwritten.empty());
        }
    }
}

TEST_F(PlugInFolders, DelFolderWalksWhatItCouldNotTake) {
    putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\locked.log", "C:\\Data\\X\\deep\\b.log"});
    machine.files.lock("C:\\Data\\X\\locked.log");
    runLine("1=DEL_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\X\\", "C:\\Data\\X\\locked.log"}));
}

TEST_F(PlugInFolders, DelFolderWithATrailingBackslashLeavesTheFolderAlone) {
    putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log"});
    runLine("1=DEL_FOLDER|C:\\Data\\X\\");
    EXPECT_EQ(data(), Paths{"C:\\Data\\X\\"});
}

TEST_F(PlugInFolders, DelFolderTakesAMask) {
    putFiles({"C:\\Data\\cache1\\a", "C:\\Data\\cache2\\b", "C:\\Data\\other\\c", "C:\\Data\\cache3"});
    runLine("1=DEL_FOLDER|C:\\Data\\cache*");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\cache3", "C:\\Data\\other\\", "C:\\Data\\other\\c"}));
}

TEST_F(PlugInFolders, ClearFolderKeepsTheFolderAndGoesByTheKillMethod) {
    const auto fill = [this] {
        putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log", "C:\\Data\\X\\deep\\deeper\\c.log"});
    };
    for (const char* command : {"CLEAR_FOLDER", "DeleteAllBelow"}) {
        fill();
        chooseMethod(0);
        runLine(std::string("1=") + command + "|C:\\Data\\X");
        EXPECT_EQ(data(), Paths{"C:\\Data\\X\\"}) << command;
    }
    fill();
    chooseMethod(2);
    runLine("1=CLEAR_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(), Paths{"C:\\Data\\X\\"});
    ASSERT_EQ(machine.files.overwritten.size(), 1u) << "files of subfolders go outright";
    EXPECT_EQ(machine.files.overwritten[0].path, "C:\\Data\\X\\a.log");
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(PlugInFolders, ClearFolderSendsEachItemToTheRecycleBinWhole) {
    putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log"});
    chooseMethod(1);
    runLine("1=CLEAR_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(), Paths{"C:\\Data\\X\\"});
    ASSERT_EQ(machine.shell.recycled.size(), 2u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\Data\\X\\a.log");
    EXPECT_EQ(machine.shell.recycled[1].originalPath, "C:\\Data\\X\\deep");
    EXPECT_TRUE(machine.shell.recycled[1].isFolder);
}

TEST_F(PlugInFolders, WhatTheRecycleBinRefusesStays) {
    putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log"});
    chooseMethod(1);
    machine.shell.fileOperationFails = 5;
    runLine("1=CLEAR_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(),
              (Paths{"C:\\Data\\X\\", "C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\", "C:\\Data\\X\\deep\\b.log"}));
}

TEST_F(PlugInFolders, ReadOnlyFilesDirectlyInAClearedFolderStay) {
    putFiles({"C:\\Data\\X\\a.log", "C:\\Data\\X\\deep\\b.log"});
    machine.files.setAttributes("C:\\Data\\X\\a.log", platform::attribute::ReadOnly);
    machine.files.setAttributes("C:\\Data\\X\\deep\\b.log", platform::attribute::ReadOnly);
    runLine("1=CLEAR_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(), (Paths{"C:\\Data\\X\\", "C:\\Data\\X\\a.log"}));
}

TEST_F(PlugInFolders, FilesDirectlyInAClearedFolderStayByTheirAttributesButUnderRecycle) {
    struct Bit {
        const char* file;
        unsigned attribute;
    };
    const Bit bits[] = {{"C:\\Data\\X\\r", platform::attribute::ReadOnly},
                        {"C:\\Data\\X\\h", platform::attribute::Hidden},
                        {"C:\\Data\\X\\s", platform::attribute::System}};
    for (const int method : {0, 2, 1}) {
        for (const Bit& bit : bits) {
            putFiles({bit.file});
            machine.files.setAttributes(bit.file, bit.attribute);
        }
        chooseMethod(method);
        runLine("1=CLEAR_FOLDER|C:\\Data\\X");
        for (const Bit& bit : bits) EXPECT_EQ(has(bit.file), method != 1) << method << bit.file;
        EXPECT_TRUE(machine.files.overwritten.empty()) << method;
    }
}

TEST_F(PlugInFolders, DelFolderGoesOutrightEvenWithoutAKillMethod) {
    putFiles({"C:\\Data\\X\\a.log"});
    loseMethod();
    runLine("1=DEL_FOLDER|C:\\Data\\X");
    EXPECT_EQ(data(), Paths{});
}

TEST_F(PlugInFolders, LinksGoAsLinks) {
    putFiles({"C:\\Kept\\a.log"});
    machine.files.putFolder("C:\\Data\\X");
    machine.files.putLink("C:\\Data\\X\\link", "C:\\Kept");
    machine.files.putLink("C:\\Data\\Y", "C:\\Kept");
    run({"[FILES]", "1=CLEAR_FOLDER|C:\\Data\\X", "2=CLEAR_FOLDER|C:\\Data\\Y", "3=DEL_FOLDER|C:\\Data\\Y"});
    EXPECT_TRUE(has("C:\\Kept\\a.log"));
    EXPECT_FALSE(has("C:\\Data\\X\\link"));
}

TEST_F(PlugInFolders, MissingFoldersAndFilesInTheirPlaceAreIgnored) {
    putFiles({"C:\\Data\\file"});
    run({"[FILES]", "1=CLEAR_FOLDER|C:\\Data\\none", "2=DEL_FOLDER|C:\\Data\\none", "3=CLEAR_FOLDER|C:\\Data\\file",
         "4=DEL_FOLDER|C:\\Data\\file", "5=CLEAR_FOLDER|C:\\Data\\none\\deeper"});
    EXPECT_EQ(data(), Paths{"C:\\Data\\file"});
}

TEST_F(PlugInFolders, ProtectedPlacesStay) {
    start();
    const Paths before = machine.files.everythingBelow("C:\\");
    run({"[FILES]", "1=CLEAR_FOLDER|%WINDIR%", "2=DEL_FOLDER|%WINDIR%", "3=CLEAR_FOLDER|C:\\", "4=DEL_FOLDER|C:",
         "5=CLEAR_FOLDER|%USERPROFILE%", "6=DEL_FOLDER|%ProgramFiles%", "7=CLEAR_FOLDER|Data", "8=DEL_FOLDER|.."});
    machine.files.take(file);
    machine.files.take(inFolder("PlugIns"));
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
    EXPECT_TRUE(warnedOf(platform::WarningKind::ProtectedPlace));
}

TEST_F(PlugInFolders, ARefusedFolderIsToldAndCountedOnce) {
    start();
    putFiles({"C:\\Windows\\a.log"});
    for (const char* command : {"DEL_FOLDER", "CLEAR_FOLDER"}) {
        for (const int method : {0, 1, 2}) {
            chooseMethod(method);
            const std::uint64_t failed = machine.removed.totals.failed;
            machine.warnings.clear();
            runLine(std::string("1=") + command + "|%WINDIR%");
            EXPECT_EQ(machine.warnings.size(), 1u) << command << method;
            EXPECT_TRUE(warnedOf(platform::WarningKind::ProtectedPlace)) << command << method;
            EXPECT_EQ(machine.removed.totals.failed - failed, 1u) << command << method;
            machine.warnings.clear();
            runLine(std::string("1=") + command + "|Data");
            EXPECT_EQ(machine.warnings.size(), 1u) << command << method;
            EXPECT_TRUE(warnedOf(platform::WarningKind::NotAbsolute)) << command << method;
            EXPECT_EQ(machine.removed.totals.failed - failed, 1u) << command << method;
        }
    }
    EXPECT_TRUE(has("C:\\Windows\\a.log"));
}

TEST_F(PlugInFolders, AFolderThatIsEmptiedIsNotToldAsLeftAlone) {
    putFiles({"C:\\Data\\X\\a.log"});
    run({"[FILES]", "1=DEL_FOLDER|C:\\Data\\X\\", "2=CLEAR_FOLDER|C:\\Data\\X\\"});
    EXPECT_EQ(data(), Paths{"C:\\Data\\X\\"});
    EXPECT_TRUE(machine.warnings.empty());
}

TEST_F(PlugInFolders, DelFolderIsAlsoAnOperationOfItsOwn) {
    putFiles({"C:\\Data\\X\\a.log"});
    cleaner.DelFolder("C:\\Data\\X");
    cleaner.DelFolder("C:\\Data\\none");
    cleaner.DelFolder("");
    EXPECT_EQ(data(), Paths{});
}

// --- FILES: RUN_FILE -------------------------------------------------------------------------------------------------

TEST_F(PlugInStarts, SplitAtTheLastQuestionMark) {
    runLine("1=RUN_FILE|C:\\Tools\\a.exe?/x ?b");
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, "C:\\Tools\\a.exe?/x ");
    EXPECT_EQ(machine.shell.started[0].parameters, "b");
    EXPECT_EQ(machine.shell.started[0].directory, "");
    EXPECT_EQ(machine.shell.started[0].show, 1);
    EXPECT_FALSE(machine.shell.started[0].waited);
}

TEST_F(PlugInStarts, WithoutAQuestionMarkNothing) {
    runLine("1=RUN_FILE|C:\\Tools\\a.exe");
    runLine("1=RUN_FILE|notepad.exe");
    runLine("1=RUN_FILE|?");
    runLine("1=RUN_FILE|");
    EXPECT_TRUE(machine.shell.started.empty());
}

TEST_F(PlugInStarts, BothSpellingsAndVariablesInBothParts) {
    run({"[VARIABLES]", "TOOL=C:\\Tools", "SWITCH=/all", "[FILES]", "1=runfile|%TOOL%\\a.exe?%SWITCH% x",
         "2= run_file |%TOOL%\\b.exe?"});
    ASSERT_EQ(machine.shell.started.size(), 2u);
    EXPECT_EQ(machine.shell.started[0].file, "C:\\Tools\\a.exe");
    EXPECT_EQ(machine.shell.started[0].parameters, "/all x");
    EXPECT_EQ(machine.shell.started[1].file, "C:\\Tools\\b.exe");
    EXPECT_EQ(machine.shell.started[1].parameters, "");
}

TEST_F(PlugInStarts, ANameAloneMeansTheProgramsOwnFolder) {
    machine.files.putFile(inFolder("memtrim.exe"), "MZ");
    runLine("1=RUN_FILE|memtrim.exe?/quiet");
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].file, inFolder("memtrim.exe"));
    EXPECT_EQ(machine.shell.started[0].parameters, "/quiet");
    EXPECT_TRUE(display.warnings.empty());
}

TEST_F(PlugInStarts, AnyOtherNameIsNotStartedAndTold) {
    start();
    display.warnings.clear();
    int expected = 0;
    for (const char* name : {"notepad.exe", " notepad.exe", "..\\a.exe", "PlugIns\\a.tdp", "\\a.exe", "C:a.exe",
                             "https://tidvane.example/", "", "PlugIns", "%NO%\\a.exe"}) {
        runLine(std::string("1=RUN_FILE|") + name + "?");
        ++expected;
        EXPECT_TRUE(machine.shell.started.empty()) << name;
        EXPECT_EQ(display.warnings.size(), static_cast<std::size_t>(expected)) << name;
    }
    EXPECT_NE(display.warnings[0].find("\"notepad.exe\""), std::string::npos);
    EXPECT_NE(display.warnings[1].find("\" notepad.exe\""), std::string::npos)
        << "the blank in front is part of the name";
}

TEST_F(PlugInStarts, ABlankInFrontIsPartOfTheName) {
    machine.files.putFile(inFolder("memtrim.exe"), "MZ");
    runLine("1= run_file | memtrim.exe?");
    EXPECT_TRUE(machine.shell.started.empty());
    machine.files.putFile(inFolder(" memtrim.exe"), "MZ");
    runLine("1= run_file | memtrim.exe?");
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].file, inFolder(" memtrim.exe"));
}

TEST_F(PlugInStarts, AShareIsAFullPath) {
    runLine("1=RUN_FILE|\\\\server\\share\\a.exe?");
    ASSERT_EQ(machine.shell.started.size(), 1u);
}

// --- the page for users ----------------------------------------------------------------------------------------------

// What a reader copies out of docs/plug-ins.md.
Paths documentedExample() {
    std::ifstream page(TIDVANE_SOURCE_DIR "/docs/plug-ins.md");
    Paths lines;
    std::string line;
    while (std::getline(page, line) && line != "## An example") continue;
    while (std::getline(page, line) && !line.starts_with("Look ")) {
        if (line.starts_with("    ")) lines.push_back(line.substr(4));
    }
    return lines;
}

TEST_F(PlugInCleaner, TheDocumentedExampleRemovesWhatItSays) {
    start();
    const std::string folder = variable("APPDATA") + "\\Notes Editor";
    putFiles({folder + "\\logs\\a.log", folder + "\\logs\\kept.txt", folder + "\\recent.dat", folder + "\\kept.ini",
              folder + "\\cache\\1", folder + "\\cache\\deep\\2", folder + "\\old\\3"});
    putKey("Software\\Notes Editor\\Recent", 2);
    const platform::RegistryKeyPtr key = machine.registryTree.currentUser()->find("Software")->find("Notes Editor");
    key->setText("LastFile", "x");
    key->setText("Kept", "x");
    const Paths example = documentedExample();
    ASSERT_GT(example.size(), 10u);
    run(example);
    EXPECT_EQ(machine.files.everythingBelow(folder),
              (Paths{folder + "\\cache\\", folder + "\\kept.ini", folder + "\\logs\\", folder + "\\logs\\kept.txt"}));
    EXPECT_FALSE(hasKey("Software\\Notes Editor\\Recent"));
    ASSERT_EQ(key->values().size(), 1u);
    EXPECT_EQ(key->values()[0].name, "Kept");
    EXPECT_EQ(variable("TDV_NOTES"), "<none>");
    for (const std::string& text : {cleaner.PlugTitle(), cleaner.PlugDescription(), cleaner.PlugDescriptionEnglish(),
                                    cleaner.PlugAuthor(), cleaner.PlugWarning(), cleaner.PlugWarningEnglish()}) {
        EXPECT_FALSE(text.empty());
    }
}

}  // namespace
}  // namespace tidvane::tests
