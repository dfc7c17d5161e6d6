#include "frontend/window_arguments.h"

#include <gtest/gtest.h>

namespace tidvane::frontend {
namespace {

TEST(WindowArgumentsTest, PlacesAreReadInBothSpellings) {
    const WindowArguments read = readWindowArguments({"--machine", "/a b", "--program=/c=d"});
    EXPECT_EQ(read.machine, "/a b");
    EXPECT_EQ(read.program, "/c=d");
    EXPECT_EQ(read.arguments, "");
    EXPECT_EQ(read.error, "");
}

TEST(WindowArgumentsTest, AllOtherWordsAreTheRawTextOfThisStart) {
    EXPECT_EQ(readWindowArguments({"/AUTO", "--machine", "/m", "/SILENT"}).arguments, "/AUTO /SILENT");
    EXPECT_EQ(readWindowArguments({"x/AUTOy", "-z"}).arguments, "x/AUTOy -z");
}

TEST(WindowArgumentsTest, BehindTwoHyphensNoWordIsAnOption) {
    const WindowArguments read = readWindowArguments({"--", "--machine", "--", "--help"});
    EXPECT_EQ(read.arguments, "--machine -- --help");
    EXPECT_EQ(read.machine, "");
    EXPECT_FALSE(read.help);
    EXPECT_EQ(read.error, "");
}

TEST(WindowArgumentsTest, APlaceNeedsAFolder) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"--machine"}, {"--machine", ""}, {"--machine="}, {"/AUTO", "--machine"}}) {
        EXPECT_EQ(readWindowArguments(words).error, "--machine needs a folder behind it.");
    }
    EXPECT_EQ(readWindowArguments({"--program"}).error, "--program needs a folder behind it.");
}

TEST(WindowArgumentsTest, AnUnknownOptionIsSaid) {
    EXPECT_EQ(readWindowArguments({"--machin", "/m"}).error,
              "There is no option \"--machin\"; --help lists those that there are.");
}

TEST(WindowArgumentsTest, HelpAndVersionAreSwitches) {
    EXPECT_TRUE(readWindowArguments({"--help"}).help);
    EXPECT_TRUE(readWindowArguments({"-h"}).help);
    EXPECT_TRUE(readWindowArguments({"--version"}).version);
    EXPECT_FALSE(readWindowArguments({}).help);
    EXPECT_FALSE(readWindowArguments({}).version);
}

TEST(WindowArgumentsTest, ARestartNamesTheSamePlacesAndAsksForNothingElse) {
    const WindowArguments read = readWindowArguments(wordsOfRestart("/m", "/p"));
    EXPECT_EQ(read.machine, "/m");
    EXPECT_EQ(read.program, "/p");
    EXPECT_EQ(read.arguments, "");
}

}  // namespace
}  // namespace tidvane::frontend
