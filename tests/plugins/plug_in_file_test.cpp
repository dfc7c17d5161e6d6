// What is read of a plug-in file: sections, keys, values, the texts of its information.
#include "plugins/plug_in_file.h"

#include "plugins/plug_in_fixture.h"

namespace tidvane::tests {
namespace {

using Names = std::vector<std::string>;

struct PlugInFile : PlugInFixture {
    Names sections() { return plugins::ListSections(program, file); }
    Names keys(const std::string& section) { return plugins::ListKeys(program, file, section); }
    std::string value(const std::string& key, const std::string& fallback = "fallback") {
        return plugins::ReadPlugValue(program, file, "FILES", key, fallback);
    }
};

TEST_F(PlugInFile, SectionsComeInTheOrderOfTheTextWithDuplicates) {
    put({"[FILES]", "1=x", "[Info]", "[variables]", "[FILES]", "[Other one]"});
    EXPECT_EQ(sections(), (Names{"FILES", "Info", "variables", "FILES", "Other one"}));
}

TEST_F(PlugInFile, OuterBlanksOfAHeaderLineDoNotCountAndInnerOnesDo) {
    put({"   [FILES]  ", "[ Info ]", "\t[VARIABLES]"});
    // Only blanks are dropped: a tab makes the third line no header.
    EXPECT_EQ(sections(), (Names{"FILES", " Info "}));
}

TEST_F(PlugInFile, AHeaderWithAnythingBehindItIsNone) {
    put({"[FILES] ; files", "[FILES", "FILES]", "[", "]", "1=[x]", ";[VARIABLES]"});
    EXPECT_EQ(sections(), Names{});
}

TEST_F(PlugInFile, EmptyAndNestedBracketsAreNamesThatNothingMatches) {
    put({"[]", "[[FILES]]"});
    EXPECT_EQ(sections(), (Names{"", "[FILES]"}));
}

TEST_F(PlugInFile, ALoneLineFeedIsTextAndALoneReturnEndsTheLine) {
    machine.files.putFile(file, "[FILES]\n[VARIABLES]\n");
    EXPECT_EQ(sections(), Names{}) << "one line, which does not end in a bracket";
    machine.files.putFile(file, "[FILES]\r[VARIABLES]\r");
    EXPECT_EQ(sections(), (Names{"FILES", "VARIABLES"}));
}

TEST_F(PlugInFile, SectionsAreLookedForAsFarAsValuesAreRead) {
    const std::size_t limit = platform::ProfileFilesOnFiles::largestFile;
    const std::string front = "[Info]\r\n;";
    // Cut behind the bracket, the line would look like a header.
    machine.files.putFile(file, front + std::string(limit - front.size() - 9, 'x') + "\r\n[FILES] ; comment\r\n");
    EXPECT_EQ(sections(), Names{"Info"});
    machine.files.putFile(file, front + std::string(limit, 'x') + "\r\n[FILES]\r\n");
    EXPECT_EQ(sections(), Names{"Info"});
}

TEST_F(PlugInFile, AMissingFileAndAFolderHaveNoSections) {
    EXPECT_EQ(sections(), Names{});
    machine.files.putFolder(file);
    EXPECT_EQ(sections(), Names{});
}

TEST_F(PlugInFile, SectionNamesAreOfTheCodePage) {
    put({"[\xC4rger]"});
    EXPECT_EQ(sections(), (Names{"Ärger"}));
}

TEST_F(PlugInFile, KeysComeInTheirOrderWithDuplicates) {
    put({"[FILES]", "2=a", "1=b", "2=c", "", "; comment=no", "no sign", "3="});
    EXPECT_EQ(keys("files"), (Names{"2", "1", "2", "3"}));
}

TEST_F(PlugInFile, ASectionWithoutKeysListsErr) {
    put({"[FILES]", "[Info]", "Title=x"});
    EXPECT_EQ(keys("FILES"), Names{"Err"});
    EXPECT_EQ(keys("missing"), Names{"Err"});
}

TEST_F(PlugInFile, AKeyListThatFillsItsBufferIsCutInsideAName) {
    // 819 names of 9 letters and a NUL fill 8190 bytes: the list just fits. One byte more, and the last name is cut.
    Names lines{"[FILES]"};
    const auto name = [](int number) { return "name" + std::to_string(10000 + number); };
    for (int i = 0; i < 819; ++i) lines.push_back(name(i) + "=DEL_FILE|C:\\Data\\none");
    put(lines);
    EXPECT_EQ(keys("FILES").size(), 819u);
    EXPECT_EQ(keys("FILES").back(), name(818));
    lines[1] = "x" + lines[1];
    put(lines);
    EXPECT_EQ(keys("FILES").size(), 819u);
    EXPECT_EQ(keys("FILES").back(), name(818)) << "the cut took the closing NUL alone";
    lines[1] = "x" + lines[1];
    put(lines);
    EXPECT_EQ(keys("FILES").back(), name(818).substr(0, 8));
}

TEST_F(PlugInFile, AValueCarries1023Bytes) {
    put({"[FILES]", "1=" + std::string(1023, 'a'), "2=" + std::string(1024, 'b'), "3=" + std::string(1024, '\xE4')});
    EXPECT_EQ(value("1"), std::string(1023, 'a'));
    EXPECT_EQ(value("2"), std::string(1023, 'b'));
    EXPECT_EQ(base::characterCount(value("3")), 1023u) << "bytes of the code page are counted, not of UTF-8";
}

TEST_F(PlugInFile, AnEmptyValueIsEmptyAndAMissingOneTheFallback) {
    put({"[FILES]", "1=", "2=   ", "3=\"\""});
    EXPECT_EQ(value("1"), "");
    EXPECT_EQ(value("2"), "");
    EXPECT_EQ(value("3"), "");
    EXPECT_EQ(value("4"), "fallback");
}

TEST_F(PlugInFile, AValueThatSaysErrInBracesReadsAsAbsent) {
    put({"[FILES]", "1={ERR}", "2={err}", "3={ERR} "});
    EXPECT_EQ(value("1"), "fallback");
    EXPECT_EQ(value("2"), "{err}");
    EXPECT_EQ(value("3"), "fallback");
}

TEST_F(PlugInFile, BlanksAndOnePairOfQuotesAroundAValueAreDropped) {
    put({"[FILES]", "1=  a b  ", "2=\" a \"", "  3  = c"});
    EXPECT_EQ(value("1"), "a b");
    EXPECT_EQ(value("2"), " a ");
    EXPECT_EQ(value("3"), "c");
}

TEST_F(PlugInFile, OfEqualKeysAndSectionsTheFirstCounts) {
    put({"[FILES]", "1=first", "1=second", "[files]", "1=third", "2=fourth"});
    EXPECT_EQ(value("1"), "first");
    EXPECT_EQ(value("2"), "fallback");
}

TEST_F(PlugInFile, TellsTheSixTextsOfItsInformation) {
    put({"[info]", "title=Caches", "Description2=Clears", "Author=me", "Warning=Achtung", "Warning2=Mind"});
    EXPECT_EQ(cleaner.PlugTitle(), "Caches");
    EXPECT_EQ(cleaner.PlugDescriptionEnglish(), "Clears");
    EXPECT_EQ(cleaner.PlugAuthor(), "me");
    EXPECT_EQ(cleaner.PlugWarning(), "Achtung");
    EXPECT_EQ(cleaner.PlugWarningEnglish(), "Mind");
    put({"[Info]", "Description=L\xF6scht"});
    EXPECT_EQ(cleaner.PlugDescription(), "Löscht");
    EXPECT_EQ(cleaner.PlugTitle(), "");
}

TEST_F(PlugInFile, IsLoadedAsksForAPlainFile) {
    EXPECT_FALSE(cleaner.IsLoaded()) << "no name";
    cleaner.setFilename(file);
    EXPECT_FALSE(cleaner.IsLoaded()) << "no file";
    put({"[Info]", "Title=Caches"});
    EXPECT_TRUE(cleaner.IsLoaded());
    for (const unsigned bit : {platform::attribute::ReadOnly, platform::attribute::Archive}) {
        machine.files.setAttributes(file, bit);
        EXPECT_TRUE(cleaner.IsLoaded()) << bit;
    }
    for (const unsigned bit : {platform::attribute::Hidden, platform::attribute::System}) {
        machine.files.setAttributes(file, bit);
        EXPECT_FALSE(cleaner.IsLoaded()) << bit;
        EXPECT_EQ(cleaner.PlugTitle(), "") << bit;
    }
    machine.files.take(file);
    machine.files.putFolder(file);
    EXPECT_FALSE(cleaner.IsLoaded()) << "a folder";
    EXPECT_EQ(cleaner.Filename(), file);
}

}  // namespace
}  // namespace tidvane::tests
