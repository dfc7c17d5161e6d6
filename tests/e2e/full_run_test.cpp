// Whole runs of the real program over all 62 steps, with every line of their logs, and what the report says of each
// step: its row, its last status, its icon.
#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "e2e/console_run.h"
#include "e2e/expected_run.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const std::vector<std::string> kEverything{"run",
                                           "--tick",
                                           "all",
                                           "--tick",
                                           "chkIEINDepthCleanAll",
                                           "--tick",
                                           "chkIEIndexDatFiles",
                                           "--tick",
                                           "chkMozillaINDepthCleanOfflineCache",
                                           "--tick",
                                           "chkMozillaINDepthCleanTestPilotErrorLogs",
                                           "--tick",
                                           "chkOperaINDepthClean",
                                           "--tick",
                                           "chkChromeINDepthClean",
                                           "--tick",
                                           "chkSafariSavedForms"};

bool keepsAttributes(const std::string& folder) {
    return ::setxattr(folder.c_str(), "user.DOSATTRIB", "0x10", 4, 0) == 0;
}

std::string placeForMachines() {
    const HostDirectory usual;
    if (keepsAttributes(usual.path())) return fs::temp_directory_path().string();
    return fs::path(TIDVANE_CONSOLE).parent_path().parent_path().string();
}

class FullRun : public testing::Test {
protected:
    // A hidden file is told from others by these; without them the same run removes more.
    void SetUp() override {
        ASSERT_TRUE(keepsAttributes(directory_.path()))
            << "neither the place for temporary files nor the build directory keeps attributes of Windows";
    }

    [[nodiscard]] std::string machine() const { return directory_ / "machine"; }
    [[nodiscard]] std::string program() const { return directory_ / "program"; }

    [[nodiscard]] ProcessResult console(const std::vector<std::string>& arguments) const {
        std::vector<std::string> command{TIDVANE_CONSOLE, "--machine", machine(), "--program", program()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        ProcessOptions options;
        options.environment = {"HOME=" + directory_.path()};
        return runProcess(command, options);
    }

    void create(const std::vector<std::string>& further = {}) const {
        std::vector<std::string> command{TIDVANE_CONSOLE, "machine", "create", machine()};
        command.insert(command.end(), further.begin(), further.end());
        const ProcessResult made = runProcess(command);
        ASSERT_EQ(made.status, console_status::Done) << made.err;
    }
    void createSample() const {
        create({"--sample", "--program", program()});
        std::string ticks = "[PlugIns]\r\n";
        for (const std::string& name : plugIns()) ticks += name + "=1\r\n";
        putFile(program() + "/td_apps.ini", ticks);
    }
    // Without times and pauses, so that the lines are the same in every run. Stored, as the start writes lines too.
    void setUpLog(bool details = false) const {
        const ProcessResult set =
            console({"settings", "--set", "txtPurgeSpeed=0", "--set", "chkLogTimestamp=1", "--set",
                     std::string("chkMoreLogDetails=") + (details ? "1" : "0"), "--save"});
        ASSERT_EQ(set.status, console_status::Done) << set.err;
    }

    // The delivered plug-ins by name, sorted as the list is.
    static std::vector<std::string> plugIns() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(TIDVANE_SOURCE_DIR "/data/PlugIns")) {
            if (entry.path().extension() == ".tdp") names.push_back(entry.path().stem().string());
        }
        std::sort(names.begin(), names.end(), base::NoCaseLess{});
        return names;
    }
    static std::vector<std::string> plugInTitles() {
        std::vector<std::string> titles;
        for (const std::string& name : plugIns()) {
            const std::string bytes = contentOfFile(TIDVANE_SOURCE_DIR "/data/PlugIns/" + name + ".tdp");
            const std::size_t start = bytes.find("Title=") + 6;
            titles.push_back(bytes.substr(start, bytes.find_first_of("\r\n", start) - start));
        }
        return titles;
    }

    static std::vector<std::string> linesOf(const std::string& text) {
        std::vector<std::string> lines = base::split(text, "\n");
        if (!lines.empty() && lines.back().empty()) lines.pop_back();
        return lines;
    }

    void expectRun(std::vector<std::string> arguments, const std::string& file, std::set<std::string> conditions,
                   const std::string& said = {}) const {
        arguments.insert(arguments.end(), {"--json", directory_ / "report.json"});
        const ProcessResult result = console(arguments);
        ASSERT_EQ(result.status, console_status::Done) << result.err;
        EXPECT_EQ(result.err, said);
        const std::vector<std::string> log = linesOf(result.out);
        // What the drive gains is the host's affair.
        const bool none = std::find(log.begin(), log.end(), "No additional disk space was gained.") != log.end();
        conditions.insert(none ? "no-gain" : "gain");
        const ExpectedRun expected =
            readExpectedRun(TIDVANE_SOURCE_DIR "/tests/e2e/full_run/" + file, {conditions, plugInTitles()});
        EXPECT_EQ(differences(expected.lines, log), "");
        expectSteps(expected.steps);
    }

    void expectSteps(const std::vector<ExpectedStep>& expected) const {
        ASSERT_EQ(expected.size(), 62U);
        const json report = json::parse(contentOfFile(directory_ / "report.json"));
        const json& steps = report["steps"];
        ASSERT_EQ(steps.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const json& step = steps[i];
            EXPECT_EQ(step["number"], expected[i].number);
            EXPECT_EQ(step["number"], static_cast<int>(i) + 1);
            EXPECT_EQ(step["key"], expected[i].row) << expected[i].number;
            EXPECT_EQ(step["status"], expected[i].status) << expected[i].row;
            EXPECT_EQ(step["icon"], expected[i].icon) << expected[i].row;
        }
    }

    HostDirectory directory_{placeForMachines()};
};

TEST_F(FullRun, TellsOfEveryStepInItsWords) {
    createSample();
    setUpLog();
    expectRun(kEverything, "sample.txt", {"all"});
}

TEST_F(FullRun, FindsNothingASecondTime) {
    createSample();
    setUpLog();
    ASSERT_EQ(console(kEverything).status, console_status::Done);
    expectRun(kEverything, "again.txt", {"all"});
}

TEST_F(FullRun, ListsFilesWithMoreDetails) {
    createSample();
    setUpLog(true);
    expectRun(kEverything, "sample.txt", {"all", "details"});
    expectRun(kEverything, "again.txt", {"all", "details"});
}

// The tasks of Internet Explorer find their traces themselves, and each lets the browser clean besides.
TEST_F(FullRun, CanLeaveOutTheStepThatClearsAllOfInternetExplorer) {
    createSample();
    setUpLog(true);
    std::vector<std::string> arguments = kEverything;
    arguments.insert(arguments.end(), {"--tick", "chkIEINDepthClean", "--untick", "chkIEINDepthCleanAll"});
    expectRun(arguments, "sample.txt", {"each", "details"});
}

TEST_F(FullRun, FindsNothingWhereNothingIs) {
    create();
    setUpLog();
    expectRun(kEverything, "empty.txt", {});
}

TEST_F(FullRun, NamesEveryStepThatIsNotTicked) {
    create();
    setUpLog();
    expectRun({"run"}, "nothing.txt", {},
              "[Nothing to clean] No cleaning task and no plug-in is selected.\nAnswer: OK\n"
              "[What to do] Select cleaning tasks in the options or tick plug-ins in the plug-in list, then start the "
              "cleaning again.\nAnswer: OK\n");
}

}  // namespace

}  // namespace tidvane::tests
