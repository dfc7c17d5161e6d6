// Files that nobody wrote as a plug-in: they do nothing, or what their readable lines say, and no more.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "app/all_windows.h"
#include "base/runtime_error.h"
#include "platform/machine/machine_platform.h"
#include "plugins/plug_in_fixture.h"
#include "support/host_directory.h"

namespace tidvane::tests {
namespace {

using namespace std::string_literals;

struct BadPlugIns : PlugInFixture {
    BadPlugIns() {
        putFiles({"C:\\Data\\target\\a.tmp", "C:\\Kept\\neighbour", "C:\\Users\\Anna\\Documents\\letter.txt"});
        machine.files.putFolder(inFolder("PlugIns"));
        cleaner.setFilename(file);
    }

    // Runs any bytes as a plug-in. The error of an empty line is one of its ordinary ends.
    void runBytes(const std::string& bytes) {
        machine.files.putFile(file, bytes);
        try {
            cleaner.PhasePlugInfo();
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number, 9);
        }
        (void)cleaner.PlugTitle();
        (void)cleaner.PlugWarningEnglish();
    }
    // Everything but the plug-in itself.
    std::vector<std::string> everything() {
        machine.files.take(file);
        return machine.files.everythingBelow("C:\\");
    }
    static std::vector<std::string> without(std::vector<std::string> all, const std::string& start) {
        std::erase_if(all, [&](const std::string& path) { return path.starts_with(start); });
        return all;
    }
};

const std::string kWhole =
    "[Info]\r\nTitle=Whole\r\nDescription=d\r\n\r\n[VARIABLES]\r\nWHERE=C:\\Data\\target\r\n\r\n"
    "[REGISTRY]\r\n1=HKEY_CURRENT_USER|Software\\Vendor\\Product|Recent\r\n"
    "2=HKEY_CURRENT_USER|Software\\Vendor\\Product\r\n\r\n"
    "[FILES]\r\n1=DEL_FILE|%WHERE%\\*.tmp\r\n2=CLEAR_FOLDER|%WHERE%\r\n3=RUN_FILE|C:\\Data\\a.exe?/x\r\n"
    "4=DEL_FOLDER|C:\\Data\\target\r\n";

TEST_F(BadPlugIns, AnEmptyFileDoesNothing) {
    start();
    const auto before = everything();
    runBytes("");
    EXPECT_EQ(everything(), before);
}

TEST_F(BadPlugIns, AFileCutAnywhereReachesNothingBesideItsTargets) {
    start();
    putKey("Software\\Vendor\\Other");
    const auto before = without(everything(), "C:\\Data\\");
    for (std::size_t length = 0; length <= kWhole.size(); ++length) {
        putFiles({"C:\\Data\\target\\a.tmp"});
        putKey("Software\\Vendor\\Product");
        runBytes(kWhole.substr(0, length));
        EXPECT_EQ(without(everything(), "C:\\Data\\"), before) << length;
        EXPECT_TRUE(hasKey("Software\\Vendor\\Other")) << length;
        machine.environment.remove("WHERE");
    }
    EXPECT_FALSE(hasKey("Software\\Vendor\\Product"));
    EXPECT_FALSE(machine.files.has("C:\\Data\\target"));
}

TEST_F(BadPlugIns, AFileCutAnywhereRunsTheLinesThatAreWhole) {
    start();
    const std::size_t clear = kWhole.find("2=CLEAR");
    for (std::size_t length = clear; length < kWhole.size(); ++length) {
        putFiles({"C:\\Data\\target\\a.tmp"});
        runBytes(kWhole.substr(0, length));
        EXPECT_FALSE(machine.files.has("C:\\Data\\target\\a.tmp")) << length;
    }
}

TEST_F(BadPlugIns, BinaryBytesDoNothing) {
    start();
    const auto before = everything();
    std::mt19937 random(20091103);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 5000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        runBytes(bytes);
        EXPECT_EQ(everything(), before) << round;
    }
}

TEST_F(BadPlugIns, BytesChangedAnywhereReachNothingBesideTheirTargets) {
    start();
    const auto before = without(everything(), "C:\\Data\\");
    std::mt19937 random(7);
    for (std::size_t place = 0; place < kWhole.size(); ++place) {
        for (const char byte : {'\0', '\n', '\r', '\x1A', '[', '|', '%', '\xFF', static_cast<char>(random())}) {
            std::string bytes = kWhole;
            bytes[place] = byte;
            runBytes(bytes);
            ASSERT_EQ(without(everything(), "C:\\Data\\"), before) << place << " " << static_cast<int>(byte);
            machine.environment.remove("WHERE");
        }
    }
}

