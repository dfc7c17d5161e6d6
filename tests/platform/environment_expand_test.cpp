#include "platform/common/environment_expand.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "platform/common/environment_in_map.h"
#include "support/reference.h"

namespace tidvane::platform {
namespace {

// "name=value" joined by "|", escaped once more; "=\N" stands for a variable that was removed.
void setVariables(EnvironmentInMap& environment, const std::string& joined, const base::CodePage& page) {
    for (const std::string& pair : base::split(joined, "|")) {
        const std::size_t sign = pair.find('=', 1);
        if (sign == std::string::npos) continue;
        const std::string name = page.toUtf8(pair.substr(0, sign));
        const std::string value = pair.substr(sign + 1);
        if (value == "\\N") {
            environment.remove(name);
        } else {
            environment.set(name, page.toUtf8(value));
        }
    }
}

// What a recorded call answered with a buffer that was too small is not documented; we deliver nothing then.
bool tooSmall(const tests::ReferenceRow& row) {
    return std::stoul(row["result"]) > std::stoul(row["buffer_size"]);
}

TEST(ExpandEnvironmentStrings, AnswersAsTheCall) {
    const base::CodePage page(1252);
    const auto rows = tests::readReference("envexpand.tsv");
    const auto decisions = tests::readDecisions("envexpand_decisions.tsv");
    tests::ReferenceCheck check(decisions);
    for (const auto& row : rows) {
        EnvironmentInMap environment(page);
        setVariables(environment, row["variables"], page);
        std::string output = "before";
        const std::size_t needed =
            environment.ExpandEnvironmentStringsA(page.toUtf8(row["input"]), std::stoul(row["buffer_size"]), output);
        check.compare(row, row["result"] + " " + (tooSmall(row) ? "" : row["output"]),
                      std::to_string(needed) + " " + page.fromUtf8(output));
    }
    EXPECT_EQ(check.report(), "");
    EXPECT_EQ(decisions.unknownIds(rows), "");
}

TEST(ExpandEnvironmentStrings, CountsBytesOfTheCodePage) {
    EnvironmentInMap environment;
    environment.set("NAME", "\xC3\xA4\xE2\x82\xAC");
    std::string output;
    EXPECT_EQ(environment.ExpandEnvironmentStringsA("%name%", 3, output), 3U);
    EXPECT_EQ(output, "\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(environment.ExpandEnvironmentStringsA("%name%", 2, output), 3U);
    EXPECT_EQ(output, "");
}

TEST(EnvironmentInMap, NamesHaveNoCase) {
    EnvironmentInMap environment;
    environment.set("Temp", "a");
    environment.set("TEMP", "b");
    EXPECT_EQ(environment.get("temp"), "b");
    EXPECT_EQ(environment.all(), (std::vector<std::pair<std::string, std::string>>{{"Temp", "b"}}));
    environment.remove("tEMP");
    EXPECT_FALSE(environment.get("Temp").has_value());
}

TEST(EnvironmentInMap, KeepsEmptyValuesAndRefusesImpossibleNames) {
    EnvironmentInMap environment;
    environment.set("EMPTY", "");
    environment.set("", "x");
    environment.set("a=b", "x");
    EXPECT_EQ(environment.get("EMPTY"), "");
    EXPECT_EQ(environment.all().size(), 1U);
}

}  // namespace
}  // namespace tidvane::platform
