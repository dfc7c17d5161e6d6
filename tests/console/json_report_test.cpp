#include "console/json_report.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

namespace tidvane::console {
namespace {

nlohmann::json written(const Report& report) {
    std::ostringstream out;
    writeReport(out, report);
    return nlohmann::json::parse(out.str());
}

TEST(JsonReport, HoldsNamesThatAreNoUtf8) {
    Report report;
    report.machine = "/tmp/F\xE4lle";
    report.steps.push_back({});
    report.steps[0].key = "\xFF\xFE";
    const nlohmann::json object = written(report);
    EXPECT_EQ(object["machine"], "/tmp/F\xEF\xBF\xBDlle");
    EXPECT_EQ(object["steps"][0]["key"], "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(JsonReport, CountsBytesBeyond32Bits) {
    Report report;
    report.freeBefore = 5'000'000'000'000;
    report.steps.push_back({});
    report.steps[0].removed.bytes = 6'000'000'000;
    const nlohmann::json object = written(report);
    EXPECT_EQ(object["freeBefore"], 5'000'000'000'000);
    EXPECT_EQ(object["steps"][0]["bytes"], 6'000'000'000);
}

TEST(JsonReport, AStepWithoutAGateHasNone) {
    Report report;
    report.steps.push_back({});
    report.steps.push_back({});
    report.steps[1].gate = "frmOptions.chkTrash";
    const nlohmann::json object = written(report);
    EXPECT_TRUE(object["steps"][0]["gate"].is_null());
    EXPECT_EQ(object["steps"][1]["gate"], "frmOptions.chkTrash");
}

}  // namespace
}  // namespace tidvane::console