TEST_F(BadPlugIns, ANulEndsWhatIsReadOfItsLine) {
    start();
    runBytes("[FILES]\r\n1=DEL_FILE|C:\\Data\\target\\a.tmp\0|x\r\n"s);
    EXPECT_FALSE(machine.files.has("C:\\Data\\target\\a.tmp"));
    putFiles({"C:\\Data\\target\\a.tmp"});
    runBytes("[FILES]\0\r\n1=DEL_FILE|C:\\Data\\target\\a.tmp\r\n"s);
    EXPECT_TRUE(machine.files.has("C:\\Data\\target\\a.tmp")) << "the scan takes the header for none";
}

TEST_F(BadPlugIns, AFileWithLineFeedsAloneIsOneLineAndDoesNothing) {
    start();
    putKey("Software\\Vendor\\Product");
    const auto before = everything();
    runBytes(base::replaceAll(kWhole, "\r\n", "\n"));
    // Ending in a bracket makes it one giant header, whose name nothing matches.
    runBytes(base::replaceAll(kWhole, "\r\n", "\n") + "[FILES]");
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(hasKey("Software\\Vendor\\Product"));
    machine.files.putFile(file, base::replaceAll(kWhole, "\r\n", "\n"));
    EXPECT_EQ(cleaner.PlugTitle(), "Whole") << "values are read by other rules";
}

TEST_F(BadPlugIns, AFileWithReturnsAloneIsRead) {
    start();
    runBytes(base::replaceAll(kWhole, "\r\n", "\r"));
    EXPECT_FALSE(machine.files.has("C:\\Data\\target"));
}

TEST_F(BadPlugIns, AFileOfZerosDoesNothing) {
    start();
    const auto before = everything();
    runBytes(std::string(1 << 20, '\0'));
    EXPECT_EQ(everything(), before);
}

TEST_F(BadPlugIns, ManyEqualHeadersEndSoon) {
    start();
    std::string bytes = "[VARIABLES]\r\nWHERE=C:\\Data\r\n";
    for (int i = 0; i < 300; ++i) bytes += "[VARIABLES]\r\n[REGISTRY]\r\n";
    runBytes(bytes + "[FILES]\r\n1=DEL_FILE|%WHERE%\\target\\a.tmp\r\n");
    EXPECT_FALSE(machine.files.has("C:\\Data\\target\\a.tmp"));
    EXPECT_EQ(variable("WHERE"), "<none>");
}

TEST_F(BadPlugIns, LinesOfThreeFieldsRunNoCommand) {
    start();
    putKey("Software\\Vendor\\Product");
    const auto before = everything();
    runBytes(
        "[FILES]\r\n1=DEL_FILE|C:\\Data\\target\\a.tmp|\r\n2=DEL_FILE||C:\\Data\\target\\a.tmp\r\n"
        "3=CLEAR_FOLDER|C:\\Data|target\r\n4=DEL_FOLDER|C:\\Data\\target|x\r\n5=|DEL_FOLDER|C:\\Data\\target\r\n"
        "6=RUN_FILE|C:\\a.exe?|x\r\n[REGISTRY]\r\n1=HKEY_CURRENT_USER|Software\\Vendor\\Product||\r\n");
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(hasKey("Software\\Vendor\\Product"));
    EXPECT_TRUE(machine.shell.started.empty());
}

TEST_F(BadPlugIns, LinesWithoutFieldsRunNoCommand) {
    start();
    putKey("Software\\Vendor\\Product");
    const auto before = everything();
    runBytes(
        "[FILES]\r\n1=DEL_FILE\r\n2=C:\\Data\\target\\a.tmp\r\n3=|\r\n4=DEL_FOLDER|\r\n5=|C:\\Data\\target\r\n"
        "DEL_FILE|C:\\Data\\target\\a.tmp\r\n=DEL_FILE|C:\\Data\\target\\a.tmp\r\n=\r\n"
        "[REGISTRY]\r\n1=\r\n2=|\r\n3=HKEY_CURRENT_USER\r\n4=HKEY_CURRENT_USER|\r\n=\r\n");
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(hasKey("Software\\Vendor\\Product"));
}

TEST_F(BadPlugIns, AnArgumentThatExpandsPast255BytesReachesNothingThatItsFrontNames) {
    start();
    // 255 bytes: what an expansion cut to its buffer would name.
    const std::string front = "C:\\Data\\" + std::string(247, 'x');
    ASSERT_EQ(front.size(), 255u);
    putFiles({front, "C:\\Data\\" + std::string(246, 'x') + "\\a.tmp"});
    const auto before = everything();
    for (const char* command : {"DEL_FILE", "DEL_FOLDER", "CLEAR_FOLDER"}) {
        runBytes("[VARIABLES]\r\nLONG=" + std::string(247, 'x') + "\r\n[FILES]\r\n1=" + command +
                 "|C:\\Data\\%LONG%y\r\n2=" + command + "|C:\\Data\\%LONG%%LONG%\r\n");
        EXPECT_EQ(everything(), before) << command;
    }
    runBytes("[VARIABLES]\r\nLONG=" + std::string(247, 'x') + "\r\n[FILES]\r\n1=DEL_FILE|C:\\Data\\%LONG%\r\n");
    EXPECT_FALSE(has(front)) << "one byte less fits";
}

