// The tool that the other tests trust has to be able to fail.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/reference.h"

namespace tidvane::tests {
namespace {

class ReferenceReader : public ::testing::Test {
protected:
    void SetUp() override {
        if (otherReferenceInUse()) GTEST_SKIP() << "reads its own table only";
        const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        directory_ = std::filesystem::path(::testing::TempDir()) / ("reference_" + name);
        std::filesystem::create_directories(directory_);
    }
    void TearDown() override { std::filesystem::remove_all(directory_); }

    void put(const std::string& file, const std::string& text) {
        std::ofstream(directory_ / file, std::ios::binary) << text;
    }
    [[nodiscard]] std::vector<ReferenceRow> rows() const { return readReference("rows.tsv", directory_.string()); }
    [[nodiscard]] Decisions decisions() const { return {"decisions.tsv", directory_.string()}; }

    std::filesystem::path directory_;
};

TEST_F(ReferenceReader, UndoesEscapesOnceAndTellsNullFromEmpty) {
    put("rows.tsv", "# id\ta\tb\tnote\nx\t\\t\\\\n\\xE4\t\\N\t\n");
    const auto all = rows();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0]["a"], "\t\\n\xE4");
    EXPECT_FALSE(all[0].isNull("a"));
    EXPECT_TRUE(all[0].isNull("b"));
    EXPECT_FALSE(all[0].isNull("note"));
    EXPECT_EQ(escaped(all[0]["a"]), "\\t\\\\n\\xE4");
}

TEST_F(ReferenceReader, RefusesBrokenLinesAndUnknownColumns) {
    put("rows.tsv", "# id\ta\tnote\nx\t1\n");
    EXPECT_THROW(rows(), std::runtime_error);
    put("rows.tsv", "# id\ta\tnote\nx\t1\t\n");
    EXPECT_THROW((void)rows()[0]["c"], std::out_of_range);
    std::filesystem::remove(directory_ / "rows.tsv");
    EXPECT_THROW(rows(), std::runtime_error);
}

TEST_F(ReferenceReader, ReportsWhatDisagreesWithTheRowOrTheDecision) {
    put("rows.tsv", "# id\ta\tnote\nx\t1\t\ny\t2\twindows: 3\n");
    put("decisions.tsv", "# id\texpected\treason\ny\t3\tas Windows\n");
    const Decisions decided = decisions();
    const auto all = rows();

    ReferenceCheck good(decided);
    good.compare(all[0], all[0]["a"], "1");
    good.compare(all[1], all[1]["a"], "3");
    EXPECT_EQ(good.report(), "");

    ReferenceCheck bad(decided);
    bad.compare(all[0], all[0]["a"], "9");
    bad.compare(all[1], all[1]["a"], "2");
    EXPECT_NE(bad.report().find("2 of 2 rows disagree"), std::string::npos);
}

TEST_F(ReferenceReader, ReportsSuperfluousDecisionsAndEmptyChecks) {
    put("rows.tsv", "# id\ta\tnote\nx\t1\t\n");
    put("decisions.tsv", "# id\texpected\treason\nx\t1\tno need\nz\t1\tno row\n");
    const Decisions decided = decisions();
    ReferenceCheck check(decided);
    EXPECT_NE(check.report(), "");
    check.compare(rows()[0], "1", "1");
    EXPECT_NE(check.report().find("agrees with the row"), std::string::npos);
    EXPECT_EQ(decided.unknownIds(rows()), "no row z\n");
}

TEST_F(ReferenceReader, WantsAReasonForEveryDecision) {
    put("decisions.tsv", "# id\texpected\treason\nx\t1\t\n");
    EXPECT_THROW(decisions(), std::runtime_error);
}

}  // namespace
}  // namespace tidvane::tests
