#include "app/status_words.h"

#include <gtest/gtest.h>

namespace tidvane::app {
namespace {

struct StatusWordsTest : testing::Test {
    StatusWordsTest() {
        texts.set(491, "Cleaning tasks");
        texts.set(576, "Plug-ins");
    }
    settings::LangTable texts;
};

TEST_F(StatusWordsTest, GiveACountTheWordForWhatItCounts) {
    EXPECT_EQ(statusWords(texts, 2, "12"), "Cleaning tasks: 12");
    EXPECT_EQ(statusWords(texts, 3, "0"), "Plug-ins: 0");
}

TEST_F(StatusWordsTest, LeaveEveryOtherTextAsItIs) {
    EXPECT_EQ(statusWords(texts, 3, "88 plug-ins"), "88 plug-ins");
    EXPECT_EQ(statusWords(texts, 2, ""), "");
    EXPECT_EQ(statusWords(texts, 2, "-1"), "-1");
}

TEST_F(StatusWordsTest, LeaveTheFirstPanelAndUnknownOnesAsTheyAre) {
    EXPECT_EQ(statusWords(texts, 1, "7"), "7");
    EXPECT_EQ(statusWords(texts, 0, "7"), "7");
    EXPECT_EQ(statusWords(texts, 4, "7"), "7");
}

TEST_F(StatusWordsTest, ShowTheBareCountWhereNoLanguageFileHasTheWord) {
    EXPECT_EQ(statusWords(settings::LangTable(), 2, "12"), "12");
}

}  // namespace
}  // namespace tidvane::app
