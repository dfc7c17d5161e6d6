// Cleans the sample, each group of tasks alone and all of them, and compares what is gone with the sample's tables.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/text.h"
#include "console/commands.h"
#include "console/sample_fixture.h"

namespace tidvane::console {
namespace {

namespace fs = std::filesystem;

enum Method { Plain, Recycle, Overwrite };

struct Cleaning {
    const char* name;
    unsigned groups;
    Method method = Plain;
    bool everyPlugIn = false;  // else those that find something
};

std::ostream& operator<<(std::ostream& out, const Cleaning& cleaning) {
    return out << cleaning.name;
}

constexpr unsigned kAllGroups = (1U << taken_by::kGroupBits) - 1;

class CleanedSample : public SampleFixture, public ::testing::WithParamInterface<Cleaning> {
protected:
    // Whether this cleaning takes what a row says.
    static bool goes(unsigned takenBy) {
        const auto& [name, groups, method, everyPlugIn] = GetParam();
        unsigned takers = takenBy;
        if (method == Recycle) takers |= takenBy >> taken_by::kGroupBits;
        if (method == Overwrite) takers |= takenBy >> 2 * taken_by::kGroupBits;
        return (takers & groups) != 0;
    }
    static bool has(unsigned group) { return (GetParam().groups & group) != 0; }

    void tickPlugIns() const {
        const fs::path ticks = here / "program/td_apps.ini";
        if (!has(taken_by::PlugIns)) {
            fs::remove(ticks);
        } else if (GetParam().everyPlugIn) {
            std::ofstream out(ticks, std::ios::binary);
            out << "[PlugIns]\r\n";
            for (const auto& entry : fs::directory_iterator(here / "program/PlugIns")) {
                out << entry.path().stem().string() << "=1\r\n";
            }
        }
    }

    void clean() {
        tickPlugIns();
        Options options;
        options.method = GetParam().method;
        options.set = {"txtPurgeSpeed=0"};
        options.answerYes = true;  // to everything at once of Internet Explorer
        for (const frontend::SampleGroup& group : frontend::sampleGroups()) {
            if (!has(group.bit) || group.word == nullptr) continue;
            options.tick.emplace_back(group.word);
            for (const std::string& box : base::split(group.furtherBoxes, " ")) {
                if (!box.empty()) options.tick.push_back(box);
            }
        }
        open();
        std::ostringstream out;
        std::ostringstream err;
        Session session{
            platform->platform(), "sample", out, err, [&](std::string& e) { return ok(platform->commit(e)); }, {}};
        ASSERT_EQ(runCommand(session, options), exit_status::Done) << err.str();
        expectToHaveSaid(err.str());
    }

    // The boxes that come up, and no warning.
    static void expectToHaveSaid(const std::string& text) {
        const bool asks = has(taken_by::Explorer);
        if (GetParam().groups == 0) {
            EXPECT_TRUE(text.starts_with("[Nothing to clean] ")) << text;
        } else if (GetParam().method == Recycle) {
            EXPECT_TRUE(text.starts_with("[Tidvane] The Recycle Bin is not emptied")) << text;
        } else {
            EXPECT_EQ(text.starts_with("[Tidvane] Internet Explorer will clear"), asks) << text;
            EXPECT_EQ(text.empty(), !asks) << text;
        }
        EXPECT_EQ(text.find("Answer: yes\n") != std::string::npos, asks) << text;
        EXPECT_EQ(text.find("Warning"), std::string::npos) << text;
    }

    // Where the host keeps no bits of Windows, a hidden file is one like any other.
    void forgetFilesWithAttributes(SampleState& state) {
        for (const frontend::SampleFile& file : frontend::sampleFiles()) {
            if (file.attributes != 0) state.erase(onDisk(file.path));
        }
    }

