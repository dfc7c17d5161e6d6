// A preview of everything on the sample machine, and the run behind it: what the one tells is what the other removes,
// under each way of removing files.
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "base/text.h"
#include "console/console.h"
#include "console/options.h"
#include "console/sample_fixture.h"
#include "support/tree_state.h"

namespace tidvane::console {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

// "file c:\...", "value hkey_current_user\...\[name]": what an entry is, and its name as a report tells it, in lower
// case. The content belongs to it.
using Contents = std::map<std::string, std::string>;
using Entries = std::set<std::string>;

constexpr const char* kPlaceOfBin = "\\$recycle.bin\\s-1-5-21-0-0-0-1000\\$";
// What a run writes: when it was.
constexpr const char* kLastRun = "file c:\\program files\\tidvane\\td_last.dat";

std::string entryOf(const std::string& path, const std::string& content) {
    if (path.starts_with("hkey_")) {
        const std::size_t bar = path.find('|');
        if (bar == std::string::npos) return "key " + path;
        return "value " + path.substr(0, bar) + "\\[" + path.substr(bar + 1) + "]";
    }
    constexpr std::string_view kDriveC = "drive_c/";
    std::string name = path.starts_with(kDriveC) ? "c:/" + path.substr(kDriveC.size()) : path;
    std::replace(name.begin(), name.end(), '/', '\\');
    return (content == "folder" ? "folder " : "file ") + name;
}

Entries namesOf(const Contents& contents) {
    Entries names;
    for (const auto& [entry, content] : contents) names.insert(entry);
    return names;
}

Entries without(const Entries& all, const Entries& others) {
    Entries rest;
    std::set_difference(all.begin(), all.end(), others.begin(), others.end(), std::inserter(rest, rest.end()));
    return rest;
}

std::string listed(const Entries& entries) {
    std::string text;
    for (const std::string& entry : entries) text += entry + "\n";
    return text;
}

std::string textOf(const json& entry) {
    return entry["kind"].get<std::string>() + " " + base::lowerCase(entry["path"].get<std::string>());
}

struct Way {
    const char* name;
    const char* method;
    bool atOnce = false;  // Internet Explorer's traces by the step that clears all of them, not task by task
};

std::ostream& operator<<(std::ostream& out, const Way& way) {
    return out << way.name;
}

class PreviewEqualsRun : public SampleFixture, public ::testing::WithParamInterface<Way> {
protected:
    // From the command line to the status, in this process.
    static void console(const std::vector<std::string>& words) {
        std::vector<const char*> arguments{"tidvane-console"};
        for (const std::string& word : words) arguments.push_back(word.c_str());
        std::ostringstream out;
        std::ostringstream err;
        ASSERT_EQ(consoleMain(static_cast<int>(arguments.size()), arguments.data(), out, err), exit_status::Done)
            << err.str();
    }

    // The report of a run over all tasks and plug-ins, and over what lets some tasks do more.
    json run(const std::vector<std::string>& further) const {
        std::vector<std::string> words{
            "run",   "--machine",       here / "machine", "--program", here / "program", "--method", GetParam().method,
            "--set", "txtPurgeSpeed=0", "--answer",       "yes",       "--force",        "--quiet"};
        for (const char* box : {"all", "chkIEIndexDatFiles", "chkMozillaINDepthCleanOfflineCache",
                                "chkMozillaINDepthCleanTestPilotErrorLogs", "chkOperaINDepthClean",
                                "chkChromeINDepthClean", "chkSafariSavedForms", "chkIEINDepthClean"}) {
            words.insert(words.end(), {"--tick", box});
        }
        words.insert(words.end(), {GetParam().atOnce ? "--tick" : "--untick", "chkIEINDepthCleanAll"});
        for (const auto& plugIn : fs::directory_iterator(here / "program/PlugIns")) {
            if (plugIn.path().extension() == ".tdp") {
                words.insert(words.end(), {"--plugin", plugIn.path().stem().string()});
            }
        }
        words.insert(words.end(), {"--json", reports_ / "report.json"});
        words.insert(words.end(), further.begin(), further.end());
        console(words);
        return json::parse(reports_.content("report.json"), nullptr, false);
    }

    // The machine, with the program's folder where it shows that.
    Contents contents() {
        SampleState all = state();
        platform.reset();  // it holds the machine
        // The registry of those without an account of their own: as text, since no step reaches it.
        all["userdef.reg"] = here.content("machine/userdef.reg");
        const std::string folder = here / "program";
        for (const fs::path& path : tests::entriesBelow(folder)) {
            const std::string below = path.string().substr(folder.size() + 1);
            all["drive_c/program files/tidvane/" + base::lowerCase(below)] =
                fs::is_directory(path) ? "folder" : here.content("program/" + below);
        }
        Contents contents;
        for (const auto& [path, content] : all) contents[entryOf(path, content)] = content;
        return contents;
    }

