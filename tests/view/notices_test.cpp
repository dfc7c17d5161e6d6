#include <gtest/gtest.h>

#include "view/notices.h"

namespace tidvane::view {
namespace {

TEST(NoticesTest, KeepTheirLinesUntilTheyArePutAway) {
    Notices notices;
    int changes = 0;
    notices.changed.connect([&] { ++changes; });
    notices.add("one");
    notices.add("two");
    EXPECT_EQ(notices.text(), "one\r\ntwo");
    EXPECT_EQ(changes, 2);
    notices.dismiss();
    EXPECT_TRUE(notices.empty());
    EXPECT_EQ(notices.text(), "");
    EXPECT_EQ(changes, 3);
    notices.dismiss();
    EXPECT_EQ(changes, 3) << "nothing was there to put away";
}

TEST(NoticesTest, TellALineOnceAndTheLatestLast) {
    Notices notices;
    notices.add("one");
    notices.add("two");
    notices.add("one");
    EXPECT_EQ(notices.lines(), (std::vector<std::string>{"two", "one"}));
}

TEST(NoticesTest, TellNothingOfAnEmptyLine) {
    Notices notices;
    notices.add("");
    EXPECT_TRUE(notices.empty());
}

TEST(NoticesTest, LoseTheOldestWhenTheyFlood) {
    Notices notices;
    for (std::size_t i = 0; i <= Notices::kMost; ++i) notices.add("line " + std::to_string(i));
    EXPECT_EQ(notices.lines().size(), Notices::kMost);
    EXPECT_EQ(notices.lines().front(), "line 1");
    EXPECT_EQ(notices.lines().back(), "line 200");
}

}  // namespace
}  // namespace tidvane::view