TEST_F(BadPlugIns, AVeryLongLineReachesNothingThatItsFrontNames) {
    start();
    const auto before = everything();
    const std::string much(900'000, 'x');
    runBytes("[FILES]\r\n1=DEL_FILE|C:\\Data\\target\\a.tmp" + much + "\r\n2=DEL_FOLDER|C:\\Data\\target\\" + much);
    EXPECT_EQ(everything(), before);
    // The name of the key alone fills the list, so that the one behind it is never read.
    runBytes("[FILES]\r\n" + much + "=DEL_FILE|C:\\none\r\n2=DEL_FILE|C:\\Data\\target\\a.tmp\r\n");
    EXPECT_EQ(everything(), before);
}

// --- files too large to be anybody's, on a real file system ----------------------------------------------------------

struct HugePlugIns : testing::Test {
    void SetUp() override {
        namespace machine = platform::machine;
        std::string error;
        ASSERT_TRUE(machine::Machine::create(host / "m", error)) << error;
        host.folder("program/PlugIns");
        host.file("m/drive_c/Data/target/a.tmp");
        host.file("m/drive_c/Kept/neighbour");
        host.file("program/English.lng", englishLanguageFile());
        machine::MachineOptions options;
        options.programFolder = host / "program";
        auto opened = machine::Machine::open(host / "m", machine::Machine::Access::Write, error);
        made = machine::MachinePlatform::make(std::move(opened), options, error);
        ASSERT_NE(made, nullptr) << error;
    }

    // Runs what lies at program/PlugIns/a.tdp.
    void run() {
        const auto begin = std::chrono::steady_clock::now();
        runAtLeisure();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, kLongest);
    }
    void runAtLeisure() {
        ScriptedDisplay display;
        settings::Program program(made->platform(), display);
        app::offerAllWindows(program);
        (void)program.get<app::frmMain>();
        plugins::dPlugCleaner cleaner(program);
        cleaner.setFilename(program.inProgramFolder("PlugIns\\a.tdp"));
        ASSERT_TRUE(cleaner.IsLoaded());
        try {
            cleaner.PhasePlugInfo();
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number, 9);
        }
    }

    // Many times what it takes without optimisation, and far from what an effort that grows with the square of the
    // lines would take.
    static constexpr std::chrono::seconds kLongest{60};

    HostDirectory host;
    std::unique_ptr<platform::machine::MachinePlatform> made;
};

TEST_F(HugePlugIns, AHundredMegabytesOfHoleBehindTheLinesDoNoHarm) {
    host.file("program/PlugIns/a.tdp", "[FILES]\r\n1=DEL_FILE|C:\\Data\\target\\a.tmp\r\n");
    std::filesystem::resize_file(host / "program/PlugIns/a.tdp", std::uintmax_t{100} << 20);
    run();
    EXPECT_FALSE(host.has("m/drive_c/Data/target/a.tmp"));
    EXPECT_TRUE(host.has("m/drive_c/Kept/neighbour"));
}

TEST_F(HugePlugIns, AMillionLinesRunAsFarAsTheirKeysAreListed) {
    std::string bytes = "[FILES]\r\n0=DEL_FILE|C:\\Data\\target\\a.tmp\r\n";
    for (int i = 1; i < 1'000'000; ++i) bytes += std::to_string(i) + "=CLEAR_FOLDER|C:\\Data\\none\r\n";
    host.file("program/PlugIns/a.tdp", bytes);
    run();
    EXPECT_FALSE(host.has("m/drive_c/Data/target/a.tmp"));
    EXPECT_TRUE(host.has("m/drive_c/Kept/neighbour"));
    EXPECT_EQ(host.content("program/PlugIns/a.tdp").size(), bytes.size());
}

TEST_F(HugePlugIns, AMillionLinesOfOtherThingsEndSoon) {
    std::string bytes = "[FILES]\r\n0=DEL_FILE|C:\\Data\\target\\a.tmp\r\n";
    for (int i = 1; i < 500'000; ++i) bytes += "; a comment\r\n[x]\r\n";
    host.file("program/PlugIns/a.tdp", bytes);
    run();
    EXPECT_FALSE(host.has("m/drive_c/Data/target/a.tmp"));
}

}  // namespace
}  // namespace tidvane::tests