    static bool recycles() { return std::string(GetParam().method) == "recycle"; }

private:
    tests::HostDirectory reports_;  // beside what is compared
};

// Every entry that a preview told, and those of them that would lie in the bin.
struct Told {
    Entries all;
    Entries recycled;

    explicit Told(const json& preview) {
        for (const json& step : preview["steps"]) {
            add(step["entries"]);
            EXPECT_EQ(step["entries"].size(), step["files"].get<std::size_t>() + step["folders"].get<std::size_t>() +
                                                  step["keys"].get<std::size_t>() + step["values"].get<std::size_t>())
                << step["key"];
        }
        add(preview["otherEntries"]);
    }

private:
    void add(const json& entries) {
        for (const json& entry : entries) {
            EXPECT_TRUE(all.insert(textOf(entry)).second) << "told twice: " << textOf(entry);
            if (entry.value("recycled", false)) recycled.insert(textOf(entry));
        }
    }
};

void expectSameSteps(const json& preview, const json& really) {
    ASSERT_EQ(preview["steps"].size(), 62U);
    ASSERT_EQ(really["steps"].size(), 62U);
    for (std::size_t at = 0; at < preview["steps"].size(); ++at) {
        for (const char* field : {"number", "key", "gate", "ticked", "status", "icon", "files", "folders", "keys",
                                  "values", "bytes", "failed"}) {
            EXPECT_EQ(preview["steps"][at][field], really["steps"][at][field])
                << at + 1 << " " << preview["steps"][at]["key"] << " " << field;
        }
    }
    EXPECT_EQ(preview["total"], really["total"]);
}

// A comparison of two empty lists would tell nothing.
void expectToHaveRemovedOfEachKind(const json& report) {
    constexpr int kStepsWithTraces = 50;
    EXPECT_GT(report["total"]["files"], 200);
    EXPECT_GT(report["total"]["folders"], 50);
    EXPECT_GT(report["total"]["keys"], 100);
    EXPECT_GT(report["total"]["values"], 100);
    EXPECT_GT(report["total"]["bytes"], 100'000'000);
    const json& steps = report["steps"];
    EXPECT_GE(std::count_if(steps.begin(), steps.end(),
                            [](const json& step) {
                                return step["files"].get<int>() + step["folders"].get<int>() + step["keys"].get<int>() +
                                           step["values"].get<int>() >
                                       0;
                            }),
              kStepsWithTraces);
}

TEST_P(PreviewEqualsRun, EntryByEntryOnTheSampleMachine) {
    const Contents before = contents();
    const tests::TreeState untouched = tests::treeState(here.path());
    const json preview = run({"--preview", "--details"});
    EXPECT_EQ(tests::changesBetween(untouched, tests::treeState(here.path())), "") << "by the preview";
    EXPECT_TRUE(contents() == before) << "the preview changed a content";

    const json really = run({});
    const Contents after = contents();
    expectSameSteps(preview, really);
    expectToHaveRemovedOfEachKind(really);

    const Told told(preview);
    const Entries gone = without(namesOf(before), namesOf(after));
    EXPECT_EQ(listed(without(told.all, gone)), "") << "told, and still there";
    EXPECT_EQ(listed(without(gone, told.all)), "") << "gone, and not told";
    for (const auto& [entry, content] : after) {
        const auto old = before.find(entry);
        if (old != before.end()) {
            EXPECT_TRUE(old->second == content) << "changed: " << entry;
        }
    }

    // What came: the time of the run, and in the bin what the preview said would lie there, as it was.
    std::multiset<std::string> recycled;
    for (const std::string& entry : told.recycled) recycled.insert(before.at(entry));
    EXPECT_EQ(!recycled.empty(), recycles());
    std::multiset<std::string> inBin;
    Entries came = without(namesOf(after), namesOf(before));
    EXPECT_EQ(came.erase(kLastRun), 1U);
    std::erase_if(came, [&](const std::string& entry) {
        const std::size_t place = entry.find(kPlaceOfBin);
        if (!recycles() || place == std::string::npos) return false;
        const char sign = entry[place + std::string(kPlaceOfBin).size()];
        if (sign == 'r') inBin.insert(after.at(entry));  // "$I..." tells where "$R..." was
        return sign == 'r' || sign == 'i';
    });
    EXPECT_EQ(listed(came), "") << "came";
    EXPECT_TRUE(inBin == recycled) << inBin.size() << " in the bin, " << recycled.size() << " told";
}

INSTANTIATE_TEST_SUITE_P(Way, PreviewEqualsRun,
                         ::testing::Values(Way{"Plain", "plain"}, Way{"PlainAtOnce", "plain", true},
                                           Way{"Recycle", "recycle"}, Way{"Overwrite", "overwrite"}),
                         [](const auto& way) { return std::string(way.param.name); });

}  // namespace
}  // namespace tidvane::console