    static void takeFromDisk(SampleState& state) {
        const auto take = [&](const std::string& path) { EXPECT_EQ(state.erase(onDisk(path)), 1U) << path; };
        for (const frontend::SampleFile& file : frontend::sampleFiles()) {
            if (goes(file.takenBy)) take(file.path);
        }
        for (const frontend::SampleFolder& folder : frontend::sampleFolders()) {
            if (goes(folder.takenBy)) take(folder.path);
        }
        for (const frontend::SampleLink& link : frontend::sampleLinks()) {
            if (goes(link.takenBy)) take(link.path);
        }
        if (has(taken_by::Explorer)) takeStores(state);
        // Recycling takes the tick off the task that would empty the bin.
        if (has(taken_by::Windows) && GetParam().method != Recycle) takeBins(state);
    }
    static void takeStores(SampleState& state) {
        for (const frontend::SampleUrl& url : frontend::sampleUrls()) {
            if (*url.file != '\0') {
                EXPECT_EQ(state.erase(onDisk(std::string(url.store) + "/" + url.file)), 1U);
            }
            state.erase(onDisk(std::string(url.store) + "/index.dat"));
        }
    }
    static void takeBins(SampleState& state) {
        for (const frontend::SampleUnit& unit : frontend::sampleUnits()) {
            const std::string folder = std::string(unit.folder) + "/";
            EXPECT_EQ(state.erase(onDisk(folder + unit.name)), 1U) << unit.name;
            if (unit.record != 0) {
                EXPECT_EQ(state.erase(onDisk(folder + "$I" + (unit.name + 2))), 1U) << unit.name;
            }
            if (unit.record == 0) state.erase(onDisk(folder + "INFO2"));
        }
    }

    // A key goes when everything in it and below it goes.
    static void takeFromRegistry(SampleState& state) {
        std::map<std::string, bool> keyStays;
        for (const frontend::SampleValue& value : frontend::sampleValues()) {
            const bool stays = !goes(value.takenBy);
            if (!stays) {
                EXPECT_EQ(state.erase(inRegistry(value)), 1U) << inRegistry(value);
            }
            std::string key;
            for (const std::string& part : base::split(keyOf(value), "\\")) {
                key += (key.empty() ? "" : "\\") + part;
                keyStays[key] = keyStays[key] || stays;
            }
        }
        for (const auto& [key, stays] : keyStays) {
            if (!stays) {
                EXPECT_EQ(state.erase(key), 1U) << key;
            }
        }
    }

    // What is in the bin now. The units of before, and those that came.
    static void forgetBins(SampleState& state) {
        std::erase_if(state, [](const auto& entry) {
            return entry.first.starts_with("drive_c/$recycle.bin/s-1-5-21-0-0-0-1000/");
        });
    }

    static std::string difference(const SampleState& expected, const SampleState& actual) {
        std::string text;
        for (const auto& [entry, content] : expected) {
            const auto found = actual.find(entry);
            if (found == actual.end()) text += "gone, and should have stayed: " + entry + "\n";
            if (found != actual.end() && found->second != content) text += "changed: " + entry + "\n";
        }
        for (const auto& [entry, content] : actual) {
            if (expected.count(entry) == 0) text += "there, and should have gone or never come: " + entry + "\n";
        }
        return text;
    }
};

TEST_P(CleanedSample, LosesWhatTheTablesSayAndNothingElse) {
    SampleState expected = state();
    takeFromDisk(expected);
    takeFromRegistry(expected);
    const bool attributesCount = keepsAttributes();
    clean();
    SampleState left = state();
    if (!attributesCount) {
        forgetFilesWithAttributes(expected);
        forgetFilesWithAttributes(left);
    }
    if (GetParam().method == Recycle) {
        forgetBins(expected);
        forgetBins(left);
    }
    EXPECT_EQ(difference(expected, left), "");
}

INSTANTIATE_TEST_SUITE_P(Groups, CleanedSample,
                         ::testing::Values(Cleaning{"Search", taken_by::Search}, Cleaning{"Custom", taken_by::Custom},
                                           Cleaning{"Windows", taken_by::Windows},
                                           Cleaning{"Explorer", taken_by::Explorer},
                                           Cleaning{"Firefox", taken_by::Firefox}, Cleaning{"Opera", taken_by::Opera},
                                           Cleaning{"Chrome", taken_by::Chrome}, Cleaning{"Safari", taken_by::Safari},
                                           Cleaning{"Office", taken_by::Office}, Cleaning{"PlugIns", taken_by::PlugIns},
                                           Cleaning{"EveryPlugIn", taken_by::PlugIns, Plain, true},  //
                                           Cleaning{"Nothing", 0}, Cleaning{"All", kAllGroups},
                                           Cleaning{"AllToTheBin", kAllGroups, Recycle},
                                           Cleaning{"AllOverwritten", kAllGroups, Overwrite},
                                           Cleaning{"AllWithEveryPlugIn", kAllGroups, Plain, true}),
                         [](const auto& cleaning) { return std::string(cleaning.param.name); });

}  // namespace
}  // namespace tidvane::console
