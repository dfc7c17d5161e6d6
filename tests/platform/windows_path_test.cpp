#include "platform/common/windows_path.h"

#include <gtest/gtest.h>

namespace tidvane::platform {
namespace {

std::string parsedText(const std::string& path) {
    WindowsPath parsed;
    return ok(parseWindowsPath(path, parsed)) ? parsed.text() : "not found";
}

bool emptyLastPart(const std::string& path) {
    WindowsPath parsed;
    EXPECT_EQ(parseWindowsPath(path, parsed), Status::Ok) << path;
    return parsed.emptyLastPart;
}

TEST(WindowsPath, ResolvesDotsByText) {
    EXPECT_EQ(parsedText("C:\\a\\.\\b\\..\\c"), "C:\\a\\c");
    EXPECT_EQ(parsedText("C:\\a\\..\\..\\..\\b"), "C:\\b");
    EXPECT_EQ(parsedText("C:\\a\\.."), "C:\\");
    EXPECT_EQ(parsedText("C:\\...\\a"), "C:\\...\\a");
}

TEST(WindowsPath, TakesSlashesAndRepeatedSeparators) {
    EXPECT_EQ(parsedText("c:/a//b\\\\c/"), "C:\\a\\b\\c");
    EXPECT_EQ(parsedText("C:\\\\"), "C:\\");
}

TEST(WindowsPath, KnowsShares) {
    EXPECT_EQ(parsedText("\\\\server\\share\\a\\..\\b"), "\\\\server\\share\\b");
    EXPECT_EQ(parsedText("//server/share"), "\\\\server\\share\\");
    EXPECT_EQ(parsedText("\\\\server\\share\\..\\..\\a"), "\\\\server\\share\\a");
}

TEST(WindowsPath, RefusesWhatIsNoFullPath) {
    for (const char* path : {"", "a", "a\\b", "\\a", "C:", "C:a", "1:\\a", "\\\\", "\\\\server", "\\\\server\\",
                             "\\\\?\\C:\\a", "\\\\.\\C:\\a", "//?/C:/a", "\\\\..\\share", "\xC3\x84:\\a"}) {
        EXPECT_EQ(parsedText(path), "not found") << path;
    }
}

TEST(WindowsPath, TellsAnEmptyLastPart) {
    for (const char* path : {"C:\\", "C:\\a\\", "C:\\a/", "C:\\a\\ ", "C:\\a\\...", "C:\\a\\..", "\\\\server\\share"}) {
        EXPECT_TRUE(emptyLastPart(path)) << path;
    }
    for (const char* path : {"C:\\a", "C:\\a\\.", "C:\\a\\b\\..", "C:\\a.", "C:\\ \\a", "\\\\server\\share\\a"}) {
        EXPECT_FALSE(emptyLastPart(path)) << path;
    }
}

TEST(WindowsPath, ComparesNamesWithoutCaseAndTrailingDotsAndBlanks) {
    EXPECT_EQ(comparableName("Windows. ."), "WINDOWS");
    EXPECT_EQ(comparableName("gr\xC3\xBCn"), "GR\xC3\x9CN");
    EXPECT_EQ(comparableName(" a.b"), " A.B");
    EXPECT_EQ(comparableName("..."), "");
}

TEST(WindowsPath, KnowsNamesThatCannotBeCreated) {
    EXPECT_TRUE(isCreatableName("a b.txt"));
    for (const char* name : {"", "a*b", "a?", "a<b", "a>b", "a|b", "a\"b", "a:b", "a\\b", "a/b", "a\tb"}) {
        EXPECT_FALSE(isCreatableName(name)) << name;
    }
}

}  // namespace
}  // namespace tidvane::platform
