#include "base/line_input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidvane::base {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) lines.emplace_back(takeLine(text));
    return lines;
}

TEST(TakeLine, EndsAtAReturnWithOrWithoutALineFeed) {
    EXPECT_EQ(linesOf("a\r\nb\rc"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(linesOf("a\r\n"), Lines{"a"});
    EXPECT_EQ(linesOf("\r\r\n\r"), (Lines{"", "", ""}));
    EXPECT_EQ(linesOf(""), Lines{});
}

TEST(TakeLine, ALoneLineFeedIsText) {
    EXPECT_EQ(linesOf("a\nb\n\rc\n"), (Lines{"a\nb\n", "c\n"}));
}

TEST(TakeLine, NulsAreText) {
    EXPECT_EQ(linesOf(std::string_view("a\0b\r\nc", 6)), (Lines{std::string("a\0b", 3), "c"}));
}

}  // namespace
}  // namespace tidvane::base
